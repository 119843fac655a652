// Case files: what of a run goes into one, how it is written and how it is read.

#include "capture.h"

#include <cerrno>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <set>
#include <string_view>

#include <fmt/format.h>

#include "input_error.h"

namespace ymap::host {

namespace {

using Lines = std::vector<std::string>;

constexpr std::string_view head       = "ymap case 1";
constexpr std::string_view indent     = "  ";
constexpr std::string_view no_newline = "\\ no newline at the end";

/// The text of a log entry or trace line without the address of the context and the source line:
/// "#7: TRC: some_function:* ctx=*,Start".
std::string normalised(std::string text)
{
    constexpr std::string_view address = "ctx=0x";
    const size_t begin                 = text.find(address);
    if (begin == std::string::npos || begin < 2)
        return text;
    const size_t end = text.find_first_not_of("0123456789abcdef", begin + address.size());
    text.replace(begin + 4, end - begin - 4, "*");
    // A trace line has function, colon, source line and a blank in front of it.
    const size_t digits = text.find_last_not_of("0123456789", begin - 2) + 1;
    if (digits > 0 && text[digits - 1] == ':' && digits < begin - 1)
        text.replace(digits, begin - 1 - digits, "*");
    return text;
}

std::string path_line(const ozk::AddedPath& added)
{
    const OzkMapNode* ref = added.ref_node;
    return fmt::format(
        "{}:{}{}{}{}", prefix_of(added.ns_uri), added.path,
        added.value ? " = " + json_string(*added.value) : "", added.is_list ? ", list" : "",
        ref != nullptr ? fmt::format(", ref {}, line {}", json_string(ref->tag), ref->line) : "");
}

void append_section(std::string& out, std::string_view name, const Lines& lines)
{
    out += fmt::format("{}:\n", name);
    for (const std::string& line : lines)
        out += fmt::format("{}{}\n", line.empty() ? "" : indent, line);
}

/// Lines of a text; a last one without a line end counts as well.
Lines split(std::string_view text)
{
    Lines lines;
    while (!text.empty()) {
        const size_t end = text.find('\n');
        lines.emplace_back(text.substr(0, end));
        text.remove_prefix(end == text.npos ? text.size() : end + 1);
    }
    return lines;
}

/// Reads a case line by line.
class CaseReader {
public:
    explicit CaseReader(const std::string& name) : name_(name) {}

    Case read(const std::string& text)
    {
        const Lines lines = split(text);
        if (lines.empty() || lines[0] != head)
            fail(1, fmt::format("no case: the first line is not '{}'", head));
        for (size_t i = 1; i < lines.size(); ++i)
            take(i + 1, lines[i]);
        for (const auto& [section, content] : sections_)
            if (!seen_.contains(section))
                throw InputError(fmt::format("{}: section '{}' is missing", name_, section));
        return std::move(case_);
    }

private:
    [[noreturn]] void fail(size_t line, std::string_view message) const
    {
        throw InputError(for_message(fmt::format("{}:{}: {}", name_, line, message)));
    }

    void take(size_t number, const std::string& line)
    {
        const bool is_document = section_ == "document";
        if (line.starts_with(indent) && !section_.empty()) {
            if (is_document)
                case_.document += line.substr(indent.size()) + "\n";
            else
                sections_.at(section_)->push_back(line.substr(indent.size()));
        } else if (line.empty() && is_document) {
            case_.document += '\n';
        } else if (line == no_newline && is_document && case_.document.ends_with('\n')) {
            case_.document.pop_back();
        } else if (!line.empty() && !line.starts_with('#')) {
            const size_t colon = line.find(':');
            if (colon == line.npos)
                fail(number, fmt::format("neither a setting nor a section: '{}'", line));
            const std::string key = line.substr(0, colon);
            if (!seen_.insert(key).second)
                fail(number, fmt::format("a second '{}'", key));
            if (colon + 1 == line.size() && sections_.contains(key))
                section_ = key;
            else if (section_.empty() && line.substr(colon, 2) == ": ")
                set(number, key, line.substr(colon + 2));
            else
                fail(number, fmt::format("unknown section '{}'", key));
        }
    }

