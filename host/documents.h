// The documents of the command line: requests of clients, and files that stand for the router's
// data.

#ifndef YMAP_HOST_DOCUMENTS_H
#define YMAP_HOST_DOCUMENTS_H

#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "read.h"
#include "reader.h"
#include "request.h"

namespace ymap::host {

/// Reads a request from `source`; `name` stands for it in messages. A bare data tree is one for the
/// operation `bare_op_code`. Throws formats::InputError.
agent::Request read_request(const std::string& name, const formats::Source& source,
                            uint32_t depth_limit, std::optional<uint32_t> bare_op_code);
/// The same of the file `path`, which has to be an edit if `is_edit` is set, else a read.
agent::Request read_request(const std::string& path, uint32_t depth_limit, bool is_edit,
                            uint32_t bare_op_code);

/// Native data out of files, in XML or JSON.
class NativeData {
public:
    /// Throws formats::InputError.
    NativeData(std::span<const std::string> paths, uint32_t depth_limit);

    std::span<const agent::Native> documents() const { return natives_; }

private:
    std::deque<data::Document> documents_;
    std::vector<agent::Native> natives_;
};

} // namespace ymap::host

#endif
