// Edits of a data tree: the added paths in order, an entry at a time.

#include "edit.h"

#include <algorithm>
#include <utility>

namespace ozk {

namespace {

/// The operation that a path stands for. One that refers to no node is there for its own sake.
Edit operation_of(const AddedPath& added)
{
    return added.ref_node != nullptr ? static_cast<Edit>(added.ref_node->edit) : Edit::merge;
}

[[noreturn]] void refuse(const char* error_tag, const std::string& what, const AddedPath& added)
{
    throw EditError(std::string(error_tag) + ": " + what, added.ref_node);
}

/// Takes the first tag off `path`, which begins with a slash or is empty.
std::string_view take_tag(std::string_view& path)
{
    const std::string_view tag = path.substr(1, path.find('/', 1) - 1);
    path.remove_prefix(tag.size() + 1);
    return tag;
}

bool is_named(const DataNode& node, std::string_view tag, std::string_view ns_uri)
{
    return node.tag == tag && node.ns_uri == ns_uri;
}

DataNode* find(std::vector<DataNode>& nodes, std::string_view tag, std::string_view ns_uri)
{
    const auto found = std::ranges::find_if(
        nodes, [&](const DataNode& node) { return is_named(node, tag, ns_uri); });
    return found != nodes.end() ? &*found : nullptr;
}

DataNode& make(std::vector<DataNode>& nodes, std::string_view tag, std::string_view ns_uri)
{
    DataNode& made = nodes.emplace_back();
    made.tag       = tag;
    made.ns_uri    = ns_uri;
    return made;
}

/// A place in the tree: the node that is edited has `tag` and is a child of `parent`. A null parent
/// means that the way there doesn't exist.
struct Place {
    DataNode* parent;
    std::string_view tag;
};

/// The place of `path`, which is relative to `from`. Containers on the way are made if asked for.
Place place_of(DataNode& from, std::string_view path, std::string_view ns_uri, bool makes_way)
{
    Place place{&from, take_tag(path)};
    while (!path.empty()) {
        DataNode* next = find(place.parent->children, place.tag, ns_uri);
        if (next == nullptr) {
            if (!makes_way)
                return {nullptr, {}};
            next = &make(place.parent->children, place.tag, ns_uri);
        }
        place = {next, take_tag(path)};
    }
    return place;
}

/// Edits the leaf at `path` below `from`.
void edit_leaf(DataNode& from, std::string_view path, const AddedPath& leaf)
{
    const Edit operation = operation_of(leaf);
    if (operation == Edit::none)
        return;
    const bool deletes = operation == Edit::erase || operation == Edit::remove;
    const Place place  = place_of(from, path, leaf.ns_uri, !deletes);
    DataNode* node     = nullptr;
    if (place.parent != nullptr)
        node = find(place.parent->children, place.tag, leaf.ns_uri);

    const std::string name(leaf.path);
    if (operation == Edit::erase && node == nullptr)
        refuse("data-missing", "there is no " + name + " to delete", leaf);
    if (operation == Edit::create && node != nullptr)
        refuse("data-exists", name + " exists already", leaf);

    if (deletes) {
        if (node != nullptr)
            place.parent->children.erase(place.parent->children.begin() +
                                         (node - place.parent->children.data()));
        return;
    }
    if (node == nullptr)
        node = &make(place.parent->children, place.tag, leaf.ns_uri);
    node->value = leaf.value;
}

/// An entry of a list as an edit names it.
class Entry {
public:
    /// `paths` are the list path and those below it.
    Entry(std::span<const AddedPath> paths, std::span<const ListKey> keys)
        : list_(paths.front()), leaves_(paths.subspan(1))
    {
        const auto key = std::ranges::find_if(keys, [&](const ListKey& each) {
            return each.path == list_.path && each.ns_uri == list_.ns_uri;
        });
        if (key == keys.end())
            refuse("operation-failed", "no key is known of " + std::string(list_.path), list_);
        for (const std::string_view tag : key->leaves) {
            const auto leaf = std::ranges::find_if(leaves_, [&](const AddedPath& added) {
                return relative(added).substr(1) == tag && added.value;
            });
            if (leaf == leaves_.end())
                refuse("missing-element",
                       "an entry of " + std::string(list_.path) + " has no " + std::string(tag),
                       list_.ref_node != nullptr || leaves_.empty() ? list_ : leaves_.front());
            keys_.push_back(&*leaf);
        }
    }

