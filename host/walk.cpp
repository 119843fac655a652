// The walks of a request, and which node ended them.

#include "walk.h"

#include <algorithm>
#include <cstring>

#include <fmt/format.h>

#include "input_error.h"

namespace ymap::host {

namespace {

/// Follows a walk from call to call, to tell afterwards which node ended it. The framework knows
/// that only of statuses that come with a copy of the tag.
class Follower {
public:
    void operator()(const ozk::Call& call)
    {
        if (call.op == ozk::Op::hierarchy_add)
            open_.push_back(call.node);
        else if (call.op == ozk::Op::hierarchy_remove && !open_.empty())
            open_.pop_back();
        else if (call.op == ozk::Op::match && !open_.empty())
            parent_ = open_.back(), tag_ = call.text_1;
    }

    /// The node whose tag was compared last: the first child of that tag, since an earlier one
    /// would have ended the walk in the same way. Null if it isn't there.
    const OzkMapNode* last_compared() const
    {
        if (parent_ == nullptr || tag_ == nullptr || (parent_->flags & MAP_NODE_HAS_SUBTREES) == 0)
            return nullptr;
        const OzkMapNode* end   = parent_->subtrees + parent_->subtree_count;
        const OzkMapNode* found = std::find_if(parent_->subtrees, end, [&](const OzkMapNode& node) {
            return std::strcmp(node.tag, tag_) == 0;
        });
        return found != end ? found : nullptr;
    }

private:
    std::vector<const OzkMapNode*> open_;
    const OzkMapNode*              parent_ = nullptr;
    const char*                    tag_    = nullptr;
};

} // namespace

std::vector<Step> plan_walks(const Request& request, const MapLibrary& library)
{
    std::vector<Step> steps;
    for (const RequestRoot& root : request.roots) {
        const bool is_last = &root == &request.roots.back();
        if (OzkMapFunction* walker = library.root_walker(*root.model_root))
            steps.push_back({&root, walker});
        else if (!request.reads_all || (is_last && steps.empty()))
            throw InputError(fmt::format("{}:{}: the map library {} has no walker {} for /{}",
                                         request.document, root.tree.root().line, library.path(),
                                         root.model_root->symbol, root.model_root->name));
    }
    return steps;
}

std::vector<Walk> walk_roots(ozk::Run& run, const std::vector<Step>& steps,
                             const std::function<void(const ozk::Call&)>& observe)
{
    std::vector<Walk> walks;
    for (const Step& step : steps) {
        Follower follower;
        run.on_call([&](ozk::Run&, const ozk::Call& call) {
            follower(call);
            if (observe)
                observe(call);
        });
        // A walk that went well may leave a tag behind, which says nothing of a later one.
        const char* tag_before = run.offending_tag();
        Walk result{step.root->model_root, run.walk(step.walker, &step.root->tree.root()), {}, 0};
        run.on_call(nullptr);
        if (result.status != MAP_OK) {
            const OzkMapNode* node = run.offending_node();
            if (run.offending_tag() != tag_before)
                result.tag = run.offending_tag();
            else if ((node = follower.last_compared()) != nullptr)
                result.tag = node->tag;
            result.line = node != nullptr ? node->line : 0;
        }
        walks.push_back(result);
        if (result.status != MAP_OK)
            break;
    }
    return walks;
}

} // namespace ymap::host
