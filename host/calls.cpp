// Calls in text and in JSON: what each kind of call has to tell, told once.

#include "calls.h"

#include <optional>
#include <string_view>
#include <vector>

#include <fmt/core.h>

#include "output.h"
#include "text.h"

namespace ymap::host {

using ozk::Call;
using ozk::Op;

namespace {

struct Field {
    const char* name;
    std::optional<std::string> text; ///< nothing: null
    bool is_number = false;
};

Field text_field(const char* name, const char* text)
{
    return {name, text != nullptr ? std::optional<std::string>(text) : std::nullopt};
}

Field number_field(const char* name, uint32_t number)
{
    return {name, std::to_string(number), true};
}

Field node_field(const char* name, const OzkMapNode* node)
{
    return text_field(name, node != nullptr ? node->tag : nullptr);
}

const char* level_name(uint32_t level)
{
    return level == MAP_LOG_ERROR ? "error" : level == MAP_LOG_TRACE ? "trace" : "other";
}

/// The arguments of a call, and its result if `has_result` is set.
std::vector<Field> fields_of(const Call& call, bool& has_result)
{
    has_result = true;
    switch (call.op) {
    case Op::hierarchy_add:
        has_result = false;
        return {node_field("node", call.node),
                {"kind", call.kind == MAP_HIER_LIST ? "list" : "container"}};
    case Op::hierarchy_remove: has_result = false; return {node_field("node", call.node)};
    case Op::update_list: return {text_field("path", call.text_1)};
    case Op::match: return {text_field("first", call.text_1), text_field("second", call.text_2)};
    case Op::is_request_add:
    case Op::is_request_delete: return {node_field("node", call.node)};
    case Op::add_path:
        return {text_field("path", call.text_1), text_field("namespace", call.text_2),
                text_field("value", call.value), node_field("ref_node", call.node),
                number_field("is_list", call.kind)};
    case Op::copy_text:
        has_result = false;
        return {text_field("text", call.text_1), text_field("memory_tag", call.text_2)};
    case Op::should_log: return {{"level", level_name(call.kind)}};
    case Op::log:
        has_result = false;
        return {{"level", level_name(call.kind)}, {"line", call.line}};
    case Op::trace_index: return {};
    case Op::trace: has_result = false; return {{"line", call.line}};
    case Op::sibling:
        return {text_field("entry_point", call.text_1), node_field("node", call.node)};
    }
    return {};
}

std::string shown(const Field& field)
{
    if (!field.text)
        return "-";
    std::string out;
    for (size_t i = 0; i < field.text->size(); ++i) {
        const char c = (*field.text)[i];
        if (const size_t size = data::control_size(*field.text, i); size > 0) {
            i += size - 1; // its last byte is its code
            out += fmt::format("\\x{:02x}", static_cast<unsigned char>((*field.text)[i]));
        } else {
            out += c == '\\' ? "\\\\" : std::string(1, c);
        }
    }
    return out;
}

/// A line of the log or the trace without the number, the source line and the context's address:
/// "TRC: some_function: Start".
std::string without_places(std::string_view line)
{
    const size_t comma = line.find(',');
    const size_t level = line.find(": ") + 2; // in a trace line, the running number comes first
    if (comma == line.npos)
        return std::string(line);
    if (!line.starts_with('#'))
        return fmt::format("{}{}", line.substr(0, level), line.substr(comma + 1));
    const std::string_view place = line.substr(0, line.find(" ctx="));
    return fmt::format("{}: {}", place.substr(level, place.rfind(':') - level),
                       line.substr(comma + 1));
}

} // namespace

std::string to_text(const Call& call)
{
    bool has_result       = false;
    std::string out       = fmt::format("{}(", name_of(call.op));
    const char* separator = "";
    for (const Field& field : fields_of(call, has_result)) {
        out += separator + shown(field);
        separator = ", ";
    }
    return out + (has_result ? fmt::format(") = {}", call.result) : ")");
}

std::string to_json(const Call& call)
{
    bool has_result = false;
    std::string out = fmt::format("{{\"call\": \"{}\"", name_of(call.op));
    for (const Field& field : fields_of(call, has_result)) {
        const std::string text = field.text.value_or("");
        out += fmt::format(", \"{}\": {}", field.name,
                           !field.text ? "null"
                           : field.is_number
                               ? text
                               : formats::json_string(std::string_view(field.name) == "line"
                                                          ? without_places(text)
                                                          : text));
    }
    return out + (has_result ? fmt::format(", \"result\": {}}}", call.result) : "}");
}

} // namespace ymap::host
