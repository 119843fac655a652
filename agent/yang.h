// What clients are told of the models: YANG modules, drawn from what the map library knows of its
// schema.

#ifndef YMAP_AGENT_YANG_H
#define YMAP_AGENT_YANG_H

#include <string>
#include <vector>

#include "library.h"

namespace ymap::agent {

/// A YANG module and its text. The texts are of YANG version 1, whose modules a <hello> may
/// advertise; it may not those of version 1.1 (RFC 7950, 5.6.4).
struct YangModule {
    std::string name;
    std::string revision;
    std::string ns_uri;
    std::string prefix;
    std::string text;     ///< a whole file, the same for the same library
    std::string deviates; ///< the module whose deviations these are; empty for a native model
};

/// The deviations of the clients' model, then the native models that the map library has a walker
/// of, in the order of modules(). A deviation (RFC 7950, 7.20.3) stands for each node without
/// a native path that no node with one lies below; what lies below such a node needs none, and a
/// key of a list that stays can't go. A native model is the structure that the map knows:
/// containers, lists with their keys, and leaves as strings.
std::vector<YangModule> yang_modules(const MapLibrary& library);

} // namespace ymap::agent

#endif
