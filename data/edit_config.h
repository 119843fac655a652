// Edits of a tree (RFC 6241, 7.2). What is to be done with a node is told by the operation of the
// node of the edit that stands for it.

#ifndef YMAP_DATA_EDIT_H
#define YMAP_DATA_EDIT_H

#include <span>
#include <stdexcept>
#include <string>

#include "document.h"
#include "lists.h"

namespace ymap::data {

/// An edit that the data doesn't allow, or that lacks what it takes.
struct EditError : std::runtime_error {
    EditError(const char* error_tag, const std::string& what, const OzkMapNode* error_node)
        : std::runtime_error(what), tag(error_tag), node(error_node)
    {
    }
    const char* tag;        ///< the error-tag of RFC 6241, appendix A
    const OzkMapNode* node; ///< of the edit, which it is about
    std::string element;    ///< name of an element that is missing, or empty
};

/// Edits the roots below `top`, which is of `data`, by those below `edit`, whose nodes all have the
/// operation that holds for them.
///
/// A merge makes what is missing; a create wants it missing, a delete wants it there; a replace
/// drops what the edit doesn't name; "none" wants an entry or a container there and leaves it to
/// the nodes below to say more, and leaves a leaf as it is. An entry is told by its keys, which are
/// edited by no operation of their own. What an edit names twice, it is refused for.
///
/// Throws EditError; `data` is then as it was. So it is with `only_tests`, whatever comes of it.
void apply_edit(Document& data, OzkMapNode& top, const OzkMapNode& edit,
                std::span<const ListKeys> lists, bool only_tests = false);

} // namespace ymap::data

#endif
