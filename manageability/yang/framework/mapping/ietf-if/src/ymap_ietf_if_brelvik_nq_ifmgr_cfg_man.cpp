// What a person wrote for the model Brelvik-NQ-ifmgr-cfg: the augment hook of an
// interface-configuration entry, which takes the place of the default hook of its name and hands
// the entry's packet filters to the map of their own model.

#include "ymap_ietf_if_brelvik_nq_ifmgr_cfg_man.h"

using namespace ymap;

// The maps of the packet filters of an entry. A sibling library exports them; the first call binds
// each.
extern "C" {
// IPv6
OzkMapFunction ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvla_interface_configuration;
// Ethernet services
OzkMapFunction ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvlb_interface_configuration;
// IPv4
OzkMapFunction ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvlc_interface_configuration;
}

namespace {

constexpr LogText<const char*> text_processing_tag{MAP_LOG_TRACE, "Processing tag '%s'"};
constexpr LogText<> text_unknown_name{MAP_LOG_TRACE, "Unknown Name tag."};

/// The site words of one dispatch.
struct DispatchSites {
    SiteWord no_tag;
    SiteWord processing_tag;
    SiteWord unknown_name;
};

/// Where the log points of one dispatch stand, a line each, so that a trace tells one dispatch from
/// another.
struct DispatchPlaces {
    Place no_tag;
    Place processing_tag;
    Place unknown_name;
};

/// Hands `node` to the map of the packet filter that its tag names; leaves what came of it in
/// `status`. A tag of no packet filter is no failure and leaves the status alone.
void dispatch_packet_filter(OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree* tree,
                            const DispatchPlaces& places, DispatchSites& sites, uint32_t& status)
{
    const char* tag = node->tag;
    if (tag == nullptr) {
        log_point<text_no_tag>(ctx, places.no_tag, sites.no_tag);
        status = MAP_ERR_NO_SUBTREES;
        return;
    }
    log_point<text_processing_tag>(ctx, places.processing_tag, sites.processing_tag, tag);
    if (ozk_map_do_these_match(tag, "ipv6-packet-filter") != 0)
        status = ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvla_interface_configuration(
            ctx, node, tree);
    else if (ozk_map_do_these_match(tag, "es-packet-filter") != 0)
        status = ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvlb_interface_configuration(
            ctx, node, tree);
    else if (ozk_map_do_these_match(tag, "ipv4-packet-filter") != 0)
        status = ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvlc_interface_configuration(
            ctx, node, tree);
    else
        log_point<text_unknown_name>(ctx, places.unknown_name, sites.unknown_name);
}

} // namespace

/// Packet filters of their own namespace are dispatched on any operation, and on a read whatever
/// the namespace. A read therefore reaches the map of a filter twice; the later status counts.
extern "C" uint32_t
ymap_qi_ietf_if_brelviknqifmgrcfg_lvla_interfaceconfigurations_interfaceconfiguration_parse_augments(
    OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree* tree)
{
    static FrameSites sites;
    static DispatchSites own_namespace;
    static DispatchSites any_namespace;

    enter(ctx, YMAP_HERE, sites.start);
    if (node == nullptr || tree == nullptr)
        return refuse_arguments(ctx, YMAP_HERE, sites.invalid_arguments);
    uint32_t status = MAP_OK;
    if (ozk_map_do_these_match(NS_NQ_IP_PFILTER_CFG, node->ns_uri) != 0)
        dispatch_packet_filter(ctx, node, tree,
                               {
                                   .no_tag         = YMAP_HERE,
                                   .processing_tag = YMAP_HERE,
                                   .unknown_name   = YMAP_HERE,
                               },
                               own_namespace, status);
    if (is_read(ctx))
        dispatch_packet_filter(ctx, node, tree,
                               {
                                   .no_tag         = YMAP_HERE,
                                   .processing_tag = YMAP_HERE,
                                   .unknown_name   = YMAP_HERE,
                               },
                               any_namespace, status);
    return leave(ctx, YMAP_HERE, sites.end, status);
}
