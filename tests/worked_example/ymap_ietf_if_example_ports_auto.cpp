// Handlers of the model example-ports, the worked example of docs/maintaining.md.

#include "ymap_handlers.h"

using namespace ymap;

// clang-format off

// /ports
YMAP_CONTAINER_HANDLER(ymap_qi_ietf_if_exampleports_cont_lvla_ports, EmptyHandler);

// /ports/port
YMAP_HANDLER          (ymap_qi_ietf_if_exampleports_list_lvla_ports_port,       PathList,   {NS_IETF_INTERFACES, "/interfaces/interface"});
YMAP_HANDLER          (ymap_qi_ietf_if_exampleports_leaf_lvla_ports_port_name,  KeyLeaf,    {NS_IETF_INTERFACES, "/interfaces/interface/name"});
YMAP_HANDLER          (ymap_qi_ietf_if_exampleports_leaf_lvla_ports_port_label, MappedLeaf, {NS_IETF_INTERFACES, "/interfaces/interface/description"});

// /ports/port/lane
YMAP_HANDLER          (ymap_qi_ietf_if_exampleports_list_lvla_ports_port_lane,   BareList);
YMAP_HANDLER          (ymap_qi_ietf_if_exampleports_leaf_lvla_ports_lane_number, EmptyHandler);
