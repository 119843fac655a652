// Replies in XML and JSON.

#include "reply.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "output.h"

namespace ymap::host {

namespace {

// ---------------------------------------------------------------------------------------------
// JSON

/// What the output tree doesn't say of the nodes of ietf-interfaces and JSON has to know (RFC 7223,
/// 5; RFC 7951, 6). All else is a string, counters of 64 bits included (RFC 7951, 6.1).
enum class JsonKind : uint8_t { string, boolean, integer, container };

JsonKind json_kind(const ozk::DataNode& node)
{
    static constexpr std::pair<std::string_view, JsonKind> kinds[] = {
        {"statistics", JsonKind::container}, {"enabled", JsonKind::boolean},
        {"if-index", JsonKind::integer},     {"in-discards", JsonKind::integer},
        {"in-errors", JsonKind::integer},    {"in-unknown-protos", JsonKind::integer},
        {"out-discards", JsonKind::integer}, {"out-errors", JsonKind::integer},
    };
    if (node.ns_uri != NS_IETF_INTERFACES)
        return JsonKind::string;
    const auto* found =
        std::ranges::find_if(kinds, [&](const auto& row) { return row.first == node.tag; });
    return found != std::end(kinds) ? found->second : JsonKind::string;
}

bool is_integer(std::string_view text)
{
    if (text.starts_with('-'))
        text.remove_prefix(1);
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos &&
           (text == "0" || !text.starts_with('0'));
}

/// The module whose namespace it is: the last part of it, for all that the command knows.
std::string_view module_of(std::string_view ns_uri)
{
    return ns_uri.substr(ns_uri.find_last_of("/:") + 1);
}

class JsonWriter {
public:
    explicit JsonWriter(std::span<const ozk::AddedPath> added)
    {
        for (const ozk::AddedPath& each : added)
            if (each.is_list)
                lists_.emplace(each.ns_uri, each.path);
    }

    /// Writes `nodes`, the children of a node of namespace `ns_uri`, as an object. Instances of a
    /// list are one array, wherever they stand.
    void object(std::span<const ozk::DataNode> nodes, const std::string& path,
                std::string_view ns_uri, int indent)
    {
        std::vector<const ozk::DataNode*> firsts; // one node of each name
        for (const ozk::DataNode& node : nodes)
            if (std::ranges::none_of(firsts, [&](auto* first) { return same_name(*first, node); }))
                firsts.push_back(&node);

        out += '{';
        for (const ozk::DataNode* first : firsts) {
            const std::string own   = first->ns_uri.value_or("");
            const std::string tag   = first->tag.value_or("");
            const std::string below = path + "/" + tag;
            const std::string name =
                own == ns_uri ? tag : fmt::format("{}:{}", module_of(own), tag);
            out += first == firsts.front() ? "\n" : ",\n";
            fmt::format_to(std::back_inserter(out), "{:{}}{}: ", "", indent + 2, json_string(name));
            if (!lists_.contains({own, below})) {
                value(*first, below, indent + 2);
                continue;
            }
            out += '[';
            const char* separator = "\n";
            for (const ozk::DataNode& node : nodes) {
                if (!same_name(*first, node))
                    continue;
                fmt::format_to(std::back_inserter(out), "{}{:{}}", separator, "", indent + 4);
                object(node.children, below, own, indent + 4);
                separator = ",\n";
            }
            fmt::format_to(std::back_inserter(out), "\n{:{}}]", "", indent + 2);
        }
        if (!firsts.empty())
            fmt::format_to(std::back_inserter(out), "\n{:{}}", "", indent);
        out += '}';
    }

    std::string out;

private:
    static bool same_name(const ozk::DataNode& a, const ozk::DataNode& b)
    {
        return a.tag == b.tag && a.ns_uri == b.ns_uri;
    }

    void value(const ozk::DataNode& node, const std::string& path, int indent)
    {
        const JsonKind kind = json_kind(node);
        if (!node.children.empty() || kind == JsonKind::container)
            return object(node.children, path, node.ns_uri.value_or(""), indent);
        if (!node.value) {
            out += "[null]";
            return;
        }
        const std::string& text = *node.value;
        const bool is_plain = (kind == JsonKind::boolean && (text == "true" || text == "false")) ||
                              (kind == JsonKind::integer && is_integer(text));
        out += is_plain ? text : json_string(text);
    }

    std::set<std::pair<std::string, std::string>> lists_; // namespace, schema path
};

} // namespace

std::string xml_reply(const Request& request, std::span<const ozk::DataNode> data)
{
    std::string out;
    std::string declaration = fmt::format(" xmlns=\"{}\"", NS_NETCONF);
    int indent              = 0;
    if (request.is_rpc) {
        std::string id;
        if (request.message_id)
            id = fmt::format(" message-id=\"{}\"", escaped_attribute(*request.message_id));
        out    = fmt::format("<rpc-reply{}{}>\n", id, std::exchange(declaration, ""));
        indent = 2;
    }
    if (data.empty()) {
        out += fmt::format("{:{}}<data{}/>\n", "", indent, declaration);
    } else {
        out += fmt::format("{:{}}<data{}>\n", "", indent, declaration);
        for (const ozk::DataNode& root : data)
            append_xml(out, root, NS_NETCONF, indent + 2);
        out += fmt::format("{:{}}</data>\n", "", indent);
    }
    return out + (request.is_rpc ? "</rpc-reply>\n" : "");
}

std::string json_reply(std::span<const ozk::DataNode> data, std::span<const ozk::AddedPath> added)
{
    JsonWriter writer(added);
    writer.object(data, "", "", 0);
    return writer.out + "\n";
}

} // namespace ymap::host
