// The documents of the command line.

#include "documents.h"

#include <array>
#include <utility>

#include <fmt/core.h>

#include "native_file.h"

namespace ymap::host {

using formats::InputError;

namespace {

/// Any of the datastores of RFC 6241 will do: a document on the command line stands for it.
constexpr std::array<std::string_view, 3> datastores = {"running", "candidate", "startup"};

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
        data::Document& document = documents_.emplace_back(netconf::read_native(path, depth_limit));
        try {
            natives_.push_back({&document, &agent::data_of(document)});
        } catch (const agent::RequestError& error) {
            throw InputError(document.name, error.error.line, error.error.message);
        }
    }
}

} // namespace ymap::host
