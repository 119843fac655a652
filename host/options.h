// What several verbs can be asked for.

#ifndef YMAP_HOST_OPTIONS_H
#define YMAP_HOST_OPTIONS_H

#include <cstdint>
#include <map>
#include <string>

#include "library.h"
#include "ymap.h"

namespace ymap::host {

/// The map library and its siblings.
struct LibraryOptions {
    std::string library;  ///< empty: the one that the command was built or installed with
    std::string siblings; ///< likewise
};
/// Loads what the options name. Throws agent::LoadError.
agent::MapLibrary load_library(const LibraryOptions& options);

/// What a verb that walks can show of its walks beside the result.
struct DiagnosticsOptions {
    std::string log; ///< "error", "trace" or empty
    bool calls = false;
    bool trace = false;
};

/// The operations of a request by the names that the command line and case files give them.
inline const std::map<std::string, uint32_t> operation_codes = {
    {"get", MAP_OP_GET}, {"get-config", MAP_OP_GET_CONFIG}, {"edit", MAP_OP_EDIT}};

} // namespace ymap::host

#endif
