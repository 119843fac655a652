// What the stand-in framework decides by itself: the edit that holds for a node, the output tree,
// faults, and what a run shows of the calls. A mistake here would mislead every other test.

#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>

#include "run.h"
#include "siblings.h"

namespace {

using namespace ozk;
using enum Edit;

constexpr char ns[]       = "urn:n";
constexpr char ns_other[] = "urn:other";

DataNode data(std::string tag, Edit edit = none, std::vector<DataNode> children = {})
{
    DataNode made;
    made.tag      = std::move(tag);
    made.edit     = edit;
    made.children = std::move(children);
    return made;
}

uint32_t add(ozk::Run& run, const char* path, const char* value = nullptr, uint32_t is_list = 0,
             const OzkMapNode* ref_node = nullptr, const char* ns_uri = ns)
{
    return ozk_map_datatree_add_path_flagged(run.ctx(), run.tree(), path, ns_uri, value, ref_node,
                                             nullptr, is_list, 0);
}

/// A tree in one line: `tag=value(children)`.
std::string shown(const std::vector<DataNode>& nodes)
{
    std::string out;
    for (const DataNode& node : nodes) {
        out += (out.empty() ? "" : " ") + *node.tag + (node.value ? "=" + *node.value : "");
        if (!node.children.empty())
            out += "(" + shown(node.children) + ")";
    }
    return out;
}

// --- The edit of a node (RFC 6241, 7.2)

struct EditCase {
    const char* name;
    uint32_t op_code;
    Edit by_default, on_parent, on_child;
    bool parent_added, parent_deleted, child_added, child_deleted;
};

// clang-format off
const EditCase edit_cases[] = {
    // name, operation code; edit by default, of parent, of child; add and delete of both
    {"DefaultMerge", MAP_OP_EDIT, merge, none, none, true, false, true, false},
    {"DefaultNone", MAP_OP_EDIT, none, none, none, false, false, false, false},
    {"CreateBelowNone", MAP_OP_EDIT, none, none, create, false, false, true, false},
    {"CreateIsInherited", MAP_OP_EDIT, none, create, none, true, false, true, false},
    {"DeleteStandsAlone", MAP_OP_EDIT, merge, erase, none, false, true, false, false},
    {"RemoveOfALeaf", MAP_OP_EDIT, merge, none, remove, true, false, false, true},
    {"NearestWins", MAP_OP_EDIT, merge, erase, replace, false, true, true, false},
    {"NoEditNoAnswer", MAP_OP_GET, merge, erase, create, false, false, false, false},
};
// clang-format on

TEST(EditTest, AddAndDelete)
{
    for (const EditCase& row : edit_cases) {
        SCOPED_TRACE(row.name);
        const InputTree tree(data("parent", row.on_parent, {data("child", row.on_child)}),
                             row.by_default);
        const OzkMapNode& parent = tree.root();
        const OzkMapNode& child  = parent.subtrees[0];
        ozk::Run run(row.op_code);
        run.call([&] {
            EXPECT_EQ(ozk_map_is_request_add(&parent) != 0, row.parent_added);
            EXPECT_EQ(ozk_map_is_request_delete(&parent) != 0, row.parent_deleted);
            EXPECT_EQ(ozk_map_is_request_add(&child) != 0, row.child_added);
            EXPECT_EQ(ozk_map_is_request_delete(&child) != 0, row.child_deleted);
        });
    }
}

TEST(InputTree, RecordsSayWhatTheDataSays)
{
    DataNode leaf = data("leaf");
    leaf.value    = "";
    leaf.position = 7;
    leaf.line     = 12;
    DataNode nameless;
    InputTree tree(data("root", none, {leaf, nameless, data("leaf")}));
    InputTree moved = std::move(tree);

    const OzkMapNode* nodes = moved.root().subtrees;
    ASSERT_EQ(moved.root().subtree_count, 3u);
    EXPECT_EQ(moved.root().flags, MAP_NODE_HAS_SUBTREES);
    EXPECT_EQ(nodes[0].flags, MAP_NODE_HAS_VALUE | MAP_NODE_HAS_POSITION);
    EXPECT_STREQ(nodes[0].value, "");
    EXPECT_EQ(nodes[0].position, 7u);
    EXPECT_EQ(nodes[0].line, 12u);
    EXPECT_EQ(nodes[1].tag, nullptr);
    EXPECT_EQ(nodes[1].ns_uri, nullptr);
    EXPECT_EQ(nodes[2].flags, 0);
    EXPECT_EQ(nodes[2].tag, nodes[0].tag) << "equal tags share a copy";
}

// --- Output tree

struct Added {
    const char* path;
    const char* value;
    uint32_t is_list;
    const char* ns_uri = ns;
};

struct OutputCase {
    const char* name;
    std::vector<Added> paths;
    const char* tree;
};

// clang-format off
const OutputCase output_cases[] = {
    {"EntriesTakeWhatFollows",
               {{"/r/e", nullptr, 1}, {"/r/e/k", "1", 0}, {"/r/e/c/x", "x", 0},
                {"/r/e", nullptr, 1}, {"/r/e/k", "2", 0}, {"/r/e/c/x", "y", 0}},
               "r(e(k=1 c(x=x)) e(k=2 c(x=y)))"},
    {"NestedListsStartAfresh",
               {{"/r/e", nullptr, 1}, {"/r/e/n", nullptr, 1}, {"/r/e/n/k", "a", 0},
                {"/r/e/n", nullptr, 1}, {"/r/e/n/k", "b", 0},
                {"/r/e", nullptr, 1}, {"/r/e/n/k", "c", 0}},
               "r(e(n(k=a) n(k=b)) e(n(k=c)))"},
    {"LeafTwiceIsOne",
               {{"/r/k", "1", 0}, {"/r/k", "2", 0}, {"/r/k", nullptr, 0}}, "r(k=2)"},
    {"LeafBesideEntries",
               {{"/r/leaf", "1", 0}, {"/r/e", nullptr, 1}, {"/r/leaf", "2", 0},
                {"/r/e/k", "3", 0}},
               "r(leaf=2 e(k=3))"},
    {"PrefixOfATagIsAnother", {{"/r/in", "1", 0}, {"/r/in-x", "2", 0}},
               "r(in=1 in-x=2)"},
    {"RootsByNamespace",
               {{"/r/a", "1", 0}, {"/r/b", "2", 0, ns_other}, {"/r/c", "3", 0}},
               "r(a=1 c=3) r(b=2)"},
};
// clang-format on

TEST(OutputTest, IsBuiltFromPaths)
{
    for (const OutputCase& row : output_cases) {
        SCOPED_TRACE(row.name);
        ozk::Run run(MAP_OP_GET);
        for (const Added& each : row.paths)
            EXPECT_EQ(add(run, each.path, each.value, each.is_list, nullptr, each.ns_uri), MAP_OK);
        EXPECT_EQ(shown(build_data_tree(run.added())), row.tree);
        EXPECT_TRUE(run.faults().empty());
    }
}

TEST(OutputTree, KeepsTextsAndTheNodeReferredTo)
{
    DataNode leaf = data("leaf", erase);
    leaf.line     = 5;
    const InputTree tree(data("root", merge, {leaf, data("inherits")}));
    ozk::Run run(MAP_OP_EDIT);
    std::string path = "/r/gone", value = "a value beyond small strings";
    add(run, path.c_str(), value.c_str(), 0, &tree.root().subtrees[0]);
    path = "/r/kept"; // the same address with another text
    add(run, path.c_str(), nullptr, 0, &tree.root().subtrees[1]);
    value.assign(value.size(), '?');

    const auto built = build_data_tree(run.added());
    EXPECT_EQ(shown(built), "r(gone=a value beyond small strings kept)");
    EXPECT_EQ(built[0].children[0].line, 5u);
    EXPECT_EQ(built[0].children[0].edit, erase);
    EXPECT_EQ(built[0].children[1].edit, none) << "only an operation of its own goes over";
}

// --- Faults

uint32_t unbalanced(OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree*)
{
    return ozk_map_add_to_node_hierarchy(ctx, node, MAP_HIER_CONTAINER);
}

uint32_t removes_too_much(OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree*)
{
    return ozk_map_remove_from_node_hierarchy(ctx, node);
}

uint32_t leaves_own_tag(OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree*)
{
    ctx->request->offending_tag = const_cast<char*>(node->tag);
    return MAP_ERR_BAD_KEY;
}

struct FaultCase {
    const char* name;
    const char* fault; ///< a part of it
    void (*breach)(ozk::Run& run, ozk::Run& other, const OzkMapNode& node);
};

uint32_t add_raw(ozk::Run& run, OzkDataTree* tree, void* pointer, uint32_t is_list, uint32_t flag)
{
    return ozk_map_datatree_add_path_flagged(run.ctx(), tree, "/r", ns, nullptr, nullptr, pointer,
                                             is_list, flag);
}

// clang-format off
const FaultCase fault_cases[] = {
    {"RemoveOfAnotherNode", "child is removed, but node was added last",
     [](auto& run, auto&, auto& node) {
         ozk_map_add_to_node_hierarchy(run.ctx(), &node, MAP_HIER_LIST);
         ozk_map_remove_from_node_hierarchy(run.ctx(), node.subtrees);
     }},
    {"WalkLeavesANode", "left 1 node",
     [](auto& run, auto&, auto& node) { run.walk(unbalanced, &node); }},
    {"WalkRemovesWhatItsCallerAdded", "none was added", [](auto& run, auto&, auto& node) {
         ozk_map_add_to_node_hierarchy(run.ctx(), &node, MAP_HIER_CONTAINER);
         run.walk(removes_too_much, &node);
     }},
    {"OffendingTagIsNoCopy", "no copy",
     [](auto& run, auto&, auto& node) { run.walk(leaves_own_tag, &node); }},
    {"ListPathOutsideAList", "no list entry", [](auto& run, auto&, auto& node) {
         ozk_map_add_to_node_hierarchy(run.ctx(), &node, MAP_HIER_CONTAINER);
         ozk_map_update_current_list_node(run.ctx(), "/r");
     }},
    {"ContextOfAnotherRun", "context of another run", [](auto&, auto& other, auto&) {
         ozk_debug_should_log(&other.ctx()->_debug_ctx, MAP_LOG_TRACE);
     }},
    {"TreeOfAnotherRun", "tree of another run", [](auto& run, auto& other, auto&) {
         EXPECT_NE(add_raw(run, other.tree(), nullptr, 0, 0), MAP_OK);
     }},
    {"ReservedPointer", "reserved_ptr",
     [](auto& run, auto&, auto&) { add_raw(run, run.tree(), &run, 0, 0); }},
    {"IsList", "is_list", [](auto& run, auto&, auto&) { add_raw(run, run.tree(), nullptr, 2, 0); }},
    {"ReservedFlag", "reserved_flag",
     [](auto& run, auto&, auto&) { add_raw(run, run.tree(), nullptr, 0, 1); }},
    {"NullPath", "null path", [](auto& run, auto&, auto&) { add(run, nullptr); }},
    {"MemoryTag", "memory tag", [](auto&, auto&, auto&) { ozk_strdup("x", "MAP"); }},
    {"TraceOptions", "trace options",
     [](auto& run, auto&, auto&) { _lstrace(run.ctx()->trace_buffer, 0, "line"); }},
    {"LogHandle", "log handle", [](auto& run, auto&, auto&) {
         uint32_t word = 0;
         _tlm_dt_log_filter_adv(run.ctx()->trace_buffer, 0, 0, 0, 0, 0, &word, "x");
     }},
    {"ThrowingListener", "thrown", [](auto& run, auto&, auto&) {
         run.on_call([](auto&, auto&) { throw std::runtime_error("thrown"); });
         EXPECT_NE(add(run, "/r"), MAP_OK);
     }},
};
// clang-format on

TEST(FaultTest, IsReportedOnce)
{
    for (const FaultCase& row : fault_cases) {
        SCOPED_TRACE(row.name);
        const InputTree tree(data("node", none, {data("child")}));
        ozk::Run run(MAP_OP_EDIT), other(MAP_OP_EDIT);
        run.call([&] { row.breach(run, other, tree.root()); });
        ASSERT_EQ(run.faults().size(), 1u);
        EXPECT_NE(run.faults()[0].find(row.fault), std::string::npos) << run.faults()[0];
        EXPECT_TRUE(other.faults().empty());
        EXPECT_TRUE(other.added().empty());
    }
}

// --- What a run shows, and how it answers

TEST(Run, RecordsCallsInOrderWithResults)
{
    const InputTree tree(data("node", create));
    ozk::Run run(MAP_OP_EDIT);
    const OzkMapNode* node = &tree.root();
    run.call([&] {
        ozk_map_do_these_match("not", "recorded");
        run.record_calls(true);
        ozk_map_add_to_node_hierarchy(run.ctx(), node, MAP_HIER_LIST);
        ozk_map_update_current_list_node(run.ctx(), "/r");
        ozk_map_do_these_match("name", "name");
        ozk_map_do_these_match(nullptr, nullptr);
        ozk_map_is_request_add(node);
        add(run, "/r/k", "a\nb", 0, node);
        EXPECT_EQ(ozk_strdup(nullptr, MAP_MEMORY_TAG), nullptr);
        ozk_debug_should_log(&run.ctx()->_debug_ctx, MAP_LOG_ERROR);
        ozk_map_remove_from_node_hierarchy(run.ctx(), node);
    });
    std::vector<std::string> lines;
    for (const Call& call : run.calls())
        lines.push_back(to_text(call));
    EXPECT_EQ(lines, (std::vector<std::string>{
                         "ozk_map_add_to_node_hierarchy(node, list)",
                         "ozk_map_update_current_list_node(/r) = 0",
                         "ozk_map_do_these_match(name, name) = 1",
                         "ozk_map_do_these_match(-, -) = 0",
                         "ozk_map_is_request_add(node) = 1",
                         "ozk_map_datatree_add_path_flagged(/r/k, urn:n, a\\x0ab, node, 0) = 0",
                         "ozk_strdup(-, OZK MAP)",
                         "ozk_debug_should_log(error) = 0",
                         "ozk_map_remove_from_node_hierarchy(node)",
                     }));
}

TEST(Run, AnswersTheKthCallInstead)
{
    ozk::Run run(MAP_OP_GET);
    EXPECT_EQ(add(run, "/r/first"), MAP_OK) << "counts, though nothing is waiting yet";
    run.answer(Op::add_path, 2, 77);
    run.answer(Op::copy_text, 1, 1);
    run.answer(Op::sibling, 1, 78);
    EXPECT_EQ(add(run, "/r/second"), 77u);
    EXPECT_EQ(add(run, "/r/third"), MAP_OK);
    EXPECT_EQ(shown(build_data_tree(run.added())), "r(first third)");
    run.call([&] {
        EXPECT_EQ(ozk_strdup("x", MAP_MEMORY_TAG), nullptr);
        EXPECT_STREQ(ozk_strdup("x", MAP_MEMORY_TAG), "x");
    });
    EXPECT_EQ(run.sibling_called("entry", nullptr), 78u);
    EXPECT_THROW(run.answer(Op::match, 1, 1), std::invalid_argument);
}

TEST(Run, ListenerTurnsSwitchesBeforeTheCall)
{
    ozk::Run run(MAP_OP_GET);
    run.on_call([](ozk::Run& seen, const Call& call) {
        if (call.op == Op::should_log)
            seen.set_level(call.kind, true);
    });
    EXPECT_NE(ozk_debug_should_log(&run.ctx()->_debug_ctx, MAP_LOG_TRACE), 0);
    run.on_call({});
    EXPECT_EQ(ozk_debug_should_log(&run.ctx()->_debug_ctx, MAP_LOG_ERROR), 0);
}

/// Has log points only; the levels and the trace switch decide what comes of them.
uint32_t reports(OzkMapCtx* ctx, const OzkMapNode*, OzkDataTree*)
{
    static constexpr ymap::LogText text = YMAP_TRACE_TEXT("Start");
    static ymap::SiteWord site;
    ymap::log_point(ctx, text, {"reports", 1}, site);
    return MAP_OK;
}

TEST(Run, TraceBufferIsARing)
{
    ozk::Run run(MAP_OP_GET);
    run.set_trace_capacity(2);
    run.walk(reports, nullptr);
    run.set_trace(true);
    for (int i = 0; i != 3; ++i)
        run.walk(reports, nullptr);
    EXPECT_EQ(run.trace_index(), 3u);
    ASSERT_EQ(run.trace_lines().size(), 2u);
    EXPECT_EQ(run.trace_lines()[0].find("#2: TRC: reports:1 ctx="), 0u);
    EXPECT_EQ(run.trace_lines()[1].find("#3: "), 0u);
    EXPECT_TRUE(run.faults().empty());
}

TEST(Run, LogGoesToItsStream)
{
    ozk::Run run(MAP_OP_GET);
    FILE* stream = tmpfile();
    ASSERT_NE(stream, nullptr);
    run.set_log_stream(stream);
    run.record_calls(true);
    run.set_level(MAP_LOG_ERROR, true);
    run.walk(reports, nullptr);
    run.set_level(MAP_LOG_TRACE, true);
    run.walk(reports, nullptr);
    rewind(stream);
    char line[128] = {}, more[2];
    EXPECT_NE(fgets(line, sizeof line, stream), nullptr);
    EXPECT_EQ(fgets(more, sizeof more, stream), nullptr);
    fclose(stream);
    EXPECT_EQ(run.calls().back().line + "\n", line);
    EXPECT_EQ(run.calls().back().line.find("TRC: OZK: ctx=0x"), 0u);
}

TEST(Run, OffendingTagIsTheRunsOwnCopyAndItsNodeIsFound)
{
    // Two children of one tag; the one that was asked about is the one meant.
    const InputTree tree(data("node", none, {data("bad"), data("bad")}));
    const OzkMapNode* asked = &tree.root().subtrees[1];
    ozk::Run run(MAP_OP_EDIT);
    run.call([&] {
        ozk_map_add_to_node_hierarchy(run.ctx(), &tree.root(), MAP_HIER_CONTAINER);
        ozk_map_is_request_add(asked);
        run.ctx()->request->offending_tag = ozk_strdup(asked->tag, MAP_MEMORY_TAG);
    });
    EXPECT_STREQ(run.offending_tag(), "bad");
    EXPECT_NE(run.offending_tag(), asked->tag);
    EXPECT_EQ(run.offending_node(), asked);
}

TEST(Run, ThreadsAndNestedWalksAreApart)
{
    ozk::Run outer(MAP_OP_GET), inner(MAP_OP_EDIT);
    outer.call([&] {
        inner.call([&] { EXPECT_EQ(ozk::Run::current(), &inner); });
        EXPECT_EQ(ozk::Run::current(), &outer);
        std::thread([] {
            EXPECT_EQ(ozk::Run::current(), nullptr);
            EXPECT_STREQ(ozk_strdup("without a run", MAP_MEMORY_TAG), "without a run");
            EXPECT_NE(ozk_map_do_these_match("a", "a"), 0);
        }).join();
    });
    EXPECT_EQ(ozk::Run::current(), nullptr);

    std::vector<std::thread> threads;
    for (int i = 0; i != 4; ++i)
        threads.emplace_back([] {
            ozk::Run run(MAP_OP_GET);
            run.set_trace(true);
            run.set_level(MAP_LOG_TRACE, true);
            for (int k = 0; k != 200; ++k)
                run.walk(reports, nullptr);
            EXPECT_EQ(run.trace_index(), 200u);
            EXPECT_TRUE(run.faults().empty());
        });
    for (std::thread& each : threads)
        each.join();
}

TEST(Siblings, CountAndAskTheListener)
{
    constexpr char name[] =
        "ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvlb_interface_configuration";
    const auto entry_point =
        ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvlb_interface_configuration;
    ozk::Run run(MAP_OP_GET);
    run.answer(Op::sibling, 1, 9);
    EXPECT_EQ(run.walk(entry_point, nullptr), MAP_OK);
    ymap_siblings_set_listener([](const char* called, OzkMapCtx*, const OzkMapNode* node) {
        return ozk::Run::current()->sibling_called(called, node);
    });
    run.record_calls(true);
    EXPECT_EQ(run.walk(entry_point, nullptr), 9u);
    ymap_siblings_set_listener(nullptr);
    EXPECT_EQ(ymap_siblings_calls(name), 2u);
    EXPECT_EQ(ymap_siblings_calls("unknown"), 0u);
    EXPECT_EQ(to_text(run.calls().back()), "sibling(" + std::string(name) + ", -) = 9");
}

} // namespace
