// What benches share: the trees that they walk, and the native one as a document. The same number
// of interfaces gives the same tree, byte by byte.

#ifndef BENCH_REFERENCE_TREE_H
#define BENCH_REFERENCE_TREE_H

#include <cstdint>
#include <cstdio>

#include "data_tree.h"
#include "ymap_ietf_if.h"

namespace bench {

/// The operational reference tree. Each interface has `interface-name`, `mac-address` with its
/// `address`, `interface-statistics` with the 36 leaves of `full-interface-stats` and `stats-type`,
/// `state`, `line-state`, `mtu`, `bandwidth` and `description`, in the order of the schema.
ozk::InputTree operational_tree(uint32_t interfaces);
/// Elements of operational_tree(), the root included.
uint64_t operational_nodes(uint32_t interfaces);

/// /interface-configurations as a router holds it: an entry has `active`, `interface-name`,
/// `description`, `shutdown`, `bandwidth` and an `mtus` with one `mtu`.
ozk::InputTree native_configuration_tree(uint32_t interfaces);
/// /global-interface-configuration, whose one leaf is all there is.
ozk::InputTree native_global_tree();

/// A read of /interfaces that names every interface and asks for `description` and `enabled`.
ozk::InputTree configuration_read(uint32_t interfaces);
/// A read of /interfaces-state that names every interface.
ozk::InputTree state_read(uint32_t interfaces);
/// An edit of /interfaces in which every entry has `edit` as its operation. A merge, a replace and
/// a create carry `description` and `enabled`, a delete and a remove the key alone.
ozk::InputTree configuration_edit(uint32_t interfaces, ozk::Edit edit);

/// Lets the process keep what it frees, as one does that has run for long: a result that is made
/// again and again is then made in the same memory, and the kernel's work of handing out pages is
/// not measured with it.
void keep_memory();

/// Writes the tree below `root` as a bare XML document, a node a line.
void write_document(FILE* file, const OzkMapNode& root);

} // namespace bench

#endif
