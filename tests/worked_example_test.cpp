// The worked example of docs/maintaining.md: it is built as the page says and maps as it says, and
// the page shows just the code that is built.

#include <filesystem>

#include "support.h"

extern "C" OzkMapFunction ymap_qi_ietf_if_exampleports_lvla_ports;

namespace test {
namespace {

const Root ports{"ports", "urn:example:ports", NS_IETF_INTERFACES,
                 ymap_qi_ietf_if_exampleports_lvla_ports};

TEST(WorkedExample, MapsAsThePageSays)
{
    Walk walk(ports, MAP_OP_GET_CONFIG,
              {node("port", {leaf("name", "1/1"), leaf("label", "to b"),
                             node("lane", {leaf("number", "3")})}),
               node("port", {leaf("name", "1/2"), leaf("label", "unused")})});
    EXPECT_EQ(walk.go(), MAP_OK);
    EXPECT_EQ(walk.script({"add"}),
              (std::vector<std::string>{
                  "add /interfaces/interface list", "add /interfaces/interface/name = 1/1",
                  "add /interfaces/interface/name = 1/1",
                  "add /interfaces/interface/description = to b", "add /interfaces/interface list",
                  "add /interfaces/interface/name = 1/2", "add /interfaces/interface/name = 1/2"}));
    EXPECT_EQ(walk.script({"list"}),
              (std::vector<std::string>{"list /ports/port", "list /ports/port/lane",
                                        "list /ports/port"}));
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
