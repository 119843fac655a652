// How readers put a tree together, node by node in the order of the document. Internal to the
// readers.

#ifndef YMAP_FORMATS_TREE_BUILDER_H
#define YMAP_FORMATS_TREE_BUILDER_H

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "reader.h"

namespace ymap::formats {

class TreeBuilder {
public:
    explicit TreeBuilder(Document& document) : document_(document) {}

    /// Opens a node below the one that is open; `node` has all but its children.
    void open(const OzkMapNode& node)
    {
        open_.push_back(nodes_.size());
        nodes_.push_back(node);
    }
    /// Attributes of the node that is open.
    void add_attributes(std::vector<data::Attribute> attributes)
    {
        nodes_[open_.back()].marks |= ozk::MARK_ATTRIBUTES;
        attributes_.emplace_back(open_.back(), std::move(attributes));
    }
    OzkMapNode& opened() { return nodes_[open_.back()]; }
    /// Whether the open node has children so far.
    bool has_children() const { return nodes_.size() > open_.back() + 1; }
    /// Closes the node that is open; its children move to an array of their own.
    void close()
    {
        const size_t place = open_.back();
        open_.pop_back();
        move_children(nodes_[place], place + 1);
    }
    /// Ends the tree: the nodes that are left are the roots.
    void finish() { move_children(document_.tree.top(), 0); }
    size_t depth() const { return open_.size(); }

private:
    void move_children(OzkMapNode& node, size_t first)
    {
        if (first == nodes_.size())
            return;
        OzkMapNode parent = node; // what it is part of may be the array that moves
        document_.tree.set_children(parent, {nodes_.data() + first, nodes_.size() - first});
        for (; !attributes_.empty() && attributes_.back().first >= first; attributes_.pop_back())
            document_.attributes.emplace(parent.subtrees + (attributes_.back().first - first),
                                         std::move(attributes_.back().second));
        node = parent;
        nodes_.resize(first);
    }

    Document& document_;
    /// The children of an open node are all that stand after it.
    std::vector<OzkMapNode> nodes_;
    std::vector<size_t> open_; ///< places in nodes_
    std::vector<std::pair<size_t, std::vector<data::Attribute>>>
        attributes_; ///< by place in nodes_
};

} // namespace ymap::formats

#endif
