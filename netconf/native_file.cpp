// Native data as files.

#include "native_file.h"

#include <algorithm>

#include <fmt/core.h>

#include "models.h"
#include "reader.h"

namespace ymap::netconf {

bool is_json(std::string_view beginning)
{
    const size_t begin = beginning.find_first_not_of(" \t\r\n");
    return begin != beginning.npos && (beginning[begin] == '{' || beginning[begin] == '[');
}

data::Document read_native(const std::string& path, uint32_t depth_limit)
{
    const std::string name      = formats::name_of_file(path);
    const formats::Source bytes = formats::bytes_of_file(path);
    std::string first(4096, '\0');
    first.resize(bytes(first.data(), first.size()));
    const bool reads_json        = is_json(first);
    const formats::Source source = [&](char* buffer, size_t size) {
        const size_t count = std::min(size, first.size());
        if (count == 0)
            return bytes(buffer, size);
        std::copy_n(first.begin(), count, buffer);
        first.erase(0, count);
        return count;
    };
    const formats::ReadOptions options{.depth_limit = depth_limit};
    return reads_json ? formats::read_json(name, source, options, agent::namespace_of)
                      : formats::read_xml(name, source, options);
}

void write_native(formats::Output& out, const OzkMapNode& top)
{
    const auto roots      = ozk::children(top);
    const bool is_wrapped = top.tag != nullptr || roots.size() != 1;
    const char* ns_uri    = is_wrapped ? data::NS_NETCONF : nullptr;
    const char* wrapper   = top.tag != nullptr ? top.tag : "data";
    if (is_wrapped)
        out << fmt::format("<{} xmlns=\"{}\"{}>\n", wrapper, ns_uri, roots.empty() ? "/" : "");
    for (const OzkMapNode& root : roots)
        write_xml(out, root, ns_uri, formats::Layout::lines, is_wrapped ? 2 : 0);
    if (is_wrapped && !roots.empty())
        out << fmt::format("</{}>\n", wrapper);
    out.flush();
}

} // namespace ymap::netconf
