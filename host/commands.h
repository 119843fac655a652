// The verbs of the command. Each verb is a file of its own that adds a subcommand with its options
// and, when the command line has chosen it, leaves what to do in `chosen`.

#ifndef YMAP_HOST_COMMANDS_H
#define YMAP_HOST_COMMANDS_H

#include <functional>

#include "map.h"

namespace CLI {
class App;
}

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

/// What the command line asks for; its result is the exit status. May throw.
using Command = std::function<int()>;

/// agent::map(), with what is wrong with the request as an InputError.
agent::Mapping map_request(agent::Request& request, const agent::MapLibrary& library,
                           const agent::Hooks& hooks);

void add_map_command(CLI::App& app, Command& chosen);
void add_table_command(CLI::App& app, Command& chosen);
void add_replay_command(CLI::App& app, Command& chosen);
void add_read_command(CLI::App& app, Command& chosen);
void add_edit_command(CLI::App& app, Command& chosen);
void add_serve_command(CLI::App& app, Command& chosen);

} // namespace ymap::host

#endif
