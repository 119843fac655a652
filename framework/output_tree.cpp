// The tree of the other model, made of the paths that a walk has added.

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

#include "run.h"

namespace ozk {

namespace {

/// A schema node that paths have named, and the node of the tree that was made for it last. There
/// are as many as the schema has nodes, however many entries its lists have.
struct Step {
    const char* tag;
    const char* ns_uri;
    Step* above;
    std::vector<std::unique_ptr<Step>> below = {};
    OzkMapNode* node                         = nullptr;
    size_t number = 0; ///< of `node`, counted over all nodes made; 0: none so far
    size_t parent = 0; ///< number of the node that `node` lies below: of an older one, it is stale
    uint32_t children = 0; ///< that a node of this step had in the end, as far as is known
};

class OutputTree {
public:
    explicit OutputTree(Edit default_edit)
    {
        tree_.top().edit = static_cast<uint8_t>(default_edit);
        top_.node        = &tree_.top();
        top_.number      = ++made_;
    }

    void add(const AddedPath& added)
    {
        Step& step = step_of(added);
        if (&step == &top_)
            return;
        OzkMapNode& node = added.is_list ? make(step, node_of(*step.above)) : node_of(step);
        if (added.is_list)
            node.marks |= MARK_LIST_ENTRY;
        if (added.value != nullptr)
            Tree::set_value(node, added.value);
        if (const OzkMapNode* origin = origin_of(added)) {
            node.origin      = origin;
            node.line        = origin->line;
            node.edit_is_own = origin->edit != step.above->node->edit;
            node.edit        = origin->edit;
        }
    }

    Tree take() { return std::move(tree_); }

private:
    /// The step of a path. The same texts come again and again under the same addresses.
    Step& step_of(const AddedPath& added)
    {
        Known& known = known_[(reinterpret_cast<uintptr_t>(added.path) >> 3) % known_.size()];
        if (known.path != added.path || known.ns_uri != added.ns_uri)
            known = {added.path, added.ns_uri, &find_step(added.path, added.ns_uri)};
        return *known.step;
    }

    Step& find_step(std::string_view path, const char* ns_uri)
    {
        Step* step = &top_;
        while (true) {
            path.remove_prefix(std::min(path.find_first_not_of('/'), path.size()));
            if (path.empty())
                return *step;
            const std::string_view tag = path.substr(0, path.find('/'));
            path.remove_prefix(tag.size());
            const auto found = std::ranges::find_if(step->below, [&](const auto& each) {
                return each->tag == tag && same_text(each->ns_uri, ns_uri);
            });
            if (found == step->below.end()) {
                Step made{tree_.intern(tag), ns_uri, step};
                step = step->below.emplace_back(std::make_unique<Step>(std::move(made))).get();
            } else {
                step = found->get();
            }
        }
    }

    /// The node that is open for `step`, made if there is none below the node above.
    OzkMapNode& node_of(Step& step)
    {
        if (step.above == nullptr)
            return *step.node;
        OzkMapNode& above = node_of(*step.above);
        return step.parent == step.above->number ? *step.node : make(step, above);
    }

    /// Makes a node for `step` below the open node of the step above.
    OzkMapNode& make(Step& step, OzkMapNode& above)
    {
        Step& parent = *step.above;
        if (above.subtree_count == above.capacity)
            make_room(parent, above);
        step.node       = &tree_.append(above, step.tag, step.ns_uri);
        step.number     = ++made_;
        step.parent     = parent.number;
        parent.children = std::max(parent.children, above.subtree_count);
        return *step.node;
    }

    /// Room for as many children as such a node had before. The open nodes among those that move
    /// are open where they come to lie.
    void make_room(Step& step, OzkMapNode& node)
    {
        const OzkMapNode* moving = node.subtrees;
        const uint32_t few       = 2;
        tree_.reserve(node, std::max({step.children, few, 2 * node.capacity}));
        OzkMapNode* moved = ozk::children(node).data();
        for (const auto& child : step.below)
            if (child->parent == step.number)
                child->node = moved + (child->node - moving);
    }

    struct Known {
        const char* path;
        const char* ns_uri;
        Step* step;
    };

    Tree tree_;
    Step top_{"", "", nullptr};
    size_t made_ = 0;
    std::array<Known, 256> known_{};
};

} // namespace

Tree tree_of(std::span<const AddedPath> paths, Edit default_edit)
{
    OutputTree tree(default_edit);
    for (const AddedPath& added : paths)
        tree.add(added);
    return tree.take();
}

} // namespace ozk
