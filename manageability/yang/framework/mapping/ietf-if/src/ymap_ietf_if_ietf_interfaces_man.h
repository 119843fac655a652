// What the generated sources of the model ietf-interfaces call by name and a person writes: manual
// leaves, and the manual augment hook that takes a default's place. A manual leaf that the _man
// source lacks is an error of the link, a definition there whose name isn't here one of the
// compiler.

#ifndef YMAP_IETF_IF_IETF_INTERFACES_MAN_H
#define YMAP_IETF_IF_IETF_INTERFACES_MAN_H

#include "ymap_handlers.h"

extern "C" {

YMAP_EXPORT OzkMapFunction
    ymap_iq_ietf_if_ietfinterfaces_man_leaf_lvla_interfacesstate_interface_lastchange,
    ymap_iq_ietf_if_ietfinterfaces_man_leaf_lvla_interfacesstate_interface_speed,
    ymap_iq_ietf_if_ietfinterfaces_man_leaf_lvla_interfacesstate_statistics_discontinuitytime,
    ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces_interface_parse_augments;

} // extern "C"

#endif
