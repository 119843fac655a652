// The walkers of a map library, for both directions: the child loop, the container and list
// walkers and the leaf thunk, each told once. A _parser source is rows: a walker with its schema,
// its stem and the rows of its node's child table.
//
//     // /ports/port
//     YMAP_LIST(Ports, lvla_ports_port, "/ports/port",
//         YMAP_LEAF ("name", lvla_ports_port_name),
//         YMAP_CHILD("lane", lvla_ports_port_lane));
//
// The table is a sequence of tests in the order of the schema, which the compiler turns into
// direct calls; the expansion of an empty node visits the same sequence without the tests.
//
// Ports names the schema that is walked: a type with
//     ns_uri      the namespace of the model,
//     direction   which way the walk maps,
//     gated       whether the tags are those of state data, which only MAP_OP_GET reaches,
//     whole       whether a list entry is always read whole.

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

inline constexpr LogText<> text_failed_subtrees{MAP_LOG_ERROR, "Failed to get subtrees!"};
inline constexpr LogText<> text_unsupported_tag{MAP_LOG_ERROR,
                                                "Unsupported tag is specified in the request."};
inline constexpr LogText<> text_ignored_tag{MAP_LOG_TRACE, "Unsupported tag. Ignoring."};
inline constexpr LogText<> text_no_keys{MAP_LOG_ERROR, "No keys specified with a list node."};
inline constexpr LogText<> text_key_expected{MAP_LOG_ERROR, "List key 'name' expected."};
inline constexpr LogText<> text_empty_key{MAP_LOG_ERROR, "Empty list key specified."};
inline constexpr LogText<> text_key_delete{MAP_LOG_ERROR,
                                           "The key node should not have delete operation."};

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
// Rows and nodes. What is known of a node stands in a callable, a template argument: a row is a
// type of its own, which holds nothing, and its site words can be statics.

/// What is known of a node in its parent's child table.
struct ChildFacts {
    const char* tag;
    OzkMapFunction* target; ///< of a container or list its walker, of a leaf its handler
    Place thunk = {};       ///< of a leaf
};

/// A container or list in a child table.
template <auto facts>
struct ChildRow {
    static constexpr bool is_key = false;

    static constexpr const char* tag() { return facts().tag; }

    [[gnu::always_inline]] static uint32_t call(OzkMapCtx* ctx, const OzkMapNode* node,
                                                OzkDataTree* tree)
    {
        return facts().target(ctx, node, tree);
    }
};

/// A leaf in a child table. Calling it is the leaf's thunk.
template <auto facts>
struct LeafRow : ChildRow<facts> {
    [[gnu::always_inline]] static uint32_t call(OzkMapCtx* ctx, const OzkMapNode* node,
                                                OzkDataTree* tree)
    {
        static FrameSites sites;
        return in_frame(ctx, node, tree, facts().thunk, sites,
                        [&] { return facts().target(ctx, node, tree); });
    }
};

/// The leaf that is its list's key, which is tested before its thunk runs.
template <class Leaf>
struct KeyRow : Leaf {
    static constexpr bool is_key = true;
};

/// The row of `leaf` as that of the list's key: list_key(YMAP_LEAF("name", ...)).
template <class Leaf>
constexpr KeyRow<Leaf> list_key(Leaf /*leaf*/)
{
    return {};
}

/// What a walker knows of its own node. `Handler` is the type of a container or of a list handler.
template <class Handler>
struct NodeFacts {
    Place place;
    Handler* handler;
    OzkMapFunction* augment_hook; ///< takes the children of other models
    const char* list_path;        ///< a list's schema path in the model that is walked
};

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

/// One run of a walker: what its steps have in common. `Rows` are the node's child table.
template <class Schema, auto self, class Sites, class... Rows>
struct Walk {
    static constexpr bool from_ietf = Schema::direction == Direction::from_ietf;

    OzkMapCtx* ctx;
    const OzkMapNode* node;
    OzkDataTree* tree;
    Sites& sites;

    /// Whether the key stands where it must: an entry that the request adds begins with its key.
    /// Where the request doesn't add it, the key may stand anywhere.
    [[gnu::always_inline]] bool key_in_place(const OzkMapNode* first_child) const
    {
        static_assert((int{Rows::is_key} + ...) == 1, "a list has one key row");
        const char* key = nullptr;
        ((key = Rows::is_key ? Rows::tag() : key), ...);
        return ozk_map_is_request_add(first_child) == 0 ||
               (first_child->tag != nullptr && ozk_map_do_these_match(first_child->tag, key) != 0);
    }

