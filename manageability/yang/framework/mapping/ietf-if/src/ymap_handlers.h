// The handlers of a map library: the frame that every map function keeps to, and the few shapes
// that a handler can have, each told once. A row in an _auto source names a shape; a person who
// writes a handler by hand uses the frame's steps and the adds below.
//
// A shape is a type with the site words of its log points (`Sites`) and the function `run`, whose
// first arguments are those of the handler: three, or four of a container. Most are a plain
// function within the frame: InFrame<mapped_leaf, leaf>.

#ifndef YMAP_HANDLERS_H
#define YMAP_HANDLERS_H

#include "ymap.h"

namespace ymap {

inline constexpr LogText<> text_start{MAP_LOG_TRACE, "Start"};
inline constexpr LogText<> text_end{MAP_LOG_TRACE, "End"};
inline constexpr LogText<> text_invalid_arguments{MAP_LOG_ERROR, "Invalid arguments passed!"};
inline constexpr LogText<> text_no_subtrees{MAP_LOG_TRACE, "No subtrees"};
inline constexpr LogText<> text_no_mapping{MAP_LOG_TRACE, "No mapping done for this node"};
inline constexpr LogText<> text_no_tag{MAP_LOG_ERROR, "Tag name is not available!"};
inline constexpr LogText<> text_no_when_input{MAP_LOG_TRACE,
                                              "No valid input to validate when statement "};

/// The site words of the log points that every map function has.
struct FrameSites {
    SiteWord start;
    SiteWord end;
    SiteWord invalid_arguments;
};

/// A path of the other model, under which a handler adds: namespace and absolute schema path.
struct Target {
    const char* ns_uri;
    const char* path;

    consteval Target(const char* target_ns_uri, const char* target_path)
        : ns_uri(target_ns_uri), path(target_path)
    {
        if (*ns_uri == '/' || *path != '/')
            path_does_not_begin_with_a_slash();
    }

private:
    static void path_does_not_begin_with_a_slash(); ///< not constexpr: the compiler names it
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
/// request, and stops the process. So does a debug record at the address null, which is compared as
/// a number: a compiler knows that the address of a member isn't null.
[[gnu::always_inline]] inline void assert_context(OzkMapCtx* ctx, int line)
{
    if (ctx == nullptr) [[unlikely]]
        assertion_failed(line, "NULL != ctx");
    ozk_debug_should_log(&ctx->_debug_ctx, MAP_LOG_TRACE);
    if (reinterpret_cast<uintptr_t>(ctx) + offsetof(OzkMapCtx, _debug_ctx) == 0) [[unlikely]]
        assertion_failed(line, "NULL != (&((ctx)->_debug_ctx))");
}

/// Opens the frame of a map function: what every one asserts and reports first.
[[gnu::always_inline]] inline void enter(OzkMapCtx* ctx, const Place& place, SiteWord& start)
{
    assert_context(ctx, place.line);
    log_point<text_start>(ctx, place, start);
}

/// Ends a map function that has no node or no tree to work on; no "End" is reported.
[[gnu::always_inline]] inline uint32_t refuse_arguments(OzkMapCtx* ctx, const Place& place,
                                                        SiteWord& invalid_arguments)
{
    log_point<text_invalid_arguments>(ctx, place, invalid_arguments);
    return MAP_ERR_INVALID_ARGS;
}

/// Closes the frame of a map function that returns `status`.
[[gnu::always_inline]] inline uint32_t leave(OzkMapCtx* ctx, const Place& place, SiteWord& end,
                                             uint32_t status)
{
    log_point<text_end>(ctx, place, end);
    return status;
}

/// The frame of a row's function around `work`, a callable that returns a status.
template <class Work>
[[gnu::always_inline]] inline uint32_t in_frame(OzkMapCtx* ctx, const OzkMapNode* node,
                                                OzkDataTree* tree, const Place& place,
                                                FrameSites& sites, Work work)
{
    enter(ctx, place, sites.start);
    if (node == nullptr || tree == nullptr) [[unlikely]]
        return refuse_arguments(ctx, place, sites.invalid_arguments);
    return leave(ctx, place, sites.end, work());
}

/// Leaves a copy of the tag of `node` with the request, as the cause of a failure.
inline void report_offending_tag(OzkMapCtx* ctx, const OzkMapNode* node)
{
    ctx->request->offending_tag = ozk_strdup(node->tag, MAP_MEMORY_TAG);
}

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
// Kinds

/// Kinds of generated functions, single bits, as their names say them; a manual leaf is a leaf.
enum Kind : unsigned { container = 1, list = 2, leaf = 4, augment_hook = 8 };

/// The kind of the function of that exported name, 0 for any other. The walkers call functions by
/// name, and the linker compares neither arguments nor sense: rows are held against it.
consteval unsigned kind_of(std::string_view name)
{
    return name.ends_with("_parse_augments")     ? augment_hook
           : name.find("_cont_lvl") != name.npos ? container
           : name.find("_list_lvl") != name.npos ? list
           : name.find("_leaf_lvl") != name.npos ? leaf
                                                 : 0U;
}

// ---------------------------------------------------------------------------------------------
// Shapes of both directions

/// The shape of a function that does `work` within the frame: a function of context, node and tree,
/// and after them of what the row gives. A container's count of children isn't asked for.
template <auto work, unsigned row_kinds>
struct InFrame;

template <class... Row, uint32_t (*work)(OzkMapCtx*, const OzkMapNode*, OzkDataTree*, Row...),
          unsigned row_kinds>
struct InFrame<work, row_kinds> {
    static constexpr unsigned kinds = row_kinds;
    using Sites                     = FrameSites;

