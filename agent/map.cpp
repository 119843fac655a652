// Requests through the map.

#include "map.h"

#include <algorithm>

#include <fmt/core.h>

namespace ymap::agent {

using ozk::children;

namespace {

void require_walker(const MapLibrary& library, const ModelRoot& root, const OzkMapNode& node)
{
    if (library.root_walker(root) != nullptr)
        return;
    Error error{"operation-not-supported",
                fmt::format("the map library {} has no walker {} for /{}", library.path(),
                            root.symbol, root.name)};
    error.line = node.line;
    throw RequestError(error);
}

/// Notes what a request holds and the map doesn't carry out.
void take_notes(Mapping& mapping, Request& request, const MapLibrary& library)
{
    if (!request.is_edit()) {
        mapping.notes = plan_read(request, library).notes;
        return;
    }
    auto [notes, losses] = examine_edit(request, library, false);
    mapping.has_faults   = !notes.empty();
    notes.insert(notes.end(), losses.begin(), losses.end());
    std::ranges::stable_sort(notes, {}, &Note::line);
    mapping.notes = std::move(notes);
}

/// Adds what of the native roots that the clients' `root` maps to isn't in `edit` yet.
void add_mapped_roots(ozk::Tree& edit, const MapLibrary& library, const OzkMapNode& root)
{
    for (const data::ExploredNode& node : library.schema(*find_root(root)).explored())
        for (const data::MappedPath& path : node.on(data::Query::edit).paths)
            for (const ModelRoot& native : model_roots())
                if (path.ns_uri == native.ns_uri &&
                    path.path.starts_with(fmt::format("/{}/", native.name)) &&
                    ozk::find_child(edit.top(), native.name, native.ns_uri) == nullptr)
                    edit.append(edit.top(), native.name, native.ns_uri);
}

} // namespace

Error edited_twice(const Request& request, const OzkMapNode& native_root)
{
    return error_at("bad-element",
                    fmt::format("'{}' is edited by this root and by one of the clients' model",
                                native_root.tag),
                    *request.content, native_root);
}

ozk::Tree native_edit(const Request& request, const MapLibrary& library,
                      std::span<const Walk> walks, std::span<const ozk::AddedPath> added)
{
    ozk::Tree edit;
    for (const Walk& walk : walks) {
        if (!walk.root->is_clients)
            continue;
        const auto root = std::ranges::find(request.roots(), walk.root,
                                            [](const auto& each) { return find_root(each); });
        const ozk::Edit operation =
            reaches_unnamed_entries(*root) ? ozk::Edit::merge : ozk::edit_of(*root);
        edit = ozk::tree_of(added.subspan(walk.added_before, walk.added_after - walk.added_before),
                            operation);
        // A configuration that replaces and names no entry replaces by nothing.
        if (operation == ozk::Edit::replace)
            add_mapped_roots(edit, library, *root);
        for (OzkMapNode& made : children(edit.top())) {
            made.origin      = &*root;
            made.edit_is_own = operation != request.default_operation;
        }
    }
    edit.top().edit = static_cast<uint8_t>(request.default_operation);
    for (const OzkMapNode& root : request.roots()) {
        const ModelRoot* known = find_root(root);
        if (known == nullptr || known->is_clients || known->is_state)
            continue;
        if (ozk::find_child(edit.top(), root.tag, root.ns_uri) != nullptr)
            throw RequestError(edited_twice(request, root));
        OzkMapNode& copy = edit.append(edit.top());
        copy             = root;
        copy.origin      = &root;
    }
    return edit;
}

bool reaches_unnamed_entries(const OzkMapNode& root)
{
    const ozk::Edit edit = ozk::edit_of(root);
    return root.edit_is_own != 0 && edit != ozk::Edit::merge;
}

Mapping map(Request& request, const MapLibrary& library, const Hooks& hooks)
{
    Mapping mapping{.run = std::make_unique<ozk::Run>(request.op_code)};
    ozk::Tree& tree = request.document.tree;
    OzkMapNode all{}; // the roots of a read without a filter
    if (request.reads_all)
        for (const ModelRoot& root : model_roots())
            if (root.is_clients && library.root_walker(root) != nullptr)
                tree.append(all, root.name, root.ns_uri);
    OzkMapNode& content = request.reads_all ? all : const_cast<OzkMapNode&>(*request.content);
    for (const OzkMapNode& node : children(content))
        if (const ModelRoot* root = find_root(node))
            require_walker(library, *root, node);

    const bool is_of_clients = std::ranges::any_of(children(content), [](const OzkMapNode& node) {
        const ModelRoot* root = find_root(node);
        return root == nullptr || root->is_clients;
    });
    if (is_of_clients || request.is_edit())
        take_notes(mapping, request, library);
    if (hooks.before_pass)
        hooks.before_pass(*mapping.run, "map");
    for (OzkMapNode& node : children(content)) {
        const ModelRoot* root = find_root(node);
        if (root == nullptr)
            continue;
        mapping.walks.push_back(walk(*mapping.run, library, *root, node, &tree, &content));
        if (mapping.ended())
            break;
    }
    if (hooks.after_pass)
        hooks.after_pass(*mapping.run);
    if (request.is_edit() && !mapping.ended() && !mapping.has_faults)
        try {
            mapping.tree = native_edit(request, library, mapping.walks, mapping.run->added());
        } catch (const RequestError& error) {
            mapping.notes.push_back(error.error);
            mapping.has_faults = true;
        }
    return mapping;
}

} // namespace ymap::agent
