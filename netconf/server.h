// The operations of a NETCONF server: what a session answers to each message.

#ifndef YMAP_NETCONF_SERVER_H
#define YMAP_NETCONF_SERVER_H

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "datastore.h"
#include "error.h"
#include "output.h"
#include "request.h"

namespace ymap::netconf {

inline constexpr char NS_MONITORING[] = "urn:ietf:params:xml:ns:yang:ietf-netconf-monitoring";

/// A YANG module that the server tells its clients of.
struct SchemaModule {
    std::string name;
    std::string revision; ///< empty if it has none
    std::string ns_uri;
    std::string deviations = {}; ///< names of modules that deviate from it, with commas
    /// Gives its text, when a client asks for it; null if it can't be had here.
    std::function<std::string()> text = {};
};

/// Takes a line for the log.
using Log = std::function<void(const std::string& line)>;

struct ServerOptions {
    uint32_t session_id  = 0;
    bool read_only       = false;
    bool drops_unmapped  = false; ///< what of an edit the map doesn't carry out; else it is refused
    uint32_t depth_limit = 0;
    std::string user     = {}; ///< of the client, for logs and monitoring
    std::string peer     = {}; ///< where it is
    std::vector<SchemaModule> modules = {};
    agent::Hooks hooks                = {}; ///< around the walks of the map
};

/// Answers the messages of one session.
class Server {
public:
    using LibraryOf = std::function<const agent::MapLibrary&()>;

    /// `store` has to stay. The library is asked for when it is first needed.
    Server(Datastore& store, LibraryOf library, ServerOptions options, Log log);

    /// The server's <hello> (RFC 6241, 8.1).
    std::string hello() const;
    /// Takes the client's <hello>: whether both are of base:1.1. Throws agent::RequestError for one
    /// that no session can go on with.
    bool take_hello(std::string_view message) const;

    /// Answers the rpc in `message`, or says what is wrong with it.
    void answer(std::string_view message, formats::Output& out);
    /// Answers a message that wasn't taken in.
    void refuse_too_big(size_t max_message, formats::Output& out);
    /// Whether the client has closed the session.
    bool is_closed() const { return is_closed_; }
    /// Messages of a client of base:1.0 alone get no errors that are new in 1.1.
    void set_old_client() { is_old_client_ = true; }

private:
    class Exchange;
    std::vector<std::string> capabilities() const;

    Datastore& store_;
    LibraryOf library_;
    ServerOptions options_;
    Log log_;
    int64_t login_time_;
    uint64_t rpc_count_ = 0, bad_rpc_count_ = 0, error_reply_count_ = 0; // RFC 6022, 2.1.4
    bool is_closed_     = false;
    bool is_old_client_ = false;
};

} // namespace ymap::netconf

#endif
