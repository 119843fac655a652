// What the map library makes of a request, as it stands.

#ifndef YMAP_AGENT_MAP_H
#define YMAP_AGENT_MAP_H

#include <memory>
#include <span>
#include <vector>

#include "plan.h"
#include "walk.h"

namespace ymap::agent {

/// A request that was mapped, as far as it went. It refers to the request.
struct Mapping {
    std::unique_ptr<ozk::Run> run;
    std::vector<Walk> walks = {};    ///< up to the first with a status
    std::vector<Note> notes = {};    ///< what of the request isn't carried out
    bool has_faults         = false; ///< some of the notes are on what any edit is refused for
    ozk::Tree tree          = {};    ///< of an edit without faults that no walk has ended: native

    bool ended() const { return !walks.empty() && walks.back().status != MAP_OK; }
};

/// Walks the roots of `request` up to the first status other than 0: the rest of the request is
/// then not mapped, as the siblings of a failed node are not. Roots that nobody has are noted.
/// Throws RequestError if the map library has no walker for a root, unless the request asks for
/// all.
Mapping map(Request& request, const MapLibrary& library, const Hooks& hooks = {});

/// The native edit that an edit comes to: what its walks have made of the root of the clients'
/// model, `added`, and its native roots as they stand. Each root has the operation of the root that
/// it comes of. The tree refers to the request. Throws RequestError if a native root is both.
ozk::Tree native_edit(const Request& request, const MapLibrary& library,
                      std::span<const Walk> walks, std::span<const ozk::AddedPath> added);

/// The error of a request that edits `native_root`, one of its own, by another root as well.
Error edited_twice(const Request& request, const OzkMapNode& native_root);

/// Whether an operation stands on a root of the clients' model that is about entries which the edit
/// doesn't name: what it does depends on the router's data, and no path can say it.
bool reaches_unnamed_entries(const OzkMapNode& root);

} // namespace ymap::agent

#endif
