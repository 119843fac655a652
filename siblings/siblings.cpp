// The augment entry points of the sibling map libraries. They map nothing: each counts its call,
// shows it if it is asked to, and answers what the listener says.

#include "siblings.h"

#include <atomic>
#include <cstring>

namespace {

struct EntryPoint {
    const char* name;
    std::atomic<unsigned long> calls{0};
};

EntryPoint acl_ext{"ymap_iq_ietf_interfaces_brelvikietfinterfacesaclext_augment_lvla_interface"};
EntryPoint filter_a{
    "ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvla_interface_configuration"};
EntryPoint filter_b{
    "ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvlb_interface_configuration"};
EntryPoint filter_c{
    "ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvlc_interface_configuration"};

std::atomic<YmapSiblingsListener*> listener{nullptr};
std::atomic<FILE*> stream{nullptr};

uint32_t called(EntryPoint& entry_point, OzkMapCtx* ctx, const OzkMapNode* node)
{
    entry_point.calls.fetch_add(1, std::memory_order_relaxed);
    if (FILE* out = stream.load())
        fprintf(out, "sibling called: %s, tag %s\n", entry_point.name,
                node != nullptr && node->tag != nullptr ? node->tag : "-");
    YmapSiblingsListener* ask = listener.load();
    return ask != nullptr ? ask(entry_point.name, ctx, node) : uint32_t{MAP_OK};
}

} // namespace

extern "C" {

uint32_t ymap_iq_ietf_interfaces_brelvikietfinterfacesaclext_augment_lvla_interface(
    OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree*)
{
    return called(acl_ext, ctx, node);
}

uint32_t ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvla_interface_configuration(
    OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree*)
{
    return called(filter_a, ctx, node);
}

uint32_t ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvlb_interface_configuration(
    OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree*)
{
    return called(filter_b, ctx, node);
}

uint32_t ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvlc_interface_configuration(
    OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree*)
{
    return called(filter_c, ctx, node);
}

void ymap_siblings_set_listener(YmapSiblingsListener* new_listener)
{
    listener = new_listener;
}

unsigned long ymap_siblings_calls(const char* entry_point)
{
    for (const EntryPoint* each : {&acl_ext, &filter_a, &filter_b, &filter_c})
        if (entry_point != nullptr && std::strcmp(each->name, entry_point) == 0)
            return each->calls.load();
    return 0;
}

void ymap_siblings_set_stream(FILE* new_stream)
{
    stream = new_stream;
}

} // extern "C"
