// The class that owns a run: what surrounds the operations, and how calls are written as text.

#include "run.h"

#include <algorithm>
#include <stdexcept>

#include "run_state.h"

namespace ozk {

constinit thread_local Run::State* current_state = nullptr;

namespace {

/// Makes a run the thread's current one for a scope. Walks may be nested.
class CurrentScope {
public:
    explicit CurrentScope(Run::State& state) : before_(current_state) { current_state = &state; }
    ~CurrentScope() { current_state = before_; }
    CurrentScope(const CurrentScope&)            = delete;
    CurrentScope& operator=(const CurrentScope&) = delete;

private:
    Run::State* before_;
};

const char* level_name(uint32_t level)
{
    return level == MAP_LOG_ERROR ? "error" : level == MAP_LOG_TRACE ? "trace" : "other";
}

/// The text on one line: control characters and backslashes escaped; null as `-`.
std::string shown(const char* text)
{
    if (text == nullptr)
        return "-";
    std::string out;
    for (; *text != '\0'; ++text) {
        const auto byte = static_cast<unsigned char>(*text);
        if (byte < 0x20 || byte == 0x7f) {
            char escape[8];
            snprintf(escape, sizeof escape, "\\x%02x", byte);
            out += escape;
        } else {
            out += byte == '\\' ? "\\\\" : std::string(1, *text);
        }
    }
    return out;
}

std::string shown(const OzkMapNode* node)
{
    return node != nullptr ? shown(node->tag) : "-";
}

} // namespace

// ---------------------------------------------------------------------------------------------
// Calls as text

const char* name_of(Op op)
{
    switch (op) {
    case Op::hierarchy_add: return "ozk_map_add_to_node_hierarchy";
    case Op::hierarchy_remove: return "ozk_map_remove_from_node_hierarchy";
    case Op::update_list: return "ozk_map_update_current_list_node";
    case Op::match: return "ozk_map_do_these_match";
    case Op::is_request_add: return "ozk_map_is_request_add";
    case Op::is_request_delete: return "ozk_map_is_request_delete";
    case Op::add_path: return "ozk_map_datatree_add_path_flagged";
    case Op::copy_text: return "ozk_strdup";
    case Op::should_log: return "ozk_debug_should_log";
    case Op::log: return "_tlm_dt_log_filter_adv";
    case Op::trace_index: return "ret_nc_ozk_trace_index_incr";
    case Op::trace: return "_lstrace";
    case Op::sibling: return "sibling";
    }
    return "-";
}

std::string to_text(const Call& call)
{
    const std::string node   = shown(call.node);
    const std::string text_1 = shown(call.text_1);
    const std::string text_2 = shown(call.text_2);
    const std::string result = ") = " + std::to_string(call.result);
    std::string name         = std::string(name_of(call.op)) + "(";
    switch (call.op) {
    case Op::hierarchy_add:
        return name + node + (call.kind == MAP_HIER_LIST ? ", list)" : ", container)");
    case Op::hierarchy_remove: return name + node + ")";
    case Op::update_list: return name + text_1 + result;
    case Op::is_request_add:
    case Op::is_request_delete: return name + node + result;
    case Op::match: return name + text_1 + ", " + text_2 + result;
    case Op::copy_text: return name + text_1 + ", " + text_2 + ")";
    case Op::add_path:
        return name + text_1 + ", " + text_2 + ", " + shown(call.value) + ", " + node + ", " +
               std::to_string(call.kind) + result;
    case Op::should_log: return name + level_name(call.kind) + result;
    case Op::log: return name + level_name(call.kind) + ", " + shown(call.line.c_str()) + ")";
    case Op::trace_index: return name + result;
    case Op::trace: return name + shown(call.line.c_str()) + ")";
    case Op::sibling: return name + text_1 + ", " + node + result;
    }
    return name;
}

// ---------------------------------------------------------------------------------------------
// The run

Run::State::State(Run& owner, uint32_t op_code) : run(owner)
{
    operation.op_code  = op_code;
    request.operation  = &operation;
    ctx.request        = &request;
    ctx._debug_ctx.run = &run;
    ctx.error_log      = value_of(error_log);
    ctx.trace_log      = value_of(trace_log);
    ctx.trace_buffer   = value_of(trace_buffer);
}

void Run::State::fault(Op op, std::string_view what) noexcept
{
    faults.push_back(std::string(name_of(op)) + ": " + std::string(what));
}

Run::Run(uint32_t op_code) : state_(std::make_unique<State>(*this, op_code)) {}
Run::~Run() = default;

OzkMapCtx* Run::ctx()
{
    return &state_->ctx;
}

OzkDataTree* Run::tree()
{
    return &state_->tree;
}

void Run::set_operation(uint32_t op_code)
{
    state_->operation.op_code = op_code;
}

uint32_t Run::walk(OzkMapFunction* function, const OzkMapNode* node)
{
    const CurrentScope current(*state_);
    const size_t depth        = state_->hierarchy.size();
    const size_t floor_before = std::exchange(state_->hierarchy_floor, depth);
    const char* tag_before    = state_->request.offending_tag;
    state_->reached           = {};
    state_->compared          = nullptr;

    const uint32_t status = function(&state_->ctx, node, &state_->tree);

    if (state_->hierarchy.size() != depth) {
        state_->faults.push_back("a walk has left " +
                                 std::to_string(state_->hierarchy.size() - depth) +
                                 " node(s) on the hierarchy");
        state_->hierarchy.resize(depth);
    }
    state_->hierarchy_floor = floor_before;
    const char* tag         = state_->request.offending_tag;
    if (tag != tag_before && tag != nullptr && !std::ranges::count(state_->copies, tag))
        state_->faults.push_back("a walk has left an offending tag that is no copy of ozk_strdup");
    return status;
}

void Run::call(const std::function<void()>& call)
{
    const CurrentScope current(*state_);
    call();
}

void Run::set_level(uint32_t level, bool on)
{
    if (level >= 32)
        throw std::invalid_argument("no such log level");
    const uint32_t bit = uint32_t{1} << level;
    uint32_t& all      = state_->ctx._debug_ctx.levels;
    all                = on ? all | bit : all & ~bit;
}

void Run::set_trace(bool on)
{
    state_->ctx.trace_on = on ? 1 : 0;
}

void Run::set_trace_capacity(size_t lines)
{
    state_->trace_capacity = lines;
    while (state_->trace.size() > lines)
        state_->trace.pop_front();
}

void Run::set_log_stream(FILE* stream)
{
    state_->log_stream = stream;
}

void Run::record_calls(bool on)
{
    state_->recording = on;
    state_->update_hooked();
}

void Run::on_call(std::function<void(Run&, const Call&)> listener)
{
    state_->listener = nullptr;
    if (listener)
        state_->listener = std::make_shared<State::Listener>(std::move(listener));
    state_->update_hooked();
}

void Run::answer(Op op, size_t k, uint32_t status)
{
    if (!can_be_answered(op))
        throw std::invalid_argument(std::string("no answer can be set for ") + name_of(op));
    state_->answers[{op, k}] = status;
    state_->update_hooked();
}

std::span<const Call> Run::calls() const
{
    return state_->calls;
}

std::span<const AddedPath> Run::added() const
{
    return state_->tree.paths;
}

const char* Run::offending_tag() const
{
    return state_->request.offending_tag;
}

const OzkMapNode* Run::offending_node() const
{
    return state_->offending_node;
}

const OzkMapNode* Run::reached_node() const
{
    const auto [node, child_tag] = state_->reached;
    if (node == nullptr || child_tag == nullptr)
        return node;
    if ((node->flags & MAP_NODE_HAS_SUBTREES) == 0 || node->subtrees == nullptr)
        return nullptr;
    const std::span children(node->subtrees, node->subtree_count);
    const auto found = std::ranges::find(children, child_tag, &OzkMapNode::tag);
    return found != children.end() ? &*found : nullptr;
}

std::vector<std::string> Run::trace_lines() const
{
    return {state_->trace.begin(), state_->trace.end()};
}

uint32_t Run::trace_index() const
{
    return state_->trace_index;
}

std::span<const std::string> Run::faults() const
{
    return state_->faults;
}

Run* Run::current()
{
    return current_state != nullptr ? &current_state->run : nullptr;
}

uint32_t Run::sibling_called(const char* entry_point, const OzkMapNode* node)
{
    return perform<Op::sibling>(
        *state_,
        [=](Call& call) {
            call.text_1 = entry_point;
            call.node   = node;
        },
        [] { return uint32_t{MAP_OK}; });
}

} // namespace ozk
