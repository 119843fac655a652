// Handlers of the model Brelvik-NQ-ifmgr-cfg, the router's interface configuration, on the way to
// /interfaces of ietf-interfaces. One row for each node, in schema pre-order: the handler's plain
// name and its shape. A strong function of the plain name in the _man source takes the place of a
// row's.

#include "ymap_ietf_if_brelvik_nq_ifmgr_cfg_man.h"

using namespace ymap;

// clang-format off

// /global-interface-configuration
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqifmgrcfg_cont_lvla_globalinterfaceconfiguration,            EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqifmgrcfg_leaf_lvla_globalinterfaceconfiguration_linkstatus, EmptyHandler);

// /interface-configurations
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqifmgrcfg_cont_lvla_interfaceconfigurations, EmptyHandler);

// /interface-configurations/interface-configuration
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqifmgrcfg_list_lvla_interfaceconfigurations_interfaceconfiguration, PathList, {NS_IETF_INTERFACES, "/interfaces/interface"});

// /interface-configurations/interface-configuration/dampening
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqifmgrcfg_cont_lvla_interfaceconfigurations_interfaceconfiguration_dampening, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqifmgrcfg_leaf_lvla_interfaceconfigurations_dampening_args,                   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqifmgrcfg_leaf_lvla_interfaceconfigurations_dampening_halflife,               EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqifmgrcfg_leaf_lvla_interfaceconfigurations_dampening_reusethreshold,         EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqifmgrcfg_leaf_lvla_interfaceconfigurations_dampening_suppressthreshold,      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqifmgrcfg_leaf_lvla_interfaceconfigurations_dampening_suppresstime,           EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqifmgrcfg_leaf_lvla_interfaceconfigurations_dampening_restartpenalty,         EmptyHandler);

// /interface-configurations/interface-configuration/mtus
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqifmgrcfg_cont_lvla_interfaceconfigurations_interfaceconfiguration_mtus, EmptyHandler);

// /interface-configurations/interface-configuration/mtus/mtu
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqifmgrcfg_list_lvla_interfaceconfigurations_mtus_mtu,  BareList);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqifmgrcfg_leaf_lvla_interfaceconfigurations_mtu_owner, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqifmgrcfg_leaf_lvla_interfaceconfigurations_mtu_mtu,   EmptyHandler);

// /interface-configurations/interface-configuration/encapsulation
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_brelviknqifmgrcfg_cont_lvla_interfaceconfigurations_interfaceconfiguration_encapsulation, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqifmgrcfg_leaf_lvla_interfaceconfigurations_encapsulation_encapsulation,          EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqifmgrcfg_leaf_lvla_interfaceconfigurations_encapsulation_capsulationoptions,     EmptyHandler);

// /interface-configurations/interface-configuration (continued)
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqifmgrcfg_leaf_lvla_interfaceconfigurations_interfaceconfiguration_shutdown,                 MappedLeaf, {NS_IETF_INTERFACES, "/interfaces/interface/enabled"});
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqifmgrcfg_leaf_lvla_interfaceconfigurations_interfaceconfiguration_interfacevirtual,         EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqifmgrcfg_leaf_lvla_interfaceconfigurations_interfaceconfiguration_secondaryadminstate,      EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqifmgrcfg_leaf_lvla_interfaceconfigurations_interfaceconfiguration_interfacemodenonphysical, EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqifmgrcfg_leaf_lvla_interfaceconfigurations_interfaceconfiguration_bandwidth,                EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqifmgrcfg_leaf_lvla_interfaceconfigurations_interfaceconfiguration_linkstatus,               EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqifmgrcfg_leaf_lvla_interfaceconfigurations_interfaceconfiguration_description,              MappedLeaf, {NS_IETF_INTERFACES, "/interfaces/interface/description"});
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqifmgrcfg_leaf_lvla_interfaceconfigurations_interfaceconfiguration_active,                   EmptyHandler);
YMAP_HANDLER          (ymap_qi_ietf_if_brelviknqifmgrcfg_leaf_lvla_interfaceconfigurations_interfaceconfiguration_interfacename,            KeyLeaf, {NS_IETF_INTERFACES, "/interfaces/interface/name"});
