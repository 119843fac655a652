// What the stand-in framework decides by itself: the edit that holds for a node, the output tree,
// faults, and what a run shows of the calls. A mistake here would mislead every other test.

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <sstream>
#include <thread>

#include "notation.h"
#include "siblings.h"

namespace test {
namespace {

using ozk::Call;
using ozk::Edit;
using ozk::Op;

constexpr char ns[] = "urn:n";

ozk::Tree tree_with(std::string_view text, Edit edit = Edit::none)
{
    ozk::Tree tree;
    tree.top().edit = static_cast<uint8_t>(edit);
    read_nodes(tree, tree.top(), text, ns);
    return tree;
}

uint32_t add(ozk::Run& run, const char* path, const char* value = nullptr, uint32_t is_list = 0,
             const OzkMapNode* ref_node = nullptr, const char* ns_uri = ns)
{
    return ozk_map_datatree_add_path_flagged(run.ctx(), run.tree(), path, ns_uri, value, ref_node,
                                             nullptr, is_list, 0);
}

/// What is said of an argument that isn't taken.
std::string refused(const std::function<void()>& call)
{
    try {
        call();
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return {};
}

// RFC 6241, 7.2
TEST(Framework, EditThatHoldsForANode)
{
    const struct {
        uint32_t op_code;
        Edit by_default;
        const char* tree;
        const char* answers; ///< of parent and child: "add", "delete" or "-"
    } rows[] = {
        {MAP_OP_EDIT, Edit::merge, "parent(child)", "add add"},
        {MAP_OP_EDIT, Edit::none, "parent(child)", "- -"},
        {MAP_OP_EDIT, Edit::none, "parent(child@create)", "- add"},
        {MAP_OP_EDIT, Edit::none, "parent@create(child)", "add add"},
        {MAP_OP_EDIT, Edit::merge, "parent@delete(child)", "delete -"},
        {MAP_OP_EDIT, Edit::merge, "parent(child@remove)", "add delete"},
        {MAP_OP_EDIT, Edit::merge, "parent@delete(child@replace)", "delete add"},
        {MAP_OP_GET, Edit::merge, "parent@delete(child@create)", "- -"},
    };
    for (const auto& row : rows) {
        const ozk::Tree tree = tree_with(row.tree, row.by_default);
        ozk::Run run(row.op_code);
        const auto answer = [](const OzkMapNode& node) {
            const int adds    = ozk_map_is_request_add(&node),
                      deletes = ozk_map_is_request_delete(&node);
            return std::string(adds != 0 ? "add" : "") + (deletes != 0 ? "delete" : "") +
                   (adds + deletes == 0 ? "-" : "");
        };
        std::string answers;
        run.call([&] {
            const OzkMapNode& parent = *tree.top().subtrees;
            answers                  = answer(parent) + " " + answer(*parent.subtrees);
        });
        EXPECT_EQ(answers, row.answers) << row.tree;
    }
}

// A list path begins an entry, told by a '*'.
TEST(Framework, OutputTreeOfPaths)
{
    const struct {
        const char* paths;
        const char* tree;
    } rows[] = {
        {"/r/e* /r/e/k=1 /r/e/c/x=x /r/e* /r/e/k=2 /r/e/c/x=y", "r(e(k=1 c(x=x)) e(k=2 c(x=y)))"},
        {"/r/e* /r/e/n* /r/e/n/k=a /r/e/n* /r/e/n/k=b /r/e* /r/e/n/k=c",
         "r(e(n(k=a) n(k=b)) e(n(k=c)))"},
        {"/r/k=1 /r/k=2 /r/k", "r(k=2)"},
        {"/r/leaf=1 /r/e* /r/leaf=2 /r/e/k=3", "r(leaf=2 e(k=3))"},
        {"/r/in=1 /r/in-x=2", "r(in=1 in-x=2)"},
        {"/r/a=1 x:/r/b=2 /r/c=3", "r(a=1 c=3) x:r(b=2)"},
        // More children than a node had room for, and open ones among those that move.
        {"/r/e* /r/e/k=0 /r/e/a/b=1 /r/e/c=2 /r/e/d=3 /r/e/a/h=6 /r/e* /r/e/a/b=7 /r/e*",
         "r(e(k=0 a(b=1 h=6) c=2 d=3) e(a(b=7)) e)"},
    };
    for (const auto& row : rows) {
        ozk::Tree texts;
        ozk::Run run(MAP_OP_GET);
        std::istringstream words(row.paths);
        for (std::string word; words >> word;) {
            const bool is_foreign = word.starts_with("x:"), is_list = word.ends_with('*');
            word           = word.substr(is_foreign ? 2 : 0);
            const auto end = word.find_first_of("=*");
            EXPECT_EQ(add(run, texts.keep(word.substr(0, end)),
                          word.find('=') != word.npos ? texts.keep(word.substr(end + 1)) : nullptr,
                          is_list ? 1 : 0, nullptr, is_foreign ? foreign_ns : ns),
                      MAP_OK);
        }
        EXPECT_EQ(shown(ozk::tree_of(run.added()).top(), ns), row.tree);
        EXPECT_TRUE(run.faults().empty());
    }
}

TEST(Framework, OutputTreeHasTheOperationsOfTheInput)
{
    ozk::Tree tree          = tree_with("root(entry@create leaf@delete inherits)", Edit::merge);
    OzkMapNode* const nodes = ozk::children(*ozk::children(tree.top()).data()).data();
    nodes[1].line           = 5;
    ozk::Run run(MAP_OP_EDIT);
    ozk_map_add_to_node_hierarchy(run.ctx(), &nodes[0], MAP_HIER_LIST);
    add(run, "/r/e", nullptr, 1); // refers to no node: it is the entry that is walked
    add(run, "/r/e/gone", nullptr, 0, &nodes[1]);
    add(run, "/r/e/kept", nullptr, 1, &nodes[2]);
    add(run, "/r/e/of-none");
    ozk_map_remove_from_node_hierarchy(run.ctx(), &nodes[0]);
    const ozk::Tree output = ozk::tree_of(run.added(), Edit::merge);
    EXPECT_EQ(shown(output.top(), ns), "r(e@create(gone@delete kept@merge of-none))");
    const OzkMapNode& entry = *output.top().subtrees->subtrees;
    EXPECT_EQ(entry.origin, &nodes[0]);
    EXPECT_EQ(entry.marks, ozk::MARK_LIST_ENTRY);
    EXPECT_EQ(entry.subtrees[0].line, 5U);
    EXPECT_EQ(entry.subtrees[2].origin, nullptr);
    EXPECT_EQ(ozk::edit_of(entry.subtrees[2]), Edit::create) << "inherited";
}

uint32_t leaves_a_node(OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree*)
{
    return ozk_map_add_to_node_hierarchy(ctx, node, MAP_HIER_CONTAINER);
}

uint32_t removes_too_much(OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree*)
{
    return ozk_map_remove_from_node_hierarchy(ctx, node);
}

uint32_t leaves_its_own_tag(OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree*)
{
    ctx->request->offending_tag = const_cast<char*>(node->tag);
    return MAP_ERR_BAD_KEY;
}

uint32_t add_raw(ozk::Run& run, OzkDataTree* tree, void* pointer, uint32_t is_list, uint32_t flag)
{
    return ozk_map_datatree_add_path_flagged(run.ctx(), tree, "/r", ns, nullptr, nullptr, pointer,
                                             is_list, flag);
}

void log_raw(ozk::Run& run, uint64_t log, std::array<uint32_t, 5> zeroes, uint32_t* site_word,
             const char* format)
{
    const auto& [a, b, c, d, file_word] = zeroes;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-security"
    _tlm_dt_log_filter_adv(log != 0 ? log : run.ctx()->error_log, a, b, c, d, file_word, site_word,
                           format);
#pragma GCC diagnostic pop
}

/// One breach of the contract, and the only fault that a run shows of it.
struct Breach {
    const char* fault;
    void (*make)(ozk::Run& run, ozk::Run& other, const OzkMapNode& node);
};

uint32_t site = 0;

// clang-format off
const Breach breaches[] = {
    {": child is removed, but node was added last", [](auto& run, auto&, auto& node) {
         ozk_map_add_to_node_hierarchy(run.ctx(), &node, MAP_HIER_LIST);
         EXPECT_NE(ozk_map_remove_from_node_hierarchy(run.ctx(), node.subtrees), MAP_OK); }},
    {"a walk has left 1 node(s) on the hierarchy", [](auto& run, auto&, auto& node) {
         ozk_map_add_to_node_hierarchy(run.ctx(), &node, MAP_HIER_LIST);
         run.walk(leaves_a_node, &node);
         ozk_map_update_current_list_node(run.ctx(), "/r"); }},
    {": node is removed, but none was added", [](auto& run, auto&, auto& node) {
         ozk_map_add_to_node_hierarchy(run.ctx(), &node, MAP_HIER_CONTAINER);
         run.walk(removes_too_much, &node); }},
    {": null node", [](auto& run, auto&, auto&) {
         ozk_map_add_to_node_hierarchy(run.ctx(), nullptr, MAP_HIER_CONTAINER);
         ozk_map_remove_from_node_hierarchy(run.ctx(), nullptr); }},
    {": unknown kind", [](auto& run, auto&, auto& node) {
         ozk_map_add_to_node_hierarchy(run.ctx(), &node, 3); }},
    {"a walk has left an offending tag that is no copy of ozk_strdup",
     [](auto& run, auto&, auto& node) { run.walk(leaves_its_own_tag, &node); }},
    {": the node added last is no list entry", [](auto& run, auto&, auto& node) {
         ozk_map_add_to_node_hierarchy(run.ctx(), &node, MAP_HIER_CONTAINER);
         ozk_map_update_current_list_node(run.ctx(), "/r"); }},
    {"update_current_list_node: null path", [](auto& run, auto&, auto& node) {
         ozk_map_add_to_node_hierarchy(run.ctx(), &node, MAP_HIER_LIST);
         EXPECT_NE(ozk_map_update_current_list_node(run.ctx(), nullptr), MAP_OK); }},
    {"request_add: null node", [](auto&, auto&, auto&) {
         EXPECT_EQ(ozk_map_is_request_add(nullptr), 0); }},
    {"request_delete: null node", [](auto&, auto&, auto&) {
         EXPECT_EQ(ozk_map_is_request_delete(nullptr), 0); }},
    {": context of another run", [](auto&, auto& other, auto&) {
         ozk_debug_should_log(&other.ctx()->_debug_ctx, MAP_LOG_TRACE); }},
    {": null context", [](auto&, auto&, auto&) { ozk_debug_should_log(nullptr, MAP_LOG_TRACE); }},
    {": tree of another run", [](auto& run, auto& other, auto&) {
         EXPECT_NE(add_raw(run, other.tree(), nullptr, 0, 0), MAP_OK); }},
    {": null tree", [](auto& run, auto&, auto&) {
         EXPECT_NE(add_raw(run, nullptr, nullptr, 0, 0), MAP_OK); }},
    {": reserved_ptr is not null", [](auto& run, auto&, auto&) {
         add_raw(run, run.tree(), &run, 0, 0); }},
    {": is_list is neither 0 nor 1", [](auto& run, auto&, auto&) {
         add_raw(run, run.tree(), nullptr, 2, 0); }},
    {": reserved_flag is not 0", [](auto& run, auto&, auto&) {
         add_raw(run, run.tree(), nullptr, 0, 1); }},
    {"add_path_flagged: null path", [](auto& run, auto&, auto&) { EXPECT_NE(add(run, nullptr), MAP_OK); }},
    {": null namespace", [](auto& run, auto&, auto&) {
         EXPECT_NE(add(run, "/r", nullptr, 0, nullptr, nullptr), MAP_OK); }},
    {": unknown memory tag", [](auto&, auto&, auto&) { ozk_strdup("x", "MAP"); }},
    {": unknown memory tag", [](auto&, auto&, auto&) { ozk_strdup("x", nullptr); }},
    {": unknown trace options", [](auto& run, auto&, auto&) {
         _lstrace(run.ctx()->trace_buffer, 0, "x"); }},
    {": trace buffer of another run", [](auto& run, auto&, auto&) {
         _lstrace(run.ctx()->error_log, MAP_TRACE_OPTIONS, "x"); }},
    {": null line", [](auto& run, auto&, auto&) {
         _lstrace(run.ctx()->trace_buffer, MAP_TRACE_OPTIONS, nullptr); }},
    {": log handle of another run", [](auto& run, auto&, auto&) {
         log_raw(run, run.ctx()->trace_buffer, {}, &site, "x"); }},
    {": log handle of another run", [](auto& run, auto& other, auto&) {
         log_raw(run, other.ctx()->trace_log, {}, &site, "x"); }},
    {": an argument that is always 0 is not", [](auto& run, auto&, auto&) {
         log_raw(run, 0, {1}, &site, "x"); }},
    {": an argument that is always 0 is not", [](auto& run, auto&, auto&) {
         log_raw(run, 0, {0, 1}, &site, "x"); }},
    {": an argument that is always 0 is not", [](auto& run, auto&, auto&) {
         log_raw(run, 0, {0, 0, 1}, &site, "x"); }},
    {": an argument that is always 0 is not", [](auto& run, auto&, auto&) {
         log_raw(run, 0, {0, 0, 0, 1}, &site, "x"); }},
    {": an argument that is always 0 is not", [](auto& run, auto&, auto&) {
         log_raw(run, 0, {0, 0, 0, 0, 1}, &site, "x"); }},
    {": null site word", [](auto& run, auto&, auto&) { log_raw(run, 0, {}, nullptr, "x"); }},
    {": null format", [](auto& run, auto&, auto&) { log_raw(run, 0, {}, &site, nullptr); }},
    {": thrown", [](auto& run, auto&, auto&) {
         run.on_call([](auto&, auto&) { throw std::runtime_error("thrown"); });
         EXPECT_NE(add(run, "/r"), MAP_OK); }},
    {": the listener has thrown", [](auto& run, auto&, auto&) {
         run.on_call([](auto&, auto&) { throw 1; });
         EXPECT_NE(add(run, "/r"), MAP_OK); }},
};
// clang-format on

TEST(Framework, ReportsEachBreachOnce)
{
    for (const Breach& row : breaches) {
        SCOPED_TRACE(row.fault);
        const ozk::Tree tree = tree_with("node(child)");
        ozk::Run run(MAP_OP_EDIT), other(MAP_OP_EDIT);
        run.call([&] { row.make(run, other, *tree.top().subtrees); });
        ASSERT_EQ(run.faults().size(), 1U);
        EXPECT_TRUE(run.faults()[0].ends_with(row.fault)) << run.faults()[0];
        EXPECT_TRUE(other.faults().empty());
        EXPECT_TRUE(other.added().empty());
    }
}

TEST(Framework, RecordsCallsAndAnswersInTheirPlace)
{
    ozk::Run run(MAP_OP_GET);
    EXPECT_EQ(add(run, "/r/first"), MAP_OK) << "counts, though nothing is waiting yet";
    run.answer(Op::add_path, 2, 77);
    EXPECT_EQ(add(run, "/r/not-recorded"), 77U);
    run.answer(Op::copy_text, 1, 1);
    run.answer(Op::sibling, 1, 78);
    EXPECT_EQ(refused([&] { run.answer(Op::match, 1, 1); }),
              "no answer can be set for ozk_map_do_these_match");
    run.record_calls(true);
    EXPECT_EQ(add(run, "/r/third", "v"), MAP_OK);
    EXPECT_EQ(shown(run.added()), "/r/first, /r/third=v");
    std::vector<const char*> siblings;
    run.on_sibling(
        [&](const char* entry_point, const OzkMapNode*) { siblings.push_back(entry_point); });
    const auto entry_point =
        ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvlb_interface_configuration;
    EXPECT_EQ(entry_point(nullptr, nullptr, nullptr), MAP_OK) << "without a run";
    run.call([&] {
        EXPECT_EQ(ozk_strdup("x", MAP_MEMORY_TAG), nullptr);
        EXPECT_STREQ(ozk_strdup("x", MAP_MEMORY_TAG), "x");
        EXPECT_EQ(ozk_strdup(nullptr, MAP_MEMORY_TAG), nullptr);
        EXPECT_EQ(entry_point(run.ctx(), nullptr, run.tree()), 78U);
        EXPECT_EQ(entry_point(run.ctx(), nullptr, run.tree()), MAP_OK);
        log_raw(run, 0, {}, &site, "");
    });
    ASSERT_EQ(siblings.size(), 1U) << "an answer comes in the call's place";
    EXPECT_EQ(siblings.front(), std::string("ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_"
                                            "lvlb_interface_configuration"));
    const auto calls = run.calls();
    ASSERT_EQ(calls.size(), 7U);
    EXPECT_EQ(calls[0].text_1, std::string("/r/third"));
    EXPECT_EQ(calls[1].result, 1U);
    EXPECT_EQ(calls[4].text_1, siblings.front());
    EXPECT_EQ(calls[4].result, 78U);
    EXPECT_EQ(calls[6].line, "");
    EXPECT_TRUE(run.faults().empty());
}

TEST(Framework, ListenerTurnsSwitchesBeforeTheCall)
{
    ozk::Run run(MAP_OP_GET);
    const OzkDebugCtx* log = &run.ctx()->_debug_ctx;
    run.on_call([](ozk::Run& seen, const Call& call) {
        if (call.op == Op::should_log)
            seen.set_level(call.kind, true);
    });
    EXPECT_NE(ozk_debug_should_log(log, MAP_LOG_TRACE), 0);
    run.on_call({});
    run.call([&] {
        EXPECT_EQ(ozk_debug_should_log(log, MAP_LOG_ERROR), 0);
        EXPECT_NE(ozk_debug_should_log(log, MAP_LOG_TRACE), 0);
        run.set_level(MAP_LOG_ERROR, true);
        EXPECT_EQ(ozk_debug_should_log(log, 32), 0) << "beyond all levels";
        run.set_level(MAP_LOG_TRACE, false);
        EXPECT_EQ(ozk_debug_should_log(log, MAP_LOG_TRACE), 0);
    });
    EXPECT_EQ(refused([&] { run.set_level(32, true); }), "no such log level");
}

/// Has one log point.
uint32_t reports(OzkMapCtx* ctx, const OzkMapNode*, OzkDataTree*)
{
    static constexpr ymap::LogText<> text{MAP_LOG_TRACE, "Start"};
    static ymap::SiteWord site_word;
    ymap::log_point<text>(ctx, {"reports", 1}, site_word);
    return MAP_OK;
}

TEST(Framework, TraceBufferIsARing)
{
    ozk::Run run(MAP_OP_GET);
    run.set_trace_capacity(3);
    run.walk(reports, nullptr);
    run.set_trace(true);
    for (int i = 0; i != 4; ++i)
        run.walk(reports, nullptr);
    EXPECT_EQ(run.trace_index(), 4U);
    ASSERT_EQ(run.trace_lines().size(), 3U);
    run.set_trace_capacity(2);
    ASSERT_EQ(run.trace_lines().size(), 2U);
    EXPECT_TRUE(run.trace_lines()[0].starts_with("#3: TRC: reports:1 ctx=0x"));
    EXPECT_TRUE(run.trace_lines()[1].starts_with("#4: "));
    EXPECT_TRUE(run.faults().empty());
}

TEST(Framework, LogGoesToItsStream)
{
    const std::string longer = std::string(1000, 'x') + "end";
    char* text               = nullptr;
    size_t size              = 0;
    FILE* stream             = open_memstream(&text, &size);
    ozk::Run run(MAP_OP_GET);
    run.set_log_stream(stream);
    run.set_level(MAP_LOG_ERROR, true);
    run.walk(reports, nullptr);
    run.call([&] {
        for (const uint64_t log : {run.ctx()->error_log, run.ctx()->trace_log})
            _tlm_dt_log_filter_adv(log, 0, 0, 0, 0, 0, &site, "%s %d", longer.c_str(), 7);
    });
    log_raw(run, 0, {}, &site, "outside of a walk");
    std::string expected = longer + " 7\n" + longer + " 7\noutside of a walk\n";
    for (const size_t length : {511u, 512u, 513u}) { // about what fits without memory of its own
        const std::string line(length, 'y');
        run.call([&] {
            _tlm_dt_log_filter_adv(run.ctx()->error_log, 0, 0, 0, 0, 0, &site, "%s", line.c_str());
        });
        expected += line + "\n";
    }
    fclose(stream);
    EXPECT_EQ(text, expected);
    free(text);
}

TEST(Framework, ThreadsAndNestedWalksAreApart)
{
    ozk::Run outer(MAP_OP_GET), inner(MAP_OP_EDIT);
    outer.call([&] {
        inner.call([&] { EXPECT_EQ(ozk::Run::current(), &inner); });
        EXPECT_EQ(ozk::Run::current(), &outer);
        std::thread([&] {
            EXPECT_EQ(ozk::Run::current(), nullptr);
            EXPECT_STREQ(ozk_strdup("without a run", MAP_MEMORY_TAG), "without a run");
            EXPECT_NE(ozk_map_do_these_match("a", "a"), 0);
            EXPECT_EQ(ozk_map_do_these_match(nullptr, nullptr), 0);
            const uint32_t index = ret_nc_ozk_trace_index_incr();
            EXPECT_EQ(ret_nc_ozk_trace_index_incr(), index + 1);
            // A context without a run, as an agent of another framework might hand over.
            OzkMapCtx ctx{};
            ctx._debug_ctx.levels = 1U << MAP_LOG_TRACE;
            EXPECT_NE(ozk_debug_should_log(&ctx._debug_ctx, MAP_LOG_TRACE), 0);
            EXPECT_EQ(ozk_map_update_current_list_node(&ctx, "/r"), MAP_ERR_INVALID_ARGS);
            EXPECT_EQ(ozk_map_add_to_node_hierarchy(&ctx, nullptr, 1), MAP_ERR_INVALID_ARGS);
            EXPECT_EQ(ozk_map_remove_from_node_hierarchy(&ctx, nullptr), MAP_ERR_INVALID_ARGS);
            EXPECT_EQ(add_raw(outer, nullptr, nullptr, 0, 0), MAP_ERR_INVALID_ARGS);
        }).join();
    });
    EXPECT_EQ(ozk::Run::current(), nullptr);
    EXPECT_EQ(outer.faults().size(), 1U) << "it is found by its context in any thread";
}

TEST(Tree, StaysWhereItIsWhenItIsMoved)
{
    ozk::Tree tree = tree_with("root(leaf=#7 ? leaf)");
    ozk::Tree moved(std::move(tree));
    const auto nodes = ozk::children(std::as_const(*ozk::children(moved.top()).data()));
    ASSERT_EQ(nodes.size(), 3U);
    EXPECT_EQ(nodes[0].flags, MAP_NODE_HAS_VALUE | MAP_NODE_HAS_POSITION);
    EXPECT_STREQ(nodes[0].value, "");
    EXPECT_EQ(nodes[1].tag, nullptr);
    EXPECT_EQ(nodes[2].flags, 0);
    EXPECT_EQ(nodes[2].tag, nodes[0].tag) << "equal tags share a copy";
    ozk::Tree::set_value(*ozk::children(*ozk::children(moved.top()).data()).data(), nullptr);
    EXPECT_EQ(nodes[0].flags, MAP_NODE_HAS_POSITION);
    OzkMapNode broken = *moved.top().subtrees;
    broken.subtrees   = nullptr;
    EXPECT_TRUE(ozk::children(broken).empty());
    broken       = *moved.top().subtrees;
    broken.flags = 0;
    EXPECT_TRUE(ozk::children(broken).empty());
}

} // namespace
} // namespace test
