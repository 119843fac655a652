// Replies of NETCONF (RFC 6241, 4.2 to 4.4) in XML.

#ifndef YMAP_NETCONF_REPLY_H
#define YMAP_NETCONF_REPLY_H

#include <functional>
#include <span>
#include <string>

#include "document.h"
#include "error.h"
#include "output.h"

namespace ymap::netconf {

/// Writes one reply: <rpc-reply> with every attribute of the <rpc> (RFC 6241, 4.1), and what stands
/// in it. Without an <rpc>, what stands in it is the document.
class Reply {
public:
    /// `rpc` is null for none; else it is of `document`. Both have to stay.
    Reply(formats::Output& out, const data::Document& document, const OzkMapNode* rpc,
          formats::Layout layout);

    /// <data> with the children of `top`.
    void data(const OzkMapNode& top);
    /// An element of another namespace with a text, such as the <data> of RFC 6022.
    void text_data(const char* ns_uri, std::string_view text);
    void ok();
    void errors(std::span<const agent::Error> errors);

private:
    void open();
    void close();
    /// One element with a text on a line, if the text isn't empty.
    void element(size_t indent, std::string_view name, std::string_view text,
                 std::string_view attributes = {});
    void line(size_t indent, std::string_view text);
    void error(const agent::Error& error);

    formats::Output& out_;
    const data::Document& document_;
    const OzkMapNode* rpc_;
    formats::Layout layout_;
    std::string prefix_;         ///< of NETCONF's elements, with its colon
    std::string default_ns_uri_; ///< default namespace within the reply
    bool has_default_ = false;   ///< it is declared
    size_t indent_    = 0;       ///< of what stands in the reply
};

} // namespace ymap::netconf

#endif
