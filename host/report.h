// What verbs print beside their result: logs, traces and calls of walks, notes and errors. All of
// it goes to standard error.

#ifndef YMAP_HOST_REPORT_H
#define YMAP_HOST_REPORT_H

#include <span>
#include <string>
#include <string_view>

#include "options.h"
#include "plan.h"
#include "walk.h"

namespace ymap::host {

/// Prints on standard output.
void print(std::string_view text);

/// Hooks that turn on what the options ask for and print it. `prints_siblings`: each call of a
/// stand-in sibling is a line. With `prints_passes`, each pass begins with its name.
agent::Hooks hooks_for(const DiagnosticsOptions& options, bool prints_siblings,
                       bool prints_passes = false);

/// The calls that a run has recorded, a line each.
std::string calls_text(const ozk::Run& run);

// Each prints a line for each of what it is given; the last three tell whether there was any.

void report_notes(const std::string& document, std::span<const agent::Note> notes);
bool report_errors(const std::string& document, std::span<const agent::Error> errors);
bool report_walks(const std::string& document, std::span<const agent::Walk> walks);
bool report_faults(const std::string& document, std::span<const std::string> faults);

} // namespace ymap::host

#endif
