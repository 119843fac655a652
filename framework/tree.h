// The one kind of tree: OzkMapNode records in an arena. Readers build it, filters select in it,
// edits change it, walkers walk it, printers print it. What a tree holds, records and texts, stays
// where it is while the tree lives, also when the tree is moved; but for the records of an array
// that outgrows its place.
//
// A tree has a record of its own on top, which has no tag: its children are the roots.

#ifndef OZK_TREE_H
#define OZK_TREE_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

#include "ymap.h"

namespace ozk {

/// The edit operation of a node (RFC 6241, 7.2). `none` is both "no operation is given" and the
/// default-operation of that name.
enum class Edit : uint8_t { none, merge, replace, create, remove, erase };

/// The operation of that name in the `operation` attribute of an edit-config ("delete" is
/// Edit::erase), or nothing. "none" names a default-operation only, and is not among them.
std::optional<Edit> edit_from_name(std::string_view name);
/// The name of an operation; that of Edit::none is "none".
const char* name_of(Edit edit);

inline Edit edit_of(const OzkMapNode& node)
{
    return static_cast<Edit>(node.edit);
}
inline bool deletes(Edit edit)
{
    return edit == Edit::erase || edit == Edit::remove;
}

/// Bits of OzkMapNode::marks.
enum : uint8_t {
    MARK_LIST_ENTRY   = 1,  ///< an entry of a list
    MARK_DROPPED      = 2,  ///< no longer part of the tree, and about to be taken out of its array
    MARK_ATTRIBUTES   = 4,  ///< the document has attributes on the node beside an edit operation
    MARK_MATCHES_NONE = 8,  ///< of a filter: nothing can be like the node
    MARK_COMPLETES    = 16, ///< of a filter: selected beside others, but nothing for its own sake
    MARK_PREFIXED     = 32, ///< the value begins with a prefix that the document declares
};

/// The children of `node`, as its flags let them be read; none where the tree is broken.
inline std::span<const OzkMapNode> children(const OzkMapNode& node)
{
    if ((node.flags & MAP_NODE_HAS_SUBTREES) == 0 || node.subtrees == nullptr)
        return {};
    return {node.subtrees, node.subtree_count};
}
/// The same, to be written: for whoever works on a tree of his own.
inline std::span<OzkMapNode> children(OzkMapNode& node)
{
    const auto same = children(std::as_const(node));
    return {const_cast<OzkMapNode*>(same.data()), same.size()};
}

/// A text of a record, empty for null.
inline std::string_view text(const char* text_or_null)
{
    return text_or_null != nullptr ? std::string_view(text_or_null) : std::string_view();
}

/// Whether tag and namespace of `node` are these. Equal texts often are the same one.
bool is_named(const OzkMapNode& node, const char* tag, const char* ns_uri);
/// Whether two texts, either of which may be null, are equal.
bool same_text(const char* a, const char* b);
/// The first child of that name, or null.
const OzkMapNode* find_child(const OzkMapNode& node, const char* tag, const char* ns_uri);
OzkMapNode* find_child(OzkMapNode& node, const char* tag, const char* ns_uri);

class Tree {
public:
    Tree();
    ~Tree();
    Tree(Tree&&) noexcept;
    Tree& operator=(Tree&&) noexcept;

    /// The record above the roots.
    OzkMapNode& top();
    const OzkMapNode& top() const;

    /// A child of `parent` after the others, without a tag so far; it inherits the edit operation
    /// that `parent` has by now. The reference holds until the next one is appended to `parent`.
    OzkMapNode& append(OzkMapNode& parent);
    /// The same with a tag and a namespace, which are kept as they are.
    OzkMapNode& append(OzkMapNode& parent, const char* tag, const char* ns_uri);
    /// Makes room for `count` children of `parent` in all.
    void reserve(OzkMapNode& parent, uint32_t count);
    /// Gives `parent` a copy of `records` for its children, in place of those that it has.
    void set_children(OzkMapNode& parent, std::span<const OzkMapNode> records);
    /// Gives `node` a value, kept as it is; null for none.
    static void set_value(OzkMapNode& node, const char* value);

    /// A copy of `text` that lives as long as the tree.
    const char* keep(std::string_view text);
    /// Like keep(), but equal texts share one copy; for tags and namespaces.
    const char* intern(std::string_view text);

    /// Bytes that the tree has asked for so far, those no longer in use included.
    size_t size() const;

private:
    struct Store;
    std::unique_ptr<Store> store_;
};

} // namespace ozk

#endif
