// Case files.

#include "case_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include <fmt/core.h>
#include <nlohmann/json.hpp>

#include "options.h"
#include "reader.h"

namespace ymap::host {

using formats::InputError;
using formats::json_string;
using nlohmann::json;

namespace {

/// Members that hold the run; all others are what came of it.
constexpr const char* own_members[] = {"comment", "input", "op", "depth_limit", "log", "trace"};

/// The lines of a text; the last is empty if the text ends in a line feed.
std::vector<std::string> lines_of(std::string_view text)
{
    std::vector<std::string> lines;
    for (size_t end = 0; end != text.npos; text.remove_prefix(end != text.npos ? end + 1 : 0)) {
        end = text.find('\n');
        lines.push_back(json_string(text.substr(0, end)));
    }
    return lines;
}

void write_file(const std::string& path, const std::string& text)
{
    std::unique_ptr<FILE, int (*)(FILE*)> file(std::fopen(path.c_str(), "wb"), std::fclose);
    const bool is_written =
        file && std::fwrite(text.data(), 1, text.size(), file.get()) == text.size();
    if (!is_written || std::fclose(file.release()) != 0)
        throw InputError(path, 0, fmt::format("cannot write: {}", std::strerror(errno)));
}

/// Reads the object of a case.
class CaseReader {
public:
    CaseReader(const std::string& name, const std::string& text) : name_(name)
    {
        try {
            object_ = json::parse(text);
        } catch (const json::parse_error& error) {
            const auto end =
                text.begin() + static_cast<ptrdiff_t>(std::min(error.byte, text.size()));
            const auto line = 1 + std::count(text.begin(), end, '\n');
            throw InputError(name, static_cast<uint32_t>(line),
                             formats::json_message(error.what()));
        } catch (const json::exception& error) {
            fail(formats::json_message(error.what()));
        }
        if (!object_.is_object() || !object_.contains("input") || !object_.contains("calls"))
            fail("no case file: an object with 'input' and 'calls' is expected");
    }

    /// What came of a run; a comment says what the case is for.
    Case read()
    {
        read_input();
        for (const auto& [key, value] : object_.items()) {
            if (std::ranges::find(own_members, std::string_view(key)) != std::end(own_members))
                continue;
            auto& values = result_.members[key];
            if (value.is_array())
                for (const json& each : value)
                    values.push_back(each.dump());
            else
                values.push_back(value.dump());
        }
        read_answers();
        return std::move(result_);
    }

private:
    [[noreturn]] void fail(std::string_view message) const { throw InputError(name_, 0, message); }

    [[noreturn]] void fail_value(const char* key) const
    {
        fail(fmt::format("{} is no value of '{}'", object_.at(key).dump(), key));
    }

    std::string text_of(const char* key, std::initializer_list<const char*> choices) const
    {
        if (!object_.contains(key))
            return "";
        const json& value = object_.at(key);
        if (!value.is_string() ||
            std::ranges::find(choices, value.get<std::string>()) == choices.end())
            fail_value(key);
        return value.get<std::string>();
    }

    void read_input()
    {
        CaseInput& input = result_.input;
        if (!object_.at("input").is_array())
            fail_value("input");
        const char* separator = "";
        for (const json& line : object_.at("input")) {
            if (!line.is_string())
                fail_value("input");
            input.document += separator + line.get<std::string>();
            separator = "\n";
        }
        if (object_.contains("comment"))
            input.comment = object_.at("comment").dump();
        input.op          = text_of("op", {"get", "get-config", "edit"});
        input.log         = text_of("log", {"error", "trace"});
        input.depth_limit = formats::DEFAULT_DEPTH_LIMIT;
        if (object_.contains("depth_limit")) {
            const json& value = object_.at("depth_limit");
            if (!value.is_number_unsigned() || value.get<uint64_t>() == 0 ||
                value.get<uint64_t>() > formats::MAX_DEPTH_LIMIT)
                fail_value("depth_limit");
            input.depth_limit = value.get<uint32_t>();
        }
        if (object_.contains("trace")) {
            if (!object_.at("trace").is_boolean())
                fail_value("trace");
            input.trace = object_.at("trace").get<bool>();
        }
    }

    /// Statuses of sibling maps, and those of the framework that stopped a walk.
    void read_answers()
    {
        std::map<ozk::Op, size_t> counts;
        const json& calls = object_.at("calls");
        if (!calls.is_array())
            fail_value("calls");
        for (const json& call : calls) {
            for (const ozk::Op op : {ozk::Op::sibling, ozk::Op::add_path, ozk::Op::update_list}) {
                if (!call.is_object() || call.value("call", json()) != name_of(op))
                    continue;
                const size_t count = ++counts[op];
                const json answer  = call.value("result", json());
                if (!answer.is_number_unsigned() || answer.get<uint64_t>() > UINT32_MAX)
                    fail("a call has no result");
                if (answer.get<uint32_t>() != MAP_OK)
                    result_.answers.push_back({{op, count}, answer.get<uint32_t>()});
            }
        }
    }

    const std::string& name_;
    json object_;
    Case result_;
};

} // namespace

void write_case(const std::string& path, const CaseInput& input,
                const std::vector<JsonMember>& result)
{
    std::vector<JsonMember> members;
    if (!input.comment.empty())
        members.push_back({"comment", false, {input.comment}});
    members.push_back({"input", true, lines_of(input.document)});
    if (!input.op.empty())
        members.push_back({"op", false, {json_string(input.op)}});
    if (input.depth_limit != formats::DEFAULT_DEPTH_LIMIT)
        members.push_back({"depth_limit", false, {std::to_string(input.depth_limit)}});
    if (!input.log.empty())
        members.push_back({"log", false, {json_string(input.log)}});
    if (input.trace)
        members.push_back({"trace", false, {"true"}});
    members.insert(members.end(), result.begin(), result.end());
    const std::string text = json_object(members) + "\n";
    if (!json::accept(text))
        throw InputError(path, 0, "not written: the document is no UTF-8");
    write_file(path, text);
}

Case read_case(const std::string& name, const std::string& text)
{
    return CaseReader(name, text).read();
}

std::map<std::string, std::vector<std::string>> compact(const std::vector<JsonMember>& result)
{
    std::map<std::string, std::vector<std::string>> members;
    for (const JsonMember& member : result)
        for (auto& values = members[member.name]; const std::string& value : member.values)
            values.push_back(json::parse(value).dump());
    return members;
}

} // namespace ymap::host
