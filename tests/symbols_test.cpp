// The exported table of the built library, as nm shows it: its names against the naming rule, and
// what it asks the process for.

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <set>

#include "schema.h"

namespace {

struct Symbol {
    char type = 0; ///< T: strong, W: weak, U: undefined
    std::string address;
};

std::map<std::string, Symbol> symbols()
{
    std::map<std::string, Symbol> found;
    FILE* nm = popen("nm -D --format=posix " YMAP_LIBRARY, "r");
    std::array<char, 512> name{}, type{}, address{}, line{};
    while (fgets(line.data(), line.size(), nm) != nullptr) {
        address[0] = '\0';
        sscanf(line.data(), "%511s %511s %511s", name.data(), type.data(), address.data());
        const std::string whole(name.data());
        found[whole.substr(0, whole.find('@'))] = {type[0], address.data()};
    }
    EXPECT_EQ(pclose(nm), 0);
    return found;
}

// A generated function has a strong name with "__" before it and a weak one without, which a strong
// one of a person's may replace; what a person wrote beside these has one strong name.
TEST(Symbols, ExportedTableIsWhatTheNamingRuleGives)
{
    std::map<std::string, Symbol> table = symbols();
    std::erase_if(table, [](const auto& each) { return each.second.type == 'U'; });

    std::set<std::string> expected;
    const auto one = [&](const std::string& name, char type) {
        expected.insert(name);
        EXPECT_EQ(table[name].type, type) << name;
    };
    const auto two = [&](const std::string& name, bool is_replaced) {
        one(name, is_replaced ? 'T' : 'W');
        one("__" + name, 'T');
        EXPECT_EQ(table[name].address != table["__" + name].address, is_replaced) << name;
    };
    for (const schema::Model& model : schema::models())
        for (const schema::Node& root : model.roots) {
            one(root.walker(), 'T');
            schema::for_each(root, [&](const schema::Node& node) {
                two(node.handler(), node.manual_handler);
                if (node.kind != schema::Kind::leaf)
                    two(node.augment_hook(), node.manual_augment_hook);
                if (node.manual_leaf)
                    one(node.prefix + "man_leaf_" + node.stem, 'T');
                if (node.when_hook)
                    one(node.handler() + "_handle_when", 'T');
            });
        }
    for (const auto& [name, symbol] : table)
        EXPECT_TRUE(expected.contains(name)) << name << " is exported beside the rule";
}

#ifndef YMAP_SANITIZED // a sanitizer brings its own runtime
// The framework, the siblings and, of libc, what assertions and lines need: no allocator, no file,
// no lock but that of stderr.
TEST(Symbols, Imports)
{
    std::set<std::string> imports;
    for (const auto& [name, symbol] : symbols())
        if (symbol.type == 'U')
            imports.insert(name);
    imports.erase("__stack_chk_guard"); // the canary of some processors, such as arm64
    const std::string filter =
        "ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvl%_interface_configuration";
    const auto filter_at = [&](const char* letter) {
        return std::string(filter).replace(filter.find('%'), 1, letter);
    };
    EXPECT_EQ(imports,
              (std::set<std::string>{
                  "ozk_map_add_to_node_hierarchy",
                  "ozk_map_remove_from_node_hierarchy",
                  "ozk_map_update_current_list_node",
                  "ozk_map_do_these_match",
                  "ozk_map_is_request_add",
                  "ozk_map_is_request_delete",
                  "ozk_map_datatree_add_path_flagged",
                  "ozk_strdup",
                  "ozk_debug_should_log",
                  "_tlm_dt_log_filter_adv",
                  "ret_nc_ozk_trace_index_incr",
                  "_lstrace",
                  "ymap_iq_ietf_interfaces_brelvikietfinterfacesaclext_augment_lvla_interface",
                  filter_at("a"),
                  filter_at("b"),
                  filter_at("c"),
                  "__stack_chk_fail",
                  "abort",
                  "flockfile",
                  "fprintf",
                  "snprintf",
                  "stderr"}));
}
#endif

} // namespace
