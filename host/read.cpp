// `ymap read`: a read of a client, carried out on native data as the agent does it. The map makes
// native paths of the request, and they are a filter that picks from the native documents. The map
// makes data of the clients' model of what was picked, and the request is the filter that picks
// from that.

#include <cstdio>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "commands.h"
#include "diagnostics.h"
#include "filter.h"
#include "input_error.h"
#include "native.h"
#include "reply.h"
#include "walk.h"

namespace ymap::host {

namespace {

struct ReadVerbOptions {
    std::string request;
    std::vector<std::string> data;
    std::string op       = "get";
    std::string format   = "xml";
    uint32_t depth_limit = ReadOptions{}.depth_limit;
    DiagnosticsOptions diagnostics;
    LibraryOptions library;
};

const std::map<std::string, uint32_t> op_codes = {{"get", MAP_OP_GET},
                                                  {"get-config", MAP_OP_GET_CONFIG}};

/// What a document holds that the map passes over, by line.
using Skipped = std::set<std::pair<uint32_t, std::string>>;

/// Tells afterwards which nodes of a tree a walk has passed over. A walker compares a child's tag
/// with all that its model knows, and if it knows none, a namespace with the child's. A comparison
/// shows texts, not nodes; therefore each node of the tree gets a tag at an address of its own.
class SkippedNodes {
public:
    explicit SkippedNodes(ozk::InputTree& tree) { enter(tree, tree.root()); }

    void observe(const ozk::Call& call)
    {
        if (call.op == ozk::Op::match) {
            const auto compared = nodes_.find(call.text_1);
            if (compared != nodes_.end()) {
                last_         = &compared->second;
                last_->is_met = true;
            } else if (last_ != nullptr && call.text_2 == last_->node->ns_uri) {
                last_->is_unknown = true; // for now: a sibling library may be asked
            }
        } else if (call.op == ozk::Op::sibling || call.op == ozk::Op::hierarchy_add) {
            const auto node = call.node != nullptr ? nodes_.find(call.node->tag) : nodes_.end();
            if (node == nodes_.end())
                return;
            if (call.op == ozk::Op::sibling)
                node->second.is_handed_over = true;
            else
                node->second.is_inner = true;
        }
    }

    /// Adds each node below `node` that was skipped with all below it. Of a walk that ended early,
    /// what it didn't come to isn't skipped.
    void report(Skipped& skipped, const OzkMapNode& node, bool ended_early) const
    {
        if ((node.flags & MAP_NODE_HAS_SUBTREES) == 0)
            return;
        for (uint32_t i = 0; i < node.subtree_count; ++i) {
            const OzkMapNode& child = node.subtrees[i];
            const Seen& seen        = nodes_.at(child.tag);
            if (seen.is_handed_over)
                continue;
            const bool is_skipped  = seen.is_unknown || (!seen.is_met && !ended_early);
            const std::string name = for_message(
                fmt::format("'{}' ({})", child.tag,
                            child.ns_uri != nullptr ? prefix_of(child.ns_uri) : "no namespace"));
            if (is_skipped)
                skipped.emplace(child.line, name + " is not in the schema of the map, skipped");
            else if (seen.is_inner && child.value != nullptr)
                skipped.emplace(child.line, name + " takes no value, its value is skipped");
            if (!is_skipped)
                report(skipped, child, ended_early);
        }
    }

private:
    struct Seen {
        const OzkMapNode* node;
        bool is_met         = false; ///< its tag was compared
        bool is_unknown     = false; ///< ... and no tag was the same
        bool is_handed_over = false; ///< a sibling library got it
        bool is_inner       = false; ///< it was walked as a container or an entry
    };

    void enter(ozk::InputTree& tree, OzkMapNode& node)
    {
        node.tag = tree.keep(node.tag);
        nodes_.emplace(node.tag, Seen{&node});
        if ((node.flags & MAP_NODE_HAS_SUBTREES) != 0)
            for (uint32_t i = 0; i < node.subtree_count; ++i)
                enter(tree, ozk::InputTree::child(node, i));
    }

