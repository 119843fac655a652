// Native documents and the requests on them.

#include "native.h"

#include <fmt/format.h>

#include "input_error.h"

namespace ymap::host {

NativeDocument read_native_document(const std::string& path, uint32_t depth_limit)
{
    const Request document =
        read_document(path, {.depth_limit = depth_limit, .op_code = MAP_OP_GET});
    if (document.is_rpc)
        throw InputError(
            fmt::format("{}: an rpc, where native data is expected", document.document));
    const RequestRoot& root = document.roots.front(); // a bare tree has the one
    if (root.model_root->is_clients)
        throw InputError(fmt::format("{}:{}: /{} is no native data, but of the clients' model",
                                     document.document, root.tree.root().line,
                                     root.model_root->name));
    return {document.document, root.model_root, ozk::plain_tree(root.tree.root())};
}

Request read_client_request(const std::string& path, uint32_t depth_limit, bool is_edit,
                            uint32_t bare_op_code)
{
    Request request = read_document(path, {.depth_limit = depth_limit, .op_code = bare_op_code});
    if ((request.op_code == MAP_OP_EDIT) != is_edit)
        throw InputError(fmt::format("{}: {} is expected", request.document,
                                     is_edit ? "an edit-config" : "a get or get-config"));
    for (const RequestRoot& root : request.roots)
        if (!root.model_root->is_clients)
            throw InputError(fmt::format("{}:{}: /{} is of a native model; a request is on the "
                                         "clients' model",
                                         request.document, root.tree.root().line,
                                         root.model_root->name));
    return request;
}

} // namespace ymap::host
