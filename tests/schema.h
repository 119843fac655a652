// The schema of the three models, read from tests/schema, and the names that the naming rule gives
// to the functions of each node. Written from the rule alone; knows nothing of the sources.

#ifndef TESTS_SCHEMA_H
#define TESTS_SCHEMA_H

#include <cstddef>
#include <string>
#include <vector>

namespace schema {

enum class Kind { container, list, leaf };

struct Node {
    std::string tag;
    Kind kind = Kind::leaf;
    std::string path; ///< schema path
    bool manual_leaf         = false;
    bool when_hook           = false;
    bool manual_augment_hook = false;
    bool manual_handler      = false;
    std::string prefix; ///< "ymap_iq_ietf_if_ietfinterfaces_" and so on
    std::string stem;   ///< letter and stem: "lvla_interfaces_interface"
    std::vector<Node> children;

    std::string walker() const { return prefix + stem; } ///< of a leaf: the thunk
    std::string handler() const;                         ///< the plain name
    std::string augment_hook() const { return walker() + "_parse_augments"; }
};

struct Model {
    std::string ns_uri;
    std::string name; ///< in the names of files: "ietf-interfaces"
    std::vector<Node> roots;
};

/// ietf-interfaces, Brelvik-NQ-ifmgr-cfg, Brelvik-NQ-pfi-im-cmd-oper.
const std::vector<Model>& models();
/// The nodes of all of them: what a test that goes through all must count.
size_t node_count();

/// The node with that schema path in `model`; the test fails if there is none.
const Node& find(const Model& model, const std::string& path);

/// Calls `visit(node)` for `node` and all below, in schema pre-order.
template <class Visit>
void for_each(const Node& node, const Visit& visit)
{
    visit(node);
    for (const Node& child : node.children)
        for_each(child, visit);
}

} // namespace schema

#endif
