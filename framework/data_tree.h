// Plain trees of the stand-in framework: what an input is made of, and what the output tree is
// built into. They know tags, values and namespaces, but no model.

#ifndef OZK_DATA_TREE_H
#define OZK_DATA_TREE_H

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ymap.h"

namespace ozk {

/// The edit operation of a node (RFC 6241, 7.2). `none` is both "no operation is given" and the
/// default-operation of that name.
enum class Edit : uint8_t { none, merge, replace, create, remove, erase };

/// The operation of that name in the `operation` attribute of an edit-config ("delete" is
/// Edit::erase), or nothing. "none" names a default-operation only, and is not among them.
std::optional<Edit> edit_from_name(std::string_view name);

/// One node of a plain tree.
struct DataNode {
    std::optional<std::string> tag;    ///< nothing: the node's tag is null for the library
    std::optional<std::string> ns_uri; ///< nothing: null for the library
    std::optional<std::string> value;
    std::vector<DataNode> children;
    Edit edit = Edit::none; ///< operation that stands on this very node
    std::optional<uint32_t> position;
    uint32_t line = 0; ///< line of the document, 0 if unknown
};

/// An input tree as map libraries see it: OzkMapNode records and their texts, owned by this object
/// and unmoved while it lives. It may be built from a plain tree, or node by node by a reader that
/// wants no second copy. The records can be bent by hand to show a library a broken tree.
class InputTree {
public:
    InputTree() = default;
    /// Builds the records of `root` and all below. `default_edit` holds where no node on the way
    /// has an operation of its own; give Edit::none for a request that is no edit.
    explicit InputTree(const DataNode& root, Edit default_edit = Edit::none);
    InputTree(InputTree&&) noexcept            = default;
    InputTree& operator=(InputTree&&) noexcept = default;

    /// The root's record.
    OzkMapNode& root() { return root_; }
    const OzkMapNode& root() const { return root_; }

    /// Child `index` of `node`, for writing: the tree owns the records that `subtrees` points to.
    static OzkMapNode& child(OzkMapNode& node, uint32_t index)
    {
        return const_cast<OzkMapNode*>(node.subtrees)[index];
    }

    /// Gives `node` an array of `count` fresh children and sets its flag and count. The children
    /// inherit the edit operation that `node` has by then.
    OzkMapNode* make_children(OzkMapNode& node, uint32_t count);
    /// A copy of `text` that lives as long as the tree.
    const char* keep(std::string_view text);
    /// Like keep(), but equal texts share one copy; for tags and namespaces.
    const char* intern(std::string_view text);

private:
    struct Store;
    OzkMapNode root_{};
    std::shared_ptr<Store> store_;
};

/// The plain tree of `node` and all below: what an InputTree was built from. Only an operation that
/// stands on a node itself is its `edit`.
DataNode plain_tree(const OzkMapNode& node);

} // namespace ozk

#endif
