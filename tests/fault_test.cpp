// Each call of the framework and of a sibling that can fail does so in turn: the status, what stays
// in the output tree and the balance of the hierarchy, against the rules of the walk.

#include <map>
#include <set>

#include "invariants.h"
#include "support.h"

namespace test {
namespace {

using Ops = std::set<ozk::Op>;
using enum ozk::Op;

struct FaultCase {
    const char* name;
    const Root& root;
    std::set<uint32_t> operations;
    std::vector<DataNode> children;
    Ops fallible; ///< calls that the walk reaches and that can fail
};

CheckedCase made(const FaultCase& row, uint32_t op_code)
{
    return {model_of(row.root), node_of(row.root), op_code, node(row.root.tag, row.children)};
}

std::map<ozk::Op, size_t> fallible_calls(const FaultCase& row, uint32_t op_code)
{
    const CheckedCase walked = made(row, op_code);
    std::map<ozk::Op, size_t> calls;
    for (const ozk::Call& call : model::walk(walked.input).calls)
        if (call.op == add_path || call.op == update_list || call.op == sibling ||
            call.op == copy_text)
            ++calls[call.op];
    return calls;
}

std::vector<FaultCase> fault_cases()
{
    const std::set<uint32_t> reads{MAP_OP_GET, MAP_OP_GET_CONFIG};
    const std::set<uint32_t> writes{MAP_OP_EDIT, other_operation};
    const std::set<uint32_t> all{MAP_OP_GET, MAP_OP_GET_CONFIG, MAP_OP_EDIT, other_operation};
    const auto acl    = [] { return in_ns(node("acl"), NS_IETF_INTERFACES_ACL_EXT); };
    const auto filter = [](const char* tag) { return in_ns(node(tag), NS_NQ_IP_PFILTER_CFG); };
    const std::vector<DataNode> native_entry{
        leaf("interface-name", "a"),  leaf("description", "b"),
        leaf("shutdown", "c"),        node("mtus", {node("mtu", {leaf("owner", "d")})}),
        filter("ipv6-packet-filter"), filter("es-packet-filter"),
        filter("ipv4-packet-filter")};
    const std::vector<DataNode> operational{
        node("interface-nq",
             {node("interface",
                   {leaf("interface-name", "a"), node("mac-address", {leaf("address", "b")}),
                    node("interface-statistics",
                         {node("full-interface-stats", {leaf("bytes-sent", "c")}),
                          node("basic-interface-stats", {leaf("output-errors", "d")})})}),
              node("interface", {node("interface-statistics"), leaf("interface-name", "e")})}),
        node("interface-briefs", {node("interface-brief")})};
    const std::vector<DataNode> ietf_entries{
        at_position(1, node("interface", {leaf("name", "a"), leaf("description", "b"),
                                          leaf("enabled", "c"), acl()})),
        at_position(2, node("interface", {leaf("name", "d"), leaf("enabled", "e")}))};
    // clang-format off
    return {
        {"ietf, all", ietf_configuration, reads, {}, {add_path, update_list, sibling}},
        {"ietf, entries", ietf_configuration, all, ietf_entries, {add_path, update_list, sibling}},
        {"ietf, empty entry", ietf_configuration, reads, {node("interface")},
         {add_path, update_list, sibling}},
        {"ietf, empty entry", ietf_configuration, writes, {node("interface")},
         {add_path, update_list}},
        {"ietf, deletes", ietf_configuration, all,
         {node("interface", {leaf("name", "a"), with(Edit::erase, node("description"))}),
          with(Edit::remove, node("interface", {leaf("name", "b")}))},
         {add_path, update_list}},
        {"ietf, unknown leaf", ietf_configuration, all,
         {node("interface", {leaf("name", "a"), node("unknown"), leaf("enabled", "b")})},
         {add_path, update_list, copy_text}},
        {"ietf, key last", ietf_configuration, {MAP_OP_EDIT},
         {node("interface", {leaf("enabled", "b"), leaf("name", "a")})},
         {update_list, copy_text}},
        {"ietf, key without value", ietf_configuration, {MAP_OP_EDIT},
         {node("interface", {node("name")})}, {add_path, update_list, copy_text}},
        {"ietf, foreign node added", ietf_configuration, {MAP_OP_EDIT},
         {in_ns(node("x"), foreign_ns), node("interface", {leaf("name", "a")})}, {copy_text}},
        {"state, all", ietf_state, {MAP_OP_GET}, {}, {add_path, update_list}},
        {"state, entry with a key", ietf_state, {MAP_OP_GET},
         {at_position(3, node("interface", {leaf("name", "a")})), node("interface")},
         {add_path, update_list, copy_text}},
        {"state, out of reach", ietf_state, {MAP_OP_GET_CONFIG, MAP_OP_EDIT, other_operation},
         {node("interface")}, {copy_text}},
        {"native", native_configuration, all,
         {node("interface-configuration", native_entry),
          with(Edit::erase, node("interface-configuration"))},
         {add_path, update_list, sibling}},
        {"native, global", native_global, all, {node("link-status")}, {}},
        {"operational", native_operational, {MAP_OP_GET}, operational, {add_path, update_list}},
        {"operational, out of reach", native_operational,
         {MAP_OP_GET_CONFIG, MAP_OP_EDIT, other_operation}, operational, {}},
    };
    // clang-format on
}

TEST(Fault, EachCallThatCanFailInTurn)
{
    for (const FaultCase& row : fault_cases())
        for (const uint32_t op_code : row.operations) {
            const auto calls = fallible_calls(row, op_code);
            Ops reached;
            for (const auto& [op, count] : calls) {
                reached.insert(op);
                for (size_t k = 1; k <= count; ++k)
                    for (const uint32_t status : {framework_failure, uint32_t{MAP_NOT_MAPPED}}) {
                        CheckedCase walked                   = made(row, op_code);
                        walked.input.answers[{op, k}]        = status;
                        const std::vector<std::string> wrong = violations(walked);
                        EXPECT_TRUE(wrong.empty())
                            << row.name << " on " << op_code << ", " << name_of(op) << " " << k
                            << ": " << wrong.front();
                    }
            }
            EXPECT_EQ(reached, row.fallible) << row.name << " on " << op_code;
        }
}

// The model of the walk that the other tests trust, held against what the rules say in words.
TEST(Fault, WhatAFailureCosts)
{
    // clang-format off
    const struct {
        const char* name;
        const Root& root;
        uint32_t op_code;
        std::vector<DataNode> children;
        ozk::Op op;
        size_t k;
        uint32_t status;
        size_t paths; ///< that stay in the output
    } cases[] = {
        {"the first of a key's two adds is not looked at", ietf_configuration, MAP_OP_EDIT,
         {node("interface", {leaf("name", "a"), leaf("description", "b")})}, add_path, 2, MAP_OK,
         3},
        {"the second one counts", ietf_configuration, MAP_OP_EDIT,
         {node("interface", {leaf("name", "a"), leaf("description", "b")})}, add_path, 3,
         framework_failure, 2},
        {"a failed list ends its entry and the ones behind it", native_configuration, MAP_OP_GET,
         {node("interface-configuration", {leaf("shutdown", "a")}),
          node("interface-configuration", {leaf("shutdown", "b")}),
          node("interface-configuration", {leaf("shutdown", "c")})},
         update_list, 2, framework_failure, 2},
        {"a read of all goes on below a failed list and forgets it", ietf_configuration,
         MAP_OP_GET, {}, update_list, 1, MAP_OK, 4},
        {"the failed list of an entry is reported, and its leaves are selected", ietf_state,
         MAP_OP_GET, {node("interface")}, update_list, 1, framework_failure, 14},
        {"the later of two calls of a sibling counts", native_configuration, MAP_OP_GET,
         {node("interface-configuration",
               {in_ns(node("es-packet-filter"), NS_NQ_IP_PFILTER_CFG)})},
         sibling, 1, MAP_OK, 1},
        {"a tag that can't be copied leaves the status", ietf_configuration, MAP_OP_GET,
         {node("unknown")}, copy_text, 1, MAP_ERR_UNSUPPORTED_TAG, 0},
    };
    // clang-format on
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Walk walk(c.root, c.op_code, c.children);
        walk.run.answer(c.op, c.k, framework_failure);
        EXPECT_EQ(walk.go(), c.status);
        EXPECT_EQ(walk.run.added().size(), c.paths);
        EXPECT_EQ(walk.offending_tag(), "-");
        EXPECT_TRUE(walk.run.faults().empty());
    }
}

} // namespace
} // namespace test
