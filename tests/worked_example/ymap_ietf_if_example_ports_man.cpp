// What a person wrote for the model example-ports, the worked example of docs/maintaining.md: the
// handler of a port's label, which leaves out labels that only say "unused".

#include "ymap_handlers.h"

#include <cstring>

using namespace ymap;

extern "C" {

YMAP_EXPORT OzkMapFunction ymap_qi_ietf_if_exampleports_leaf_lvla_ports_port_label;

uint32_t ymap_qi_ietf_if_exampleports_leaf_lvla_ports_port_label(OzkMapCtx*        ctx,
                                                                 const OzkMapNode* node,
                                                                 OzkDataTree*      tree)
{
    static FrameSites sites;

    enter(ctx, YMAP_HERE, sites.start);
    if (node == nullptr || tree == nullptr)
        return refuse_arguments(ctx, YMAP_HERE, sites.invalid_arguments);
    uint32_t status = MAP_OK;
    if (node->value == nullptr || std::strcmp(node->value, "unused") != 0) {
        const Target description{NS_IETF_INTERFACES, "/interfaces/interface/description"};
        status = add_path(ctx, tree, description, node->value, nullptr);
    }
    return leave(ctx, YMAP_HERE, sites.end, status);
}
}
