// What the command prints of a mapping: an aligned table for people, XML, and JSON for scripts.

#ifndef YMAP_HOST_OUTPUT_H
#define YMAP_HOST_OUTPUT_H

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "document.h"
#include "run.h"

namespace ymap::host {

/// What came of the walk of one root.
struct Walk {
    const ModelRoot* model_root;
    uint32_t status;
    std::optional<std::string> tag; ///< of the node that ended the walk, if it is known
    uint32_t line = 0;              ///< of that node in the document; 0 if unknown
};

/// A request that was mapped, as far as it went.
struct Mapping {
    const Request& request;
    const ozk::Run& run;
    std::vector<Walk> walks;
};

/// A status by name and code, such as "MAP_ERR_BAD_KEY (0xaaf2e800)".
std::string status_text(uint32_t status);

/// The calls that the run has recorded, one a line.
std::string calls_text(const ozk::Run& run);

/// `text` as a string of JSON (RFC 8259, 7), quotes included, with all control characters escaped;
/// also used where a value has to stay on one line.
std::string json_string(std::string_view text);
/// `text` as XML content (XML 1.0, 2.4).
std::string escaped(std::string_view text);
/// `text` as the value of an attribute in double quotes; a reader would make blanks of its line
/// feeds and tabs (XML 1.0, 3.3.3).
std::string escaped_attribute(std::string_view text);
/// Appends `node` and all below it as XML; `ns_uri` is the default namespace where it stands.
/// Operations are written with the prefix "nc".
void append_xml(std::string& out, const ozk::DataNode& node, std::string_view ns_uri, int indent);

// Each returns the text of one mapping.

/// The added paths in aligned columns.
std::string table_text(const Mapping& mapping);
/// The output tree, below one element that makes a single document of it.
std::string xml_text(const Mapping& mapping);
/// All of it as one JSON object; recorded calls are an array in it if `with_calls` is set.
std::string json_text(const Mapping& mapping, bool with_calls);

} // namespace ymap::host

#endif
