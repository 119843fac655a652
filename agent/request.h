// A request of a client, as its document says it: a NETCONF <rpc> or a bare data tree, with what
// its envelope asks for (RFC 6241, 7).

#ifndef YMAP_AGENT_REQUEST_H
#define YMAP_AGENT_REQUEST_H

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "document.h"
#include "error.h"
#include "instance_path.h"
#include "models.h"

namespace ymap::agent {

struct Request {
    data::Document document;
    uint32_t op_code = MAP_OP_GET;
    bool is_rpc      = false; ///< an <rpc>, no bare data tree
    /// A read without a filter: it selects all there is (RFC 6241, 7.1 and 7.7).
    bool reads_all = false;
    bool test_only = false; ///< of an edit: nothing is to be changed
    /// The operation that holds where no node has one (RFC 6241, 7.2).
    ozk::Edit default_operation = ozk::Edit::merge;
    /// The node whose children are the roots: <filter>, <config> or the document's top; null if
    /// there is none.
    const OzkMapNode* content = nullptr;

    bool is_edit() const { return op_code == MAP_OP_EDIT; }
    std::span<const OzkMapNode> roots() const
    {
        return content != nullptr ? ozk::children(*content) : std::span<const OzkMapNode>();
    }
    /// The <rpc>, or null.
    const OzkMapNode* rpc() const { return is_rpc ? document.tree.top().subtrees : nullptr; }
};

struct RequestOptions {
    std::optional<uint32_t> bare_op_code; ///< of bare data trees; nothing: they are refused
    /// Names of the datastores that a request may be for.
    std::span<const std::string_view> datastores;
};

/// Reads the envelope of `document`, which has an element. On an edit each node gets the operation
/// that holds for it, and no node has an attribute beside it; on a read, nodes that no data can be
/// like are marked so. Throws RequestError for what isn't supported or not understood.
Request parse_request(data::Document document, const RequestOptions& options);

/// The same of a configuration that stands in `config`, a node of `document`: an edit that merges
/// it into what there is.
Request parse_config(data::Document document, OzkMapNode& config);

/// Throws RequestError for an attribute of `operation`, which is of `document`, or of what stands
/// below it, a <filter> and what a <config> holds excepted: those are parse_request()'s.
void refuse_attributes(const data::Document& document, const OzkMapNode& operation);

/// An error of the envelope about `node`, which stands in `parent` and is of another namespace.
Error of_other_namespace(const OzkMapNode& node, const OzkMapNode& parent);
/// An error about `node`, which is of the tree below `top`: with its line and its paths.
Error error_at(const char* tag, const std::string& message, const OzkMapNode& top,
               const OzkMapNode& node);
/// Instance paths of nodes below `top` for error-path, with the models' prefixes; empty for a node
/// of or below a namespace that has none, whose path would name another node.
std::string error_path(data::InstancePaths& paths, const OzkMapNode& node);

/// The content of a document that holds data: the node whose children are roots. A bare tree, a
/// <data> or <config>, or the <data> of a whole <rpc-reply>; several roots may stand side by side.
/// Entries of lists then begin with their keys.
/// Throws RequestError for anything else.
OzkMapNode& data_of(data::Document& document);

} // namespace ymap::agent

#endif
