// The worked example of docs/maintaining.md: it is built as the page says and maps as it says, and
// the page shows just the code that is built.

#include <gtest/gtest.h>

#include <filesystem>

#include "notation.h"

extern "C" OzkMapFunction ymap_qi_ietf_if_exampleports_lvla_ports;

namespace test {
namespace {

TEST(WorkedExample, MapsAsThePageSays)
{
    ozk::Tree tree;
    read_nodes(tree, tree.top(),
               "ports(port(name=1/1 label=to-b lane(number=3)) port(name=1/2 label=unused))",
               "urn:example:ports");
    ozk::Run run(MAP_OP_GET_CONFIG);
    run.record_calls(true);
    EXPECT_EQ(run.walk(ymap_qi_ietf_if_exampleports_lvla_ports, tree.top().subtrees), MAP_OK);
    EXPECT_EQ(shown(run.added()), "I list, I/name=1/1, I/name=1/1, I/description=to-b, "
                                  "I list, I/name=1/2, I/name=1/2");
    std::string lists;
    for (const ozk::Call& call : run.calls())
        if (call.op == ozk::Op::update_list)
            lists += call.text_1 + std::string(" ");
    EXPECT_EQ(lists, "/ports/port /ports/port/lane /ports/port ");
}

TEST(WorkedExample, PageShowsTheCodeThatIsBuilt)
{
    std::string sources;
    for (const auto& entry : std::filesystem::directory_iterator(YMAP_WORKED_EXAMPLE))
        sources += read_file(entry.path());
    const std::string page    = read_file(YMAP_MAINTAINING_PAGE);
    const std::string opening = "```cpp\n";
    size_t blocks             = 0;
    for (size_t at = page.find(opening); at != std::string::npos; at = page.find(opening, at)) {
        at += opening.size();
        const std::string block = page.substr(at, page.find("```", at) - at);
        EXPECT_NE(sources.find(block), std::string::npos) << "not in the sources:\n" << block;
        ++blocks;
    }
    EXPECT_GE(blocks, 5U);
}

} // namespace
} // namespace test
