// What map functions report of themselves beside what the model of walks says of it: where a log
// point stands, its site word, its line in the sources; and assertions.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <map>
#include <sstream>

#include "invariants.h"

namespace test {
namespace {

const std::string sources = "manageability/yang/framework/mapping/ietf-if/src/ymap_ietf_if_";

/// The source of the function of that name, its lines; the rest of the name goes to `stem`.
const std::vector<std::string>& source_of(const std::string& function, std::string& stem)
{
    static std::map<std::string, std::vector<std::string>> read;
    const bool is_generated = function.starts_with("__");
    const std::string name  = function.substr(is_generated ? 2 : 0);
    const auto model = std::ranges::find_if(schema::models(), [&](const schema::Model& each) {
        return name.starts_with(each.roots.front().prefix);
    });
    if (model == schema::models().end())
        throw std::runtime_error("no function of the library: " + function);
    stem                  = name.substr(model->roots.front().prefix.size());
    const bool is_walker  = stem.starts_with("lvl") && !stem.ends_with("_parse_augments");
    const bool is_in_rows = is_walker || (is_generated && stem.ends_with("_parse_augments"));
    const char* kind      = is_in_rows ? "_parser" : is_generated ? "_auto" : "_man";
    std::string file      = model->name + kind;
    std::ranges::replace(file, '-', '_');
    file                            = YMAP_SOURCE_ROOT "/" + sources + file + ".cpp";
    std::vector<std::string>& lines = read[file];
    if (lines.empty()) {
        std::istringstream in(read_file(file));
        for (std::string line; std::getline(in, line);)
            lines.push_back(line);
    }
    return lines;
}

/// The row, or the head of the function by hand, that the line belongs to.
std::string row_at(const std::vector<std::string>& lines, size_t number)
{
    size_t first = number - 1, last = number - 1;
    while (first > 0 && !std::isalpha(static_cast<unsigned char>(lines.at(first)[0])))
        --first;
    while (last + 1 < lines.size() && !lines.at(last).ends_with(";"))
        ++last;
    std::string row;
    for (size_t i = first; i <= last; ++i)
        row += lines[i];
    return row;
}

/// Whether the row names the node: by the stem itself, or by a name that ends with "_" and it.
bool names(const std::string& row, const std::string& stem)
{
    const auto is_letter = [&](size_t at) {
        return at < row.size() && std::isalnum(static_cast<unsigned char>(row[at]));
    };
    for (size_t at = row.find(stem); at != row.npos; at = row.find(stem, at + 1))
        if (const size_t end = at + stem.size();
            !is_letter(at - 1) && !is_letter(end) && (end == row.size() || row[end] != '_'))
            return true;
    return false;
}

/// Checks what a run has reported. A log point says the same to both outputs, each in its own
/// format, and in this order. No two places share a site word, no two places of a function that
/// write the same text share a line, and the same place always has the same ones.
class Places {
public:
    void check(const ozk::Run& run)
    {
        const ozk::Call* log = nullptr;
        for (const ozk::Call& call : run.calls())
            if (call.op == ozk::Op::log)
                log = &call;
            else if (call.op == ozk::Op::trace)
                check(*log, call.line);
    }

