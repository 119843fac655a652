// The contract between the agent's mapping framework and its map libraries: the records that the
// framework hands over, the codes, the namespaces, the framework's operations, and the log point.
// This is all that a handler written by hand needs to know.
//
// Who owns what, unless a comment says otherwise: the framework owns every record and every text
// behind a pointer in it, for at least as long as the call of a root walker lasts. A map library
// keeps none of them beyond that call and frees nothing.
//
// The fields of a record stand in the order that the agent declares them in. Fields under "the
// framework's own" are never read by a map library; they are those of the stand-in framework of
// this project. An agent that declares the records itself names its header when it builds a map
// library, and this one takes it in their place: -DYMAP_RECORDS='"agent_records.h"'. It declares
// OzkMapOperation, OzkMapRequest, OzkDebugCtx, OzkMapCtx and OzkMapNode with the fields that are
// described here, in any place and beside any others.

#ifndef YMAP_H
#define YMAP_H

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <string_view>
#include <type_traits>

// ---------------------------------------------------------------------------------------------
// Codes

/// Operation code of the running request. Any other value behaves as an operation that does not
/// read: a map library looks for these three only.
enum : uint32_t {
    MAP_OP_GET_CONFIG = 0,  ///< read of configuration data (RFC 6241, 7.1)
    MAP_OP_EDIT       = 1,  ///< edit of configuration data (RFC 6241, 7.2)
    MAP_OP_GET        = 10, ///< read of configuration and state data (RFC 6241, 7.7)
};

/// Result of every map function. 0 is success; any other value stops the walk of the siblings at
/// its level and travels up. A status of the framework's own travels up unchanged.
enum : uint32_t {
    MAP_OK                  = 0,
    MAP_WHEN_NO_INPUT       = 1,          ///< a when hook was called without a node
    MAP_NOT_MAPPED          = 51,         ///< a leaf of the request has no native path
    MAP_ERR_NO_SUBTREES     = 0xaaf29e00, ///< the tree is broken: children or a tag are missing
    MAP_ERR_INVALID_ARGS    = 0xaaf2a000, ///< a null node or tree
    MAP_ERR_UNSUPPORTED_TAG = 0xaaf2e600, ///< a tag of the model that can't be served
    MAP_ERR_BAD_KEY         = 0xaaf2e800, ///< a list key is missing, misplaced or empty
    MAP_ERR_KEY_DELETE      = 0xaaf2ea00, ///< a delete operation stands on a list key
    MAP_ERR_ADD_REFUSED     = 0xaaf2ee00, ///< nobody takes the augmenting node that is to be added
};

/// What a node on the framework's hierarchy is.
enum : uint32_t {
    MAP_HIER_CONTAINER = 1, ///< a container, also a root
    MAP_HIER_LIST      = 2, ///< a list entry
};

/// Single bits of OzkMapNode::flags.
enum : uint8_t {
    MAP_NODE_HAS_VALUE    = 2,  ///< the node carries a value
    MAP_NODE_HAS_POSITION = 16, ///< `position` is valid
    MAP_NODE_HAS_SUBTREES = 64, ///< `subtrees` and `subtree_count` are valid
};

/// Levels of the log layer.
enum : uint32_t {
    MAP_LOG_ERROR = 0,
    MAP_LOG_TRACE = 3,
};

/// Options of every call of _lstrace.
inline constexpr uint64_t MAP_TRACE_OPTIONS = 0x10101000000;
/// Size of a trace line in bytes, its terminating zero included; a longer line is cut.
inline constexpr size_t MAP_MAX_TRACE_LINE = 1024;

// ---------------------------------------------------------------------------------------------
// Namespaces of the models, as their modules declare them

/// RFC 7223, the model of the clients.
inline constexpr char NS_IETF_INTERFACES[] = "urn:ietf:params:xml:ns:yang:ietf-interfaces";
/// The router's interface configuration.
inline constexpr char NS_NQ_IFMGR_CFG[] = "http://brelvik.example/ns/yang/Brelvik-NQ-ifmgr-cfg";
/// The router's operational interface state.
inline constexpr char NS_NQ_PFI_IM_CMD_OPER[] =
    "http://brelvik.example/ns/yang/Brelvik-NQ-pfi-im-cmd-oper";
