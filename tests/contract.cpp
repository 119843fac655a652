// What a framework and a map library that were built apart rely on: the places of the fields, the
// codes, the texts, the types of the operations. It is enough that this compiles.

#include "ymap.h"

#define AT(RECORD, FIELD, TYPE, OFFSET)                                                            \
    static_assert(offsetof(RECORD, FIELD) == OFFSET &&                                             \
                  std::is_same_v<decltype(RECORD::FIELD), TYPE>)

AT(OzkMapOperation, op_code, uint32_t, 0);
AT(OzkMapRequest, operation, OzkMapOperation*, 0);
AT(OzkMapRequest, offending_tag, char*, 8);
AT(OzkMapCtx, request, OzkMapRequest*, 0);
AT(OzkMapCtx, _debug_ctx, OzkDebugCtx, 8);
AT(OzkMapCtx, error_log, uint64_t, 24);
AT(OzkMapCtx, trace_log, uint64_t, 32);
AT(OzkMapCtx, trace_buffer, uint64_t, 40);
AT(OzkMapCtx, trace_on, uint32_t, 48);
AT(OzkMapCtx, list_position, uint32_t, 52);
AT(OzkMapNode, tag, const char*, 0);
AT(OzkMapNode, value, const char*, 8);
AT(OzkMapNode, ns_uri, const char*, 16);
AT(OzkMapNode, position, uint32_t, 24);
AT(OzkMapNode, subtrees, const OzkMapNode*, 32);
AT(OzkMapNode, subtree_count, uint32_t, 40);
AT(OzkMapNode, flags, uint8_t, 44);
static_assert(sizeof(OzkMapCtx) == 56 && sizeof(OzkMapNode) == 64); // which lie in arrays

static_assert(MAP_OP_GET_CONFIG == 0 && MAP_OP_EDIT == 1 && MAP_OP_GET == 10);
static_assert(MAP_OK == 0 && MAP_WHEN_NO_INPUT == 1 && MAP_NOT_MAPPED == 0x33);
static_assert(MAP_ERR_NO_SUBTREES == 0xaaf29e00 && MAP_ERR_INVALID_ARGS == 0xaaf2a000);
static_assert(MAP_ERR_UNSUPPORTED_TAG == 0xaaf2e600 && MAP_ERR_BAD_KEY == 0xaaf2e800);
static_assert(MAP_ERR_KEY_DELETE == 0xaaf2ea00 && MAP_ERR_ADD_REFUSED == 0xaaf2ee00);
static_assert(MAP_HIER_CONTAINER == 1 && MAP_HIER_LIST == 2);
static_assert(MAP_NODE_HAS_VALUE == 2 && MAP_NODE_HAS_POSITION == 16);
static_assert(MAP_NODE_HAS_SUBTREES == 64 && MAP_LOG_ERROR == 0 && MAP_LOG_TRACE == 3);
static_assert(MAP_TRACE_OPTIONS == 0x10101000000 && MAP_MAX_TRACE_LINE == 1024);

#define IS(CONSTANT, TEXT) static_assert(std::string_view(CONSTANT) == TEXT)

IS(NS_IETF_INTERFACES, "urn:ietf:params:xml:ns:yang:ietf-interfaces");
IS(NS_NQ_IFMGR_CFG, "http://brelvik.example/ns/yang/Brelvik-NQ-ifmgr-cfg");
IS(NS_NQ_PFI_IM_CMD_OPER, "http://brelvik.example/ns/yang/Brelvik-NQ-pfi-im-cmd-oper");
IS(NS_NQ_IP_PFILTER_CFG, "http://brelvik.example/ns/yang/Brelvik-NQ-ip-pfilter-cfg");
IS(NS_IETF_INTERFACES_ACL_EXT, "urn:ietf:params:xml:ns:yang:brelvik-ietf-interfaces-acl-ext");
IS(MAP_MEMORY_TAG, "OZK MAP");

#define IS_TYPE(NAME, ...) static_assert(std::is_same_v<NAME, __VA_ARGS__>)
#define TAKES(NAME, ...)                                                                           \
    [[maybe_unused]] constexpr std::type_identity_t<__VA_ARGS__>* takes_##NAME = NAME

using Ctx  = OzkMapCtx*;
using Node = const OzkMapNode*;
using Text = const char*;
using Tree = OzkDataTree*;
IS_TYPE(OzkMapFunction, uint32_t(Ctx, Node, Tree));
IS_TYPE(OzkMapContainerFunction, uint32_t(Ctx, Node, uint32_t, Tree));
IS_TYPE(OzkMapWhenFunction, uint32_t(Ctx, Node));
TAKES(ozk_map_add_to_node_hierarchy, uint32_t(Ctx, Node, uint32_t));
TAKES(ozk_map_remove_from_node_hierarchy, uint32_t(Ctx, Node));
TAKES(ozk_map_update_current_list_node, uint32_t(Ctx, Text));
TAKES(ozk_map_do_these_match, int(Text, Text));
TAKES(ozk_map_is_request_add, int(Node));
TAKES(ozk_map_is_request_delete, int(Node));
TAKES(ozk_map_datatree_add_path_flagged,
      uint32_t(Ctx, Tree, Text, Text, Text, Node, void*, uint32_t, uint32_t));
TAKES(ozk_strdup, char*(Text, Text));
TAKES(ozk_debug_should_log, int(const OzkDebugCtx*, uint32_t));
TAKES(_tlm_dt_log_filter_adv,
      void(uint64_t, uint32_t, uint32_t, uint32_t, uint32_t, uint64_t, uint32_t*, Text, ...));
TAKES(ret_nc_ozk_trace_index_incr, uint32_t());
TAKES(_lstrace, void(uint64_t, uint64_t, Text));
