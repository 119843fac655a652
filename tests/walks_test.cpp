// What walks come to, told case by case: a tree, the paths that it becomes, the status and the tag.
// Which calls are made for it, and in which order, the model of the walk says (walk_model.h): each
// case is held against that too, and so is what comes of it when any of its calls fails.
//
// notation.h says how trees and paths are written.

#include <gtest/gtest.h>

#include <algorithm>

#include "invariants.h"

namespace test {
namespace {

struct Case {
    const char* name;
    RootName root;
    std::vector<uint32_t> operations;
    const char* children;
    std::string_view paths; ///< "...": and what else of the entry maps, as the model says
    uint32_t status = MAP_OK;
    const char* tag = "-";
};

const std::vector<uint32_t> reads = {MAP_OP_GET_CONFIG, MAP_OP_GET}, get = {MAP_OP_GET},
                            edit = {MAP_OP_EDIT}, other = {other_operation},
                            all = {MAP_OP_GET_CONFIG, MAP_OP_GET, MAP_OP_EDIT, other_operation};

// clang-format off
const Case cases[] = {
    // /interfaces
    {"everything", ietf_configuration, reads, "", "N list, N/interface-name, N/active=act, ..."},
    {"a whole entry hands on its own value", ietf_configuration, reads, "interface=odd", "N list, N/interface-name=odd, N/active=act, ..."},
    {"an entry with a child is not expanded", ietf_configuration, reads, "interface(name=a)", "N list, N/interface-name=a, N/active=act"},
    {"a key without a value passes on a read", ietf_configuration, reads, "interface(name)", "N list, N/interface-name, N/active=act"},
    {"leaves select without their values", ietf_configuration, reads, "interface(enabled=true description=x)", "N list, N/shutdown, N/description"},
    {"an entry is added", ietf_configuration, edit, "interface#7(name=a description=up)", "N list, N/interface-name=a@name, N/active=act@name, N/description=up@description"},
    {"enabled goes over with its very value", ietf_configuration, edit, "interface(name=a enabled=false)", "N list, N/interface-name=a@name, N/active=act@name, N/shutdown=false@enabled"},
    {"leaves are deleted", ietf_configuration, edit, "interface(name=a description=x@delete enabled@remove)", "N list, N/interface-name=a@name, N/active=act@name, N/description@description, N/shutdown@enabled"},
    {"an entry is deleted", ietf_configuration, edit, "interface@delete(name=a)", "N list@interface, N/interface-name=a@name, N/active=act@name"},
    {"an empty entry gets its list path alone", ietf_configuration, edit, "interface", "N list"},
    {"the key last in an entry that isn't added", ietf_configuration, edit, "interface@remove(description@delete name=a)", "N list@interface, N/description@description, N/interface-name=a@name, N/active=act@name"},
    {"an empty key on another operation", ietf_configuration, other, "interface(name)", "N list, N/interface-name@name, N/active=act@name"},
    {"no expansion on another operation", ietf_configuration, other, "", ""},
    {"an added entry that doesn't begin with its key", ietf_configuration, edit, "interface(description=x name=a)", "", MAP_ERR_BAD_KEY, "description"},
    {"an empty key on an edit", ietf_configuration, edit, "interface(name description=x)", "N list", MAP_ERR_BAD_KEY, "name"},
    {"a deleted key leaves no tag", ietf_configuration, edit, "interface(name=a@delete)", "N list", MAP_ERR_KEY_DELETE},
    {"type ends the entry and those after it", ietf_configuration, edit, "interface(name=a type=x enabled=true) interface(name=b)", "N list, N/interface-name=a@name, N/active=act@name", MAP_NOT_MAPPED},
    {"an unknown tag in the entry", ietf_configuration, edit, "interface(name=a mtu description)", "N list, N/interface-name=a@name, N/active=act@name", MAP_ERR_UNSUPPORTED_TAG, "mtu"},
    {"an unknown tag below the root", ietf_configuration, all, "interface-nq more", "", MAP_ERR_UNSUPPORTED_TAG, "interface-nq"},
    {"a known tag of another model is dispatched", ietf_configuration, reads, "interface(x:description)", "N list, N/description"},
    {"the root's hook refuses an add", ietf_configuration, edit, "x:policy interface", "", MAP_ERR_ADD_REFUSED, "policy"},
    {"and passes anything else", ietf_configuration, edit, "x:policy@delete", ""},
    {"a null tag after a good child", ietf_configuration, edit, "interface(name=a ?=x description=x)", "N list, N/interface-name=a@name, N/active=act@name", MAP_ERR_NO_SUBTREES},
    // /interfaces-state
    {"an entry with its key loses the counters, and the read goes on", ietf_state, get, "interface(name=a) interface(name=b)", "O list, O/interface-name, O/interface-name, ...", MAP_OK, "name"},
    {"a counter beside the key is taken for one of the statistics", ietf_state, get, "interface(out-errors in-unicast-pkts in-octets)", "O list, O/interface-name, O/interface-name, ..., O/interface-statistics/basic-interface-stats/output-errors"},
    {"state on another operation", ietf_state, {MAP_OP_GET_CONFIG, MAP_OP_EDIT, other_operation}, "interface", "", MAP_ERR_UNSUPPORTED_TAG, "interface"},
    // /interface-configurations
    {"two entries, in the order of the tree", native_configuration, all, "interface-configuration(active=act shutdown=true interface-name=a) interface-configuration(interface-name=b description=up)", "I list, I/enabled=true, I/name=a, I/name=a, I list, I/name=b, I/name=b, I/description=up"},
    {"an entry without children", native_configuration, all, "interface-configuration", "I list"},
    {"a deleted entry: its list path alone refers to it", native_configuration, edit, "interface-configuration@delete(interface-name=a)", "I list@interface-configuration, I/name=a, I/name=a"},
    {"the unknown and the foreign is passed over", native_configuration, all, "x:x interface-configuration(es-packet-filter x:description=x mtus(mtu(owner=x) pf:ipv4-packet-filter))", "I list, I/description=x"},
    {"the global root", native_global, all, "link-status other", ""},
    // /interfaces of the operational model
    {"values that map, and ones that don't", native_operational, get, "interface-nq(interface(interface-name=a mac-address(address=b) bandwidth=1 interface-statistics(full-interface-stats(bytes-sent=2))))", "S list, S/name=a, S/name=a, S/phys-address=b, S/statistics/out-octets=2"},
    {"empty statistics stand for the whole container", native_operational, get, "interface-nq(interface(interface-statistics mac-address))", "S list, S/statistics"},
    {"no child is reached on another operation", native_operational, {MAP_OP_GET_CONFIG, MAP_OP_EDIT}, "interface-nq(interface)", ""},
};
// clang-format on

/// `paths` as far as a row tells them.
std::string told(std::string paths, std::string_view row)
{
    const size_t told_size = row.size() - std::min(row.size(), std::string_view("...").size());
    const size_t dots      = row.find("...");
    if (dots != row.npos && paths.size() >= told_size)
        paths.replace(dots, paths.size() - told_size, "...");
    return paths;
}

template <class Visit>
void for_each_walk(const Visit& visit)
{
    for (const Case& row : cases)
        for (const uint32_t op_code : row.operations) {
            SCOPED_TRACE(std::string(row.name) + " on " + std::to_string(op_code));
            visit(row, CheckedCase(roots()[row.root], op_code, row.children));
        }
}

TEST(Walks, ComeToThis)
{
    for_each_walk([](const Case& row, const CheckedCase& walked) {
        const Walked came = walk(walked);
        EXPECT_EQ(came.status, row.status);
        EXPECT_EQ(told(came.paths, row.paths), row.paths);
        EXPECT_EQ(came.offending_tag, row.tag);
        EXPECT_EQ(came.wrong, "");
    });
}

// A call of each operation that can fail, the k-th one, until there are no more.
TEST(Walks, WhereAnyCallFails)
{
    size_t failures = 0;
    for_each_walk([&](const Case&, CheckedCase&& walked) {
        walked.input.switches = {.error = true, .trace = true, .lines = true};
        for (const auto op :
             {ozk::Op::add_path, ozk::Op::update_list, ozk::Op::sibling, ozk::Op::copy_text}) {
            const auto calls = model::walk(walked.input).calls;
            const auto count = std::ranges::count(calls, op, &ozk::Call::op);
            for (size_t k = 1; k <= static_cast<size_t>(count); ++k, ++failures)
                for (const uint32_t status : {framework_failure, uint32_t{MAP_NOT_MAPPED}}) {
                    walked.input.answers = {{{op, k}, status}};
                    EXPECT_EQ(walk(walked).wrong, "") << name_of(op) << " " << k;
                }
            walked.input.answers.clear();
        }
    });
    EXPECT_GT(failures, 200U);
}

// The model of the walk that the other tests trust, held against what the rules say in words.
TEST(Walks, WhatAFailureCosts)
{
    using enum ozk::Op;
    // clang-format off
    const struct {
        const char* name;
        RootName root;
        uint32_t op_code;
        const char* children;
        ozk::Op op;
        size_t k;
        std::string_view paths;
        uint32_t status;
    } costs[] = {
        {"the first of a key's two adds is not looked at", ietf_configuration, MAP_OP_EDIT, "interface(name=a description=b)", add_path, 2, "N list, N/active=act@name, N/description=b@description", MAP_OK},
        {"the second one counts", ietf_configuration, MAP_OP_EDIT, "interface(name=a description=b)", add_path, 3, "N list, N/interface-name=a@name", framework_failure},
        {"a failed list ends its entry and those after it", native_configuration, MAP_OP_GET, "interface-configuration(shutdown=a) interface-configuration interface-configuration", update_list, 2, "I list, I/enabled=a", framework_failure},
        {"a read of all goes on below a failed list and forgets it", ietf_configuration, MAP_OP_GET, "", update_list, 1, "N/interface-name, N/active=act, ...", MAP_OK},
        {"the failed list of an entry is reported, and its leaves are selected", ietf_state, MAP_OP_GET, "interface", update_list, 1, "O/interface-name, O/interface-name, ...", framework_failure},
        {"the later of two calls of a sibling counts", native_configuration, MAP_OP_GET, "interface-configuration(pf:es-packet-filter)", sibling, 1, "I list", MAP_OK},
        {"a tag that can't be copied leaves the status", ietf_configuration, MAP_OP_GET, "unknown", copy_text, 1, "", MAP_ERR_UNSUPPORTED_TAG},
    };
    // clang-format on
    for (const auto& row : costs) {
        SCOPED_TRACE(row.name);
        CheckedCase walked(roots()[row.root], row.op_code, row.children);
        walked.input.answers = {{{row.op, row.k}, framework_failure}};
        const Walked came    = walk(walked);
        EXPECT_EQ(came.status, row.status);
        EXPECT_EQ(told(came.paths, row.paths), row.paths);
        EXPECT_EQ(came.offending_tag, "-");
        EXPECT_EQ(came.wrong, "");
    }
}

// Every function of every node by itself: what a walk can't reach, such as state leaves on an edit
// or a default hook that a person's has replaced, and what an expansion drops of a status.
TEST(Functions, OfEveryNodeByThemselves)
{
    size_t handlers = 0;
    for (const Root& root : roots()) {
        schema::for_each(root.node, [&](const schema::Node& described) {
            ++handlers;
            for (const model::Function function : model::all_functions) {
                if (model::name_of(described, function).empty())
                    continue;
                for (const uint32_t op_code : all_operations) {
                    CheckedCase called(root, op_code, "");
                    called.input.switches = {.error = true, .trace = true, .lines = true};
                    const auto check      = [&] {
                        EXPECT_EQ(wrong_with_call(called, described, function), "")
                            << model::name_of(described, function) << " on " << op_code;
                    };
                    check();
                    for (size_t k = 1; k <= 2; ++k) {
                        called.input.answers = {{{ozk::Op::add_path, k}, framework_failure}};
                        check();
                    }
                    called.input.answers.clear();
                    called.input.has_tree = false;
                    check();
                    called.input.node = nullptr;
                    check();
                }
            }
        });
    }
    EXPECT_EQ(handlers, schema::node_count());
}

// A tag that is not available asks no sibling and ends the dispatch of the packet filters.
TEST(Functions, HooksOfTheOtherModels)
{
    const std::string longer_than_a_line = "pf:" + std::string(2 * MAP_MAX_TRACE_LINE, 't');
    for (const std::string& child :
         {std::string("pf:ipv4-packet-filter"), std::string("pf:ipv6-packet-filter"),
          std::string("pf:es-packet-filter"), std::string("pf:?"), std::string("acl:acl"),
          std::string("acl:?"), std::string("x:x"), longer_than_a_line})
        for (const RootName name : {ietf_configuration, native_configuration}) {
            const Root& root = roots()[name];
            CheckedCase called(root, MAP_OP_EDIT, child);
            called.input.node     = called.input.node->subtrees;
            called.input.switches = {.error = true, .trace = true, .lines = true};
            EXPECT_EQ(
                wrong_with_call(called, root.node.children.front(), model::Function::augment_hook),
                "")
                << child;
        }
}

} // namespace
} // namespace test
