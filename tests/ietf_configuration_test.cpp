// Requests on /interfaces: which native paths they become, in which order the framework is called
// for it, and what each failure skips.

#include <string>

#include "walk_case.h"

namespace test {
namespace {

const std::string entry = "/interface-configurations/interface-configuration";
const std::string acl = "ymap_iq_ietf_interfaces_brelvikietfinterfacesaclext_augment_lvla_interface";

std::string error(const std::string& text)
{
    return "ERR " + text;
}

using Lines = std::vector<std::string>;

/// Around the calls of one entry: those of the root, and of the list walker up to the key test.
Lines in_entry(const Lines& calls)
{
    return Lines{"push interfaces container", "match interface interface", "push interface list",
                 "list /interfaces/interface"} +
           calls + Lines{"pop interface", "pop interfaces"};
}

const Lines list_added{"delete? interface no", "add " + entry + " list"};

Lines key_taken(const std::string& value)
{
    return {"match name name", "delete? name no", "add " + entry + "/interface-name = " + value +
            " ref name", "add " + entry + "/active = act ref name"};
}

/// What the expansion of an entry adds, when `tag` is the expanded node and `value` its value.
Lines expanded(const std::string& tag, const std::string& value = "")
{
    return {"add " + entry + "/interface-name" + (value.empty() ? "" : " = " + value),
            "add " + entry + "/active = act",
            "add " + entry + "/description",
            "add " + entry + "/shutdown",
            "sibling " + acl + " " + tag};
}

TEST(IetfConfiguration, Reads)
{
    for (const uint32_t op : {MAP_OP_GET_CONFIG, MAP_OP_GET})
        check({
            {"everything", ietf_configuration, op, {},
             Lines{"push interfaces container", error("No keys specified with a list node."),
                   "push interfaces list", "list /interfaces/interface", "delete? interfaces no",
                   "add " + entry + " list"} +
                 expanded("interfaces") + Lines{"pop interfaces", "add? interfaces no",
                                                "pop interfaces"}},
            {"a whole list: the entry is expanded and hands on its own value", ietf_configuration,
             op, {leaf("interface", "odd")},
             Lines{"push interfaces container", "match interface interface",
                   error("No keys specified with a list node."), "push interface list",
                   "list /interfaces/interface"} +
                 list_added + expanded("interface", "odd") +
                 Lines{"pop interface", "pop interfaces"}},
            {"one entry: no expansion, since it has a child", ietf_configuration, op,
             {node("interface", {leaf("name", "ge-1")})},
             in_entry(Lines{"add? name no"} + list_added +
                      Lines{"match name name", "delete? name no",
                            "add " + entry + "/interface-name = ge-1",
                            "add " + entry + "/active = act"})},
            {"a key without a value passes on a read", ietf_configuration, op,
             {node("interface", {node("name")})},
             in_entry(Lines{"add? name no"} + list_added +
                      Lines{"match name name", "delete? name no",
                            "add " + entry + "/interface-name", "add " + entry + "/active = act"})},
            {"leaves select without their values", ietf_configuration, op,
             {node("interface", {leaf("enabled", "true"), leaf("description", "x")})},
             in_entry(Lines{"add? enabled no"} + list_added +
                      Lines{"match enabled enabled", "add " + entry + "/shutdown",
                            "match description description", "add " + entry + "/description"})},
        });
}

TEST(IetfConfiguration, Edits)
{
    check({
        {"an entry is added, with a position", ietf_configuration, MAP_OP_EDIT,
         {at_position(7, node("interface", {leaf("name", "ge-1"), leaf("description", "up")}))},
         in_entry(Lines{"add? name yes", "match name name"} + list_added + key_taken("ge-1") +
                  Lines{"match description description", "delete? description no",
                        "add " + entry + "/description = up ref description"})},
        {"enabled goes over with its very value", ietf_configuration, MAP_OP_EDIT,
         {node("interface", {leaf("name", "ge-1"), leaf("enabled", "false")})},
         in_entry(Lines{"add? name yes", "match name name"} + list_added + key_taken("ge-1") +
                  Lines{"match enabled enabled", "delete? enabled no",
                        "add " + entry + "/shutdown = false ref enabled"})},
        {"leaves are deleted", ietf_configuration, MAP_OP_EDIT,
         {node("interface", {leaf("name", "ge-1"), with(Edit::erase, leaf("description", "x")),
                             with(Edit::remove, node("enabled"))})},
         in_entry(Lines{"add? name yes", "match name name"} + list_added + key_taken("ge-1") +
                  Lines{"match description description", "delete? description yes",
                        "add " + entry + "/description ref description", "match enabled enabled",
                        "delete? enabled yes", "add " + entry + "/shutdown ref enabled"})},
        {"an entry is deleted: the list path refers to it", ietf_configuration, MAP_OP_EDIT,
         {with(Edit::erase, node("interface", {leaf("name", "ge-1")}))},
         in_entry(Lines{"add? name no", "delete? interface yes",
                        "add " + entry + " list ref interface"} +
                  key_taken("ge-1"))},
        {"an empty entry gets its list path and nothing else", ietf_configuration, MAP_OP_EDIT,
         {node("interface")},
         Lines{"push interfaces container", "match interface interface",
               error("No keys specified with a list node."), "push interface list",
               "list /interfaces/interface"} +
             list_added + Lines{"pop interface", "pop interfaces"}},
        {"the key may stand anywhere in an entry that isn't added", ietf_configuration,
         MAP_OP_EDIT,
         {with(Edit::none, node("interface", {with(Edit::erase, node("description")),
                                              leaf("name", "ge-1")}))},
         in_entry(Lines{"add? description no"} + list_added +
                  Lines{"match description description", "delete? description yes",
                        "add " + entry + "/description ref description"} +
                  key_taken("ge-1"))},
    });
}

TEST(IetfConfiguration, OtherOperationsEditWithoutTheEmptyKeyTest)
{
    check({
        {"empty key", ietf_configuration, other_operation,
         {node("interface", {node("name")})},
         in_entry(Lines{"add? name no"} + list_added +
                  Lines{"match name name", "delete? name no",
                        "add " + entry + "/interface-name ref name",
                        "add " + entry + "/active = act ref name"})},
        {"no expansion", ietf_configuration, other_operation, {},
         {"push interfaces container", "pop interfaces"}},
    });
}

TEST(IetfConfiguration, RefusedRequests)
{
    check({
        {"an added entry that doesn't begin with its key", ietf_configuration, MAP_OP_EDIT,
         {node("interface", {leaf("description", "x"), leaf("name", "ge-1")})},
         in_entry({"add? description yes", error("List key 'name' expected."),
                   "copy description"}),
         MAP_ERR_BAD_KEY, "description"},
        {"the same with a null tag, which is not compared", ietf_configuration, MAP_OP_EDIT,
         {node("interface", {without_tag(leaf("", "x"))})},
         in_entry({"add? - yes", error("List key 'name' expected."), "copy -"}), MAP_ERR_BAD_KEY},
        {"an empty key on an edit, behind the list path", ietf_configuration, MAP_OP_EDIT,
         {node("interface", {node("name"), leaf("description", "x")})},
         in_entry(Lines{"add? name yes", "match name name"} + list_added +
                  Lines{"match name name", error("Empty list key specified."), "copy name"}),
         MAP_ERR_BAD_KEY, "name"},
        {"an empty key that is deleted is empty first", ietf_configuration, MAP_OP_EDIT,
         {node("interface", {with(Edit::erase, node("name"))})},
         in_entry(Lines{"add? name no"} + list_added +
                  Lines{"match name name", error("Empty list key specified."), "copy name"}),
         MAP_ERR_BAD_KEY, "name"},
        {"a deleted key leaves no tag", ietf_configuration, MAP_OP_EDIT,
         {node("interface", {with(Edit::erase, leaf("name", "ge-1"))})},
         in_entry(Lines{"add? name no"} + list_added +
                  Lines{"match name name", "delete? name yes",
                        error("The key node should not have delete operation.")}),
         MAP_ERR_KEY_DELETE},
        {"type is not mapped and ends the entry", ietf_configuration, MAP_OP_EDIT,
         {node("interface", {leaf("name", "ge-1"), leaf("type", "x"), leaf("enabled", "true")}),
          node("interface", {leaf("name", "ge-2")})},
         in_entry(Lines{"add? name yes", "match name name"} + list_added + key_taken("ge-1") +
                  Lines{"match type type"}),
         MAP_NOT_MAPPED},
        {"link-up-down-trap-enable on a read", ietf_configuration, MAP_OP_GET,
         {node("interface", {node("link-up-down-trap-enable"), node("name")})},
         in_entry(Lines{"add? link-up-down-trap-enable no"} + list_added +
                  Lines{"match link-up-down-trap-enable link-up-down-trap-enable"}),
         MAP_NOT_MAPPED},
        {"an unknown tag in the entry", ietf_configuration, MAP_OP_GET,
         {node("interface", {leaf("name", "ge-1"), node("mtu"), node("description")})},
         in_entry(Lines{"add? name no"} + list_added +
                  Lines{"match name name", "delete? name no",
                        "add " + entry + "/interface-name = ge-1",
                        "add " + entry + "/active = act",
                        std::string("match ") + NS_IETF_INTERFACES + " " + NS_IETF_INTERFACES,
                        error("Unsupported tag is specified in the request."), "copy mtu"}),
         MAP_ERR_UNSUPPORTED_TAG, "mtu"},
        {"an unknown tag below the root; a later failure is never reached", ietf_configuration,
         MAP_OP_EDIT, {node("interface-nq"), node("more")},
         {"push interfaces container",
          std::string("match ") + NS_IETF_INTERFACES + " " + NS_IETF_INTERFACES,
          error("Unsupported tag is specified in the request."), "copy interface-nq",
          "pop interfaces"},
         MAP_ERR_UNSUPPORTED_TAG, "interface-nq"},
    });
}

TEST(IetfConfiguration, NodesOfOtherModels)
{
    const auto acl_node = [](const char* ns_uri) { return in_ns(node("acl"), ns_uri); };
    const std::string acl_matches = std::string("match ") + NS_IETF_INTERFACES_ACL_EXT + " " +
                                    NS_IETF_INTERFACES_ACL_EXT;
    const std::string call = "sibling " + acl + " acl";
    const auto entry_with = [&](uint32_t op, const char* ns_uri, const Lines& calls) {
        return WalkCase{"access list of an entry", ietf_configuration, op,
                        {node("interface", {acl_node(ns_uri)})},
                        in_entry(Lines{op == MAP_OP_EDIT ? "add? acl yes" : "add? acl no"} +
                                 calls)};
    };
    // The first child of an added entry must be the key, so that edits only remove here.
    const auto removal_with = [&](const char* ns_uri, const Lines& calls) {
        return WalkCase{"removed access list of an entry", ietf_configuration, MAP_OP_EDIT,
                        {node("interface", {with(Edit::remove, acl_node(ns_uri))})},
                        in_entry(Lines{"add? acl no"} + list_added + calls)};
    };
    check({
        entry_with(MAP_OP_GET, NS_IETF_INTERFACES_ACL_EXT,
                   list_added + Lines{acl_matches, call, call}),
        entry_with(MAP_OP_GET_CONFIG, foreign_ns, list_added + Lines{call}),
        removal_with(NS_IETF_INTERFACES_ACL_EXT, {acl_matches, call}),
        removal_with(foreign_ns, {}),
        {"a known tag of another model is dispatched", ietf_configuration, MAP_OP_GET,
         {node("interface", {in_ns(node("description"), foreign_ns)})},
         in_entry(Lines{"add? description no"} + list_added +
                  Lines{"match description description", "add " + entry + "/description"})},
        {"the root's default hook refuses an add", ietf_configuration, MAP_OP_EDIT,
         {in_ns(node("policy"), foreign_ns), node("interface")},
         {"push interfaces container", "add? policy yes", "copy policy", "pop interfaces"},
         MAP_ERR_ADD_REFUSED, "policy"},
        {"and passes anything else", ietf_configuration, MAP_OP_EDIT,
         {with(Edit::erase, in_ns(node("policy"), foreign_ns))},
         {"push interfaces container", "add? policy no", "pop interfaces"}},
    });
}

TEST(IetfConfiguration, LaterSiblingStatusCounts)
{
    const auto first_fails = [](Walk& walk) {
        walk.run.answer(ozk::Op::sibling, 1, framework_failure);
    };
    const auto second_fails = [](Walk& walk) {
        walk.run.answer(ozk::Op::sibling, 2, framework_failure);
    };
    for (const auto& [prepare, status] :
         {std::pair<std::function<void(Walk&)>, uint32_t>{first_fails, MAP_OK},
          {second_fails, framework_failure}}) {
        Walk walk(ietf_configuration, MAP_OP_GET,
                  {node("interface", {in_ns(node("acl"), NS_IETF_INTERFACES_ACL_EXT)})});
        prepare(walk);
        EXPECT_EQ(walk.go(), status);
        EXPECT_EQ(walk.script({"sibling"}).size(), 2U);
    }
}

TEST(IetfConfiguration, FailuresOfTheFramework)
{
    using ozk::Op;
    const auto fails = [](Op op, size_t k) {
        return [=](Walk& walk) { walk.run.answer(op, k, framework_failure); };
    };
    const Lines no_keys{error("No keys specified with a list node.")};
    check({
        {"list path, empty node on a read: expanded all the same", ietf_configuration, MAP_OP_GET,
         {node("interface")},
         Lines{"push interfaces container", "match interface interface"} + no_keys +
             Lines{"push interface list", "list /interfaces/interface"} + expanded("interface") +
             Lines{"pop interface", "pop interfaces"},
         framework_failure, "-", fails(Op::update_list, 1)},
        {"list path, with children: nothing more of the entry", ietf_configuration, MAP_OP_EDIT,
         {node("interface", {leaf("name", "ge-1")}), node("interface")}, in_entry({}),
         framework_failure, "-", fails(Op::update_list, 1)},
        {"list handler, empty node on a read: expanded all the same", ietf_configuration,
         MAP_OP_GET, {node("interface")},
         Lines{"push interfaces container", "match interface interface"} + no_keys +
             Lines{"push interface list", "list /interfaces/interface"} + list_added +
             expanded("interface") + Lines{"pop interface", "pop interfaces"},
         framework_failure, "-", fails(Op::add_path, 1)},
        {"first add of the key goes unseen", ietf_configuration, MAP_OP_EDIT,
         {node("interface", {leaf("name", "ge-1")})},
         in_entry(Lines{"add? name yes", "match name name"} + list_added + key_taken("ge-1")),
         MAP_OK, "-", fails(Op::add_path, 2)},
        {"second add of the key counts", ietf_configuration, MAP_OP_EDIT,
         {node("interface", {leaf("name", "ge-1"), leaf("enabled", "true")})},
         in_entry(Lines{"add? name yes", "match name name"} + list_added + key_taken("ge-1")),
         framework_failure, "-", fails(Op::add_path, 3)},
        {"a failure in an expansion is lost", ietf_configuration, MAP_OP_GET, {},
         Lines{"push interfaces container"} + no_keys +
             Lines{"push interfaces list", "list /interfaces/interface", "delete? interfaces no",
                   "add " + entry + " list"} +
             expanded("interfaces") + Lines{"pop interfaces", "add? interfaces no",
                                            "pop interfaces"},
         MAP_OK, "-", fails(Op::add_path, 4)},
    });
}

TEST(IetfConfiguration, BrokenTrees)
{
    const auto root_flag_clear = [](Walk& walk) {
        walk.input.root().flags = 0;
        walk.input.root().subtree_count = 3;
    };
    const auto null_children = [](Walk& walk) { walk.input.root().subtrees = nullptr; };
    const auto flag_without_children = [](Walk& walk) {
        walk.input.root().flags = MAP_NODE_HAS_SUBTREES;
    };
    check({
        {"a count beside a clear flag is no count", ietf_configuration, MAP_OP_EDIT,
         {node("interface")}, {"push interfaces container", "pop interfaces"}, MAP_OK, "-",
         root_flag_clear},
        {"children without an array", ietf_configuration, MAP_OP_EDIT, {node("interface")},
         {error("Failed to get subtrees!")}, MAP_ERR_NO_SUBTREES, "-", null_children},
        {"the flag with no children is no fault", ietf_configuration, MAP_OP_EDIT, {},
         {"push interfaces container", "pop interfaces"}, MAP_OK, "-", flag_without_children},
        {"a null tag behind a good child", ietf_configuration, MAP_OP_EDIT,
         {node("interface", {leaf("name", "ge-1"), without_tag(leaf("", "x")),
                             leaf("description", "x")})},
         in_entry(Lines{"add? name yes", "match name name"} + list_added + key_taken("ge-1") +
                  Lines{error("Tag name is not available!")}),
         MAP_ERR_NO_SUBTREES},
        {"a null tag in the first element", ietf_configuration, MAP_OP_GET,
         {without_tag(node("")), node("interface")},
         {"push interfaces container", error("Tag name is not available!"), "pop interfaces"},
         MAP_ERR_NO_SUBTREES},
    });
}

TEST(IetfConfiguration, ListPositionIsThatOfTheLastEntryTaken)
{
    const struct {
        const char* name;
        std::vector<DataNode> entries;
        uint32_t failing_add;
        uint32_t position;
    } cases[] = {
        {"of an entry", {at_position(7, node("interface"))}, 0, 7},
        {"of an entry without one", {at_position(7, node("interface")), node("interface")}, 0, 0},
        {"not of a refused entry",
         {at_position(7, node("interface")), at_position(8, node("interface"))}, 2, 7},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Walk walk(ietf_configuration, MAP_OP_EDIT, c.entries);
        walk.run.ctx()->list_position = 99;
        if (c.failing_add != 0)
            walk.run.answer(ozk::Op::add_path, c.failing_add, framework_failure);
        walk.go();
        EXPECT_EQ(walk.run.ctx()->list_position, c.position);
    }
}

TEST(IetfConfiguration, LaterFailureReplacesTheOffendingTag)
{
    Walk walk(ietf_configuration, MAP_OP_EDIT, {node("first")});
    walk.go();
    ASSERT_EQ(walk.offending_tag(), "first");
    ozk::InputTree::child(walk.input.root(), 0).tag = "second";
    walk.go();
    EXPECT_EQ(walk.offending_tag(), "second");
}

} // namespace
} // namespace test
