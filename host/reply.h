// The answer to a read, as a client gets it.

#ifndef YMAP_HOST_REPLY_H
#define YMAP_HOST_REPLY_H

#include <span>
#include <string>

#include "data_tree.h"
#include "document.h"
#include "run.h"

namespace ymap::host {

/// `data` in <data>, and that in an <rpc-reply> with the request's message-id if the request came
/// as an rpc (RFC 6241, 4.2 and 7.7).
std::string xml_reply(const Request& request, std::span<const ozk::DataNode> data);

/// `data` as one JSON object (RFC 7951). `added` are the paths that it was built of: they tell
/// lists from containers. A value that isn't of its leaf's type is written as a string, and a leaf
/// without one as [null].
std::string json_reply(std::span<const ozk::DataNode> data, std::span<const ozk::AddedPath> added);

} // namespace ymap::host

#endif
