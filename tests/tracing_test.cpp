// What every map function reports of itself: formats, order, switches, site words, assertions.

#include <map>
#include <regex>
#include <set>
#include <string>

#include "schema.h"
#include "support.h"

namespace test {
namespace {

using Lines = std::vector<std::string>;

/// Walks that pass every kind of function of both directions, with everything reported.
std::vector<std::unique_ptr<Walk>> walks()
{
    std::vector<std::unique_ptr<Walk>> all;
    const auto add = [&](const Root& root, uint32_t op, std::vector<DataNode> children) {
        all.push_back(std::make_unique<Walk>(root, op, std::move(children)));
        all.back()->run.set_level(MAP_LOG_TRACE, true);
        all.back()->run.set_trace(true);
    };
    add(ietf_configuration, MAP_OP_GET, {});
    add(ietf_configuration, MAP_OP_EDIT, {node("interface", {leaf("name", "a"), node("x")})});
    add(ietf_configuration, MAP_OP_EDIT, {node("interface", {leaf("description", "x")})});
    add(ietf_configuration, MAP_OP_EDIT, {node("interface", {node("name")})});
    add(ietf_configuration, MAP_OP_EDIT,
        {node("interface", {with(Edit::erase, leaf("name", "a"))})});
    add(ietf_configuration, MAP_OP_EDIT, {without_tag(node(""))});
    add(ietf_configuration, MAP_OP_EDIT, {node("interface")});
    all.back()->input.root().subtrees = nullptr;
    add(ietf_state, MAP_OP_GET, {node("interface", {leaf("name", "a")})});
    add(native_configuration, MAP_OP_GET,
        {node("interface-configuration",
              {leaf("interface-name", "a"), in_ns(node("es-packet-filter"), NS_NQ_IP_PFILTER_CFG),
               node("unknown")})});
    add(native_operational, MAP_OP_GET,
        {node("interface-nq",
              {node("interface", {node("interface-statistics"), leaf("bandwidth", "1")})}),
         node("interfaces", {node("interface")})});
    return all;
}

std::vector<const ozk::Call*> of(const Walk& walk, ozk::Op op)
{
    std::vector<const ozk::Call*> calls;
    for (const ozk::Call& call : walk.run.calls())
        if (call.op == op)
            calls.push_back(&call);
    return calls;
}

// Both outputs of a log point say the same, each in its own format, and come in this order. No two
// places share a site word, and no two places of a function that write the same text share a line;
// the same place always has the same ones.
TEST(Tracing, FormatsAndPlacesOfLogPoints)
{
    const std::regex trace_format(
        "#([0-9]+): (TRC|ERR): ([a-z0-9_]+):([1-9][0-9]*) ctx=0x[0-9a-f]+,(.*)");
    std::map<const void*, std::string> place_of_word;
    std::map<std::string, const void*> word_of_place;
    for (const auto& walk : walks()) {
        walk->go();
        const auto logged = of(*walk, ozk::Op::log);
        const auto traced = of(*walk, ozk::Op::trace);
        ASSERT_EQ(logged.size(), traced.size());
        for (size_t i = 0; i < logged.size(); ++i) {
            EXPECT_LT(logged[i], traced[i]);
            std::smatch parts;
            ASSERT_TRUE(std::regex_match(traced[i]->line, parts, trace_format)) << traced[i]->line;
            EXPECT_EQ(parts[1], std::to_string(i + 1));
            EXPECT_EQ(logged[i]->kind == MAP_LOG_ERROR ? "ERR" : "TRC", parts[2]);
            const std::string_view format = logged[i]->format;
            EXPECT_TRUE(format.starts_with(parts[2].str() + ": OZK: ctx=%p,"));
            EXPECT_TRUE(logged[i]->line.ends_with("," + parts[5].str()));

            const void* word = logged[i]->site_word;
            const std::string place =
                parts[3].str() + ":" + parts[4].str() + " " + logged[i]->format;
            EXPECT_EQ(place_of_word.try_emplace(word, place).first->second, place);
            EXPECT_EQ(word_of_place.try_emplace(place, word).first->second, word) << place;
        }
    }
    EXPECT_GT(place_of_word.size(), 100U);
}

// With all off, a log point costs one question and nothing else. A map function asks once more at
// its entry: three questions for a function that only traces, two for a bare list handler.
TEST(Tracing, QuestionsToTheLogLayer)
{
    Walk one(ietf_configuration, other_operation, {}); // a walker and an empty handler
    one.run.set_level(MAP_LOG_ERROR, false);
    one.go();
    EXPECT_EQ(of(one, ozk::Op::should_log).size(), 6U);

    Walk bare(native_operational, MAP_OP_GET, {});
    const auto handler = map_function("ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_"
                                      "interfaces_interface");
    EXPECT_EQ(bare.run.walk(handler, nullptr), MAP_OK); // it looks at no argument
    EXPECT_EQ(of(bare, ozk::Op::should_log).size(), 2U);
}

TEST(Tracing, LongLineIsCut)
{
    const std::string tag(2000, 't');
    const std::string hook_name = "ymap_qi_ietf_if_brelviknqifmgrcfg_lvla_interfaceconfigurations_"
                                  "interfaceconfiguration_parse_augments";
    Walk walk(native_configuration, MAP_OP_EDIT, {in_ns(node(tag.c_str()), NS_NQ_IP_PFILTER_CFG)});
    walk.run.set_trace(true);
    walk.run.walk(map_function(hook_name), walk.input.root().subtrees);
    size_t cut = 0;
    for (const std::string& line : walk.run.trace_lines())
        if (line.find("Processing tag 'ttt") != std::string::npos) {
            EXPECT_EQ(line.size(), MAP_MAX_TRACE_LINE - 1);
            ++cut;
        }
    EXPECT_EQ(cut, 1U);
}

/// Every exported function of the three-argument type, and of the container type.
template <class Visit>
void for_each_function(const Visit& visit)
{
    for (const schema::Model& model : schema::models())
        for (const schema::Node& root : model.roots) {
            visit(root.walker(), "", false);
            schema::for_each(root, [&](const schema::Node& described) {
                visit(described.handler(), described.manual_handler ? "" : "__",
                      described.kind == schema::Kind::container);
                if (described.kind != schema::Kind::leaf)
                    visit(described.augment_hook(), described.manual_augment_hook ? "" : "__",
                          false);
                if (described.manual_leaf)
                    visit(described.prefix + "man_leaf_" + described.stem, "", false);
            });
        }
}

// Null arguments: "Start", the error, no "End". Only a bare list handler looks at none of them.
TEST(Arguments, NullNodeOrTreeIsRefused)
{
    size_t refused = 0;
    for_each_function([&](const std::string& name, const std::string& prefix, bool container) {
        for (const bool null_node : {true, false}) {
            ozk::InputTree input(node("x"));
            ozk::Run run(MAP_OP_GET);
            run.record_calls(true);
            run.set_trace(true);
            const OzkMapNode* given_node = null_node ? nullptr : &input.root();
            OzkDataTree* given_tree      = null_node ? run.tree() : nullptr;
            uint32_t status              = 0;
            run.call([&] {
                status = container ? map_function<OzkMapContainerFunction>(name)(
                                         run.ctx(), given_node, 3, given_tree)
                                   : map_function(name)(run.ctx(), given_node, given_tree);
            });
            Lines lines;
            for (const std::string& line : run.trace_lines())
                lines.push_back(
                    std::regex_replace(line, std::regex("^#[0-9]+: |:[0-9]+ ctx=[^,]*"), ""));
            if (status == MAP_OK) {
                EXPECT_NE(name.find("_list_lvl"), std::string::npos) << name;
                EXPECT_EQ(lines, Lines{"TRC: " + prefix + name + ",End"});
                continue;
            }
            ++refused;
            EXPECT_EQ(status, MAP_ERR_INVALID_ARGS) << name;
            EXPECT_EQ(lines, (Lines{"TRC: " + prefix + name + ",Start",
                                    "ERR: " + prefix + name + ",Invalid arguments passed!"}));
            EXPECT_TRUE(run.added().empty());
        }
    });
    EXPECT_EQ(refused, 2U * (5 + 554 - 25 + 100 + 6)); // 24 operational lists and mtu are bare
}

TEST(Arguments, WhenHookWithoutANode)
{
    size_t hooks = 0;
    for (const schema::Node& root : schema::models()[2].roots)
        schema::for_each(root, [&](const schema::Node& described) {
            if (!described.when_hook)
                return;
            ++hooks;
            const auto hook =
                map_function<OzkMapWhenFunction>(described.handler() + "_handle_when");
            ozk::InputTree input(node("x"));
            ozk::Run run(MAP_OP_GET);
            run.set_trace(true);
            run.call([&] {
                EXPECT_EQ(hook(run.ctx(), &input.root()), MAP_OK);
                EXPECT_EQ(run.trace_lines().size(), 2U);
                EXPECT_EQ(hook(run.ctx(), nullptr), MAP_WHEN_NO_INPUT);
            });
            const auto lines = run.trace_lines();
            ASSERT_EQ(lines.size(), 5U);
            EXPECT_TRUE(lines[2].ends_with(",Start"));
            EXPECT_TRUE(lines[3].ends_with(",No valid input to validate when statement "));
            EXPECT_TRUE(lines[4].ends_with(",End"));
        });
    EXPECT_EQ(hooks, 17U);
}

using AssertionDeathTest = testing::Test;

TEST(AssertionDeathTest, NullContext)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const std::string sources = "manageability/yang/framework/mapping/ietf-if/src/ymap_ietf_if_";
    const struct {
        const char* function;
        const char* source;
    } cases[] = {
        {"ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces", "ietf_interfaces_parser"},
        {"ymap_qi_ietf_if_brelviknqifmgrcfg_leaf_lvla_interfaceconfigurations_mtu_owner",
         "brelvik_nq_ifmgr_cfg_auto"},
        {"ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_interfaces_interface",
         "brelvik_nq_pfi_im_cmd_oper_auto"},
        {"ymap_iq_ietf_if_ietfinterfaces_man_leaf_lvla_interfacesstate_interface_speed",
         "ietf_interfaces_man"},
    };
    for (const auto& c : cases) {
        ozk::InputTree input(node("x"));
        ozk::Run run(MAP_OP_GET);
        EXPECT_EXIT(map_function(c.function)(nullptr, &input.root(), run.tree()),
                    testing::KilledBySignal(SIGABRT),
                    "^" + sources + c.source + "\\.cpp: [0-9]+ NULL != ctx -- assertion failed\n$");
    }
}

} // namespace
} // namespace test
