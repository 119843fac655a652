// The running configuration and the state data that a session works on.

#ifndef YMAP_NETCONF_DATASTORE_H
#define YMAP_NETCONF_DATASTORE_H

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "read.h"

namespace ymap::netconf {

/// Who holds the lock of the running configuration.
struct LockHolder {
    uint32_t session_id = 0; ///< 0 for nobody
    int64_t since       = 0; ///< seconds since 1970
};

/// A session, as far as others know of it.
struct SessionInfo {
    uint32_t id;
    std::string user; ///< empty if that isn't known
    int64_t since;    ///< seconds since 1970; 0 if that isn't known
};

/// What a session works on. Each function throws agent::RequestError where a client is to be told
/// that it can't be done. What is handed out holds until the next call.
class Datastore {
public:
    virtual ~Datastore() = default;

    /// The running configuration as it stands now.
    virtual agent::Native running() = 0;
    /// The running configuration and all state data as they stand now.
    virtual std::span<const agent::Native> all() = 0;

    /// The running configuration, which nobody else edits until end_edit(). Fails if another
    /// session has locked it.
    virtual agent::Native begin_edit() = 0;
    /// Keeps what begin_edit() has given as it is now: it is stored when this returns.
    virtual void commit() = 0;
    /// Ends an edit. Without a commit, the configuration is what it was; `is_changed` says whether
    /// what begin_edit() has given isn't.
    virtual void end_edit(bool is_changed) = 0;

    /// RFC 6241, 7.5 and 7.6.
    virtual void lock()              = 0;
    virtual void unlock()            = 0;
    virtual LockHolder lock_holder() = 0;
    /// The other sessions on the same data (RFC 6022, 2.1.4).
    virtual std::vector<SessionInfo> other_sessions() = 0;
    /// Ends another session (RFC 6241, 7.9); what it held is free when this returns.
    virtual void kill_session(uint32_t id) = 0;
};

} // namespace ymap::netconf

#endif
