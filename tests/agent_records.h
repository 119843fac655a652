// The records as an agent might declare them: with further fields, and in other places than in
// ymap.h. The library is built on these once more, and must walk the same way.

#ifndef TESTS_AGENT_RECORDS_H
#define TESTS_AGENT_RECORDS_H

#include <cstdint>

struct OzkMapOperation {
    uint32_t op_code;
    char name[12];
};

struct OzkMapRequest {
    uint64_t session;
    char* offending_tag;
    OzkMapOperation* operation;
};

struct OzkDebugCtx {
    char module[24];
    uint32_t levels;
    void* run;
};

struct OzkMapCtx {
    uint32_t list_position;
    uint32_t version;
    OzkDebugCtx _debug_ctx;
    uint32_t trace_on;
    uint64_t trace_buffer;
    uint64_t trace_log;
    uint64_t error_log;
    void* owner;
    OzkMapRequest* request;
};

struct OzkMapNode {
    uint8_t flags;
    uint8_t edit;
    uint8_t edit_is_own;
    uint8_t marks;
    uint32_t line;
    uint32_t position;
    uint32_t subtree_count;
    const OzkMapNode* subtrees;
    uint32_t capacity;
    const OzkMapNode* origin;
    const char* ns_uri;
    const char* value;
    const char* tag;
};

#endif
