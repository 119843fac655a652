// Subtree filters (RFC 6241, 6): what a read selects of a tree. The same routine picks native data
// by the paths that a map has added, and IETF data by the request itself.

#ifndef OZK_FILTER_H
#define OZK_FILTER_H

#include <optional>
#include <span>
#include <vector>

#include "data_tree.h"
#include "run.h"

namespace ozk {

/// What the filters select of `data`, taken together: each node once, in the order of the data,
/// with the nodes above it; nothing if they select nothing. Each of `filters` is a tree whose root
/// stands for that of `data`:
///
/// - a node without value and children selects itself and all below (6.2.4);
/// - a node with a value is a content match: unless such a leaf with that value stands beside them,
///   none of its siblings in the filter selects anything (6.2.5). Content matches without other
///   siblings select the whole node that they stand in;
/// - a node with children selects what these select (6.2.3).
///
/// A filter's node without a namespace stands for a node of any (6.2.1). No model is needed: the
/// content matches in an entry tell it from the other entries of its list.
std::optional<DataNode> apply_filters(const DataNode& data, std::span<const DataNode> filters);

/// The filters that the paths added on a read stand for, one for each root: a list path begins an
/// entry, a leaf with a value is a content match in it, and a path without a value selects what
/// there is at it and below, whether paths below it are added as well or not.
std::vector<DataNode> filters_of(std::span<const AddedPath> added);

} // namespace ozk

#endif
