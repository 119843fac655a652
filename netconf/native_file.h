// Native data as files: documents in XML or JSON.

#ifndef YMAP_NETCONF_NATIVE_FILE_H
#define YMAP_NETCONF_NATIVE_FILE_H

#include <cstdint>
#include <string>

#include "document.h"
#include "output.h"

namespace ymap::netconf {

/// Whether a document whose first bytes are these is JSON; XML else.
bool is_json(std::string_view beginning);

/// Reads data from `path` in XML or JSON, whichever its first character says. Throws
/// formats::InputError.
data::Document read_native(const std::string& path, uint32_t depth_limit);

/// Writes a document in XML as it came: what stood around the roots, which are below `top`, stands
/// there again.
void write_native(formats::Output& out, const OzkMapNode& top);

} // namespace ymap::netconf

#endif
