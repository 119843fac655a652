// One walk of a map library over one root, and what came of it.

#ifndef YMAP_AGENT_WALK_H
#define YMAP_AGENT_WALK_H

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "error.h"
#include "library.h"
#include "run.h"

namespace ymap::agent {

/// What is done around the walks of one pass, such as turning logs on and printing them.
struct Hooks {
    std::function<void(ozk::Run& run, const char* pass)> before_pass = {};
    std::function<void(ozk::Run& run)> after_pass                    = {};
};

/// What came of the walk of one root.
struct Walk {
    const ModelRoot* root;
    uint32_t status;
    size_t added_before = 0; ///< paths that the run had when the walk began
    size_t added_after  = 0; ///< and when it ended
    // Of a walk that ended with a status: the node that it had come to, if it is known.
    const OzkMapNode* node = nullptr;
    std::string tag        = {}; ///< empty: none is known
    std::string path       = {}; ///< instance path of `node`
    std::string error_path = {};
    uint32_t line          = 0;
};

/// Walks `node`, which stands for `root`, with the root's walker. With `tree`, which owns `node`
/// and all below, and `top`, the node above, the walk tells where it ended: each tag of the tree
/// then gets a text of its own, which tells nodes apart, if the run records its calls or the walk
/// ends with a status.
Walk walk(ozk::Run& run, const MapLibrary& library, const ModelRoot& root, OzkMapNode& node,
          ozk::Tree* tree = nullptr, const OzkMapNode* top = nullptr);

/// The error that a status stands for (RFC 6241, appendix A).
Error error_of(const Walk& walk);

/// A status by name and code, such as "MAP_ERR_BAD_KEY (0xaaf2e800)".
std::string status_text(uint32_t status);
/// The name of a status; empty if it is none of a map library's.
std::string_view status_name(uint32_t status);

} // namespace ymap::agent

#endif
