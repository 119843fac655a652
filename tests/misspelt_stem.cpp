// A walker with a row whose handler nobody defines: it compiles, and its link must fail.

#include "ymap_walkers.h"

using namespace ymap;

namespace {

struct Ports {
    static constexpr const char* ns_uri  = "urn:example:ports";
    static constexpr Direction direction = Direction::to_ietf;
    static constexpr bool gated          = false;
    static constexpr bool whole          = false;
};

} // namespace

#define YMAP_NAME(KIND, STEM) ymap_x_##KIND##STEM

extern "C" {
YMAP_EXPORT OzkMapFunction ymap_x_lvla_ports;

YMAP_CONTAINER_HANDLER(ymap_x_cont_lvla_ports, EmptyHandler);
YMAP_HANDLER(ymap_x_leaf_lvla_ports_label, EmptyHandler);
YMAP_CONTAINER(Ports, lvla_ports, YMAP_LEAF("label", lvla_ports_labbel));
YMAP_HANDLER(ymap_x_lvla_ports_parse_augments, EmptyHandler);
}
