// Reader of XML. It takes the parser's events and builds the records of the tree as it goes, so
// that a document of hundreds of megabytes needs no second copy in memory.
//
// A document comes from the network: there is no DTD, no entity of its own, no file but the one
// named, and no recursion here; the depth of the tree is limited. Once an error is known, nothing
// that the parser owns is touched any more, whatever the event; the parser ends at its next read.

#include <algorithm>
#include <array>
#include <cstring>
#include <exception>
#include <memory>
#include <new>

#include <fmt/core.h>
#include <libxml/parser.h>

#include "reader.h"
#include "text.h"
#include "tree_builder.h"

namespace ymap::formats {

namespace {

/// The parser looks names up in a table that stops growing, and prefixes one after the other, so
/// that each of a message's elements would take it as long as there are many.
constexpr int most_names       = 1 << 16; ///< of elements, attributes, prefixes, namespaces
constexpr size_t most_declared = 1000;    ///< namespaces declared in scope
/// It compares each attribute of a tag with all others before it shows the tag, so that a tag of
/// megabytes would take it hours. Text, on the other hand, comes in pieces.
constexpr size_t longest_tag = 1 << 16;

std::string_view view(const xmlChar* text)
{
    return ozk::text(reinterpret_cast<const char*>(text));
}

class XmlReader {
public:
    XmlReader(Document& document, const Source& source, const ReadOptions& options)
        : document_(document), source_(source), options_(options), builder_(document)
    {
    }

    void read();

private:
    // Events. None does anything once an error is known.
    void start_element(const xmlChar* name, const xmlChar* ns_uri, int declaration_count,
                       const xmlChar** declarations, int attribute_count,
                       const xmlChar** attributes);
    void end_element();

    void read_attributes(int declaration_count, const xmlChar** declarations, int count,
                         const xmlChar** fields);
    /// A name or namespace of the parser, as a text of the tree. The parser's dictionary has each
    /// once, under one address.
    const char* intern(const xmlChar* text);
    uint32_t line() const;
    uint32_t line_of_start_tag() const;
    int read_more(char* buffer, int size);
    /// Whether the value begins with a prefix that is declared where the parser stands, as that of
    /// an identity or of an instance-identifier does (RFC 7950, 9.10.3 and 9.13.2).
    bool has_prefix(std::string_view value) const;
    /// Keeps the first error. Of text beside elements, `element` is what holds both.
    void fail(uint32_t line, std::string_view message, const char* tag = "malformed-message",
              const char* element = "");
    void fail(std::string_view message) { fail(line(), message); }
    void fail_too_big(std::string_view message) { fail(line(), message, "too-big"); }
    bool failed() const { return error_ != nullptr; }
    /// Runs an event unless an error is known; what it throws becomes the error.
    template <class Event>
    static void on_event(void* self, Event event);
    static xmlSAXHandler events();

