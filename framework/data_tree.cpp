// Input trees made of plain data, and plain data made of the paths that a run has added.

#include "data_tree.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <utility>

#include "run.h"
#include "texts.h"

namespace ozk {

std::optional<Edit> edit_from_name(std::string_view name)
{
    static constexpr std::pair<std::string_view, Edit> names[] = {
        {"merge", Edit::merge},   {"replace", Edit::replace}, {"create", Edit::create},
        {"remove", Edit::remove}, {"delete", Edit::erase},
    };
    const auto* found = std::ranges::find(names, name, &std::pair<std::string_view, Edit>::first);
    return found != std::end(names) ? std::optional(found->second) : std::nullopt;
}

// ---------------------------------------------------------------------------------------------
// Input trees

struct InputTree::Store : Texts {};

namespace {

/// Fills the record of `data`, whose `edit` still is that of its parent, and all below.
void fill(InputTree& tree, OzkMapNode& node, const DataNode& data)
{
    node.tag    = data.tag ? tree.intern(*data.tag) : nullptr;
    node.ns_uri = data.ns_uri ? tree.intern(*data.ns_uri) : nullptr;
    node.line   = data.line;
    if (data.value) {
        node.value = tree.keep(*data.value);
        node.flags |= MAP_NODE_HAS_VALUE;
    }
    if (data.position) {
        node.position = *data.position;
        node.flags |= MAP_NODE_HAS_POSITION;
    }
    if (data.edit != Edit::none) {
        node.edit        = static_cast<uint8_t>(data.edit);
        node.edit_is_own = 1;
    }
    if (!data.children.empty()) {
        OzkMapNode* child = tree.make_children(node, static_cast<uint32_t>(data.children.size()));
        for (const DataNode& each : data.children)
            fill(tree, *child++, each);
    }
}

} // namespace

InputTree::InputTree(const DataNode& root, Edit default_edit)
{
    root_.edit = static_cast<uint8_t>(default_edit);
    fill(*this, root_, root);
}

OzkMapNode* InputTree::make_children(OzkMapNode& node, uint32_t count)
{
    if (!store_)
        store_ = std::make_shared<Store>();
    std::pmr::polymorphic_allocator<OzkMapNode> allocator(&store_->arena());
    OzkMapNode* children = count != 0 ? allocator.allocate(count) : nullptr;
    OzkMapNode fresh{};
    fresh.edit = node.edit;
    std::uninitialized_fill_n(children, count, fresh);
    node.subtrees      = children;
    node.subtree_count = count;
    node.flags |= MAP_NODE_HAS_SUBTREES;
    return children;
}

const char* InputTree::keep(std::string_view text)
{
    if (!store_)
        store_ = std::make_shared<Store>();
    return store_->keep(text);
}

const char* InputTree::intern(std::string_view text)
{
    if (!store_)
        store_ = std::make_shared<Store>();
    return store_->intern(text).data();
}

DataNode plain_tree(const OzkMapNode& node)
{
    DataNode data;
    if (node.tag != nullptr)
        data.tag = node.tag;
    if (node.ns_uri != nullptr)
        data.ns_uri = node.ns_uri;
    if (node.value != nullptr)
        data.value = node.value;
    if ((node.flags & MAP_NODE_HAS_POSITION) != 0)
        data.position = node.position;
    if (node.edit_is_own != 0)
        data.edit = static_cast<Edit>(node.edit);
    data.line = node.line;
    if ((node.flags & MAP_NODE_HAS_SUBTREES) != 0 && node.subtrees != nullptr) {
        data.children.reserve(node.subtree_count);
        for (const OzkMapNode& child : std::span(node.subtrees, node.subtree_count))
            data.children.push_back(plain_tree(child));
    }
    return data;
}

// ---------------------------------------------------------------------------------------------
// Output trees

namespace {

/// Where adds go at the moment: the node of a tag that was made last, by its index among its
/// siblings, and the same for what lies below it. There are as many as the schema has tags on one
/// level, however many entries its lists have.
struct Open {
    std::string_view tag;
    std::string_view ns_uri;
    size_t index;  ///< of the node among its siblings
    size_t node;   ///< number of the node
    size_t parent; ///< number of the node that it lies below: of an older one, it is stale
    std::vector<Open> below;
};

} // namespace

std::vector<DataNode> build_data_tree(std::span<const AddedPath> paths)
{
    std::vector<DataNode> roots;
    std::vector<Open> open_roots;
    size_t made_nodes = 0;

    for (const AddedPath& added : paths) {
        std::vector<DataNode>* siblings = &roots;
        std::vector<Open>* open         = &open_roots;
        DataNode* node                  = nullptr;
        size_t parent                   = 0;

        std::string_view rest = added.path;
        while (true) {
            rest.remove_prefix(std::min(rest.find_first_not_of('/'), rest.size()));
            if (rest.empty())
                break;
            const std::string_view tag = rest.substr(0, rest.find('/'));
            rest.remove_prefix(tag.size());

            auto entry          = std::ranges::find_if(*open, [&](const Open& each) {
                return each.tag == tag && each.ns_uri == added.ns_uri;
            });
            const bool is_known = entry != open->end();
            if (!is_known)
                entry = open->insert(entry, {tag, added.ns_uri, 0, 0, 0, {}});
            if (!is_known || entry->parent != parent || (rest.empty() && added.is_list)) {
                entry->index   = siblings->size();
                entry->node    = ++made_nodes;
                entry->parent  = parent;
                DataNode& made = siblings->emplace_back();
                made.children.reserve(entry->below.size());
                made.tag    = tag;
                made.ns_uri = added.ns_uri;
            }
            node     = &(*siblings)[entry->index];
            siblings = &node->children;
            open     = &entry->below;
            parent   = entry->node;
        }
        if (node == nullptr)
            continue;
        if (added.value)
            node->value = added.value;
        if (added.ref_node != nullptr) {
            node->line = added.ref_node->line;
            node->edit = added.ref_node->edit_is_own != 0 ? static_cast<Edit>(added.ref_node->edit)
                                                          : Edit::none;
        }
    }
    return roots;
}

} // namespace ozk
