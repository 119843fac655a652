// Walks on different contexts side by side: the same trees and the same site words from eight
// threads, with everything reported. The thread sanitizer watches; without it, each thread must
// have seen what one thread alone sees.

#include <array>
#include <barrier>
#include <thread>

#include "support.h"

namespace test {
namespace {

constexpr int threads = 8;
#ifdef YMAP_SANITIZED
constexpr int rounds = 3;
#else
constexpr int rounds = 20;
#endif

struct SharedInput {
    const Root* root;
    uint32_t op_code;
    ozk::InputTree tree;
};

std::vector<SharedInput> inputs()
{
    std::vector<SharedInput> all;
    for (const Root* root : all_roots) {
        DataNode tree = whole(node_of(*root), root->ns_uri);
        tree.children.push_back(in_ns(node("x"), foreign_ns));
        for (const uint32_t op : {MAP_OP_GET, MAP_OP_EDIT})
            all.push_back({root, op, ozk::InputTree(tree)});
        tree.children.clear();
        all.push_back({root, MAP_OP_GET, ozk::InputTree(tree)});
    }
    return all;
}

/// All that the walks of the inputs have come to, as text without the addresses of contexts.
std::string walk_all(std::span<const SharedInput> shared)
{
    std::string seen;
    for (const SharedInput& input : shared) {
        ozk::Run run(input.op_code);
        run.set_level(MAP_LOG_ERROR, true);
        run.set_level(MAP_LOG_TRACE, true);
        run.set_trace(true);
        seen += std::to_string(run.walk(input.root->walker, &input.tree.root()));
        for (const ozk::AddedPath& added : run.added())
            seen += std::string(added.path) + "=" + added.value.value_or("-");
        for (const std::string& line : run.trace_lines())
            seen += line.substr(0, line.find(" ctx=")) + line.substr(line.find(','));
        for (const std::string& fault : run.faults())
            seen += fault;
    }
    return seen;
}

TEST(Threads, EightContextsSideBySide)
{
    connect_siblings();
    const std::vector<SharedInput> shared = inputs();
    const std::string alone               = walk_all(shared);

    std::array<int, threads> different{};
    std::barrier start(threads);
    std::vector<std::jthread> all;
    for (int& count : different)
        all.emplace_back([&] {
            start.arrive_and_wait();
            for (int round = 0; round < rounds; ++round)
                count += walk_all(shared) != alone;
        });
    all.clear(); // waits for them
    EXPECT_EQ(different, (std::array<int, threads>{}));
}

} // namespace
} // namespace test
