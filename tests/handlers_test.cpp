// Handlers called by themselves: what a walk can't reach, such as state leaves on an edit, and what
// comes of their status, which expansions drop.

#include <string>

#include "support.h"

namespace test {
namespace {

const std::string iq = "ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfaces";
const std::string qi = "ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_interfaces_";

TEST(Handlers, AddsAndStatus)
{
    struct HandlerCase {
        std::string function;
        size_t adds_on_read;
        size_t adds_on_other;
        uint32_t status_of_first; ///< when the first add fails, on a read
    };
    std::vector<HandlerCase> cases{
        {iq + "state_interface_physaddress", 1, 0, framework_failure},
        {iq + "state_statistics_inoctets", 1, 0, framework_failure},
        {iq + "state_interface_name", 2, 0, MAP_OK},
        {iq + "_interface_name", 2, 2, MAP_OK},
        {iq + "_interface_enabled", 1, 1, framework_failure},
        {qi + "interface_interfacename", 2, 2, MAP_OK},
        {qi + "macaddress_address", 1, 1, framework_failure},
        {qi + "fullinterfacestats_outputerrors", 0, 0, MAP_OK},
    };
    for (const char* counter :
         {"inbroadcastpkts", "inmulticastpkts", "indiscards", "inerrors", "inunknownprotos",
          "outoctets", "outbroadcastpkts", "outmulticastpkts", "outerrors"})
        cases.push_back({iq + "state_statistics_" + counter, 1, 0, framework_failure});
    for (const HandlerCase& c : cases)
        for (const uint32_t op : all_operations) {
            SCOPED_TRACE(c.function + ", operation " + std::to_string(op));
            const bool read   = op == MAP_OP_GET_CONFIG || op == MAP_OP_GET;
            const size_t adds = read ? c.adds_on_read : c.adds_on_other;
            const auto called = [&](size_t failing_add) {
                Walk walk(ietf_state, op, {});
                if (failing_add != 0)
                    walk.run.answer(ozk::Op::add_path, failing_add, framework_failure);
                const uint32_t status = walk.run.walk(map_function(c.function), &walk.input.root());
                EXPECT_EQ(walk.script({"add"}).size(), adds);
                return status;
            };
            EXPECT_EQ(called(0), MAP_OK);
            if (adds > 0) {
                EXPECT_EQ(called(1), c.status_of_first);
                EXPECT_EQ(called(adds), framework_failure);
            }
        }
}

// Leaves without a native path say so on every operation.
TEST(Handlers, UnmappedLeaves)
{
    for (const char* leaf :
         {"_interface_type", "_interface_linkupdowntrapenable", "state_interface_type",
          "state_interface_adminstatus", "state_interface_operstatus", "state_interface_ifindex",
          "state_interface_higherlayerif", "state_interface_lowerlayerif",
          "state_statistics_inunicastpkts", "state_statistics_outunicastpkts",
          "state_statistics_outdiscards"})
        for (const uint32_t op : all_operations) {
            Walk walk(ietf_state, op, {});
            EXPECT_EQ(walk.run.walk(map_function(iq + leaf), &walk.input.root()), MAP_NOT_MAPPED)
                << leaf;
            EXPECT_TRUE(walk.run.added().empty());
        }
}

// The default hooks that a hook by hand has replaced: nothing calls them, but their names are
// there.
TEST(Handlers, ReplacedDefaultHooks)
{
    const struct {
        std::string function;
        uint32_t status; ///< for a node that an edit adds
    } cases[] = {
        {"__ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces_interface_parse_augments",
         MAP_ERR_ADD_REFUSED},
        {"__ymap_qi_ietf_if_brelviknqifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_"
         "parse_augments",
         MAP_OK},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.function);
        OzkMapFunction* hook = map_function(c.function);
        Walk walk(ietf_configuration, MAP_OP_EDIT, {});
        EXPECT_EQ(walk.run.walk(hook, &walk.input.root()), c.status);
        EXPECT_EQ(walk.run.walk(hook, nullptr), MAP_ERR_INVALID_ARGS);
        EXPECT_EQ(walk.script({"sibling"}), std::vector<std::string>{});
    }
}

} // namespace
} // namespace test
