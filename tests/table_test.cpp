// The mapping table that the built library itself draws: whether it shows every node of the schema
// as it is, whether the map is complete by it, and whether docs/mapping.md is up to date.

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "explore.h"
#include "schema.h"
#include "shell.h"
#include "siblings.h"
#include "ymap.h"

namespace {

using ozk::ExploredNode;
using ozk::Query;
using Lines = std::vector<std::string>;

/// A model's nodes, those of all its roots.
struct Table {
    std::string ns_uri;
    std::vector<ExploredNode> nodes;
};
using Tables = std::vector<Table>; // in the order of schema::models(): the clients' model first

Tables explore(const char* library)
{
    // An empty entry is read whole, with what other models add to it: their libraries are called.
    ymap_siblings_set_listener(nullptr);
    void* handle = dlopen(library, RTLD_LAZY | RTLD_LOCAL);
    EXPECT_NE(handle, nullptr) << dlerror();
    const auto find = [=](const std::string& name) { return dlsym(handle, name.c_str()); };
    Tables tables;
    for (const schema::Model& model : schema::models()) {
        Table& table = tables.emplace_back(Table{model.ns_uri, {}});
        for (const schema::Node& root : model.roots) {
            std::vector<std::string_view> spellings;
            schema::for_each(root,
                             [&](const schema::Node& node) { spellings.push_back(node.tag); });
            auto* walker = reinterpret_cast<OzkMapFunction*>(find(root.walker()));
            const ozk::ExploredRoot explored{model.ns_uri.c_str(), root.tag.c_str(), walker};
            for (ExploredNode& node : ozk::explore(explored, find, spellings))
                table.nodes.push_back(std::move(node));
        }
    }
    dlclose(handle);
    return tables;
}

// ---------------------------------------------------------------------------------------------
// The table against the schema

std::string shown(const schema::Node& node)
{
    return node.path + " " + std::to_string(static_cast<int>(node.kind)) + " " + node.walker() +
           " " + node.handler() + (node.manual_leaf ? " manual" : "") +
           (node.when_hook ? " when" : "") + (node.manual_augment_hook ? " hook" : "");
}

std::string shown(const ExploredNode& node)
{
    std::string text = node.path + " " + std::to_string(static_cast<int>(node.kind)) + " " +
                       node.function + " " + node.handler;
    for (const std::string& name : node.called_by_hand)
        text += name.ends_with("_handle_when") ? " when" : " manual";
    return text + (node.hook_by_hand ? " hook" : "") + (node.handler_by_hand ? " by hand" : "");
}

TEST(Table, ShowsEveryNodeOfTheSchema)
{
    const Tables tables = explore(YMAP_LIBRARY);
    size_t count        = 0;
    for (size_t i = 0; i < tables.size(); ++i) {
        Lines expected, found;
        for (const schema::Node& root : schema::models()[i].roots)
            schema::for_each(root,
                             [&](const schema::Node& node) { expected.push_back(shown(node)); });
        for (const ExploredNode& node : tables[i].nodes)
            found.push_back(shown(node));
        EXPECT_EQ(found, expected);
        count += found.size();
    }
    EXPECT_EQ(count, 554U);
}

TEST(Table, ShowsTheGate)
{
    for (const Table& table : explore(YMAP_LIBRARY)) {
        for (const ExploredNode& node : table.nodes) {
            const bool is_root  = std::ranges::count(node.path, '/') == 1;
            const bool is_state = table.ns_uri == NS_NQ_PFI_IM_CMD_OPER ||
                                  node.path.starts_with("/interfaces-state/");
            EXPECT_TRUE(node.on(Query::get).is_reached) << node.path;
            for (const Query query : {Query::get_config, Query::edit})
                EXPECT_EQ(node.on(query).is_reached, is_root || !is_state) << node.path;
        }
    }
}

// ---------------------------------------------------------------------------------------------
// Completeness

/// Why a node of the clients' model doesn't map.
enum class Reason {
    root,           ///< it stands for no node; its lists map
    no_native_path, ///< the native models have nothing like it: MAP_NOT_MAPPED
    manual_leaf,    ///< no plain copy of a native value: its manual leaf is still a stub
};

const std::map<std::string, Reason> not_mapped = {
    {"/interfaces", Reason::root},
    {"/interfaces/interface/type", Reason::no_native_path},
    {"/interfaces/interface/link-up-down-trap-enable", Reason::no_native_path},
    {"/interfaces-state", Reason::root},
    {"/interfaces-state/interface/type", Reason::no_native_path},
    {"/interfaces-state/interface/admin-status", Reason::no_native_path},
    {"/interfaces-state/interface/oper-status", Reason::no_native_path},
    {"/interfaces-state/interface/last-change", Reason::manual_leaf},
    {"/interfaces-state/interface/if-index", Reason::no_native_path},
    {"/interfaces-state/interface/higher-layer-if", Reason::no_native_path},
    {"/interfaces-state/interface/lower-layer-if", Reason::no_native_path},
    {"/interfaces-state/interface/speed", Reason::manual_leaf},
    {"/interfaces-state/interface/statistics/discontinuity-time", Reason::manual_leaf},
    {"/interfaces-state/interface/statistics/in-unicast-pkts", Reason::no_native_path},
    {"/interfaces-state/interface/statistics/out-unicast-pkts", Reason::no_native_path},
    {"/interfaces-state/interface/statistics/out-discards", Reason::no_native_path},
};

bool holds(Reason reason, const ExploredNode& node)
{
    switch (reason) {
    case Reason::root: return std::ranges::count(node.path, '/') == 1;
    case Reason::no_native_path: return node.on(Query::get).status == MAP_NOT_MAPPED;
    case Reason::manual_leaf: return node.called_by_hand.size() == 1;
    }
    return false;
}

/// A path with its model.
using Paths = std::set<std::pair<std::string, std::string>>;

/// What a node maps to on one query. A path with a literal comes along with another one and has no
/// counterpart: the `active` that goes with each `interface-name`.
Paths targets(const ozk::Outcome& outcome)
{
    Paths paths;
    for (const ozk::MappedPath& path : outcome.paths)
        if (path.value_from != ozk::ValueFrom::literal)
            paths.insert({path.ns_uri, path.path});
    return paths;
}

std::string shown(const Paths& paths)
{
    std::string text;
    for (const auto& [ns_uri, path] : paths)
        text += (text.empty() ? "" : ", ") + path;
    return text.empty() ? "nothing" : text;
}

/// What is not as it should be: every node of the clients' model maps in both directions to the
/// same native node, on each operation that reaches it, or stands in `not_mapped` for a reason that
/// holds.
Lines findings(const Tables& tables)
{
    Lines found;
    std::map<std::pair<std::string, std::string>, Paths> sources;
    std::map<const ExploredNode*, Paths> forward;
    for (const Table& table : tables) {
        for (const ExploredNode& node : table.nodes) {
            Paths& all = forward[&node];
            for (const ozk::Outcome& outcome : node.outcomes)
                all.merge(targets(outcome));
            for (const ozk::Outcome& outcome : node.outcomes)
                if (outcome.is_reached && targets(outcome) != all)
                    found.push_back(node.path + " maps to " + shown(all) + ", but not always");
            if (&table != &tables[0])
                for (const auto& target : all)
                    sources[target].insert({table.ns_uri, node.path});
        }
    }
    std::map<std::string, Reason> listed = not_mapped;
    for (const ExploredNode& node : tables[0].nodes) {
        const Paths& to   = forward[&node];
        const Paths from  = std::exchange(sources[{tables[0].ns_uri, node.path}], {});
        const auto reason = listed.find(node.path);
        if (reason == listed.end() && to.empty() && from.empty())
            found.push_back(node.path + " doesn't map");
        else if (to != from)
            found.push_back(node.path + " maps to " + shown(to) + ", but from " + shown(from));
        else if (reason != listed.end() && (!to.empty() || !holds(reason->second, node)))
            found.push_back(node.path + " is no longer what keeps it from mapping");
        if (reason != listed.end())
            listed.erase(reason);
    }
    for (const auto& [path, reason] : listed)
        found.push_back(path + " is unknown");
    for (const auto& [target, natives] : sources)
        if (!natives.empty())
            found.push_back(shown(natives) + " maps to " + target.second + ", which is unknown");
    return found;
}

TEST(Completeness, EveryNodeOfTheClientsModelMapsBothWaysOrIsKnownNotTo)
{
    EXPECT_EQ(findings(explore(YMAP_LIBRARY)), Lines{});
}

// A library in which a few functions were replaced by ones that map somewhere else.
TEST(Completeness, FindsWhatFunctionsByHandHaveBroken)
{
    const std::string configurations = "/interface-configurations/interface-configuration";
    EXPECT_EQ(findings(explore(YMAP_REPLACED_LIBRARY)),
              (Lines{"/interfaces maps to /container, but from nothing",
                     "/interfaces/interface maps to /list, but from " + configurations,
                     "/interfaces/interface/type maps to /leaf, but from nothing"}));
}

// ---------------------------------------------------------------------------------------------
// The command

TEST(TableCommand, DocumentIsUpToDate)
{
    const test::Outcome table = test::run_ymap("table --format markdown");
    EXPECT_EQ(table.status, 0);
    EXPECT_TRUE(table.out == test::read_file(YMAP_MAPPING_PAGE))
        << "docs/mapping.md is stale: write the output of `ymap table --format markdown` to it";
}

TEST(TableCommand, FiltersAndFormats)
{
    const std::string macs = "/interfaces/interface-nq/interface/mac-address";
    const std::string row  = "nq-pfi-im-cmd-oper," + macs +
                            "/address,leaf,get,MAP_OK,generated,if:/interfaces-state/interface/"
                            "phys-address = value,ymap_qi_ietf_if_brelviknqpfiimcmdoper_leaf_lvla_"
                            "interfaces_macaddress_address\n";
    const std::string csv_head = "model,node,kind,gate,status,written,maps to,handler\n";
    const struct {
        const char* name;
        std::string arguments;
        int status;
        std::string text;
    } cases[] = {
        {"mapped nodes below a path", "--mapped --format csv " + macs, 0, csv_head + row},
        {"a path with a slash behind it", "--mapped --format csv " + macs + "/", 0, csv_head + row},
        {"nothing below maps", "--mapped --format csv " + macs + "/../x 2>&1", 2,
         "ymap: the map library has no node '" + macs + "/../x'\n"},
        {"no part of a tag", "/interfaces/interface-n 2>&1", 2,
         "ymap: the map library has no node '/interfaces/interface-n'\n"},
        {"no mapped node", "--mapped --format csv /global-interface-configuration", 0, csv_head},
        {"a function by hand",
         "--format csv --library '" YMAP_REPLACED_LIBRARY "' /interfaces/interface/type", 0,
         csv_head + "if,/interfaces/interface/type,leaf,-,MAP_OK,by hand,nq-ifmgr-cfg:/leaf,"
                    "ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfaces_interface_type\n"},
        {"text", "/interfaces/interface/type", 0,
         "MODEL  NODE                        KIND  GATE  STATUS               WRITTEN    MAPS TO  "
         "HANDLER\n"
         "if     /interfaces/interface/type  leaf  -     MAP_NOT_MAPPED (51)  generated  -        "
         "ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfaces_interface_type\n"},
    };
    for (const auto& c : cases) {
        const test::Outcome outcome = test::run_ymap("table " + c.arguments);
        EXPECT_EQ(outcome.status, c.status) << c.name;
        EXPECT_EQ(outcome.out, c.text) << c.name;
    }
}

} // namespace
