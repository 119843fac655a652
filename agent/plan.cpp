// Requests held against the schema of the map.

#include "plan.h"

#include <algorithm>
#include <unordered_set>

#include <fmt/core.h>

#include "run.h"
#include "text.h"

namespace ymap::agent {

namespace {

using data::ExploredNode;
using data::ListKeys;
using data::NodeKind;
using data::Query;
using ozk::children;
using ozk::deletes;
using ozk::Edit;
using ozk::edit_of;
using ozk::text;

/// The keys of a list of the model of `root`; null for any other node.
const ListKeys* keys_of(const ModelRoot& root, const Schema::Node& schema)
{
    return data::keys_of(list_keys(), root.ns_uri, schema.facts->path);
}

/// Whether `tag` is one of the keys.
bool is_key(const char* tag, const ListKeys* keys)
{
    return keys != nullptr &&
           std::ranges::any_of(keys->leaves, [&](const char* leaf) { return text(tag) == leaf; });
}

/// Notes on nodes, told by their instance path.
class Notes {
public:
    explicit Notes(const OzkMapNode& top) : paths_(top, list_keys()) {}

    /// `what` is said of the node: "has no native path".
    Note& add(const char* tag, std::string_view what, const OzkMapNode& node)
    {
        if (notes_.size() == most || size_ > most_bytes) {
            ++untold_;
            return spare_;
        }
        notes_.push_back({tag, fmt::format("'{}' {}", text(node.tag), what)});
        Note& note       = notes_.back();
        note.path        = paths_.of(node);
        note.error_path  = error_path(paths_, node);
        note.line        = node.line;
        note.bad_element = text(node.tag);
        size_ += note.path.size();
        return note;
    }
    void unknown(const OzkMapNode& node, bool own_namespace)
    {
        if (own_namespace)
            add("unknown-element", "is not known here", node);
        else
            add("unknown-namespace", "is of a model that nobody serves here", node).bad_namespace =
                text(node.ns_uri);
    }
    void unmapped(const OzkMapNode& node)
    {
        add("operation-not-supported", "has no native path", node);
    }
    /// A root that nobody has.
    void unknown_root(const OzkMapNode& root)
    {
        unknown(root, std::ranges::any_of(model_roots(), [&](const ModelRoot& each) {
                    return each.ns_uri == text(root.ns_uri);
                }));
    }
    std::vector<Note> take()
    {
        if (untold_ > 0)
            notes_.push_back(
                {"operation-failed", fmt::format("there are {} more such nodes", untold_)});
        return std::move(notes_);
    }

private:
    /// A request may hold as many as it has bytes, and each takes hundreds of bytes to tell, or as
    /// many as the value of a key has.
    static constexpr size_t most = 1000, most_bytes = 1 << 20;

    data::InstancePaths paths_;
    std::vector<Note> notes_;
    Note spare_{};      ///< taken for those that aren't told
    size_t size_   = 0; ///< of the paths
    size_t untold_ = 0;
};

/// Finds out what becomes of a node whose tag the schema doesn't have, below one that hands such
/// nodes to a function written by hand, by walking just that node.
class HookProbe {
public:
    HookProbe(const MapLibrary& library, uint32_t op_code) : library_(library), op_code_(op_code) {}

    /// Whether paths are added for `child` of a node that `parent` of the schema of `root` stands
    /// for; with `counts_siblings`, a call of a sibling library is enough.
    bool is_taken(const ModelRoot& root, const Schema::Node& parent, const OzkMapNode& child,
                  bool counts_siblings = false)
    {
        if (!parent.facts->hook_by_hand)
            return false;
        if (&parent != parent_ || counts_siblings != counts_siblings_) {
            parent_          = &parent;
            counts_siblings_ = counts_siblings;
            alone_           = count(root, nullptr);
        }
        return count(root, &child) > alone_;
    }

private:
    size_t count(const ModelRoot& root, const OzkMapNode* child) const
    {
        ozk::Tree tree;
        OzkMapNode* node = &tree.top();
        node->edit       = static_cast<uint8_t>(Edit::merge);
        const std::string_view path(parent_->facts->path);
        for (size_t end = 0; end != path.npos;) {
            const size_t begin = end + 1;
            end                = path.find('/', begin);
            node = &tree.append(*node, tree.keep(path.substr(begin, end - begin)), root.ns_uri);
            if (const auto* keys = data::keys_of(list_keys(), root.ns_uri, path.substr(0, end)))
                for (const char* leaf : keys->leaves)
                    ozk::Tree::set_value(tree.append(*node, leaf, root.ns_uri), "key");
        }
        if (child != nullptr)
            tree.append(*node) = *child;
        ozk::Run run(op_code_);
        size_t calls = 0;
        if (counts_siblings_)
            run.on_sibling([&](const char*, const OzkMapNode*) { ++calls; });
        run.walk(library_.root_walker(root), tree.top().subtrees);
        return run.added().size() + calls;
    }

