// The whole map as one picture.

#ifndef YMAP_HOST_PICTURE_H
#define YMAP_HOST_PICTURE_H

#include <string>

#include "library.h"

namespace ymap::host {

/// The map as a text for Graphviz's dot: the clients' nodes on the left; on the right the native
/// ones that they meet, and the nodes above these; and a line for each way from one to another,
/// told apart by what goes along it.
std::string picture_of(const agent::MapLibrary& library);

} // namespace ymap::host

#endif
