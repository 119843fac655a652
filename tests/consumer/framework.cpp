// The operations of ymap.h as simple as they can be: the output tree is standard output, the
// hierarchy a depth, and nothing is logged.

#include "framework.h"

#include <cstdio>
#include <cstring>

namespace {

int depth = 0; // nodes on the hierarchy

OzkMapNode leaf(const char* tag, const char* value)
{
    OzkMapNode node{};
    node.tag    = tag;
    node.value  = value;
    node.ns_uri = NS_IETF_INTERFACES;
    node.flags  = MAP_NODE_HAS_VALUE;
    return node;
}

OzkMapNode parent(const char* tag, const OzkMapNode* children, uint32_t count)
{
    OzkMapNode node    = leaf(tag, nullptr);
    node.subtrees      = children;
    node.subtree_count = count;
    node.flags         = MAP_NODE_HAS_SUBTREES;
    return node;
}

} // namespace

extern "C" {

uint32_t ozk_map_add_to_node_hierarchy(OzkMapCtx*, const OzkMapNode*, uint32_t)
{
    ++depth;
    return MAP_OK;
}

uint32_t ozk_map_remove_from_node_hierarchy(OzkMapCtx*, const OzkMapNode*)
{
    --depth;
    return MAP_OK;
}

uint32_t ozk_map_update_current_list_node(OzkMapCtx*, const char*)
{
    return MAP_OK;
}

int ozk_map_do_these_match(const char* first, const char* second)
{
    return first != nullptr && second != nullptr && std::strcmp(first, second) == 0;
}

int ozk_map_is_request_add(const OzkMapNode*)
{
    return 1;
}

int ozk_map_is_request_delete(const OzkMapNode*)
{
    return 0;
}

uint32_t ozk_map_datatree_add_path_flagged(OzkMapCtx*, OzkDataTree* tree, const char* path,
                                           const char*, const char* value, const OzkMapNode*,
                                           void*, uint32_t, uint32_t)
{
    ++tree->paths;
    std::printf("%s%s%s\n", path, value != nullptr ? " = " : "", value != nullptr ? value : "");
    return MAP_OK;
}

char* ozk_strdup(const char* text, const char*)
{
    return text != nullptr ? strdup(text) : nullptr;
}

int ozk_debug_should_log(const OzkDebugCtx*, uint32_t)
{
    return 0;
}

void _tlm_dt_log_filter_adv(uint64_t, uint32_t, uint32_t, uint32_t, uint32_t, uint64_t, uint32_t*,
                            const char*, ...)
{
}

uint32_t ret_nc_ozk_trace_index_incr(void)
{
    return 0;
}

void _lstrace(uint64_t, uint64_t, const char*)
{
}

} // extern "C"

int map_one_request(OzkMapFunction* walker)
{
    const OzkMapNode leaves[]  = {leaf("name", "eth0"), leaf("description", "uplink")};
    const OzkMapNode interface = parent("interface", leaves, 2);
    const OzkMapNode root      = parent("interfaces", &interface, 1);

    OzkMapOperation operation{MAP_OP_EDIT};
    OzkMapRequest   request{&operation, nullptr};
    OzkMapCtx       ctx{};
    ctx.request = &request;

    OzkDataTree    tree;
    const uint32_t status = walker(&ctx, &root, &tree);
    std::printf("status %u, %u paths, depth %d\n", status, tree.paths, depth);
    return status == MAP_OK ? 0 : 1;
}
