// Notes, errors, logs and traces on standard error.

#include "report.h"

#include <cstdio>
#include <vector>

#include <fmt/core.h>

#include "calls.h"
#include "text.h"

namespace ymap::host {

namespace {

/// A line about a place in a document.
void print_line(const std::string& document, uint32_t line, const std::string& text)
{
    std::fflush(stdout); // so that reports follow what they are about
    fmt::print(stderr, "{}{}: {}\n", document, line != 0 ? fmt::format(":{}", line) : "",
               data::for_message(text));
}

std::string at(const std::string& path)
{
    return path.empty() ? "" : path + ": ";
}

void print_trace(const ozk::Run& run)
{
    const std::vector<std::string> lines = run.trace_lines();
    if (run.trace_index() > lines.size())
        fmt::print(stderr, "({} earlier trace lines are lost)\n", run.trace_index() - lines.size());
    for (const std::string& line : lines)
        fmt::print(stderr, "{}\n", data::without_controls(line));
}

} // namespace

void print(std::string_view text)
{
    std::fwrite(text.data(), 1, text.size(), stdout);
}

agent::Hooks hooks_for(const DiagnosticsOptions& options, bool prints_siblings, bool prints_passes)
{
    const bool shows_any = options.calls || options.trace || !options.log.empty();
    return {[=](ozk::Run& run, const char* pass) {
                if (prints_passes && shows_any)
                    fmt::print(stderr, "{}\n", pass);
                run.record_calls(options.calls);
                run.set_trace(options.trace);
                run.set_log_stream(stderr);
                run.set_level(MAP_LOG_ERROR, !options.log.empty());
                run.set_level(MAP_LOG_TRACE, options.log == "trace");
                if (prints_siblings)
                    run.on_sibling([](const char* entry_point, const OzkMapNode* node) {
                        fmt::print(stderr, "sibling called: {}, tag {}\n", entry_point,
                                   node != nullptr && node->tag != nullptr
                                       ? data::for_message(node->tag)
                                       : "-");
                    });
            },
            [=](ozk::Run& run) {
                if (prints_passes && options.calls)
                    fmt::print(stderr, "{}", calls_text(run));
                if (options.trace)
                    print_trace(run);
            }};
}

std::string calls_text(const ozk::Run& run)
{
    std::string out = "calls:\n";
    for (const ozk::Call& call : run.calls())
        out += "  " + to_text(call) + "\n";
    return out;
}

void report_notes(const std::string& document, std::span<const agent::Note> notes)
{
    for (const agent::Note& note : notes)
        print_line(document, note.line, at(note.path) + note.message);
}

bool report_errors(const std::string& document, std::span<const agent::Error> errors)
{
    for (const agent::Error& error : errors)
        print_line(document, error.line,
                   fmt::format("{}: {}{}", error.tag, at(error.path), error.message));
    return !errors.empty();
}

bool report_walks(const std::string& document, std::span<const agent::Walk> walks)
{
    bool failed = false;
    for (const agent::Walk& walk : walks) {
        if (walk.status == MAP_OK)
            continue;
        failed = true;
        print_line(document, walk.line,
                   fmt::format("{}walk of /{} returned {}", at(walk.path), walk.root->name,
                               agent::status_text(walk.status)));
    }
    return failed;
}

bool report_faults(const std::string& document, std::span<const std::string> faults)
{
    for (const std::string& fault : faults)
        print_line(document, 0, "broken contract: " + fault);
    return !faults.empty();
}

} // namespace ymap::host
