// A NETCONF session over two descriptors: hellos, messages in frames, limits of time and size.

#ifndef YMAP_NETCONF_SESSION_H
#define YMAP_NETCONF_SESSION_H

#include <cstddef>
#include <functional>
#include <string>

#include "server.h"

namespace ymap::netconf {

struct SessionOptions {
    int input          = 0; ///< descriptors
    int output         = 1;
    size_t max_message = 16 << 20; ///< bytes
    // Seconds
    int hello_time = 30; ///< from the start to the whole <hello> of the client
    int frame_time = 30; ///< that a client may be silent within a message
    int write_time = 60; ///< that a client may take nothing of an answer
    int idle_time  = 0;  ///< that a client may be silent between messages; 0: as long as it likes
};

/// How a session has ended.
struct SessionEnd {
    std::string reason; ///< for the log
    bool is_fault;      ///< no end that the client or the administrator has asked for
};

/// Serves one session from the hellos to its end. The signals SIGTERM and SIGHUP end it between two
/// messages; the calling thread has them blocked from then on, and SIGPIPE and SIGXFSZ are ignored.
/// `on_hello_sent` is called once the server's hello is on its way.
SessionEnd serve_session(Server& server, const SessionOptions& options,
                         const std::function<void()>& on_hello_sent);

} // namespace ymap::netconf

#endif
