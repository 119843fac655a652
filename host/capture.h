// A captured run as a text file that stands by itself: the document, how it was mapped, the calls,
// the paths that came of it and the status. `ymap map --capture` writes one, `ymap replay` runs it
// again.
//
//     ymap case 1
//     # A comment; settings follow, all optional: op, depth-limit, log and trace of the run.
//     op: edit
//     document:
//       <interfaces xmlns="urn:ietf:params:xml:ns:yang:ietf-interfaces">
//       </interfaces>
//     calls:
//       ozk_map_add_to_node_hierarchy(interfaces, container)
//       ozk_map_remove_from_node_hierarchy(interfaces)
//     output:
//     status:
//       if:/interfaces: MAP_OK (0)
//
// The lines of a section are indented by two spaces, which don't belong to them; the document's are
// its bytes. What changes from run to run or with any edit of a source is left out of the calls:
// addresses, source lines, and the questions to the log layer.

#ifndef YMAP_HOST_CAPTURE_H
#define YMAP_HOST_CAPTURE_H

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "diagnostics.h"
#include "document.h"
#include "output.h"
#include "run.h"

namespace ymap::host {

/// What came of a run, a text without a line end for each call, added path and walk.
struct CaseResult {
    std::vector<std::string> calls;
    std::vector<std::string> output;
    std::vector<std::string> status; ///< broken contracts included
};

struct Case {
    ReadOptions read_options;
    DiagnosticsOptions diagnostics; ///< `calls` is without meaning
    std::string document;
    CaseResult result;
};

/// The result of a run that has recorded its calls.
CaseResult result_of(const Mapping& mapping);

/// The text of a case file.
std::string to_text(const Case& captured);
/// Reads the text of a case file; `name` stands for it in messages. Throws InputError.
Case parse_case(const std::string& name, const std::string& text);
/// Writes `text` to the file `path`. Throws InputError.
void write_bytes(const std::string& path, const std::string& text);

/// Lets `run` answer as the recorded calls were answered: statuses of sibling maps, and those of
/// the framework that stopped a walk.
void answer_as_recorded(ozk::Run& run, std::span<const std::string> calls);

} // namespace ymap::host

#endif
