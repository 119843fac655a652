#include "notation.h"

#include <utility>
#include <vector>

namespace test {
namespace {

const std::pair<std::string, const char*> prefixes[] = {{"acl", NS_IETF_INTERFACES_ACL_EXT},
                                                        {"pf", NS_NQ_IP_PFILTER_CFG},
                                                        {"if", NS_IETF_INTERFACES},
                                                        {"cfg", NS_NQ_IFMGR_CFG},
                                                        {"oper", NS_NQ_PFI_IM_CMD_OPER},
                                                        {"x", foreign_ns},
                                                        {"*", nullptr}};

/// Longer entries first: one begins like another.
const std::pair<std::string, const char*> entries[] = {
    {"/interface-configurations/interface-configuration", "N"},
    {"/interfaces/interface-nq/interface", "O"},
    {"/interfaces-state/interface", "S"},
    {"/interfaces/interface", "I"}};

std::string take(std::string_view& text, const char* end)
{
    const std::string taken(text.substr(0, text.find_first_of(end)));
    text.remove_prefix(taken.size());
    return taken;
}

/// Reads nodes up to a closing parenthesis.
void read(ozk::Tree& tree, OzkMapNode& parent, std::string_view& text, const char* ns_uri)
{
    while (!text.empty() && text.front() != ')') {
        std::string tag  = take(text, "=#@() ");
        OzkMapNode& node = tree.append(parent);
        node.ns_uri      = ns_uri;
        for (const auto& [prefix, uri] : prefixes)
            if (tag.starts_with(prefix + ":"))
                node.ns_uri = uri, tag.erase(0, prefix.size() + 1);
        node.tag = tag != "?" ? tree.intern(tag) : nullptr;
        while (!text.empty() && text.front() != ' ' && text.front() != ')') {
            const char mark = text.front();
            text.remove_prefix(1);
            if (mark == '=') {
                const bool is_quoted = text.starts_with('\'');
                text.remove_prefix(is_quoted);
                ozk::Tree::set_value(node, tree.keep(take(text, is_quoted ? "'" : "#@() ")));
                text.remove_prefix(is_quoted);
            } else if (mark == '#') {
                node.position = static_cast<uint32_t>(std::stoul(take(text, "@() ")));
                node.flags |= MAP_NODE_HAS_POSITION;
            } else if (mark == '@') {
                node.edit = static_cast<uint8_t>(
                    ozk::edit_from_name(take(text, "() ")).value_or(ozk::Edit::none));
                node.edit_is_own = 1;
            } else {
                read(tree, node, text, node.ns_uri);
                text.remove_prefix(1);
            }
        }
        text.remove_prefix(text.starts_with(' '));
    }
}

} // namespace

void read_nodes(ozk::Tree& tree, OzkMapNode& parent, std::string_view text, const char* ns_uri)
{
    read(tree, parent, text, ns_uri);
    if (!text.empty())
        throw std::runtime_error("not read: " + std::string(text));
}

void append_whole(ozk::Tree& tree, OzkMapNode& parent, const schema::Node& described,
                  const char* ns_uri)
{
    OzkMapNode& node = tree.append(parent, described.tag.c_str(), ns_uri);
    if (described.kind == schema::Kind::leaf)
        return ozk::Tree::set_value(node, described.path.c_str());
    for (const schema::Node& child : described.children)
        append_whole(tree, node, child, ns_uri);
    tree.append(node, "no-such-tag", ns_uri);
}

std::string shown(const OzkMapNode& node, const char* ns_uri)
{
    std::string text;
    for (const OzkMapNode& child : ozk::children(node)) {
        text += text.empty() ? "" : " ";
        for (const auto& [prefix, uri] : prefixes)
            if (!ozk::same_text(child.ns_uri, ns_uri) && ozk::same_text(child.ns_uri, uri))
                text += prefix + ":";
        text += child.tag != nullptr ? child.tag : "?";
        if (const std::string_view value = ozk::text(child.value); child.value != nullptr)
            text += (value.find(' ') == value.npos ? "=" : "='") + std::string(value) +
                    (value.find(' ') == value.npos ? "" : "'");
        if (child.edit_is_own != 0)
            text += std::string("@") + name_of(ozk::edit_of(child));
        if (!ozk::children(child).empty())
            text += "(" + shown(child, child.ns_uri) + ")";
    }
    return text;
}

std::string shown(std::span<const ozk::AddedPath> paths)
{
    std::string text;
    for (const ozk::AddedPath& added : paths) {
        std::string path = added.path;
        for (const auto& [entry, letter] : entries)
            if (path == entry || path.starts_with(entry + "/"))
                path.replace(0, entry.size(), letter);
        text += (text.empty() ? "" : ", ") + path + (added.is_list ? " list" : "") +
                (added.value != nullptr ? std::string("=") + added.value : "") +
                (added.ref_node != nullptr ? std::string("@") + added.ref_node->tag : "");
    }
    return text;
}

} // namespace test