    [[gnu::always_inline]] static uint32_t run(OzkMapCtx* ctx, const OzkMapNode* node,
                                               OzkDataTree* tree, const Place& place, Sites& sites,
                                               Row... row)
    {
        return in_frame(ctx, node, tree, place, sites,
                        [&] { return work(ctx, node, tree, row...); });
    }

    [[gnu::always_inline]] static uint32_t run(OzkMapCtx* ctx, const OzkMapNode* node,
                                               uint32_t /*subtree_count*/, OzkDataTree* tree,
                                               const Place& place, Sites& sites, Row... row)
    {
        return run(ctx, node, tree, place, sites, row...);
    }
};

/// A handler that only traces. Most nodes have no counterpart, so it is the one shape that stands
/// out of line: a row of it is no more than a jump.
struct EmptyHandler {
    static constexpr unsigned kinds = container | leaf | augment_hook;
    using Sites                     = FrameSites;

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
        return in_frame(ctx, node, tree, {function, line}, sites,
                        []() -> uint32_t { return MAP_OK; });
    }
};

/// List that has a counterpart: adds the other model's list, with the node as reference when the
/// request deletes the entry.
inline uint32_t path_list(OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree* tree, Target target)
{
    const OzkMapNode* ref_node = ozk_map_is_request_delete(node) != 0 ? node : nullptr;
    return add_list_path(ctx, tree, target, ref_node);
}
using PathList = InFrame<path_list, list>;

/// Container that stands for a whole one of the other model, but only while it is empty: where it
/// has children, their own paths follow.
struct WholeContainer {
    static constexpr unsigned kinds = container;
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
                log_point<text_no_subtrees>(ctx, place, sites.no_subtrees);
                return add_path(ctx, tree, target, nullptr, nullptr);
            }
            log_point<text_no_mapping>(ctx, place, sites.no_mapping);
            return MAP_OK;
        });
    }
};

/// Leaf whose mapping is a function of its own, written by a person.
inline uint32_t call_manual_leaf(OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree* tree,
                                 OzkMapFunction& manual_leaf)
{
    return manual_leaf(ctx, node, tree);
}
using ManualLeafCaller = InFrame<call_manual_leaf, leaf>;

