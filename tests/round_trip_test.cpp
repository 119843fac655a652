// There and back: what a request becomes on the native side comes back as what was asked for.

#include <algorithm>
#include <map>
#include <random>
#include <string>

#include "support.h"

namespace test {
namespace {

/// name, description and enabled of the entries of a configuration, by tag; in order.
using Entry = std::map<std::string, std::string>;
using Entries = std::vector<Entry>;

class Generator {
public:
    explicit Generator(uint32_t seed) : random_(seed) {}

    uint32_t below(uint32_t limit)
    {
        return std::uniform_int_distribution<uint32_t>(0, limit - 1)(random_);
    }

    Entries entries()
    {
        Entries made(1 + below(5));
        for (Entry& entry : made) {
            entry["name"] = "ge-" + std::to_string(below(1000));
            if (below(2) == 0)
                entry["description"] = text();
            if (below(2) == 0)
                entry["enabled"] = below(2) == 0 ? "true" : "false";
        }
        return made;
    }

    /// The entry as a request writes it: its key first, the rest in any order.
    DataNode request(const Entry& entry)
    {
        std::vector<DataNode> leaves;
        for (const auto& [tag, value] : entry)
            if (tag != "name")
                leaves.push_back(leaf(tag.c_str(), value.c_str()));
        std::ranges::shuffle(leaves, random_);
        leaves.insert(leaves.begin(), leaf("name", entry.at("name").c_str()));
        return node("interface", std::move(leaves));
    }

private:
    std::string text()
    {
        std::string made;
        for (uint32_t length = below(20); length > 0; --length)
            made += "<&>\"' \xc3\xa4z"[below(9)];
        return made;
    }

    std::mt19937 random_;
};

Entries entries_of(const std::vector<DataNode>& roots)
{
    Entries entries;
    for (const DataNode& root : roots)
        for (const DataNode& listed : root.children) {
            Entry entry;
            for (const DataNode& child : listed.children)
                entry[*child.tag] = child.value.value_or("");
            entries.push_back(entry);
        }
    return entries;
}

Entries walk_back(std::vector<DataNode> native_entries, uint32_t op_code)
{
    Walk back(native_configuration, op_code, std::move(native_entries));
    EXPECT_EQ(back.go(), MAP_OK);
    return entries_of(ozk::build_data_tree(back.run.added()));
}

TEST(RoundTrip, EditsOfTheConfiguration)
{
    for (uint32_t seed = 0; seed < 200; ++seed) {
        SCOPED_TRACE(seed);
        Generator generator(seed);
        const Entries wanted = generator.entries();
        std::vector<DataNode> request;
        for (const Entry& entry : wanted)
            request.push_back(generator.request(entry));
        Walk there(ietf_configuration, MAP_OP_EDIT, request);
        ASSERT_EQ(there.go(), MAP_OK);
        const std::vector<DataNode> native = ozk::build_data_tree(there.run.added());
        ASSERT_EQ(native.size(), 1U);
        EXPECT_EQ(walk_back(native.front().children, MAP_OP_GET_CONFIG), wanted);
    }
}

// A read selects leaves; a router that delivers just those gives the client what it named.
TEST(RoundTrip, ReadsOfTheConfiguration)
{
    const std::string entry_path = "/interface-configurations/interface-configuration/";
    for (uint32_t seed = 0; seed < 200; ++seed) {
        SCOPED_TRACE(seed);
        Generator generator(seed);
        const std::map<std::string, std::string> router{{"interface-name", "ge-1"},
                                                        {"active", "act"},
                                                        {"description", "to the core"},
                                                        {"shutdown", "true"},
                                                        {"bandwidth", "1000"}};
        Entry wanted{{"name", "ge-1"}};
        std::vector<DataNode> named{leaf("name", "ge-1")};
        if (generator.below(2) == 0) {
            named.push_back(node("enabled"));
            wanted["enabled"] = "true";
        }
        if (generator.below(2) == 0) {
            named.push_back(node("description"));
            wanted["description"] = "to the core";
        }
        std::vector<DataNode> request{node("interface", named)};
        if (generator.below(4) == 0) { // everything
            request.clear();
            wanted = {{"name", "ge-1"}, {"enabled", "true"}, {"description", "to the core"}};
        }
        const uint32_t op_code = generator.below(2) == 0 ? MAP_OP_GET : MAP_OP_GET_CONFIG;
        Walk there(ietf_configuration, op_code, request);
        ASSERT_EQ(there.go(), MAP_OK);
        std::vector<DataNode> delivered;
        for (const ozk::AddedPath& added : there.run.added()) {
            if (added.is_list)
                continue;
            const std::string tag(added.path.substr(entry_path.size()));
            delivered.push_back(leaf(tag.c_str(), router.at(tag).c_str()));
        }
        EXPECT_EQ(walk_back({node("interface-configuration", delivered)}, op_code),
                  Entries{wanted});
    }
}

} // namespace
} // namespace test
