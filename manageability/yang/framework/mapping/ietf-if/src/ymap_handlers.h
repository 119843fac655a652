// The handlers of a map library: the frame that every map function keeps to, and the few shapes
// that a handler can have, each told once. A row in an _auto source names a shape; a person who
// writes a handler by hand uses in_frame and the adds below.
//
// A shape is a type with the site words of its log points (`Sites`) and the function `run`, whose
// first arguments are those of the handler.

#ifndef YMAP_HANDLERS_H
#define YMAP_HANDLERS_H

#include "ymap.h"

namespace ymap {

inline constexpr LogText text_start             = YMAP_TRACE_TEXT("Start");
inline constexpr LogText text_end               = YMAP_TRACE_TEXT("End");
inline constexpr LogText text_invalid_arguments = YMAP_ERROR_TEXT("Invalid arguments passed!");
inline constexpr LogText text_no_subtrees       = YMAP_TRACE_TEXT("No subtrees");
inline constexpr LogText text_no_mapping        = YMAP_TRACE_TEXT("No mapping done for this node");
inline constexpr LogText text_no_tag            = YMAP_ERROR_TEXT("Tag name is not available!");
inline constexpr LogText text_no_when_input =
    YMAP_TRACE_TEXT("No valid input to validate when statement ");

/// The site words of the log points that every map function has.
struct FrameSites {
    SiteWord start;
    SiteWord end;
    SiteWord invalid_arguments;
};

namespace {

// ---------------------------------------------------------------------------------------------
// The frame

/// The operation code of the running request. Not cached anywhere: each test reads it afresh.
[[gnu::always_inline]] inline uint32_t operation(const OzkMapCtx* ctx)
{
    return ctx->request->operation->op_code;
}

/// Whether the request only reads (RFC 6241, 7.1 and 7.7).
[[gnu::always_inline]] inline bool is_read(const OzkMapCtx* ctx)
{
    const uint32_t code = operation(ctx);
    return code == MAP_OP_GET_CONFIG || code == MAP_OP_GET;
}

/// What every map function asserts first: a null context is a fault of the framework, not of a
/// request, and stops the process.
[[gnu::always_inline]] inline void assert_context(OzkMapCtx* ctx, int line)
{
    if (ctx == nullptr) [[unlikely]]
        assertion_failed(line, "NULL != ctx");
    const OzkDebugCtx* debug_ctx = &ctx->_debug_ctx;
    ozk_debug_should_log(debug_ctx, MAP_LOG_TRACE);
    if (debug_ctx == nullptr) [[unlikely]]
        assertion_failed(line, "NULL != (&((ctx)->_debug_ctx))");
}

/// Opens the frame of a map function. False if there is nothing to work on: the function then
/// returns MAP_ERR_INVALID_ARGS without leave(). `arguments_valid` is a callable that says so.
template <class ArgumentsValid>
[[gnu::always_inline]] inline bool enter(OzkMapCtx* ctx, ArgumentsValid arguments_valid,
                                         const Place& place, FrameSites& sites)
{
    assert_context(ctx, place.line);
    log_point(ctx, text_start, place, sites.start);
    if (arguments_valid()) [[likely]]
        return true;
    log_point(ctx, text_invalid_arguments, place, sites.invalid_arguments);
    return false;
}

/// Closes the frame that enter() has opened.
[[gnu::always_inline]] inline void leave(OzkMapCtx* ctx, const Place& place, FrameSites& sites)
{
    log_point(ctx, text_end, place, sites.end);
}

/// The frame of a map function around `work`, a callable that returns a status.
template <class Work>
[[gnu::always_inline]] inline uint32_t in_frame(OzkMapCtx* ctx, const OzkMapNode* node,
                                                OzkDataTree* tree, const Place& place,
                                                FrameSites& sites, Work work)
{
    const auto arguments_valid = [=] { return node != nullptr && tree != nullptr; };
    if (!enter(ctx, arguments_valid, place, sites)) [[unlikely]]
        return MAP_ERR_INVALID_ARGS;
    const uint32_t status = work();
    leave(ctx, place, sites);
    return status;
}

/// Leaves a copy of the tag of `node` with the request, as the cause of a failure.
inline void report_offending_tag(OzkMapCtx* ctx, const OzkMapNode* node)
{
    ctx->request->offending_tag = ozk_strdup(node->tag, MAP_MEMORY_TAG);
}

/// A path of the other model, under which a handler adds: namespace and absolute schema path.
struct Target {
    const char* ns_uri;
    const char* path;
};

/// Adds the path of a container or leaf; returns the status of the framework.
[[gnu::always_inline]] inline uint32_t add_path(OzkMapCtx* ctx, OzkDataTree* tree,
                                                const Target& target, const char* value,
                                                const OzkMapNode* ref_node)
{
    return ozk_map_datatree_add_path_flagged(ctx, tree, target.path, target.ns_uri, value, ref_node,
                                             nullptr, 0, 0);
}

/// Adds the path of a list; the entry's key follows as a path of its own.
[[gnu::always_inline]] inline uint32_t
add_list_path(OzkMapCtx* ctx, OzkDataTree* tree, const Target& target, const OzkMapNode* ref_node)
{
    return ozk_map_datatree_add_path_flagged(ctx, tree, target.path, target.ns_uri, nullptr,
                                             ref_node, nullptr, 1, 0);
}

// ---------------------------------------------------------------------------------------------
// Shapes of both directions

/// A handler that only traces. Most nodes have no counterpart, so it is the one shape that stands
/// out of line: a row of it is no more than a jump.
struct EmptyHandler {
    using Sites = FrameSites;