    const MapLibrary& library_;
    uint32_t op_code_;
    const Schema::Node* parent_ = nullptr; ///< the one asked for last
    bool counts_siblings_       = false;
    size_t alone_               = 0; ///< what becomes of that one without such a child
};

// ---------------------------------------------------------------------------------------------
// Reads

class ReadPlanner {
public:
    ReadPlanner(const Request& request, const MapLibrary& library)
        : request_(request), library_(library), probe_(library, request.op_code),
          notes_(request.content != nullptr ? *request.content : request.document.tree.top())
    {
    }

    ReadPlan plan()
    {
        if (request_.reads_all) {
            for (const ModelRoot& root : model_roots()) {
                OzkMapNode node{};
                node.tag    = root.name;
                node.ns_uri = root.ns_uri;
                if (reaches(root) && (!root.is_clients || library_.root_walker(root) != nullptr))
                    plan_root(root, node);
            }
        }
        for (const OzkMapNode& node : request_.roots()) {
            const ModelRoot* root = find_root(node);
            if (root == nullptr)
                notes_.unknown_root(node);
            else if ((node.marks & ozk::MARK_MATCHES_NONE) != 0)
                matches_none(node);
            else if (!reaches(*root))
                notes_.add("operation-not-supported", "is state, which get-config doesn't read",
                           node);
            else if (root->is_clients && library_.root_walker(*root) == nullptr)
                notes_.add("operation-not-supported", "has no walker in the map library", node);
            else
                plan_root(*root, node);
        }
        plan_.notes = notes_.take();
        return std::move(plan_);
    }

private:
    bool reaches(const ModelRoot& root) const
    {
        return request_.op_code == MAP_OP_GET || !root.is_state;
    }

    void matches_none(const OzkMapNode& node)
    {
        notes_.add("unknown-attribute", "has an attribute that no data has, and selects nothing",
                   node);
    }

    void plan_root(const ModelRoot& root, const OzkMapNode& node)
    {
        if (!root.is_clients) {
            const OzkMapNode filter = plan_native(root, node, fmt::format("/{}", root.name));
            add(plan_.filter, plan_.filter.top(), filter);
            return;
        }
        if (node.value != nullptr) {
            notes_.add("bad-element", "holds no value, and selects nothing", node);
            return;
        }
        // Asked for only if something below it is: a root without children selects all.
        const Schema::Node& schema = library_.schema(root).root();
        schema_                    = &library_.schema(root);
        root_                      = &root;
        asked_for_.clear(); // another root of that name may not have been asked for
        OzkMapNode filter = bare(node), asked = bare(node);
        if (plan_children(schema, node, filter, &asked)) {
            plan_.filter.append(plan_.filter.top()) = filter;
            append_once(plan_.map_request.top(), asked);
        }
    }

    /// The filter of a node of a native model, which is read as it stands.
    OzkMapNode plan_native(const ModelRoot& root, const OzkMapNode& node, const std::string& path)
    {
        if ((node.marks & ozk::MARK_MATCHES_NONE) != 0)
            matches_none(node);
        else if (!text(node.ns_uri).empty() && find_module(node.ns_uri) == nullptr)
            notes_.unknown(node, false);
        if (children(node).empty())
            return node;
        OzkMapNode filter = bare(node);
        for (const OzkMapNode& child : children(node)) {
            const OzkMapNode planned =
                plan_native(root, child, fmt::format("{}/{}", path, child.tag));
            add(plan_.filter, filter, planned);
        }
        if (const ListKeys* keys = data::keys_of(list_keys(), root.ns_uri, path))
            complete(plan_.filter, filter, *keys);
        return filter;
    }

    /// A root of a request that comes twice is asked for once.
    void append_once(OzkMapNode& top, const OzkMapNode& asked)
    {
        OzkMapNode* same = ozk::find_child(top, asked.tag, asked.ns_uri);
        if (same == nullptr)
            plan_.map_request.append(top) = asked;
        else if (children(asked).empty() || children(*same).empty())
            *same = bare(*same);
        else
            for (const OzkMapNode& child : children(asked))
                plan_.map_request.append(*same) = child;
    }

