// Edits on native data: the map makes a native edit of the client's, with an operation on its
// nodes; what stands on native roots is one already.

#include "edit.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include <fmt/core.h>

#include "edit_config.h"
#include "filter.h"
#include "map.h"

namespace ymap::agent {

namespace {

using ozk::children;
using ozk::Edit;
using ozk::text;

class Editor {
public:
    Editor(Request& request, const Native& native, const MapLibrary& library,
           const EditOptions& options, const Hooks& hooks)
        : request_(request), native_(native), library_(library), options_(options), hooks_(hooks),
          paths_(*request.content, list_keys()), run_(request.op_code)
    {
    }

    Edited edit()
    {
        try {
            carry_out();
        } catch (Refused& refused) {
            std::ranges::stable_sort(refused.errors, {}, &Error::line);
            edited_.errors = std::move(refused.errors);
        } catch (const RequestError& error) {
            edited_.errors = {error.error};
        } catch (const data::EditError& error) {
            edited_.errors = {error_of(error)};
        }
        if (!edited_.errors.empty())
            edited_.notes.clear();
        edited_.faults.assign(run_.faults().begin(), run_.faults().end());
        return std::move(edited_);
    }

private:
    struct Refused {
        std::vector<Error> errors;
    };

    void carry_out()
    {
        refuse_lossy_document();
        refuse_lossy_values();
        auto [faults, losses] = examine_edit(request_, library_, true);
        if (!options_.drops_unmapped)
            faults.insert(faults.end(), losses.begin(), losses.end());
        if (!faults.empty())
            throw Refused{std::move(faults)};
        for (Note& note : losses)
            note.message += ", dropped";
        edited_.notes = std::move(losses);
        if (hooks_.before_pass)
            hooks_.before_pass(run_, "edit");
        std::vector<Walk>& walks = edited_.walks;
        for (OzkMapNode& root : children(const_cast<OzkMapNode&>(*request_.content)))
            if (find_root(root)->is_clients &&
                !(reaches_unnamed_entries(root) && ozk::deletes(ozk::edit_of(root))))
                walks.push_back(walk(run_, library_, *find_root(root), root,
                                     &request_.document.tree, request_.content));
        if (hooks_.after_pass)
            hooks_.after_pass(run_);
        for (const Walk& walk : walks)
            if (walk.status != MAP_OK)
                throw RequestError(agent::error_of(walk));
        edit_ = native_edit(request_, library_, walks, run_.added());
        for (const OzkMapNode& root : request_.roots())
            if (find_root(root)->is_clients && reaches_unnamed_entries(root))
                add_visible_entries(root);
        require_roots();
        data::apply_edit(*native_.document, *native_.top, edit_.top(), list_keys(),
                         request_.test_only);
    }

    /// What would be lost when the document is written.
    void refuse_lossy_document() const
    {
        for (const OzkMapNode& root : children(*native_.top))
            if (ozk::find_child(*native_.top, root.tag, root.ns_uri) != &root)
                throw RequestError(
                    {"operation-failed", fmt::format("{}:{}: /{} stands there twice",
                                                     native_.document->name, root.line, root.tag)});
        data::InstancePaths paths(*native_.top, list_keys());
        if (const OzkMapNode* leaf =
                native_.document->has_prefixed ? find_prefixed(*native_.top) : nullptr)
            throw RequestError({"operation-failed",
                                fmt::format("{}:{}: the value of {} has a prefix, whose "
                                            "declaration an edit would lose",
                                            native_.document->name, leaf->line, paths.of(*leaf))});
        for (const auto& [node, attributes] : native_.document->attributes) {
            const auto other = std::ranges::find_if(
                attributes, [](const data::Attribute& each) { return each.prefix != "xmlns"; });
            if (other == attributes.end())
                continue;
            const std::string path = paths.of(*node); // looks at all of the document
            if (!path.empty())
                throw RequestError(
                    {"operation-failed",
                     fmt::format("{}:{}: {} has the attribute '{}', which an edit "
                                 "would lose",
                                 native_.document->name, node->line, path, other->name)});
        }
    }

    /// The types of native leaves aren't known, so that any may need what its prefix stands for. Of
    /// the clients' model, what has a native path doesn't.
    void refuse_lossy_values() const
    {
        for (const OzkMapNode& root : request_.roots()) {
            const ModelRoot* known = find_root(root);
            if (!request_.document.has_prefixed || known == nullptr || known->is_clients)
                continue;
            if (const OzkMapNode* leaf = find_prefixed(root)) {
                const std::string message = fmt::format(
                    "the value of '{}' has a prefix, whose declaration would be lost", leaf->tag);
                Error error =
                    error_at("operation-not-supported", message, *request_.content, *leaf);
                error.bad_element = leaf->tag;
                throw RequestError(error);
            }
        }
    }

    /// The first node with a value that begins with a prefix, or null.
    static const OzkMapNode* find_prefixed(const OzkMapNode& node)
    {
        if ((node.marks & ozk::MARK_PREFIXED) != 0)
            return &node;
        for (const OzkMapNode& child : children(node))
            if (const OzkMapNode* found = find_prefixed(child))
                return found;
        return nullptr;
    }

