// The operations on trees that NETCONF defines: what a filter selects, what an edit makes of data,
// how a place in a tree is told. Models are made up; notation.h says how trees are written.

#include <gtest/gtest.h>

#include "edit_config.h"
#include "filter.h"
#include "instance_path.h"
#include "notation.h"
#include "text.h"

namespace test {
namespace {

using ozk::Edit;
using ymap::data::Document;
using ymap::data::EditError;

constexpr char ns[] = "urn:n";

const char* const entry_keys[]     = {"key"};
const char* const pair_keys[]      = {"a", "b"};
const ymap::data::ListKeys lists[] = {
    {ns, "/top/list", entry_keys}, {ns, "/top/list/sub", entry_keys}, {ns, "/top/pair", pair_keys}};

ozk::Tree tree_with(std::string_view text, Edit edit = Edit::none)
{
    ozk::Tree tree;
    tree.top().edit = static_cast<uint8_t>(edit);
    read_nodes(tree, tree.top(), text, ns);
    return tree;
}

std::string selected(const ozk::Tree& data, const ozk::Tree& filter)
{
    ymap::data::Indexes indexes;
    ozk::Tree into;
    return shown(ymap::data::Filter(filter.top()).select(data.top(), indexes, into), ns);
}

constexpr char data[] = "top(mode=auto list(key=a text=one box(size=1 color=red)) "
                        "list(key=b text=two x:text=foreign) "
                        "list(key=a kind=second tag=p tag=q) empty padded=' auto ')";

// RFC 6241, 6
TEST(Filter, Selects)
{
    const struct {
        const char* filter;
        const char* selected;
    } rows[] = {
        {"top", data},
        {"", ""},
        {"bottom", ""},
        {"x:top", ""},
        {"*:top(mode)", "top(mode=auto)"},
        // selection nodes and containment
        {"top(empty)", "top(empty)"},
        {"top(list(text))", "top(list(text=one) list(text=two))"},
        {"top(list(box))", "top(list(box(size=1 color=red)))"},
        {"top(list(box(color)))", "top(list(box(color=red)))"},
        {"top(missing mode)", "top(mode=auto)"},
        {"top(list(missing))", ""},
        {"top(list(x:text))", "top(list(x:text=foreign))"},
        {"top(list(key=b *:text))", "top(list(key=b text=two x:text=foreign))"},
        {"top(list(tag))", "top(list(tag=p tag=q))"},
        // content matches
        {"top(list(key=b))", "top(list(key=b text=two x:text=foreign))"},
        {"top(list(key=b text))", "top(list(key=b text=two))"},
        {"top(list(text key=b))", "top(list(key=b text=two))"},
        {"top(list(key=' b ' text))", "top(list(key=b text=two))"},
        {"top(list(key=' ' kind))", "top(list(key=a) list(key=b) list(key=a kind=second))"},
        {"top(padded=auto)", data},
        {"top(list(key=c text))", ""},
        {"top(list(key=a text=one))", "top(list(key=a text=one box(size=1 color=red)))"},
        {"top(list(key=a text=two))", ""},
        {"top(list(key=a kind=first))", ""},
        {"top(list(x:text=two))", ""},
        {"top(list(tag=q))", "top(list(key=a kind=second tag=p tag=q))"},
        {"top(list(tag=q kind))", "top(list(kind=second tag=q))"},
        {"top(list(key=b box))", "top(list(key=b))"},
        {"top(list(key box(size=2)))", "top(list(key=a) list(key=b) list(key=a))"},
        {"top(mode=manual list(key))", ""},
        {"top(list(box=red))", ""},
        {"top(list(key=b(text)))", ""}, // a value beside elements counts for nothing
        // several for the same node
        {"top(list(key=b text) list(kind))", "top(list(key=b text=two) list(kind=second))"},
        {"top(list(key=a kind) list(x:key=a text))", "top(list(key=a) list(key=a kind=second))"},
        {"top(list(key=b text) list(key=b x:text))", "top(list(key=b text=two x:text=foreign))"},
        {"top(list(key=b text) list(key=b))", "top(list(key=b text=two x:text=foreign))"},
        {"top(list(key=b) list(key=b text))", "top(list(key=b text=two x:text=foreign))"},
        {"top(list(key=c text) list(key=b text))", "top(list(key=b text=two))"},
        {"top(mode) top(list(kind))", "top(mode=auto list(kind=second))"},
        {"top(list(text) *:list(kind))", "top(list(text=one) list(text=two) list(kind=second))"},
    };
    const ozk::Tree tree = tree_with(data);
    for (const auto& row : rows)
        EXPECT_EQ(selected(tree, tree_with(row.filter)), row.selected) << row.filter;
}

TEST(Filter, MarksOfAReader)
{
    const ozk::Tree tree = tree_with(data);
    ozk::Tree filter     = tree_with("top(mode list(key text))");
    const auto top       = ozk::children(*ozk::children(filter.top()).data());
    top[0].marks         = ozk::MARK_MATCHES_NONE;
    EXPECT_EQ(selected(tree, filter), "top(list(key=a text=one) list(key=b text=two) list(key=a))");
    ozk::children(top[1])[0].marks = ozk::MARK_COMPLETES;
    EXPECT_EQ(selected(tree, filter), "top(list(key=a text=one) list(key=b text=two))");
    ozk::Tree matched            = tree_with("top(list(key=b text kind))");
    OzkMapNode& list             = ozk::children(*ozk::children(matched.top()).data())[0];
    ozk::children(list)[2].marks = ozk::MARK_COMPLETES;
    EXPECT_EQ(selected(tree, matched), "top(list(key=b text=two))");
}

/// A list of 60 entries, some of whose leaves have the same value.
std::string long_list(size_t count = 60)
{
    std::string text;
    for (size_t i = 0; i < count; ++i)
        text += (i > 0 ? " " : "") + std::string("list(key=") + std::to_string(i) +
                " kind=" + std::to_string(i % 7) + ")";
    return text;
}

// Long lists are looked up by an index; the rules are the same.
TEST(Filter, SelectsInLongLists)
{
    const struct {
        const char* filter;
        const char* selected;
    } rows[] = {
        {"list(key=41)", "list(key=41 kind=6)"},
        {"list(key=41 kind=6)", "list(key=41 kind=6)"},
        {"list(key=41 kind=5)", ""},
        {"list(kind=6 key=41)", "list(key=41 kind=6)"},
        {"list(key=60)", ""},
        {"list(key=41) list(key=3) list(key=41)", "list(key=3 kind=3) list(key=41 kind=6)"},
        {"*:list(key=41 kind)", "list(key=41 kind=6)"},
        {"x:list(key=41)", ""},
        {"list(kind=6)", "list(key=6 kind=6) list(key=13 kind=6) list(key=20 kind=6) "
                         "list(key=27 kind=6) list(key=34 kind=6) list(key=41 kind=6) "
                         "list(key=48 kind=6) list(key=55 kind=6)"},
        {"list(key=41) mode", "list(key=41 kind=6) mode=auto"},
    };
    const ozk::Tree tree = tree_with("top(other(key=41) " + long_list() + " mode=auto)");
    for (const auto& row : rows) {
        const std::string expected = row.selected;
        EXPECT_EQ(selected(tree, tree_with("top(" + std::string(row.filter) + ")")),
                  expected.empty() ? "" : "top(" + expected + ")")
            << row.filter;
    }
    // One for each entry, and more than there are entries.
    EXPECT_EQ(selected(tree, tree_with("top(" + long_list() + ")")), "top(" + long_list() + ")");
    EXPECT_EQ(selected(tree, tree_with("top(" + long_list(90) + ")")), "top(" + long_list() + ")");
}

TEST(Filter, OfAddedPaths)
{
    const auto path = [](const char* text, const char* value = nullptr, bool is_list = false) {
        return ozk::AddedPath{text, ns, value, nullptr, nullptr, is_list};
    };
    const std::vector<ozk::AddedPath> added = {
        path("/top/list", nullptr, true), path("/top/list/key", "a"), path("/top/list/box"),
        path("/top/list/box/size"), // no narrower than its container
        path("/top/list", nullptr, true), path("/top/list/key", "b"), path("/top/list/box/size"),
        path("/top/list/boxes")};
    EXPECT_EQ(shown(ymap::data::filter_of(added).top(), ns),
              "top(list(key=a box) list(key=b box(size) boxes))");
}

/// What an edit makes of the data; of one that is refused, the error, and that nothing has changed.
std::string edited(std::string_view before, std::string_view edit, Edit by_default = Edit::merge)
{
    Document document{.name = "data", .tree = tree_with(before)};
    const ozk::Tree request = tree_with(edit, by_default);
    try {
        apply_edit(document, document.tree.top(), request.top(), lists);
    } catch (const EditError& error) {
        EXPECT_EQ(shown(document.tree.top(), ns), before);
        return std::string(error.tag) + " at " + error.node->tag +
               (error.element.empty() ? "" : ", no " + error.element);
    }
    return shown(document.tree.top(), ns);
}

// RFC 6241, 7.2
TEST(Edit, ChangesData)
{
    const struct {
        const char* before;
        const char* edit;
        const char* after;
        Edit by_default = Edit::merge;
    } rows[] = {
        {"top(mode=a)", "top(mode=b)", "top(mode=b)"},
        {"top(mode=a)", "top(kind=b)", "top(mode=a kind=b)"},
        {"top(mode=a)", "top(x:mode=b)", "top(mode=a x:mode=b)"},
        {"", "top(box(size=1))", "top(box(size=1))"},
        {"top(mode=a)", "top(mode)", "top(mode)"},
        {"top(mode=' a ')", "top(kind=' b ')", "top(mode=' a ' kind=' b ')"},
        // entries by their keys, which come first
        {"top(list(key=a))", "top(list(text=t key=b))", "top(list(key=a) list(key=b text=t))"},
        {"top(list(text=t key=a))", "top(list(key=a text=u))", "top(list(text=u key=a))"},
        {"top(pair(a=1 b=1 v=x))", "top(pair(a=1 b=2 v=y))",
         "top(pair(a=1 b=1 v=x) pair(a=1 b=2 v=y))"},
        {"top(pair(a=1 b=1 v=x))", "top(pair(b=1 a=1 v=y))", "top(pair(a=1 b=1 v=y))"},
        {"top(list(key=a))", "top(list(text=t))", "missing-element at list, no key"},
        {"top(list(key=a))", "top(list(key text=t))", "missing-element at list, no key"},
        {"top(list(key=a))", "top(pair(a=1))", "missing-element at pair, no b"},
        {"top(list(key=a text=t))", "top(list(key=a@delete))", "bad-attribute at key"},
        {"top(list(key=a))", "top(list@delete(key=a))", "top"},
        // operations
        {"top(mode=a)", "top(mode=b@create)", "data-exists at mode"},
        {"top", "top(mode=b@create)", "top(mode=b)"},
        {"top(list(key=a))", "top(list@create(key=b) list@create(key=a))", "data-exists at list"},
        {"top(mode=a kind=b)", "top(mode@delete)", "top(kind=b)"},
        {"top(mode=a)", "top(mode@delete kind@delete)", "data-missing at kind"},
        {"top(mode=a)", "top(kind@remove mode@remove)", "top"},
        {"top(mode=a)", "top@delete", ""},
        {"top(list(key=a text=t) list(key=b))", "top(list@delete(key=a))", "top(list(key=b))"},
        {"top(list(key=a text=t sub(key=1)) mode=m)", "top(list@replace(key=a kind=k))",
         "top(list(key=a kind=k) mode=m)"},
        {"top(list(key=a) mode=m)", "top(list@replace(key=b))",
         "top(list(key=a) mode=m list(key=b))"},
        {"top(box(size=1) mode=m) other", "top@replace(mode=n)", "top(mode=n) other"},
        {"top(box(size=1))", "top(box@replace)", "top(box)"},
        {"top(box(size=1))", "top(box)", "top(box(size=1))"},
        {"top(list(key=a sub(key=1 v=x) sub(key=2)))", "top(list@replace(key=a sub(key=2 v=y)))",
         "top(list(key=a sub(key=2 v=y)))"},
        // no default operation
        {"top(mode=a)", "top(mode=b)", "top(mode=a)", Edit::none},
        {"top(mode=a)", "top(mode=b@merge)", "top(mode=b)", Edit::none},
        {"", "top(mode=b@merge)", "top(mode=b)", Edit::none},
        {"", "top(mode=b@remove)", "", Edit::none},
        {"top", "top(box(size=b@merge))", "data-missing at box", Edit::none},
        {"top(list(key=a))", "top(list(key=b text=t@merge))", "data-missing at list", Edit::none},
        {"top(list(key=a))", "top(list(key=a text=t@merge))", "top(list(key=a text=t))",
         Edit::none},
        // what can't be
        {"top(mode=a)", "top(mode=b mode=c)", "bad-element at mode"},
        {"top(mode=a)", "top(list(key=a) list(key=a))", "bad-element at list"},
        {"top(mode=a)", "top(list(key=a key=b))", "bad-element at key"},
        {"top(mode=a)", "top(mode(x=b))", "bad-element at mode"},
        {"top(box(size=1))", "top(box=b)", "bad-element at box"},
        {"top(list(key=a text=t) mode=m)",
         "top(list(key=a text=u sub(key=1)) list@delete(key=b) mode=n)", "data-missing at list"},
        {"top(list(key=a text=t) list(key=b) mode=m)",
         "top(list@delete(key=b) list(key=c) mode=n kind=k@delete)", "data-missing at kind"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(edited(row.before, row.edit, row.by_default), row.after)
            << row.before << " edited by " << row.edit;
}

// One document, edited again and again: what it knows of its lists has to go with the data.
TEST(Edit, AfterEdits)
{
    Document document{.name = "data", .tree = tree_with("top")};
    const auto edit = [&](std::string_view text) {
        const ozk::Tree request = tree_with(text, Edit::merge);
        apply_edit(document, document.tree.top(), request.top(), lists);
    };
    const std::string list = long_list();
    const std::string some = list.substr(0, list.find(" list(key=20 "));
    const auto renamed     = [&] {
        std::string other = some;
        for (size_t at = 0; (at = other.find("key=", at)) != other.npos; at += 5)
            other.insert(at + 4, "x");
        return other;
    }();
    edit("top(" + list + ")");
    edit("top(" + list + ")");
    edit("top@replace");
    edit("top(" + renamed + ")");
    edit("top(" + renamed + ")");
    EXPECT_EQ(shown(document.tree.top(), ns), "top(" + renamed + ")");
    std::string leaves = "top(" + renamed;
    for (int i = 0; i < 40; ++i)
        leaves += " leaf" + std::to_string(i) + "=v";
    edit(leaves + ")");
    edit(leaves + " more=w)");
    EXPECT_EQ(shown(document.tree.top(), ns), leaves + " more=w)");
}

// Entries are found by an index, which goes with what the edit itself adds and drops.
TEST(Edit, OfLongLists)
{
    const auto after = [](const std::string& edit) {
        return edited("top(" + long_list() + ")", "top(" + edit + ")");
    };
    std::string expected = "top(" + long_list() + ")";
    const auto replace   = [&](const std::string& from, const std::string& to) {
        expected.replace(expected.find(from), from.size(), to);
    };
    replace("list(key=41 kind=6)", "list(key=41 kind=9)");
    replace("list(key=3 kind=3) ", "");
    replace("list(key=59 kind=3)", "list(key=59 kind=3) list(key=x kind=1)");
    EXPECT_EQ(after("list(key=x kind=0) list(key=41 kind=9) list@delete(key=3)").size(),
              expected.size());
    EXPECT_EQ(after("list(key=41 kind=9) list@delete(key=3) list(key=x kind=1)"), expected);
    EXPECT_EQ(after("list(key=x) list@create(key=59)"), "data-exists at list");
    EXPECT_EQ(after("list(key=1 kind=x) list@delete(key=x)"), "data-missing at list");

    Document document{.name = "data", .tree = tree_with("top(" + long_list() + ")")};
    const auto apply = [&](const std::string& edit) {
        const ozk::Tree request = tree_with("top(" + edit + ")", Edit::merge);
        try {
            apply_edit(document, document.tree.top(), request.top(), lists);
            return true;
        } catch (const EditError&) {
            return false;
        }
    };
    EXPECT_TRUE(apply("list(key=y) list@delete(key=3)"));
    EXPECT_FALSE(apply("list@create(key=3) list(key=z) list@create(key=y)"));
    EXPECT_FALSE(apply("list@delete(key=z)"));
    EXPECT_TRUE(apply("list@create(key=3) list@create(key=z) list@delete(key=y)"));
    EXPECT_FALSE(apply("list@create(key=3)"));

    // What filters ask for is found as it is after each edit.
    const auto of_kind_9 = [&] {
        const ozk::Tree filter = tree_with("top(list(kind=9 key))");
        ozk::Tree into;
        const ymap::data::Filter select(filter.top());
        return shown(select.select(document.tree.top(), document.indexes, into), ns);
    };
    EXPECT_EQ(of_kind_9(), "");
    EXPECT_TRUE(apply("list(key=41 kind=9) list(key=new kind=9)"));
    EXPECT_EQ(of_kind_9(), "top(list(key=41 kind=9) list(key=new kind=9))");
    EXPECT_TRUE(apply("list(key=41 kind@delete)"));
    EXPECT_EQ(of_kind_9(), "top(list(key=new kind=9))");
    EXPECT_TRUE(apply("list(key=41 kind=9) list@delete(key=new)"));
    EXPECT_EQ(of_kind_9(), "top(list(key=41 kind=9))");
}

// RFC 7950, 9.13
TEST(InstancePath, TellsThePlaceOfANode)
{
    const ozk::Tree tree =
        tree_with("top(list(key=a text=t) list(text=u) list(key=it's sub(key=1 x:v=2)) "
                  "list(key=\"it's v) "
                  "pair(b=2 a=1 v) pair(a=1)) top(mode)");
    ymap::data::InstancePaths paths(tree.top(), lists);
    std::string all;
    const auto visit = [&](const auto& self, const OzkMapNode& node) -> void {
        for (const OzkMapNode& child : ozk::children(node))
            if (ozk::children(child).empty() && ozk::text(child.tag) != "key")
                all += paths.of(child) + "\n";
            else
                self(self, child);
    };
    visit(visit, tree.top());
    EXPECT_EQ(all, "/top/list[key='a']/text\n"
                   "/top/list[2]/text\n"
                   "/top/list[key=\"it's\"]/sub[key='1']/v\n"
                   "/top/list[key=concat('\"it',\"'\",'s')]/v\n"
                   "/top/pair[a='1'][b='2']/b\n"
                   "/top/pair[a='1'][b='2']/a\n"
                   "/top/pair[a='1'][b='2']/v\n"
                   "/top/pair[2]/a\n"
                   "/top/mode\n");
    const auto prefix_of = [](const char* ns_uri) -> std::string_view {
        return ns_uri == std::string_view(ns) ? "n" : "";
    };
    const OzkMapNode& third = tree.top().subtrees->subtrees[2];
    EXPECT_EQ(paths.of(third.subtrees[1].subtrees[1], prefix_of),
              "/n:top/n:list[n:key=\"it's\"]/n:sub[n:key='1']/v");
    EXPECT_EQ(paths.parent_of(third), tree.top().subtrees);
    const OzkMapNode stranger{};
    EXPECT_EQ(paths.of(stranger), "");
}

TEST(Text, IsMadeFitForAMessage)
{
    EXPECT_EQ(ymap::data::trim(" \t\r\n a b \n"), "a b");
    EXPECT_EQ(ymap::data::trim(" \n"), "");
    EXPECT_EQ(ymap::data::for_message("a\nb\x1b\x7f\xc2\x85\xc2\xb5~"), "a b   \xc2\xb5~");
    EXPECT_EQ(ymap::data::for_message("\xff\xc3z\xc3\xa4\xe2\x82\xf0\x9f\x98\x80\x80"),
              "??z\xc3\xa4??\xf0\x9f\x98\x80?");
    EXPECT_EQ(ymap::data::for_message(std::string(400, 'x')), std::string(400, 'x'));
    const std::string umlaut = "\xc3\xa4";
    EXPECT_EQ(
        ymap::data::for_message(std::string(299, 'x') + umlaut + umlaut + std::string(99, 'y')),
        std::string(299, 'x') + "..." + std::string(99, 'y'));
}

} // namespace
} // namespace test
