// What a run holds, and how each operation goes through it. Internal to the framework; operations
// are in ops.cpp, the class's own functions in run.cpp.

#ifndef OZK_RUN_STATE_H
#define OZK_RUN_STATE_H

#include <array>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <exception>
#include <map>
#include <memory>
#include <new>
#include <span>
#include <type_traits>
#include <utility>

#include "run.h"
#include "texts.h"

namespace ozk {

/// A list of added paths. It grows by realloc(), which moves nothing where the memory beside the
/// list is free, and no more than page tables where the list is large: of a walk over 10,000
/// interfaces, copies into ever larger arrays take some 7 % of the time.
class AddedPaths {
public:
    AddedPaths() = default;
    ~AddedPaths() { std::free(records_); }
    AddedPaths(const AddedPaths&)            = delete;
    AddedPaths& operator=(const AddedPaths&) = delete;

    void push_back(const AddedPath& added)
    {
        if (size_ == capacity_)
            grow();
        records_[size_++] = added;
    }

    std::span<const AddedPath> all() const { return {records_, size_}; }

private:
    static_assert(std::is_trivially_copyable_v<AddedPath>);

    [[gnu::cold, gnu::noinline]] void grow()
    {
        const size_t capacity = capacity_ != 0 ? 2 * capacity_ : 64;
        void* grown           = std::realloc(records_, capacity * sizeof(AddedPath));
        if (grown == nullptr)
            throw std::bad_alloc();
        records_  = static_cast<AddedPath*>(grown);
        capacity_ = capacity;
    }

    AddedPath* records_ = nullptr;
    size_t size_        = 0;
    size_t capacity_    = 0;
};

} // namespace ozk

/// The output tree is the flat list of what was added.
struct OzkDataTree {
    ozk::AddedPaths paths;
};

namespace ozk {

/// Operations whose answer a test may replace.
constexpr bool can_be_answered(Op op)
{
    return op == Op::add_path || op == Op::update_list || op == Op::copy_text || op == Op::sibling;
}

struct Run::State {
    State(Run& owner, uint32_t op_code);

    /// A log or trace handle of the context is the address of one of these.
    struct Handle {
        State* owner;
    };
    static uint64_t value_of(const Handle& handle) { return reinterpret_cast<uint64_t>(&handle); }

    struct Walked {
        const OzkMapNode* node;
        uint32_t kind;
    };

    // What the library sees. Its addresses are handed out: a state never moves.
    Run& run;
    Handle error_log{this};
    Handle trace_log{this};
    Handle trace_buffer{this};
    OzkMapOperation operation{};
    OzkMapRequest request{};
    OzkMapCtx ctx{};
    OzkDataTree tree;

    /// Whether operations have to go the long way: a listener, a record or answers wait for them.
    bool hooked = false;
    std::vector<Walked> hierarchy;
    size_t hierarchy_floor = 0; ///< nodes on it that the walk going on found there

    Texts texts;
    std::vector<const char*> copies; ///< what ozk_strdup gave out
    std::deque<std::string> trace;
    size_t trace_capacity = 4096;
    uint32_t trace_index  = 0;
    FILE* log_stream      = nullptr;
    std::vector<std::string> faults;

    using Listener = std::function<void(Run&, const Call&)>;
    bool recording = false;
    std::vector<Call> calls;
    std::shared_ptr<Listener> listener;
    std::function<void(const char* entry_point, const OzkMapNode* node)> sibling_listener;
    std::map<std::pair<Op, size_t>, uint32_t> answers; ///< by operation and number of its call
    /// Calls so far of each operation that can_be_answered().
    std::array<size_t, static_cast<size_t>(Op::sibling) + 1> seen{};

    void update_hooked();

    /// Reports a broken contract. A report that finds no memory ends the process.
    void fault(Op op, std::string_view what) noexcept;
};

/// What the operations that are called most need of the thread's current run, in one place.
struct ThreadState {
    Run::State* state;            ///< null outside of walks
    const OzkDebugCtx* debug_ctx; ///< of the current run while it isn't hooked; never null
    bool is_hooked;
};
extern constinit thread_local ThreadState current;

void make_current(Run::State* state);

/// What an operation answers if it could not be carried out for want of memory, or because a
/// listener threw. It is the framework's own and no status of a map library.
inline constexpr uint32_t STATUS_FAILED = 12;

/// The long way of an operation, see perform(). Out of line, so that the short way needs no stack.
template <Op op, class Describe, class Effect>
[[gnu::cold, gnu::noinline]] uint32_t perform_hooked(Run::State& state, size_t count,
                                                     Describe describe, Effect effect)
{
    Call call{.op = op};
    describe(call);
    if (state.listener != nullptr) {
        const auto listener = state.listener; // kept, as it may set another one
        (*listener)(state.run, call);
    }
    const auto answer =
        state.answers.empty() ? state.answers.end() : state.answers.find({op, count});
    const uint32_t result = answer != state.answers.end() ? answer->second : effect();
    call.result           = result;
    if (state.recording)
        state.calls.push_back(std::move(call));
    return result;
}

/// Carries out an operation: counts it, shows it to the listener, lets `effect` do it or a test's
/// answer take its place, and records it. `describe` fills in the record of the call. Nothing is
/// thrown: operations are called from code that knows no exceptions.
template <Op op, class Describe, class Effect>
uint32_t perform(Run::State& state, Describe describe, Effect effect) noexcept
{
    try {
        size_t count = 0;
        if constexpr (can_be_answered(op))
            count = ++state.seen[static_cast<size_t>(op)];
        if (!state.hooked) [[likely]]
            return effect();
        return perform_hooked<op>(state, count, describe, effect);
    } catch (const std::exception& error) {
        state.fault(op, error.what());
    } catch (...) {
        state.fault(op, "the listener has thrown");
    }
    return STATUS_FAILED;
}

} // namespace ozk

#endif
