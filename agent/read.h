// A read of a client, carried out on native data: the map makes native paths of the request, and
// they are a filter that picks from the data; it makes data of the clients' model of what was
// picked, and the request is the filter that picks from that. Requests on native roots pick from
// the native data as it stands.

#ifndef YMAP_AGENT_READ_H
#define YMAP_AGENT_READ_H

#include <deque>
#include <span>
#include <vector>

#include "plan.h"
#include "walk.h"

namespace ymap::agent {

/// Native data: a document, and the node in it whose children are roots.
struct Native {
    data::Document* document;
    OzkMapNode* top;
};

/// What a read came to. The reply is made of parts of the native documents, which must stay.
struct Reading {
    ozk::Tree reply;         ///< the selected data, a root each below its top
    std::vector<Note> notes; ///< what of the request nobody carries out
    std::vector<Walk> walks; ///< that ended with a status: the reply is then not to be given
    std::vector<std::string> faults; ///< broken contracts between library and framework

    std::deque<ozk::Tree> parts; ///< that the reply refers to
};

Reading read(const Request& request, std::span<const Native> natives, const MapLibrary& library,
             const Hooks& hooks = {});

} // namespace ymap::agent

#endif
