// What a request asks of the map, and what of it nobody can carry out, found by looking each node
// up in the schema that the map library knows.

#ifndef YMAP_AGENT_PLAN_H
#define YMAP_AGENT_PLAN_H

#include <vector>

#include "error.h"
#include "library.h"
#include "request.h"

namespace ymap::agent {

/// Something that a request holds and that isn't carried out, told as the error that an edit gets
/// for it.
using Note = Error;

/// What is done for a read.
struct ReadPlan {
    /// Requests to the map, one for each root of the clients' model that is read; of a state list
    /// that the map reads whole, entries without children whose value is the key's (it gives every
    /// target of an entry the entry itself).
    ozk::Tree map_request;
    /// The request as a filter: for the clients' model with keys in all entries (RFC 6241, 6.2.4,
    /// lets a server give them), for the native models as it stands.
    ozk::Tree filter;
    std::vector<Note> notes;
};
/// The texts stay the request's.
ReadPlan plan_read(const Request& request, const MapLibrary& library);

/// What is to be said of an edit before it is walked, in the order of the document.
struct Examination {
    /// What is wrong whatever the map knows: a root of another model, a key that is missing, one
    /// thing twice, a value where elements belong, state.
    std::vector<Note> faults;
    /// What the map doesn't carry out: a leaf without a native path, a node of another model.
    std::vector<Note> losses;
};
/// With `cut`, what would be lost is taken out of the request's content, and so is what needn't be
/// done: a leaf without a native path where it goes away with its entry.
Examination examine_edit(Request& request, const MapLibrary& library, bool cut);

/// What of native data, the roots below `top`, the map passes over, since its schema doesn't have
/// it.
std::vector<Note> find_unfit(const OzkMapNode& top, const MapLibrary& library);

} // namespace ymap::agent

#endif