    Document& document_;
    const Source& source_;
    const ReadOptions& options_;
    TreeBuilder builder_;
    std::exception_ptr error_;
    xmlParserCtxtPtr parser_ = nullptr;
    std::vector<std::string_view> prefixes_; ///< declared in scope
    std::vector<size_t> scopes_;             ///< how many there were before each open element
    size_t read_since_event_ = 0;            ///< bytes that the parser took in without an event
    std::string text_;                       ///< read since the last tag
    std::string tail_;                       ///< last bytes read, in which a frame's end may begin
    bool has_read_  = false;
    bool is_framed_ = false; ///< frames of NETCONF stand around or in the document
    std::array<std::pair<const xmlChar*, const char*>, 256> interned_{};
};

uint32_t XmlReader::line() const
{
    return parser_->input != nullptr ? static_cast<uint32_t>(parser_->input->line) : 0;
}

/// The parser stands after the attributes of the tag, which may be lines further down.
uint32_t XmlReader::line_of_start_tag() const
{
    uint32_t result     = line();
    const xmlChar* base = parser_->input->base;
    const xmlChar* cur  = parser_->input->cur;
    const auto* tag =
        static_cast<const xmlChar*>(memrchr(base, '<', static_cast<size_t>(cur - base) + 1));
    for (const xmlChar* c = tag != nullptr ? tag : base;
         (c = static_cast<const xmlChar*>(
              std::memchr(c, '\n', static_cast<size_t>(cur - c) + 1))) != nullptr;
         ++c)
        --result;
    return result;
}

void XmlReader::fail(uint32_t line, std::string_view message, const char* tag, const char* element)
{
    if (failed())
        return;
    InputError error(document_.name, line, message);
    error.tag     = tag;
    error.element = element;
    error_        = std::make_exception_ptr(error);
}

const char* XmlReader::intern(const xmlChar* text)
{
    if (text == nullptr)
        return nullptr;
    auto& known = interned_[(reinterpret_cast<uintptr_t>(text) >> 3) % interned_.size()];
    if (known.first != text)
        known = {text, document_.tree.intern(view(text))};
    return known.second;
}

void XmlReader::start_element(const xmlChar* name, const xmlChar* ns_uri, int declaration_count,
                              const xmlChar** declarations, int attribute_count,
                              const xmlChar** attributes)
{
    if (builder_.depth() >= options_.depth_limit)
        return fail_too_big(fmt::format("element '{}' is nested deeper than {} levels", view(name),
                                        options_.depth_limit));
    if (!data::trim(text_).empty())
        return fail(line(), fmt::format("text and element '{}' stand side by side", view(name)),
                    "bad-element", builder_.opened().tag);
    text_.clear();
    scopes_.push_back(prefixes_.size());
    for (int i = 0; i < declaration_count; ++i)
        prefixes_.push_back(view(declarations[2 * i]));
    OzkMapNode node{};
    node.tag    = intern(name);
    node.ns_uri = intern(ns_uri);
    node.line   = line_of_start_tag();
    builder_.open(node);
    if (attribute_count > 0 || declaration_count > 0)
        read_attributes(declaration_count, declarations, attribute_count, attributes);
    if (prefixes_.size() > most_declared)
        fail_too_big(fmt::format("more than {} namespaces are declared in scope", most_declared));
    if (options_.only_utf8 && parser_->input->buf->encoder != nullptr)
        fail("a message has to be in UTF-8");
}

void XmlReader::read_attributes(int declaration_count, const xmlChar** declarations, int count,
                                const xmlChar** fields)
{
    std::vector<data::Attribute> attributes;
    OzkMapNode& node = builder_.opened();
    // Those of an <rpc> come back in its reply.
    const bool is_envelope = builder_.depth() == 1 && ozk::text(node.ns_uri) == data::NS_NETCONF;
    for (int i = 0; is_envelope && i < declaration_count; ++i, declarations += 2) // prefix, URI
        attributes.push_back(
            {"xmlns", std::string(view(declarations[0])), "", std::string(view(declarations[1]))});
    for (int i = 0; i < count; ++i, fields += 5) { // name, prefix, URI, value and its end
        const std::string_view value(reinterpret_cast<const char*>(fields[3]),
                                     static_cast<size_t>(fields[4] - fields[3]));
        const auto edit = ozk::edit_from_name(value);
        if (edit && options_.takes_operations && !is_envelope && view(fields[0]) == "operation" &&
            view(fields[2]) == data::NS_NETCONF) {
            node.edit                = static_cast<uint8_t>(*edit);
            node.edit_is_own         = 1;
            document_.has_operations = true;
        } else {
            attributes.push_back({std::string(view(fields[1])), std::string(view(fields[0])),
                                  std::string(view(fields[2])), std::string(value)});
        }
    }
    if (is_envelope && options_.rpc_attributes != nullptr && ozk::text(node.tag) == "rpc")
        *options_.rpc_attributes = attributes;
    if (!attributes.empty())
        builder_.add_attributes(std::move(attributes));
}

void XmlReader::end_element()
{
    const bool is_blank = data::trim(text_).empty();
    OzkMapNode& node    = builder_.opened();
    if (!builder_.has_children()) {
        if (!is_blank)
            ozk::Tree::set_value(node, document_.tree.keep(text_));
        if (!is_blank && has_prefix(data::trim(text_))) {
            node.marks |= ozk::MARK_PREFIXED;
            document_.has_prefixed = true;
        }
    } else if (!is_blank) {
        return fail(line(), fmt::format("text stands beside the elements in '{}'", node.tag),
                    "bad-element", node.tag);
    }
    text_.clear();
    prefixes_.resize(scopes_.back());
    scopes_.pop_back();
    builder_.close();
}

bool XmlReader::has_prefix(std::string_view value) const
{
    value.remove_prefix(value.starts_with('/') ? 1 : 0);
    const size_t colon = value.find(':');
    return colon != 0 && colon != value.npos &&
           std::ranges::find(prefixes_, value.substr(0, colon)) != prefixes_.end();
}

template <class Event>
void XmlReader::on_event(void* self, Event event)
{
    auto& reader             = *static_cast<XmlReader*>(self);
    reader.read_since_event_ = 0;
    if (reader.failed())
        return;
    try {
        event(reader);
    } catch (...) {
        reader.error_ = std::current_exception();
    }
}

/// The parser's event functions, each of which finds its reader by `self`.
xmlSAXHandler XmlReader::events()
{
    xmlSAXHandler events{};
    events.initialized    = XML_SAX2_MAGIC;
    events.startElementNs = [](void* self, const xmlChar* name, const xmlChar*,
                               const xmlChar* ns_uri, int declaration_count,
                               const xmlChar** declarations, int count, int,
                               const xmlChar** fields) {
        on_event(self, [&](XmlReader& reader) {
            reader.start_element(name, ns_uri, declaration_count, declarations, count, fields);
        });
    };
    events.endElementNs = [](void* self, const xmlChar*, const xmlChar*, const xmlChar*) {
        on_event(self, [](XmlReader& reader) { reader.end_element(); });
    };
    // CDATA comes this way too.
    events.characters = [](void* self, const xmlChar* text, int length) {
        on_event(self, [&](XmlReader& reader) {
            reader.text_.append(reinterpret_cast<const char*>(text), static_cast<size_t>(length));
        });
    };
    events.ignorableWhitespace = events.characters;
    // Comments and processing instructions say nothing to us, but they are no tag that goes on.
    events.comment = [](void* self, const xmlChar*) { on_event(self, [](XmlReader&) {}); };
    events.processingInstruction = [](void* self, const xmlChar*, const xmlChar*) {
        on_event(self, [](XmlReader&) {});
    };
    // Called before the first declaration is read: no entity is ever defined.
    events.internalSubset = [](void* self, const xmlChar*, const xmlChar*, const xmlChar*) {
        on_event(self, [](XmlReader& reader) { reader.fail("a DOCTYPE is not accepted"); });
    };
    events.serror = [](void* self, xmlErrorPtr error) {
        if (error->level < XML_ERR_ERROR)
            return;
        on_event(self, [&](XmlReader& reader) {
            const std::string_view message =
                error->message != nullptr ? error->message : "malformed";
            reader.fail(static_cast<uint32_t>(error->line), message.substr(0, message.find('\n')));
        });
    };
    return events;
}

int XmlReader::read_more(char* buffer, int size)
{
    constexpr std::string_view framed = "]]>]]>";
    if (failed())
        return -1;
    try {
        const size_t count = source_(buffer, static_cast<size_t>(size));
        const std::string_view bytes(buffer, count);
        if (!has_read_) // a chunk's size comes first
            is_framed_ = bytes.starts_with("\n#") || bytes.starts_with('#');
        has_read_ = true;
        if (parser_ != nullptr && (parser_->instate == XML_PARSER_CONTENT ||
                                   parser_->instate == XML_PARSER_ATTRIBUTE_VALUE))
            read_since_event_ += count;
        else
            read_since_event_ = 0;
        tail_.append(bytes);
        is_framed_ |= tail_.find(framed) != tail_.npos;
        tail_.erase(0, tail_.size() - std::min(tail_.size(), framed.size() - 1));
        if (read_since_event_ > longest_tag)
            fail_too_big(fmt::format("a tag is longer than {} bytes", longest_tag));
        if (parser_ != nullptr && xmlDictSize(parser_->dict) > most_names)
            fail_too_big(fmt::format("there are more than {} names in it", most_names));
        return failed() ? -1 : static_cast<int>(count);
    } catch (...) {
        error_ = std::current_exception();
        return -1;
    }
}

void XmlReader::read()
{
    xmlSAXHandler handler = events();
    const auto read       = [](void* self, char* buffer, int size) {
        return static_cast<XmlReader*>(self)->read_more(buffer, size);
    };
    parser_ = xmlCreateIOParserCtxt(&handler, this, read, nullptr, this, XML_CHAR_ENCODING_NONE);
    if (parser_ == nullptr && !failed())
        throw std::bad_alloc();
    if (parser_ != nullptr) {
        const auto free_parser = [](xmlParserCtxtPtr parser) {
            xmlFreeDoc(parser->myDoc); // made where the document names an entity
            xmlFreeParserCtxt(parser);
        };
        const std::unique_ptr<xmlParserCtxt, decltype(free_parser)> owner(parser_, free_parser);
        // Without NOENT the value of an attribute would come with "&#38;" for an ampersand. Only
        // the five entities of XML itself are ever known.
        xmlCtxtUseOptions(parser_, XML_PARSE_NONET | XML_PARSE_NOENT);
        if (xmlParseDocument(parser_) != 0 && !failed())
            fail("malformed XML");
    }
    if (failed() && is_framed_)
        throw InputError(document_.name, 0,
                         "framed as on the wire (RFC 6242, 4): take the document out of its frame");
    if (failed())
        std::rethrow_exception(error_);
    builder_.finish();
}

} // namespace

Document read_xml(const std::string& name, const Source& source, const ReadOptions& options)
{
    Document document{name};
    XmlReader(document, source, options).read();
    return document;
}

} // namespace ymap::formats
