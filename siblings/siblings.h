// The stand-ins of the sibling map libraries: the augment entry points that the map library
// imports, and what a host or a test can learn from them and make them answer. All of it may be
// called from several threads.

#ifndef YMAP_SIBLINGS_H
#define YMAP_SIBLINGS_H

#include <cstdint>
#include <cstdio>

#include "ymap.h"

extern "C" {

/// Access lists below an entry of the interface list; a node of any namespace may come.
OzkMapFunction ymap_iq_ietf_interfaces_brelvikietfinterfacesaclext_augment_lvla_interface;
/// The packet filters of an interface configuration, one entry point for each filter container.
OzkMapFunction ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvla_interface_configuration;
OzkMapFunction ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvlb_interface_configuration;
OzkMapFunction ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvlc_interface_configuration;

/// Is told of a call of an entry point, under its name, and gives the status that it answers.
using YmapSiblingsListener = uint32_t(const char* entry_point, OzkMapCtx* ctx,
                                      const OzkMapNode* node);

/// Sets the process's listener; null, as it is at first, lets every entry point answer MAP_OK.
void ymap_siblings_set_listener(YmapSiblingsListener* listener);

/// How often the entry point of that name was called in this process; 0 for an unknown name.
unsigned long ymap_siblings_calls(const char* entry_point);

/// Lets each call write a line, entry point and tag of the node, to `stream`, which stays the
/// caller's; null, as it is at first, for none.
void ymap_siblings_set_stream(FILE* stream);

} // extern "C"

#endif