    /// The two tests on a key before its thunk runs.
    [[gnu::always_inline]] uint32_t check_key(const OzkMapNode* key) const
    {
        if (operation(ctx) == MAP_OP_EDIT && (key->flags & MAP_NODE_HAS_VALUE) == 0) {
            log_point<text_empty_key>(ctx, self().place, sites.empty_key);
            report_offending_tag(ctx, key);
            return MAP_ERR_BAD_KEY;
        }
        if (ozk_map_is_request_delete(key) != 0) {
            log_point<text_key_delete>(ctx, self().place, sites.key_delete);
            return MAP_ERR_KEY_DELETE;
        }
        return MAP_OK;
    }

    /// Tests `child` against one row of the table; on a match calls the row's target, leaves its
    /// result in `status` and returns true. A tag that the operation may not reach matches nothing.
    template <class Row>
    [[gnu::always_inline]] bool dispatch(const OzkMapNode* child, uint32_t& status) const
    {
        if (ozk_map_do_these_match(child->tag, Row::tag()) == 0 || !passes_gate<Schema>(ctx))
            return false;
        if constexpr (Row::is_key) {
            status = check_key(child);
            if (status != MAP_OK)
                return true;
        }
        status = Row::call(ctx, child, tree);
        return true;
    }

    /// A child that no row has taken: an unknown tag of the own model, or a node of another model,
    /// which is the augment hook's.
    [[gnu::always_inline]] uint32_t pass_on(const OzkMapNode* child) const
    {
        if (ozk_map_do_these_match(Schema::ns_uri, child->ns_uri) == 0)
            return self().augment_hook(ctx, child, tree);
        if constexpr (from_ietf) {
            log_point<text_unsupported_tag>(ctx, self().place, sites.unknown_tag);
            report_offending_tag(ctx, child);
            return MAP_ERR_UNSUPPORTED_TAG;
        } else {
            log_point<text_ignored_tag>(ctx, self().place, sites.unknown_tag);
            return MAP_OK;
        }
    }

    /// The child loop: visits the children in the order of the tree until one gives a status other
    /// than 0, MAP_NOT_MAPPED included.
    [[gnu::always_inline]] uint32_t visit(const Children& children) const
    {
        uint32_t status             = MAP_OK;
        const OzkMapNode* const end = children.first + children.count;
        for (const OzkMapNode* child = children.first; child != end && status == MAP_OK; ++child) {
            if (child->tag == nullptr) [[unlikely]] {
                log_point<text_no_tag>(ctx, self().place, sites.no_tag);
                return MAP_ERR_NO_SUBTREES;
            }
            if (!(dispatch<Rows>(child, status) || ...))
                status = pass_on(child);
        }
        return status;
    }

    /// Subtree expansion: an empty node of a read selects all below it, so that every target gets
    /// the node itself, and then the hook. What they return is dropped.
    [[gnu::always_inline]] void expand() const
    {
        (expand_row<Rows>(), ...);
        self().augment_hook(ctx, node, tree);
    }

    template <class Row>
    [[gnu::always_inline]] void expand_row() const
    {
        if (passes_gate<Schema>(ctx))
            Row::call(ctx, node, tree);
    }

    /// The end of a walk whose node announces children that aren't there.
    [[gnu::always_inline]] uint32_t refuse_tree() const
    {
        log_point<text_failed_subtrees>(ctx, self().place, sites.failed_subtrees);
        return leave(ctx, self().place, sites.end, MAP_ERR_NO_SUBTREES);
    }

    /// The end that all walkers but one share: the child loop, or the expansion, also where the
    /// handler has failed; off the hierarchy, and out of the frame.
    [[gnu::always_inline]] uint32_t finish(uint32_t status, const Children& children) const
    {
        if (status == MAP_OK && children.count > 0)
            status = visit(children);
        if constexpr (from_ietf) {
            if (children.count == 0 && is_read(ctx))
                expand();
        }
        ozk_map_remove_from_node_hierarchy(ctx, node);
        return leave(ctx, self().place, sites.end, status);
    }
};

// ---------------------------------------------------------------------------------------------
// Walkers

