// One mapping run of the stand-in framework: the context, the request, the output tree and the
// record of what a map library did with them. Host, tests, benches and fuzzers all work with this
// class; there is no other double of the framework.
//
// The framework's operations of ymap.h find the run by the context, or, where they are given none,
// by the thread: the run whose walk is going on in it. Runs on different threads don't meet.

#ifndef OZK_RUN_H
#define OZK_RUN_H

#include <cstdint>
#include <cstdio>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tree.h"
#include "ymap.h"

namespace ozk {

/// The operations of the framework, and the calls of sibling libraries, as they are recorded.
enum class Op : uint8_t {
    hierarchy_add,     // node, kind
    hierarchy_remove,  // node
    update_list,       // text_1: list path
    match,             // text_1, text_2
    is_request_add,    // node
    is_request_delete, // node
    add_path,          // text_1: path, text_2: ns, value, node: ref_node, kind: is_list
    copy_text,         // text_1: text, text_2: memory tag
    should_log,        // kind: level
    log,               // kind: level, line: the formatted entry
    trace_index,       //
    trace,             // line
    sibling,           // text_1: name of the entry point, node
};

/// The operation's name as ymap.h spells it; for Op::sibling, "sibling".
const char* name_of(Op op);

/// One recorded call. Pointers are those of the call; they stay valid as long as the input tree
/// and the map library do.
struct Call {
    Op op;
    uint32_t kind          = 0; ///< hierarchy kind, is_list or level
    uint32_t result        = 0; ///< what the call answered, where it answers a number
    const OzkMapNode* node = nullptr;
    const char* text_1     = nullptr;
    const char* text_2     = nullptr;
    const char* value      = nullptr;
    std::string line       = {}; ///< finished text of a log entry or trace line
    // Of Op::log: what was handed over beside the text.
    const void* site_word = nullptr;
    const char* format    = nullptr;
};

/// One path that was added to the output tree, in the order of the adds. The texts are those that
/// were handed over: of the input tree, which has to live as long, and of the map library.
struct AddedPath {
    const char* path;
    const char* ns_uri;
    const char* value;          ///< null for none
    const OzkMapNode* ref_node; ///< a node of the input, or null
    const OzkMapNode* walked;   ///< the node that stood on top of the hierarchy, or null
    bool is_list;
};

/// The node of the input that a path stands for: the one that it refers to or, of a list path that
/// refers to none, the entry that was being walked; null if there is none.
inline const OzkMapNode* origin_of(const AddedPath& added)
{
    return added.ref_node != nullptr || !added.is_list ? added.ref_node : added.walked;
}

/// The tree that added paths stand for. A list path begins a new entry; later paths below it go
/// into that entry; the same leaf added twice is one leaf. Each node has `origin`, `line` and the
/// edit operation of its origin, or else the operation of the node above: that of the roots is
/// `default_edit`. Values are the paths' own texts.
Tree tree_of(std::span<const AddedPath> paths, Edit default_edit = Edit::none);

/// One mapping run. What it hands out, records and texts, lives as long as it does.
class Run {
public:
    /// A run for a request with the operation code `op_code`.
    explicit Run(uint32_t op_code);
    ~Run();
    Run(const Run&)            = delete;
    Run& operator=(const Run&) = delete;

    OzkMapCtx* ctx();
    OzkDataTree* tree();
    void set_operation(uint32_t op_code);

    // --- Walking

    /// Calls `function`, a root walker or any other map function of that type, on `node`, as this
    /// thread's current run, and returns its status. Checks afterwards that the hierarchy is as it
    /// was. May be called several times; output and records go on.
    uint32_t walk(OzkMapFunction* function, const OzkMapNode* node);
    /// Makes this run the thread's current one around any `call`, such as a handler of another
    /// type or with null arguments.
    void call(const std::function<void()>& call);

    // --- Switches, all of which may be turned while a walk goes on

    void set_level(uint32_t level, bool on); ///< all off at first; levels are below 32
    void set_trace(bool on);                 ///< off at first
    void set_trace_capacity(size_t lines);   ///< lines that the ring keeps; 4096 at first
    void set_log_stream(FILE* stream);       ///< where log entries go; null: nowhere
    void record_calls(bool on);              ///< off at first: recording costs time
    /// Called before each operation, also while recording is off; may turn any switch. What it
    /// throws is a fault, and the operation is not carried out.
    void on_call(std::function<void(Run&, const Call&)> listener);

    /// Called for each call of a sibling library; costs nothing else.
    void on_sibling(std::function<void(const char* entry_point, const OzkMapNode* node)> listener);

    // --- Answers, to be set before a walk

    /// Lets the k-th call (from 1) of `op` that the run sees answer `status` and do nothing; for
    /// Op::add_path, Op::update_list and Op::sibling. Op::copy_text answers null instead. Throws
    /// std::invalid_argument for another operation. Calls are counted from the run's beginning.
    void answer(Op op, size_t k, uint32_t status);

    // --- What came of it

    bool records_calls() const;
    std::span<const Call> calls() const;
    std::span<const AddedPath> added() const;
    const char* offending_tag() const;            ///< null if none was left
    std::vector<std::string> trace_lines() const; ///< oldest first
    uint32_t trace_index() const;                 ///< running number of the last trace line
    /// Calls that broke the contract, a line each: a remove that isn't the last add's, a hierarchy
    /// that isn't balanced, a list path outside of a list entry, a context, tree or log handle of
    /// another run, arguments that must be null and are not or the other way round, an offending
    /// tag that is no copy of ozk_strdup. An operation goes on in spite of it where it can; where
    /// it can't, as an add without a path, it changes nothing and answers MAP_ERR_INVALID_ARGS.
    std::span<const std::string> faults() const;

    /// The run whose walk is going on in this thread, or null.
    static Run* current();
    /// What a sibling library reports when one of its entry points is called: recorded, and
    /// answered as answer() says.
    uint32_t sibling_called(const char* entry_point, const OzkMapNode* node);

    struct State;
    State& state() { return *state_; }

private:
    std::unique_ptr<State> state_;
};

} // namespace ozk

#endif