    static OzkMapNode bare(const OzkMapNode& node)
    {
        OzkMapNode copy    = node;
        copy.subtrees      = nullptr;
        copy.subtree_count = copy.capacity = 0;
        copy.flags &= static_cast<uint8_t>(~MAP_NODE_HAS_SUBTREES);
        return copy;
    }

    static OzkMapNode& add(ozk::Tree& tree, OzkMapNode& parent, const OzkMapNode& node)
    {
        OzkMapNode& made = tree.append(parent);
        made             = node;
        return made;
    }

    /// Plans the children of `node`, which the schema node stands for: those that can be read go
    /// to `filter`, and to `asked` what the map is asked for; null where it looks at no child.
    /// False if the node has children and none of them can be read.
    bool plan_children(const Schema::Node& schema, const OzkMapNode& node, OzkMapNode& filter,
                       OzkMapNode* asked)
    {
        if (children(node).empty())
            return true;
        bool is_asked = false;
        plan_.filter.reserve(filter, node.subtree_count);
        for (const OzkMapNode& child : children(node)) {
            const bool is_read = plan_child(schema, child, filter, asked);
            if (!is_read && is_match(child)) // which then never holds
                return false;
            if (!is_read) // it stands beside the matches all the same: they don't select the rest
                add(plan_.filter, filter, bare(child)).marks |= ozk::MARK_MATCHES_NONE;
            is_asked |= is_read;
        }
        return is_asked;
    }

    /// Whether a node of a filter is a content match (RFC 6241, 6.2.5).
    static bool is_match(const OzkMapNode& node)
    {
        return children(node).empty() && !data::trim(text(node.value)).empty();
    }

    bool plan_child(const Schema::Node& parent, const OzkMapNode& child, OzkMapNode& filter,
                    OzkMapNode* asked)
    {
        if ((child.marks & ozk::MARK_MATCHES_NONE) != 0) {
            matches_none(child);
            return false;
        }
        const Schema::Node* schema = schema_->child(parent, child.tag);
        const bool is_own = text(child.ns_uri).empty() || text(child.ns_uri) == root_->ns_uri;
        if (schema == nullptr || !is_own) {
            // The map looks at tags alone, the filter that trims its answer at namespaces as well.
            if (schema != nullptr || !probe_.is_taken(*root_, parent, child)) {
                notes_.unknown(child, is_own);
                return false;
            }
            if (asked != nullptr)
                add(plan_.map_request, *asked, child);
            add(plan_.filter, filter, child);
            return true;
        }
        if (schema->facts->kind == NodeKind::leaf)
            return plan_leaf(*schema, child, filter, asked);

        const ListKeys* keys = keys_of(*root_, *schema);
        OzkMapNode own = bare(child), below = bare(child);
        if (child.value != nullptr) {
            notes_.add("bad-element", "holds no value, and selects nothing", child);
            return false;
        }
        const bool is_whole = asked == nullptr || reads_whole(*schema);
        if (!plan_children(*schema, child, own, is_whole ? nullptr : &below))
            return false;
        if (!children(child).empty() && keys != nullptr) {
            complete(plan_.filter, own, *keys);
            if (is_whole)
                below = whole_entry(child, *keys);
            else if (matches_beside_key(child, *keys))
                below = matched_entry(child, *keys);
            else
                complete(plan_.map_request, below, *keys);
        }
        add(plan_.filter, filter, own);
        if (asked != nullptr && (keys == nullptr || is_new(below)))
            add(plan_.map_request, *asked, below);
        return true;
    }

    bool plan_leaf(const Schema::Node& schema, const OzkMapNode& leaf, OzkMapNode& filter,
                   OzkMapNode* asked)
    {
        const Query query = request_.op_code == MAP_OP_GET ? Query::get : Query::get_config;
        if (schema.facts->on(query).paths.empty()) {
            notes_.unmapped(leaf);
            return false;
        }
        if (!children(leaf).empty()) {
            notes_.add("bad-element", "is a leaf, and selects nothing below it", leaf);
            return false;
        }
        add(plan_.filter, filter, leaf);
        if (asked != nullptr)
            add(plan_.map_request, *asked, leaf);
        return true;
    }

    /// Whether the walker of the list looks at no child of an entry, but gives all targets the
    /// entry itself.
    bool reads_whole(const Schema::Node& schema) const
    {
        return schema.facts->kind == NodeKind::list && !schema.children.empty() &&
               !schema_->at(schema.children.front()).facts->is_compared;
    }

