// Handlers of the model ietf-interfaces (RFC 7223): /interfaces becomes the router's interface
// configuration, /interfaces-state its operational interface state. One row for each node, in
// schema pre-order: the handler's plain name and its shape. A strong function of the plain name in
// the _man source takes the place of a row's.

#include "ymap_handlers.h"
#include "ymap_ietf_if_ietf_interfaces_man.h"

using namespace ymap;

namespace {

/// The key of /interfaces/interface. Its native twin comes with the literal leaf `active`, which
/// the router wants with each entry; only the add of that one counts.
uint32_t interface_name(OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree* tree)
{
    const Target name{NS_NQ_IFMGR_CFG,
                      "/interface-configurations/interface-configuration/interface-name"};
    const Target active{NS_NQ_IFMGR_CFG,
                        "/interface-configurations/interface-configuration/active"};
    const OzkMapNode* ref_node = is_read(ctx) ? nullptr : node;
    add_path(ctx, tree, name, node->value, ref_node);
    return add_path(ctx, tree, active, "act", ref_node);
}
using InterfaceName = InFrame<interface_name, leaf>;

} // namespace

// clang-format off

// /interfaces
YMAP_CONTAINER_HANDLER(ymap_iq_ietf_if_ietfinterfaces_cont_lvla_interfaces, EmptyHandler);

// /interfaces/interface
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_list_lvla_interfaces_interface,                      PathList, {NS_NQ_IFMGR_CFG, "/interface-configurations/interface-configuration"});
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfaces_interface_name,                 InterfaceName);
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfaces_interface_description,          ConfigLeaf, {NS_NQ_IFMGR_CFG, "/interface-configurations/interface-configuration/description"});
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfaces_interface_type,                 UnmappedLeaf);
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfaces_interface_enabled,              ConfigLeaf, {NS_NQ_IFMGR_CFG, "/interface-configurations/interface-configuration/shutdown"});
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfaces_interface_linkupdowntrapenable, UnmappedLeaf);

// /interfaces-state
YMAP_CONTAINER_HANDLER(ymap_iq_ietf_if_ietfinterfaces_cont_lvla_interfacesstate, EmptyHandler);

// /interfaces-state/interface
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_list_lvla_interfacesstate_interface,               PathList, {NS_NQ_PFI_IM_CMD_OPER, "/interfaces/interface-nq/interface"});
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfacesstate_interface_name,          StateKeyLeaf, {NS_NQ_PFI_IM_CMD_OPER, "/interfaces/interface-nq/interface/interface-name"});
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfacesstate_interface_type,          UnmappedLeaf);
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfacesstate_interface_adminstatus,   UnmappedLeaf);
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfacesstate_interface_operstatus,    UnmappedLeaf);
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfacesstate_interface_lastchange,    ManualLeafCaller, ymap_iq_ietf_if_ietfinterfaces_man_leaf_lvla_interfacesstate_interface_lastchange);
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfacesstate_interface_ifindex,       UnmappedLeaf);
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfacesstate_interface_physaddress,   StateLeaf, {NS_NQ_PFI_IM_CMD_OPER, "/interfaces/interface-nq/interface/mac-address/address"});
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfacesstate_interface_higherlayerif, UnmappedLeaf);
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfacesstate_interface_lowerlayerif,  UnmappedLeaf);
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfacesstate_interface_speed,         ManualLeafCaller, ymap_iq_ietf_if_ietfinterfaces_man_leaf_lvla_interfacesstate_interface_speed);

// /interfaces-state/interface/statistics
YMAP_CONTAINER_HANDLER(ymap_iq_ietf_if_ietfinterfaces_cont_lvla_interfacesstate_interface_statistics,         WholeContainer, {NS_NQ_PFI_IM_CMD_OPER, "/interfaces/interface-nq/interface/interface-statistics"});
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfacesstate_statistics_discontinuitytime, ManualLeafCaller, ymap_iq_ietf_if_ietfinterfaces_man_leaf_lvla_interfacesstate_statistics_discontinuitytime);
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfacesstate_statistics_inoctets,          StateLeaf, {NS_NQ_PFI_IM_CMD_OPER, "/interfaces/interface-nq/interface/interface-statistics/full-interface-stats/bytes-received"});
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfacesstate_statistics_inunicastpkts,     UnmappedLeaf);
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfacesstate_statistics_inbroadcastpkts,   StateLeaf, {NS_NQ_PFI_IM_CMD_OPER, "/interfaces/interface-nq/interface/interface-statistics/full-interface-stats/broadcast-packets-received"});
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfacesstate_statistics_inmulticastpkts,   StateLeaf, {NS_NQ_PFI_IM_CMD_OPER, "/interfaces/interface-nq/interface/interface-statistics/full-interface-stats/multicast-packets-received"});
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfacesstate_statistics_indiscards,        StateLeaf, {NS_NQ_PFI_IM_CMD_OPER, "/interfaces/interface-nq/interface/interface-statistics/full-interface-stats/input-ignored-packets"});
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfacesstate_statistics_inerrors,          StateLeaf, {NS_NQ_PFI_IM_CMD_OPER, "/interfaces/interface-nq/interface/interface-statistics/full-interface-stats/input-errors"});
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfacesstate_statistics_inunknownprotos,   StateLeaf, {NS_NQ_PFI_IM_CMD_OPER, "/interfaces/interface-nq/interface/interface-statistics/full-interface-stats/unknown-protocol-packets-received"});
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfacesstate_statistics_outoctets,         StateLeaf, {NS_NQ_PFI_IM_CMD_OPER, "/interfaces/interface-nq/interface/interface-statistics/full-interface-stats/bytes-sent"});
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfacesstate_statistics_outunicastpkts,    UnmappedLeaf);
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfacesstate_statistics_outbroadcastpkts,  StateLeaf, {NS_NQ_PFI_IM_CMD_OPER, "/interfaces/interface-nq/interface/interface-statistics/full-interface-stats/broadcast-packets-sent"});
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfacesstate_statistics_outmulticastpkts,  StateLeaf, {NS_NQ_PFI_IM_CMD_OPER, "/interfaces/interface-nq/interface/interface-statistics/full-interface-stats/multicast-packets-sent"});
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfacesstate_statistics_outdiscards,       UnmappedLeaf);
YMAP_HANDLER          (ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfacesstate_statistics_outerrors,         StateLeaf, {NS_NQ_PFI_IM_CMD_OPER, "/interfaces/interface-nq/interface/interface-statistics/basic-interface-stats/output-errors"});
