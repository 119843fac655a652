// The operations of a NETCONF server.

#include "server.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <ctime>
#include <new>
#include <optional>
#include <utility>

#include <fmt/core.h>

#include "edit.h"
#include "filter.h"
#include "reader.h"
#include "reply.h"
#include "text.h"

namespace ymap::netconf {

namespace {

using agent::Error;
using agent::RequestError;
using data::NS_NETCONF;
using ozk::children;
using ozk::text;

constexpr char BASE_1_0[] = "urn:ietf:params:netconf:base:1.0";
constexpr char BASE_1_1[] = "urn:ietf:params:netconf:base:1.1";

constexpr std::string_view datastores[] = {"running"};

[[noreturn]] void fail(const char* tag, const std::string& message, const char* type = "protocol",
                       std::string_view bad_element = {})
{
    Error error{tag, data::for_message(message)};
    error.type        = type;
    error.bad_element = bad_element;
    throw RequestError(error);
}

bool is_of_netconf(const OzkMapNode& node)
{
    return text(node.ns_uri) == NS_NETCONF;
}

/// The parameters of `operation`, which are of its namespace, by the places of their names; null
/// for one that is missing.
template <size_t count>
std::array<OzkMapNode*, count> parameters(OzkMapNode& operation,
                                          const std::array<std::string_view, count>& names)
{
    std::array<OzkMapNode*, count> found{};
    if (operation.value != nullptr)
        fail("bad-element", fmt::format("text is not expected in {}", operation.tag), "protocol",
             operation.tag);
    for (OzkMapNode& parameter : children(operation)) {
        const auto name = std::find(names.begin(), names.end(), text(parameter.tag));
        if (!ozk::same_text(parameter.ns_uri, operation.ns_uri))
            throw RequestError(agent::of_other_namespace(parameter, operation));
        if (name == names.end())
            fail("unknown-element",
                 fmt::format("element '{}' is not supported in {}", parameter.tag, operation.tag),
                 "protocol", parameter.tag);
        OzkMapNode*& place = found[static_cast<size_t>(name - names.begin())];
        if (place != nullptr)
            fail("bad-element", fmt::format("a second '{}' in {}", parameter.tag, operation.tag),
                 "protocol", parameter.tag);
        place = &parameter;
    }
    return found;
}

void require(const OzkMapNode* parameter, const char* name, const OzkMapNode& operation)
{
    if (parameter == nullptr)
        fail("missing-element", fmt::format("{} has no '{}'", operation.tag, name), "protocol",
             name);
}

/// The value of a leaf among the parameters.
std::string_view value_of(const OzkMapNode& parameter)
{
    if (!children(parameter).empty())
        fail("bad-element", fmt::format("elements are not expected in {}", parameter.tag),
             "protocol", parameter.tag);
    return data::trim(text(parameter.value));
}

void require_running(const OzkMapNode& parameter)
{
    const auto names = children(parameter);
    if (names.size() != 1)
        fail("bad-element", fmt::format("one datastore is expected in '{}'", parameter.tag),
             "protocol", parameter.tag);
    if (!is_of_netconf(names.front()))
        throw RequestError(agent::of_other_namespace(names.front(), parameter));
    if (text(names.front().tag) != "running")
        fail("invalid-value",
             fmt::format("'{}' is not supported as the {}", names.front().tag, parameter.tag),
             "protocol", names.front().tag);
    if (names.front().value != nullptr || !children(names.front()).empty())
        fail("bad-element", fmt::format("'{}' is no empty element", names.front().tag), "protocol",
             names.front().tag);
}

/// The first node with an operation of its own, or null.
const OzkMapNode* find_operation(const OzkMapNode& node)
{
    if (node.edit_is_own != 0)
        return &node;
    for (const OzkMapNode& child : children(node))
        if (const OzkMapNode* found = find_operation(child))
            return found;
    return nullptr;
}

/// Ends an edit, however it comes to its end.
struct EditScope {
    Datastore& store;
    bool is_changed = true;
    ~EditScope() { store.end_edit(is_changed); }
};

std::string date_and_time(int64_t seconds)
{
    const auto time = static_cast<time_t>(seconds);
    std::tm parts{};
    gmtime_r(&time, &parts);
    char out[32];
    return {out, std::strftime(out, sizeof out, "%Y-%m-%dT%H:%M:%SZ", &parts)};
}

} // namespace

/// One message and its answer.
class Server::Exchange {
public:
    explicit Exchange(Server& server)
        : server_(server), store_(server.store_), options_(server.options_),
          rpc_(&envelope_.tree.append(envelope_.tree.top(), "rpc", NS_NETCONF))
    {
    }

