// What is read: bytes from a file, from memory or from a peer, in XML or JSON, become a tree.

#ifndef YMAP_FORMATS_READER_H
#define YMAP_FORMATS_READER_H

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "document.h"

namespace ymap::formats {

using data::Document;

/// Input that can't be read. Its text is the whole line for a person, such as "request.xml:7: ...".
struct InputError : std::runtime_error {
    /// A line of 0 is not known.
    InputError(const std::string& name, uint32_t error_line, std::string_view message);
    uint32_t line;
    /// The error-tag that a message gets for it (RFC 6241, appendix A): what is well-formed as far
    /// as it was read is no "malformed-message".
    const char* tag     = "malformed-message";
    std::string element = {}; ///< of a "bad-element"
};

/// The parser's own limit on levels, and so the largest depth limit.
inline constexpr uint32_t MAX_DEPTH_LIMIT     = 256;
inline constexpr uint32_t DEFAULT_DEPTH_LIMIT = 64;

/// Gives the next bytes of an input, at most `size` of them; 0 at its end. May throw InputError.
using Source = std::function<size_t(char* buffer, size_t size)>;

/// The bytes in memory, which must stay.
Source bytes_of(std::string_view text);
/// The file `path`, or standard input if it is "-". Throws InputError.
Source bytes_of_file(const std::string& path);
/// The name of the file `path` in messages.
std::string name_of_file(const std::string& path);
/// All bytes of a source.
std::string read_all(const Source& source);

struct ReadOptions {
    uint32_t depth_limit = DEFAULT_DEPTH_LIMIT; ///< levels of elements, those of NETCONF included
    /// Whether a good operation attribute of NETCONF becomes its node's edit; else it is an
    /// attribute like any other.
    bool takes_operations = false;
    /// Whether the document has to be in UTF-8, as messages have (RFC 6241, 3).
    bool only_utf8 = false;
    /// Gets the attributes of an outermost <rpc> once they are known, whatever comes after them.
    std::vector<data::Attribute>* rpc_attributes = nullptr;
};

/// Reads an XML document: no DTD, no entity of its own, no file but the one named. An element is a
/// node, its text the value of a leaf, as it stands; text of nothing but white space is none.
/// Throws InputError.
Document read_xml(const std::string& name, const Source& source, const ReadOptions& options);

/// What an exception of the JSON parser says, without its own name and count of columns.
std::string_view json_message(std::string_view what);

/// Gives the namespace of a YANG module, or null for an unknown one.
using NamespaceOf = std::function<const char*(std::string_view module)>;
/// Reads data in JSON (RFC 7951). Throws InputError.
Document read_json(const std::string& name, const Source& source, const ReadOptions& options,
                   const NamespaceOf& namespace_of);

} // namespace ymap::formats

#endif
