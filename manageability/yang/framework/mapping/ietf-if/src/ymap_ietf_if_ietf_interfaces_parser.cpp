// The model ietf-interfaces (RFC 7223) as it is walked, in schema pre-order: each walker with its
// child table, its default augment hook, then its children. The framework enters by the two root
// walkers; a hook of the _man source may take a default hook's place.

#include "ymap_ietf_if.h"
#include "ymap_walkers.h"

using namespace ymap;

namespace {

/// Configuration data, which every operation reaches.
struct Configuration {
    static constexpr const char* ns_uri  = NS_IETF_INTERFACES;
    static constexpr Direction direction = Direction::from_ietf;
    static constexpr bool gated          = false;
    static constexpr bool whole          = false;
};

/// State data: MAP_OP_GET alone reaches it.
struct State {
    static constexpr const char* ns_uri  = NS_IETF_INTERFACES;
    static constexpr Direction direction = Direction::from_ietf;
    static constexpr bool gated          = true;
    static constexpr bool whole          = true;
};

} // namespace

#define YMAP_NAME(KIND, STEM) ymap_iq_ietf_if_ietfinterfaces_##KIND##STEM

// clang-format off

extern "C" {

// /interfaces
YMAP_CONTAINER(Configuration, lvla_interfaces,
    YMAP_CHILD("interface", lvla_interfaces_interface));
YMAP_HANDLER(ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces_parse_augments, RefuseAdd);

// /interfaces/interface
YMAP_LIST(Configuration, lvla_interfaces_interface, "/interfaces/interface",
    list_key(YMAP_LEAF("name",             lvla_interfaces_interface_name)),
    YMAP_LEAF ("description",              lvla_interfaces_interface_description),
    YMAP_LEAF ("type",                     lvla_interfaces_interface_type),
    YMAP_LEAF ("enabled",                  lvla_interfaces_interface_enabled),
    YMAP_LEAF ("link-up-down-trap-enable", lvla_interfaces_interface_linkupdowntrapenable));
YMAP_HANDLER(ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces_interface_parse_augments, RefuseAdd);

// /interfaces-state
YMAP_CONTAINER(State, lvla_interfacesstate,
    YMAP_CHILD("interface", lvla_interfacesstate_interface));
YMAP_HANDLER(ymap_iq_ietf_if_ietfinterfaces_lvla_interfacesstate_parse_augments, RefuseAdd);

// /interfaces-state/interface
YMAP_LIST(State, lvla_interfacesstate_interface, "/interfaces-state/interface",
    YMAP_LEAF ("name",            lvla_interfacesstate_interface_name),
    YMAP_LEAF ("type",            lvla_interfacesstate_interface_type),
    YMAP_LEAF ("admin-status",    lvla_interfacesstate_interface_adminstatus),
    YMAP_LEAF ("oper-status",     lvla_interfacesstate_interface_operstatus),
    YMAP_LEAF ("last-change",     lvla_interfacesstate_interface_lastchange),
    YMAP_LEAF ("if-index",        lvla_interfacesstate_interface_ifindex),
    YMAP_LEAF ("phys-address",    lvla_interfacesstate_interface_physaddress),
    YMAP_LEAF ("higher-layer-if", lvla_interfacesstate_interface_higherlayerif),
    YMAP_LEAF ("lower-layer-if",  lvla_interfacesstate_interface_lowerlayerif),
    YMAP_LEAF ("speed",           lvla_interfacesstate_interface_speed),
    YMAP_CHILD("statistics",      lvla_interfacesstate_interface_statistics));
YMAP_HANDLER(ymap_iq_ietf_if_ietfinterfaces_lvla_interfacesstate_interface_parse_augments, RefuseAdd);

// /interfaces-state/interface/statistics
YMAP_CONTAINER(State, lvla_interfacesstate_interface_statistics,
    YMAP_LEAF ("discontinuity-time", lvla_interfacesstate_statistics_discontinuitytime),
    YMAP_LEAF ("in-octets",          lvla_interfacesstate_statistics_inoctets),
    YMAP_LEAF ("in-unicast-pkts",    lvla_interfacesstate_statistics_inunicastpkts),
    YMAP_LEAF ("in-broadcast-pkts",  lvla_interfacesstate_statistics_inbroadcastpkts),
    YMAP_LEAF ("in-multicast-pkts",  lvla_interfacesstate_statistics_inmulticastpkts),
    YMAP_LEAF ("in-discards",        lvla_interfacesstate_statistics_indiscards),
    YMAP_LEAF ("in-errors",          lvla_interfacesstate_statistics_inerrors),
    YMAP_LEAF ("in-unknown-protos",  lvla_interfacesstate_statistics_inunknownprotos),
    YMAP_LEAF ("out-octets",         lvla_interfacesstate_statistics_outoctets),
    YMAP_LEAF ("out-unicast-pkts",   lvla_interfacesstate_statistics_outunicastpkts),
    YMAP_LEAF ("out-broadcast-pkts", lvla_interfacesstate_statistics_outbroadcastpkts),
    YMAP_LEAF ("out-multicast-pkts", lvla_interfacesstate_statistics_outmulticastpkts),
    YMAP_LEAF ("out-discards",       lvla_interfacesstate_statistics_outdiscards),
    YMAP_LEAF ("out-errors",         lvla_interfacesstate_statistics_outerrors));
YMAP_HANDLER(ymap_iq_ietf_if_ietfinterfaces_lvla_interfacesstate_interface_statistics_parse_augments, RefuseAdd);

} // extern "C"

// clang-format on

#undef YMAP_NAME
