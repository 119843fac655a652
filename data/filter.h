// Subtree filters (RFC 6241, 6): what a read selects of a tree. The same filter picks native data
// by the paths that a map has added, and data of the clients' model by the request itself.

#ifndef YMAP_DATA_FILTER_H
#define YMAP_DATA_FILTER_H

#include <memory>
#include <span>

#include "lists.h"
#include "run.h"
#include "tree.h"

namespace ymap::data {

/// The filters that stand below one node, taken together. Of each:
///
/// - a node without value and children selects itself and all below (6.2.4);
/// - a node with a value is a content match: unless such a leaf with that value stands beside them,
///   none of its siblings in the filter selects anything (6.2.5), and white space around either
///   value doesn't count; where it holds, the leaf is selected. Content matches without other
///   siblings select the whole node that they stand in;
/// - a node with children selects what these select (6.2.3);
/// - a node without a namespace stands for a node of any (6.2.1);
/// - a node with MARK_MATCHES_NONE stands for none: it has an attribute that no data has (6.2.2);
/// - a node with MARK_COMPLETES is selected where a node beside it is (6.2.4, of keys).
///
/// No model is needed: the content matches in an entry tell it from the other entries of its list.
class Filter {
public:
    /// Of the children of `top`, which stand for those of a tree's top; what stands below `top` has
    /// to stay: a level of the filter is made when data first reaches it, so that one filter is for
    /// one thread.
    explicit Filter(const OzkMapNode& top);
    ~Filter();
    Filter(Filter&&) noexcept;

    /// What is selected of `data`, a tree's top: each node once, in the order of the data, with the
    /// nodes above it. Records of nodes that are selected in part are made in `into`; those that
    /// are selected whole, and all texts, stay the data's.
    OzkMapNode select(const OzkMapNode& data, Indexes& indexes, ozk::Tree& into) const;

private:
    struct Level;
    std::unique_ptr<const Level> level_;
};

/// The filter that the paths added on a read stand for, as a tree: a list path begins an entry, a
/// leaf with a value is a content match in it, and a path without a value selects what there is at
/// it and below, whether paths below it are added as well or not.
ozk::Tree filter_of(std::span<const ozk::AddedPath> added);

} // namespace ymap::data

#endif
