// A document as it comes from a client: a NETCONF <rpc> or a bare data tree, read into a request
// whose trees a root walker can be called with.

#ifndef YMAP_HOST_DOCUMENT_H
#define YMAP_HOST_DOCUMENT_H

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "data_tree.h"
#include "library.h"

namespace ymap::host {

/// The namespace of NETCONF's own elements and of the operation attribute (RFC 6241, 3.1).
inline constexpr char NS_NETCONF[] = "urn:ietf:params:xml:ns:netconf:base:1.0";

/// One root of a request and its tree.
struct RequestRoot {
    const ModelRoot* model_root;
    ozk::InputTree tree;
};

/// A request as read. Every root in it is one that model_roots() has.
struct Request {
    std::string document; ///< name for messages
    uint32_t op_code = MAP_OP_GET;
    bool is_rpc      = false; ///< an <rpc>, no bare data tree
    std::optional<std::string> message_id;
    /// A read without a filter: it selects all there is (RFC 6241, 7.1 and 7.7), and `roots` holds
    /// an empty tree for each root of the clients' model.
    bool reads_all = false;
    std::vector<RequestRoot> roots;
};

struct ReadOptions {
    uint32_t depth_limit = 64;       ///< levels of elements, those of NETCONF included
    std::optional<uint32_t> op_code; ///< of bare data trees; nothing: they are refused
};
/// The operations of a request by the names that the command line and case files give them.
inline const std::map<std::string, uint32_t> operation_codes = {
    {"get", MAP_OP_GET}, {"get-config", MAP_OP_GET_CONFIG}, {"edit", MAP_OP_EDIT}};
/// The parser's own limit on levels, and so the largest depth limit.
inline constexpr uint32_t MAX_DEPTH_LIMIT = 256;

/// Reads the file `path`, or standard input if it is "-". Throws InputError.
Request read_document(const std::string& path, const ReadOptions& options);
/// Reads a document that is in memory already; `name` stands for it in messages. Throws InputError.
Request parse_document(const std::string& name, const std::string& text,
                       const ReadOptions& options);
/// The bytes of the file `path`, or of standard input if it is "-". Throws InputError.
std::string read_bytes(const std::string& path);
/// The name of the file `path` in messages.
std::string name_of_document(const std::string& path);

} // namespace ymap::host

#endif
