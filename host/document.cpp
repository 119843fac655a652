// Reader of documents. It takes the parser's events and builds the records of the input tree as it
// goes, so that a document of hundreds of megabytes needs no second copy in memory.
//
// A document comes from the network: there is no DTD, no entity of its own, no file but the one
// named, and no recursion here; the depth of the tree is limited.

#include "document.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>
#include <tuple>
#include <utility>

#include <fmt/core.h>
#include <libxml/parser.h>

#include "input_error.h"

namespace ymap::host {

namespace {

/// What an element of the document is, which decides what may stand in it.
enum class Place : uint8_t {
    document,          // not an element: what the outermost one stands in
    rpc,               // <rpc>
    operation,         // <get>, <get-config> or <edit-config>
    skipped,           // a parameter that doesn't matter to a map, and all below it
    default_operation, // <default-operation>
    content,           // <filter> or <config>, whose children are roots
    data,              // a root or a node below one
};

std::string_view view(const xmlChar* text)
{
    return text != nullptr ? std::string_view(reinterpret_cast<const char*>(text))
                           : std::string_view();
}

/// `text` without the white space of XML around it.
std::string_view trim(std::string_view text)
{
    constexpr char white[] = " \t\r\n";
    const size_t first     = text.find_first_not_of(white);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(white) - first + 1);
}

/// An attribute, as the parser hands it over.
struct Attribute {
    std::string_view name;
    std::string_view ns_uri;
    std::string_view value;
};

class Reader {
public:
    Reader(std::string name, const ReadOptions& options) : options_(options)
    {
        request_.document = std::move(name);
    }

    Request read(FILE* file);

private:
    using Attributes = std::vector<Attribute>;

    // Events. None does anything once an error is known.
    void start_element(std::string_view name, std::string_view ns_uri, const Attributes&);
    void end_element();
    void text(std::string_view piece);

    Place place_in_document(std::string_view name, std::string_view ns_uri, const Attributes&);
    Place place_in_rpc(std::string_view name, std::string_view ns_uri);
    Place place_in_operation(std::string_view name, std::string_view ns_uri, const Attributes&);
    void check_filter(const Attributes&);
    void start_data(std::string_view name, std::string_view ns_uri, const Attributes&);
    void end_data();
    void read_data_attributes(const Attributes&, OzkMapNode& node);
    void end_operation();
    void end_default_operation();

    bool is_edit() const { return request_.op_code == MAP_OP_EDIT; }
    uint32_t line() const;
    uint32_t line_of_start_tag() const;
    /// More of the document has come. False, with an error kept, if a tag goes on and on.
    bool take_more(size_t bytes);
    void keep_error(uint32_t line, std::string_view message);
    /// Keeps the first error and stops the parser.
    void fail(uint32_t line, std::string_view message);
    void fail(std::string_view message) { fail(line(), message); }
    bool failed() const { return !error_.empty(); }

    static xmlSAXHandler events();

    const ReadOptions& options_;
    Request request_;
    std::string error_;
    xmlParserCtxtPtr parser_ = nullptr;
    size_t read_since_event_ = 0; ///< bytes that the parser took in without an event

    std::vector<Place> places_ = {Place::document}; // of the elements that are open
    std::string text_;                              // read since the last tag
    bool has_operation_ = false;
    bool has_content_   = false;
    std::string operation_;                          // name of the element, for messages
    ozk::Edit default_operation_ = ozk::Edit::merge; // RFC 6241, 7.2

