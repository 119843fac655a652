// Reader of data in JSON, as RFC 7951 encodes it: an object is a node with children, an array the
// entries of a list or a leaf-list, a name is that of a module and a node or of a node of the same
// module as the one above.

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>

#include <fmt/core.h>
#include <nlohmann/json.hpp>

#include "reader.h"
#include "tree_builder.h"

namespace ymap::formats {

namespace {

/// The bytes of a source one by one, with a count of lines.
struct Bytes {
    const Source& source;
    char buffer[1 << 14] = {};
    size_t at            = 0;
    size_t count         = 0;
    uint32_t line        = 1;

    bool at_end()
    {
        if (at == count)
            at = 0, count = source(buffer, sizeof buffer);
        return count == 0;
    }
};

class ByteIterator {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type        = char;
    using difference_type   = std::ptrdiff_t;
    using pointer           = const char*;
    using reference         = const char&;

    ByteIterator() = default;
    explicit ByteIterator(Bytes& bytes) : bytes_(&bytes) {}
    reference operator*() const { return bytes_->buffer[bytes_->at]; }
    ByteIterator& operator++()
    {
        bytes_->line += bytes_->buffer[bytes_->at++] == '\n';
        return *this;
    }
    ByteIterator operator++(int)
    {
        ByteIterator before = *this;
        ++*this;
        return before;
    }
    friend bool operator==(const ByteIterator& a, const ByteIterator& b)
    {
        return a.is_end() == b.is_end();
    }

private:
    bool is_end() const { return bytes_ == nullptr || bytes_->at_end(); }
    Bytes* bytes_ = nullptr;
};

/// A name of XML, in which data may have to be written (RFC 7950, 6.2).
bool is_identifier(std::string_view name)
{
    const auto is_letter = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
    };
    return !name.empty() && is_letter(name.front()) && std::ranges::all_of(name, [&](char c) {
        return is_letter(c) || (c >= '0' && c <= '9') || c == '-' || c == '.';
    });
}

/// Takes the events of the parser.
class JsonReader {
public:
    JsonReader(Document& document, const Bytes& bytes, uint32_t depth_limit,
               const NamespaceOf& namespace_of)
        : document_(document), bytes_(bytes), depth_limit_(depth_limit),
          namespace_of_(namespace_of), builder_(document)
    {
    }

    void finish() { builder_.finish(); }

    // --- Events

    bool null()
    {
        if (open_.empty() || !open_.back().is_array)
            fail("null stands for no value, but within an array");
        return leaf(std::nullopt);
    }
    bool boolean(bool value) { return leaf(value ? "true" : "false"); }
    bool number_integer(int64_t value) { return leaf(std::to_string(value)); }
    bool number_unsigned(uint64_t value) { return leaf(std::to_string(value)); }
    bool number_float(double, const std::string& text) { return leaf(text); }
    bool string(std::string& value)
    {
        for (const char c : value)
            if (static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n' && c != '\r')
                fail("a value holds a control character that XML has no form for");
        for (const char* none : {"\xef\xbf\xbe", "\xef\xbf\xbf"}) // U+FFFE, U+FFFF
            if (value.find(none) != value.npos)
                fail("a value holds a character that XML has no form for");
        return leaf(value);
    }
    bool binary(nlohmann::json::binary_t&) { fail("binary data is no JSON"); }
    bool start_object(size_t)
    {
        if (!open_.empty())
            open_node();
        open_.push_back({false, ns_uri_of_open(), nullptr, 0});
        return true;
    }
    bool key(std::string& name)
    {
        Level& object      = open_.back();
        const size_t colon = name.find(':');
        const std::string_view module =
            colon != name.npos ? std::string_view(name).substr(0, colon) : std::string_view();
        const std::string_view tag = std::string_view(name).substr(colon + 1);
        if (!is_identifier(tag))
            fail(fmt::format("'{}' is no name of a node", name));
        if (colon != name.npos)
            next_ns_uri_ = namespace_of_(module);
        else
            next_ns_uri_ = object.ns_uri;
        if (next_ns_uri_ == nullptr && colon != name.npos)
            fail(fmt::format("unknown module of '{}'", name));
        if (next_ns_uri_ == nullptr)
            fail(fmt::format("'{}' has no module", name));
        object.tag  = document_.tree.intern(tag);
        object.line = bytes_.line;
        return true;
    }
    bool end_object()
    {
        open_.pop_back();
        if (!open_.empty())
            builder_.close();
        return true;
    }
    bool start_array(size_t)
    {
        if (open_.empty() || open_.back().is_array)
            fail("an array stands where an object or a value is expected");
        open_.push_back({true, next_ns_uri_, open_.back().tag, open_.back().line});
        return true;
    }
    bool end_array()
    {
        open_.pop_back();
        return true;
    }
    bool parse_error(size_t, const std::string&, const nlohmann::detail::exception& error)
    {
        fail(json_message(error.what()));
    }

private:
    /// An object or an array that is open.
    struct Level {
        bool is_array;
        const char* ns_uri; ///< of the node that an object is, or of the entries of an array
        const char* tag;    ///< of the member that is being read
        uint32_t line;
    };

    [[noreturn]] void fail(std::string_view message) const
    {
        throw InputError(document_.name, bytes_.line, message);
    }

    const char* ns_uri_of_open() const
    {
        if (open_.empty())
            return nullptr;
        return open_.back().is_array ? open_.back().ns_uri : next_ns_uri_;
    }

    void open_node()
    {
        if (builder_.depth() >= depth_limit_)
            fail(fmt::format("'{}' is nested deeper than {} levels", open_.back().tag,
                             depth_limit_));
        OzkMapNode node{};
        node.tag    = open_.back().tag;
        node.ns_uri = ns_uri_of_open();
        node.line   = open_.back().is_array ? bytes_.line : open_.back().line;
        builder_.open(node);
    }

    bool leaf(const std::optional<std::string>& value)
    {
        if (open_.empty())
            fail("an object is expected");
        open_node();
        if (value && !value->empty())
            ozk::Tree::set_value(builder_.opened(), document_.tree.keep(*value));
        builder_.close();
        return true;
    }

    Document& document_;
    const Bytes& bytes_;
    uint32_t depth_limit_;
    const NamespaceOf& namespace_of_;
    TreeBuilder builder_;
    std::vector<Level> open_;
    const char* next_ns_uri_ = nullptr; ///< of the member that is being read
};

} // namespace

std::string_view json_message(std::string_view what)
{
    for (const std::string_view mark : {"] ", ": "}) // the name of the error, and its place
        if (const size_t end = what.find(mark);
            end != what.npos && (mark == "] " || what.starts_with("parse error at")))
            what.remove_prefix(end + mark.size());
    return what;
}

Document read_json(const std::string& name, const Source& source, const ReadOptions& options,
                   const NamespaceOf& namespace_of)
{
    Document document{name};
    Bytes bytes{source};
    JsonReader reader(document, bytes, options.depth_limit, namespace_of);
    nlohmann::json::sax_parse(ByteIterator(bytes), ByteIterator(), &reader);
    reader.finish();
    return document;
}

} // namespace ymap::formats
