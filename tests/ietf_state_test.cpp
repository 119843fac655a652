// Reads of /interfaces-state: which native paths they select, and what an entry's children do to
// its counters.

#include <string>

#include "walk_case.h"

namespace test {
namespace {

using Lines = std::vector<std::string>;

const std::string entry    = "/interfaces/interface-nq/interface";
const std::string counters = entry + "/interface-statistics";

/// What a walk of an entry adds before its statistics; `ref` is how its node is called and whether
/// it has a value.
Lines entry_paths(const std::string& tag, const std::string& value = "")
{
    const std::string name =
        "add " + entry + "/interface-name" + (value.empty() ? "" : " = ") + value;
    return {"push " + tag + " list",
            "list /interfaces-state/interface",
            "delete? " + tag + " no",
            "add " + entry + " list",
            name,
            name,
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
    // clang-format off
    check(ietf_state, MAP_OP_GET, {
        {"everything: no line about keys, and what leaves return is lost", {},
         Lines{"push interfaces-state container"} + entry_paths("interfaces-state") +
             statistics("interfaces-state",
                        whole_statistics + Lines{"add? interfaces-state no",
                                                 "pop interfaces-state"}) +
             Lines{"add? interfaces-state no", "pop interfaces-state",
                   "add? interfaces-state no", "pop interfaces-state"}},
        {"an empty entry selects its statistics whole and one by one", {leaf("interface", "odd")},
         Lines{"push interfaces-state container", "match interface interface"} +
             entry_paths("interface", "odd") +
             statistics("interface",
                        whole_statistics + Lines{"add? interface no", "pop interface"}) +
             Lines{"add? interface no", "pop interface", "pop interfaces-state"}},
        {"an entry with its key loses the counters, and the read goes on",
         {node("interface", {leaf("name", "if-1")}), node("interface", {leaf("name", "if-2")})},
         [&] {
             Lines calls{"push interfaces-state container"};
             for (int i = 0; i < 2; ++i)
                 calls = calls + Lines{"match interface interface"} + entry_paths("interface") +
                         statistics("interface",
                                    {match_of(NS_IETF_INTERFACES),
                                     "ERR Unsupported tag is specified in the request.",
                                     "copy name", "pop interface"}) +
                         Lines{"add? interface no", "pop interface"};
             return calls + Lines{"pop interfaces-state"};
         }(),
         MAP_OK, "name"},
        {"a counter among an entry's children is taken for one of the statistics",
         {node("interface", {node("out-errors"), node("in-unicast-pkts"),
                                         node("in-octets")})},
         Lines{"push interfaces-state container", "match interface interface"} +
             entry_paths("interface") +
             statistics("interface", {"match out-errors out-errors",
                                      "add " + counters + "/basic-interface-stats/output-errors",
                                      "match in-unicast-pkts in-unicast-pkts", "pop interface"}) +
             Lines{"add? interface no", "pop interface", "pop interfaces-state"}},
    });
    // clang-format on
}

TEST(IetfState, OtherOperationsReachNothing)
{
    for (const uint32_t op : {uint32_t{MAP_OP_GET_CONFIG}, uint32_t{MAP_OP_EDIT}, other_operation})
        // clang-format off
        check(ietf_state, op, {
            {"an entry", {node("interface")},
             {"push interfaces-state container", "match interface interface",
              match_of(NS_IETF_INTERFACES), "ERR Unsupported tag is specified in the request.",
              "copy interface", "pop interfaces-state"},
             MAP_ERR_UNSUPPORTED_TAG, "interface"}});
    check(ietf_state, MAP_OP_GET_CONFIG, {
        {"everything", {},
         {"push interfaces-state container", "add? interfaces-state no", "pop interfaces-state"}}});
    check(ietf_state, MAP_OP_EDIT, {
        {"an added node of another model", {in_ns(node("interface"), foreign_ns)},
         {"push interfaces-state container", "match interface interface", "add? interface yes",
          "copy interface", "pop interfaces-state"},
         MAP_ERR_ADD_REFUSED, "interface"}});
    // clang-format on
}

} // namespace
} // namespace test
