// What a map library knows of its schema and what it makes of each node, found out by walking it:
// a node whose tag no model has is offered to each walker, which compares the tag with all that it
// knows; each tag so learnt is offered in turn. Trace lines name the functions on the way. Nothing
// here knows a model; the rule of names is the one that every map library keeps to.

#ifndef YMAP_DATA_EXPLORE_H
#define YMAP_DATA_EXPLORE_H

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ymap.h"

namespace ymap::data {

/// One thing that can be asked of a node. An edit here neither adds nor deletes: no operation
/// stands on any node and the default operation is "none" (RFC 6241, 7.2); a delete stands on the
/// node itself.
enum class Query : uint8_t { get_config, get, edit, erase };
inline constexpr size_t query_count = 4;

/// Where the value of an added path comes from.
enum class ValueFrom : uint8_t {
    nowhere, ///< no value: the path only selects, or names, data
    node,    ///< the node's own value
    above,   ///< the value of the node above, where the walker hands that one on
    literal, ///< a text of the map library's own
};

/// A path that the work on one node adds to the output tree.
struct MappedPath {
    std::string path;
    std::string ns_uri;
    ValueFrom value_from = ValueFrom::nowhere;
    std::string literal; ///< the value for ValueFrom::literal, else empty
    bool refers_to_node = false;
    bool is_list        = false;
    bool only_if_empty  = false; ///< added only for a node without children

    friend bool operator==(const MappedPath&, const MappedPath&) = default;
};

/// What becomes of a node on one query; the node has no children.
struct Outcome {
    bool is_reached = false;       ///< its walker or thunk was called
    uint32_t status = 0;           ///< of the walk; or else of the node's handler
    bool is_dropped = false;       ///< a status of the handler that no walk returns
    std::vector<MappedPath> paths; ///< in the order of the adds
};

enum class NodeKind : uint8_t { container, list, leaf };

/// What was found out of one schema node.
struct ExploredNode {
    std::string path; ///< schema path
    std::string tag;
    NodeKind kind = NodeKind::leaf;
    /// Whether the library compares the tag. Where a walker calls its targets without a look at its
    /// children, the tag is only known from a function's name, which has no hyphens.
    bool is_compared = true;
    std::string function; ///< walker or leaf thunk; empty if no query reaches it
    std::string handler;  ///< plain name
    /// Whether a function written by hand stands in place of the generated handler, of the default
    /// augment hook.
    bool handler_by_hand = false;
    bool hook_by_hand    = false;
    /// Functions written by hand that the generated handler calls: manual leaves and when hooks.
    std::vector<std::string> called_by_hand;
    std::array<Outcome, query_count> outcomes; ///< by Query

    const Outcome& on(Query query) const { return outcomes[static_cast<size_t>(query)]; }
};

/// A root of a model and its walker.
struct ExploredRoot {
    const char* ns_uri;
    const char* tag;
    OzkMapFunction* walker;
};

/// Gives the exported function of a name, or null.
using FindFunction = std::function<void*(const std::string&)>;

/// The nodes of a root in schema pre-order, the root first. A tag that the library compares nowhere
/// is spelt as in `spellings` if one of them has the same letters but for its hyphens. Throws
/// std::runtime_error if the schema doesn't end.
std::vector<ExploredNode> explore(const ExploredRoot& root, const FindFunction& find_function,
                                  std::span<const std::string_view> spellings = {});

} // namespace ymap::data

#endif
