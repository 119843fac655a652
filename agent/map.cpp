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

/// The notes on what a request holds and the map doesn't carry out. What is wrong whatever the map
/// knows, it tells itself.
std::vector<Note> notes_on(Request& request, const MapLibrary& library)
{
    try {
        return request.is_edit() ? examine_edit(request, library, false)
                                 : plan_read(request, library).notes;
    } catch (const RequestError& error) {
        return {error.error};
    }
}

} // namespace

bool reaches_unnamed_entries(const OzkMapNode& root)
{
    const ozk::Edit edit = ozk::edit_of(root);
    return root.edit_is_own != 0 && (ozk::deletes(edit) || edit == ozk::Edit::replace);
}

Mapping map(Request& request, const MapLibrary& library, const Hooks& hooks)
{
    Mapping mapping{std::make_unique<ozk::Run>(request.op_code), {}, {}};
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
    if (is_of_clients)
        mapping.notes = notes_on(request, library);
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
    return mapping;
}

} // namespace ymap::agent
