// The walks of a request, and which node ended them.

#include "walk.h"

#include <fmt/format.h>

#include "input_error.h"

namespace ymap::host {

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
        if (observe)
            run.on_call([&](ozk::Run&, const ozk::Call& call) { observe(call); });
        // A walk that went well may leave a tag behind, which says nothing of a later one.
        const char* tag_before = run.offending_tag();
        Walk result{step.root->model_root, run.walk(step.walker, &step.root->tree.root()), {}, 0};
        run.on_call(nullptr);
        if (result.status != MAP_OK) {
            const OzkMapNode* node = run.offending_node();
            if (run.offending_tag() != tag_before)
                result.tag = run.offending_tag();
            else if ((node = run.reached_node()) != nullptr)
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
