// Walks with one node of interest each: the road to it, the node, and at its end nothing or the
// child of an unknown tag. What the library did on the way is read from the calls that the run has
// recorded, trace lines included.

#include "explore.h"

#include <algorithm>
#include <deque>
#include <stdexcept>

#include "run.h"
#include "tree.h"

namespace ymap::data {

namespace {

using ozk::Call;
using ozk::Op;

/// No tag of a schema can look like it (RFC 7950, 6.2).
constexpr char unknown_tag[] = "?";

constexpr char value_of_node[]  = "(value of the node)";
constexpr char value_of_above[] = "(value of the node above)";

/// A schema that is deeper is taken for one that contains itself.
constexpr size_t max_depth = 64;

/// One level of the road to a node.
struct Step {
    std::string tag;
    bool is_compared     = true;
    std::string function = {}; ///< of a node that isn't compared
};
using Road = std::vector<Step>; // the root first

uint32_t op_code_of(Query query)
{
    switch (query) {
    case Query::get_config: return MAP_OP_GET_CONFIG;
    case Query::get: return MAP_OP_GET;
    case Query::edit:
    case Query::erase: return MAP_OP_EDIT;
    }
    return MAP_OP_GET;
}

// ---------------------------------------------------------------------------------------------
// Calls, put in order by the functions that made them

struct Frame;

/// What a function did: a call of the framework, or a call of a function that traces.
struct Item {
    const Call* call;
    const Frame* frame;
};

struct Frame {
    std::string function; ///< as it is defined, with two underscores if it is generated
    std::vector<Item> items;
};

class CallTree {
public:
    explicit CallTree(std::span<const Call> calls)
    {
        std::vector<Frame*> open = {&top_};
        for (const Call& call : calls) {
            if (call.op != Op::trace) {
                open.back()->items.push_back({&call, nullptr});
                continue;
            }
            const auto [function, text] = parse(call.line);
            if (text != "Start" && text != "End")
                continue;
            const bool ends_open = text == "End" && open.back()->function == function;
            if (!ends_open) { // also at the "End" of a function that reports nothing else
                frames_.push_back({std::string(function), {}});
                open.back()->items.push_back({nullptr, &frames_.back()});
            }
            if (ends_open)
                open.pop_back();
            else if (text == "Start")
                open.push_back(&frames_.back());
        }
    }
    CallTree(const CallTree&) = delete;

    /// What was done outside of all functions: the call of the root walker.
    const Frame& top() const { return top_; }

private:
    /// Function and text of a trace line such as "#7: TRC: some_function:12 ctx=0x1234,Start".
    static std::pair<std::string_view, std::string_view> parse(std::string_view line)
    {
        constexpr std::string_view mark = ": TRC: ";
        const size_t begin              = line.find(mark);
        const size_t comma              = line.find(',');
        if (begin == line.npos || comma == line.npos)
            return {};
        const size_t name = begin + mark.size();
        return {line.substr(name, line.find(':', name) - name), line.substr(comma + 1)};
    }

    Frame top_;
    std::deque<Frame> frames_; // unmoved, as they point to each other
};

std::string plain(std::string_view function)
{
    return std::string(function.starts_with("__") ? function.substr(2) : function);
}

bool is_handler(const Frame& frame)
{
    for (const char* word : {"_cont_lvl", "_list_lvl", "_leaf_lvl"})
        if (frame.function.find(word) != std::string::npos)
            return true;
    return false;
}

bool is_augment_hook(const Frame& frame)
{
    return frame.function.ends_with("_parse_augments");
}

/// The function that `parent` called for `step`, or null.
const Frame* find_called(const Frame& parent, const Step& step)
{
    bool is_matched = false;
    for (const Item& item : parent.items) {
        if (item.frame != nullptr) {
            if (step.is_compared ? is_matched : item.frame->function == step.function)
                return item.frame;
        } else if (item.call->op == Op::match) {
            is_matched = item.call->result != 0 && item.call->text_1 == step.tag;
        }
    }
    return nullptr;
}

// ---------------------------------------------------------------------------------------------
// Walks

/// A walk down a road and what its last node's function did.
class Probe {
public:
    Probe(const ExploredRoot& root, const Road& road, Query query, bool with_unknown_child)
        : run_(op_code_of(query))
    {
        build(root, road, query, with_unknown_child);
        run_.record_calls(true);
        run_.set_trace(true);
        run_.set_trace_capacity(0);
        status_ = run_.walk(root.walker, tree_.top().subtrees);
        calls_.emplace(run_.calls());

        const auto& top = calls_->top().items;
        const auto first =
            std::ranges::find_if(top, [](const Item& item) { return item.frame != nullptr; });
        frame_ = first != top.end() ? first->frame : nullptr;
        for (size_t i = 1; i < road.size() && frame_ != nullptr; ++i)
            frame_ = find_called(*frame_, road[i]);
    }

