// An edit of a client, carried out on a native document, whole or not at all.

#ifndef YMAP_AGENT_EDIT_H
#define YMAP_AGENT_EDIT_H

#include <vector>

#include "read.h"

namespace ymap::agent {

struct EditOptions {
    /// Whether what the map doesn't carry out is dropped and told; else it refuses the edit.
    bool drops_unmapped = false;
};

/// What an edit came to.
struct Edited {
    std::vector<Error> errors;       ///< of an edit that was refused: the data is as it was
    std::vector<Note> notes;         ///< what was dropped, and what else is to be known
    std::vector<Walk> walks;         ///< of the clients' roots
    std::vector<std::string> faults; ///< broken contracts between library and framework
};

/// Carries `request` out on `native`, which is left as it was by an edit that is refused or only to
/// be tested.
Edited edit(Request& request, const Native& native, const MapLibrary& library,
            const EditOptions& options, const Hooks& hooks = {});

} // namespace ymap::agent

#endif