    /// An operation on a root of the clients' model: a delete deletes all entries that clients see,
    /// a replace those that the edit doesn't name, a create wants that there is none. Which they
    /// are, a read of the root tells.
    void add_visible_entries(const OzkMapNode& root)
    {
        ozk::Tree everything;
        OzkMapNode& asked = everything.append(everything.top(), root.tag, root.ns_uri);
        ozk::Run run(MAP_OP_GET_CONFIG);
        walk(run, library_, *find_root(root), asked);
        const ozk::Tree filter = data::filter_of(run.added());
        ozk::Tree parts;
        const OzkMapNode visible =
            data::Filter(filter.top()).select(*native_.top, native_.document->indexes, parts);
        if (ozk::edit_of(root) == Edit::create && !children(visible).empty())
            throw RequestError(
                error_at("data-exists", "it exists already", *request_.content, root));
        bool is_there = false;
        for (const OzkMapNode& native_root : children(visible)) {
            OzkMapNode* edited = ozk::find_child(edit_.top(), native_root.tag, native_root.ns_uri);
            if (edited != nullptr && edited->origin != &root)
                throw RequestError(edited_twice(request_, *edited->origin));
            if (edited == nullptr)
                edited = &edit_.append(edit_.top(), native_root.tag, native_root.ns_uri);
            else // its array may be the request's
                edit_.set_children(*edited, std::vector<OzkMapNode>(children(*edited).begin(),
                                                                    children(*edited).end()));
            edited->edit        = static_cast<uint8_t>(Edit::merge);
            edited->edit_is_own = 1;
            is_there |= add_entries(native_root, *edited, root);
        }
        if (ozk::edit_of(root) == Edit::erase && !is_there)
            throw RequestError(
                error_at("data-missing", "there is nothing to delete", *request_.content, root));
    }

    /// Adds a removal to `edited` for each entry of `visible` that it doesn't name.
    bool add_entries(const OzkMapNode& visible, OzkMapNode& edited, const OzkMapNode& origin)
    {
        const std::string path = fmt::format("/{}/", visible.tag);
        std::unordered_set<std::string> named;
        for (const OzkMapNode& entry : children(edited))
            if (const auto* keys = data::keys_of(list_keys(), entry.ns_uri, path + entry.tag))
                named.insert(instance_step(entry, keys));
        bool has_entries = false;
        for (const OzkMapNode& entry : children(visible)) {
            const auto* keys = data::keys_of(list_keys(), entry.ns_uri, path + entry.tag);
            if (keys == nullptr || named.contains(instance_step(entry, keys)))
                continue;
            has_entries       = true;
            OzkMapNode& added = edit_.append(edited, entry.tag, entry.ns_uri);
            added.edit        = static_cast<uint8_t>(Edit::remove);
            added.origin      = &origin;
            for (const char* leaf : keys->leaves)
                if (const OzkMapNode* key = ozk::find_child(entry, leaf, entry.ns_uri))
                    ozk::Tree::set_value(edit_.append(added, leaf, entry.ns_uri), key->value);
        }
        return has_entries || !named.empty();
    }

    /// A document that holds other data than configuration isn't given a root for some, and none is
    /// given a root that nobody could read again.
    void require_roots() const
    {
        for (const OzkMapNode& root : children(edit_.top())) {
            const ModelRoot* known = find_root(root);
            if (known == nullptr || known->is_clients || known->is_state)
                throw RequestError(
                    {"operation-failed",
                     fmt::format(
                         "a path of the map is of /{} ({}), which is no native configuration",
                         root.tag, prefix_of(text(root.ns_uri)))});
            const bool holds_state =
                std::ranges::any_of(children(*native_.top), [](const OzkMapNode& each) {
                    return find_root(each)->is_state;
                });
            if (holds_state && ozk::find_child(*native_.top, root.tag, root.ns_uri) == nullptr)
                throw RequestError(
                    {"operation-failed",
                     fmt::format("{} has no /{} ({}), which the edit is of", native_.document->name,
                                 root.tag, prefix_of(text(root.ns_uri)))});
        }
    }

    /// The error as the client knows it: about a node of the request.
    Error error_of(const data::EditError& edit_error)
    {
        const OzkMapNode* node = origin(*edit_error.node);
        Error error{edit_error.tag, edit_error.what()};
        if (node != nullptr) {
            error.path        = paths_.of(*node);
            error.error_path  = error_path(paths_, *node);
            error.line        = node->line;
            error.bad_element = text(node->tag);
        }
        if (!edit_error.element.empty())
            error.bad_element = edit_error.element;
        if (std::string_view(edit_error.tag) == "bad-attribute") // there is but one
            error.bad_attribute = "operation";
        return error;
    }

    /// The node of the request that a node of the edit stands for: its own, or the first below it
    /// that has one; or the node itself, where it is the request's.
    const OzkMapNode* origin(const OzkMapNode& node)
    {
        if (node.origin != nullptr)
            return node.origin;
        if (paths_.parent_of(node) != nullptr)
            return &node;
        for (const OzkMapNode& child : children(node))
            if (const OzkMapNode* found = origin(child))
                return found;
        return nullptr;
    }

    Request& request_;
    const Native& native_;
    const MapLibrary& library_;
    const EditOptions& options_;
    const Hooks& hooks_;
    data::InstancePaths paths_;
    ozk::Run run_;
    ozk::Tree edit_; ///< the native edit
    Edited edited_;
};

} // namespace

Edited edit(Request& request, const Native& native, const MapLibrary& library,
            const EditOptions& options, const Hooks& hooks)
{
    return Editor(request, native, library, options, hooks).edit();
}

} // namespace ymap::agent
