// Native operational data on its way to /interfaces-state, in a few words. The whole schema, in its
// order and with its child tables, is held against the rules in property_test.cpp.

#include <string>

#include "walk_case.h"

namespace test {
namespace {

using Lines = std::vector<std::string>;

const std::string entry_path = "/interfaces/interface-nq/interface";

/// The root and its container, and an entry in it.
Lines in_entry(const Lines& calls, const Lines& before = {})
{
    return Lines{"push interfaces container", "match interface-nq interface-nq",
                 "push interface-nq container", "match interface interface"} +
           before +
           Lines{"push interface list", "list " + entry_path, "delete? interface no",
                 "add /interfaces-state/interface list"} +
           calls + Lines{"pop interface", "pop interface-nq", "pop interfaces"};
}

/// The calls of a container that is matched by its tag.
Lines in_container(const std::string& tag, const Lines& calls = {})
{
    return Lines{"match " + tag + " " + tag, "push " + tag + " container"} + calls +
           Lines{"pop " + tag};
}

TEST(Operational, Maps)
{
    const auto with_entry = [](std::vector<DataNode> children) {
        return std::vector{node("interface-nq", {node("interface", std::move(children))})};
    };
    const std::string state = "/interfaces-state/interface", arrays = "l2-interface-statistics";
    const std::string array = "list " + entry_path + "/" + arrays + "/element-array";
    // clang-format off
    check(native_operational, MAP_OP_GET, {
        {"an empty root", {},
         {"push interfaces container", "pop interfaces"}},
        {"an empty entry", with_entry({}),
         in_entry({}, {"ERR No keys specified with a list node."})},
        {"values that map, and one that doesn't",
         with_entry({leaf("interface-name", "a"), node("mac-address", {leaf("address", "b")}),
                     leaf("bandwidth", "1"),
                     node("interface-statistics",
                          {node("full-interface-stats", {leaf("bytes-sent", "2")})})}),
         in_entry(Lines{"match interface-name interface-name", "add " + state + "/name = a",
                        "add " + state + "/name = a"} +
                  in_container("mac-address", {"match address address",
                                               "add " + state + "/phys-address = b"}) +
                  Lines{"match bandwidth bandwidth"} +
                  in_container("interface-statistics",
                      in_container("full-interface-stats",
                          {"match bytes-sent bytes-sent",
                           "add " + state + "/statistics/out-octets = 2"})))},
        {"empty statistics stand for the whole container",
         with_entry({node("interface-statistics")}),
         in_entry(in_container("interface-statistics", {"add " + state + "/statistics"}))},
        {"an empty container with a when hook, and one whose leaf would map",
         with_entry({node("mac-address"),
                     node("interface-statistics", {node("basic-interface-stats")})}),
         in_entry(in_container("mac-address") +
                  in_container("interface-statistics", in_container("basic-interface-stats")))},
        {"the path of an outer list isn't set again behind an inner one",
         with_entry({node("l2-interface-statistics",
                          {node("element-array", {node("block-array"), leaf("key", "1")})})}),
         in_entry(in_container(arrays,
             {"match element-array element-array", "push element-array list", array,
              "match block-array block-array", "ERR No keys specified with a list node.",
              "push block-array list", array + "/block-array", "pop block-array",
              "match key key", "pop element-array"}))},
    });
    check(native_operational, MAP_OP_GET_CONFIG, {
        {"no child is reached on another operation", with_entry({}),
         {"push interfaces container", "match interface-nq interface-nq",
          match_of(NS_NQ_PFI_IM_CMD_OPER), "pop interfaces"}},
    });
    // clang-format on
}

} // namespace
} // namespace test
