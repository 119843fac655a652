// The augment entry points of the sibling map libraries, for a process that has no real ones: they
// map nothing, and tell the run that is going on in their thread, which records and answers.

#include "siblings.h"

#include "run.h"

namespace {

uint32_t tell_run(const char* entry_point, const OzkMapNode* node)
{
    ozk::Run* run = ozk::Run::current();
    return run != nullptr ? run->sibling_called(entry_point, node) : uint32_t{MAP_OK};
}

} // namespace

#define SIBLING(NAME)                                                                              \
    uint32_t NAME(OzkMapCtx*, const OzkMapNode* node, OzkDataTree*)                                \
    {                                                                                              \
        return tell_run(#NAME, node);                                                              \
    }

extern "C" {
SIBLING(ymap_iq_ietf_interfaces_brelvikietfinterfacesaclext_augment_lvla_interface)
SIBLING(ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvla_interface_configuration)
SIBLING(ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvlb_interface_configuration)
SIBLING(ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvlc_interface_configuration)
}
