// What benches share: the trees that they walk, each with one root. The same number of interfaces
// gives the same tree, byte by byte.

#ifndef BENCH_REFERENCE_TREE_H
#define BENCH_REFERENCE_TREE_H

#include <cstdint>

#include "tree.h"
#include "ymap_ietf_if.h"

namespace bench {

inline const OzkMapNode& root_of(const ozk::Tree& tree)
{
    return *tree.top().subtrees;
}

/// The operational reference tree. Each interface has `interface-name`, `mac-address` with its
/// `address`, `interface-statistics` with the 36 leaves of `full-interface-stats` and `stats-type`,
/// `state`, `line-state`, `mtu`, `bandwidth` and `description`, in the order of the schema.
ozk::Tree operational_tree(uint32_t interfaces);

/// /interface-configurations as a router holds it: an entry has `active`, `interface-name`,
/// `description`, `shutdown`, `bandwidth` and an `mtus` with one `mtu`.
ozk::Tree native_configuration_tree(uint32_t interfaces);

// Requests name so many interfaces of those trees, from number `first` on, in an order of their
// own.

/// A read of /interfaces that asks for `description` and `enabled` of each.
ozk::Tree configuration_read(uint32_t interfaces);
/// A read of /interfaces-state; of no interface by name, which reads them all.
ozk::Tree state_read(uint32_t interfaces, uint32_t first = 0);
/// An edit of /interfaces in which every entry has `edit` as its operation. A merge, a replace and
/// a create carry `description` and `enabled`, a delete and a remove the key alone.
ozk::Tree configuration_edit(uint32_t interfaces, ozk::Edit edit, uint32_t first = 0);

/// Lets the process keep what it frees, as one does that has run for long: a result that is made
/// again and again is then made in the same memory, and the kernel's work of handing out pages is
/// not measured with it.
void keep_memory();

} // namespace bench

#endif
