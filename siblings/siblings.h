// The augment entry points of sibling map libraries that a map library imports.

#ifndef YMAP_SIBLINGS_H
#define YMAP_SIBLINGS_H

#include "ymap.h"

extern "C" {

/// Access lists below an entry of the interface list; a node of any namespace may come.
OzkMapFunction ymap_iq_ietf_interfaces_brelvikietfinterfacesaclext_augment_lvla_interface;
/// The packet filters of an interface configuration, one entry point for each filter container.
OzkMapFunction ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvla_interface_configuration;
OzkMapFunction ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvlb_interface_configuration;
OzkMapFunction ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvlc_interface_configuration;

} // extern "C"

#endif