    uint32_t status() const { return status_; }
    /// Null if the walk didn't come to the node.
    const Frame* frame() const { return frame_; }
    /// The record that the function was given.
    const OzkMapNode* node() const { return node_; }

private:
    /// A target that its parent calls without a look at the children is given the parent's record:
    /// it has none of its own.
    void build(const ExploredRoot& root, const Road& road, Query query, bool with_unknown_child)
    {
        OzkMapNode* node  = &tree_.append(tree_.top(), root.tag, root.ns_uri);
        OzkMapNode* above = nullptr;
        for (const Step& step : std::span(road).subspan(1)) {
            if (!step.is_compared)
                continue;
            above = node;
            node  = &tree_.append(*above, tree_.intern(step.tag), root.ns_uri);
        }
        ozk::Tree::set_value(*node, road.back().is_compared ? value_of_node : value_of_above);
        if (above != nullptr)
            ozk::Tree::set_value(*above, value_of_above);
        if (query == Query::erase) {
            node->edit        = static_cast<uint8_t>(ozk::Edit::erase);
            node->edit_is_own = 1;
        }
        if (with_unknown_child)
            tree_.append(*node, unknown_tag, root.ns_uri);
        node_ = node;
    }

    ozk::Tree tree_;
    ozk::Run run_;
    std::optional<CallTree> calls_;
    const Frame* frame_     = nullptr;
    const OzkMapNode* node_ = nullptr;
    uint32_t status_        = MAP_OK;
};

MappedPath mapped_path(const Call& add, const OzkMapNode* node)
{
    MappedPath path{.path           = add.text_1,
                    .ns_uri         = add.text_2,
                    .literal        = {},
                    .refers_to_node = node == add.node,
                    .is_list        = add.kind != 0};
    const std::string_view value = add.value != nullptr ? add.value : "";
    if (add.value == nullptr)
        path.value_from = ValueFrom::nowhere;
    else if (value == value_of_node)
        path.value_from = ValueFrom::node;
    else if (value == value_of_above)
        path.value_from = ValueFrom::above;
    else
        path.value_from = ValueFrom::literal, path.literal = value;
    return path;
}

/// The paths that `frame` and the functions it called have added.
void append_paths(std::vector<MappedPath>& paths, const Frame& frame, const OzkMapNode* node)
{
    for (const Item& item : frame.items) {
        if (item.frame != nullptr)
            append_paths(paths, *item.frame, node);
        else if (item.call->op == Op::add_path)
            paths.push_back(mapped_path(*item.call, node));
    }
}

/// The paths that the work on one node has added: what its walker or thunk did up to the first
/// function of another node. A handler that doesn't trace has worked in the walker's own frame.
std::vector<MappedPath> own_paths(const Frame& frame, const OzkMapNode* node)
{
    std::vector<MappedPath> paths;
    for (const Item& item : frame.items) {
        if (item.frame != nullptr && !is_handler(*item.frame))
            break;
        if (item.frame != nullptr)
            append_paths(paths, *item.frame, node);
        else if (item.call->op == Op::add_path)
            paths.push_back(mapped_path(*item.call, node));
    }
    return paths;
}

NodeKind kind_of(const Frame& frame)
{
    for (const Item& item : frame.items)
        if (item.call != nullptr && item.call->op == Op::hierarchy_add)
            return item.call->kind == MAP_HIER_LIST ? NodeKind::list : NodeKind::container;
    return NodeKind::leaf;
}

void append_functions_by_hand(std::vector<std::string>& names, const Frame& frame)
{
    for (const Item& item : frame.items) {
        if (item.frame == nullptr)
            continue;
        if (!item.frame->function.starts_with("__"))
            names.push_back(item.frame->function);
        append_functions_by_hand(names, *item.frame);
    }
}

// ---------------------------------------------------------------------------------------------

class Explorer {
public:
    Explorer(const ExploredRoot& root, const FindFunction& find_function,
             std::span<const std::string_view> spellings)
        : root_(root), find_function_(find_function), spellings_(spellings)
    {
    }

    std::vector<ExploredNode> explore()
    {
        Road road = {{root_.tag}};
        explore(road, "");
        return std::move(nodes_);
    }

private:
    /// Explores the node at the end of `road` and all below.
    void explore(Road& road, const std::string& path_above);
    void ask(ExploredNode& node, const Road& road, Query query) const;
    void name_functions(ExploredNode& node, const Frame& frame) const;
    uint32_t call_handler(const ExploredNode& node, const Probe& probe, Query query) const;
    std::vector<Step> children(const Road& road) const;

    bool is_by_hand(const std::string& name) const
    {
        const void* function = find_function_(name);
        return function != nullptr && function != find_function_("__" + name);
    }

