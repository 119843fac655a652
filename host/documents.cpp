// The documents of the command line.

#include "documents.h"

#include <algorithm>
#include <array>
#include <utility>

#include <fmt/core.h>

namespace ymap::host {

using formats::InputError;

namespace {

/// Any of the datastores of RFC 6241 will do: a document on the command line stands for it.
constexpr std::array<std::string_view, 3> datastores = {"running", "candidate", "startup"};

/// Data in XML or JSON, whichever its first character says.
data::Document read_data(const std::string& path, uint32_t depth_limit)
{
    const std::string name      = formats::name_of_file(path);
    const formats::Source bytes = formats::bytes_of_file(path);
    std::string first(4096, '\0');
    first.resize(bytes(first.data(), first.size()));
    const formats::Source source = [&](char* buffer, size_t size) {
        const size_t count = std::min(size, first.size());
        if (count == 0)
            return bytes(buffer, size);
        std::copy_n(first.begin(), count, buffer);
        first.erase(0, count);
        return count;
    };
    const formats::ReadOptions options{.depth_limit = depth_limit};
    const size_t begin = first.find_first_not_of(" \t\r\n");
    return begin != first.npos && (first[begin] == '{' || first[begin] == '[')
               ? formats::read_json(name, source, options, agent::namespace_of)
               : formats::read_xml(name, source, options);
}

} // namespace

agent::Request read_request(const std::string& name, const formats::Source& source,
                            uint32_t depth_limit, std::optional<uint32_t> bare_op_code)
{
    try {
        return agent::parse_request(
            formats::read_xml(name, source, {.depth_limit = depth_limit, .takes_operations = true}),
            {bare_op_code, datastores});
    } catch (const agent::RequestError& error) {
        throw InputError(name, error.error.line, error.error.message);
    }
}

agent::Request read_request(const std::string& path, uint32_t depth_limit, bool is_edit,
                            uint32_t bare_op_code)
{
    const std::string name = formats::name_of_file(path);
    agent::Request request =
        read_request(name, formats::bytes_of_file(path), depth_limit, bare_op_code);
    if (request.is_edit() != is_edit)
        throw InputError(
            name, 0,
            fmt::format("{} is expected", is_edit ? "an edit-config" : "a get or get-config"));
    return request;
}

NativeData::NativeData(std::span<const std::string> paths, uint32_t depth_limit)
{
    for (const std::string& path : paths) {
        data::Document& document = documents_.emplace_back(read_data(path, depth_limit));
        try {
            natives_.push_back({&document, &agent::data_of(document)});
        } catch (const agent::RequestError& error) {
            throw InputError(document.name, error.error.line, error.error.message);
        }
    }
}

} // namespace ymap::host