/// The router's packet filters, which augment the interface configuration.
inline constexpr char NS_NQ_IP_PFILTER_CFG[] =
    "http://brelvik.example/ns/yang/Brelvik-NQ-ip-pfilter-cfg";
/// Access lists that augment the interfaces of the clients' model.
inline constexpr char NS_IETF_INTERFACES_ACL_EXT[] =
    "urn:ietf:params:xml:ns:yang:brelvik-ietf-interfaces-acl-ext";

/// The memory tag under which the framework accounts for the copies that a map library asks for.
inline constexpr char MAP_MEMORY_TAG[] = "OZK MAP";

/// What belongs to a map library's exported table: YMAP_EXPORT OzkMapFunction ymap_x_lvla_a;
#define YMAP_EXPORT [[gnu::visibility("default")]]

// ---------------------------------------------------------------------------------------------
// Records

#ifdef YMAP_RECORDS
#include YMAP_RECORDS
#else

/// The running request's operation. The record is the framework's; its first field is the code.
struct OzkMapOperation {
    uint32_t op_code; ///< MAP_OP_...
};

/// The running request.
struct OzkMapRequest {
    OzkMapOperation* operation; ///< never null while a walk runs
    /// Set by the library when a walk fails on a certain tag: a copy made by ozk_strdup, which the
    /// framework owns, reports and frees. A later failure replaces the pointer unread.
    char* offending_tag;
};

/// The debug record of a context. The library takes its address and nothing else.
struct OzkDebugCtx {
    // The framework's own.
    void* run;       ///< the mapping run that the context belongs to
    uint32_t levels; ///< bit n is set when level n is on
};

/// The context of one mapping run, the first argument of every map function.
struct OzkMapCtx {
    OzkMapRequest* request; ///< never null while a walk runs
    OzkDebugCtx _debug_ctx; ///< held by value; handed to ozk_debug_should_log by address
    uint64_t error_log;     ///< log handle of the level MAP_LOG_ERROR
    uint64_t trace_log;     ///< log handle of the level MAP_LOG_TRACE
    uint64_t trace_buffer;  ///< handle for _lstrace
    uint32_t trace_on;      ///< not 0: every log point also writes a trace line
    /// Position of the list entry that is being walked, or 0 if it has none. Written by the list
    /// walkers of the direction ymap_iq_, read by the framework only.
    uint32_t list_position;
};

/// One node of an input tree: a request, or data on a native model.
struct OzkMapNode {
    const char* tag;    ///< schema tag without prefix; null: not available, the tree is broken
    const char* value;  ///< the value's text, handed on unread and unchanged; may be null
    const char* ns_uri; ///< namespace of the tag (RFC 7950, 5.3)
    uint32_t position;  ///< valid under MAP_NODE_HAS_POSITION
    /// The children: one array of records held by value, without a terminating element. Valid
    /// under MAP_NODE_HAS_SUBTREES, like the count.
    const OzkMapNode* subtrees;
    uint32_t subtree_count; ///< elements in `subtrees`
    uint8_t flags;          ///< MAP_NODE_HAS_...
    // The framework's own.
    uint8_t edit;             ///< edit operation that holds for the node, inherited or its own
    uint8_t edit_is_own;      ///< not 0 when the operation stands on this very node
    uint8_t marks;            ///< single bits for whoever works on the tree
    uint32_t line;            ///< line of the document that the node comes from, 0 if unknown
    uint32_t capacity;        ///< records that `subtrees` has room for
    const OzkMapNode* origin; ///< the node of another tree that this one stands for, or null
};

#endif // YMAP_RECORDS

/// The output tree. Opaque: handed to ozk_map_datatree_add_path_flagged and nothing else.
struct OzkDataTree;

