// The operations of the framework that map libraries call, in the order of ymap.h. Each finds its
// run, checks what the contract says of its arguments, and carries itself out through perform().
//
// A run's switches, records and faults are reached from its own thread only. While neither a
// listener nor a record waits for the calls, an operation must stay short: walks over millions of
// nodes call the comparison and the level test most of all.

#include <atomic>
#include <cstdarg>
#include <cstring>
#include <mutex>
#include <string>

#include "run_state.h"

using namespace ozk;

namespace {

using State = Run::State;

/// The run of a context that isn't the current run's.
[[gnu::cold, gnu::noinline]] State* run_of_other(Op op, const OzkDebugCtx* debug_ctx)
{
    if (current.state != nullptr) {
        current.state->fault(op, debug_ctx == nullptr ? "null context" : "context of another run");
        return current.state;
    }
    if (debug_ctx == nullptr || debug_ctx->run == nullptr)
        return nullptr;
    return &static_cast<Run*>(debug_ctx->run)->state();
}

/// The run of a context, or null for a context without one.
State* run_of(Op op, const OzkMapCtx* ctx)
{
    State* state = current.state;
    if (state != nullptr && ctx == &state->ctx) [[likely]]
        return state;
    return run_of_other(op, ctx != nullptr ? &ctx->_debug_ctx : nullptr);
}

State* run_of_handle(uint64_t handle)
{
    if (current.state != nullptr || handle == 0)
        return current.state;
    return reinterpret_cast<const State::Handle*>(handle)->owner;
}

bool is_edit(const State* state)
{
    return state == nullptr || state->operation.op_code == MAP_OP_EDIT;
}

/// RFC 6241, 7.2: merge, replace and create bring the node into being, inherited or not.
bool adds(const OzkMapNode& node)
{
    const Edit edit = edit_of(node);
    return edit == Edit::create || edit == Edit::merge || edit == Edit::replace;
}

/// A delete is asked for where it stands; what lies below goes with it and is no delete of its own.
bool deletes_here(const OzkMapNode& node)
{
    return node.edit_is_own != 0 && deletes(edit_of(node));
}

/// Asks `test` of the node in the current run, if there is one.
template <Op op>
int ask_edit(const OzkMapNode* node, bool (*test)(const OzkMapNode&))
{
    State* state   = current.state;
    const auto ask = [=] { return uint32_t{node != nullptr && is_edit(state) && test(*node)}; };
    if (state == nullptr)
        return static_cast<int>(ask());
    if (node == nullptr)
        state->fault(op, "null node");
    return static_cast<int>(perform<op>(
        *state, [=](Call& call) { call.node = node; }, ask));
}

const char* tag_of(const OzkMapNode* node)
{
    return node != nullptr && node->tag != nullptr ? node->tag : "-";
}

/// Copies for callers outside of any run. They are released with the process.
char* copy_without_run(const char* text)
{
    static std::mutex mutex;
    static Texts copies;
    try {
        const std::lock_guard lock(mutex);
        return copies.keep(text);
    } catch (...) {
        return nullptr;
    }
}

/// The level test, where it has to be shown to somebody or isn't asked by the current run.
[[gnu::cold, gnu::noinline]] int should_log_otherwise(const OzkDebugCtx* debug_ctx, uint32_t level)
{
    State* state = current.state;
    if (state == nullptr || debug_ctx != &state->ctx._debug_ctx)
        state = run_of_other(Op::should_log, debug_ctx);
    const auto is_on = [=] {
        return debug_ctx != nullptr && level < 32 ? debug_ctx->levels >> level & 1 : 0;
    };
    if (state == nullptr)
        return static_cast<int>(is_on());
    return static_cast<int>(perform<Op::should_log>(
        *state, [=](Call& call) { call.kind = level; }, is_on));
}

/// Apart, so that match() needs no stack frame: most comparisons end at the first character.
[[gnu::noinline]] int match_all(const char* first, const char* second)
{
    return std::strcmp(first, second) == 0 ? 1 : 0;
}

int match(const char* first, const char* second)
{
    if (first == nullptr || second == nullptr || *first != *second)
        return 0;
    return match_all(first, second);
}

/// The comparison, where it has to be shown to somebody.
[[gnu::cold, gnu::noinline]] int match_hooked(State& state, const char* first, const char* second)
{
    return static_cast<int>(perform<Op::match>(
        state,
        [=](Call& call) {
            call.text_1 = first;
            call.text_2 = second;
        },
        [=] { return static_cast<uint32_t>(match(first, second)); }));
}

std::string format_entry(const char* format, va_list arguments)
{
    char buffer[512]; // most entries fit
    va_list again;
    va_copy(again, arguments);
    const int size = vsnprintf(buffer, sizeof buffer, format, again);
    va_end(again);
    const size_t length = size > 0 ? static_cast<size_t>(size) : 0;
    if (length < sizeof buffer)
        return {buffer, length};
    std::string line(length, '\0');
    vsnprintf(line.data(), length + 1, format, arguments);
    return line;
}

} // namespace