    /// The tag in the name of a walker or thunk, which ends in it.
    std::string tag_in(const std::string& function) const
    {
        const std::string tag = function.substr(function.rfind('_') + 1);
        const auto known      = std::ranges::find_if(spellings_, [&](std::string_view spelling) {
            std::string bare(spelling);
            std::erase(bare, '-');
            return bare == tag;
        });
        return known != spellings_.end() ? std::string(*known) : tag;
    }

    const ExploredRoot& root_;
    const FindFunction& find_function_;
    std::span<const std::string_view> spellings_;
    std::vector<ExploredNode> nodes_;
};

void Explorer::explore(Road& road, const std::string& path_above)
{
    if (road.size() > max_depth)
        throw std::runtime_error("the schema of the map library doesn't end at " + path_above);
    ExploredNode node;
    node.tag         = road.back().tag;
    node.path        = path_above + "/" + node.tag;
    node.is_compared = road.back().is_compared;
    for (const Query query : {Query::get, Query::get_config, Query::edit, Query::erase})
        ask(node, road, query);
    nodes_.push_back(node);
    if (node.kind == NodeKind::leaf)
        return;
    for (const Step& child : children(road)) {
        road.push_back(child);
        explore(road, node.path);
        road.pop_back();
    }
}

void Explorer::ask(ExploredNode& node, const Road& road, Query query) const
{
    const Probe probe(root_, road, query, false);
    Outcome& outcome = node.outcomes[static_cast<size_t>(query)];
    outcome.status   = probe.status();
    if (probe.frame() == nullptr)
        return;
    outcome.is_reached = true;
    outcome.paths      = own_paths(*probe.frame(), probe.node());
    if (node.function.empty())
        name_functions(node, *probe.frame());
    if (node.kind != NodeKind::leaf && !outcome.paths.empty()) {
        const Probe full(root_, road, query, true);
        const auto paths = full.frame() != nullptr ? own_paths(*full.frame(), full.node())
                                                   : std::vector<MappedPath>();
        for (MappedPath& path : outcome.paths)
            path.only_if_empty = std::ranges::find(paths, path) == paths.end();
    }
    if (outcome.status == MAP_OK) {
        outcome.status     = call_handler(node, probe, query);
        outcome.is_dropped = outcome.status != MAP_OK;
    }
}

void Explorer::name_functions(ExploredNode& node, const Frame& frame) const
{
    node.function = frame.function;
    node.kind     = kind_of(frame);
    for (const Item& item : frame.items) {
        if (item.frame == nullptr || !is_handler(*item.frame))
            continue;
        node.handler = plain(item.frame->function);
        append_functions_by_hand(node.called_by_hand, *item.frame);
        break;
    }
    if (node.handler.empty()) { // a handler by hand that doesn't trace: by the rule of names
        constexpr const char* words[] = {"cont_", "list_", "leaf_"};
        node.handler                  = node.function;
        node.handler.insert(node.handler.find("_lvl") + 1, words[static_cast<size_t>(node.kind)]);
    }
    node.handler_by_hand = is_by_hand(node.handler);
    node.hook_by_hand    = is_by_hand(node.function + "_parse_augments");
}

/// What the handler itself answers, which a walk may drop.
uint32_t Explorer::call_handler(const ExploredNode& node, const Probe& probe, Query query) const
{
    void* handler = find_function_(node.handler);
    if (handler == nullptr)
        return MAP_OK;
    ozk::Run run(op_code_of(query));
    uint32_t status = MAP_OK;
    run.call([&] {
        status =
            node.kind == NodeKind::container
                ? reinterpret_cast<OzkMapContainerFunction*>(handler)(run.ctx(), probe.node(), 0,
                                                                      run.tree())
                : reinterpret_cast<OzkMapFunction*>(handler)(run.ctx(), probe.node(), run.tree());
    });
    return status;
}

/// The children of the node at the end of `road`, in the order in which its walker knows them.
std::vector<Step> Explorer::children(const Road& road) const
{
    std::vector<Step> children;
    const auto add = [&](Step child) {
        if (std::ranges::find(children, child.tag, &Step::tag) == children.end())
            children.push_back(std::move(child));
    };
    for (const Query query : {Query::get, Query::get_config, Query::edit}) {
        const Probe probe(root_, road, query, true);
        if (probe.frame() == nullptr)
            continue;
        for (const Item& item : probe.frame()->items) {
            if (item.frame == nullptr) {
                if (item.call->op == Op::match && item.call->text_1 != nullptr &&
                    std::string_view(item.call->text_1) == unknown_tag)
                    add({item.call->text_2});
            } else if (!is_handler(*item.frame) && !is_augment_hook(*item.frame)) {
                // Called although no tag matched: a target that gets its parent's node.
                add({tag_in(item.frame->function), false, item.frame->function});
            }
        }
    }
    return children;
}

} // namespace

std::vector<ExploredNode> explore(const ExploredRoot& root, const FindFunction& find_function,
                                  std::span<const std::string_view> spellings)
{
    return Explorer(root, find_function, spellings).explore();
}

} // namespace ymap::data
