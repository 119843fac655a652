// Instance paths. A record knows its children and not its parent; the arrays of all children, by
// their addresses, tell the way up.

#include "instance_path.h"

#include <algorithm>
#include <functional>

namespace ymap::data {

namespace {

using ozk::children;
using ozk::text;

std::string name_of(const char* tag, const char* ns_uri, const PrefixOf& prefix_of)
{
    std::string name(prefix_of ? prefix_of(ns_uri) : std::string_view());
    if (!name.empty())
        name += ':';
    return name.append(text(tag));
}

/// A literal of XPath, which can hold one kind of quote only, or several put together.
std::string literal(std::string_view value)
{
    const size_t single = value.find('\'');
    if (single == value.npos || value.find('"') == value.npos) {
        const char quote = single == value.npos ? '\'' : '"';
        return std::string(1, quote).append(value).append(1, quote);
    }
    std::string parts = "concat(";
    for (size_t end; (end = value.find('\'')) != value.npos; value.remove_prefix(end + 1))
        parts.append("'").append(value.substr(0, end)).append("',\"'\",");
    return parts.append("'").append(value).append("')");
}

} // namespace

std::string instance_step(const OzkMapNode& node, const ListKeys* keys, const PrefixOf& prefix_of,
                          const std::function<size_t(const OzkMapNode&)>& place_of)
{
    std::string step = name_of(node.tag, node.ns_uri, prefix_of);
    std::string predicates;
    for (const char* leaf : keys != nullptr ? keys->leaves : std::span<const char* const>()) {
        const OzkMapNode* key = ozk::find_child(node, leaf, node.ns_uri);
        if (key == nullptr || key->value == nullptr)
            return step + "[" + std::to_string(place_of ? place_of(node) : 0) + "]";
        predicates += "[" + name_of(leaf, node.ns_uri, prefix_of) + "=" + literal(key->value) + "]";
    }
    return step + predicates;
}

void InstancePaths::learn()
{
    std::vector<const OzkMapNode*> open = {&top_};
    while (!open.empty()) {
        const OzkMapNode* node = open.back();
        open.pop_back();
        if (children(*node).empty())
            continue;
        families_.push_back({children(*node), node});
        for (const OzkMapNode& child : children(*node))
            open.push_back(&child);
    }
    std::ranges::sort(families_, std::less<>(),
                      [](const Family& family) { return family.children.data(); });
}

const OzkMapNode* InstancePaths::parent_of(const OzkMapNode& node)
{
    if (families_.empty())
        learn();
    const std::less<> before;
    const auto after = std::ranges::upper_bound(
        families_, &node, before, [](const Family& family) { return family.children.data(); });
    if (after == families_.begin())
        return nullptr;
    const Family& family = *std::prev(after);
    return before(&node, family.children.data() + family.children.size()) ? family.parent : nullptr;
}

size_t InstancePaths::place_of(const OzkMapNode& node, std::span<const OzkMapNode> siblings)
{
    const OzkMapNode* first = siblings.data();
    const std::less<> before;
    if (counted_ == nullptr || before(counted_, first) || before(&node, counted_) ||
        !ozk::is_named(*counted_, node.tag, node.ns_uri))
        counted_ = first, place_ = ozk::is_named(*first, node.tag, node.ns_uri) ? 1 : 0;
    for (; counted_ != &node; place_ += ozk::is_named(*counted_, node.tag, node.ns_uri) ? 1 : 0)
        ++counted_;
    return place_;
}

std::string InstancePaths::of(const OzkMapNode& node, const PrefixOf& prefix_of)
{
    std::vector<const OzkMapNode*> road; // from the node up
    for (const OzkMapNode* each = &node; each != nullptr && each != &top_; each = parent_of(*each))
        road.push_back(each);
    std::string path, schema_path;
    const OzkMapNode* parent = &top_;
    if (road.empty() || parent_of(*road.back()) != &top_)
        return path;
    for (size_t i = road.size(); i-- > 0; parent = road[i]) {
        schema_path.append(1, '/').append(text(road[i]->tag));
        path += "/" + instance_step(*road[i], keys_of(lists_, road[i]->ns_uri, schema_path),
                                    prefix_of, [&](const OzkMapNode& entry) {
                                        return place_of(entry, children(*parent));
                                    });
    }
    return path;
}

} // namespace ymap::data
