// The model Brelvik-NQ-ifmgr-cfg as it is walked, in schema pre-order: each walker with its child
// table, its default augment hook, then its children. The framework enters by the two root walkers;
// a hook of the _man source may take a default hook's place.

#include "ymap_ietf_if.h"
#include "ymap_walkers.h"

using namespace ymap;

namespace {

/// Configuration data, which every operation reaches.
struct NativeConfiguration {
    static constexpr const char* ns_uri  = NS_NQ_IFMGR_CFG;
    static constexpr Direction direction = Direction::to_ietf;
    static constexpr bool gated          = false;
    static constexpr bool whole          = false;
};

} // namespace

#define YMAP_NAME(KIND, STEM) ymap_qi_ietf_if_brelviknqifmgrcfg_##KIND##STEM

// clang-format off

extern "C" {

// /global-interface-configuration
YMAP_CONTAINER(NativeConfiguration, lvla_globalinterfaceconfiguration,
    YMAP_LEAF ("link-status", lvla_globalinterfaceconfiguration_linkstatus));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqifmgrcfg_lvla_globalinterfaceconfiguration_parse_augments, EmptyHandler);

// /interface-configurations
YMAP_CONTAINER(NativeConfiguration, lvla_interfaceconfigurations,
    YMAP_CHILD("interface-configuration", lvla_interfaceconfigurations_interfaceconfiguration));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqifmgrcfg_lvla_interfaceconfigurations_parse_augments, EmptyHandler);

// /interface-configurations/interface-configuration
YMAP_LIST(NativeConfiguration, lvla_interfaceconfigurations_interfaceconfiguration, "/interface-configurations/interface-configuration",
    YMAP_CHILD("dampening",                   lvla_interfaceconfigurations_interfaceconfiguration_dampening),
    YMAP_CHILD("mtus",                        lvla_interfaceconfigurations_interfaceconfiguration_mtus),
    YMAP_CHILD("encapsulation",               lvla_interfaceconfigurations_interfaceconfiguration_encapsulation),
    YMAP_LEAF ("shutdown",                    lvla_interfaceconfigurations_interfaceconfiguration_shutdown),
    YMAP_LEAF ("interface-virtual",           lvla_interfaceconfigurations_interfaceconfiguration_interfacevirtual),
    YMAP_LEAF ("secondary-admin-state",       lvla_interfaceconfigurations_interfaceconfiguration_secondaryadminstate),
    YMAP_LEAF ("interface-mode-non-physical", lvla_interfaceconfigurations_interfaceconfiguration_interfacemodenonphysical),
    YMAP_LEAF ("bandwidth",                   lvla_interfaceconfigurations_interfaceconfiguration_bandwidth),
    YMAP_LEAF ("link-status",                 lvla_interfaceconfigurations_interfaceconfiguration_linkstatus),
    YMAP_LEAF ("description",                 lvla_interfaceconfigurations_interfaceconfiguration_description),
    YMAP_LEAF ("active",                      lvla_interfaceconfigurations_interfaceconfiguration_active),
    YMAP_LEAF ("interface-name",              lvla_interfaceconfigurations_interfaceconfiguration_interfacename));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_parse_augments, EmptyHandler);

// /interface-configurations/interface-configuration/dampening
YMAP_CONTAINER(NativeConfiguration, lvla_interfaceconfigurations_interfaceconfiguration_dampening,
    YMAP_LEAF ("args",               lvla_interfaceconfigurations_dampening_args),
    YMAP_LEAF ("half-life",          lvla_interfaceconfigurations_dampening_halflife),
    YMAP_LEAF ("reuse-threshold",    lvla_interfaceconfigurations_dampening_reusethreshold),
    YMAP_LEAF ("suppress-threshold", lvla_interfaceconfigurations_dampening_suppressthreshold),
    YMAP_LEAF ("suppress-time",      lvla_interfaceconfigurations_dampening_suppresstime),
    YMAP_LEAF ("restart-penalty",    lvla_interfaceconfigurations_dampening_restartpenalty));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_dampening_parse_augments, EmptyHandler);

// /interface-configurations/interface-configuration/mtus
YMAP_CONTAINER(NativeConfiguration, lvla_interfaceconfigurations_interfaceconfiguration_mtus,
    YMAP_CHILD("mtu", lvla_interfaceconfigurations_mtus_mtu));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_mtus_parse_augments, EmptyHandler);

// /interface-configurations/interface-configuration/mtus/mtu
YMAP_LIST(NativeConfiguration, lvla_interfaceconfigurations_mtus_mtu, "/interface-configurations/interface-configuration/mtus/mtu",
    YMAP_LEAF ("owner", lvla_interfaceconfigurations_mtu_owner),
    YMAP_LEAF ("mtu",   lvla_interfaceconfigurations_mtu_mtu));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqifmgrcfg_lvla_interfaceconfigurations_mtus_mtu_parse_augments, EmptyHandler);

// /interface-configurations/interface-configuration/encapsulation
YMAP_CONTAINER(NativeConfiguration, lvla_interfaceconfigurations_interfaceconfiguration_encapsulation,
    YMAP_LEAF ("encapsulation",       lvla_interfaceconfigurations_encapsulation_encapsulation),
    YMAP_LEAF ("capsulation-options", lvla_interfaceconfigurations_encapsulation_capsulationoptions));
YMAP_HANDLER(ymap_qi_ietf_if_brelviknqifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_encapsulation_parse_augments, EmptyHandler);

} // extern "C"

// clang-format on

#undef YMAP_NAME
