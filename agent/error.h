// What a request is told of its failure, and of what isn't carried out.

#ifndef YMAP_AGENT_ERROR_H
#define YMAP_AGENT_ERROR_H

#include <cstdint>
#include <stdexcept>
#include <string>

namespace ymap::agent {

/// An error of NETCONF (RFC 6241, 4.3 and appendix A).
struct Error {
    const char* tag;     ///< error-tag, such as "data-missing"
    std::string message; ///< in English, one line
    std::string path =
        {}; ///< instance path of what it is about, as the client knows it; may be empty
    std::string error_path = {};            ///< the same with prefixes, for error-path
    uint32_t line          = 0;             ///< in the request's document, 0 if unknown
    const char* type       = "application"; ///< error-type
    // error-info
    std::string bad_element   = {};
    std::string bad_attribute = {};
    std::string bad_namespace = {};
    std::string session_id    = {};
};

/// A request that isn't carried out, and why.
struct RequestError : std::runtime_error {
    explicit RequestError(Error what) : std::runtime_error(what.message), error(std::move(what)) {}
    Error error;
};

} // namespace ymap::agent

#endif