    /// Carries the message out; what it comes to is the answer.
    void take(std::string_view message)
    {
        attempt([&] { carry_out(message); });
    }
    void refuse(const Error& error) { errors_ = {error}; }

    void answer(formats::Output& out)
    {
        const bool is_bad = !errors_.empty() && std::string_view(errors_[0].type) == "rpc";
        ++(is_bad ? server_.bad_rpc_count_ : server_.rpc_count_);
        server_.error_reply_count_ += !errors_.empty();
        if (server_.is_old_client_)
            for (Error& error : errors_)
                if (std::string_view(error.tag) == "malformed-message") // RFC 6241, appendix A
                    error.tag = "operation-failed";
        Reply reply(out, envelope_, rpc_, formats::Layout::compact);
        if (!errors_.empty())
            reply.errors(errors_);
        else if (reading_)
            reply.data(reading_->reply.top());
        else if (schema_text_)
            reply.text_data(NS_MONITORING, *schema_text_);
        else
            reply.ok();
        out.flush();
    }

private:
    struct Operation {
        const char* ns_uri;
        std::string_view name;
        void (Exchange::*carry_out)(data::Document document, OzkMapNode& operation);
    };
    static const Operation operations[];

    /// Does `what`; what it fails by is the answer.
    template <class What>
    void attempt(const What& what)
    {
        try {
            what();
        } catch (const RequestError& error) {
            errors_ = {error.error};
        } catch (const formats::InputError& error) {
            errors_                = {{error.tag, error.what()}};
            errors_[0].type        = error.element.empty() ? "rpc" : "protocol";
            errors_[0].bad_element = error.element;
        } catch (const std::bad_alloc&) {
            errors_ = {{"resource-denied", "the request takes more memory than there is"}};
        } catch (const std::exception& error) { // of the system: a file, the map library
            errors_ = {{"operation-failed", data::for_message(error.what())}};
        }
    }
    void carry_out(std::string_view message);
    void read(data::Document document, OzkMapNode& operation);
    void edit(data::Document document, OzkMapNode& operation);
    void validate(data::Document document, OzkMapNode& operation);
    void lock(data::Document document, OzkMapNode& operation);
    void unlock(data::Document document, OzkMapNode& operation);
    void close_session(data::Document document, OzkMapNode& operation);
    void kill_session(data::Document document, OzkMapNode& operation);
    void get_schema(data::Document document, OzkMapNode& operation);

    agent::Request& parse(data::Document document)
    {
        return request_.emplace(agent::parse_request(
            std::move(document), {.bare_op_code = {}, .datastores = datastores}));
    }
    agent::Edited try_edit(agent::Request& request, const agent::Native& native) const
    {
        return agent::edit(request, native, server_.library_(),
                           {.drops_unmapped = options_.drops_unmapped}, options_.hooks);
    }
    void require_writable(const OzkMapNode& operation) const
    {
        if (options_.read_only)
            fail("access-denied",
                 fmt::format("{} is not allowed: this session only reads", operation.tag));
    }
    void take_errors(agent::Edited& edited)
    {
        errors_ = std::move(edited.errors);
        add_faults(edited.faults);
    }
    void add_faults(std::span<const std::string> faults)
    {
        for (const std::string& fault : faults)
            errors_.push_back({"operation-failed", "broken contract: " + fault});
    }
    void read_monitoring(std::span<const OzkMapNode> filter_roots);
    data::Document monitoring() const;

    void log(std::string_view what, std::span<const agent::Note> notes = {}) const;
    void log_edit(std::span<const agent::Note> notes) const;
    /// `what` and who has asked for it.
    std::string by_client(std::string_view what) const
    {
        return fmt::format("{} by {} ({})", what, data::for_message(options_.user),
                           data::for_message(options_.peer));
    }

