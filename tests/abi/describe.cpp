// Prints what ymap.h fixes between a framework and a map library, a line each: the layout of the
// records, the constants, and the types of the operations (as the Itanium C++ ABI writes them).
// scripts/abi-check compares it with the baseline beside this file.

#include <cstddef>
#include <cstdio>
#include <typeinfo>

#include "ymap.h"

#define RECORD(TYPE) printf("record %s size %zu align %zu\n", #TYPE, sizeof(TYPE), alignof(TYPE))
#define FIELD(TYPE, NAME)                                                                          \
    printf("field %s.%s at %zu size %zu type %s\n", #TYPE, #NAME, offsetof(TYPE, NAME),            \
           sizeof(TYPE::NAME), typeid(decltype(TYPE::NAME)).name())
#define NUMBER(NAME)   printf("constant %s %#llx\n", #NAME, static_cast<unsigned long long>(NAME))
#define TEXT(NAME)     printf("constant %s \"%s\"\n", #NAME, NAME)
#define FUNCTION(NAME) printf("operation %s %s\n", #NAME, typeid(NAME).name())
#define TYPE(NAME)     printf("type %s %s\n", #NAME, typeid(NAME).name())

int main()
{
    RECORD(OzkMapOperation);
    FIELD(OzkMapOperation, op_code);
    RECORD(OzkMapRequest);
    FIELD(OzkMapRequest, operation);
    FIELD(OzkMapRequest, offending_tag);
    RECORD(OzkDebugCtx);
    RECORD(OzkMapCtx);
    FIELD(OzkMapCtx, request);
    FIELD(OzkMapCtx, _debug_ctx);
    FIELD(OzkMapCtx, error_log);
    FIELD(OzkMapCtx, trace_log);
    FIELD(OzkMapCtx, trace_buffer);
    FIELD(OzkMapCtx, trace_on);
    FIELD(OzkMapCtx, list_position);
    RECORD(OzkMapNode);
    FIELD(OzkMapNode, tag);
    FIELD(OzkMapNode, value);
    FIELD(OzkMapNode, ns_uri);
    FIELD(OzkMapNode, position);
    FIELD(OzkMapNode, subtrees);
    FIELD(OzkMapNode, subtree_count);
    FIELD(OzkMapNode, flags);

    NUMBER(MAP_OP_GET_CONFIG);
    NUMBER(MAP_OP_EDIT);
    NUMBER(MAP_OP_GET);
    NUMBER(MAP_OK);
    NUMBER(MAP_WHEN_NO_INPUT);
    NUMBER(MAP_NOT_MAPPED);
    NUMBER(MAP_ERR_NO_SUBTREES);
    NUMBER(MAP_ERR_INVALID_ARGS);
    NUMBER(MAP_ERR_UNSUPPORTED_TAG);
    NUMBER(MAP_ERR_BAD_KEY);
    NUMBER(MAP_ERR_KEY_DELETE);
    NUMBER(MAP_ERR_ADD_REFUSED);
    NUMBER(MAP_HIER_CONTAINER);
    NUMBER(MAP_HIER_LIST);
    NUMBER(MAP_NODE_HAS_VALUE);
    NUMBER(MAP_NODE_HAS_POSITION);
    NUMBER(MAP_NODE_HAS_SUBTREES);
    NUMBER(MAP_LOG_ERROR);
    NUMBER(MAP_LOG_TRACE);
    NUMBER(MAP_TRACE_OPTIONS);
    NUMBER(MAP_MAX_TRACE_LINE);
    TEXT(NS_IETF_INTERFACES);
    TEXT(NS_NQ_IFMGR_CFG);
    TEXT(NS_NQ_PFI_IM_CMD_OPER);
    TEXT(NS_NQ_IP_PFILTER_CFG);
    TEXT(NS_IETF_INTERFACES_ACL_EXT);
    TEXT(MAP_MEMORY_TAG);

    TYPE(OzkMapFunction);
    TYPE(OzkMapContainerFunction);
    TYPE(OzkMapWhenFunction);
    FUNCTION(ozk_map_add_to_node_hierarchy);
    FUNCTION(ozk_map_remove_from_node_hierarchy);
    FUNCTION(ozk_map_update_current_list_node);
    FUNCTION(ozk_map_do_these_match);
    FUNCTION(ozk_map_is_request_add);
    FUNCTION(ozk_map_is_request_delete);
    FUNCTION(ozk_map_datatree_add_path_flagged);
    FUNCTION(ozk_strdup);
    FUNCTION(ozk_debug_should_log);
    FUNCTION(_tlm_dt_log_filter_adv);
    FUNCTION(ret_nc_ozk_trace_index_incr);
    FUNCTION(_lstrace);
}