    [[gnu::always_inline]] static uint32_t run(OzkMapCtx* ctx, const OzkMapNode* node,
                                               OzkDataTree* tree, const Place& place, Sites& sites)
    {
        return run_shared(ctx, node, tree, place.function, sites, place.line);
    }

    [[gnu::always_inline]] static uint32_t run(OzkMapCtx* ctx, const OzkMapNode* node,
                                               uint32_t /*subtree_count*/, OzkDataTree* tree,
                                               const Place& place, Sites& sites)
    {
        return run_shared(ctx, node, tree, place.function, sites, place.line);
    }

private:
    [[gnu::noinline]] static uint32_t run_shared(OzkMapCtx* ctx, const OzkMapNode* node,
                                                 OzkDataTree* tree, const char* function,
                                                 Sites& sites, int line)
    {
        // One answer is kept over the calls instead of two pointers.
        const auto arguments_valid = [valid = node != nullptr && tree != nullptr] { return valid; };
        const Place place{function, line};
        if (!enter(ctx, arguments_valid, place, sites)) [[unlikely]]
            return MAP_ERR_INVALID_ARGS;
        leave(ctx, place, sites);
        return MAP_OK;
    }
};

/// List that has a counterpart: adds the other model's list, with the node as reference when the
/// request deletes the entry.
struct PathList {
    using Sites = FrameSites;

    [[gnu::always_inline]] static uint32_t run(OzkMapCtx* ctx, const OzkMapNode* node,
                                               OzkDataTree* tree, const Place& place, Sites& sites,
                                               const Target& target)
    {
        return in_frame(ctx, node, tree, place, sites, [&] {
            const OzkMapNode* ref_node = ozk_map_is_request_delete(node) != 0 ? node : nullptr;
            return add_list_path(ctx, tree, target, ref_node);
        });
    }
};

/// Container that stands for a whole one of the other model, but only while it is empty: where it
/// has children, their own paths follow.
struct WholeContainer {
    struct Sites : FrameSites {
        SiteWord no_subtrees;
        SiteWord no_mapping;
    };

    [[gnu::always_inline]] static uint32_t run(OzkMapCtx* ctx, const OzkMapNode* node,
                                               uint32_t subtree_count, OzkDataTree* tree,
                                               const Place& place, Sites& sites,
                                               const Target& target)
    {
        return in_frame(ctx, node, tree, place, sites, [&]() -> uint32_t {
            if (subtree_count == 0) {
                log_point(ctx, text_no_subtrees, place, sites.no_subtrees);
                return add_path(ctx, tree, target, nullptr, nullptr);
            }
            log_point(ctx, text_no_mapping, place, sites.no_mapping);
            return MAP_OK;
        });
    }
};

/// Leaf whose mapping is a function of its own, written by a person.
struct ManualLeafCaller {
    using Sites = FrameSites;

    [[gnu::always_inline]] static uint32_t run(OzkMapCtx* ctx, const OzkMapNode* node,
                                               OzkDataTree* tree, const Place& place, Sites& sites,
                                               OzkMapFunction& manual_leaf)
    {
        return in_frame(ctx, node, tree, place, sites,
                        [&] { return manual_leaf(ctx, node, tree); });
    }
};

// ---------------------------------------------------------------------------------------------
// Shapes of the direction ymap_iq_, from the IETF model to the native ones

/// Leaf without a native path, on any operation.
struct UnmappedLeaf {
    using Sites = FrameSites;