    // Nodes of the root being read, in document order. The children of an open node are all that
    // stand behind it; when it closes they move to an array of their own in the tree.
    std::vector<OzkMapNode> nodes_;
    std::vector<size_t> open_nodes_; // places in nodes_
};

uint32_t Reader::line() const
{
    return parser_->input != nullptr ? static_cast<uint32_t>(parser_->input->line) : 0;
}

/// The parser stands behind the attributes of the tag, which may be lines further down.
uint32_t Reader::line_of_start_tag() const
{
    uint32_t result = line();
    for (const xmlChar* c = parser_->input->cur; c > parser_->input->base && *c != '<'; --c)
        if (*c == '\n')
            --result;
    return result;
}

/// The parser compares each attribute of a tag with all others before it shows the tag, so that a
/// tag of megabytes would take it hours. Text, on the other hand, comes in pieces.
bool Reader::take_more(size_t bytes)
{
    constexpr size_t longest_tag = 1 << 16;
    const bool in_tag =
        parser_->instate == XML_PARSER_CONTENT || parser_->instate == XML_PARSER_ATTRIBUTE_VALUE;
    read_since_event_ = in_tag ? read_since_event_ + bytes : 0;
    if (read_since_event_ <= longest_tag)
        return true;
    keep_error(line(), fmt::format("a tag is longer than {} bytes", longest_tag));
    return false;
}

void Reader::keep_error(uint32_t line, std::string_view message)
{
    const std::string text = for_message(std::string(message));
    error_                 = line != 0 ? fmt::format("{}:{}: {}", request_.document, line, text)
                                       : fmt::format("{}: {}", request_.document, text);
}

void Reader::fail(uint32_t line, std::string_view message)
{
    if (failed())
        return;
    keep_error(line, message);
    xmlStopParser(parser_);
}

void Reader::start_element(std::string_view name, std::string_view ns_uri,
                           const Attributes& attributes)
{
    const Place parent = places_.back();
    if (places_.size() > options_.depth_limit)
        return fail(fmt::format("element '{}' is nested deeper than {} levels", name,
                                options_.depth_limit));
    if (parent != Place::skipped && !trim(text_).empty())
        return fail(fmt::format("text and element '{}' stand side by side", name));
    text_.clear();

    Place place = Place::data;
    switch (parent) {
    case Place::document: place = place_in_document(name, ns_uri, attributes); break;
    case Place::rpc: place = place_in_rpc(name, ns_uri); break;
    case Place::operation: place = place_in_operation(name, ns_uri, attributes); break;
    case Place::skipped: place = Place::skipped; break;
    case Place::default_operation:
        return fail(fmt::format("element '{}' is not expected in default-operation", name));
    case Place::content:
    case Place::data: break;
    }
    if (failed())
        return;
    places_.push_back(place);
    if (place == Place::data)
        start_data(name, ns_uri, attributes);
}

void Reader::end_element()
{
    const Place place = places_.back();
    const bool takes_text =
        place == Place::data || place == Place::default_operation || place == Place::skipped;
    if (!takes_text && !trim(text_).empty())
        return fail("text is not expected here");
    if (place == Place::data)
        end_data();
    else if (place == Place::default_operation)
        end_default_operation();
    else if (place == Place::operation)
        end_operation();
    else if (place == Place::rpc && !has_operation_)
        fail("the rpc holds no operation");
    text_.clear();
    places_.pop_back();
}

void Reader::text(std::string_view piece)
{
    if (places_.back() != Place::skipped)
        text_.append(piece);
}

Place Reader::place_in_document(std::string_view name, std::string_view ns_uri,
                                const Attributes& attributes)
{
    if (ns_uri != NS_NETCONF || name != "rpc") {
        // The root first: an unknown one is the greater fault, whatever the operation.
        if (find_root(ns_uri, name) != nullptr && !options_.op_code)
            fail("a bare data tree: say with --op get, get-config or edit what to do with it");
        request_.op_code = options_.op_code.value_or(MAP_OP_GET);
        return Place::data;
    }
    request_.is_rpc = true;
    for (const Attribute& attribute : attributes)
        if (attribute.name == "message-id" && attribute.ns_uri.empty())
            request_.message_id = attribute.value;
    return Place::rpc;
}

Place Reader::place_in_rpc(std::string_view name, std::string_view ns_uri)
{
    if (has_operation_)
        fail(fmt::format("element '{}' follows the operation of the rpc", name));
    else if (ns_uri == NS_NETCONF && name == "get")
        request_.op_code = MAP_OP_GET;
    else if (ns_uri == NS_NETCONF && name == "get-config")
        request_.op_code = MAP_OP_GET_CONFIG;
    else if (ns_uri == NS_NETCONF && name == "edit-config")
        request_.op_code = MAP_OP_EDIT;
    else
        fail(fmt::format("operation '{}' is not supported: get, get-config or edit-config is "
                         "expected",
                         name));
    has_operation_ = true;
    operation_     = name;
    return Place::operation;
}

Place Reader::place_in_operation(std::string_view name, std::string_view ns_uri,
                                 const Attributes& attributes)
{
    if (ns_uri == NS_NETCONF) {
        if (name == (is_edit() ? "config" : "filter")) {
            if (has_content_)
                fail(fmt::format("a second '{}' in {}", name, operation_));
            if (!is_edit())
                check_filter(attributes);
            has_content_ = true;
            return Place::content;
        }
        if (is_edit() && name == "default-operation") {
            // The parameters have an order (RFC 6241, 7.2); it lets the nodes be read in one go.
            if (has_content_)
                fail("default-operation stands behind config");
            return Place::default_operation;
        }
        if (is_edit() && (name == "target" || name == "test-option" || name == "error-option"))
            return Place::skipped;
        if (request_.op_code == MAP_OP_GET_CONFIG && name == "source")
            return Place::skipped;
    }
    fail(fmt::format("element '{}' is not supported in {}", name, operation_));
    return Place::skipped;
}

void Reader::check_filter(const Attributes& attributes)
{
    for (const Attribute& attribute : attributes) {
        const bool is_netconf = attribute.ns_uri.empty() || attribute.ns_uri == NS_NETCONF;
        if (is_netconf && attribute.name == "type" && attribute.value != "subtree")
            fail(fmt::format("a filter of type '{}' is not supported, only of type 'subtree'",
                             attribute.value));
    }
}

void Reader::end_default_operation()
{
    const std::string_view name = trim(text_);
    if (name == "merge")
        default_operation_ = ozk::Edit::merge;
    else if (name == "replace")
        default_operation_ = ozk::Edit::replace;
    else if (name == "none")
        default_operation_ = ozk::Edit::none;
    else
        fail(fmt::format("unknown default-operation '{}'", name));
}

void Reader::end_operation()
{
    if (has_content_)
        return;
    if (is_edit())
        return fail("edit-config holds no config");
    request_.reads_all = true;
    for (const ModelRoot& root : model_roots()) {
        if (!root.is_clients)
            continue;
        RequestRoot& read = request_.roots.emplace_back(RequestRoot{&root, ozk::InputTree()});
        OzkMapNode& node  = read.tree.root();
        node.tag          = root.name;
        node.ns_uri       = root.ns_uri;
        node.line         = line();
    }
}

void Reader::start_data(std::string_view name, std::string_view ns_uri,
                        const Attributes& attributes)
{
    if (open_nodes_.empty()) {
        const ModelRoot* root = find_root(ns_uri, name);
        if (root == nullptr) {
            return fail(is_model_namespace(ns_uri)
                            ? fmt::format("unknown root '{}' of namespace '{}'", name, ns_uri)
                            : fmt::format("unknown namespace '{}' of root '{}'", ns_uri, name));
        }
        request_.roots.push_back({root, ozk::InputTree()});
    }
    ozk::InputTree& tree = request_.roots.back().tree;
    OzkMapNode node{};
    node.tag    = tree.intern(name);
    node.ns_uri = ns_uri.empty() ? nullptr : tree.intern(ns_uri);
    node.line   = line_of_start_tag();
    if (is_edit()) {
        const ozk::Edit inherited = open_nodes_.empty()
                                        ? default_operation_
                                        : static_cast<ozk::Edit>(nodes_[open_nodes_.back()].edit);
        node.edit                 = static_cast<uint8_t>(inherited);
    }
    read_data_attributes(attributes, node);
    open_nodes_.push_back(nodes_.size());
    nodes_.push_back(node);
}

void Reader::read_data_attributes(const Attributes& attributes, OzkMapNode& node)
{
    for (const Attribute& attribute : attributes) {
        if (attribute.ns_uri.empty()) {
            // Neither an operation without its prefix nor a condition of a filter (RFC 6241, 6.2.2)
            // may be passed over: the request would do more than it says.
            return fail(fmt::format("attribute '{}' of '{}' has no namespace and is not supported",
                                    attribute.name, node.tag));
        }
        if (attribute.ns_uri != NS_NETCONF || attribute.name != "operation")
            continue;
        const auto edit = ozk::edit_from_name(attribute.value);
        if (!is_edit())
            return fail(fmt::format("'{}' has an operation, but the request is no edit", node.tag));
        if (!edit)
            return fail(fmt::format("unknown operation '{}' of '{}'", attribute.value, node.tag));
        node.edit        = static_cast<uint8_t>(*edit);
        node.edit_is_own = 1;
    }
}

void Reader::end_data()
{
    ozk::InputTree& tree         = request_.roots.back().tree;
    const size_t place           = open_nodes_.back();
    const size_t count           = nodes_.size() - place - 1;
    const std::string_view value = trim(text_);
    OzkMapNode& node             = nodes_[place];
    if (count > 0) {
        if (!value.empty())
            return fail(fmt::format("text stands beside the elements in '{}'", node.tag));
        OzkMapNode* children = tree.make_children(node, static_cast<uint32_t>(count));
        std::copy(nodes_.begin() + static_cast<ptrdiff_t>(place) + 1, nodes_.end(), children);
        nodes_.resize(place + 1);
    } else if (!value.empty()) {
        node.value = tree.keep(value);
        node.flags |= MAP_NODE_HAS_VALUE;
    }
    open_nodes_.pop_back();
    if (open_nodes_.empty()) {
        tree.root() = node;
        nodes_.clear();
    }
}

/// The parser's event functions, each of which finds its reader behind `self`.
xmlSAXHandler Reader::events()
{
    xmlSAXHandler events{};
    events.initialized    = XML_SAX2_MAGIC;
    events.startElementNs = [](void* self, const xmlChar* name, const xmlChar*,
                               const xmlChar* ns_uri, int, const xmlChar**, int count, int,
                               const xmlChar** fields) {
        auto& reader             = *static_cast<Reader*>(self);
        reader.read_since_event_ = 0;
        if (reader.failed())
            return;
        Attributes attributes;
        for (int i = 0; i < count; ++i, fields += 5) { // name, prefix, URI, value and its end
            const char* value = reinterpret_cast<const char*>(fields[3]);
            attributes.push_back({view(fields[0]),
                                  view(fields[2]),
                                  {value, static_cast<size_t>(fields[4] - fields[3])}});
        }
        reader.start_element(view(name), view(ns_uri), attributes);
    };
    events.endElementNs = [](void* self, const xmlChar*, const xmlChar*, const xmlChar*) {
        auto& reader             = *static_cast<Reader*>(self);
        reader.read_since_event_ = 0;
        if (!reader.failed())
            reader.end_element();
    };
    // CDATA comes this way too.
    events.characters = [](void* self, const xmlChar* text, int length) {
        auto& reader             = *static_cast<Reader*>(self);
        reader.read_since_event_ = 0;
        if (!reader.failed())
            reader.text({reinterpret_cast<const char*>(text), static_cast<size_t>(length)});
    };
    events.ignorableWhitespace = events.characters;
    // Comments and processing instructions say nothing to us, but they are no tag that goes on.
    events.comment = [](void* self, const xmlChar*) {
        static_cast<Reader*>(self)->read_since_event_ = 0;
    };
    events.processingInstruction = [](void* self, const xmlChar*, const xmlChar*) {
        static_cast<Reader*>(self)->read_since_event_ = 0;
    };
    // Called before the first declaration is read: no entity is ever defined.
    events.internalSubset = [](void* self, const xmlChar*, const xmlChar*, const xmlChar*) {
        static_cast<Reader*>(self)->fail("a DOCTYPE is not accepted");
    };
    events.serror = [](void* self, xmlErrorPtr error) {
        if (error->level < XML_ERR_ERROR)
            return;
        const std::string_view message = error->message != nullptr ? error->message : "malformed";
        static_cast<Reader*>(self)->fail(static_cast<uint32_t>(error->line),
                                         message.substr(0, message.find('\n')));
    };
    return events;
}

Request Reader::read(FILE* file)
{
    int read_error = 0;
    auto source    = std::tuple(this, file, &read_error);
    auto read_more = [](void* context, char* buffer, int size) {
        auto& [reader, from, error] = *static_cast<decltype(source)*>(context);
        const size_t count          = fread(buffer, 1, static_cast<size_t>(size), from);
        if (reader->parser_ != nullptr && !reader->take_more(count))
            return -1; // the parser must not be stopped from here
        if (count == 0 && ferror(from) != 0)
            *error = errno;
        return static_cast<int>(count);
    };
    xmlSAXHandler handler = events();
    parser_ =
        xmlCreateIOParserCtxt(&handler, this, read_more, nullptr, &source, XML_CHAR_ENCODING_NONE);
    if (parser_ == nullptr)
        throw std::bad_alloc();
    const std::unique_ptr<xmlParserCtxt, decltype(&xmlFreeParserCtxt)> owner(parser_,
                                                                             xmlFreeParserCtxt);
    xmlCtxtUseOptions(parser_, XML_PARSE_NONET);
    const int status = xmlParseDocument(parser_);
    if (read_error != 0)
        throw InputError(
            fmt::format("{}: cannot read: {}", request_.document, std::strerror(read_error)));
    if (!failed() && status != 0)
        fail("malformed XML");
    if (failed())
        throw InputError(error_);
    return std::move(request_);
}

using File = std::unique_ptr<FILE, int (*)(FILE*)>;

File open_file(const std::string& path)
{
    if (path == "-")
        return File(stdin, [](FILE*) { return 0; });
    File file(std::fopen(path.c_str(), "rb"), std::fclose);
    if (!file)
        throw InputError(fmt::format("{}: cannot open: {}", path, std::strerror(errno)));
    return file;
}

} // namespace

std::string name_of_document(const std::string& path)
{
    return path == "-" ? "(standard input)" : path;
}

Request read_document(const std::string& path, const ReadOptions& options)
{
    const File file = open_file(path);
    return Reader(name_of_document(path), options).read(file.get());
}

Request parse_document(const std::string& name, const std::string& text, const ReadOptions& options)
{
    const File file(fmemopen(const_cast<char*>(text.data()), text.size(), "rb"), std::fclose);
    if (!file)
        throw std::bad_alloc();
    return Reader(name, options).read(file.get());
}

std::string read_bytes(const std::string& path)
{
    const File file = open_file(path);
    std::string bytes;
    char buffer[1 << 16];
    while (const size_t count = fread(buffer, 1, sizeof buffer, file.get()))
        bytes.append(buffer, count);
    if (ferror(file.get()) != 0)
        throw InputError(
            fmt::format("{}: cannot read: {}", name_of_document(path), std::strerror(errno)));
    return bytes;
}

} // namespace ymap::host
