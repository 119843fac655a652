// Subtree filters: the data is walked once, with all filter nodes that stand for the node reached.

#include "filter.h"

#include <algorithm>
#include <vector>

namespace ozk {

namespace {

using Filters = std::vector<const DataNode*>;

bool stands_for(const DataNode& filter, const DataNode& data)
{
    return filter.tag == data.tag && (!filter.ns_uri || filter.ns_uri == data.ns_uri);
}

bool is_content_match(const DataNode& filter)
{
    return filter.value && filter.children.empty();
}

/// Whether the content matches among the children of `filter` hold for `data`.
bool content_matches(const DataNode& filter, const DataNode& data)
{
    return std::ranges::all_of(filter.children, [&](const DataNode& test) {
        return !is_content_match(test) ||
               std::ranges::any_of(data.children, [&](const DataNode& leaf) {
                   return stands_for(test, leaf) && test.value == leaf.value;
               });
    });
}

/// What is selected of `data` by `filters`, each of which stands for it.
std::optional<DataNode> select(const DataNode& data, const Filters& filters)
{
    Filters below;
    for (const DataNode* filter : filters) {
        if (filter->children.empty()) {
            if (!filter->value || (filter->value == data.value && data.children.empty()))
                return data;
        } else if (content_matches(*filter, data)) {
            if (std::ranges::all_of(filter->children, is_content_match))
                return data;
            for (const DataNode& child : filter->children)
                below.push_back(&child);
        }
    }

    std::vector<DataNode> selected;
    Filters of_child;
    for (const DataNode& child : data.children) {
        of_child.clear();
        std::ranges::copy_if(below, std::back_inserter(of_child),
                             [&](const DataNode* filter) { return stands_for(*filter, child); });
        if (of_child.empty())
            continue;
        if (auto part = select(child, of_child))
            selected.push_back(std::move(*part));
    }
    if (selected.empty())
        return std::nullopt;

    DataNode result;
    result.tag      = data.tag;
    result.ns_uri   = data.ns_uri;
    result.edit     = data.edit;
    result.position = data.position;
    result.line     = data.line;
    result.children = std::move(selected);
    return result;
}

} // namespace

std::optional<DataNode> apply_filters(const DataNode& data, std::span<const DataNode> filters)
{
    Filters of_root;
    for (const DataNode& filter : filters)
        if (stands_for(filter, data))
            of_root.push_back(&filter);
    return of_root.empty() ? std::nullopt : select(data, of_root);
}

std::vector<DataNode> filters_of(std::span<const AddedPath> added)
{
    // In a tree, children would narrow what a path selects: those of an entry that lie below such
    // a path are left out.
    std::vector<AddedPath> paths;
    for (size_t begin = 0, end = 0; begin < added.size(); begin = end) {
        while (++end < added.size() && !added[end].is_list) {
        }
        const auto entry = added.subspan(begin, end - begin);
        std::ranges::copy_if(entry, std::back_inserter(paths), [&](const AddedPath& path) {
            return std::ranges::none_of(entry, [&](const AddedPath& whole) {
                return !whole.is_list && !whole.value && is_below(path, whole);
            });
        });
    }
    return build_data_tree(paths);
}

} // namespace ozk
