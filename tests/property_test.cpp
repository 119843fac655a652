// Walks of trees that are drawn with fixed seeds, and of the whole schema: what must hold for any
// walk, and what the rules give for this one. A seed that fails can be replayed as a case of the
// fuzzer: the bytes are in the message.

#include <cstdint>
#include <filesystem>
#include <random>
#include <set>
#include <sstream>

#include "invariants.h"
#include "support.h"

namespace test {
namespace {

std::string shown(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

std::vector<uint8_t> drawn_bytes(uint32_t seed)
{
    std::mt19937 random(seed); // gives the same on every platform, as distributions don't
    std::vector<uint8_t> bytes(16 + random() % 600);
    for (uint8_t& byte : bytes)
        byte = static_cast<uint8_t>(random());
    return bytes;
}

std::string hex(const std::vector<uint8_t>& bytes)
{
    std::ostringstream out;
    for (const uint8_t byte : bytes)
        out << std::hex << (byte >> 4) << (byte & 15);
    return out.str();
}

TEST(Property, DrawnTrees)
{
    for (uint32_t seed = 1; seed <= 5000; ++seed) {
        const std::vector<uint8_t> bytes     = drawn_bytes(seed);
        const std::vector<std::string> wrong = violations(CheckedCase(bytes));
        ASSERT_TRUE(wrong.empty()) << "seed " << seed << "\n" << shown(wrong) << hex(bytes);
    }
}

// What the fuzzer has kept, its crashers among it.
TEST(Property, CorpusOfTheFuzzer)
{
    size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(YMAP_WALK_CORPUS)) {
        const std::string text = read_file(entry.path());
        const std::vector<uint8_t> bytes(text.begin(), text.end());
        EXPECT_EQ(shown(violations(CheckedCase(bytes))), "") << entry.path();
        ++count;
    }
    EXPECT_GT(count, 0U);
}

// The draws are no use if they don't reach what is to be checked.
TEST(Property, DrawnTreesComeByEveryStatusAndText)
{
    std::set<uint32_t> statuses;
    std::set<std::string> texts;
    for (uint32_t seed = 1; seed <= 3000; ++seed) {
        const CheckedCase walked(drawn_bytes(seed));
        const model::Outcome outcome = model::walk(walked.input);
        statuses.insert(outcome.status);
        for (const ozk::Call& call : outcome.calls)
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

// Each node once, in the order of the schema. A tag is recognised whatever its namespace; one that
// isn't goes through the whole table, and then to the hook if it is of another model.
TEST(Property, WholeSchemas)
{
    for (const Root* root : all_roots)
        for (const uint32_t op : all_operations)
            for (const char* ns_uri : {root->ns_uri, foreign_ns})
                for (const bool is_empty : {false, true}) {
                    DataNode tree = whole(node_of(*root), ns_uri);
                    if (is_empty)
                        tree.children.clear();
                    CheckedCase walked(model_of(*root), node_of(*root), op, tree);
                    walked.input.switches = {.error = true, .trace = true, .lines = true};
                    EXPECT_EQ(shown(violations(walked)), "") << root->tag << " on " << op;
                }
}

} // namespace
} // namespace test
