// Native operational data on its way to /interfaces-state, and the child tables of all models: the
// expectations are computed from the schema.

#include <map>
#include <string>

#include "schema.h"
#include "walk_case.h"

namespace test {
namespace {

using Lines = std::vector<std::string>;

const schema::Model& operational()
{
    return schema::models()[2];
}

const std::string entry_path = "/interfaces/interface-nq/interface";
const std::string stats_path = entry_path + "/interface-statistics";

/// All that the model adds: the IETF path by the native one. Leaves add their value.
const std::map<std::string, std::string> mapped{
    {"/interface-name", "/name"},
    {"/mac-address/address", "/phys-address"},
    {"/interface-statistics/full-interface-stats/bytes-received", "/statistics/in-octets"},
    {"/interface-statistics/full-interface-stats/bytes-sent", "/statistics/out-octets"},
    {"/interface-statistics/full-interface-stats/multicast-packets-received",
     "/statistics/in-multicast-pkts"},
    {"/interface-statistics/full-interface-stats/broadcast-packets-received",
     "/statistics/in-broadcast-pkts"},
    {"/interface-statistics/full-interface-stats/multicast-packets-sent",
     "/statistics/out-multicast-pkts"},
    {"/interface-statistics/full-interface-stats/broadcast-packets-sent",
     "/statistics/out-broadcast-pkts"},
    {"/interface-statistics/full-interface-stats/unknown-protocol-packets-received",
     "/statistics/in-unknown-protos"},
    {"/interface-statistics/full-interface-stats/input-errors", "/statistics/in-errors"},
    {"/interface-statistics/full-interface-stats/input-ignored-packets",
     "/statistics/in-discards"},
    {"/interface-statistics/basic-interface-stats/output-errors", "/statistics/out-errors"},
};

/// A tree with the node and all below it, each once; a leaf's value is its path.
DataNode data_of(const schema::Node& described)
{
    DataNode made = node(described.tag.c_str());
    if (described.kind == schema::Kind::leaf)
        made.value = described.path;
    for (const schema::Node& child : described.children)
        made.children.push_back(data_of(child));
    return made;
}

std::vector<DataNode> children_of(const schema::Node& described)
{
    return data_of(described).children;
}

Lines adds_of(const schema::Node& described)
{
    if (described.path == entry_path)
        return {"delete? interface no", "add /interfaces-state/interface list"};
    if (!described.path.starts_with(entry_path))
        return {};
    const auto found = mapped.find(described.path.substr(entry_path.size()));
    if (found == mapped.end())
        return {};
    const std::string line =
        "add /interfaces-state/interface" + found->second + " = " + described.path;
    return described.tag == "interface-name" ? Lines{line, line} : Lines{line};
}

/// The framework's calls for the node and all below it.
void expect_calls(const schema::Node& described, Lines& lines)
{
    const std::string& tag = described.tag;
    if (described.kind != schema::Kind::leaf)
        lines.push_back("push " + tag +
                        (described.kind == schema::Kind::list ? " list" : " container"));
    if (described.kind == schema::Kind::list)
        lines.push_back("list " + described.path);
    lines = lines + adds_of(described);
    for (const schema::Node& child : described.children) {
        lines.push_back("match " + child.tag + " " + child.tag);
        expect_calls(child, lines);
    }
    if (described.kind != schema::Kind::leaf)
        lines.push_back("pop " + tag);
}

/// The trace for the node and all below it, as "FUNCTION TEXT".
void expect_trace(const schema::Node& described, Lines& lines)
{
    const std::string handler = (described.manual_handler ? "" : "__") + described.handler();
    lines.push_back(described.walker() + " Start");
    const bool bare_list = described.kind == schema::Kind::list && adds_of(described).empty();
    if (!bare_list)
        lines.push_back(handler + " Start");
    if (described.path == stats_path)
        lines.push_back(handler + " No mapping done for this node");
    if (described.when_hook || described.manual_leaf) {
        const std::string written = described.when_hook
                                        ? described.handler() + "_handle_when"
                                        : described.prefix + "man_leaf_" + described.stem;
        lines = lines + Lines{written + " Start", written + " End"};
    }
    lines.push_back(handler + " End");
    for (const schema::Node& child : described.children)
        expect_trace(child, lines);
    lines.push_back(described.walker() + " End");
}

/// "FUNCTION TEXT" of a trace line "#N: TRC: FUNCTION:LINE ctx=P,TEXT".
std::string function_and_text(const std::string& line)
{
    const size_t function = line.find("TRC: ") + 5;
    const size_t end = line.find(':', function);
    return line.substr(function, end - function) + " " + line.substr(line.find(',') + 1);
}

TEST(Operational, EveryNodeOnceInTheOrderOfTheTree)
{
    const schema::Node& root = operational().roots.front();
    Walk walk(native_operational, MAP_OP_GET, children_of(root));
    walk.run.set_trace(true);
    EXPECT_EQ(walk.go(), MAP_OK);

    Lines calls;
    expect_calls(root, calls);
    EXPECT_EQ(walk.script(), calls);

    Lines trace;
    expect_trace(root, trace);
    Lines traced;
    for (const std::string& line : walk.run.trace_lines())
        traced.push_back(function_and_text(line));
    EXPECT_EQ(traced, trace);
    EXPECT_TRUE(walk.run.faults().empty());
}

TEST(Operational, OtherOperationsIgnoreEveryChild)
{
    const schema::Node& root = operational().roots.front();
    for (const uint32_t op :
         {uint32_t{MAP_OP_GET_CONFIG}, uint32_t{MAP_OP_EDIT}, other_operation}) {
        Lines calls{"push interfaces container"};
        for (const schema::Node& child : root.children)
            calls = calls + Lines{"match " + child.tag + " " + child.tag,
                                  std::string("match ") + NS_NQ_PFI_IM_CMD_OPER + " " +
                                      NS_NQ_PFI_IM_CMD_OPER,
                                  "TRC Unsupported tag. Ignoring."};
        calls.push_back("pop interfaces");
        Walk walk(native_operational, op, children_of(root));
        walk.run.set_level(MAP_LOG_TRACE, true);
        EXPECT_EQ(walk.go(), MAP_OK);
        Lines seen = walk.script();
        std::erase(seen, "TRC Start");
        std::erase(seen, "TRC End");
        EXPECT_EQ(seen, calls);
    }
}

TEST(Operational, EmptyNodes)
{
    const Lines open{"push interfaces container", "match interface-nq interface-nq",
                     "push interface-nq container", "match interface interface"};
    const Lines entry_added{"push interface list", "list " + entry_path, "delete? interface no",
                            "add /interfaces-state/interface list"};
    const Lines close{"pop interface", "pop interface-nq", "pop interfaces"};
    const auto with_entry = [](std::vector<DataNode> children) {
        return std::vector{node("interface-nq", {node("interface", std::move(children))})};
    };
    check({
        {"root", native_operational, MAP_OP_GET, {},
         {"push interfaces container", "pop interfaces"}},
        {"entry", native_operational, MAP_OP_GET, with_entry({}),
         open + Lines{"ERR No keys specified with a list node."} + entry_added + close},
        {"statistics stand for the whole container", native_operational, MAP_OP_GET,
         with_entry({node("interface-statistics")}),
         open + entry_added +
             Lines{"match interface-statistics interface-statistics",
                   "push interface-statistics container",
                   "add /interfaces-state/interface/statistics", "pop interface-statistics"} +
             close},
        {"a container with a when hook, and one whose leaf would map", native_operational,
         MAP_OP_GET,
         with_entry({node("mac-address"),
                     node("interface-statistics", {node("basic-interface-stats")})}),
         open + entry_added +
             Lines{"match mac-address mac-address", "push mac-address container",
                   "pop mac-address", "match interface-statistics interface-statistics",
                   "push interface-statistics container",
                   "match basic-interface-stats basic-interface-stats",
                   "push basic-interface-stats container", "pop basic-interface-stats",
                   "pop interface-statistics"} +
             close},
    });
}

// An inner list sets its own path; the outer one doesn't set its path again behind it.
TEST(Operational, PathsOfNestedLists)
{
    Walk walk(native_operational, MAP_OP_GET,
              {node("interface-nq",
                    {node("interface",
                          {node("l2-interface-statistics",
                                {node("element-array",
                                      {node("block-array"), leaf("key", "1"),
                                       node("block-array")}),
                                 node("block-array")})})})});
    EXPECT_EQ(walk.go(), MAP_OK);
    const std::string path = entry_path + "/l2-interface-statistics";
    EXPECT_EQ(walk.script({"list"}),
              (Lines{"list " + entry_path, "list " + path + "/element-array",
                     "list " + path + "/element-array/block-array",
                     "list " + path + "/element-array/block-array", "list " + path +
                     "/block-array"}));
}

TEST(Operational, FailuresStopEveryLoopAbove)
{
    const std::vector<DataNode> two_entries{node(
        "interface-nq",
        {node("interface",
              {node("interface-statistics", {node("full-interface-stats",
                                                  {leaf("bytes-received", "1"),
                                                   leaf("bytes-sent", "2")})}),
               leaf("interface-name", "a")}),
         node("interface")})};
    for (size_t k = 1; k <= 6; ++k) {
        SCOPED_TRACE(k);
        Walk walk(native_operational, MAP_OP_GET, two_entries);
        walk.run.answer(ozk::Op::add_path, k, framework_failure);
        const bool unseen = k == 4; // the first add of the key
        EXPECT_EQ(walk.go(), unseen ? uint32_t{MAP_OK} : framework_failure);
        EXPECT_EQ(walk.script({"add"}).size(), unseen ? 6U : k);
        EXPECT_TRUE(walk.run.faults().empty());
    }
}

/// The root of a walk down to `target`, whose only child there has a tag that no table has.
DataNode way_to(const schema::Node& from, const schema::Node& target, const char* ns_uri)
{
    DataNode made = in_ns(node(from.tag.c_str()), ns_uri);
    if (&from == &target) {
        made.children.push_back(in_ns(node("no-such-tag"), ns_uri));
        return made;
    }
    for (const schema::Node& child : from.children)
        if (&child == &target || target.path.starts_with(child.path + "/"))
            made.children.push_back(way_to(child, target, ns_uri));
    return made;
}

// Every table of every walker, in the order of the schema, then the namespace of the model.
TEST(ChildTables, CompareInTheOrderOfTheSchema)
{
    size_t tables = 0;
    for (const schema::Model& model : schema::models())
        for (const schema::Node& root : model.roots)
            schema::for_each(root, [&](const schema::Node& walked) {
                // The state list has no table: its statistics look at its children instead.
                if (walked.kind == schema::Kind::leaf || walked.path == "/interfaces-state/interface/"
                                                                        "statistics")
                    return;
                SCOPED_TRACE(model.ns_uri + " " + walked.path);
                const bool state_list = walked.path == "/interfaces-state/interface";
                const schema::Node& table = state_list ? walked.children.back() : walked;
                Lines expected;
                for (const schema::Node& child : table.children)
                    expected.push_back(child.tag);
                expected.push_back(model.ns_uri);

                ozk::InputTree input(way_to(root, walked, model.ns_uri.c_str()));
                ozk::Run run(MAP_OP_GET);
                run.record_calls(true);
                run.walk(map_function(root.walker()), &input.root());
                Lines compared;
                for (const ozk::Call& call : run.calls()) {
                    if (call.op != ozk::Op::match)
                        continue;
                    if (std::string_view(call.text_1) == "no-such-tag")
                        compared.push_back(call.text_2);
                    else if (std::string_view(call.text_2) == model.ns_uri)
                        compared.push_back(call.text_1);
                }
                EXPECT_EQ(compared, expected);
                ++tables;
            });
    EXPECT_EQ(tables, 99U);
}

// A known tag on an operation that doesn't reach it matches nothing: the rest of the table is
// tried, then the namespace; a node of another model goes to the hook.
TEST(ChildTables, ComparisonsGoOnBehindAGatedMatch)
{
    Walk own(native_operational, MAP_OP_GET_CONFIG, {node("node-type-sets")});
    own.go();
    const Lines table{"interface-nq", "node-type-sets",  "interface-briefs", "inventory-summary",
                      "interfaces",   "interface-summary", NS_NQ_PFI_IM_CMD_OPER};
    EXPECT_EQ(own.compared(), table);

    Walk foreign(native_operational, MAP_OP_GET_CONFIG,
                 {in_ns(node("node-type-sets"), foreign_ns)});
    foreign.run.set_trace(true);
    foreign.go();
    EXPECT_EQ(foreign.compared(), table);
    Lines traced;
    for (const std::string& line : foreign.run.trace_lines())
        traced.push_back(function_and_text(line));
    const std::string root = "ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces";
    const std::string handler = "__ymap_qi_ietf_if_brelviknqpfiimcmdoper_cont_lvla_interfaces";
    EXPECT_EQ(traced,
              (Lines{root + " Start", handler + " Start", handler + " End",
                     "__" + root + "_parse_augments Start", "__" + root + "_parse_augments End",
                     root + " End"}));
}

} // namespace
} // namespace test
