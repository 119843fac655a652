// The envelope of a request, read off the tree of its document.

#include "request.h"

#include <algorithm>
#include <array>
#include <utility>

#include <fmt/core.h>

#include "text.h"

namespace ymap::agent {

namespace {

using data::NS_NETCONF;
using ozk::children;
using ozk::text;

/// Clients leave the namespace out where they build a filter or a configuration by hand.
bool is_netconf(const OzkMapNode& node, std::string_view tag)
{
    return text(node.tag) == tag && (node.ns_uri == nullptr || text(node.ns_uri) == NS_NETCONF);
}

bool is_of_netconf(const OzkMapNode& node)
{
    return text(node.ns_uri) == NS_NETCONF;
}

[[noreturn]] void fail_attribute(const data::Document& document, const OzkMapNode* content,
                                 const char* tag, const std::string& message,
                                 const OzkMapNode& node, std::string_view attribute)
{
    Error error = error_at(tag, message, content != nullptr ? *content : document.tree.top(), node);
    error.type  = content != nullptr ? "application" : "protocol";
    error.bad_element   = node.tag;
    error.bad_attribute = attribute;
    throw RequestError(error);
}

/// Neither an operation without its prefix nor any other attribute may be passed over: the request
/// would do more or less than it says. Without `content`, `node` is of the envelope.
void refuse_attributes(const data::Document& document, const OzkMapNode* content,
                       const OzkMapNode& node, std::string_view but_for = {})
{
    const auto fail = [&](const char* tag, const std::string& message, std::string_view attribute) {
        fail_attribute(document, content, tag, message, node, attribute);
    };
    if (node.edit_is_own != 0 && content == nullptr)
        fail("bad-attribute", fmt::format("'{}' is no data that an operation is for", node.tag),
             "operation");
    for (const data::Attribute& each : document.attributes_of(node)) {
        if (!but_for.empty() && each.name == but_for &&
            (each.ns_uri.empty() || each.ns_uri == NS_NETCONF))
            continue;
        if (each.ns_uri == NS_NETCONF && each.name == "operation")
            fail("bad-attribute",
                 fmt::format("unknown operation '{}' of '{}'", each.value, node.tag), each.name);
        fail("unknown-attribute",
             each.ns_uri.empty()
                 ? fmt::format("attribute '{}' of '{}' has no namespace and is not supported",
                               each.name, node.tag)
                 : fmt::format("attribute '{}:{}' of '{}' is not supported", each.prefix, each.name,
                               node.tag),
             each.name);
    }
}

class EnvelopeReader {
public:
    EnvelopeReader(Request& request, const RequestOptions& options)
        : request_(request), options_(options)
    {
    }

    void read()
    {
        OzkMapNode& top       = request_.document.tree.top();
        OzkMapNode& outermost = children(top).front();
        if (is_of_netconf(outermost) && text(outermost.tag) == "rpc")
            return read_rpc(outermost);
        const auto refuse = [&](const std::string& message) {
            fail("malformed-message", message, outermost);
        };
        if (is_netconf(outermost, "rpc"))
            refuse(fmt::format("an rpc without the namespace of NETCONF, {}", NS_NETCONF));
        if (is_of_netconf(outermost))
            refuse(
                fmt::format("'{}', where an rpc or a bare data tree is expected", outermost.tag));
        // The root first: an unknown one is the greater fault, whatever the operation.
        const auto ns_uri = text(outermost.ns_uri);
        const bool is_known =
            std::ranges::find(model_roots(), ns_uri, &ModelRoot::ns_uri) != model_roots().end();
        if (!is_known)
            refuse(fmt::format("unknown namespace '{}' of root '{}'", ns_uri, outermost.tag));
        if (find_root(outermost) == nullptr)
            refuse(fmt::format("unknown root '{}' of namespace '{}'", outermost.tag, ns_uri));
        if (!options_.bare_op_code)
            refuse("a bare data tree: say with --op get, get-config or edit what to do with it");
        request_.op_code = *options_.bare_op_code;
        take_content(top);
    }

    void read_config(OzkMapNode& config)
    {
        request_.op_code = MAP_OP_EDIT;
        if (config.value != nullptr)
            fail("bad-element", "text is not expected in config", config);
        take_content(config);
    }

private:
    [[noreturn]] void fail(const char* tag, const std::string& message,
                           const OzkMapNode& node) const
    {
        Error error       = error_at(tag, message, node);
        error.type        = "protocol";
        error.bad_element = node.tag;
        throw RequestError(error);
    }

    /// An error about a root or a node below one is told from the root on.
    Error error_at(const char* tag, const std::string& message, const OzkMapNode& node) const
    {
        return agent::error_at(
            tag, message,
            request_.content != nullptr ? *request_.content : request_.document.tree.top(), node);
    }

