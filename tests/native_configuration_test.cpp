// Native configuration on its way to /interfaces: what maps, what is passed over, and how packet
// filters reach their own map.

#include <string>

#include "walk_case.h"

namespace test {
namespace {

using Lines = std::vector<std::string>;

const std::string path = "/interface-configurations/interface-configuration";

std::string entry_point(char letter)
{
    return std::string("ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvl") + letter +
           "_interface_configuration";
}

DataNode entry(std::vector<DataNode> children)
{
    return node("interface-configuration", std::move(children));
}

Lines in_entries(const Lines& calls)
{
    return Lines{"push interface-configurations container"} + calls +
           Lines{"pop interface-configurations"};
}

/// The calls of one entry that isn't deleted.
Lines in_entry(const Lines& calls)
{
    return Lines{"match interface-configuration interface-configuration",
                 "push interface-configuration list", "list " + path,
                 "delete? interface-configuration no", "add /interfaces/interface list"} +
           calls + Lines{"pop interface-configuration"};
}

Lines key_added(const std::string& name)
{
    return {"match interface-name interface-name", "add /interfaces/interface/name = " + name,
            "add /interfaces/interface/name = " + name};
}

TEST(NativeConfiguration, MapsOnEveryOperation)
{
    for (const uint32_t op : all_operations) {
        // clang-format off
        check(native_configuration, op, {
            {"two entries, in the order of the tree",
             {entry({leaf("active", "act"), leaf("shutdown", "true"), leaf("interface-name", "a")}),
                  entry({leaf("interface-name", "b"), leaf("description", "to b")})},
             in_entries(in_entry(Lines{"match active active", "match shutdown shutdown",
                                       "add /interfaces/interface/enabled = true"} +
                                 key_added("a")) +
                        in_entry(key_added("b") +
                                 Lines{"match description description",
                                       "add /interfaces/interface/description = to b"}))},
            {"nothing",
             {}, in_entries({})},
            {"an entry without children", {entry({})},
             in_entries({"match interface-configuration interface-configuration",
                         "ERR No keys specified with a list node.",
                         "push interface-configuration list", "list " + path,
                         "delete? interface-configuration no", "add /interfaces/interface list",
                         "pop interface-configuration"})},
        });
        check(native_global, op, {
            {"the global root", {node("link-status"), node("other")},
             {"push global-interface-configuration container", "match link-status link-status",
              match_of(NS_NQ_IFMGR_CFG), "pop global-interface-configuration"}},
        });
        // clang-format on
    }
}

TEST(NativeConfiguration, RecognisesAndLeavesOut)
{
    // clang-format off
    check(native_configuration, MAP_OP_GET, {
        {"containers and the list of MTUs, whose tag is its leaf's as well",
         {entry({node("dampening", {leaf("half-life", "1")}),
                 node("mtus", {node("mtu", {leaf("owner", "x"), leaf("mtu", "9")}), node("mtu")}),
                 node("encapsulation", {leaf("encapsulation", "ppp")})})},
         in_entries(in_entry(
             {"match dampening dampening", "push dampening container", "match half-life half-life",
              "pop dampening", "match mtus mtus", "push mtus container", "match mtu mtu",
              "push mtu list", "list " + path + "/mtus/mtu", "match owner owner", "match mtu mtu",
              "pop mtu", "match mtu mtu", "ERR No keys specified with a list node.",
              "push mtu list", "list " + path + "/mtus/mtu", "pop mtu", "pop mtus",
              "match encapsulation encapsulation", "push encapsulation container",
              "match encapsulation encapsulation", "pop encapsulation"}))},
        {"unknown tags of the model, a filter's among them",
         {entry({node("es-packet-filter"), leaf("interface-name", "a")})},
         in_entries(in_entry(Lines{match_of(NS_NQ_IFMGR_CFG)} +
                             key_added("a")))},
        {"a known tag of another model is taken",
         {entry({in_ns(leaf("description", "x"), foreign_ns)})},
         in_entries(in_entry({"match description description",
                              "add /interfaces/interface/description = x"}))},
    });
    check(native_configuration, MAP_OP_EDIT, {
        {"an unknown one goes to a default hook and is passed over, also when it is added",
         {in_ns(node("x"), foreign_ns),
          entry({node("mtus", {in_ns(node("ipv4-packet-filter"), NS_NQ_IP_PFILTER_CFG)})})},
         in_entries(in_entry({"match mtus mtus", "push mtus container", "pop mtus"}))},
        {"a deleted entry: its list path alone refers to it",
         {with(Edit::erase, entry({leaf("interface-name", "a")}))},
         in_entries(Lines{"match interface-configuration interface-configuration",
                          "push interface-configuration list", "list " + path,
                          "delete? interface-configuration yes",
                          "add /interfaces/interface list ref interface-configuration"} +
                    key_added("a") + Lines{"pop interface-configuration"})},
    });
    // clang-format on
}

TEST(NativeConfiguration, PacketFilters)
{
    const struct {
        const char* tag;
        Lines call; ///< of the filter's own map, if there is one
    } filters[] = {{"ipv6-packet-filter", {"sibling " + entry_point('a') + " ipv6-packet-filter"}},
                   {"es-packet-filter", {"sibling " + entry_point('b') + " es-packet-filter"}},
                   {"ipv4-packet-filter", {"sibling " + entry_point('c') + " ipv4-packet-filter"}},
                   {"mpls-packet-filter", {}}};
    for (const auto& filter : filters)
        for (const uint32_t op : all_operations)
            for (const char* ns_uri : {NS_NQ_IP_PFILTER_CFG, foreign_ns}) {
                SCOPED_TRACE(std::string(filter.tag) + " of " + ns_uri + " on " +
                             std::to_string(op));
                Lines calls;
                if (ns_uri != foreign_ns)
                    calls = filter.call;
                if (op == MAP_OP_GET_CONFIG || op == MAP_OP_GET)
                    calls = calls + filter.call;
                Walk walk(native_configuration, op, {entry({in_ns(node(filter.tag), ns_uri)})});
                EXPECT_EQ(walk.go(), MAP_OK);
                EXPECT_EQ(walk.script({"sibling"}), calls);
            }
}

// The list walker never hands such a node on; a caller of the hook itself may.
TEST(NativeConfiguration, FilterHookRefusesANullTagEachTimeItDispatches)
{
    const auto hook = map_function("ymap_qi_ietf_if_brelviknqifmgrcfg_lvla_interfaceconfigurations_"
                                   "interfaceconfiguration_parse_augments");
    for (const auto& [op, lines] : {std::pair{MAP_OP_GET, 2U}, {MAP_OP_EDIT, 1U}}) {
        Walk walk(native_configuration, op, {in_ns(without_tag(node("")), NS_NQ_IP_PFILTER_CFG)});
        walk.run.set_level(MAP_LOG_TRACE, true);
        EXPECT_EQ(walk.run.walk(hook, walk.input.root().subtrees), MAP_ERR_NO_SUBTREES);
        EXPECT_EQ(walk.script(), Lines({"TRC Start", match_of(NS_NQ_IP_PFILTER_CFG)}) +
                                     Lines(lines, "ERR Tag name is not available!") +
                                     Lines{"TRC End"});
        EXPECT_EQ(walk.offending_tag(), "-");
    }
}

} // namespace
} // namespace test
