// Native configuration on its way to /interfaces: what maps, what is passed over, and how packet
// filters reach their own map.

#include <string>

#include "walk_case.h"

namespace test {
namespace {

using Lines = std::vector<std::string>;

const std::string path = "/interface-configurations/interface-configuration";
constexpr uint32_t operations[] = {MAP_OP_GET_CONFIG, MAP_OP_EDIT, MAP_OP_GET, other_operation};

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
    for (const uint32_t op : operations)
        check({
            {"two entries, in the order of the tree", native_configuration, op,
             {entry({leaf("active", "act"), leaf("shutdown", "true"), leaf("interface-name", "a")}),
              entry({leaf("interface-name", "b"), leaf("description", "to b")})},
             in_entries(in_entry(Lines{"match active active", "match shutdown shutdown",
                                       "add /interfaces/interface/enabled = true"} +
                                 key_added("a")) +
                        in_entry(key_added("b") +
                                 Lines{"match description description",
                                       "add /interfaces/interface/description = to b"}))},
            {"nothing", native_configuration, op, {}, in_entries({})},
            {"an entry without children", native_configuration, op, {entry({})},
             in_entries({"match interface-configuration interface-configuration",
                         "ERR No keys specified with a list node.",
                         "push interface-configuration list", "list " + path,
                         "delete? interface-configuration no", "add /interfaces/interface list",
                         "pop interface-configuration"})},
            {"the global root", native_global, op, {node("link-status"), node("other")},
             {"push global-interface-configuration container", "match link-status link-status",
              std::string("match ") + NS_NQ_IFMGR_CFG + " " + NS_NQ_IFMGR_CFG,
              "pop global-interface-configuration"}},
        });
}

TEST(NativeConfiguration, RecognisesAndLeavesOut)
{
    check({
        {"containers and the list of MTUs, whose tag is its leaf's as well", native_configuration,
         MAP_OP_GET_CONFIG,
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
        {"unknown tags of the model, a filter's among them", native_configuration, MAP_OP_GET,
         {entry({node("es-packet-filter"), leaf("interface-name", "a")})},
         in_entries(in_entry(Lines{std::string("match ") + NS_NQ_IFMGR_CFG + " " +
                                   NS_NQ_IFMGR_CFG} +
                             key_added("a")))},
        {"a known tag of another model is taken", native_configuration, MAP_OP_GET,
         {entry({in_ns(leaf("description", "x"), foreign_ns)})},
         in_entries(in_entry({"match description description",
                              "add /interfaces/interface/description = x"}))},
        {"an unknown one goes to a default hook and is passed over, also when it is added",
         native_configuration, MAP_OP_EDIT,
         {in_ns(node("x"), foreign_ns),
          entry({node("mtus", {in_ns(node("ipv4-packet-filter"), NS_NQ_IP_PFILTER_CFG)})})},
         in_entries(in_entry({"match mtus mtus", "push mtus container", "pop mtus"}))},
        {"a deleted entry: its list path alone refers to it", native_configuration, MAP_OP_EDIT,
         {with(Edit::erase, entry({leaf("interface-name", "a")}))},
         in_entries(Lines{"match interface-configuration interface-configuration",
                          "push interface-configuration list", "list " + path,
                          "delete? interface-configuration yes",
                          "add /interfaces/interface list ref interface-configuration"} +
                    key_added("a") + Lines{"pop interface-configuration"})},
    });
}

TEST(NativeConfiguration, PacketFilters)
{
    const std::string own_namespace =
        std::string("match ") + NS_NQ_IP_PFILTER_CFG + " " + NS_NQ_IP_PFILTER_CFG;
    const struct {
        const char* tag;
        char letter; ///< of the entry point, or - if none takes the tag
    } filters[] = {{"ipv6-packet-filter", 'a'},
                   {"es-packet-filter", 'b'},
                   {"ipv4-packet-filter", 'c'},
                   {"mpls-packet-filter", '-'}};
    for (const auto& filter : filters)
        for (const uint32_t op : operations)
            for (const bool own : {true, false}) {
                const bool read = op == MAP_OP_GET_CONFIG || op == MAP_OP_GET;
                const std::string tag = filter.tag;
                Lines dispatch{"TRC Processing tag '" + tag + "'"};
                if (filter.letter == '-')
                    dispatch.push_back("TRC Unknown Name tag.");
                else
                    dispatch = dispatch + Lines{"match " + tag + " " + tag,
                                                "sibling " + entry_point(filter.letter) + " " +
                                                    tag};
                Lines calls = own ? Lines{own_namespace} + dispatch : Lines{};
                if (read)
                    calls = calls + dispatch;
                SCOPED_TRACE(tag + (own ? " of its own namespace, " : " of another, ") +
                             "operation " + std::to_string(op));
                Walk walk(native_configuration, op,
                          {entry({in_ns(node(filter.tag),
                                        own ? NS_NQ_IP_PFILTER_CFG : foreign_ns)})});
                walk.run.set_level(MAP_LOG_TRACE, true);
                EXPECT_EQ(walk.go(), MAP_OK);
                Lines seen = walk.script();
                std::erase(seen, "TRC Start");
                std::erase(seen, "TRC End");
                EXPECT_EQ(seen, in_entries(in_entry(calls)));
            }
}

TEST(NativeConfiguration, LaterFilterStatusReplacesTheFirst)
{
    const auto walked = [](uint32_t op, size_t failing_call) {
        Walk walk(native_configuration, op,
                  {entry({in_ns(node("es-packet-filter"), NS_NQ_IP_PFILTER_CFG),
                          leaf("interface-name", "a")})});
        walk.run.answer(ozk::Op::sibling, failing_call, framework_failure);
        const uint32_t status = walk.go();
        // A failure ends the entry: the name behind the filter isn't reached.
        EXPECT_EQ(walk.script({"add"}).size(), status == MAP_OK ? 3U : 1U);
        return status;
    };
    EXPECT_EQ(walked(MAP_OP_GET, 1), MAP_OK);
    EXPECT_EQ(walked(MAP_OP_GET, 2), framework_failure);
    EXPECT_EQ(walked(MAP_OP_EDIT, 1), framework_failure);
}

// The list walker never hands such a node on; a caller of the hook itself may.
TEST(NativeConfiguration, FilterHookRefusesANullTagEachTimeItDispatches)
{
    const auto hook = map_function("ymap_qi_ietf_if_brelviknqifmgrcfg_lvla_interfaceconfigurations_"
                                   "interfaceconfiguration_parse_augments");
    for (const auto& [op, lines] : {std::pair{MAP_OP_GET, 2U}, {MAP_OP_EDIT, 1U}}) {
        Walk walk(native_configuration, op,
                  {in_ns(without_tag(node("")), NS_NQ_IP_PFILTER_CFG)});
        walk.run.set_level(MAP_LOG_TRACE, true);
        EXPECT_EQ(walk.run.walk(hook, walk.input.root().subtrees), MAP_ERR_NO_SUBTREES);
        EXPECT_EQ(walk.script(), Lines({"TRC Start", std::string("match ") + NS_NQ_IP_PFILTER_CFG +
                                                         " " + NS_NQ_IP_PFILTER_CFG}) +
                                     Lines(lines, "ERR Tag name is not available!") +
                                     Lines{"TRC End"});
        EXPECT_EQ(walk.offending_tag(), "-");
    }
}

TEST(NativeConfiguration, FailuresOfTheFramework)
{
    using ozk::Op;
    const struct {
        const char* name;
        Op op;
        size_t k;
        uint32_t status;
        size_t adds;
    } cases[] = {
        {"list path: the entry is skipped, and the walk stops", Op::update_list, 1,
         framework_failure, 0},
        {"list handler: the children are skipped", Op::add_path, 1, framework_failure, 1},
        {"first add of the key", Op::add_path, 2, MAP_OK, 7},
        {"second add of the key", Op::add_path, 3, framework_failure, 3},
        {"a leaf", Op::add_path, 4, framework_failure, 4},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Walk walk(native_configuration, MAP_OP_GET,
                  {entry({leaf("interface-name", "a"), leaf("shutdown", "true")}),
                   entry({leaf("interface-name", "b")})});
        walk.run.answer(c.op, c.k, framework_failure);
        EXPECT_EQ(walk.go(), c.status);
        EXPECT_EQ(walk.script({"add"}).size(), c.adds);
        EXPECT_TRUE(walk.run.faults().empty());
    }
}

} // namespace
} // namespace test