    [[noreturn]] void fail_missing(const char* name, const std::string& message,
                                   const OzkMapNode& operation) const
    {
        Error error       = error_at("missing-element", message, operation);
        error.type        = "protocol";
        error.bad_element = name;
        throw RequestError(error);
    }

    void read_rpc(OzkMapNode& rpc);
    void read_get(OzkMapNode& operation);
    void read_edit(OzkMapNode& operation);
    /// The parameters of `operation` by the places of their names in `names`; null for a missing
    /// one. Fails for any other, and for a second one.
    template <size_t count>
    std::array<OzkMapNode*, count> parameters(OzkMapNode& operation,
                                              const std::array<std::string_view, count>& names);
    void require_datastore(const OzkMapNode* parameter, const char* name,
                           const OzkMapNode& operation) const;
    std::string_view choice(const OzkMapNode* parameter,
                            std::initializer_list<std::string_view> choices) const;
    void check_filter(const OzkMapNode& filter) const;
    void take_content(OzkMapNode& content);
    /// Gives each node the operation that holds for it.
    void inherit_operations(OzkMapNode& node, ozk::Edit operation) const;
    void mark_matches(OzkMapNode& node) const;
    void find_namespaces(OzkMapNode& filter);

    Request& request_;
    const RequestOptions& options_;
};

void EnvelopeReader::read_rpc(OzkMapNode& rpc)
{
    request_.is_rpc = true;
    if (rpc.value != nullptr)
        fail("bad-element", "text is not expected here", rpc);
    const auto operations = children(rpc);
    if (operations.empty()) // RFC 6241, appendix B, has that name for any of them
        fail_missing("rpcOperation", "the rpc holds no operation", rpc);
    if (operations.size() > 1)
        fail("bad-element",
             fmt::format("element '{}' follows the operation of the rpc", operations[1].tag),
             operations[1]);
    OzkMapNode& operation = operations.front();
    if (!is_of_netconf(operation) ||
        (text(operation.tag) != "get" && text(operation.tag) != "get-config" &&
         text(operation.tag) != "edit-config"))
        fail("operation-not-supported",
             fmt::format("operation '{}' is not supported: get, get-config or edit-config is "
                         "expected",
                         operation.tag),
             operation);
    if (operation.value != nullptr)
        fail("bad-element", fmt::format("text is not expected in {}", operation.tag), operation);
    agent::refuse_attributes(request_.document, operation);
    if (text(operation.tag) == "edit-config")
        return read_edit(operation);
    request_.op_code = text(operation.tag) == "get" ? MAP_OP_GET : MAP_OP_GET_CONFIG;
    read_get(operation);
}

template <size_t count>
std::array<OzkMapNode*, count>
EnvelopeReader::parameters(OzkMapNode& operation, const std::array<std::string_view, count>& names)
{
    std::array<OzkMapNode*, count> found{};
    for (OzkMapNode& parameter : children(operation)) {
        const auto name = std::ranges::find_if(
            names, [&](std::string_view each) { return is_netconf(parameter, each); });
        if (name == names.end() && !is_of_netconf(parameter))
            throw RequestError(of_other_namespace(parameter, operation));
        if (name == names.end())
            fail("unknown-element",
                 fmt::format("element '{}' is not supported in {}", parameter.tag, operation.tag),
                 parameter);
        OzkMapNode*& place = found[static_cast<size_t>(name - names.begin())];
        if (place != nullptr)
            fail("bad-element", fmt::format("a second '{}' in {}", parameter.tag, operation.tag),
                 parameter);
        place = &parameter;
    }
    return found;
}

/// RFC 6241, 7.1 and 7.2: <source> and <target> hold the name of a datastore as an element.
void EnvelopeReader::require_datastore(const OzkMapNode* parameter, const char* name,
                                       const OzkMapNode& operation) const
{
    if (parameter == nullptr)
        fail_missing(name, fmt::format("{} has no '{}'", operation.tag, name), operation);
    const auto names = children(*parameter);
    if (names.size() != 1)
        fail("bad-element", fmt::format("one datastore is expected in '{}'", name), *parameter);
    const auto is_it = [&](std::string_view each) { return is_netconf(names.front(), each); };
    if (!text(names.front().ns_uri).empty() && !is_of_netconf(names.front()))
        throw RequestError(of_other_namespace(names.front(), *parameter));
    if (std::ranges::none_of(options_.datastores, is_it))
        fail("invalid-value",
             fmt::format("'{}' is not supported as the {} of {}", names.front().tag, name,
                         operation.tag),
             names.front());
    if (names.front().value != nullptr || !children(names.front()).empty())
        fail("bad-element", fmt::format("'{}' is no empty element", names.front().tag),
             names.front());
}

/// The value of a parameter, which has to be one of `choices`; the first without the parameter.
std::string_view EnvelopeReader::choice(const OzkMapNode* parameter,
                                        std::initializer_list<std::string_view> choices) const
{
    if (parameter == nullptr)
        return *choices.begin();
    if (!children(*parameter).empty())
        fail("bad-element",
             fmt::format("element '{}' is not expected in {}", children(*parameter).front().tag,
                         parameter->tag),
             children(*parameter).front());
    const std::string_view value = data::trim(text(parameter->value));
    if (std::ranges::find(choices, value) == choices.end())
        fail("invalid-value", fmt::format("unknown {} '{}'", parameter->tag, value), *parameter);
    return value;
}

void EnvelopeReader::check_filter(const OzkMapNode& filter) const
{
    for (const data::Attribute& attribute : request_.document.attributes_of(filter))
        if (attribute.name == "type" && attribute.value != "subtree")
            fail_attribute(request_.document, nullptr, "bad-attribute",
                           fmt::format("a filter of type '{}' is not supported, only of type "
                                       "'subtree'",
                                       attribute.value),
                           filter, attribute.name);
    refuse_attributes(request_.document, nullptr, filter, "type");
    if (filter.value != nullptr)
        fail("bad-element", "text is not expected in filter", filter);
}

void EnvelopeReader::read_get(OzkMapNode& operation)
{
    OzkMapNode* filter = nullptr;
    if (request_.op_code == MAP_OP_GET) {
        filter = parameters<1>(operation, {"filter"})[0];
    } else {
        const auto found = parameters<2>(operation, {"source", "filter"});
        require_datastore(found[0], "source", operation);
        filter = found[1];
    }
    if (filter == nullptr) {
        request_.reads_all = true;
        return;
    }
    check_filter(*filter);
    take_content(*filter);
}

void EnvelopeReader::read_edit(OzkMapNode& operation)
{
    const auto [target, default_operation, test_option, error_option, config] = parameters<5>(
        operation, {"target", "default-operation", "test-option", "error-option", "config"});
    require_datastore(target, "target", operation);
    const std::string_view operation_name = choice(default_operation, {"merge", "replace", "none"});
    request_.default_operation = ozk::edit_from_name(operation_name).value_or(ozk::Edit::none);
    request_.test_only = choice(test_option, {"test-then-set", "set", "test-only"}) == "test-only";
    // An edit is carried out as a whole or not at all, so that there is nothing to stop or to roll
    // back; but to go on after an error would be another thing.
    if (choice(error_option, {"stop-on-error", "rollback-on-error", "continue-on-error"}) ==
        "continue-on-error")
        fail("operation-not-supported", "error-option 'continue-on-error' is not supported",
             *error_option);
    if (config == nullptr)
        fail_missing("config", "edit-config holds no config", operation);
    read_config(*config);
}

void EnvelopeReader::take_content(OzkMapNode& content)
{
    request_.content = &content;
    if (!request_.is_edit()) {
        const data::Document& document = request_.document;
        // Data as a bare tree, which may be large, mostly has neither.
        if (!document.attributes.empty() || document.has_operations)
            for (OzkMapNode& root : children(content))
                mark_matches(root);
        find_namespaces(content);
        return;
    }
    content.edit        = static_cast<uint8_t>(request_.default_operation);
    content.edit_is_own = 0;
    for (OzkMapNode& root : children(content))
        inherit_operations(root, request_.default_operation);
}

void EnvelopeReader::inherit_operations(OzkMapNode& node, ozk::Edit operation) const
{
    refuse_attributes(request_.document, request_.content, node);
    if (node.edit_is_own == 0)
        node.edit = static_cast<uint8_t>(operation);
    for (OzkMapNode& child : children(node))
        inherit_operations(child, ozk::edit_of(node));
}

/// RFC 6241, 6.2.2: nothing is like a node with an attribute that data doesn't have.
void EnvelopeReader::mark_matches(OzkMapNode& node) const
{
    const auto& attributes = request_.document.attributes_of(node);
    if (node.edit_is_own != 0 || std::ranges::any_of(attributes, [](const data::Attribute& each) {
            return each.prefix != "xmlns";
        }))
        node.marks |= ozk::MARK_MATCHES_NONE;
    for (OzkMapNode& child : children(node))
        mark_matches(child);
}

/// RFC 6241, 6.2.1: a node without a namespace stands for one of any; of roots, which they are is
/// known.
void EnvelopeReader::find_namespaces(OzkMapNode& filter)
{
    const auto is_without = [](const OzkMapNode& root) { return text(root.ns_uri).empty(); };
    if (std::ranges::none_of(children(filter), is_without))
        return;
    std::vector<OzkMapNode> roots;
    for (const OzkMapNode& root : children(filter)) {
        const size_t before = roots.size();
        for (const ModelRoot& known : model_roots())
            if (is_without(root) && text(root.tag) == known.name &&
                (!known.is_state || request_.op_code == MAP_OP_GET))
                roots.emplace_back(root).ns_uri = known.ns_uri;
        if (roots.size() == before)
            roots.push_back(root);
    }
    request_.document.tree.set_children(filter, roots);
}

} // namespace

Error of_other_namespace(const OzkMapNode& node, const OzkMapNode& parent)
{
    Error error{"unknown-namespace", data::for_message(fmt::format(
                                         "element '{}' of namespace '{}' is not supported in {}",
                                         node.tag, text(node.ns_uri), parent.tag))};
    error.line          = node.line;
    error.type          = "protocol";
    error.bad_element   = node.tag;
    error.bad_namespace = text(node.ns_uri);
    return error;
}

Error error_at(const char* tag, const std::string& message, const OzkMapNode& top,
               const OzkMapNode& node)
{
    data::InstancePaths paths(top, list_keys());
    Error error{tag, data::for_message(message)};
    error.path       = paths.of(node);
    error.error_path = error_path(paths, node);
    error.line       = node.line;
    return error;
}

std::string error_path(data::InstancePaths& paths, const OzkMapNode& node)
{
    bool is_known          = true;
    const std::string path = paths.of(node, [&](const char* ns_uri) {
        if (text(ns_uri) == NS_NETCONF)
            return NETCONF_PREFIX;
        const Module* module = find_module(text(ns_uri));
        is_known &= module != nullptr || text(ns_uri).empty();
        return module != nullptr ? std::string_view(module->prefix) : std::string_view();
    });
    return is_known ? path : std::string();
}

Request parse_request(data::Document document, const RequestOptions& options)
{
    Request request{.document = std::move(document)};
    EnvelopeReader(request, options).read();
    return request;
}

void refuse_attributes(const data::Document& document, const OzkMapNode& operation)
{
    if (is_netconf(operation, "filter"))
        return;
    refuse_attributes(document, nullptr, operation);
    if (!is_netconf(operation, "config"))
        for (const OzkMapNode& child : children(operation))
            refuse_attributes(document, child);
}

Request parse_config(data::Document document, OzkMapNode& config)
{
    Request request{.document = std::move(document)};
    EnvelopeReader(request, {}).read_config(config);
    return request;
}

namespace {

/// Entries begin with their keys, in the order of their model (RFC 7950, 7.8.5): those of the list
/// at `path` below `parent`.
void put_keys_first(OzkMapNode& parent, std::string_view path, const data::ListKeys& keys)
{
    const size_t end = path.find('/', 1);
    for (OzkMapNode& child : children(parent)) {
        if (text(child.tag) != path.substr(1, end - 1) || text(child.ns_uri) != keys.ns_uri)
            continue;
        if (end != path.npos) {
            put_keys_first(child, path.substr(end), keys);
            continue;
        }
        const auto all = children(child);
        auto place     = all.begin();
        for (const char* leaf : keys.leaves) {
            const auto key = std::find_if(place, all.end(), [&](const OzkMapNode& each) {
                return ozk::is_named(each, leaf, keys.ns_uri);
            });
            // Attributes are known by the place of their node.
            if (key == all.end() || std::any_of(place, key + 1, [](const OzkMapNode& each) {
                    return (each.marks & ozk::MARK_ATTRIBUTES) != 0;
                }))
                break;
            std::rotate(place++, key, key + 1);
        }
    }
}

} // namespace

OzkMapNode& data_of(data::Document& document)
{
    OzkMapNode* content = &document.tree.top();
    const auto is_only  = [&](std::string_view tag) {
        return children(*content).size() == 1 && is_netconf(children(*content).front(), tag);
    };
    const auto fail = [](const std::string& message, const OzkMapNode& node) {
        Error error{"bad-element", message};
        error.line = node.line;
        throw RequestError(error);
    };
    if (is_only("rpc-reply"))
        content = &children(*content).front();
    if (is_only("data") || is_only("config"))
        content = &children(*content).front();
    if (content->value != nullptr)
        fail("text stands where data is expected", *content);
    for (const OzkMapNode& root : children(*content)) {
        const ModelRoot* known = find_root(root);
        if (is_netconf(root, "rpc"))
            fail("an rpc, where native data is expected", root);
        if (known == nullptr)
            fail(fmt::format("unknown root '{}' of namespace '{}'", root.tag, text(root.ns_uri)),
                 root);
        if (known->is_clients)
            fail(fmt::format("/{} is no native data, but of the clients' model", root.tag), root);
    }
    for (const data::ListKeys& keys : list_keys())
        put_keys_first(*content, keys.path, keys);
    return *content;
}

} // namespace ymap::agent