    void set(size_t number, const std::string& key, const std::string& value)
    {
        ReadOptions& options = case_.read_options;
        bool is_good         = false;
        if (key == "op") {
            is_good = operation_codes.contains(value);
            if (is_good)
                options.op_code = operation_codes.at(value);
        } else if (key == "log") {
            case_.diagnostics.log = value;
            is_good               = value == "error" || value == "trace";
        } else if (key == "trace") {
            case_.diagnostics.trace = is_good = value == "on";
        } else if (key == "depth-limit") {
            const char* end   = value.data() + value.size();
            const auto result = std::from_chars(value.data(), end, options.depth_limit);
            is_good = result.ec == std::errc() && result.ptr == end && options.depth_limit > 0 &&
                      options.depth_limit <= MAX_DEPTH_LIMIT;
        } else {
            fail(number, fmt::format("unknown setting '{}'", key));
        }
        if (!is_good)
            fail(number, fmt::format("'{}' is no value of '{}'", value, key));
    }

    const std::string& name_;
    Case case_;
    std::map<std::string, Lines*> sections_ = {{"document", nullptr}, // not kept as lines
                                               {"calls", &case_.result.calls},
                                               {"output", &case_.result.output},
                                               {"status", &case_.result.status}};
    std::set<std::string> seen_;
    std::string section_; ///< that is being read
};

} // namespace

CaseResult result_of(const Mapping& mapping)
{
    CaseResult result;
    for (const ozk::Call& call : mapping.run.calls()) {
        if (call.op == ozk::Op::log || call.op == ozk::Op::trace)
            result.calls.push_back(normalised(to_text(call)));
        else if (call.op != ozk::Op::should_log)
            result.calls.push_back(to_text(call));
    }
    for (const ozk::AddedPath& added : mapping.run.added())
        result.output.push_back(path_line(added));
    for (const Walk& walk : mapping.walks)
        result.status.push_back(
            fmt::format("{}:/{}: {}{}{}", prefix_of(walk.model_root->ns_uri), walk.model_root->name,
                        status_text(walk.status),
                        walk.tag ? fmt::format(", offending tag {}", json_string(*walk.tag)) : "",
                        walk.line != 0 ? fmt::format(", line {}", walk.line) : ""));
    for (const std::string& fault : mapping.run.faults())
        result.status.push_back(fmt::format("broken contract: {}", json_string(fault)));
    return result;
}

std::string to_text(const Case& captured)
{
    std::string out            = fmt::format("{}\n# `ymap replay` runs it.\n", head);
    const ReadOptions& options = captured.read_options;
    for (const auto& [name, code] : operation_codes)
        if (options.op_code == code)
            out += fmt::format("op: {}\n", name);
    if (options.depth_limit != ReadOptions{}.depth_limit)
        out += fmt::format("depth-limit: {}\n", options.depth_limit);
    if (!captured.diagnostics.log.empty())
        out += fmt::format("log: {}\n", captured.diagnostics.log);
    if (captured.diagnostics.trace)
        out += "trace: on\n";
    append_section(out, "document", split(captured.document));
    if (!captured.document.ends_with('\n'))
        out += fmt::format("{}\n", no_newline);
    append_section(out, "calls", captured.result.calls);
    append_section(out, "output", captured.result.output);
    append_section(out, "status", captured.result.status);
    return out;
}

Case parse_case(const std::string& name, const std::string& text)
{
    return CaseReader(name).read(text);
}

void write_bytes(const std::string& path, const std::string& text)
{
    std::unique_ptr<FILE, int (*)(FILE*)> file(std::fopen(path.c_str(), "wb"), std::fclose);
    const bool is_written =
        file && std::fwrite(text.data(), 1, text.size(), file.get()) == text.size();
    if (!is_written || std::fclose(file.release()) != 0)
        throw InputError(fmt::format("{}: cannot write: {}", path, std::strerror(errno)));
}

void answer_as_recorded(ozk::Run& run, std::span<const std::string> calls)
{
    std::map<ozk::Op, size_t> counts;
    for (const std::string& call : calls) {
        for (const ozk::Op op : {ozk::Op::sibling, ozk::Op::add_path, ozk::Op::update_list}) {
            if (!call.starts_with(fmt::format("{}(", name_of(op))))
                continue;
            const size_t count  = ++counts[op];
            const size_t answer = call.rfind(") = ");
            uint32_t status     = MAP_OK;
            const char* end     = call.data() + call.size();
            if (answer != call.npos)
                std::from_chars(call.data() + answer + 4, end, status);
            if (status != MAP_OK)
                run.answer(op, count, status);
        }
    }
}

} // namespace ymap::host
