// Where a node is, as a person or an error-path tells it (RFC 7950, 9.13).

#ifndef YMAP_DATA_INSTANCE_PATH_H
#define YMAP_DATA_INSTANCE_PATH_H

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "lists.h"
#include "tree.h"

namespace ymap::data {

/// Gives the prefix of a namespace; empty for none.
using PrefixOf = std::function<std::string_view(const char* ns_uri)>;

/// The instance paths of the nodes below `top`, which must not move while it is in use. What it
/// knows of the tree it learns when it is first asked.
class InstancePaths {
public:
    InstancePaths(const OzkMapNode& top, std::span<const ListKeys> lists) : top_(top), lists_(lists)
    {
    }

    /// The path of `node`, such as /interfaces/interface[name='a']/description; empty if it is not
    /// in the tree. An entry that lacks a key is told by its place among its like. With
    /// `prefix_of`, names have prefixes: /if:interfaces/if:interface[if:name='a'].
    std::string of(const OzkMapNode& node, const PrefixOf& prefix_of = {});
    /// The node that `node` is a child of, or null.
    const OzkMapNode* parent_of(const OzkMapNode& node);

private:
    /// The children of a node, by their address.
    struct Family {
        std::span<const OzkMapNode> children;
        const OzkMapNode* parent;
    };
    void learn();

    /// The place of `node` among those of its name in `siblings`, from 1.
    size_t place_of(const OzkMapNode& node, std::span<const OzkMapNode> siblings);

    const OzkMapNode& top_;
    std::span<const ListKeys> lists_;
    std::vector<Family> families_;
    const OzkMapNode* counted_ = nullptr; ///< the node whose place was asked for last
    size_t place_              = 0;       ///< its place
};

/// One step of an instance path: the name of `node` and, if it is an entry of the list that has
/// these keys, their values; of an entry that lacks a key, `place_of(node)`.
std::string instance_step(const OzkMapNode& node, const ListKeys* keys,
                          const PrefixOf& prefix_of                                = {},
                          const std::function<size_t(const OzkMapNode&)>& place_of = {});

} // namespace ymap::data

#endif