// ---------------------------------------------------------------------------------------------
// Shapes of the direction ymap_iq_, from the IETF model to the native ones

/// Leaf without a native path, on any operation.
inline uint32_t refuse_mapping(OzkMapCtx*, const OzkMapNode*, OzkDataTree*)
{
    return MAP_NOT_MAPPED;
}
using UnmappedLeaf = InFrame<refuse_mapping, leaf>;

/// Configuration leaf: a read selects the path; an edit carries the value over and refers to the
/// node; a delete refers to the node without a value.
inline uint32_t config_leaf(OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree* tree,
                            Target target)
{
    if (is_read(ctx))
        return add_path(ctx, tree, target, nullptr, nullptr);
    const char* value = ozk_map_is_request_delete(node) != 0 ? nullptr : node->value;
    return add_path(ctx, tree, target, value, node);
}
using ConfigLeaf = InFrame<config_leaf, leaf>;

/// State leaf: a read selects the path; nothing else reaches state.
inline uint32_t state_leaf(OzkMapCtx* ctx, const OzkMapNode*, OzkDataTree* tree, Target target)
{
    return is_read(ctx) ? add_path(ctx, tree, target, nullptr, nullptr) : MAP_OK;
}
using StateLeaf = InFrame<state_leaf, leaf>;

/// Default augment hook of the direction: nobody takes an augmenting node that is to be added.
inline uint32_t refuse_add(OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree*)
{
    if (ozk_map_is_request_add(node) == 0)
        return MAP_OK;
    report_offending_tag(ctx, node);
    return MAP_ERR_ADD_REFUSED;
}
using RefuseAdd = InFrame<refuse_add, augment_hook>;

// ---------------------------------------------------------------------------------------------
// Shapes of the direction ymap_qi_, from the native models to the IETF model

/// List without a counterpart. It reports "End" alone and looks at neither node nor tree.
struct BareList {
    static constexpr unsigned kinds = list;
    struct Sites {
        SiteWord end;
    };

    [[gnu::always_inline]] static uint32_t run(OzkMapCtx* ctx, const OzkMapNode* /*node*/,
                                               OzkDataTree* /*tree*/, const Place& place,
                                               Sites& sites)
    {
        assert_context(ctx, place.line);
        return leave(ctx, place, sites.end, MAP_OK);
    }
};

/// Leaf that has a counterpart: its value goes over on any operation.
inline uint32_t mapped_leaf(OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree* tree,
                            Target target)
{
    return add_path(ctx, tree, target, node->value, nullptr);
}
using MappedLeaf = InFrame<mapped_leaf, leaf>;

/// Key leaf of a list: the same add twice; only the second counts.
inline uint32_t key_leaf(OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree* tree, Target target)
{
    mapped_leaf(ctx, node, tree, target);
    return mapped_leaf(ctx, node, tree, target);
}
using KeyLeaf = InFrame<key_leaf, leaf>;

/// Key leaf of a state list of the other direction: the same, on a read only.
inline uint32_t state_key_leaf(OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree* tree,
                               Target target)
{
    return is_read(ctx) ? key_leaf(ctx, node, tree, target) : MAP_OK;
}
using StateKeyLeaf = InFrame<state_key_leaf, leaf>;

/// Container with a YANG when statement (RFC 7950, 7.21.5), which its when hook stands for.
inline uint32_t call_when_hook(OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree*,
                               OzkMapWhenFunction& when_hook)
{
    return when_hook(ctx, node);
}
using WhenContainer = InFrame<call_when_hook, container>;

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
        enter(ctx, place, sites.start);
        uint32_t status = MAP_OK;
        if (node == nullptr) {
            log_point<text_no_when_input>(ctx, place, sites.no_input);
            status = MAP_WHEN_NO_INPUT;
        }
        return leave(ctx, place, sites.end, status);
    }
};

} // namespace
} // namespace ymap