extern "C" {

uint32_t ozk_map_add_to_node_hierarchy(OzkMapCtx* ctx, const OzkMapNode* node, uint32_t kind)
{
    State* state = run_of(Op::hierarchy_add, ctx);
    if (state == nullptr)
        return MAP_ERR_INVALID_ARGS;
    if (node == nullptr)
        state->fault(Op::hierarchy_add, "null node");
    if (kind != MAP_HIER_CONTAINER && kind != MAP_HIER_LIST)
        state->fault(Op::hierarchy_add, "unknown kind");
    return perform<Op::hierarchy_add>(
        *state,
        [=](Call& call) {
            call.node = node;
            call.kind = kind;
        },
        [=] {
            state->hierarchy.push_back({node, kind});
            return uint32_t{MAP_OK};
        });
}

uint32_t ozk_map_remove_from_node_hierarchy(OzkMapCtx* ctx, const OzkMapNode* node)
{
    constexpr Op op = Op::hierarchy_remove;
    State* state    = run_of(op, ctx);
    if (state == nullptr)
        return MAP_ERR_INVALID_ARGS;
    return perform<op>(
        *state, [=](Call& call) { call.node = node; },
        [=] {
            if (state->hierarchy.size() == state->hierarchy_floor) {
                state->fault(op, std::string(tag_of(node)) + " is removed, but none was added");
                return uint32_t{MAP_ERR_INVALID_ARGS};
            }
            const OzkMapNode* last = state->hierarchy.back().node;
            if (last != node) {
                state->fault(op, std::string(tag_of(node)) + " is removed, but " + tag_of(last) +
                                     " was added last");
                return uint32_t{MAP_ERR_INVALID_ARGS};
            }
            state->hierarchy.pop_back();
            return uint32_t{MAP_OK};
        });
}

uint32_t ozk_map_update_current_list_node(OzkMapCtx* ctx, const char* list_path)
{
    constexpr Op op = Op::update_list;
    State* state    = run_of(op, ctx);
    if (state == nullptr)
        return MAP_ERR_INVALID_ARGS;
    if (list_path == nullptr)
        state->fault(op, "null path");
    if (state->hierarchy.empty() || state->hierarchy.back().kind != MAP_HIER_LIST)
        state->fault(op, "the node added last is no list entry");
    return perform<op>(
        *state, [=](Call& call) { call.text_1 = list_path; },
        [=] { return uint32_t{list_path != nullptr ? MAP_OK : MAP_ERR_INVALID_ARGS}; });
}

int ozk_map_do_these_match(const char* first, const char* second)
{
    if (current.is_hooked) [[unlikely]]
        return match_hooked(*current.state, first, second);
    return match(first, second);
}

int ozk_map_is_request_add(const OzkMapNode* node)
{
    return ask_edit<Op::is_request_add>(node, adds);
}

int ozk_map_is_request_delete(const OzkMapNode* node)
{
    return ask_edit<Op::is_request_delete>(node, deletes_here);
}

uint32_t ozk_map_datatree_add_path_flagged(OzkMapCtx* ctx, OzkDataTree* tree, const char* path,
                                           const char* ns_uri, const char* value,
                                           const OzkMapNode* ref_node, void* reserved_ptr,
                                           uint32_t is_list, uint32_t reserved_flag)
{
    constexpr Op op = Op::add_path;
    State* state    = run_of(op, ctx);
    if (state == nullptr)
        return MAP_ERR_INVALID_ARGS;
    const bool is_valid = path != nullptr && ns_uri != nullptr && tree == &state->tree;
    if (!is_valid || reserved_ptr != nullptr || is_list > 1 || reserved_flag != 0) [[unlikely]] {
        if (path == nullptr)
            state->fault(op, "null path");
        if (ns_uri == nullptr)
            state->fault(op, "null namespace");
        if (tree != &state->tree)
            state->fault(op, tree == nullptr ? "null tree" : "tree of another run");
        if (reserved_ptr != nullptr)
            state->fault(op, "reserved_ptr is not null");
        if (is_list > 1)
            state->fault(op, "is_list is neither 0 nor 1");
        if (reserved_flag != 0)
            state->fault(op, "reserved_flag is not 0");
    }
    return perform<op>(
        *state,
        [=](Call& call) {
            call.text_1 = path;
            call.text_2 = ns_uri;
            call.value  = value;
            call.node   = ref_node;
            call.kind   = is_list;
        },
        [=] {
            if (!is_valid)
                return uint32_t{MAP_ERR_INVALID_ARGS};
            const OzkMapNode* walked =
                state->hierarchy.empty() ? nullptr : state->hierarchy.back().node;
            state->tree.paths.push_back({path, ns_uri, value, ref_node, walked, is_list != 0});
            return uint32_t{MAP_OK};
        });
}

char* ozk_strdup(const char* text, const char* memory_tag)
{
    constexpr Op op = Op::copy_text;
    State* state    = current.state;
    if (state == nullptr)
        return text != nullptr ? copy_without_run(text) : nullptr;
    if (memory_tag == nullptr || std::strcmp(memory_tag, MAP_MEMORY_TAG) != 0)
        state->fault(op, "unknown memory tag");
    char* copy = nullptr;
    perform<op>(
        *state,
        [=](Call& call) {
            call.text_1 = text;
            call.text_2 = memory_tag;
        },
        [=, &copy] {
            if (text != nullptr) {
                char* kept = state->texts.keep(text);
                state->copies.push_back(kept);
                copy = kept;
            }
            return uint32_t{MAP_OK};
        });
    return copy;
}

int ozk_debug_should_log(const OzkDebugCtx* debug_ctx, uint32_t level)
{
    if (debug_ctx == current.debug_ctx && level < 32) [[likely]]
        return static_cast<int>(debug_ctx->levels >> level & 1);
    return should_log_otherwise(debug_ctx, level);
}

void _tlm_dt_log_filter_adv(uint64_t log, uint32_t zero_1, uint32_t zero_2, uint32_t zero_3,
                            uint32_t zero_4, uint64_t file_word, uint32_t* site_word,
                            const char* format, ...)
{
    constexpr Op op = Op::log;
    State* state    = run_of_handle(log);
    if (state == nullptr)
        return;
    const bool is_trace = log == State::value_of(state->trace_log);
    if (!is_trace && log != State::value_of(state->error_log))
        state->fault(op, "log handle of another run");
    if (zero_1 != 0 || zero_2 != 0 || zero_3 != 0 || zero_4 != 0 || file_word != 0)
        state->fault(op, "an argument that is always 0 is not");
    if (site_word == nullptr)
        state->fault(op, "null site word");
    else // how many entries came from the place, less one; walks on other threads count with it
        std::atomic_ref(*site_word).fetch_add(1, std::memory_order_relaxed);
    if (format == nullptr) {
        state->fault(op, "null format");
        return;
    }
    va_list arguments;
    va_start(arguments, format);
    std::string line;
    try {
        line = format_entry(format, arguments);
    } catch (const std::exception& error) {
        state->fault(op, error.what());
    }
    va_end(arguments);
    perform<op>(
        *state,
        [&](Call& call) {
            call.kind      = is_trace ? MAP_LOG_TRACE : MAP_LOG_ERROR;
            call.line      = line;
            call.site_word = site_word;
            call.format    = format;
        },
        [&] {
            if (state->log_stream != nullptr)
                fprintf(state->log_stream, "%s\n", line.c_str());
            return uint32_t{MAP_OK};
        });
}

uint32_t ret_nc_ozk_trace_index_incr(void)
{
    static std::atomic<uint32_t> index_without_run{0};
    State* state = current.state;
    if (state == nullptr)
        return ++index_without_run;
    return perform<Op::trace_index>(
        *state, [](Call&) {}, [=] { return ++state->trace_index; });
}

void _lstrace(uint64_t trace_buffer, uint64_t options, const char* line)
{
    constexpr Op op = Op::trace;
    State* state    = run_of_handle(trace_buffer);
    if (state == nullptr)
        return;
    if (trace_buffer != State::value_of(state->trace_buffer))
        state->fault(op, "trace buffer of another run");
    if (options != MAP_TRACE_OPTIONS)
        state->fault(op, "unknown trace options");
    if (line == nullptr) {
        state->fault(op, "null line");
        return;
    }
    perform<op>(
        *state, [=](Call& call) { call.line = line; },
        [=] {
            state->trace.emplace_back(line);
            while (state->trace.size() > state->trace_capacity)
                state->trace.pop_front();
            return uint32_t{MAP_OK};
        });
}

} // extern "C"
