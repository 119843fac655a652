// Reads of /interfaces-state: which native paths they select, and what an entry's children do to
// its counters.

#include <string>

#include "walk_case.h"

namespace test {
namespace {

using Lines = std::vector<std::string>;

const std::string entry = "/interfaces/interface-nq/interface";
const std::string counters = entry + "/interface-statistics";

/// What a walk of an entry adds before its statistics; `ref` is how its node is called and whether
/// it has a value.
Lines entry_paths(const std::string& tag, const std::string& value = "")
{
    const std::string name = "add " + entry + "/interface-name" + (value.empty() ? "" : " = ") +
                             value;
    return {"push " + tag + " list",   "list /interfaces-state/interface",
            "delete? " + tag + " no",  "add " + entry + " list",
            name,                      name,
            "add " + entry + "/mac-address/address"};
}

const Lines whole_statistics{
    "add " + counters,
    "add " + counters + "/full-interface-stats/bytes-received",
    "add " + counters + "/full-interface-stats/broadcast-packets-received",
    "add " + counters + "/full-interface-stats/multicast-packets-received",
    "add " + counters + "/full-interface-stats/input-ignored-packets",
    "add " + counters + "/full-interface-stats/input-errors",
    "add " + counters + "/full-interface-stats/unknown-protocol-packets-received",
    "add " + counters + "/full-interface-stats/bytes-sent",
    "add " + counters + "/full-interface-stats/broadcast-packets-sent",
    "add " + counters + "/full-interface-stats/multicast-packets-sent",
    "add " + counters + "/basic-interface-stats/output-errors",
};

Lines statistics(const std::string& tag, const Lines& calls)
{
    return Lines{"push " + tag + " container"} + calls;
}

TEST(IetfState, Reads)
{
    const std::string own_namespace =
        std::string("match ") + NS_IETF_INTERFACES + " " + NS_IETF_INTERFACES;
    check({
        {"everything: no line about keys, and what leaves return is lost", ietf_state, MAP_OP_GET,
         {},
         Lines{"push interfaces-state container"} + entry_paths("interfaces-state") +
             statistics("interfaces-state",
                        whole_statistics + Lines{"add? interfaces-state no",
                                                 "pop interfaces-state"}) +
             Lines{"add? interfaces-state no", "pop interfaces-state",
                   "add? interfaces-state no", "pop interfaces-state"}},
        {"an empty entry selects its statistics whole and one by one", ietf_state, MAP_OP_GET,
         {leaf("interface", "odd")},
         Lines{"push interfaces-state container", "match interface interface"} +
             entry_paths("interface", "odd") +
             statistics("interface",
                        whole_statistics + Lines{"add? interface no", "pop interface"}) +
             Lines{"add? interface no", "pop interface", "pop interfaces-state"}},
        {"an entry with its key loses the counters, and the read goes on", ietf_state, MAP_OP_GET,
         {node("interface", {leaf("name", "ge-1")}), node("interface", {leaf("name", "ge-2")})},
         [&] {
             Lines calls{"push interfaces-state container"};
             for (int i = 0; i < 2; ++i)
                 calls = calls + Lines{"match interface interface"} + entry_paths("interface") +
                         statistics("interface",
                                    {own_namespace,
                                     "ERR Unsupported tag is specified in the request.",
                                     "copy name", "pop interface"}) +
                         Lines{"add? interface no", "pop interface"};
             return calls + Lines{"pop interfaces-state"};
         }(),
         MAP_OK, "name"},
        {"a counter among an entry's children is taken for one of the statistics", ietf_state,
         MAP_OP_GET, {node("interface", {node("out-errors"), node("in-unicast-pkts"),
                                         node("in-octets")})},
         Lines{"push interfaces-state container", "match interface interface"} +
             entry_paths("interface") +
             statistics("interface", {"match out-errors out-errors",
                                      "add " + counters + "/basic-interface-stats/output-errors",
                                      "match in-unicast-pkts in-unicast-pkts", "pop interface"}) +
             Lines{"add? interface no", "pop interface", "pop interfaces-state"}},
    });
}

TEST(IetfState, OtherOperationsReachNothing)
{
    const std::string own_namespace =
        std::string("match ") + NS_IETF_INTERFACES + " " + NS_IETF_INTERFACES;
    for (const uint32_t op : {uint32_t{MAP_OP_GET_CONFIG}, uint32_t{MAP_OP_EDIT}, other_operation})
        check({{"an entry", ietf_state, op, {node("interface")},
                {"push interfaces-state container", "match interface interface", own_namespace,
                 "ERR Unsupported tag is specified in the request.", "copy interface",
                 "pop interfaces-state"},
                MAP_ERR_UNSUPPORTED_TAG, "interface"}});
    check({
        {"everything, of the configuration", ietf_state, MAP_OP_GET_CONFIG, {},
         {"push interfaces-state container", "add? interfaces-state no",
          "pop interfaces-state"}},
        {"a node of another model that an edit adds", ietf_state, MAP_OP_EDIT,
         {in_ns(node("interface"), foreign_ns)},
         {"push interfaces-state container", "match interface interface", "add? interface yes",
          "copy interface", "pop interfaces-state"},
         MAP_ERR_ADD_REFUSED, "interface"},
    });
}

TEST(IetfState, StatusIsThatOfTheListAlone)
{
    using ozk::Op;
    for (size_t k = 1; k <= 15; ++k) {
        SCOPED_TRACE(k);
        Walk walk(ietf_state, MAP_OP_GET, {});
        walk.run.answer(Op::add_path, k, framework_failure);
        EXPECT_EQ(walk.go(), MAP_OK); // an expansion drops what the list walker returns
        EXPECT_EQ(walk.script({"add"}).size(), 15U); // and no failure stops what follows
    }
    for (const Op op : {Op::update_list, Op::add_path}) {
        Walk walk(ietf_state, MAP_OP_GET, {node("interface"), node("interface")});
        walk.run.ctx()->list_position = 99;
        walk.run.answer(op, 1, framework_failure);
        EXPECT_EQ(walk.go(), framework_failure);
        EXPECT_EQ(walk.script({"list"}).size(), 1U);
        EXPECT_EQ(walk.script({"add"}).size(), op == Op::update_list ? 14U : 15U);
        EXPECT_EQ(walk.run.ctx()->list_position, 99U);
    }
}

// The list walker reads neither flags nor children of its node: what a broken entry does show is
// that the walker of its statistics looks at it.
TEST(IetfState, BrokenEntryIsNoFailure)
{
    Walk walk(ietf_state, MAP_OP_GET, {at_position(5, node("interface", {node("name")}))});
    ozk::InputTree::child(walk.input.root(), 0).subtrees = nullptr;
    EXPECT_EQ(walk.go(), MAP_OK);
    EXPECT_EQ(walk.script({"ERR"}), Lines{"ERR Failed to get subtrees!"});
    EXPECT_EQ(walk.script({"add"}).size(), 4U);
    EXPECT_EQ(walk.run.ctx()->list_position, 5U);
}

} // namespace
} // namespace test
