// Edits of a tree, in place. Each record is kept before it is changed, so that an edit that is
// refused half way leaves nothing behind.

#include "edit_config.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace ymap::data {

namespace {

using ozk::children;
using ozk::Edit;
using ozk::edit_of;
using ozk::text;

std::string quoted(const char* tag)
{
    return "'" + std::string(text(tag)) + "'";
}

/// The leaf of an entry that is one of its list's keys, or null.
const OzkMapNode* key_leaf(const OzkMapNode& entry, const char* tag)
{
    return ozk::find_child(entry, tag, entry.ns_uri);
}

bool is_key(const OzkMapNode& node, const ListKeys* keys)
{
    return keys != nullptr && ozk::same_text(node.ns_uri, keys->ns_uri) &&
           std::ranges::any_of(keys->leaves,
                               [&](const char* leaf) { return text(node.tag) == leaf; });
}

class Editor {
public:
    Editor(Document& data, std::span<const ListKeys> lists) : data_(data), lists_(lists) {}

    void edit(const OzkMapNode& edit, OzkMapNode& top, bool only_tests)
    {
        try {
            edit_children(edit, top, nullptr, "");
        } catch (...) {
            take_back();
            throw;
        }
        if (only_tests)
            return take_back();
        for (const char* leaf : changed_leaves_)
            data_.indexes.values_changed(leaf);
    }

private:
    /// A record that was changed.
    struct Changed {
        OzkMapNode* node;
        OzkMapNode before;
    };

    void take_back()
    {
        if (undo_.empty())
            return;
        for (; !undo_.empty(); undo_.pop_back())
            *undo_.back().node = undo_.back().before;
        data_.indexes.clear();
    }

    OzkMapNode& change(OzkMapNode& node)
    {
        undo_.push_back({&node, node});
        return node;
    }

    [[noreturn]] static void refuse(const char* error_tag, const std::string& what,
                                    const OzkMapNode& node)
    {
        throw EditError(error_tag, what, &node);
    }

    /// Edits the children of `parent` by those of `edit`; `keys` are those of the list whose entry
    /// both are, and `path` is their schema path.
    void edit_children(const OzkMapNode& edit, OzkMapNode& parent, const ListKeys* keys,
                       const std::string& path)
    {
        const Identities named = name_children(edit, path);
        if (edit_of(edit) == Edit::replace && !path.empty()) // a root replaces itself alone
            drop_unnamed(parent, named, keys, path);
        const Before before(parent, children(edit).size());
        for (const OzkMapNode& child : children(edit))
            if (is_key(child, keys))
                refuse_key_operation(child, edit);
            else
                edit_child(child, parent, before, path);
        drop_marked(parent);
    }

    using Identities = std::unordered_set<std::string>;

    /// The children that a node has before it is edited. What an edit names, it names once: those
    /// that it makes needn't be looked at again.
    struct Before {
        size_t count;
        std::unordered_map<std::string, uint32_t>
            places; ///< by name, of many that many are asked of

        Before(const OzkMapNode& parent, size_t questions) : count(children(parent).size())
        {
            if (count > Indexes::worth_it && questions > Indexes::worth_it)
                for (uint32_t place = 0; place < count; ++place)
                    places.try_emplace(identity_of(children(parent)[place], nullptr), place);
        }
    };

    /// What the children of a node of the edit are called: no two may be the same.
    Identities name_children(const OzkMapNode& edit, const std::string& path)
    {
        Identities named;
        for (const OzkMapNode& child : children(edit)) {
            const ListKeys* keys = keys_below(path, child);
            if (keys != nullptr)
                require_keys(child, *keys);
            if (!named.insert(identity_of(child, keys)).second)
                refuse("bad-element", "it is given twice", child);
        }
        return named;
    }

    static void require_keys(const OzkMapNode& entry, const ListKeys& keys)
    {
        for (const char* leaf : keys.leaves)
            if (const OzkMapNode* key = key_leaf(entry, leaf);
                key == nullptr || key->value == nullptr) {
                EditError error("missing-element",
                                "the entry has no " + quoted(leaf) + ", which is its key", &entry);
                error.element = leaf;
                throw error;
            }
    }