    [[gnu::always_inline]] static uint32_t run(OzkMapCtx* ctx, const OzkMapNode* node,
                                               OzkDataTree* tree, const Place& place, Sites& sites)
    {
        return in_frame(ctx, node, tree, place, sites, []() -> uint32_t { return MAP_NOT_MAPPED; });
    }
};

/// Configuration leaf: a read selects the path; an edit carries the value over and refers to the
/// node; a delete refers to the node without a value.
struct ConfigLeaf {
    using Sites = FrameSites;

    [[gnu::always_inline]] static uint32_t run(OzkMapCtx* ctx, const OzkMapNode* node,
                                               OzkDataTree* tree, const Place& place, Sites& sites,
                                               const Target& target)
    {
        return in_frame(ctx, node, tree, place, sites, [&] {
            if (is_read(ctx))
                return add_path(ctx, tree, target, nullptr, nullptr);
            const char* value = ozk_map_is_request_delete(node) != 0 ? nullptr : node->value;
            return add_path(ctx, tree, target, value, node);
        });
    }
};

/// State leaf: a read selects the path; nothing else reaches state.
struct StateLeaf {
    using Sites = FrameSites;

    [[gnu::always_inline]] static uint32_t run(OzkMapCtx* ctx, const OzkMapNode* node,
                                               OzkDataTree* tree, const Place& place, Sites& sites,
                                               const Target& target)
    {
        return in_frame(ctx, node, tree, place, sites, [&]() -> uint32_t {
            return is_read(ctx) ? add_path(ctx, tree, target, nullptr, nullptr) : MAP_OK;
        });
    }
};

/// Key leaf of a state list: a read hands the key's value on, twice; only the second add counts.
struct StateKeyLeaf {
    using Sites = FrameSites;

    [[gnu::always_inline]] static uint32_t run(OzkMapCtx* ctx, const OzkMapNode* node,
                                               OzkDataTree* tree, const Place& place, Sites& sites,
                                               const Target& target)
    {
        return in_frame(ctx, node, tree, place, sites, [&]() -> uint32_t {
            if (!is_read(ctx))
                return MAP_OK;
            add_path(ctx, tree, target, node->value, nullptr);
            return add_path(ctx, tree, target, node->value, nullptr);
        });
    }
};

/// Default augment hook of the direction: nobody takes an augmenting node that is to be added.
struct RefuseAdd {
    using Sites = FrameSites;

    [[gnu::always_inline]] static uint32_t run(OzkMapCtx* ctx, const OzkMapNode* node,
                                               OzkDataTree* tree, const Place& place, Sites& sites)
    {
        return in_frame(ctx, node, tree, place, sites, [&]() -> uint32_t {
            if (ozk_map_is_request_add(node) == 0)
                return MAP_OK;
            report_offending_tag(ctx, node);
            return MAP_ERR_ADD_REFUSED;
        });
    }
};

// ---------------------------------------------------------------------------------------------
// Shapes of the direction ymap_qi_, from the native models to the IETF model

/// List without a counterpart. It reports "End" alone and looks at neither node nor tree.
struct BareList {
    struct Sites {
        SiteWord end;
    };

    [[gnu::always_inline]] static uint32_t run(OzkMapCtx* ctx, const OzkMapNode* /*node*/,
                                               OzkDataTree* /*tree*/, const Place& place,
                                               Sites& sites)
    {
        assert_context(ctx, place.line);
        log_point(ctx, text_end, place, sites.end);
        return MAP_OK;
    }
};

/// Leaf that has a counterpart: its value goes over on any operation.
struct MappedLeaf {
    using Sites = FrameSites;

    [[gnu::always_inline]] static uint32_t run(OzkMapCtx* ctx, const OzkMapNode* node,
                                               OzkDataTree* tree, const Place& place, Sites& sites,
                                               const Target& target)
    {
        return in_frame(ctx, node, tree, place, sites,
                        [&] { return add_path(ctx, tree, target, node->value, nullptr); });
    }
};

/// Key leaf of a list: the same add twice; only the second counts.
struct KeyLeaf {
    using Sites = FrameSites;

    [[gnu::always_inline]] static uint32_t run(OzkMapCtx* ctx, const OzkMapNode* node,
                                               OzkDataTree* tree, const Place& place, Sites& sites,
                                               const Target& target)
    {
        return in_frame(ctx, node, tree, place, sites, [&] {
            add_path(ctx, tree, target, node->value, nullptr);
            return add_path(ctx, tree, target, node->value, nullptr);
        });
    }
};

/// Container with a YANG when statement (RFC 7950, 7.21.5), which its when hook stands for.
struct WhenContainer {
    using Sites = FrameSites;

