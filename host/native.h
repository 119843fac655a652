// What the verbs with native data have in common: documents that stand for the router's own data,
// and requests of clients that are carried out on it.

#ifndef YMAP_HOST_NATIVE_H
#define YMAP_HOST_NATIVE_H

#include <cstdint>
#include <string>

#include "data_tree.h"
#include "document.h"
#include "library.h"

namespace ymap::host {

/// Data of a native model, one root with all below.
struct NativeDocument {
    std::string name; ///< for messages
    const ModelRoot* model_root;
    ozk::DataNode root;
};

/// Reads the file `path`, or standard input if it is "-": a bare data tree on a native model.
/// Throws InputError.
NativeDocument read_native_document(const std::string& path, uint32_t depth_limit);

/// Reads a request on the clients' model: an edit if `is_edit` is set, else a read. A bare data
/// tree is taken for the operation `bare_op_code`. Throws InputError.
Request read_client_request(const std::string& path, uint32_t depth_limit, bool is_edit,
                            uint32_t bare_op_code);

} // namespace ymap::host

#endif
