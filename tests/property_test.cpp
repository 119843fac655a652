// Walks of trees that are drawn with fixed seeds, and of the whole schema: what must hold for any
// walk, and what the rules give for this one. A seed that fails can be replayed as a case of the
// fuzzer: the bytes are in the message.

#include <gtest/gtest.h>

#include <barrier>
#include <filesystem>
#include <set>
#include <sstream>
#include <thread>

#include "invariants.h"

namespace test {
namespace {

std::string hex(const std::vector<uint8_t>& bytes)
{
    std::ostringstream out;
    for (const uint8_t byte : bytes)
        out << std::hex << (byte >> 4) << (byte & 15);
    return out.str();
}

// The draws are no use if they don't reach what is to be checked.
TEST(Property, DrawnTreesAndAllThatTheyComeBy)
{
    std::set<uint32_t> statuses;
    std::set<std::string> texts;
    for (uint32_t seed = 1; seed <= 5000; ++seed) {
        const std::vector<uint8_t> bytes = drawn_bytes(seed);
        const CheckedCase walked(bytes);
        const Walked came = walk(walked);
        ASSERT_EQ(came.wrong, "") << "seed " << seed << "\n" << hex(bytes);
        statuses.insert(came.status);
        for (const ozk::Call& call : model::walk(walked.input).calls)
            if (call.op == ozk::Op::log)
                texts.insert(call.line.substr(call.line.find(',') + 1, 20));
    }
    for (const uint32_t status :
         {MAP_OK, MAP_NOT_MAPPED, MAP_ERR_NO_SUBTREES, MAP_ERR_INVALID_ARGS,
          MAP_ERR_UNSUPPORTED_TAG, MAP_ERR_BAD_KEY, MAP_ERR_KEY_DELETE, MAP_ERR_ADD_REFUSED})
        EXPECT_TRUE(statuses.contains(status)) << status;
    for (const std::string text :
         {"Start", "End", "Invalid arguments pa", "Failed to get subtre", "No keys specified wi",
          "List key 'name' expe", "Tag name is not avai", "Empty list key speci",
          "The key node should ", "Unsupported tag is s", "Unsupported tag. Ign", "No subtrees",
          "No mapping done for ", "Processing tag 'ipv4", "Unknown Name tag."})
        EXPECT_TRUE(texts.contains(text)) << text;
}

// What the fuzzer has kept, its crashers among it.
TEST(Property, CorpusOfTheFuzzer)
{
    size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(YMAP_WALK_CORPUS)) {
        const std::string text = read_file(entry.path());
        const std::vector<uint8_t> bytes(text.begin(), text.end());
        EXPECT_EQ(walk(CheckedCase(bytes)).wrong, "") << entry.path();
        ++count;
    }
    EXPECT_GT(count, 0U);
}

/// A tree with each node of the root's schema once.
ozk::Tree whole(const Root& root, const char* ns_uri)
{
    ozk::Tree tree;
    append_whole(tree, tree.top(), root.node, ns_uri);
    return tree;
}

// A tag is recognised whatever its namespace; one that isn't goes through the whole table, and then
// to the hook if it is of another model.
TEST(Property, WholeSchemas)
{
    for (const Root& root : roots())
        for (const uint32_t op_code : all_operations)
            for (const char* ns_uri : {root.model.ns_uri.c_str(), foreign_ns}) {
                const ozk::Tree tree = whole(root, ns_uri);
                CheckedCase walked(root, op_code, *tree.top().subtrees);
                walked.input.switches = {.error = true, .trace = true, .lines = true};
                EXPECT_EQ(walk(walked).wrong, "") << root.node.tag << " on " << op_code;
            }
}

/// All that walks of the trees have come to, as text without the addresses of contexts.
std::string walk_all(std::span<const ozk::Tree> trees)
{
    std::string seen;
    for (size_t i = 0; i < trees.size(); ++i)
        for (const uint32_t op_code : {MAP_OP_GET, MAP_OP_EDIT}) {
            ozk::Run run(op_code);
            run.set_level(MAP_LOG_ERROR, true);
            run.set_level(MAP_LOG_TRACE, true);
            run.set_trace(true);
            seen += std::to_string(run.walk(roots()[i].walker, trees[i].top().subtrees)) + " " +
                    shown(run.added());
            for (const std::string& line : run.trace_lines())
                seen += line.substr(0, line.find(" ctx=")) + line.substr(line.find(','));
            for (const std::string& fault : run.faults())
                seen += fault;
        }
    return seen;
}

// Contexts side by side, with the same trees and the same site words. The thread sanitizer watches;
// without it, each thread must have seen what one thread alone sees.
TEST(Threads, EightContextsSideBySide)
{
    std::vector<ozk::Tree> trees;
    for (const Root& root : roots())
        trees.push_back(whole(root, root.model.ns_uri.c_str()));
    const std::string alone = walk_all(trees);

    std::array<int, 8> different{};
    std::barrier start(std::ssize(different));
    std::vector<std::jthread> threads;
    for (int& count : different)
        threads.emplace_back([&] {
            start.arrive_and_wait();
            for (int round = 0; round < 5; ++round)
                count += walk_all(trees) != alone;
        });
    threads.clear(); // waits for them
    EXPECT_EQ(different, (std::array<int, 8>{}));
}

} // namespace
} // namespace test
