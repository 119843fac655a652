// What the command prints of a mapping: an aligned table for people, XML, and JSON for programs and
// for case files.

#ifndef YMAP_HOST_MAPPING_H
#define YMAP_HOST_MAPPING_H

#include <string>
#include <vector>

#include "map.h"
#include "output.h"

namespace ymap::host {

/// The added paths in aligned columns.
std::string table_text(const agent::Request& request, const agent::Mapping& mapping);

/// The output tree, below one element that makes a single document of it: a configuration to send
/// on for an edit, with the operation of each node that has another one than the node above; a
/// filter for a read of the clients' model; data for native data. False, and nothing is written,
/// where none can say what the request does: a walk has ended, the edit has faults, or an operation
/// on a root depends on the router's data.
bool write_xml_mapping(formats::Output& out, const agent::Request& request,
                       const agent::Mapping& mapping);

/// A mapping as members of an object of JSON, each of them a list of lines; arrays have an element
/// a line.
struct JsonMember {
    std::string name;
    bool is_array;
    std::vector<std::string> values;
};
std::vector<JsonMember> json_members(const agent::Request& request, const agent::Mapping& mapping,
                                     bool with_calls);
/// An object of JSON out of members.
std::string json_object(const std::vector<JsonMember>& members);

} // namespace ymap::host

#endif
