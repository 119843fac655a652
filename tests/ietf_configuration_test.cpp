// Requests on /interfaces: which native paths they become, in which order the framework is called
// for it, and what each failure skips.

#include <string>

#include "walk_case.h"

namespace test {
namespace {

const std::string entry = "/interface-configurations/interface-configuration";
const std::string acl =
    "ymap_iq_ietf_interfaces_brelvikietfinterfacesaclext_augment_lvla_interface";

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
    return {"match name name", "delete? name no",
            "add " + entry + "/interface-name = " + value + " ref name",
            "add " + entry + "/active = act ref name"};
}

/// The same of an entry that an edit adds, behind its key.
Lines in_added_entry(const Lines& calls)
{
    return in_entry(Lines{"add? name yes", "match name name"} + list_added + key_taken("if-1") +
                    calls);
}

/// What the expansion of an entry adds, when `tag` is the expanded node and `value` its value.
Lines expanded(const std::string& tag, const std::string& value = "")
{
    return {"add " + entry + "/interface-name" + (value.empty() ? "" : " = " + value),
            "add " + entry + "/active = act", "add " + entry + "/description",
            "add " + entry + "/shutdown", "sibling " + acl + " " + tag};
}

TEST(IetfConfiguration, Reads)
{
    for (const uint32_t op : {MAP_OP_GET_CONFIG, MAP_OP_GET})
        // clang-format off
        check(ietf_configuration, op, {
            {"everything", {},
             Lines{"push interfaces container", error("No keys specified with a list node."),
                   "push interfaces list", "list /interfaces/interface", "delete? interfaces no",
                   "add " + entry + " list"} +
                 expanded("interfaces") + Lines{"pop interfaces", "add? interfaces no",
                                                "pop interfaces"}},
            {"a whole list: the entry is expanded and hands on its own value",
             {leaf("interface", "odd")},
             Lines{"push interfaces container", "match interface interface",
                   error("No keys specified with a list node."), "push interface list",
                   "list /interfaces/interface"} +
                 list_added + expanded("interface", "odd") +
                 Lines{"pop interface", "pop interfaces"}},
            {"one entry: no expansion, since it has a child",
             {node("interface", {leaf("name", "if-1")})},
             in_entry(Lines{"add? name no"} + list_added +
                      Lines{"match name name", "delete? name no",
                            "add " + entry + "/interface-name = if-1",
                            "add " + entry + "/active = act"})},
            {"a key without a value passes on a read", {node("interface", {node("name")})},
             in_entry(Lines{"add? name no"} + list_added +
                      Lines{"match name name", "delete? name no",
                            "add " + entry + "/interface-name", "add " + entry + "/active = act"})},
            {"leaves select without their values",
             {node("interface", {leaf("enabled", "true"), leaf("description", "x")})},
             in_entry(Lines{"add? enabled no"} + list_added +
                      Lines{"match enabled enabled", "add " + entry + "/shutdown",
                            "match description description", "add " + entry + "/description"})},
        });
    // clang-format on
}

TEST(IetfConfiguration, Edits)
{
    // clang-format off
    check(ietf_configuration, MAP_OP_EDIT, {
        {"an entry is added, with a position",
         {at_position(7, node("interface", {leaf("name", "if-1"), leaf("description", "up")}))},
         in_added_entry({"match description description", "delete? description no",
                         "add " + entry + "/description = up ref description"})},
        {"enabled goes over with its very value",
         {node("interface", {leaf("name", "if-1"), leaf("enabled", "false")})},
         in_added_entry({"match enabled enabled", "delete? enabled no",
                         "add " + entry + "/shutdown = false ref enabled"})},
        {"leaves are deleted",
         {node("interface", {leaf("name", "if-1"), with(Edit::erase, leaf("description", "x")),
                             with(Edit::remove, node("enabled"))})},
         in_added_entry({"match description description", "delete? description yes",
                         "add " + entry + "/description ref description", "match enabled enabled",
                         "delete? enabled yes", "add " + entry + "/shutdown ref enabled"})},
        {"an entry is deleted: the list path refers to it",
         {with(Edit::erase, node("interface", {leaf("name", "if-1")}))},
         in_entry(Lines{"add? name no", "delete? interface yes",
                        "add " + entry + " list ref interface"} +
                  key_taken("if-1"))},
        {"an empty entry gets its list path and nothing else", {node("interface")},
         Lines{"push interfaces container", "match interface interface",
               error("No keys specified with a list node."), "push interface list",
               "list /interfaces/interface"} +
             list_added + Lines{"pop interface", "pop interfaces"}},
        {"the key may stand anywhere in an entry that isn't added",
         {with(Edit::none, node("interface", {with(Edit::erase, node("description")),
                                              leaf("name", "if-1")}))},
         in_entry(Lines{"add? description no"} + list_added +
                  Lines{"match description description", "delete? description yes",
                        "add " + entry + "/description ref description"} +
                  key_taken("if-1"))},
    });
    // clang-format on
}

TEST(IetfConfiguration, OtherOperationsEditWithoutTheEmptyKeyTest)
{
    // clang-format off
    check(ietf_configuration, other_operation, {
        {"empty key", {node("interface", {node("name")})},
         in_entry(Lines{"add? name no"} + list_added +
                  Lines{"match name name", "delete? name no",
                        "add " + entry + "/interface-name ref name",
                        "add " + entry + "/active = act ref name"})},
        {"no expansion", {},
         {"push interfaces container", "pop interfaces"}},
    });
    // clang-format on
}

TEST(IetfConfiguration, RefusedRequests)
{
    // clang-format off
    check(ietf_configuration, MAP_OP_EDIT, {
        {"an added entry that doesn't begin with its key",
         {node("interface", {leaf("description", "x"), leaf("name", "if-1")})},
         in_entry({"add? description yes", error("List key 'name' expected."),
                   "copy description"}),
         MAP_ERR_BAD_KEY, "description"},
        {"an empty key on an edit, behind the list path",
         {node("interface", {node("name"), leaf("description", "x")})},
         in_entry(Lines{"add? name yes", "match name name"} + list_added +
                  Lines{"match name name", error("Empty list key specified."), "copy name"}),
         MAP_ERR_BAD_KEY, "name"},
        {"a deleted key leaves no tag",
         {node("interface", {with(Edit::erase, leaf("name", "if-1"))})},
         in_entry(Lines{"add? name no"} + list_added +
                  Lines{"match name name", "delete? name yes",
                        error("The key node should not have delete operation.")}),
         MAP_ERR_KEY_DELETE},
        {"type is not mapped and ends the entry",
         {node("interface", {leaf("name", "if-1"), leaf("type", "x"), leaf("enabled", "true")}),
          node("interface", {leaf("name", "if-2")})},
         in_added_entry({"match type type"}),
         MAP_NOT_MAPPED},
        {"an unknown tag in the entry",
         {node("interface", {leaf("name", "if-1"), node("mtu"), node("description")})},
         in_added_entry({match_of(NS_IETF_INTERFACES),
                         error("Unsupported tag is specified in the request."), "copy mtu"}),
         MAP_ERR_UNSUPPORTED_TAG, "mtu"},
        {"an unknown tag below the root; a later failure is never reached",
         {node("interface-nq"), node("more")},
         {"push interfaces container", match_of(NS_IETF_INTERFACES),
          error("Unsupported tag is specified in the request."), "copy interface-nq",
          "pop interfaces"},
         MAP_ERR_UNSUPPORTED_TAG, "interface-nq"},
    });
    // clang-format on
}

TEST(IetfConfiguration, NodesOfOtherModels)
{
    const DataNode own              = in_ns(node("acl"), NS_IETF_INTERFACES_ACL_EXT);
    const DataNode foreign          = in_ns(node("acl"), foreign_ns);
    const std::string own_namespace = match_of(NS_IETF_INTERFACES_ACL_EXT);
    const std::string call          = "sibling " + acl + " acl";
    for (const uint32_t op : {MAP_OP_GET_CONFIG, MAP_OP_GET})
        // clang-format off
        check(ietf_configuration, op, {
            {"an access list", {node("interface", {own})},
             in_entry(Lines{"add? acl no"} + list_added + Lines{own_namespace, call, call})},
            {"one of a foreign namespace", {node("interface", {foreign})},
             in_entry(Lines{"add? acl no"} + list_added + Lines{call})},
            {"a known tag of another model is dispatched",
             {node("interface", {in_ns(node("description"), foreign_ns)})},
             in_entry(Lines{"add? description no"} + list_added +
                      Lines{"match description description", "add " + entry + "/description"})},
        });
    // The first child of an added entry must be the key, so that an access list is only removed.
    check(ietf_configuration, MAP_OP_EDIT, {
        {"an access list", {node("interface", {with(Edit::remove, own)})},
         in_entry(Lines{"add? acl no"} + list_added + Lines{own_namespace, call})},
        {"one of a foreign namespace", {node("interface", {with(Edit::remove, foreign)})},
         in_entry(Lines{"add? acl no"} + list_added)},
        {"the root's default hook refuses an add",
         {in_ns(node("policy"), foreign_ns), node("interface")},
         {"push interfaces container", "add? policy yes", "copy policy", "pop interfaces"},
         MAP_ERR_ADD_REFUSED, "policy"},
        {"and passes anything else", {with(Edit::erase, in_ns(node("policy"), foreign_ns))},
         {"push interfaces container", "add? policy no", "pop interfaces"}},
    });
    // clang-format on
}

TEST(IetfConfiguration, BrokenTrees)
{
    const auto null_children = [](Walk& walk) { walk.input.root().subtrees = nullptr; };
    // clang-format off
    check(ietf_configuration, MAP_OP_EDIT, {
        {"children without an array", {node("interface")},
         {error("Failed to get subtrees!")}, MAP_ERR_NO_SUBTREES, "-", null_children},
        {"a null tag behind a good child",
         {node("interface", {leaf("name", "if-1"), without_tag(leaf("", "x")),
                             leaf("description", "x")})},
         in_added_entry({error("Tag name is not available!")}),
         MAP_ERR_NO_SUBTREES},
    });
    // clang-format on
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
