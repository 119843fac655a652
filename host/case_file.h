// A captured run as a file that stands by itself: an object of JSON with the document, how it was
// mapped, and what `ymap map --format json --calls` prints of it. `ymap map --capture` writes one,
// `ymap replay` runs it again.

#ifndef YMAP_HOST_CASE_FILE_H
#define YMAP_HOST_CASE_FILE_H

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "map.h"
#include "mapping.h"

namespace ymap::host {

/// What a run is made of.
struct CaseInput {
    std::string comment;  ///< what the case is for, as JSON; may be empty
    std::string document; ///< its text, in UTF-8
    std::string op;       ///< operation of a bare data tree; empty for none
    uint32_t depth_limit;
    std::string log; ///< "error", "trace" or empty
    bool trace = false;
};

struct Case {
    CaseInput input;
    /// What came of the run: the elements of each array, or the one value, as compact JSON.
    std::map<std::string, std::vector<std::string>> members;
    /// The statuses that calls answered, other than 0, by the operation and the number of its call.
    std::vector<std::pair<std::pair<ozk::Op, size_t>, uint32_t>> answers;
};

/// Writes a case file. Throws formats::InputError.
void write_case(const std::string& path, const CaseInput& input,
                const std::vector<JsonMember>& result);
/// Reads the text of a case file; `name` stands for it in messages. Throws formats::InputError.
Case read_case(const std::string& name, const std::string& text);
/// The members of a result as read_case() gives them.
std::map<std::string, std::vector<std::string>> compact(const std::vector<JsonMember>& result);

} // namespace ymap::host

#endif