    void edit(DataNode& root) const
    {
        const AddedPath& teller = list_.ref_node != nullptr ? list_ : *keys_.front();
        const Edit operation    = operation_of(teller);
        const bool deletes      = operation == Edit::erase || operation == Edit::remove;
        const bool makes        = !deletes && operation != Edit::none;

        std::string_view path = list_.path;
        take_tag(path); // the root's
        const Place place = place_of(root, path, list_.ns_uri, makes);
        DataNode* entry   = place.parent != nullptr ? find_in(*place.parent) : nullptr;

        if (entry == nullptr && (operation == Edit::erase || operation == Edit::none))
            refuse("data-missing", "there is no " + name(), teller);
        if (entry != nullptr && operation == Edit::create)
            refuse("data-exists", name() + " exists already", teller);

        if (deletes) {
            if (entry != nullptr)
                place.parent->children.erase(place.parent->children.begin() +
                                             (entry - place.parent->children.data()));
            return;
        }
        if (entry == nullptr)
            entry = &make_in(*place.parent, place.tag);
        else if (operation == Edit::replace)
            std::erase_if(entry->children, [&](const DataNode& child) { return !names(child); });
        for (const AddedPath& leaf : leaves_)
            if (!is_key(leaf))
                edit_leaf(*entry, relative(leaf), leaf);
    }

private:
    std::string_view relative(const AddedPath& leaf) const
    {
        return leaf.path.substr(list_.path.size());
    }

    bool is_key(const AddedPath& leaf) const
    {
        return std::ranges::any_of(keys_,
                                   [&](const AddedPath* key) { return key->path == leaf.path; });
    }

    DataNode* find_in(DataNode& parent) const
    {
        const auto tag   = list_.path.substr(list_.path.rfind('/') + 1);
        const auto found = std::ranges::find_if(parent.children, [&](DataNode& node) {
            return is_named(node, tag, list_.ns_uri) &&
                   std::ranges::all_of(keys_, [&](const AddedPath* key) {
                       const DataNode* leaf =
                           find(node.children, relative(*key).substr(1), key->ns_uri);
                       return leaf != nullptr && leaf->value == key->value;
                   });
        });
        return found != parent.children.end() ? &*found : nullptr;
    }

    DataNode& make_in(DataNode& parent, std::string_view tag) const
    {
        DataNode& entry = make(parent.children, tag, list_.ns_uri);
        for (const AddedPath* key : keys_)
            make(entry.children, relative(*key).substr(1), key->ns_uri).value = key->value;
        return entry;
    }

    /// Whether the edit has a path to `child` or below it.
    bool names(const DataNode& child) const
    {
        return std::ranges::any_of(leaves_, [&](const AddedPath& leaf) {
            std::string_view path = relative(leaf);
            return is_named(child, take_tag(path), leaf.ns_uri);
        });
    }

    std::string name() const
    {
        std::string text(list_.path);
        for (const AddedPath* key : keys_)
            text += "[" + std::string(relative(*key).substr(1)) + "='" + *key->value + "']";
        return text;
    }

    const AddedPath& list_;
    std::span<const AddedPath> leaves_;
    std::vector<const AddedPath*> keys_;
};

} // namespace

DataNode apply_edit(DataNode data, std::span<const AddedPath> added, std::span<const ListKey> keys)
{
    for (size_t i = 0; i < added.size();) {
        const AddedPath& first = added[i];
        std::string_view path  = first.path;
        if (!is_named(data, take_tag(path), first.ns_uri))
            refuse("unknown-element", "the data has no " + std::string(first.path), first);
        size_t end = i + 1;
        if (first.is_list) {
            while (end < added.size() && !added[end].is_list && is_below(added[end], first))
                ++end;
            Entry(added.subspan(i, end - i), keys).edit(data);
        } else if (!path.empty()) {
            edit_leaf(data, path, first);
        }
        i = end;
    }
    return data;
}

} // namespace ozk
