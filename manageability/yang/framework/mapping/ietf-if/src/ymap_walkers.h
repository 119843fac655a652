// The walkers of a map library, for both directions: the child loop, the container and list
// walkers and the leaf thunk, each told once. A _parser source writes a walker as one call of a
// function of this header, whose further arguments are the rows of the node's child table:
//
//     YMAP_WALKER(lvla_ports_port)
//     {
//         return walk_list<Ports>(ctx, node, tree,
//             YMAP_LIST(lvla_ports_port, "/ports/port"),
//             YMAP_LEAF("name", lvla_ports_port_name),
//             YMAP_CHILD("lane", lvla_ports_port_lane));
//     }
//
// The table is a sequence of tests in the order of the schema, which the compiler turns into
// direct calls; the expansion of an empty node visits the same sequence without the tests.
//
// The type argument names the schema that is walked: a type with
//     ns_uri      the namespace of the model,
//     direction   which way the walk maps,
//     gated       whether the tags are those of state data, which only MAP_OP_GET reaches.

#ifndef YMAP_WALKERS_H
#define YMAP_WALKERS_H

#include <type_traits>

#include "ymap_handlers.h"

namespace ymap {

/// The way that a walk maps, and with it what the walk forgives.
enum class Direction {
    from_ietf, ///< ymap_iq_: a client's request, which is checked and, when empty, expanded
    to_ietf,   ///< ymap_qi_: native data, of which the unknown is passed over
};

inline constexpr LogText text_failed_subtrees = YMAP_ERROR_TEXT("Failed to get subtrees!");
inline constexpr LogText text_unsupported_tag =
    YMAP_ERROR_TEXT("Unsupported tag is specified in the request.");
inline constexpr LogText text_ignored_tag  = YMAP_TRACE_TEXT("Unsupported tag. Ignoring.");
inline constexpr LogText text_no_keys      = YMAP_ERROR_TEXT("No keys specified with a list node.");
inline constexpr LogText text_key_expected = YMAP_ERROR_TEXT("List key 'name' expected.");
inline constexpr LogText text_empty_key    = YMAP_ERROR_TEXT("Empty list key specified.");
inline constexpr LogText text_key_delete =
    YMAP_ERROR_TEXT("The key node should not have delete operation.");

/// The site words of a container walker.
struct WalkerSites : FrameSites {
    SiteWord failed_subtrees;
    SiteWord no_tag;
    SiteWord unknown_tag;
};

/// The site words of a list walker.
struct ListSites : WalkerSites {
    SiteWord no_keys;
};

/// The site words of a list walker that tests the list's key.
struct KeyedListSites : ListSites {
    SiteWord key_expected;
    SiteWord empty_key;
    SiteWord key_delete;
};

namespace {

// ---------------------------------------------------------------------------------------------
// Rows and nodes. The types of YMAP_LEAF, YMAP_CONTAINER and YMAP_LIST are different for each node,
// since the callables in them are; so each node's site words can be statics of a template.

/// A leaf in a child table. Calling it is the leaf's thunk.
template <class Handler>
struct LeafRow {
    static constexpr bool is_key = false;

    const char* tag;
    Place thunk;
    Handler handler; ///< gives the leaf's handler

    [[gnu::always_inline]] uint32_t operator()(OzkMapCtx* ctx, const OzkMapNode* node,
                                               OzkDataTree* tree) const
    {
        static FrameSites sites;
        return in_frame(ctx, node, tree, thunk, sites, [&] { return handler()(ctx, node, tree); });
    }
};

template <class Handler>
constexpr LeafRow<Handler> leaf_row(const char* tag, const Place& thunk, Handler handler)
{
    return {tag, thunk, handler};
}

/// The leaf that is its list's key, which is tested before its thunk runs.
template <class Handler>
struct KeyRow : LeafRow<Handler> {
    static constexpr bool is_key = true;
};

/// The row of `leaf` as that of the list's key: list_key(YMAP_LEAF("name", ...)).
template <class Handler>
constexpr KeyRow<Handler> list_key(const LeafRow<Handler>& leaf)
{
    return {leaf};
}

/// A container or list in a child table.
struct ChildRow {
    static constexpr bool is_key = false;

