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
    return in_frame(ctx, node, tree, {__func__, __LINE__}, sites, [&]() -> uint32_t {
        if (node->value != nullptr && std::strcmp(node->value, "unused") == 0)
            return MAP_OK;
        const Target description{NS_IETF_INTERFACES, "/interfaces/interface/description"};
        return add_path(ctx, tree, description, node->value, nullptr);
    });
}
}
