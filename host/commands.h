// The verbs of the command, each a file of its own, with what each is asked for; main.cpp takes
// that from the command line.

#ifndef YMAP_HOST_COMMANDS_H
#define YMAP_HOST_COMMANDS_H

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "map.h"
#include "options.h"
#include "reader.h"
#include "session.h"

namespace ymap::host {

/// Exit statuses of every verb.
enum ExitStatus : int {
    exit_mapped = 0, ///< all walks returned 0
    /// A walk returned a status, a call broke the framework's contract, or the data refused an
    /// edit.
    exit_walk_error = 1,
    exit_differs    = 1, ///< a case came out otherwise than it was captured
    exit_bad_input  = 2, ///< the input or the command line is at fault; nothing was walked
};

/// Options that don't go together.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct MapOptions {
    std::vector<std::string> documents;
    std::string op;
    std::string format = "table";
    std::string capture; ///< case file to write; empty: none
    bool keep_going      = false;
    uint32_t depth_limit = formats::DEFAULT_DEPTH_LIMIT;
    DiagnosticsOptions diagnostics;
    LibraryOptions library;
};

struct ReadOptions {
    std::string request;
    std::vector<std::string> data;
    std::string op       = "get";
    std::string format   = "xml";
    uint32_t depth_limit = formats::DEFAULT_DEPTH_LIMIT;
    DiagnosticsOptions diagnostics;
    LibraryOptions library;
};

struct EditOptions {
    std::string request;
    std::string data;
    std::string unmapped = "refuse";
    bool reply           = false;
    uint32_t depth_limit = formats::DEFAULT_DEPTH_LIMIT;
    DiagnosticsOptions diagnostics;
    LibraryOptions library;
};

struct TableOptions {
    std::string path;
    std::string model;
    std::string format = "tree";
    bool mapped        = false;
    LibraryOptions library;
};

struct ReplayOptions {
    std::vector<std::string> files;
    bool update = false;
    LibraryOptions library;
};

struct ServeOptions {
    std::string running;
    std::vector<std::string> state;
    std::string unmapped = "refuse";
    std::string log;
    bool read_only       = false;
    bool log_to_stderr   = false;
    uint32_t depth_limit = formats::DEFAULT_DEPTH_LIMIT;
    netconf::SessionOptions session;
    LibraryOptions library;
};

/// The verbs: the result is the exit status. They throw UsageError; formats::InputError, which
/// names the place; or any other exception, whose text is for a person as it stands.
int map_documents(const MapOptions& options);
int carry_out_read(const ReadOptions& options);
int carry_out_edit(const EditOptions& options);
int print_table(const TableOptions& options);
int replay_cases(const ReplayOptions& options);
int serve(const ServeOptions& options);

/// agent::map(), with what is wrong with the request as an InputError.
agent::Mapping map_request(agent::Request& request, const agent::MapLibrary& library,
                           const agent::Hooks& hooks);

} // namespace ymap::host

#endif
