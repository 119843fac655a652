// What a maintainer links into the library to take the place of generated functions: one of each
// kind. Linked with the library's own objects it makes the library that loading_test loads.

#include "ymap_handlers.h"

using namespace ymap;

namespace {

/// A path that no generated function adds, so that a test sees who was called.
uint32_t add_mark(OzkMapCtx* ctx, OzkDataTree* tree, Target target)
{
    return add_path(ctx, tree, target, nullptr, nullptr);
}

} // namespace

extern "C" {

YMAP_EXPORT OzkMapContainerFunction ymap_iq_ietf_if_ietfinterfaces_cont_lvla_interfaces;
YMAP_EXPORT OzkMapFunction ymap_iq_ietf_if_ietfinterfaces_list_lvla_interfaces_interface,
    ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfaces_interface_type,
    ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces_parse_augments;

uint32_t ymap_iq_ietf_if_ietfinterfaces_cont_lvla_interfaces(OzkMapCtx* ctx, const OzkMapNode*,
                                                             uint32_t, OzkDataTree* tree)
{
    return add_mark(ctx, tree, {NS_NQ_IFMGR_CFG, "/container"});
}

uint32_t ymap_iq_ietf_if_ietfinterfaces_list_lvla_interfaces_interface(OzkMapCtx* ctx,
                                                                       const OzkMapNode*,
                                                                       OzkDataTree* tree)
{
    return add_mark(ctx, tree, {NS_NQ_IFMGR_CFG, "/list"});
}

uint32_t ymap_iq_ietf_if_ietfinterfaces_leaf_lvla_interfaces_interface_type(OzkMapCtx* ctx,
                                                                            const OzkMapNode*,
                                                                            OzkDataTree* tree)
{
    add_mark(ctx, tree, {NS_NQ_IFMGR_CFG, "/leaf"});
    add_mark(ctx, tree, {NS_NQ_IFMGR_CFG, "/again"});
    return add_mark(ctx, tree, {NS_NQ_IFMGR_CFG, "/again"});
}

uint32_t ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces_parse_augments(OzkMapCtx* ctx,
                                                                       const OzkMapNode*,
                                                                       OzkDataTree* tree)
{
    return add_mark(ctx, tree, {NS_NQ_IFMGR_CFG, "/hook"});
}
}
