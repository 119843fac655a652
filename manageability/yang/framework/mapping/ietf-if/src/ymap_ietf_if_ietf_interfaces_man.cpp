// What a person wrote for the model ietf-interfaces: its manual leaves, whose native twins are no
// plain copies of a path, and the augment hook of /interfaces/interface, which takes the place of
// the default hook of its name.

#include "ymap_ietf_if_ietf_interfaces_man.h"

using namespace ymap;

// The map of the model that augments /interfaces/interface with access lists. A sibling library
// exports it; the first call binds it.
extern "C" OzkMapFunction
    ymap_iq_ietf_interfaces_brelvikietfinterfacesaclext_augment_lvla_interface;

// clang-format off

// Manual leaves. They add nothing so far; to give one a mapping, put a function of the same name in
// the row's place.
YMAP_MAP_FUNCTION(ymap_iq_ietf_if_ietfinterfaces_man_leaf_lvla_interfacesstate_interface_lastchange, EmptyHandler);
YMAP_MAP_FUNCTION(ymap_iq_ietf_if_ietfinterfaces_man_leaf_lvla_interfacesstate_interface_speed, EmptyHandler);
YMAP_MAP_FUNCTION(ymap_iq_ietf_if_ietfinterfaces_man_leaf_lvla_interfacesstate_statistics_discontinuitytime, EmptyHandler);

// clang-format on

/// Hands the children of an entry that belong to other models to the map of the access lists: those
/// of its own namespace on any operation, and on a read all of them, so that an entry which a read
/// selects whole selects its access lists as well. A read therefore reaches the map twice with a
/// node of its own; the later status counts.
extern "C" uint32_t ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces_interface_parse_augments(
    OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree* tree)
{
    static FrameSites sites;

    enter(ctx, YMAP_HERE, sites.start);
    if (node == nullptr || tree == nullptr)
        return refuse_arguments(ctx, YMAP_HERE, sites.invalid_arguments);
    uint32_t status = MAP_OK;
    if (ozk_map_do_these_match(NS_IETF_INTERFACES_ACL_EXT, node->ns_uri) != 0)
        status = ymap_iq_ietf_interfaces_brelvikietfinterfacesaclext_augment_lvla_interface(
            ctx, node, tree);
    if (is_read(ctx))
        status = ymap_iq_ietf_interfaces_brelvikietfinterfacesaclext_augment_lvla_interface(
            ctx, node, tree);
    return leave(ctx, YMAP_HERE, sites.end, status);
}
