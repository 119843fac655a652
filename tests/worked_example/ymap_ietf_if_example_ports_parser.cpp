// The model example-ports as it is walked, the worked example of docs/maintaining.md.

#include "ymap_walkers.h"

using namespace ymap;

namespace {

/// Configuration data, which every operation reaches.
struct Ports {
    static constexpr const char* ns_uri  = "urn:example:ports";
    static constexpr Direction direction = Direction::to_ietf;
    static constexpr bool gated          = false;
    static constexpr bool whole          = false;
};

} // namespace

#define YMAP_NAME(KIND, STEM) ymap_qi_ietf_if_exampleports_##KIND##STEM

// clang-format off

extern "C" {

/// /ports of example-ports, to paths of /interfaces of ietf-interfaces.
YMAP_EXPORT OzkMapFunction ymap_qi_ietf_if_exampleports_lvla_ports;

// /ports
YMAP_CONTAINER(Ports, lvla_ports,
    YMAP_CHILD("port", lvla_ports_port));
YMAP_HANDLER(ymap_qi_ietf_if_exampleports_lvla_ports_parse_augments, EmptyHandler);

// /ports/port
YMAP_LIST(Ports, lvla_ports_port, "/ports/port",
    YMAP_LEAF ("name",  lvla_ports_port_name),
    YMAP_LEAF ("label", lvla_ports_port_label),
    YMAP_CHILD("lane",  lvla_ports_port_lane));
YMAP_HANDLER(ymap_qi_ietf_if_exampleports_lvla_ports_port_parse_augments, EmptyHandler);

// /ports/port/lane
YMAP_LIST(Ports, lvla_ports_port_lane, "/ports/port/lane",
    YMAP_LEAF ("number", lvla_ports_lane_number));
YMAP_HANDLER(ymap_qi_ietf_if_exampleports_lvla_ports_port_lane_parse_augments, EmptyHandler);

} // extern "C"

// clang-format on

#undef YMAP_NAME