    /// Adds the keys that an entry doesn't name, for their values.
    static void complete(ozk::Tree& tree, OzkMapNode& entry, const ListKeys& keys)
    {
        for (const char* leaf : keys.leaves)
            if (std::ranges::none_of(children(entry), [&](const OzkMapNode& each) {
                    return text(each.tag) == leaf &&
                           (text(each.ns_uri).empty() || text(each.ns_uri) == keys.ns_uri) &&
                           (each.marks & ozk::MARK_MATCHES_NONE) == 0;
                }))
                tree.append(entry, leaf, entry.ns_uri).marks |= ozk::MARK_COMPLETES;
    }

    static const OzkMapNode* key_match(const OzkMapNode& entry, const ListKeys& keys)
    {
        for (const OzkMapNode& child : children(entry))
            if (is_key(child.tag, &keys) && !data::trim(text(child.value)).empty() &&
                (child.marks & ozk::MARK_MATCHES_NONE) == 0)
                return &child;
        return nullptr;
    }

    /// Whether an entry of a filter holds content matches and nothing else, on other leaves than
    /// its keys: it selects all of the entries that match, which the map has to be asked for.
    static bool matches_beside_key(const OzkMapNode& entry, const ListKeys& keys)
    {
        return std::ranges::all_of(children(entry), is_match) &&
               std::ranges::any_of(children(entry), [&](const OzkMapNode& child) {
                   return !is_key(child.tag, &keys);
               });
    }

    /// The entry with its key alone, or empty if it has none: the map reads all of it.
    OzkMapNode matched_entry(const OzkMapNode& entry, const ListKeys& keys)
    {
        OzkMapNode made = bare(entry);
        if (const OzkMapNode* key = key_match(entry, keys))
            add(plan_.map_request, made, *key);
        return made;
    }

    /// An entry without children, whose own value is the key's: the key's target hands it on.
    OzkMapNode whole_entry(const OzkMapNode& entry, const ListKeys& keys)
    {
        OzkMapNode made = bare(entry);
        if (const OzkMapNode* key = key_match(entry, keys))
            ozk::Tree::set_value(made, plan_.map_request.keep(data::trim(key->value)));
        return made;
    }

    /// Whether an entry of the root is the first that asks for just this: what is below entries is
    /// asked for as it comes.
    bool is_new(const OzkMapNode& entry)
    {
        return !children(entry).empty() || asked_for_.insert(text(entry.value)).second;
    }

    const Request& request_;
    const MapLibrary& library_;
    HookProbe probe_;
    Notes notes_;
    ReadPlan plan_;
    const Schema* schema_  = nullptr;
    const ModelRoot* root_ = nullptr;                ///< the one that is read
    std::unordered_set<std::string_view> asked_for_; ///< its entries that are asked for whole
};

// ---------------------------------------------------------------------------------------------
// Edits

/// Whether a node goes away with one above it.
bool goes_with_entry(const OzkMapNode& node)
{
    return node.edit_is_own == 0 && deletes(edit_of(node));
}

class EditExaminer {
public:
    EditExaminer(Request& request, const MapLibrary& library, bool cut)
        : request_(request), library_(library), cut_(cut), probe_(library, MAP_OP_EDIT),
          faults_(*request.content), losses_(*request.content)
    {
    }

    Examination examine()
    {
        std::unordered_set<const ModelRoot*> seen;
        for (OzkMapNode& root : children(content())) {
            const ModelRoot* known = find_root(root);
            if (known == nullptr) {
                faults_.unknown_root(root); // it asks for another model, not for more of this one
            } else if (known->is_state) {
                faults_.add("operation-not-supported", "is state, which can't be edited", root);
            } else if (known->is_clients && library_.root_walker(*known) == nullptr) {
                faults_.add("operation-not-supported", "has no walker in the map library", root);
            } else if (!seen.insert(known).second) {
                faults_.add("bad-element", "is given twice", root);
            } else if (root.value != nullptr) {
                faults_.add("bad-element", "holds no value", root);
            } else if (known->is_clients) {
                schema_ = &library_.schema(*known);
                root_   = known;
                examine_children(schema_->root(), root);
            }
        }
        return {faults_.take(), losses_.take()};
    }

private:
    /// The request is ours; only its readers see it as constant.
    OzkMapNode& content() const { return const_cast<OzkMapNode&>(*request_.content); }

    void examine_children(const Schema::Node& schema, OzkMapNode& node)
    {
        std::unordered_set<const Schema::Node*> seen; // those that can't come twice
        for (OzkMapNode& child : children(node)) {
            const Schema::Node* known = schema_->child(schema, child.tag);
            if (known == nullptr)
                examine_foreign(schema, child);
            else if (known->facts->kind != NodeKind::list && !seen.insert(known).second)
                faults_.add("bad-element", "is given twice", child);
            else
                examine_known(*known, child);
        }
        take_out(node);
    }