    Server& server_;
    Datastore& store_;
    const ServerOptions& options_;
    data::Document envelope_{"rpc"}; ///< the <rpc> with its attributes, for the reply
    OzkMapNode* rpc_;
    std::optional<agent::Request> request_;
    std::vector<Error> errors_;
    std::optional<agent::Reading> reading_;
    std::optional<std::string> schema_text_;
    data::Document monitoring_{"netconf-state"};
};

const Server::Exchange::Operation Server::Exchange::operations[] = {
    {NS_NETCONF, "get", &Exchange::read},
    {NS_NETCONF, "get-config", &Exchange::read},
    {NS_NETCONF, "edit-config", &Exchange::edit},
    {NS_NETCONF, "validate", &Exchange::validate},
    {NS_NETCONF, "lock", &Exchange::lock},
    {NS_NETCONF, "unlock", &Exchange::unlock},
    {NS_NETCONF, "close-session", &Exchange::close_session},
    {NS_NETCONF, "kill-session", &Exchange::kill_session},
    {NS_MONITORING, "get-schema", &Exchange::get_schema},
};

void Server::Exchange::carry_out(std::string_view message)
{
    data::Document document = formats::read_xml("rpc", formats::bytes_of(message),
                                                {.depth_limit      = options_.depth_limit,
                                                 .takes_operations = true,
                                                 .only_utf8        = true,
                                                 .rpc_attributes   = &envelope_.attributes[rpc_]});
    OzkMapNode& rpc         = children(document.tree.top()).front();
    if (!is_of_netconf(rpc) || text(rpc.tag) != "rpc")
        fail("malformed-message", fmt::format("an rpc is expected, not '{}'", rpc.tag), "rpc");
    const auto& attributes = document.attributes_of(rpc);
    if (std::none_of(attributes.begin(), attributes.end(), [](const data::Attribute& each) {
            return each.name == "message-id" && each.prefix.empty();
        })) {
        Error error{"missing-attribute", "the rpc has no message-id"};
        error.type          = "rpc";
        error.bad_attribute = "message-id";
        error.bad_element   = "rpc";
        throw RequestError(error);
    }
    if (rpc.value != nullptr || children(rpc).size() != 1) {
        parse(std::move(document)); // which says what is wrong
        return;
    }
    OzkMapNode& operation = children(rpc).front();
    for (const Operation& known : operations)
        if (known.name == text(operation.tag) && known.ns_uri == text(operation.ns_uri)) {
            agent::refuse_attributes(document, operation);
            return (this->*known.carry_out)(std::move(document), operation);
        }
    fail("operation-not-supported", fmt::format("operation '{}' is not supported", operation.tag),
         "protocol", operation.tag);
}

void Server::Exchange::read(data::Document document, OzkMapNode&)
{
    agent::Request& request = parse(std::move(document));
    const bool reads_state  = request.op_code == MAP_OP_GET;
    std::vector<OzkMapNode> monitoring_roots;
    if (request.content != nullptr) {
        auto& content        = const_cast<OzkMapNode&>(*request.content); // the request is ours
        const auto all       = children(content);
        const auto is_others = [](const OzkMapNode& root) {
            return text(root.ns_uri) != NS_MONITORING;
        };
        const auto own = std::stable_partition(all.begin(), all.end(), is_others);
        monitoring_roots.assign(own, all.end());
        content.subtree_count = static_cast<uint32_t>(own - all.begin());
    }
    agent::Native running;
    std::span<const agent::Native> natives;
    if (!reads_state)
        natives = {&(running = store_.running()), 1};
    else if (request.reads_all || !request.roots().empty()) // what the server is has no document
        natives = store_.all();

    reading_ = agent::read(request, natives, server_.library_(), options_.hooks);
    for (const agent::Walk& walk : reading_->walks)
        if (walk.status != MAP_OK)
            errors_.push_back(agent::error_of(walk));
    add_faults(reading_->faults);
    if (!reads_state)
        for (const OzkMapNode& root : monitoring_roots)
            reading_->notes.push_back(
                {"", fmt::format("'{}' is state, which get-config doesn't read", root.tag),
                 fmt::format("/{}", root.tag)});
    if (!reading_->notes.empty())
        log(reads_state ? "get" : "get-config", reading_->notes);
    if (reads_state && (request.reads_all || !monitoring_roots.empty()))
        read_monitoring(monitoring_roots);
}

void Server::Exchange::edit(data::Document document, OzkMapNode& operation)
{
    agent::Edited edited;
    attempt([&] {
        require_writable(operation);
        agent::Request& request = parse(std::move(document));
        if (request.test_only) {
            edited = try_edit(request, store_.running());
            take_errors(edited);
        } else {
            const agent::Native native = store_.begin_edit();
            EditScope scope{store_};
            edited           = try_edit(request, native);
            scope.is_changed = !edited.faults.empty();
            take_errors(edited);
            if (errors_.empty()) {
                scope.is_changed = true;
                store_.commit();
                scope.is_changed = false;
            }
        }
    });
    log_edit(edited.notes);
}

void Server::Exchange::validate(data::Document document, OzkMapNode& operation)
{
    const auto [source] = parameters<1>(operation, {"source"});
    require(source, "source", operation);
    const auto content = children(*source);
    if (content.size() != 1 || !is_of_netconf(content.front()) ||
        text(content.front().tag) != "config") {
        require_running(*source);
        store_.running(); // which is told of if it can't be read
        return;
    }
    if (const OzkMapNode* node = find_operation(content.front())) {
        Error error         = agent::error_at("unknown-attribute",
                                              "a configuration to be validated has no operations",
                                              content.front(), *node);
        error.bad_element   = node->tag;
        error.bad_attribute = "operation";
        throw RequestError(error);
    }
    // RFC 6241, 8.6.4.1: it is a whole configuration, and gets its answer as an edit would that
    // makes it out of nothing.
    agent::Request& request =
        request_.emplace(agent::parse_config(std::move(document), content.front()));
    data::Document nothing{"config"};
    agent::Edited edited = try_edit(request, {&nothing, &nothing.tree.top()});
    take_errors(edited);
    if (!edited.notes.empty())
        log("validate", edited.notes);
}

void Server::Exchange::lock(data::Document, OzkMapNode& operation)
{
    const auto [target] = parameters<1>(operation, {"target"});
    require(target, "target", operation);
    require_running(*target);
    require_writable(operation);
    store_.lock();
    log(by_client("lock"));
}

void Server::Exchange::unlock(data::Document, OzkMapNode& operation)
{
    const auto [target] = parameters<1>(operation, {"target"});
    require(target, "target", operation);
    require_running(*target);
    require_writable(operation);
    store_.unlock();
    log(by_client("unlock"));
}

void Server::Exchange::close_session(data::Document, OzkMapNode& operation)
{
    parameters<0>(operation, {});
    // Whoever is told of the end finds the lock free.
    if (store_.lock_holder().session_id == options_.session_id)
        store_.unlock();
    server_.is_closed_ = true;
}

void Server::Exchange::kill_session(data::Document, OzkMapNode& operation)
{
    const auto [parameter] = parameters<1>(operation, {"session-id"});
    require(parameter, "session-id", operation);
    const std::string_view value = value_of(*parameter);
    uint32_t id                  = 0;
    const auto [end, error]      = std::from_chars(value.data(), value.data() + value.size(), id);
    if (error != std::errc() || end != value.data() + value.size())
        fail("invalid-value", fmt::format("'{}' is no session-id", value), "protocol",
             "session-id");
    require_writable(operation);
    store_.kill_session(id);
    log(fmt::format("session {} was killed", id));
}

void Server::Exchange::get_schema(data::Document, OzkMapNode& operation)
{
    const auto [identifier, version, format] =
        parameters<3>(operation, {"identifier", "version", "format"});
    require(identifier, "identifier", operation);
    if (format != nullptr) { // an identity, whose prefix the client chooses
        const std::string_view name = value_of(*format);
        if (name.substr(name.find(':') + 1) != "yang")
            fail("invalid-value", fmt::format("there is no schema in the format '{}'", name),
                 "protocol", "format");
    }
    const std::string_view name = value_of(*identifier);
    for (const SchemaModule& module : options_.modules)
        if (module.text && module.name == name &&
            (version == nullptr || value_of(*version) == module.revision)) {
            schema_text_ = module.text();
            return;
        }
    fail("invalid-value",
         fmt::format("there is no schema '{}'{}", name,
                     version != nullptr ? " of that version" : ""),
         "protocol", "identifier");
}

// ---------------------------------------------------------------------------------------------
// RFC 6022

void Server::Exchange::read_monitoring(std::span<const OzkMapNode> filter_roots)
{
    monitoring_ = monitoring();
    ozk::Tree filter;
    if (filter_roots.empty())
        filter.append(filter.top(), "netconf-state", NS_MONITORING);
    else
        filter.set_children(filter.top(), filter_roots);
    ozk::Tree& parts = reading_->parts.emplace_back();
    const OzkMapNode selected =
        data::Filter(filter.top()).select(monitoring_.tree.top(), monitoring_.indexes, parts);
    for (const OzkMapNode& root : children(selected))
        reading_->reply.append(reading_->reply.top()) = root;
}

data::Document Server::Exchange::monitoring() const
{
    data::Document document{"netconf-state"};
    ozk::Tree& tree      = document.tree;
    const auto container = [&](OzkMapNode& parent, const char* tag) -> OzkMapNode& {
        return tree.append(parent, tag, NS_MONITORING);
    };
    const auto leaf = [&](OzkMapNode& parent, const char* tag, std::string_view value) {
        ozk::Tree::set_value(container(parent, tag), tree.keep(value));
    };
    OzkMapNode& state        = container(tree.top(), "netconf-state");
    OzkMapNode& capabilities = container(state, "capabilities");
    for (const std::string& capability : server_.capabilities())
        leaf(capabilities, "capability", capability);

    OzkMapNode& running = container(container(state, "datastores"), "datastore");
    leaf(running, "name", "running");
    if (const LockHolder holder = store_.lock_holder(); holder.session_id != 0) {
        OzkMapNode& lock = container(container(running, "locks"), "global-lock");
        leaf(lock, "locked-by-session", std::to_string(holder.session_id));
        leaf(lock, "locked-time", date_and_time(holder.since));
    }

    OzkMapNode& schemas = container(state, "schemas");
    for (const SchemaModule& module : options_.modules) {
        if (!module.text)
            continue;
        OzkMapNode& schema = container(schemas, "schema");
        leaf(schema, "identifier", module.name);
        leaf(schema, "version", module.revision);
        leaf(schema, "format", "yang");
        leaf(schema, "namespace", module.ns_uri);
        leaf(schema, "location", "NETCONF");
    }

    OzkMapNode& sessions = container(state, "sessions");
    const auto session   = [&](const SessionInfo& info) -> OzkMapNode& {
        OzkMapNode& node = container(sessions, "session");
        leaf(node, "session-id", std::to_string(info.id));
        leaf(node, "transport", "netconf-ssh");
        if (!info.user.empty())
            leaf(node, "username", info.user);
        if (info.since != 0)
            leaf(node, "login-time", date_and_time(info.since));
        return node;
    };
    for (const SessionInfo& other : store_.other_sessions())
        session(other);
    OzkMapNode& own = session({options_.session_id, options_.user, server_.login_time_});
    if (!options_.peer.empty())
        leaf(own, "source-host", options_.peer.substr(0, options_.peer.find(' ')));
    leaf(own, "in-rpcs", std::to_string(server_.rpc_count_));
    leaf(own, "in-bad-rpcs", std::to_string(server_.bad_rpc_count_));
    leaf(own, "out-rpc-errors", std::to_string(server_.error_reply_count_));
    leaf(own, "out-notifications", "0");
    return document;
}

// ---------------------------------------------------------------------------------------------

void Server::Exchange::log(std::string_view what, std::span<const agent::Note> notes) const
{
    constexpr size_t told = 3; // a request may hold as many as it has bytes
    std::string line      = fmt::format("session {}: {}", options_.session_id, what);
    for (const agent::Note& note : notes.first(std::min(notes.size(), told)))
        line += fmt::format("; not carried out: {}{}{}", data::for_message(note.path),
                            note.path.empty() ? "" : ": ", data::for_message(note.message));
    if (notes.size() > told)
        line += fmt::format("; and {} more", notes.size() - told);
    server_.log_(line);
}

void Server::Exchange::log_edit(std::span<const agent::Note> notes) const
{
    constexpr size_t told = 3;
    // One whose envelope was refused is no request.
    std::string line = by_client(request_ && request_->test_only ? "test of an edit" : "edit");
    const auto roots = request_ ? request_->roots() : std::span<const OzkMapNode>();
    for (size_t i = 0; i < std::min(roots.size(), told); ++i)
        line += fmt::format("{}/{}", i == 0 ? " of " : " ", data::for_message(text(roots[i].tag)));
    if (roots.size() > told)
        line += fmt::format(" and {} more", roots.size() - told);
    if (errors_.empty())
        line += ": ok";
    for (size_t i = 0; i < std::min(errors_.size(), told); ++i)
        line += fmt::format("{} {}{}{}: {}", i == 0 ? ": refused:" : ";", errors_[i].tag,
                            errors_[i].path.empty() ? "" : " ", data::for_message(errors_[i].path),
                            data::for_message(errors_[i].message));
    if (errors_.size() > told)
        line += fmt::format("; and {} more", errors_.size() - told);
    log(line, notes);
}

// ---------------------------------------------------------------------------------------------

Server::Server(Datastore& store, LibraryOf library, ServerOptions options, Log log)
    : store_(store), library_(std::move(library)), options_(std::move(options)),
      log_(std::move(log)), login_time_(time(nullptr))
{
}

std::vector<std::string> Server::capabilities() const
{
    std::vector<std::string> all = {BASE_1_0, BASE_1_1};
    if (!options_.read_only)
        all.insert(all.end(), {"urn:ietf:params:netconf:capability:writable-running:1.0",
                               "urn:ietf:params:netconf:capability:rollback-on-error:1.0"});
    all.push_back("urn:ietf:params:netconf:capability:validate:1.1");
    all.push_back(
        fmt::format("{}?module=ietf-netconf-monitoring&revision=2010-10-04", NS_MONITORING));
    for (const SchemaModule& module : options_.modules) { // RFC 6020, 5.6.4
        std::string capability = fmt::format("{}?module={}", module.ns_uri, module.name);
        if (!module.revision.empty())
            capability += "&revision=" + module.revision;
        if (!module.deviations.empty())
            capability += "&deviations=" + module.deviations;
        all.push_back(std::move(capability));
    }
    return all;
}

std::string Server::hello() const
{
    std::string hello = fmt::format("<hello xmlns=\"{}\"><capabilities>", NS_NETCONF);
    for (const std::string& capability : capabilities())
        hello += fmt::format("<capability>{}</capability>", formats::escaped(capability));
    return hello +
           fmt::format("</capabilities><session-id>{}</session-id></hello>", options_.session_id);
}

bool Server::take_hello(std::string_view message) const
{
    data::Document document =
        formats::read_xml("hello", formats::bytes_of(message),
                          {.depth_limit = options_.depth_limit, .only_utf8 = true});
    OzkMapNode& hello = children(document.tree.top()).front();
    if (!is_of_netconf(hello) || text(hello.tag) != "hello")
        fail("malformed-message", fmt::format("a hello is expected, not '{}'", hello.tag));
    const auto [capabilities, session_id] = parameters<2>(hello, {"capabilities", "session-id"});
    require(capabilities, "capabilities", hello);
    if (session_id != nullptr)
        fail("bad-element", "a client's hello has no session-id");
    bool has_1_0 = false, has_1_1 = false;
    for (const OzkMapNode& capability : children(*capabilities)) {
        if (!is_of_netconf(capability) || text(capability.tag) != "capability")
            fail("unknown-element",
                 fmt::format("element '{}' is not expected in capabilities", capability.tag));
        has_1_0 |= value_of(capability) == BASE_1_0;
        has_1_1 |= value_of(capability) == BASE_1_1;
    }
    if (!has_1_0 && !has_1_1)
        fail("operation-failed", "the client speaks no version of NETCONF that is known here");
    return has_1_1;
}

void Server::answer(std::string_view message, formats::Output& out)
{
    Exchange exchange(*this);
    exchange.take(message);
    exchange.answer(out);
}

void Server::refuse_too_big(size_t max_message, formats::Output& out)
{
    Error error{"too-big", fmt::format("a message has at most {} bytes", max_message)};
    error.type = "rpc";
    Exchange exchange(*this);
    exchange.refuse(error);
    exchange.answer(out);
}

} // namespace ymap::netconf