    std::unordered_map<const char*, Seen> nodes_; // by their tag's address
    Seen* last_ = nullptr;
};

/// A native document on its way through the map.
struct Native {
    NativeDocument document;
    OzkMapFunction* walker;
    RequestRoot picked = {}; ///< recorded calls point into it
    Skipped skipped    = {};
};

std::vector<Native> read_native_documents(const ReadVerbOptions& options, const MapLibrary& library)
{
    std::vector<Native> natives;
    for (const std::string& path : options.data) {
        NativeDocument document = read_native_document(path, options.depth_limit);
        const ModelRoot& root   = *document.model_root;
        OzkMapFunction* walker  = library.root_walker(root);
        if (walker == nullptr)
            throw InputError(fmt::format("{}:{}: the map library {} has no walker {} for /{}",
                                         document.name, document.root.line, library.path(),
                                         root.symbol, root.name));
        natives.push_back({std::move(document), walker});
    }
    return natives;
}

/// Walks `root`, which is of the document, and notes what the map passes over.
std::vector<Walk> walk_native(ozk::Run& run, Native& native, RequestRoot& root)
{
    SkippedNodes nodes(root.tree);
    std::vector<Walk> walks = walk_roots(run, {{&root, native.walker}},
                                         [&](const ozk::Call& call) { nodes.observe(call); });
    nodes.report(native.skipped, root.tree.root(), walks.back().status != MAP_OK);
    return walks;
}

/// `node` without what belongs to other namespaces.
ozk::DataNode own_part(ozk::DataNode node)
{
    std::erase_if(node.children,
                  [&](const ozk::DataNode& child) { return child.ns_uri != node.ns_uri; });
    for (ozk::DataNode& child : node.children)
        child = own_part(std::move(child));
    return node;
}

/// Walks the document apart from the request, to see what of it doesn't fit the schema: a filter
/// picks what fits, so that the road of the request doesn't come by all of it. What augments the
/// model is left out, since it would be handed to sibling libraries once more.
void check_fit(Native& native)
{
    ozk::Run run(MAP_OP_GET); // the operation that reaches every node
    RequestRoot root{native.document.model_root, ozk::InputTree(own_part(native.document.root))};
    walk_native(run, native, root);
}

/// What the calls, the log and the trace of a pass stand under.
void print_heading(const DiagnosticsOptions& options, const char* heading)
{
    if (options.calls || options.trace || !options.log.empty())
        fmt::print(stderr, "{}\n", heading);
}

void print_diagnostics(const DiagnosticsOptions& options, const ozk::Run& run)
{
    if (options.calls)
        fmt::print(stderr, "{}", calls_text(run));
    if (options.trace)
        print_trace(run);
}

int read(const ReadVerbOptions& options)
{
    // Nothing is walked or printed before all input is known to be sound.
    const Request request =
        read_client_request(options.request, options.depth_limit, false, op_codes.at(options.op));
    const MapLibrary library(options.library);
    std::vector<Native> natives   = read_native_documents(options, library);
    const std::vector<Step> steps = plan_walks(request, library);

    print_heading(options.diagnostics, "pass 1: the request becomes native paths");
    ozk::Run there(request.op_code);
    switch_on(there, options.diagnostics);
    const std::vector<Walk> walks_there = walk_roots(there, steps);
    print_diagnostics(options.diagnostics, there);

    print_heading(options.diagnostics, "pass 2: native data becomes data of the clients' model");
    ozk::Run back(request.op_code);
    switch_on(back, options.diagnostics);
    std::vector<std::pair<const Native*, std::vector<Walk>>> walks_back;
    std::vector<std::string> missing;
    for (const ozk::DataNode& filter : ozk::filters_of(there.added())) {
        const ModelRoot* root = find_root(filter.ns_uri.value_or(""), filter.tag.value_or(""));
        bool is_met           = false;
        for (Native& native : natives) {
            if (native.document.model_root != root)
                continue;
            is_met = true;
            if (const auto picked = ozk::apply_filters(native.document.root, {&filter, 1})) {
                native.picked = {root, ozk::InputTree(*picked)};
                walks_back.emplace_back(&native, walk_native(back, native, native.picked));
            }
            check_fit(native);
        }
        if (!is_met)
            missing.push_back(fmt::format("/{} ({})", filter.tag.value_or(""),
                                          prefix_of(filter.ns_uri.value_or(""))));
    }
    print_diagnostics(options.diagnostics, back);

    std::vector<ozk::DataNode> filters, data;
    for (const RequestRoot& root : request.roots)
        filters.push_back(ozk::plain_tree(root.tree.root()));
    for (const ozk::DataNode& root : ozk::build_data_tree(back.added()))
        if (auto selected = ozk::apply_filters(root, filters))
            data.push_back(std::move(*selected));
    const std::string reply =
        options.format == "json" ? json_reply(data, back.added()) : xml_reply(request, data);
    std::fwrite(reply.data(), 1, reply.size(), stdout);
    std::fflush(stdout); // so that reports stand behind what they are about

    for (const std::string& root : missing)
        fmt::print(stderr, "{}: no native document has {}, which the request selects\n",
                   request.document, root);
    for (const Native& native : natives)
        for (const auto& [line, what] : native.skipped)
            fmt::print(stderr, "{}:{}: {}\n", native.document.name, line, what);
    bool failed = report_walks(request.document, walks_there);
    failed |= report_faults(request.document, there);
    for (const auto& [native, walks] : walks_back)
        failed |= report_walks(native->document.name, walks);
    failed |= report_faults("native data", back);
    return failed ? exit_walk_error : exit_mapped;
}

} // namespace

void add_read_command(CLI::App& app, Command& chosen)
{
    auto options   = std::make_shared<ReadVerbOptions>();
    CLI::App* verb = app.add_subcommand("read", "Carry out a read on native data, both passes, "
                                                "and print the reply");
    verb->add_option("REQUEST", options->request,
                     "NETCONF <rpc> with <get> or <get-config>, or a bare data tree as a filter; - "
                     "is standard input. State that is read by an interface's name comes without "
                     "counters: the map selects them for an empty entry only")
        ->required()
        ->type_name("");
    verb->add_option("--data", options->data,
                     "Native data, a bare data tree each; several may have the same root")
        ->required()
        ->type_name("NATIVE");
    verb->add_option("--op", options->op, "Operation of a bare data tree")
        ->check(CLI::IsMember(op_codes))
        ->capture_default_str();
    verb->add_option("--format", options->format,
                     "Form of the reply: NETCONF's, or JSON as of "
                     "RFC 7951")
        ->check(CLI::IsMember({"xml", "json"}))
        ->capture_default_str();
    add_diagnostics_options(*verb, options->diagnostics,
                            "Print every call of the framework on standard error, pass by pass");
    add_depth_limit_option(*verb, options->depth_limit);
    add_library_options(*verb, options->library);
    verb->footer("Example: ymap read examples/read-state-one.xml --data "
                 "examples/native-operational.xml");
    verb->callback([options, &chosen] { chosen = [options] { return read(*options); }; });
}

} // namespace ymap::host
