// What every verb that walks can show of its walks besides the result: calls, log and trace. And
// what it reports when one goes wrong.

#ifndef YMAP_HOST_DIAGNOSTICS_H
#define YMAP_HOST_DIAGNOSTICS_H

#include <span>
#include <string>

#include "output.h"
#include "run.h"

namespace CLI {
class App;
}

namespace ymap::host {

struct DiagnosticsOptions {
    std::string log; ///< "error", "trace" or empty
    bool calls = false;
    bool trace = false;
};

/// `calls_help` says where the calls go, which is the verb's affair.
void add_diagnostics_options(CLI::App& verb, DiagnosticsOptions& options,
                             const std::string& calls_help);

/// Turns on what the options ask for. The log goes to standard error as it comes.
void switch_on(ozk::Run& run, const DiagnosticsOptions& options);

/// Prints the trace buffer on standard error.
void print_trace(const ozk::Run& run);

/// Reports on standard error what went wrong in the walks of `document`, a line each; tells whether
/// anything did.
bool report_walks(const std::string& document, std::span<const Walk> walks);
/// Likewise the calls that broke the framework's contract.
bool report_faults(const std::string& document, const ozk::Run& run);

} // namespace ymap::host

#endif
