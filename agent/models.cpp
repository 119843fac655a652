// The tables of the models.

#include "models.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace ymap::agent {

namespace {

constexpr Module all_modules[] = {
    {NS_IETF_INTERFACES, "ietf-interfaces", "if", "2014-05-08", true}, // RFC 7223
    {NS_IETF_INTERFACES_ACL_EXT, "brelvik-ietf-interfaces-acl-ext", "acl-ext", "", true},
    {NS_NQ_IFMGR_CFG, "Brelvik-NQ-ifmgr-cfg", "nq-ifmgr-cfg", "", false},
    {NS_NQ_PFI_IM_CMD_OPER, "Brelvik-NQ-pfi-im-cmd-oper", "nq-pfi-im-cmd-oper", "", false},
    {NS_NQ_IP_PFILTER_CFG, "Brelvik-NQ-ip-pfilter-cfg", "nq-ip-pfilter-cfg", "", false},
};

constexpr bool clients = true, native = false, state = true, configuration = false;

constexpr ModelRoot all_roots[] = {
    {NS_IETF_INTERFACES, "interfaces", "ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces", clients,
     configuration},
    {NS_IETF_INTERFACES, "interfaces-state", "ymap_iq_ietf_if_ietfinterfaces_lvla_interfacesstate",
     clients, state},
    {NS_NQ_IFMGR_CFG, "global-interface-configuration",
     "ymap_qi_ietf_if_brelviknqifmgrcfg_lvla_globalinterfaceconfiguration", native, configuration},
    {NS_NQ_IFMGR_CFG, "interface-configurations",
     "ymap_qi_ietf_if_brelviknqifmgrcfg_lvla_interfaceconfigurations", native, configuration},
    {NS_NQ_PFI_IM_CMD_OPER, "interfaces", "ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces",
     native, state},
};

constexpr const char* name_key[]           = {"name"};
constexpr const char* configuration_keys[] = {"active", "interface-name"};
constexpr const char* owner_key[]          = {"owner"};
constexpr const char* interface_name_key[] = {"interface-name"};

/// Lists that aren't here can be read, but not edited.
constexpr data::ListKeys all_keys[] = {
    {NS_IETF_INTERFACES, "/interfaces/interface", name_key},
    {NS_IETF_INTERFACES, "/interfaces-state/interface", name_key},
    {NS_NQ_IFMGR_CFG, "/interface-configurations/interface-configuration", configuration_keys},
    {NS_NQ_IFMGR_CFG, "/interface-configurations/interface-configuration/mtus/mtu", owner_key},
    {NS_NQ_PFI_IM_CMD_OPER, "/interfaces/interface-nq/interface", interface_name_key},
};

constexpr std::string_view all_spellings[] = {"admin-status",  "oper-status",  "last-change",
                                              "if-index",      "phys-address", "higher-layer-if",
                                              "lower-layer-if"};

/// Leaves of ietf-interfaces (RFC 7223, 5) that are no strings; counters of 64 bits are strings as
/// well (RFC 7951, 6.1). The types of native leaves aren't known.
constexpr std::pair<std::string_view, LeafType> leaf_types[] = {
    {"enabled", LeafType::boolean},           {"if-index", LeafType::integer},
    {"in-discards", LeafType::integer},       {"in-errors", LeafType::integer},
    {"in-unknown-protos", LeafType::integer}, {"out-discards", LeafType::integer},
    {"out-errors", LeafType::integer},
};

} // namespace

std::span<const Module> modules()
{
    return all_modules;
}

const Module* find_module(std::string_view ns_uri)
{
    const auto* found = std::ranges::find(all_modules, ns_uri, &Module::ns_uri);
    return found != std::end(all_modules) ? found : nullptr;
}

std::string_view prefix_of(std::string_view ns_uri)
{
    const Module* module = find_module(ns_uri);
    return module != nullptr ? module->prefix : ns_uri;
}

const char* namespace_of(std::string_view module)
{
    const auto* found = std::ranges::find(all_modules, module, &Module::name);
    return found != std::end(all_modules) ? found->ns_uri : nullptr;
}

std::string_view module_of(std::string_view ns_uri)
{
    const Module* module = find_module(ns_uri);
    return module != nullptr ? module->name : ns_uri.substr(ns_uri.find_last_of("/:") + 1);
}

std::span<const ModelRoot> model_roots()
{
    return all_roots;
}

const ModelRoot* find_root(std::string_view ns_uri, std::string_view name)
{
    const auto* found = std::ranges::find_if(all_roots, [&](const ModelRoot& root) {
        return root.ns_uri == ns_uri && root.name == name;
    });
    return found != std::end(all_roots) ? found : nullptr;
}

const ModelRoot* find_root(const OzkMapNode& node)
{
    return find_root(ozk::text(node.ns_uri), ozk::text(node.tag));
}

std::span<const data::ListKeys> list_keys()
{
    return all_keys;
}

std::span<const std::string_view> spellings()
{
    return all_spellings;
}

LeafType leaf_type(const OzkMapNode& leaf)
{
    if (ozk::text(leaf.ns_uri) != NS_IETF_INTERFACES)
        return LeafType::unknown;
    const auto* found = std::ranges::find(leaf_types, ozk::text(leaf.tag),
                                          &std::pair<std::string_view, LeafType>::first);
    return found != std::end(leaf_types) ? found->second : LeafType::string;
}

} // namespace ymap::agent