    /// What tells a node from its siblings: tag, namespace and, of an entry, its keys.
    static std::string identity_of(const OzkMapNode& node, const ListKeys* keys)
    {
        std::string identity(text(node.tag));
        identity.append(1, '\0').append(text(node.ns_uri));
        if (keys != nullptr)
            for (const char* leaf : keys->leaves)
                if (const OzkMapNode* key = key_leaf(node, leaf))
                    identity.append(1, '\0').append(text(key->value));
        return identity;
    }

    /// The keys of the list that `child` of a node at `path` is an entry of, or null. Most children
    /// are siblings of the one before.
    const ListKeys* keys_below(const std::string& path, const OzkMapNode& child)
    {
        const std::string_view tag = text(child.tag);
        if (last_path_.size() != path.size() + 1 + tag.size() || !last_path_.starts_with(path) ||
            !last_path_.ends_with(tag) || last_ns_uri_ != child.ns_uri) {
            last_path_   = path + "/" + std::string(tag);
            last_ns_uri_ = child.ns_uri;
            last_keys_   = keys_of(lists_, child.ns_uri, last_path_);
        }
        return last_keys_;
    }

    static void refuse_key_operation(const OzkMapNode& key, const OzkMapNode& entry)
    {
        if (key.edit != entry.edit && deletes(edit_of(key)))
            refuse("bad-attribute", "a key can't be deleted without its entry", key);
    }

    void edit_child(const OzkMapNode& child, OzkMapNode& parent, const Before& before,
                    const std::string& path)
    {
        const ListKeys* keys = keys_below(path, child);
        const Edit operation = edit_of(child);
        const bool is_leaf   = keys == nullptr && children(child).empty();
        OzkMapNode* found    = find(child, parent, before, keys);
        if (found == nullptr && operation == Edit::erase)
            refuse("data-missing", "there is nothing to delete", child);
        // A root is a container that is always there (RFC 7950, 7.5.1).
        if (found == nullptr && operation == Edit::none && !is_leaf && !path.empty())
            refuse("data-missing", "there is no such data to edit", child);
        if (found != nullptr && operation == Edit::create)
            refuse("data-exists", "it exists already", child);

        if (deletes(operation)) {
            if (found != nullptr)
                drop(*found);
            return;
        }
        if (is_leaf && operation == Edit::none)
            return;
        const bool is_new = found == nullptr;
        if (is_new)
            found = &make(child, parent, keys);

        if (is_leaf)
            set_leaf(*found, child);
        else if (found->value != nullptr)
            refuse("bad-element", "the data has a value there, and no elements", child);
        else
            edit_children(child, *found, keys, path + "/" + child.tag);
        if (is_new && operation == Edit::none && children(*found).empty())
            drop(*found);
    }

    void set_leaf(OzkMapNode& leaf, const OzkMapNode& edit)
    {
        if (!children(leaf).empty()) {
            if (edit.value != nullptr)
                refuse("bad-element", "the data has elements there, and no value", edit);
            if (edit_of(edit) == Edit::replace) // a container, by an empty one
                data_.tree.set_children(change(leaf), {}), data_.indexes.changed(leaf);
            return;
        }
        if (ozk::same_text(leaf.value, edit.value))
            return;
        ozk::Tree::set_value(change(leaf),
                             edit.value != nullptr ? data_.tree.keep(edit.value) : nullptr);
        changed(leaf);
    }