    [[gnu::always_inline]] static uint32_t run(OzkMapCtx* ctx, const OzkMapNode* node,
                                               uint32_t /*subtree_count*/, OzkDataTree* tree,
                                               const Place& place, Sites& sites,
                                               OzkMapWhenFunction& when_hook)
    {
        return in_frame(ctx, node, tree, place, sites, [&] { return when_hook(ctx, node); });
    }
};

/// When hook that lets every real node pass: the condition itself is not evaluated.
struct PassingWhenHook {
    struct Sites {
        SiteWord start;
        SiteWord end;
        SiteWord no_input;
    };

    [[gnu::always_inline]] static uint32_t run(OzkMapCtx* ctx, const OzkMapNode* node,
                                               const Place& place, Sites& sites)
    {
        assert_context(ctx, place.line);
        log_point(ctx, text_start, place, sites.start);
        uint32_t status = MAP_OK;
        if (node == nullptr) {
            log_point(ctx, text_no_when_input, place, sites.no_input);
            status = MAP_WHEN_NO_INPUT;
        }
        log_point(ctx, text_end, place, sites.end);
        return status;
    }
};

} // namespace
} // namespace ymap

// ---------------------------------------------------------------------------------------------
// Names. A macro writes the shell of a function and its names; all that the function does is in
// the shape. NAME is the plain exported name, written whole, so that it can be found.

/// What belongs to the library's exported table.
#define YMAP_EXPORT [[gnu::visibility("default")]]

/// Gives the function __NAME its plain name as a weak alias. Generated code calls the plain name
/// only; a strong function NAME in a manual source takes its place when the library is linked.
#define YMAP_WEAK_ALIAS(NAME, FUNCTION_TYPE)                                                       \
    YMAP_EXPORT [[gnu::weak, gnu::alias("__" #NAME)]] FUNCTION_TYPE NAME

/// A map function NAME whose work the type SHAPE above does; further arguments are those of its
/// `run`. A row of a _man source: a manual leaf.
#define YMAP_MAP_FUNCTION(NAME, SHAPE, ...)                                                        \
    extern "C" uint32_t NAME(OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree* tree)            \
    {                                                                                              \
        static SHAPE::Sites sites;                                                                 \
        return SHAPE::run(ctx, node, tree, {__func__, __LINE__},                                   \
                          sites __VA_OPT__(, ) __VA_ARGS__);                                       \
    }                                                                                              \
    static_assert(true)

/// A when hook NAME, a row of a _man source.
#define YMAP_WHEN_HOOK(NAME, SHAPE)                                                                \
    extern "C" uint32_t NAME(OzkMapCtx* ctx, const OzkMapNode* node)                               \
    {                                                                                              \
        static SHAPE::Sites sites;                                                                 \
        return SHAPE::run(ctx, node, {__func__, __LINE__}, sites);                                 \
    }                                                                                              \
    static_assert(true)

/// A generated list handler, leaf handler or augment hook: __NAME with its weak alias NAME.
///
///     YMAP_HANDLER(ymap_x_leaf_lvla_a_b, MappedLeaf, {NS_IETF_INTERFACES, "/a/b"});
///
/// makes   uint32_t __ymap_x_leaf_lvla_a_b(OzkMapCtx*, const OzkMapNode*, OzkDataTree*)
/// and     ymap_x_leaf_lvla_a_b, weak, the same function.
#define YMAP_HANDLER(NAME, SHAPE, ...)                                                             \
    extern "C" {                                                                                   \
    YMAP_EXPORT OzkMapFunction __##NAME;                                                           \
    YMAP_MAP_FUNCTION(__##NAME, SHAPE __VA_OPT__(, ) __VA_ARGS__);                                 \
    YMAP_WEAK_ALIAS(NAME, OzkMapFunction);                                                         \
    }                                                                                              \
    static_assert(true)

/// The same for a container handler, which is told the count of the children as well.
#define YMAP_CONTAINER_HANDLER(NAME, SHAPE, ...)                                                   \
    extern "C" {                                                                                   \
    YMAP_EXPORT OzkMapContainerFunction __##NAME;                                                  \
    uint32_t __##NAME(OzkMapCtx* ctx, const OzkMapNode* node, uint32_t subtree_count,              \
                      OzkDataTree* tree)                                                           \
    {                                                                                              \
        static SHAPE::Sites sites;                                                                 \
        return SHAPE::run(ctx, node, subtree_count, tree, {__func__, __LINE__},                    \
                          sites __VA_OPT__(, ) __VA_ARGS__);                                       \
    }                                                                                              \
    YMAP_WEAK_ALIAS(NAME, OzkMapContainerFunction);                                                \
    }                                                                                              \
    static_assert(true)

#endif
