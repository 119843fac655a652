// Options that several verbs have.

#ifndef YMAP_HOST_OPTIONS_H
#define YMAP_HOST_OPTIONS_H

#include <cstdint>
#include <map>
#include <string>

#include "library.h"
#include "reader.h"
#include "ymap.h"

namespace CLI {
class App;
}

namespace ymap::host {

/// The map library and its siblings.
struct LibraryOptions {
    std::string library;  ///< empty: the one that the command was built or installed with
    std::string siblings; ///< likewise
};
void add_library_options(CLI::App& verb, LibraryOptions& options);
/// Only the map library can be chosen; the siblings are the stand-ins.
void add_library_option(CLI::App& verb, LibraryOptions& options);
/// Loads what the options name. Throws agent::LoadError.
agent::MapLibrary load_library(const LibraryOptions& options);

/// What a verb that walks can show of its walks beside the result.
struct DiagnosticsOptions {
    std::string log; ///< "error", "trace" or empty
    bool calls = false;
    bool trace = false;
};
/// `calls_help` says where the calls go, which is the verb's affair.
void add_diagnostics_options(CLI::App& verb, DiagnosticsOptions& options,
                             const std::string& calls_help);

/// The limit of depth of the documents that a verb reads.
void add_depth_limit_option(CLI::App& verb, uint32_t& limit);

/// The operations of a request by the names that the command line and case files give them.
inline const std::map<std::string, uint32_t> operation_codes = {
    {"get", MAP_OP_GET}, {"get-config", MAP_OP_GET_CONFIG}, {"edit", MAP_OP_EDIT}};

} // namespace ymap::host

#endif