    OzkMapNode* find(const OzkMapNode& child, OzkMapNode& parent, const Before& before,
                     const ListKeys* keys)
    {
        const auto all   = children(parent);
        const auto is_it = [&](const OzkMapNode& node) {
            return (node.marks & ozk::MARK_DROPPED) == 0 &&
                   ozk::is_named(node, child.tag, child.ns_uri) &&
                   (keys == nullptr || same_keys(node, child, *keys));
        };
        if (keys == nullptr && !before.places.empty()) {
            const auto found = before.places.find(identity_of(child, nullptr));
            return found != before.places.end() && is_it(all[found->second]) ? &all[found->second]
                                                                             : nullptr;
        }
        if (keys == nullptr || all.size() <= Indexes::worth_it) {
            const auto end   = all.begin() + static_cast<ptrdiff_t>(before.count);
            const auto found = std::find_if(all.begin(), end, is_it);
            return found != end ? &*found : nullptr;
        }
        // Of several keys the last says most.
        const char* last = keys->leaves.back();
        for (const uint32_t place : data_.indexes.of(parent, child.tag, child.ns_uri, last)
                                        .find(key_leaf(child, last)->value))
            if (is_it(all[place]))
                return &all[place];
        return nullptr;
    }

    static bool same_keys(const OzkMapNode& a, const OzkMapNode& b, const ListKeys& keys)
    {
        return std::ranges::all_of(keys.leaves, [&](const char* leaf) {
            const OzkMapNode *key_a = key_leaf(a, leaf), *key_b = key_leaf(b, leaf);
            return key_a != nullptr && key_b != nullptr && text(key_a->value) == text(key_b->value);
        });
    }

    /// A new child of `parent` like `child`; an entry begins with its keys (RFC 7950, 7.8.5).
    OzkMapNode& make(const OzkMapNode& child, OzkMapNode& parent, const ListKeys* keys)
    {
        ozk::Tree& tree  = data_.tree;
        const auto named = [&](OzkMapNode& above, const OzkMapNode& like) -> OzkMapNode& {
            OzkMapNode& made =
                tree.append(above, tree.intern(text(like.tag)),
                            like.ns_uri != nullptr ? tree.intern(like.ns_uri) : nullptr);
            made.marks = like.marks & ozk::MARK_LIST_ENTRY;
            return made;
        };
        OzkMapNode& made = named(change(parent), child);
        if (keys != nullptr)
            for (const char* leaf : keys->leaves) {
                const OzkMapNode& key = *key_leaf(child, leaf);
                ozk::Tree::set_value(named(made, key), tree.keep(key.value));
            }
        data_.indexes.appended(parent);
        return made;
    }

    void drop(OzkMapNode& node)
    {
        change(node).marks |= ozk::MARK_DROPPED;
        drops_ = true;
        changed(node);
    }

    void drop_unnamed(OzkMapNode& parent, const Identities& named, const ListKeys* keys,
                      const std::string& path)
    {
        for (OzkMapNode& child : children(parent))
            if (!is_key(child, keys) &&
                !named.contains(identity_of(child, keys_below(path, child))))
                drop(child);
    }

    /// Takes the children that were dropped out of their array.
    void drop_marked(OzkMapNode& parent)
    {
        const auto is_kept = [](const OzkMapNode& child) {
            return (child.marks & ozk::MARK_DROPPED) == 0;
        };
        if (!drops_ || std::ranges::all_of(children(std::as_const(parent)), is_kept))
            return;
        std::vector<OzkMapNode> kept;
        std::ranges::copy_if(children(std::as_const(parent)), std::back_inserter(kept), is_kept);
        data_.tree.set_children(change(parent), kept);
        data_.indexes.changed(parent);
    }

    /// A leaf has another value, or has come or gone.
    void changed(const OzkMapNode& leaf)
    {
        if (leaf.tag != nullptr)
            changed_leaves_.insert(leaf.tag);
    }

    Document& data_;
    std::span<const ListKeys> lists_;
    std::vector<Changed> undo_;
    std::unordered_set<const char*> changed_leaves_; ///< tags of the data
    bool drops_ = false;                             ///< something was dropped
    std::string last_path_;                          ///< see keys_below()
    const char* last_ns_uri_   = nullptr;
    const ListKeys* last_keys_ = nullptr;
};

} // namespace

void apply_edit(Document& data, OzkMapNode& top, const OzkMapNode& edit,
                std::span<const ListKeys> lists, bool only_tests)
{
    Editor(data, lists).edit(edit, top, only_tests);
}

} // namespace ymap::data