    void examine_foreign(const Schema::Node& parent, OzkMapNode& child)
    {
        const bool is_own = ozk::same_text(child.ns_uri, root_->ns_uri);
        if (!is_own && probe_.is_taken(*root_, parent, child))
            return;
        child.marks |= ozk::MARK_DROPPED;
        if (!goes_with_entry(child))
            losses_.unknown(child, is_own);
    }

    void examine_known(const Schema::Node& schema, OzkMapNode& child)
    {
        if (schema.facts->kind == NodeKind::leaf) {
            if (!children(child).empty())
                faults_.add("unknown-element", "stands in a leaf", children(child).front());
            else if (schema.facts->on(Query::edit).status == MAP_NOT_MAPPED) {
                child.marks |= ozk::MARK_DROPPED;
                if (!goes_away(child))
                    losses_.unmapped(child);
            }
            return;
        }
        if (child.value != nullptr)
            faults_.add("bad-element", "holds no value", child);
        if (const ListKeys* keys = keys_of(*root_, schema))
            require_keys(child, *keys);
        examine_children(schema, child);
    }

    /// Whether nothing is lost with a known leaf that isn't mapped: it is no part of what the data
    /// has in the end, and is not there now.
    static bool goes_away(const OzkMapNode& leaf)
    {
        const Edit edit = edit_of(leaf);
        return edit == Edit::none || edit == Edit::remove || goes_with_entry(leaf);
    }

    void require_keys(const OzkMapNode& entry, const ListKeys& keys)
    {
        for (const char* leaf : keys.leaves) {
            const OzkMapNode* key = ozk::find_child(entry, leaf, entry.ns_uri);
            if (key == nullptr || key->value == nullptr)
                faults_.add("missing-element", fmt::format("has no key '{}'", leaf), entry)
                    .bad_element = leaf;
        }
    }

    /// Takes the children that were dropped out of the array.
    void take_out(OzkMapNode& node) const
    {
        const auto all = children(node);
        const auto kept =
            std::stable_partition(all.begin(), all.end(), [&](const OzkMapNode& child) {
                return !cut_ || (child.marks & ozk::MARK_DROPPED) == 0;
            });
        node.subtree_count = static_cast<uint32_t>(kept - all.begin());
    }

    Request& request_;
    const MapLibrary& library_;
    const bool cut_;
    HookProbe probe_;
    Notes faults_, losses_;
    const Schema* schema_  = nullptr;
    const ModelRoot* root_ = nullptr; ///< the one that is edited
};

// ---------------------------------------------------------------------------------------------
// Native data

/// Looks each node of a native document up in the schema of the map.
class FitCheck {
public:
    FitCheck(const OzkMapNode& top, const MapLibrary& library)
        : library_(library), top_(top), probe_(library, MAP_OP_GET), notes_(top)
    {
    }

    std::vector<Note> check()
    {
        for (const OzkMapNode& node : children(top_)) {
            root_ = find_root(node);
            if (root_ == nullptr || library_.root_walker(*root_) == nullptr)
                continue;
            schema_ = &library_.schema(*root_);
            check_children(schema_->root(), node);
        }
        return notes_.take();
    }

private:
    void check_children(const Schema::Node& schema, const OzkMapNode& node)
    {
        for (const OzkMapNode& child : children(node)) {
            const Schema::Node* known = schema_->child(schema, child.tag);
            const auto note           = [&](std::string_view what) {
                notes_.add("unknown-element", what, child);
            };
            if (known == nullptr) {
                if (!probe_.is_taken(*root_, schema, child, true))
                    note("is not in the schema of the map, skipped");
            } else if (known->facts->kind == NodeKind::leaf) {
                if (!children(child).empty())
                    note("is a leaf, what stands in it is skipped");
            } else {
                if (child.value != nullptr)
                    note("takes no value, its value is skipped");
                check_children(*known, child);
            }
        }
    }

    const MapLibrary& library_;
    const OzkMapNode& top_;
    HookProbe probe_;
    Notes notes_;
    const Schema* schema_  = nullptr;
    const ModelRoot* root_ = nullptr;
};

} // namespace

ReadPlan plan_read(const Request& request, const MapLibrary& library)
{
    return ReadPlanner(request, library).plan();
}

Examination examine_edit(Request& request, const MapLibrary& library, bool cut)
{
    return EditExaminer(request, library, cut).examine();
}

std::vector<Note> find_unfit(const OzkMapNode& top, const MapLibrary& library)
{
    return FitCheck(top, library).check();
}

} // namespace ymap::agent
