// Reads on native data.

#include "read.h"

#include <algorithm>
#include <utility>

#include <fmt/core.h>

#include "filter.h"

namespace ymap::agent {

namespace {

using ozk::children;
using ozk::text;

class Reader {
public:
    Reader(const Request& request, std::span<const Native> natives, const MapLibrary& library,
           const Hooks& hooks)
        : request_(request), natives_(natives), library_(library), hooks_(hooks)
    {
    }

    Reading read()
    {
        ReadPlan plan  = plan_read(request_, library_);
        reading_.notes = std::move(plan.notes);

        const ozk::Tree asked = ask(plan.map_request);
        note_missing(asked.top());
        const ozk::Tree& mapped = keep(answer(data::Filter(asked.top())));

        // The request's own filter: on what came back, and on the native data itself.
        const data::Filter filter(plan.filter.top());
        data::Indexes indexes;
        take(filter.select(mapped.top(), indexes, keep(ozk::Tree())));
        for (const Native& native : natives_)
            take(filter.select(*native.top, native.document->indexes, keep(ozk::Tree())));
        return std::move(reading_);
    }

private:
    ozk::Tree& keep(ozk::Tree tree) { return reading_.parts.emplace_back(std::move(tree)); }

    /// The filter of native data that the map makes of the request, whose texts it has. A request
    /// may name entries without end: the paths that they become aren't kept.
    ozk::Tree ask(ozk::Tree& map_request)
    {
        ozk::Run run(request_.op_code);
        begin_pass(run, "pass 1: the request becomes native paths");
        for (OzkMapNode& node : children(map_request.top()))
            walk_root(run, node);
        end_pass(run);
        return data::filter_of(run.added());
    }

    /// What the map makes of the native data that the filter picks.
    ozk::Tree answer(const data::Filter& native_filter)
    {
        ozk::Run run(request_.op_code);
        begin_pass(run, "pass 2: native data becomes data of the clients' model");
        for (const Native& native : natives_) {
            OzkMapNode picked =
                native_filter.select(*native.top, native.document->indexes, keep(ozk::Tree()));
            for (OzkMapNode& root : children(picked))
                walk_root(run, root);
        }
        end_pass(run);
        return ozk::tree_of(run.added());
    }

    void begin_pass(ozk::Run& run, const char* pass)
    {
        if (hooks_.before_pass)
            hooks_.before_pass(run, pass);
    }

    void end_pass(ozk::Run& run)
    {
        if (hooks_.after_pass)
            hooks_.after_pass(run);
        reading_.faults.insert(reading_.faults.end(), run.faults().begin(), run.faults().end());
    }

    void walk_root(ozk::Run& run, OzkMapNode& node)
    {
        const ModelRoot* root = find_root(node);
        if (library_.root_walker(*root) == nullptr)
            return note(fmt::format("/{} ({}) has no walker in the map library, skipped",
                                    root->name, prefix_of(root->ns_uri)));
        Walk walked = walk(run, library_, *root, node);
        if (walked.status != MAP_OK)
            reading_.walks.push_back(std::move(walked));
    }

    /// Roots that the map asks for and no document has.
    void note_missing(const OzkMapNode& asked)
    {
        if (request_.reads_all)
            return;
        for (const OzkMapNode& root : children(asked))
            if (std::ranges::none_of(natives_, [&](const Native& native) {
                    return ozk::find_child(*native.top, root.tag, root.ns_uri) != nullptr;
                }))
                note(fmt::format("no native document has /{} ({}), which the request selects",
                                 root.tag, prefix_of(text(root.ns_uri))));
    }

    /// Of several documents, what is said of each is said once.
    void note(const std::string& message)
    {
        if (std::ranges::find(reading_.notes, message, &Note::message) == reading_.notes.end())
            reading_.notes.push_back({"operation-failed", message});
    }

    /// Takes what was selected into the reply. Roots of several documents are one.
    void take(const OzkMapNode& selected)
    {
        ozk::Tree& reply = reading_.reply;
        for (const OzkMapNode& root : children(selected)) {
            OzkMapNode* same = ozk::find_child(reply.top(), root.tag, root.ns_uri);
            if (same == nullptr) {
                reply.append(reply.top()) = root;
                continue;
            }
            const ModelRoot* known = find_root(root);
            const Schema* schema   = known != nullptr && library_.root_walker(*known) != nullptr
                                         ? &library_.schema(*known)
                                         : nullptr;
            join(*same, root, schema, schema != nullptr ? &schema->root() : nullptr);
        }
    }

    /// Adds the children of `other` to `node`. What is a container on both sides is one; without
    /// the schema of the node, no container is known.
    void join(OzkMapNode& node, const OzkMapNode& other, const Schema* schema,
              const Schema::Node* place)
    {
        std::vector<OzkMapNode> all(children(node).begin(), children(node).end());
        const size_t own = all.size();
        for (const OzkMapNode& child : children(other)) {
            const Schema::Node* below =
                place != nullptr ? schema->child(*place, child.tag) : nullptr;
            const bool is_container =
                below != nullptr && below->facts->kind == data::NodeKind::container;
            const auto end  = all.begin() + static_cast<ptrdiff_t>(is_container ? own : 0);
            const auto same = std::find_if(all.begin(), end, [&](const OzkMapNode& each) {
                return ozk::is_named(each, child.tag, child.ns_uri);
            });
            if (same == end)
                all.push_back(child);
            else
                join(*same, child, schema, below);
        }
        reading_.reply.set_children(node, all);
    }

    const Request& request_;
    std::span<const Native> natives_;
    const MapLibrary& library_;
    const Hooks& hooks_;
    Reading reading_;
};

} // namespace

Reading read(const Request& request, std::span<const Native> natives, const MapLibrary& library,
             const Hooks& hooks)
{
    return Reader(request, natives, library, hooks).read();
}

} // namespace ymap::agent
