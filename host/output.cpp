// The formats of the command's output.

#include "output.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <string_view>

#include <fmt/format.h>

#include "input_error.h"

namespace ymap::host {

namespace {

std::optional<std::string_view> status_name(uint32_t status)
{
    switch (status) {
    case MAP_OK: return "MAP_OK";
    case MAP_WHEN_NO_INPUT: return "MAP_WHEN_NO_INPUT";
    case MAP_NOT_MAPPED: return "MAP_NOT_MAPPED";
    case MAP_ERR_NO_SUBTREES: return "MAP_ERR_NO_SUBTREES";
    case MAP_ERR_INVALID_ARGS: return "MAP_ERR_INVALID_ARGS";
    case MAP_ERR_UNSUPPORTED_TAG: return "MAP_ERR_UNSUPPORTED_TAG";
    case MAP_ERR_BAD_KEY: return "MAP_ERR_BAD_KEY";
    case MAP_ERR_KEY_DELETE: return "MAP_ERR_KEY_DELETE";
    case MAP_ERR_ADD_REFUSED: return "MAP_ERR_ADD_REFUSED";
    default: return std::nullopt;
    }
}

const char* operation_name(uint32_t op_code)
{
    return op_code == MAP_OP_GET ? "get" : op_code == MAP_OP_EDIT ? "edit" : "get-config";
}

/// What a reference to a node of the request asks for: "delete" if a delete stands on the node.
const char* reference_kind(const OzkMapNode& node)
{
    const auto edit = static_cast<ozk::Edit>(node.edit);
    const bool is_delete =
        node.edit_is_own != 0 && (edit == ozk::Edit::erase || edit == ozk::Edit::remove);
    return is_delete ? "delete" : "edit";
}

std::string json_or_null(std::optional<std::string_view> text)
{
    return text ? json_string(*text) : "null";
}

/// Columns that a text of UTF-8 takes on a terminal, if no character is a wide one.
size_t width(std::string_view text)
{
    return static_cast<size_t>(std::ranges::count_if(
        text, [](char c) { return (static_cast<unsigned char>(c) & 0xc0) != 0x80; }));
}

/// The name of an edit operation in XML, or null.
const char* edit_name(ozk::Edit edit)
{
    switch (edit) {
    case ozk::Edit::none: return nullptr;
    case ozk::Edit::merge: return "merge";
    case ozk::Edit::replace: return "replace";
    case ozk::Edit::create: return "create";
    case ozk::Edit::remove: return "remove";
    case ozk::Edit::erase: return "delete";
    }
    return nullptr;
}

/// `items` with commas between them, each on a line of its own, as the body of a JSON array.
std::string json_array(const std::vector<std::string>& items)
{
    return items.empty() ? "[]" : fmt::format("[\n    {}\n  ]", fmt::join(items, ",\n    "));
}

std::string json_path(const ozk::AddedPath& added)
{
    const OzkMapNode* ref = added.ref_node;
    return fmt::format(
        R"({{"path": {}, "value": {}, "namespace": {}, "prefix": {}, "list": {}, )"
        R"("refers_to": {}}})",
        json_string(added.path), json_or_null(added.value), json_string(added.ns_uri),
        json_string(prefix_of(added.ns_uri)), added.is_list,
        ref == nullptr ? "null"
                       : fmt::format(R"({{"kind": "{}", "tag": {}, "line": {}}})",
                                     reference_kind(*ref), json_string(ref->tag), ref->line));
}

std::string json_walk(const Walk& walk)
{
    const auto name = status_name(walk.status);
    return fmt::format(R"({{"root": {}, "status": {}, "status_name": {}, "tag": {}, "line": {}}})",
                       json_string(fmt::format("/{}", walk.model_root->name)), walk.status,
                       json_or_null(name), json_or_null(walk.tag),
                       walk.line != 0 ? fmt::to_string(walk.line) : "null");
}

} // namespace

std::string status_text(uint32_t status)
{
    const std::string code =
        status > 0xffff ? fmt::format("{:#x}", status) : fmt::to_string(status);
    const auto name = status_name(status);
    return name ? fmt::format("{} ({})", *name, code) : fmt::format("status {}", code);
}

std::string json_string(std::string_view text)
{
    std::string out = "\"";
    for (size_t i = 0; i < text.size(); ++i) {
        switch (const char c = text[i]) {
        case '"': out += "\\\""; break;
        case '\\': out += "\\\\"; break;
        case '\n': out += "\\n"; break;
        case '\r': out += "\\r"; break;
        case '\t': out += "\\t"; break;
        default:
            if (const size_t size = control_size(text, i); size > 0) {
                i += size - 1; // its last byte is its code
                fmt::format_to(std::back_inserter(out), "\\u{:04x}",
                               static_cast<unsigned char>(text[i]));
            } else {
                out += c;
            }
        }
    }
    return out += '"';
}

std::string escaped(std::string_view text)
{
    std::string out;
    for (const char c : text) {
        switch (c) {
        case '&': out += "&amp;"; break;
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '"': out += "&quot;"; break;
        case '\r': out += "&#13;"; break; // a reader would make a line feed of it
        default: out += c;
        }
    }
    return out;
}

std::string escaped_attribute(std::string_view text)
{
    std::string out;
    for (const char c : escaped(text)) {
        switch (c) {
        case '\n': out += "&#10;"; break;
        case '\t': out += "&#9;"; break;
        default: out += c;
        }
    }
    return out;
}

void append_xml(std::string& out, const ozk::DataNode& node, std::string_view ns_uri, int indent)
{
    const std::string name = escaped(node.tag.value_or(""));
    const std::string own  = node.ns_uri.value_or("");
    fmt::format_to(std::back_inserter(out), "{:{}}<{}", "", indent, name);
    if (own != ns_uri)
        fmt::format_to(std::back_inserter(out), " xmlns=\"{}\"", escaped_attribute(own));
    if (const char* edit = edit_name(node.edit))
        fmt::format_to(std::back_inserter(out), " nc:operation=\"{}\"", edit);
    if (!node.children.empty()) {
        out += ">\n";
        for (const ozk::DataNode& child : node.children)
            append_xml(out, child, own, indent + 2);
        fmt::format_to(std::back_inserter(out), "{:{}}</{}>\n", "", indent, name);
    } else if (node.value) {
        fmt::format_to(std::back_inserter(out), ">{}</{}>\n", escaped(*node.value), name);
    } else {
        out += "/>\n";
    }
}

std::string calls_text(const ozk::Run& run)
{
    std::string out = "calls:\n";
    for (const ozk::Call& call : run.calls())
        fmt::format_to(std::back_inserter(out), "  {}\n", to_text(call));
    return out;
}

std::string table_text(const Mapping& mapping)
{
    constexpr size_t columns = 5;
    using Row                = std::array<std::string, columns>;
    std::vector<Row> rows    = {Row{"PATH", "VALUE", "NAMESPACE", "LIST", "REFERS TO"}};
    for (const ozk::AddedPath& added : mapping.run.added()) {
        const OzkMapNode* ref = added.ref_node;
        rows.push_back(Row{
            std::string(added.path),
            added.value ? json_string(*added.value) : "-",
            std::string(prefix_of(added.ns_uri)),
            added.is_list ? "list" : "-",
            ref == nullptr ? "-" : fmt::format("{}, line {}", reference_kind(*ref), ref->line),
        });
    }
    if (rows.size() == 1)
        return "no paths\n";

    std::array<size_t, columns> widths{};
    for (const Row& row : rows)
        for (size_t i = 0; i < columns; ++i)
            widths[i] = std::max(widths[i], width(row[i]));
    std::string out;
    for (const Row& row : rows) {
        for (size_t i = 0; i + 1 < columns; ++i) {
            out += row[i];
            out.append(widths[i] - width(row[i]) + 2, ' ');
        }
        out += row.back();
        out += '\n';
    }
    return out;
}

std::string xml_text(const Mapping& mapping)
{
    // An edit becomes a configuration to send on, a read of the clients' model a filter, and what
    // was read from the native models data.
    const auto& roots            = mapping.request.roots;
    const bool is_edit           = mapping.request.op_code == MAP_OP_EDIT;
    const bool is_data           = !roots.empty() && !roots.front().model_root->is_clients;
    const std::string_view name  = is_edit ? "config" : is_data ? "data" : "filter";
    const std::string_view extra = name == "filter" ? " type=\"subtree\"" : "";

    std::string out = fmt::format("<nc:{}{} xmlns:nc=\"{}\"", name, extra, NS_NETCONF);
    const std::vector<ozk::DataNode> tree = ozk::build_data_tree(mapping.run.added());
    if (tree.empty())
        return out + "/>\n";
    out += ">\n";
    for (const ozk::DataNode& root : tree)
        append_xml(out, root, "", 2);
    return out + fmt::format("</nc:{}>\n", name);
}

std::string json_text(const Mapping& mapping, bool with_calls)
{
    const Request& request = mapping.request;
    std::vector<std::string> walks, paths, faults, calls;
    std::ranges::transform(mapping.walks, std::back_inserter(walks), json_walk);
    std::ranges::transform(mapping.run.added(), std::back_inserter(paths), json_path);
    std::ranges::transform(mapping.run.faults(), std::back_inserter(faults), json_string);
    std::string out = fmt::format(
        "{{\n  \"document\": {},\n  \"message_id\": {},\n  \"operation\": \"{}\",\n"
        "  \"walks\": {},\n  \"paths\": {},\n  \"faults\": {}",
        json_string(request.document), json_or_null(request.message_id),
        operation_name(request.op_code), json_array(walks), json_array(paths), json_array(faults));
    if (with_calls) {
        for (const ozk::Call& call : mapping.run.calls())
            calls.push_back(json_string(to_text(call)));
        out += fmt::format(",\n  \"calls\": {}", json_array(calls));
    }
    return out + "\n}";
}

} // namespace ymap::host
