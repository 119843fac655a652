// Edits of a data tree by the paths that a map has added (RFC 6241, 7.2). What is to be done with a
// path is told by the operation of the node that it refers to.

#ifndef OZK_EDIT_H
#define OZK_EDIT_H

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "data_tree.h"
#include "run.h"

namespace ozk {

/// What tells the entries of a list apart. The output tree doesn't say it: on an edit every leaf of
/// an entry comes with a value.
struct ListKey {
    std::string_view ns_uri;
    std::string_view path;                    ///< schema path of the list
    std::span<const std::string_view> leaves; ///< tags of the keys
};

/// An edit that the data doesn't allow, or that lacks what it takes. Its text begins with the
/// error-tag of RFC 6241, appendix A, such as "data-missing: there is no ...".
class EditError : public std::runtime_error {
public:
    EditError(const std::string& text, const OzkMapNode* node)
        : std::runtime_error(text), line(node != nullptr ? node->line : 0)
    {
    }
    const uint32_t line; ///< of the node of the request that asks for it, 0 if unknown
};

/// `data` after the edit. Each list path begins an entry; the paths below it that follow belong to
/// it. The entry's operation is that of the node that the list path refers to, or else of the node
/// that its key refers to: a merge makes a missing entry; a create wants it missing, a delete wants
/// it there; a replace drops what the edit doesn't name; "none" wants it there and leaves it to its
/// leaves to say more. For leaves likewise; with "none" a leaf stays as it is. An operation that
/// stands above the entry is known by what it hands down, so that entries that the edit doesn't
/// name stay whatever it is.
///
/// Throws EditError; the edit is then refused as a whole.
DataNode apply_edit(DataNode data, std::span<const AddedPath> added, std::span<const ListKey> keys);

} // namespace ozk

#endif
