// A rival of the library: the walk over a libxml2 tree that a person would write for this one
// purpose.

#ifndef BENCH_HAND_WRITTEN_WALK_H
#define BENCH_HAND_WRITTEN_WALK_H

#include <libxml/tree.h>

namespace bench {

/// Makes /interfaces-state out of native operational data, a document with a root element. The
/// caller frees the result with xmlFreeDoc.
xmlDocPtr map_by_hand(const xmlDoc* native);

} // namespace bench

#endif
