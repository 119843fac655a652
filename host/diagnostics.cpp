// Calls, log, trace and reports, for all verbs alike.

#include "diagnostics.h"

#include <cstdio>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "input_error.h"

namespace ymap::host {

void add_diagnostics_options(CLI::App& verb, DiagnosticsOptions& options,
                             const std::string& calls_help)
{
    verb.add_flag("--calls", options.calls, calls_help);
    verb.add_option("--log", options.log, "Print the log on standard error, up to this level")
        ->check(CLI::IsMember({"error", "trace"}));
    verb.add_flag("--trace", options.trace, "Print the trace buffer on standard error");
}

void switch_on(ozk::Run& run, const DiagnosticsOptions& options)
{
    run.record_calls(options.calls);
    run.set_trace(options.trace);
    run.set_log_stream(stderr);
    run.set_level(MAP_LOG_ERROR, !options.log.empty());
    run.set_level(MAP_LOG_TRACE, options.log == "trace");
}

void print_trace(const ozk::Run& run)
{
    const std::vector<std::string> lines = run.trace_lines();
    if (run.trace_index() > lines.size())
        fmt::print(stderr, "({} earlier trace lines are lost)\n", run.trace_index() - lines.size());
    for (const std::string& line : lines)
        fmt::print(stderr, "{}\n", line);
}

bool report_walks(const std::string& document, std::span<const Walk> walks)
{
    bool failed = false;
    for (const Walk& walk : walks) {
        if (walk.status == MAP_OK)
            continue;
        failed = true;
        fmt::print(stderr, "{}{}: walk of /{} returned {}{}\n", document,
                   walk.line != 0 ? fmt::format(":{}", walk.line) : "", walk.model_root->name,
                   status_text(walk.status),
                   walk.tag ? fmt::format(", offending tag '{}'", for_message(*walk.tag)) : "");
    }
    return failed;
}

bool report_faults(const std::string& document, const ozk::Run& run)
{
    for (const std::string& fault : run.faults())
        fmt::print(stderr, "{}: broken contract: {}\n", document, for_message(fault));
    return !run.faults().empty();
}

} // namespace ymap::host
