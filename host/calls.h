// Recorded calls of the framework, for people and for programs.

#ifndef YMAP_HOST_CALLS_H
#define YMAP_HOST_CALLS_H

#include <string>

#include "run.h"

namespace ymap::host {

/// A call in one line, such as `ozk_map_do_these_match(name, name) = 1`. Nodes are written by tag,
/// null as `-`, control characters and backslashes escaped.
std::string to_text(const ozk::Call& call);

/// The same as an object of JSON, without what changes from run to run or with any edit of a
/// source: addresses and source lines.
std::string to_json(const ozk::Call& call);

} // namespace ymap::host

#endif
