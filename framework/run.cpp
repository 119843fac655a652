// The class that owns a run: what surrounds the operations.

#include "run.h"

#include <algorithm>
#include <stdexcept>

#include "run_state.h"

namespace ozk {

namespace {

constexpr OzkDebugCtx no_debug_ctx{};

} // namespace

constinit thread_local ThreadState current{nullptr, &no_debug_ctx, false};

void make_current(Run::State* state)
{
    const bool is_hooked = state != nullptr && state->hooked;
    current = {state, state != nullptr && !is_hooked ? &state->ctx._debug_ctx : &no_debug_ctx,
               is_hooked};
}

namespace {

/// Makes a run the thread's current one for a scope. Walks may be nested.
class CurrentScope {
public:
    explicit CurrentScope(Run::State& state) : before_(current.state) { make_current(&state); }
    ~CurrentScope() { make_current(before_); }
    CurrentScope(const CurrentScope&)            = delete;
    CurrentScope& operator=(const CurrentScope&) = delete;

private:
    Run::State* before_;
};

} // namespace

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

void Run::State::update_hooked()
{
    hooked = recording || listener != nullptr || !answers.empty();
    if (ozk::current.state == this)
        make_current(this);
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

void Run::on_sibling(std::function<void(const char*, const OzkMapNode*)> listener)
{
    state_->sibling_listener = std::move(listener);
}

void Run::answer(Op op, size_t k, uint32_t status)
{
    if (!can_be_answered(op))
        throw std::invalid_argument(std::string("no answer can be set for ") + name_of(op));
    state_->answers[{op, k}] = status;
    state_->update_hooked();
}

bool Run::records_calls() const
{
    return state_->recording;
}

std::span<const Call> Run::calls() const
{
    return state_->calls;
}

std::span<const AddedPath> Run::added() const
{
    return state_->tree.paths.all();
}

const char* Run::offending_tag() const
{
    return state_->request.offending_tag;
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
    return ozk::current.state != nullptr ? &ozk::current.state->run : nullptr;
}

uint32_t Run::sibling_called(const char* entry_point, const OzkMapNode* node)
{
    return perform<Op::sibling>(
        *state_,
        [=](Call& call) {
            call.text_1 = entry_point;
            call.node   = node;
        },
        [=, this] {
            if (state_->sibling_listener)
                state_->sibling_listener(entry_point, node);
            return uint32_t{MAP_OK};
        });
}

} // namespace ozk