    std::map<const void*, std::string> place_of_word;
    std::map<std::string, const void*> word_of_place;

private:
    void check(const ozk::Call& log, const std::string& line)
    {
        char level[4], function[200];
        size_t number;
        int end = 0;
        std::sscanf(line.c_str(), "#%*u: %3[A-Z]: %199[a-z0-9_]:%zu ctx=0x%*[0-9a-f],%n", level,
                    function, &number, &end);
        ASSERT_GT(end, 0) << line;
        EXPECT_TRUE(std::string(log.format).starts_with(level + std::string(": OZK: ctx=%p,")));
        const std::string where = function + std::string(":") + std::to_string(number);
        ASSERT_NE(line.find(": " + where + " ctx=0x"), line.npos) << line;
        const std::string place = where + " " + log.format;
        EXPECT_EQ(place_of_word.try_emplace(log.site_word, place).first->second, place);
        const auto [known, is_new] = word_of_place.try_emplace(place, log.site_word);
        EXPECT_EQ(known->second, log.site_word) << place;
        if (!is_new)
            return;
        std::string stem;
        const auto& lines = source_of(function, stem);
        ASSERT_TRUE(number >= 1 && number <= lines.size()) << place;
        const std::string row = row_at(lines, number);
        EXPECT_TRUE(names(row, stem)) << place << "\n" << row;
    }
};

TEST(Tracing, PlacesOfLogPoints)
{
    Places places;
    const auto report = [&](uint32_t op_code, const auto& call) {
        ozk::Run run(op_code);
        run.record_calls(true);
        for (const uint32_t level : {MAP_LOG_ERROR, MAP_LOG_TRACE})
            run.set_level(level, true);
        run.set_trace(true);
        run.call([&] { call(run.ctx(), run.tree()); });
        places.check(run);
    };
    for (uint32_t seed = 1; seed <= 100; ++seed) {
        const CheckedCase walked(drawn_bytes(seed));
        report(walked.input.op_code, [&](OzkMapCtx* ctx, OzkDataTree* tree) {
            walked.root->walker(ctx, walked.input.node, tree);
        });
    }
    const auto each_function = [&](const Root& root, const OzkMapNode* node) {
        schema::for_each(root.node, [&](const schema::Node& described) {
            for (const model::Function function : model::all_functions)
                if (!name_of(described, function).empty())
                    report(MAP_OP_GET, [&](OzkMapCtx* ctx, OzkDataTree* tree) {
                        call_function(described, function, {ctx, node, 0, tree});
                    });
        });
    };
    for (const Root& root : roots()) {
        const CheckedCase walked(root, MAP_OP_GET, "");
        each_function(root, walked.input.node);
        each_function(root, nullptr);
    }
    EXPECT_GT(places.place_of_word.size(), 3 * schema::node_count());
}

// A hand-written function gives each log point a source line of its own, so that a trace tells the
// two dispatches of the packet filters from each other.
TEST(Tracing, LogPointsByHandHaveLinesOfTheirOwn)
{
    const auto lines_of = [](const OzkMapNode* node, const std::string& hook) {
        ozk::Run run(MAP_OP_GET);
        run.set_trace(true);
        run.walk(map_function(hook), node);
        std::vector<int> lines;
        for (const std::string& line : run.trace_lines())
            lines.push_back(std::stoi(line.substr(line.find("_parse_augments:") + 16)));
        return lines;
    };
    const Root& entries       = roots()[native_configuration];
    const std::string filters = entries.node.children.front().augment_hook();
    const std::string acl     = roots()[ietf_configuration].node.children.front().augment_hook();
    const CheckedCase unknown(entries, MAP_OP_GET, "pf:x");
    const CheckedCase broken(entries, MAP_OP_GET, "pf:?");
    const OzkMapNode* const known_node = unknown.input.node->subtrees;
    const struct {
        const std::string& hook;
        const OzkMapNode* node;
        size_t count;
    } rows[] = {{filters, known_node, 6},
                {filters, broken.input.node->subtrees, 4},
                {filters, nullptr, 2},
                {acl, known_node, 2}};
    for (const auto& row : rows) {
        const auto lines = lines_of(row.node, row.hook);
        EXPECT_EQ(lines.size(), row.count) << row.hook;
        EXPECT_EQ(std::ranges::adjacent_find(lines, std::greater_equal()), lines.end()) << row.hook;
    }
}

using AssertionDeathTest = testing::Test;

TEST(AssertionDeathTest, NullContext)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const struct {
        const char* function;
        const char* source;
    } rows[] = {
        {"ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces", "ietf_interfaces_parser"},
        {"ymap_qi_ietf_if_brelviknqifmgrcfg_leaf_lvla_interfaceconfigurations_mtu_owner",
         "brelvik_nq_ifmgr_cfg_auto"},
        {"ymap_qi_ietf_if_brelviknqpfiimcmdoper_list_lvla_interfaces_interfaces_interface",
         "brelvik_nq_pfi_im_cmd_oper_auto"},
        {"ymap_iq_ietf_if_ietfinterfaces_man_leaf_lvla_interfacesstate_interface_speed",
         "ietf_interfaces_man"},
    };
    const CheckedCase walked(roots()[ietf_state], MAP_OP_GET, "");
    ozk::Run run(MAP_OP_GET);
    for (const auto& row : rows)
        EXPECT_EXIT(map_function(row.function)(nullptr, walked.input.node, run.tree()),
                    testing::KilledBySignal(SIGABRT),
                    "^" + sources + row.source +
                        "\\.cpp: [0-9]+ NULL != ctx -- assertion failed\n$");
}

#ifndef YMAP_SANITIZED // no object lies there
// The address of a member is null for one context only, whose members begin with the last bytes of
// the address space: the question to the log layer comes before the assertion.
TEST(AssertionDeathTest, NullDebugRecord)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto address                    = uintptr_t{0} - offsetof(OzkMapCtx, _debug_ctx);
    for (const Root& root : roots()) {
        const CheckedCase walked(root, MAP_OP_GET, "");
        ozk::Run run(MAP_OP_GET);
        EXPECT_EXIT(
            root.walker(reinterpret_cast<OzkMapCtx*>(address), walked.input.node, run.tree()),
            testing::KilledBySignal(SIGABRT),
            "_parser\\.cpp: [0-9]+ NULL != \\(&\\(\\(ctx\\)->_debug_ctx\\)\\) -- assertion "
            "failed\n$");
    }
}
#endif

} // namespace
} // namespace test