    const char* tag;
    OzkMapFunction& walker;

    [[gnu::always_inline]] uint32_t operator()(OzkMapCtx* ctx, const OzkMapNode* node,
                                               OzkDataTree* tree) const
    {
        return walker(ctx, node, tree);
    }
};

constexpr ChildRow child_row(const char* tag, OzkMapFunction& walker)
{
    return {tag, walker};
}

/// What a walker knows of its own node.
template <class Handler, class AugmentHook>
struct Container {
    Place place;
    Handler handler;          ///< gives the container's handler
    AugmentHook augment_hook; ///< gives the hook for children of other models
};

template <class Handler, class AugmentHook>
struct List {
    Place place;
    Handler handler; ///< gives the list handler
    AugmentHook augment_hook;
    const char* path; ///< the list's schema path in the model that is walked
};

template <class Handler, class AugmentHook>
constexpr Container<Handler, AugmentHook> container_node(const Place& place, Handler handler,
                                                         AugmentHook augment_hook)
{
    return {place, handler, augment_hook};
}

template <class Handler, class AugmentHook>
constexpr List<Handler, AugmentHook> list_node(const Place& place, Handler handler,
                                               AugmentHook augment_hook, const char* path)
{
    return {place, handler, augment_hook, path};
}

// ---------------------------------------------------------------------------------------------
// Steps of a walker

/// The children of a node, as its flags let them be read.
struct Children {
    const OzkMapNode* first = nullptr;
    uint32_t count          = 0;
};

/// Reads the children of `node`; false if the tree is broken: a count without an array.
[[gnu::always_inline]] inline bool read_children(const OzkMapNode* node, Children& children)
{
    if ((node->flags & MAP_NODE_HAS_SUBTREES) != 0)
        children = {node->subtrees, node->subtree_count};
    return children.count == 0 || children.first != nullptr;
}

/// Whether the running operation reaches the tags of `Schema`.
template <class Schema>
[[gnu::always_inline]] inline bool passes_gate(const OzkMapCtx* ctx)
{
    return !Schema::gated || operation(ctx) == MAP_OP_GET;
}

/// Tells the framework where in its list an entry stands, once the entry has been accepted.
[[gnu::always_inline]] inline void set_list_position(OzkMapCtx* ctx, const OzkMapNode* node)
{
    ctx->list_position = (node->flags & MAP_NODE_HAS_POSITION) != 0 ? node->position : 0;
}

/// The two tests on a key before its thunk runs.
[[gnu::always_inline]] inline uint32_t check_key(OzkMapCtx* ctx, const OzkMapNode* key,
                                                 const Place& place, KeyedListSites& sites)
{
    if (operation(ctx) == MAP_OP_EDIT && (key->flags & MAP_NODE_HAS_VALUE) == 0) {
        log_point(ctx, text_empty_key, place, sites.empty_key);
        report_offending_tag(ctx, key);
        return MAP_ERR_BAD_KEY;
    }
    if (ozk_map_is_request_delete(key) != 0) {
        log_point(ctx, text_key_delete, place, sites.key_delete);
        return MAP_ERR_KEY_DELETE;
    }
    return MAP_OK;
}

/// Tests `child` against one row of the table; on a match calls the row's target, leaves its
/// result in `status` and returns true. A tag that the operation may not reach matches nothing.
template <class Schema, class Row, class Sites>
[[gnu::always_inline]] inline bool dispatch(OzkMapCtx* ctx, const OzkMapNode* child,
                                            OzkDataTree* tree, const Place& place, Sites& sites,
                                            uint32_t& status, const Row& row)
{
    if (ozk_map_do_these_match(child->tag, row.tag) == 0 || !passes_gate<Schema>(ctx))
        return false;
    if constexpr (Row::is_key) {
        status = check_key(ctx, child, place, sites);
        if (status != MAP_OK)
            return true;
    }
    status = row(ctx, child, tree);
    return true;
}

/// A child that no row has taken: an unknown tag of the own model, or a node of another model,
/// which is the augment hook's.
template <class Schema, class Self, class Sites>
[[gnu::always_inline]] inline uint32_t pass_on(OzkMapCtx* ctx, const OzkMapNode* child,
                                               OzkDataTree* tree, const Self& self, Sites& sites)
{
    if (ozk_map_do_these_match(Schema::ns_uri, child->ns_uri) == 0)
        return self.augment_hook()(ctx, child, tree);
    if constexpr (Schema::direction == Direction::from_ietf) {
        log_point(ctx, text_unsupported_tag, self.place, sites.unknown_tag);
        report_offending_tag(ctx, child);
        return MAP_ERR_UNSUPPORTED_TAG;
    } else {
        log_point(ctx, text_ignored_tag, self.place, sites.unknown_tag);
        return MAP_OK;
    }
}

/// The child loop: visits the children in the order of the tree until one gives a status other
/// than 0, MAP_NOT_MAPPED included.
template <class Schema, class Self, class Sites, class... Rows>
[[gnu::always_inline]] inline uint32_t walk_children(OzkMapCtx* ctx, const Children& children,
                                                     OzkDataTree* tree, const Self& self,
                                                     Sites& sites, const Rows&... rows)
{
    uint32_t status = MAP_OK;
    for (uint32_t i = 0; i < children.count && status == MAP_OK; ++i) {
        const OzkMapNode* child = &children.first[i];
        if (child->tag == nullptr) [[unlikely]] {
            log_point(ctx, text_no_tag, self.place, sites.no_tag);
            return MAP_ERR_NO_SUBTREES;
        }
        if (!(dispatch<Schema>(ctx, child, tree, self.place, sites, status, rows) || ...))
            status = pass_on<Schema>(ctx, child, tree, self, sites);
    }
    return status;
}

/// One row of an expansion.
template <class Schema, class Row>
[[gnu::always_inline]] inline void expand_row(OzkMapCtx* ctx, const OzkMapNode* node,
                                              OzkDataTree* tree, const Row& row)
{
    if (passes_gate<Schema>(ctx))
        row(ctx, node, tree);
}

/// Subtree expansion: an empty node of a read selects all below it, so that every target gets the
/// node itself, and then the hook. What they return is dropped.
template <class Schema, class Self, class... Rows>
[[gnu::always_inline]] inline void expand(OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree* tree,
                                          const Self& self, const Rows&... rows)
{
    (expand_row<Schema>(ctx, node, tree, rows), ...);
    self.augment_hook()(ctx, node, tree);
}

// ---------------------------------------------------------------------------------------------
// Walkers

/// Walks a container, a root included. In the direction from_ietf a container without children is
/// expanded on a read, also when its handler has failed.
template <class Schema, class Self, class... Rows>
[[gnu::always_inline]] inline uint32_t walk_container(OzkMapCtx* ctx, const OzkMapNode* node,
                                                      OzkDataTree* tree, const Self& self,
                                                      const Rows&... rows)
{
    static WalkerSites sites;
    return in_frame(ctx, node, tree, self.place, sites, [&]() -> uint32_t {
        Children children;
        if (!read_children(node, children)) {
            log_point(ctx, text_failed_subtrees, self.place, sites.failed_subtrees);
            return MAP_ERR_NO_SUBTREES;
        }
        ozk_map_add_to_node_hierarchy(ctx, node, MAP_HIER_CONTAINER);
        uint32_t status = self.handler()(ctx, node, children.count, tree);
        if (children.count > 0 && status == MAP_OK)
            status = walk_children<Schema>(ctx, children, tree, self, sites, rows...);
        if constexpr (Schema::direction == Direction::from_ietf) {
            if (children.count == 0 && is_read(ctx))
                expand<Schema>(ctx, node, tree, self, rows...);
        }
        ozk_map_remove_from_node_hierarchy(ctx, node);
        return status;
    });
}

/// Whether the key stands where it must: an entry that the request adds begins with its key, the
/// leaf `key_tag`. Where the request doesn't add it, the key may stand anywhere.
[[gnu::always_inline]] inline bool key_in_place(const OzkMapNode* first_child, const char* key_tag)
{
    return ozk_map_is_request_add(first_child) == 0 ||
           (first_child->tag != nullptr && ozk_map_do_these_match(first_child->tag, key_tag) != 0);
}

/// The tag of the one row that is the list's key.
template <class... Rows>
constexpr const char* key_tag_of(const Rows&... rows)
{
    static_assert((static_cast<int>(Rows::is_key) + ...) == 1, "a list has one key row");
    const char* tag = nullptr;
    ((Rows::is_key ? static_cast<void>(tag = rows.tag) : void()), ...);
    return tag;
}

/// Walks a list entry. In the direction from_ietf its key is tested, its position is told once the
/// entry has been accepted, and an entry without children is expanded on a read, also when its path
/// or its handler has failed. In the direction to_ietf keys are children like any other.
template <class Schema, class Self, class... Rows>
[[gnu::always_inline]] inline uint32_t walk_list(OzkMapCtx* ctx, const OzkMapNode* node,
                                                 OzkDataTree* tree, const Self& self,
                                                 const Rows&... rows)
{
    constexpr bool from_ietf = Schema::direction == Direction::from_ietf;
    static std::conditional_t<from_ietf, KeyedListSites, ListSites> sites;
    return in_frame(ctx, node, tree, self.place, sites, [&]() -> uint32_t {
        Children children;
        if (!read_children(node, children)) {
            log_point(ctx, text_failed_subtrees, self.place, sites.failed_subtrees);
            return MAP_ERR_NO_SUBTREES;
        }
        if (children.count == 0)
            log_point(ctx, text_no_keys, self.place, sites.no_keys);
        ozk_map_add_to_node_hierarchy(ctx, node, MAP_HIER_LIST);
        uint32_t status = ozk_map_update_current_list_node(ctx, self.path);
        if constexpr (from_ietf) {
            if (status == MAP_OK && children.count > 0 &&
                !key_in_place(children.first, key_tag_of(rows...))) {
                log_point(ctx, text_key_expected, self.place, sites.key_expected);
                report_offending_tag(ctx, children.first);
                status = MAP_ERR_BAD_KEY;
            }
        }
        if (status == MAP_OK)
            status = self.handler()(ctx, node, tree);
        if constexpr (from_ietf) {
            if (status == MAP_OK)
                set_list_position(ctx, node);
        }
        if (status == MAP_OK && children.count > 0)
            status = walk_children<Schema>(ctx, children, tree, self, sites, rows...);
        if constexpr (from_ietf) {
            if (children.count == 0 && is_read(ctx))
                expand<Schema>(ctx, node, tree, self, rows...);
        }
        ozk_map_remove_from_node_hierarchy(ctx, node);
        return status;
    });
}

/// Walks an entry of a state list of the direction from_ietf, which a read always selects whole:
/// the children that the request names are not looked at, every target gets the entry itself, and
/// what the targets return is dropped.
template <class Schema, class Self, class... Rows>
[[gnu::always_inline]] inline uint32_t walk_whole_list(OzkMapCtx* ctx, const OzkMapNode* node,
                                                       OzkDataTree* tree, const Self& self,
                                                       const Rows&... rows)
{
    static_assert(Schema::direction == Direction::from_ietf);
    static_assert(!(Rows::is_key || ...), "no key is tested here");
    static FrameSites sites;
    return in_frame(ctx, node, tree, self.place, sites, [&]() -> uint32_t {
        ozk_map_add_to_node_hierarchy(ctx, node, MAP_HIER_LIST);
        uint32_t status = ozk_map_update_current_list_node(ctx, self.path);
        if (status == MAP_OK)
            status = self.handler()(ctx, node, tree);
        if (status == MAP_OK)
            set_list_position(ctx, node);
        (static_cast<void>(rows(ctx, node, tree)), ...);
        self.augment_hook()(ctx, node, tree);
        ozk_map_remove_from_node_hierarchy(ctx, node);
        return status;
    });
}

} // namespace
} // namespace ymap

