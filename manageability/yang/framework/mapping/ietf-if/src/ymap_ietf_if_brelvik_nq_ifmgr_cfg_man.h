// What a person writes for the model Brelvik-NQ-ifmgr-cfg: the manual augment hook that takes a
// default's place. A definition in the _man source whose name isn't here is a slip of the pen, and
// the compiler says so.

#ifndef YMAP_IETF_IF_BRELVIK_NQ_IFMGR_CFG_MAN_H
#define YMAP_IETF_IF_BRELVIK_NQ_IFMGR_CFG_MAN_H

#include "ymap_handlers.h"

extern "C" {

YMAP_EXPORT OzkMapFunction
    ymap_qi_ietf_if_brelviknqifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_parse_augments;

} // extern "C"

#endif
