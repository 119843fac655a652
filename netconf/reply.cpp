// Replies of NETCONF.

#include "reply.h"

#include <algorithm>
#include <array>

#include <fmt/core.h>

#include "models.h"

namespace ymap::netconf {

using formats::escaped;
using formats::Layout;
using ozk::children;

Reply::Reply(formats::Output& out, const data::Document& document, const OzkMapNode* rpc,
             Layout layout)
    : out_(out), document_(document), rpc_(rpc), layout_(layout)
{
    if (rpc_ == nullptr)
        return;
    indent_                = 2;
    const auto& attributes = document_.attributes_of(*rpc_);
    const auto find        = [&](auto matches) {
        return std::ranges::find_if(attributes, [&](const data::Attribute& each) {
            return each.prefix == "xmlns" && matches(each);
        });
    };
    // The request's declarations come back; NETCONF's elements get by with them.
    const auto own_default = find([](const auto& each) { return each.name.empty(); });
    if (own_default == attributes.end())
        return;
    has_default_    = true; // which may be none
    default_ns_uri_ = own_default->value;
    if (default_ns_uri_ != data::NS_NETCONF)
        prefix_ = find([](const auto& each) { return each.value == data::NS_NETCONF; })->name + ":";
}

void Reply::line(size_t indent, std::string_view text)
{
    if (layout_ == Layout::lines)
        out_.fill(indent, ' ');
    out_ << text;
    if (layout_ == Layout::lines)
        out_ << "\n";
}

void Reply::element(size_t indent, std::string_view name, std::string_view text,
                    std::string_view attributes)
{
    if (!text.empty())
        line(indent,
             fmt::format("<{0}{1}{2}>{3}</{0}{1}>", prefix_, name, attributes, escaped(text)));
}

void Reply::open()
{
    if (rpc_ == nullptr)
        return;
    std::string tag = fmt::format("<{}rpc-reply", prefix_);
    for (const bool declarations : {false, true})
        for (const data::Attribute& each : document_.attributes_of(*rpc_)) {
            if ((each.prefix == "xmlns") != declarations)
                continue;
            const bool is_plain = each.prefix.empty() || each.name.empty();
            tag += fmt::format(" {}{}{}=\"{}\"", each.prefix, is_plain ? "" : ":", each.name,
                               escaped(each.value, true));
        }
    if (!has_default_) {
        has_default_ = true;
        tag += fmt::format(" xmlns=\"{}\"", data::NS_NETCONF);
        default_ns_uri_ = data::NS_NETCONF;
    }
    line(0, tag + ">");
}

void Reply::close()
{
    if (rpc_ != nullptr)
        line(0, fmt::format("</{}rpc-reply>", prefix_));
}

void Reply::data(const OzkMapNode& top)
{
    open();
    const std::string declaration =
        rpc_ == nullptr ? fmt::format(" xmlns=\"{}\"", data::NS_NETCONF) : "";
    const char* ns_uri = rpc_ == nullptr ? data::NS_NETCONF : default_ns_uri_.c_str();
    if (children(top).empty()) {
        line(indent_, fmt::format("<{}data{}/>", prefix_, declaration));
    } else {
        line(indent_, fmt::format("<{}data{}>", prefix_, declaration));
        for (const OzkMapNode& root : children(top))
            write_xml(out_, root, ns_uri, layout_, indent_ + 2);
        line(indent_, fmt::format("</{}data>", prefix_));
    }
    close();
}

void Reply::text_data(const char* ns_uri, std::string_view text)
{
    open();
    line(indent_, fmt::format("<data xmlns=\"{}\">{}</data>", ns_uri, escaped(text)));
    close();
}

void Reply::ok()
{
    open();
    line(indent_,
         fmt::format("<{}ok{}/>", prefix_,
                     rpc_ == nullptr ? fmt::format(" xmlns=\"{}\"", data::NS_NETCONF) : ""));
    close();
}

void Reply::errors(std::span<const agent::Error> errors)
{
    open();
    for (const agent::Error& each : errors)
        error(each);
    close();
}

void Reply::error(const agent::Error& error)
{
    line(indent_,
         fmt::format("<{}rpc-error{}>", prefix_,
                     rpc_ == nullptr ? fmt::format(" xmlns=\"{}\"", data::NS_NETCONF) : ""));
    const size_t inner = indent_ + 2;
    element(inner, "error-type", error.type);
    element(inner, "error-tag", error.tag);
    element(inner, "error-severity", "error");
    std::string declarations;
    const auto declare = [&](std::string_view prefix, std::string_view ns_uri) {
        if (error.error_path.find(fmt::format("/{}:", prefix)) != std::string::npos ||
            error.error_path.find(fmt::format("[{}:", prefix)) != std::string::npos)
            declarations += fmt::format(" xmlns:{}=\"{}\"", prefix, ns_uri);
    };
    declare(agent::NETCONF_PREFIX, data::NS_NETCONF);
    for (const agent::Module& module : agent::modules())
        declare(module.prefix, module.ns_uri);
    // A client may have one of these prefixes for NETCONF: here NETCONF goes without.
    if (!prefix_.empty())
        declarations += fmt::format(" xmlns=\"{}\"", data::NS_NETCONF);
    if (!error.error_path.empty())
        line(inner,
             fmt::format("<error-path{}>{}</error-path>", declarations, escaped(error.error_path)));
    element(inner, "error-message", error.message, " xml:lang=\"en\"");

    // RFC 6241, appendix A: which errors tell which element, attribute or namespace.
    static constexpr std::array with_element = {
        "bad-attribute",   "bad-element",       "missing-attribute", "missing-element",
        "unknown-element", "unknown-attribute", "unknown-namespace", "operation-not-supported"};
    const bool tells_element =
        !error.bad_element.empty() &&
        std::ranges::find(with_element, std::string_view(error.tag)) != with_element.end();
    if (tells_element || !error.session_id.empty()) {
        line(inner, fmt::format("<{}error-info>", prefix_));
        element(inner + 2, "bad-attribute", error.bad_attribute);
        if (tells_element)
            element(inner + 2, "bad-element", error.bad_element);
        element(inner + 2, "bad-namespace", error.bad_namespace);
        element(inner + 2, "session-id", error.session_id);
        line(inner, fmt::format("</{}error-info>", prefix_));
    }
    line(indent_, fmt::format("</{}rpc-error>", prefix_));
}

} // namespace ymap::netconf
