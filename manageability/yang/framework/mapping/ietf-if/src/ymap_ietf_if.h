// The root walkers that the library exports to the agent, for whoever links it. Whoever loads it
// finds them under the same names.
//
// The root's own tag and namespace are not looked at: choose the walker by both.

#ifndef YMAP_IETF_IF_H
#define YMAP_IETF_IF_H

#include "ymap.h"

extern "C" {

/// A request on /interfaces of ietf-interfaces (RFC 7223, 3), to paths of Brelvik-NQ-ifmgr-cfg.
YMAP_EXPORT OzkMapFunction ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces;
/// A request on /interfaces-state of ietf-interfaces (RFC 7223, 3), to paths of
/// Brelvik-NQ-pfi-im-cmd-oper.
YMAP_EXPORT OzkMapFunction ymap_iq_ietf_if_ietfinterfaces_lvla_interfacesstate;
/// /interface-configurations of Brelvik-NQ-ifmgr-cfg, to paths of /interfaces of ietf-interfaces.
YMAP_EXPORT OzkMapFunction ymap_qi_ietf_if_brelviknqifmgrcfg_lvla_interfaceconfigurations;
/// /global-interface-configuration of Brelvik-NQ-ifmgr-cfg, of which nothing maps.
YMAP_EXPORT OzkMapFunction ymap_qi_ietf_if_brelviknqifmgrcfg_lvla_globalinterfaceconfiguration;
/// /interfaces of Brelvik-NQ-pfi-im-cmd-oper, to paths of /interfaces-state of ietf-interfaces.
YMAP_EXPORT OzkMapFunction ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces;

} // extern "C"

#endif