// ---------------------------------------------------------------------------------------------
// Names. A macro writes the shell of a function and its names; all that the function does is in
// the shape. NAME is the plain exported name, written whole, so that it can be found.

/// Gives the function __NAME its plain name as a weak alias. Generated code calls the plain name
/// only; a strong function NAME in a manual source takes its place when the library is linked.
///
///     YMAP_WEAK_ALIAS(ymap_x_leaf_lvla_a_b);
///
/// makes   ymap_x_leaf_lvla_a_b, weak, the same function as __ymap_x_leaf_lvla_a_b.
#define YMAP_WEAK_ALIAS(NAME)                                                                      \
    YMAP_EXPORT [[gnu::weak, gnu::alias("__" #NAME)]] decltype(__##NAME) NAME

/// A map function NAME whose work the type SHAPE above does; further arguments are those of its
/// `run`. A row of a _man source: a manual leaf.
///
///     YMAP_MAP_FUNCTION(ymap_x_man_leaf_lvla_a_b, EmptyHandler);
///
/// makes   uint32_t ymap_x_man_leaf_lvla_a_b(OzkMapCtx*, const OzkMapNode*, OzkDataTree*)
#define YMAP_MAP_FUNCTION(NAME, SHAPE, ...)                                                        \
    extern "C" uint32_t NAME(OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree* tree)            \
    {                                                                                              \
        static_assert((SHAPE::kinds & kind_of(#NAME) & ~container) != 0,                           \
                      #SHAPE " is no shape for a row of " #NAME);                                  \
        static SHAPE::Sites sites;                                                                 \
        return SHAPE::run(ctx, node, tree, YMAP_HERE, sites __VA_OPT__(, ) __VA_ARGS__);           \
    }                                                                                              \
    static_assert(true)

/// A when hook NAME, a row of a _man source.
///
///     YMAP_WHEN_HOOK(ymap_x_cont_lvla_a_b_handle_when, PassingWhenHook);
///
/// makes   uint32_t ymap_x_cont_lvla_a_b_handle_when(OzkMapCtx*, const OzkMapNode*)
#define YMAP_WHEN_HOOK(NAME, SHAPE)                                                                \
    extern "C" uint32_t NAME(OzkMapCtx* ctx, const OzkMapNode* node)                               \
    {                                                                                              \
        static SHAPE::Sites sites;                                                                 \
        return SHAPE::run(ctx, node, YMAP_HERE, sites);                                            \
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
    YMAP_WEAK_ALIAS(NAME);                                                                         \
    }                                                                                              \
    static_assert(true)

/// The same for a container handler, which is told the count of the children as well.
///
///     YMAP_CONTAINER_HANDLER(ymap_x_cont_lvla_a, WholeContainer, {NS_IETF_INTERFACES, "/a"});
///
/// makes   uint32_t __ymap_x_cont_lvla_a(OzkMapCtx*, const OzkMapNode*, uint32_t, OzkDataTree*)
/// and     ymap_x_cont_lvla_a, weak, the same function.
#define YMAP_CONTAINER_HANDLER(NAME, SHAPE, ...)                                                   \
    extern "C" {                                                                                   \
    YMAP_EXPORT OzkMapContainerFunction __##NAME;                                                  \
    uint32_t __##NAME(OzkMapCtx* ctx, const OzkMapNode* node, uint32_t subtree_count,              \
                      OzkDataTree* tree)                                                           \
    {                                                                                              \
        static_assert((SHAPE::kinds & kind_of(#NAME) & container) != 0,                            \
                      #SHAPE " is no shape for a container's row of " #NAME);                      \
        static SHAPE::Sites sites;                                                                 \
        return SHAPE::run(ctx, node, subtree_count, tree, YMAP_HERE,                               \
                          sites __VA_OPT__(, ) __VA_ARGS__);                                       \
    }                                                                                              \
    YMAP_WEAK_ALIAS(NAME);                                                                         \
    }                                                                                              \
    static_assert(true)

#endif