extern "C" {

// ---------------------------------------------------------------------------------------------
// Map functions

/// A root walker, walker, leaf thunk, list handler, leaf handler, manual leaf or augment hook.
using OzkMapFunction = uint32_t(OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree* tree);
/// A container handler; `subtree_count` is the number of children that its walker found.
using OzkMapContainerFunction = uint32_t(OzkMapCtx* ctx, const OzkMapNode* node,
                                         uint32_t subtree_count, OzkDataTree* tree);
/// A when hook (RFC 7950, 7.21.5): MAP_OK lets the walk go on below the node.
using OzkMapWhenFunction = uint32_t(OzkMapCtx* ctx, const OzkMapNode* node);

// ---------------------------------------------------------------------------------------------
// Operations of the framework

/// Puts `node` on the stack of the nodes being walked; `kind` is MAP_HIER_.... The result is not
/// examined. Each call has its ozk_map_remove_from_node_hierarchy, in reverse order.
uint32_t ozk_map_add_to_node_hierarchy(OzkMapCtx* ctx, const OzkMapNode* node, uint32_t kind);

/// Takes `node` off that stack. The result is not examined.
uint32_t ozk_map_remove_from_node_hierarchy(OzkMapCtx* ctx, const OzkMapNode* node);

/// Tells which list the walk is in: `list_path` is the list's schema path in the input model, a
/// static text. Returns 0, or a status that the caller hands up.
uint32_t ozk_map_update_current_list_node(OzkMapCtx* ctx, const char* list_path);

/// The only comparison of texts: not 0 if they match. Either may be null.
int ozk_map_do_these_match(const char* first, const char* second);

/// Not 0 if the request's edit on `node` adds it.
int ozk_map_is_request_add(const OzkMapNode* node);

/// Not 0 if the request's edit on `node` deletes it.
int ozk_map_is_request_delete(const OzkMapNode* node);

/// Adds one path to the output tree and returns 0, or a status that the caller hands up.
///
/// `path` is an absolute schema path of the output model without prefixes or keys, a static text;
/// `ns_uri` the namespace of that model. `value` is the value of the last node of the path, or
/// null where the path only selects data; the framework copies what it keeps. `ref_node` is the
/// node of the input that an edit or a delete refers to, or null. `is_list` is 1 for the path of a
/// list and 0 otherwise. `reserved_ptr` is null and `reserved_flag` 0 in every call.
uint32_t ozk_map_datatree_add_path_flagged(OzkMapCtx* ctx, OzkDataTree* tree, const char* path,
                                           const char* ns_uri, const char* value,
                                           const OzkMapNode* ref_node, void* reserved_ptr,
                                           uint32_t is_list, uint32_t reserved_flag);

/// A copy of `text` that the framework owns, accounted for under `memory_tag`; null for null.
char* ozk_strdup(const char* text, const char* memory_tag);

/// Not 0 if `level` is on.
int ozk_debug_should_log(const OzkDebugCtx* debug_ctx, uint32_t level);

/// Writes one entry of the log: `format` and what follows are those of printf. `log` is the
/// context's handle for the level. The log layer may keep what it wants in `*site_word`, which
/// belongs to one place of one map function and starts as 0xffffffff; threads may share it.
void _tlm_dt_log_filter_adv(uint64_t log, uint32_t zero_1, uint32_t zero_2, uint32_t zero_3,
                            uint32_t zero_4, uint64_t file_word, uint32_t* site_word,
                            const char* format, ...) __attribute__((format(printf, 8, 9)));

/// The running number of the next trace line.
uint32_t ret_nc_ozk_trace_index_incr(void);

/// Puts a finished line into the trace buffer, which copies it.
void _lstrace(uint64_t trace_buffer, uint64_t options, const char* line);

} // extern "C"

// ---------------------------------------------------------------------------------------------
// The log point

namespace ymap {

/// A word of the log layer's, one for each place of each map function that reports something.
struct SiteWord {
    uint32_t word = 0xffffffff;
};

/// Where a log point stands: the name under which its function is defined, and the source line.
struct Place {
    const char* function;
    int line;
};

/// The Place of this very line: {"ymap_x_lvla_a_parse_augments", 42}.
#define YMAP_HERE                                                                                  \
    ::ymap::Place                                                                                  \
    {                                                                                              \
        __func__, __LINE__                                                                         \
    }

/// A fixed text at a level, with the format for the log layer and the one for the trace buffer:
/// "ERR: OZK: ctx=%p,TEXT" and "#%u: ERR: %s:%d ctx=%p,TEXT". `Arguments` are what the text itself
/// asks for, each a `const char*` for a %s. The formats stand in the record, so that a table of
/// texts needs no relocation. A text that is too long, or asks for other arguments, doesn't
/// compile.
template <class... Arguments>
struct LogText {
    static_assert((std::is_same_v<Arguments, const char*> && ...));

    uint32_t level;
    char log_format[72]   = {}; ///< arguments: ctx, further ones
    char trace_format[80] = {}; ///< arguments: running number, function, line, ctx, further ones

