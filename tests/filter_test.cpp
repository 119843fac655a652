// What a subtree filter selects (RFC 6241, 6). Trees are written down as `tag=value(children)`; a
// tag with "x:" is of another namespace, one with "*:" of none.

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "filter.h"

namespace {

using ozk::DataNode;

/// Reads nodes off the front of `text`, up to a closing parenthesis or its end.
std::vector<DataNode> read(std::string_view& text)
{
    std::vector<DataNode> nodes;
    const auto word = [&] {
        const std::string_view found = text.substr(0, text.find_first_of("=( )"));
        text.remove_prefix(found.size());
        return std::string(found);
    };
    const auto take = [&](char c) {
        const bool is_next = text.starts_with(c);
        text.remove_prefix(is_next);
        return is_next;
    };
    while (!text.empty() && !text.starts_with(')')) {
        DataNode& node = nodes.emplace_back();
        node.tag       = word();
        node.ns_uri    = "urn:model";
        if (node.tag->starts_with("x:"))
            node.ns_uri = "urn:x";
        else if (node.tag->starts_with("*:"))
            node.ns_uri = std::nullopt;
        if (node.ns_uri != "urn:model")
            node.tag->erase(0, 2);
        if (take('='))
            node.value = word();
        if (take('(')) {
            node.children = read(text);
            take(')');
        }
        take(' ');
    }
    return nodes;
}

std::vector<DataNode> nodes(std::string_view text)
{
    return read(text);
}

std::string shown(const DataNode& node)
{
    std::string out = (node.ns_uri == "urn:x" ? "x:" : "") + *node.tag;
    if (node.value)
        out += "=" + *node.value;
    std::string children;
    for (const DataNode& child : node.children)
        children += (children.empty() ? "" : " ") + shown(child);
    return children.empty() ? out : out + "(" + children + ")";
}

constexpr char data[] = "top(mode=auto list(key=a text=one box(size=1 color=red)) "
                        "list(key=b text=two x:text=foreign) "
                        "list(key=a kind=second tag=p tag=q) empty)";

struct Case {
    const char* name;
    const char* filters;
    const char* selected; ///< empty: nothing
};

const Case cases[] = {
    {"whole", "top", data},
    {"no_filter", "", ""},
    {"other_root", "bottom", ""},
    {"root_of_other_namespace", "x:top", ""},
    {"root_of_any_namespace", "*:top(mode)", "top(mode=auto)"},

    // Selection nodes
    {"leaf_of_root", "top(mode)", "top(mode=auto)"},
    {"empty_leaf", "top(empty)", "top(empty)"},
    {"leaf_of_each_entry", "top(list(text))", "top(list(text=one) list(text=two))"},
    {"whole_container", "top(list(box))", "top(list(box(size=1 color=red)))"},
    {"deep_leaf", "top(list(box(color)))", "top(list(box(color=red)))"},
    {"unknown_leaf", "top(list(missing))", ""},
    {"known_beside_unknown", "top(missing mode)", "top(mode=auto)"},
    {"namespace_counts", "top(list(x:text))", "top(list(x:text=foreign))"},
    {"any_namespace", "top(list(key=b *:text))", "top(list(key=b text=two x:text=foreign))"},
    {"every_instance", "top(list(tag))", "top(list(tag=p tag=q))"},

    // Content matches
    {"match_alone_selects_the_entry", "top(list(key=b))",
     "top(list(key=b text=two x:text=foreign))"},
    {"match_beside_selection", "top(list(key=b text))", "top(list(key=b text=two))"},
    {"match_behind_selection", "top(list(text key=b))", "top(list(key=b text=two))"},
    {"no_match_selects_nothing", "top(list(key=c text))", ""},
    {"all_matches_hold", "top(list(key=a text=one))",
     "top(list(key=a text=one box(size=1 color=red)))"},
    {"one_match_fails", "top(list(key=a text=two))", ""},
    {"match_of_missing_leaf", "top(list(key=a kind=first))", ""},
    {"match_is_of_its_namespace", "top(list(x:text=two))", ""},
    {"match_of_one_instance", "top(list(tag=q))", "top(list(key=a kind=second tag=p tag=q))"},
    {"matched_instance_comes_alone", "top(list(tag=q kind))", "top(list(kind=second tag=q))"},
    {"match_guards_containment", "top(list(key=b box))", "top(list(key=b))"},
    {"match_below", "top(list(key box(size=2)))", "top(list(key=a) list(key=b) list(key=a))"},
    {"match_at_the_root", "top(mode=manual list(key))", ""},
    {"match_of_a_container", "top(list(box=red))", ""},

    // Several filters for the same node
    {"two_entries", "top(list(key=b text) list(kind))",
     "top(list(key=b text=two) list(kind=second))"},
    {"one_entry_twice", "top(list(key=b text) list(key=b x:text))",
     "top(list(key=b text=two x:text=foreign))"},
    {"the_greater_wins", "top(list(key=b text) list(key=b))",
     "top(list(key=b text=two x:text=foreign))"},
    {"one_fails_the_other_selects", "top(list(key=c text) list(key=b text))",
     "top(list(key=b text=two))"},
    {"roots_of_one_name", "top(mode) top(list(kind))", "top(mode=auto list(kind=second))"},
};

TEST(Filter, Selects)
{
    for (const Case& row : cases) {
        const auto selected = apply_filters(nodes(data).front(), nodes(row.filters));
        EXPECT_EQ(selected ? shown(*selected) : "", row.selected) << row.name;
    }
}

TEST(Filter, OfAddedPaths)
{
    const auto path = [](const char* text, const char* value = nullptr, bool is_list = false) {
        ozk::AddedPath added;
        added.path = text, added.ns_uri = "urn:model", added.is_list = is_list;
        if (value != nullptr)
            added.value = value;
        return added;
    };
    const std::vector<ozk::AddedPath> added = {
        path("/top/list", nullptr, true), path("/top/list/key", "a"), path("/top/list/box"),
        path("/top/list/box/size"), // no narrower than its container
        path("/top/list", nullptr, true), path("/top/list/key", "b"), path("/top/list/box/size"),
        path("/top/list/boxes")};
    const std::vector<DataNode> filters = filters_of(added);
    ASSERT_EQ(filters.size(), 1u);
    EXPECT_EQ(shown(filters[0]), "top(list(key=a box) list(key=b box(size) boxes))");
}

TEST(Filter, KeepsWhatElseANodeSays)
{
    DataNode tree = nodes("top(list(key=a))").front();
    tree.line = 3, tree.children[0].line = 4, tree.children[0].position = 9;
    const auto selected = apply_filters(tree, nodes("top(list(key))"));
    ASSERT_TRUE(selected);
    EXPECT_EQ(selected->line, 3u);
    EXPECT_EQ(selected->children[0].line, 4u);
    EXPECT_EQ(selected->children[0].position, 9u);
}

} // namespace