/// Walks a container, a root included. In the direction from_ietf a container without children is
/// expanded on a read, also when its handler has failed.
template <class Schema, auto self, class... Rows>
[[gnu::always_inline]] inline uint32_t walk_container(OzkMapCtx* ctx, const OzkMapNode* node,
                                                      OzkDataTree* tree, Rows... /*rows*/)
{
    static WalkerSites sites;
    enter(ctx, self().place, sites.start);
    if (node == nullptr || tree == nullptr) [[unlikely]]
        return refuse_arguments(ctx, self().place, sites.invalid_arguments);
    const Walk<Schema, self, WalkerSites, Rows...> walk{ctx, node, tree, sites};
    Children children;
    if (!read_children(node, children)) [[unlikely]]
        return walk.refuse_tree();
    ozk_map_add_to_node_hierarchy(ctx, node, MAP_HIER_CONTAINER);
    return walk.finish(self().handler(ctx, node, children.count, tree), children);
}

/// Walks an entry of a list that a read always selects whole: the children that the request names
/// are not looked at, every target gets the entry itself, and what the targets return is dropped.
template <class Schema, auto self, class... Rows>
[[gnu::always_inline]] inline uint32_t walk_whole_entry(OzkMapCtx* ctx, const OzkMapNode* node,
                                                        OzkDataTree* tree)
{
    static_assert(Schema::direction == Direction::from_ietf && Schema::gated);
    static_assert(!(Rows::is_key || ...), "no key is tested here");
    static FrameSites sites;
    enter(ctx, self().place, sites.start);
    if (node == nullptr || tree == nullptr) [[unlikely]]
        return refuse_arguments(ctx, self().place, sites.invalid_arguments);
    ozk_map_add_to_node_hierarchy(ctx, node, MAP_HIER_LIST);
    uint32_t status = ozk_map_update_current_list_node(ctx, self().list_path);
    if (status == MAP_OK)
        status = self().handler(ctx, node, tree);
    if (status == MAP_OK)
        set_list_position(ctx, node);
    (static_cast<void>(Rows::call(ctx, node, tree)), ...);
    self().augment_hook(ctx, node, tree);
    ozk_map_remove_from_node_hierarchy(ctx, node);
    return leave(ctx, self().place, sites.end, status);
}

/// Walks a list entry. In the direction from_ietf its key is tested, its position is told once the
/// entry has been accepted, and an entry without children is expanded on a read, also when its path
/// or its handler has failed. In the direction to_ietf keys are children like any other.
template <class Schema, auto self, class... Rows>
[[gnu::always_inline]] inline uint32_t walk_entry(OzkMapCtx* ctx, const OzkMapNode* node,
                                                  OzkDataTree* tree)
{
    constexpr bool from_ietf = Schema::direction == Direction::from_ietf;
    using Sites              = std::conditional_t<from_ietf, KeyedListSites, ListSites>;
    static Sites sites;
    enter(ctx, self().place, sites.start);
    if (node == nullptr || tree == nullptr) [[unlikely]]
        return refuse_arguments(ctx, self().place, sites.invalid_arguments);
    const Walk<Schema, self, Sites, Rows...> walk{ctx, node, tree, sites};
    Children children;
    if (!read_children(node, children)) [[unlikely]]
        return walk.refuse_tree();
    if (children.count == 0)
        log_point<text_no_keys>(ctx, self().place, sites.no_keys);
    ozk_map_add_to_node_hierarchy(ctx, node, MAP_HIER_LIST);
    uint32_t status = ozk_map_update_current_list_node(ctx, self().list_path);
    if constexpr (from_ietf) {
        if (status == MAP_OK && children.count > 0 && !walk.key_in_place(children.first)) {
            log_point<text_key_expected>(ctx, self().place, sites.key_expected);
            report_offending_tag(ctx, children.first);
            status = MAP_ERR_BAD_KEY;
        }
    }
    if (status == MAP_OK)
        status = self().handler(ctx, node, tree);
    if constexpr (from_ietf) {
        if (status == MAP_OK)
            set_list_position(ctx, node);
    }
    return walk.finish(status, children);
}

template <class Schema, auto self, class... Rows>
[[gnu::always_inline]] inline uint32_t walk_list(OzkMapCtx* ctx, const OzkMapNode* node,
                                                 OzkDataTree* tree, Rows... /*rows*/)
{
    if constexpr (Schema::whole)
        return walk_whole_entry<Schema, self, Rows...>(ctx, node, tree);
    else
        return walk_entry<Schema, self, Rows...>(ctx, node, tree);
}

} // namespace
} // namespace ymap

