// What is written: a tree in XML or JSON, in pieces as they come.

#ifndef YMAP_FORMATS_OUTPUT_H
#define YMAP_FORMATS_OUTPUT_H

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "tree.h"

namespace ymap::formats {

/// Takes text and hands it on in large pieces.
class Output {
public:
    using Sink = std::function<void(std::string_view)>;

    explicit Output(Sink sink) : sink_(std::move(sink)) {}
    Output(const Output&) = delete;

    Output& operator<<(std::string_view text)
    {
        buffer_.append(text);
        if (buffer_.size() >= piece) [[unlikely]]
            flush();
        return *this;
    }
    Output& fill(size_t count, char c)
    {
        buffer_.append(count, c);
        return *this;
    }
    /// Hands on what it still holds: also to be called at the end.
    void flush()
    {
        if (!buffer_.empty())
            sink_(buffer_);
        buffer_.clear();
    }

private:
    static constexpr size_t piece = 1 << 16;
    Sink sink_;
    std::string buffer_;
};

/// Whether elements stand on lines of their own.
enum class Layout : uint8_t { lines, compact };

// --- XML (XML 1.0)

/// `text` as content; also as the value of an attribute in double quotes if `is_attribute` is set:
/// a reader would make blanks of its line feeds and tabs (XML 1.0, 2.4 and 3.3.3).
void write_escaped(Output& out, std::string_view text, bool is_attribute = false);
std::string escaped(std::string_view text, bool is_attribute = false);

/// `node` and all below. `ns_uri`, which may be null, is the default namespace where it stands. An
/// edit operation that is a node's own is written as an attribute with the prefix "nc", which has
/// to be declared.
void write_xml(Output& out, const OzkMapNode& node, const char* ns_uri, Layout layout,
               size_t indent = 0);

// --- JSON (RFC 8259, RFC 7951)

/// `text` as a string, quotes included, with all control characters escaped; also used where a
/// value has to stay on one line.
std::string json_string(std::string_view text);

/// How a leaf's value is written (RFC 7951, 6). Of a leaf of unknown type it is a string; without a
/// value the leaf is taken for one of the type empty.
enum class JsonType : uint8_t { unknown, string, boolean, integer };

/// What a tree doesn't say of its nodes and JSON has to know.
struct JsonSchema {
    std::function<std::string_view(const char* ns_uri)> module_of;
    std::function<JsonType(const OzkMapNode& leaf)> type_of;
    /// Whether a node at that schema path is a container or an entry of a list, so that it is no
    /// leaf of the type empty where nothing is in it.
    std::function<bool(const char* ns_uri, const std::string& path)> is_container;
    std::function<bool(const char* ns_uri, const std::string& path)> is_list;
};

/// The children of `top`, which are roots, as one object. Entries of a list are one array, wherever
/// they stand; so are other nodes of the same name.
void write_json(Output& out, const OzkMapNode& top, const JsonSchema& schema, size_t indent = 0);

} // namespace ymap::formats

#endif