    consteval LogText(uint32_t text_level, std::string_view text) : level(text_level)
    {
        if (level != MAP_LOG_ERROR && level != MAP_LOG_TRACE)
            level_is_unknown();
        const std::string_view prefix = level == MAP_LOG_ERROR ? "ERR: " : "TRC: ";
        join(log_format, {prefix, "OZK: ctx=%p,", text});
        join(trace_format, {"#%u: ", prefix, "%s:%d ctx=%p,", text});
        size_t asked = 0;
        for (size_t at = text.find('%'); at != text.npos; at = text.find('%', at + 1), ++asked)
            if (!text.substr(at).starts_with("%s"))
                text_asks_for_other_arguments();
        if (asked != sizeof...(Arguments))
            text_asks_for_other_arguments();
    }

private:
    // Not constexpr: the compiler stops at the name of the one that is called.
    static void level_is_unknown();
    static void text_asks_for_other_arguments();
    static void text_is_too_long();

    template <size_t size>
    static consteval void join(char (&to)[size], std::initializer_list<std::string_view> parts)
    {
        size_t length = 0;
        for (const std::string_view part : parts)
            for (const char c : part) {
                if (length + 1 == size)
                    text_is_too_long();
                to[length++] = c;
            }
    }
};

// What follows is internal to each source that includes it: the sources of a map library differ
// in their path and have a file word each.
namespace {

/// The path of the source that includes this header, for assertions.
constexpr char source_path[] = __BASE_FILE__;
/// A word that goes to the log layer with every entry of this source.
constexpr uint64_t file_word = 0;

/// Writes the line of a failed assertion and stops the process. The lock on stderr stays: nothing
/// may come between the line and the end.
[[noreturn, gnu::cold, gnu::noinline]] inline void assertion_failed(int line, const char* assertion)
{
    flockfile(stderr);
    fprintf(stderr, "%s: %d %s -- assertion failed\n", source_path, line, assertion);
    abort();
}

/// The outputs of a log point. `log_on` is what ozk_debug_should_log has answered.
template <class... Arguments>
[[gnu::cold, gnu::noinline]] void
write_text(OzkMapCtx* ctx, int log_on, const char* function, int line, SiteWord& site_word,
           const LogText<Arguments...>& text, Arguments... arguments)
{
    if (log_on != 0) {
        const uint64_t log = text.level == MAP_LOG_ERROR ? ctx->error_log : ctx->trace_log;
        _tlm_dt_log_filter_adv(log, 0, 0, 0, 0, file_word, &site_word.word, text.log_format,
                               static_cast<void*>(ctx), arguments...);
    }
    if (ctx->trace_on != 0) {
        char line_buffer[MAP_MAX_TRACE_LINE];
        snprintf(line_buffer, sizeof line_buffer, text.trace_format, ret_nc_ozk_trace_index_incr(),
                 function, line, static_cast<void*>(ctx), arguments...);
        _lstrace(ctx->trace_buffer, MAP_TRACE_OPTIONS, line_buffer);
    }
}

/// Out of line, so that a map function pays for the outputs only while they are on, and a function
/// of each text, so that it doesn't pay for naming the text.
template <const auto& text, class... Arguments>
[[gnu::cold, gnu::noinline]] void write_log_point(OzkMapCtx* ctx, int log_on, const char* function,
                                                  int line, SiteWord& site_word,
                                                  Arguments... arguments)
{
    write_text<Arguments...>(ctx, log_on, function, line, site_word, text, arguments...);
}

/// A log point: reports `text` to the log layer if its level is on and to the trace buffer if the
/// trace switch is on, each on its own. `arguments` are those that the text itself asks for.
template <const auto& text, class... Arguments>
[[gnu::always_inline]] inline void log_point(OzkMapCtx* ctx, const Place& place,
                                             SiteWord& site_word, Arguments... arguments)
{
    static_assert(std::is_same_v<decltype(text), const LogText<Arguments...>&>,
                  "the text asks for other arguments");
    const int log_on = ozk_debug_should_log(&ctx->_debug_ctx, text.level);
    if ((static_cast<uint32_t>(log_on) | ctx->trace_on) != 0) [[unlikely]] // one test for both
        write_log_point<text>(ctx, log_on, place.function, place.line, site_word, arguments...);
}

} // namespace
} // namespace ymap

#endif
