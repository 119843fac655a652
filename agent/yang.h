// What clients are told of the models: YANG modules, drawn from what the map library knows of its
// schema.

#ifndef YMAP_AGENT_YANG_H
#define YMAP_AGENT_YANG_H

#include <string>
#include <vector>

#include "library.h"

namespace ymap::agent {

/// A YANG module. The texts are of YANG version 1, whose modules a <hello> may advertise; it may
/// not those of version 1.1 (RFC 7950, 5.6.4).
struct YangModule {
    std::string name;
    std::string revision;
    std::string ns_uri;
    std::string prefix;
    const Module* model; ///< what it deviates from, if that is the clients' model; else itself

    bool deviates() const { return model->is_clients; }
};

/// The deviations of the clients' model, then the native models that have a root.
std::vector<YangModule> yang_modules();

/// The text of one of them, a whole file; the same for the same library. A deviation (RFC
/// 7950, 7.20.3) stands for each node without a native path that no node with one lies below; what
/// lies below such a node needs none, and a key of a list that stays can't go. A native model is
/// the structure that the map knows: containers, lists with their keys, and leaves as strings.
std::string yang_text(const YangModule& module, const MapLibrary& library);

} // namespace ymap::agent

#endif