// ---------------------------------------------------------------------------------------------
// Names. A _parser source stands inside extern "C" and defines how the names of its model begin:
//
//     #define YMAP_NAME(KIND, STEM) ymap_x_##KIND##STEM
//
// A STEM is a node's level letter and stem, such as lvla_interfaces_interface.

// The text of a name, after macros in it have been replaced by what they stand for:
// YMAP_STRING(YMAP_NAME(leaf_, lvla_a)) makes "ymap_x_leaf_lvla_a".
#define YMAP_STRING_(NAME) #NAME
#define YMAP_STRING(NAME)  YMAP_STRING_(NAME)

/// The walker of the node STEM: WALK is its work, a function of this header, for the schema SCHEMA;
/// KIND and HANDLER are the word in the name of the node's handler and the handler's type; then the
/// list's path or null, and the rows of the child table. What declares the walker comes before it:
/// its parent's row, which keeps it local to the library, or for a root the public header, which
/// exports it. It stays a function of its own, so that debuggers and profiles show it, and no
/// walker has the stack frame of those below it. YMAP_CONTAINER and YMAP_LIST below show what it
/// makes.
#define YMAP_WALKER(WALK, SCHEMA, STEM, KIND, HANDLER, LIST_PATH, ...)                             \
    HANDLER YMAP_NAME(KIND, STEM);                                                                 \
    OzkMapFunction YMAP_NAME(, STEM##_parse_augments);                                             \
    [[gnu::noinline]] uint32_t YMAP_NAME(, STEM)(OzkMapCtx * ctx, const OzkMapNode* node,          \
                                                 OzkDataTree* tree)                                \
    {                                                                                              \
        constexpr auto self = [] {                                                                 \
            return NodeFacts<HANDLER>{{YMAP_STRING(YMAP_NAME(, STEM)), __LINE__},                  \
                                      YMAP_NAME(KIND, STEM),                                       \
                                      YMAP_NAME(, STEM##_parse_augments),                          \
                                      LIST_PATH};                                                  \
        };                                                                                         \
        return WALK<SCHEMA, self>(ctx, node, tree, __VA_ARGS__);                                   \
    }                                                                                              \
    static_assert(true)

/// The walker of the container STEM, in model ymap_x_:
///
///     YMAP_CONTAINER(Ports, lvla_a_b, YMAP_LEAF("c", lvla_a_b_c));
///
/// makes the walker ymap_x_lvla_a_b, which calls the handler ymap_x_cont_lvla_a_b and the augment
/// hook ymap_x_lvla_a_b_parse_augments.
#define YMAP_CONTAINER(SCHEMA, STEM, ...)                                                          \
    YMAP_WALKER(walk_container, SCHEMA, STEM, cont_, OzkMapContainerFunction, nullptr, __VA_ARGS__)
/// The walker of the list STEM; PATH is its schema path:
///
///     YMAP_LIST(Ports, lvla_a_b, "/a/b", YMAP_LEAF("c", lvla_a_b_c));
///
/// makes the same walker, which calls the handler ymap_x_list_lvla_a_b.
#define YMAP_LIST(SCHEMA, STEM, PATH, ...)                                                         \
    YMAP_WALKER(walk_list, SCHEMA, STEM, list_, OzkMapFunction, PATH, __VA_ARGS__)

/// A row of a child table, for the leaf STEM with the tag TAG:
///
///     YMAP_LEAF("c", lvla_a_b_c)
///
/// makes a LeafRow whose thunk traces as ymap_x_lvla_a_b_c and calls ymap_x_leaf_lvla_a_b_c.
#define YMAP_LEAF(TAG, STEM)                                                                       \
    LeafRow<[] {                                                                                   \
        OzkMapFunction YMAP_NAME(leaf_, STEM);                                                     \
        return ChildFacts{                                                                         \
            TAG, YMAP_NAME(leaf_, STEM), {YMAP_STRING(YMAP_NAME(, STEM)), __LINE__}};              \
    }>                                                                                             \
    {                                                                                              \
    }
/// The row of a container or list:
///
///     YMAP_CHILD("b", lvla_a_b)
///
/// makes a ChildRow that calls the walker ymap_x_lvla_a_b, of this source or another.
#define YMAP_CHILD(TAG, STEM)                                                                      \
    ChildRow<[] {                                                                                  \
        [[gnu::visibility("hidden")]] OzkMapFunction YMAP_NAME(, STEM);                            \
        return ChildFacts{TAG, YMAP_NAME(, STEM)};                                                 \
    }>                                                                                             \
    {                                                                                              \
    }

#endif