// ---------------------------------------------------------------------------------------------
// Names. A _parser source defines YMAP_MODEL, the prefix of its model's names with the underscore
// behind it, and stands inside extern "C". A STEM is a node's level letter and stem, such as
// lvla_interfaces_interface.

// One name out of A and B, one text out of a name. The outer macro of each pair has the names of
// macros among its arguments, such as YMAP_MODEL, replaced by what they stand for.
#define YMAP_PASTE_(A, B)  A##B
#define YMAP_PASTE(A, B)   YMAP_PASTE_(A, B)
#define YMAP_STRING_(NAME) #NAME
#define YMAP_STRING(NAME)  YMAP_STRING_(NAME)

/// A callable that gives the exported function NAME of type TYPE, which another source defines.
#define YMAP_EXTERN(TYPE, NAME)                                                                    \
    [] {                                                                                           \
        TYPE NAME;                                                                                 \
        return NAME;                                                                               \
    }

/// The head of a walker that is local to its source; its declaration, at the top of the source.
/// It stays a function of its own, so that debuggers and profiles show it, and no walker has the
/// stack frame of those below it.
#define YMAP_WALKER(STEM)                                                                          \
    [[gnu::noinline]] static uint32_t YMAP_PASTE(YMAP_MODEL, STEM)(                                \
        OzkMapCtx * ctx, const OzkMapNode* node, OzkDataTree* tree)
/// The head of a root walker, which the framework finds by NAME.
#define YMAP_ROOT_WALKER(NAME)                                                                     \
    YMAP_EXPORT OzkMapFunction NAME;                                                               \
    uint32_t NAME(OzkMapCtx* ctx, const OzkMapNode* node, OzkDataTree* tree)

/// What the walker of the container STEM knows of its node, in model ymap_x_:
///
///     YMAP_CONTAINER(lvla_a_b)
///
/// makes a Container of this place, the handler ymap_x_cont_lvla_a_b and the augment hook
/// ymap_x_lvla_a_b_parse_augments.
#define YMAP_CONTAINER(STEM)                                                                       \
    container_node({__func__, __LINE__},                                                           \
                   YMAP_EXTERN(OzkMapContainerFunction, YMAP_PASTE(YMAP_MODEL, cont_##STEM)),      \
                   YMAP_EXTERN(OzkMapFunction, YMAP_PASTE(YMAP_MODEL, STEM##_parse_augments)))
/// The same for the list STEM, whose handler is ymap_x_list_lvla_a_b; PATH is its schema path.
#define YMAP_LIST(STEM, PATH)                                                                      \
    list_node({__func__, __LINE__},                                                                \
              YMAP_EXTERN(OzkMapFunction, YMAP_PASTE(YMAP_MODEL, list_##STEM)),                    \
              YMAP_EXTERN(OzkMapFunction, YMAP_PASTE(YMAP_MODEL, STEM##_parse_augments)), PATH)

/// A row of a child table, for the leaf STEM with the tag TAG, in model ymap_x_:
///
///     YMAP_LEAF("c", lvla_a_b_c)
///
/// makes a LeafRow whose thunk traces as ymap_x_lvla_a_b_c and calls ymap_x_leaf_lvla_a_b_c.
#define YMAP_LEAF(TAG, STEM)                                                                       \
    leaf_row(TAG, {YMAP_STRING(YMAP_PASTE(YMAP_MODEL, STEM)), __LINE__},                           \
             YMAP_EXTERN(OzkMapFunction, YMAP_PASTE(YMAP_MODEL, leaf_##STEM)))
/// The row of a container or list, which calls the walker ymap_x_lvla_a_b of this source.
#define YMAP_CHILD(TAG, STEM) child_row(TAG, YMAP_PASTE(YMAP_MODEL, STEM))

#endif
