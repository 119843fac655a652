// A walk to be checked, made of a sound tree or of arbitrary bytes: root, operation, switches, a
// tree as no client and no framework would send it, and what the framework answers. The fuzzer
// brings the bytes, the property test draws them.

#ifndef TESTS_CHECKED_CASE_H
#define TESTS_CHECKED_CASE_H

#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <vector>

#include "data_tree.h"
#include "walk_model.h"
#include "ymap.h"

namespace test {

/// Arrays of nodes that fault at the first byte that is read behind their end, and at any byte once
/// they are released: each ends where its page ends, and the page behind it can't be read. There is
/// room for one tree at a time in a process.
class GuardedNodes {
public:
    GuardedNodes() = default;
    ~GuardedNodes();
    GuardedNodes(const GuardedNodes&)            = delete;
    GuardedNodes& operator=(const GuardedNodes&) = delete;

    static constexpr uint32_t max_count = 70;
    static constexpr size_t max_arrays  = 1024;

    /// An array of `count` zeroed nodes, at most max_count; null if there is no more room.
    OzkMapNode* make(uint32_t count);
    /// Lets a write to any of them fault from now on.
    void seal() const;
    const std::vector<std::span<const OzkMapNode>>& arrays() const { return arrays_; }

private:
    std::vector<std::span<const OzkMapNode>> arrays_;
};

/// An address that the processor refuses, for pointers that must not be followed.
inline const OzkMapNode* poison()
{
    return reinterpret_cast<const OzkMapNode*>(0xdead000000000000);
}

/// The input of a walk, whose nodes can't be written. Where a flag is clear, the fields that it
/// stands for hold poison.
class CheckedCase {
public:
    explicit CheckedCase(std::span<const uint8_t> all);
    /// `tree` is the root's node; namespaces that it lacks are the model's. On an edit the default
    /// operation is merge.
    CheckedCase(const schema::Model& model, const schema::Node& root, uint32_t op_code,
                const ozk::DataNode& tree);

    model::Input input; ///< but for `ctx`

    bool has_node(const OzkMapNode* node) const;
    /// Whether `value` is the very pointer of a node's value.
    bool has_value(const char* value) const;
    /// Whether `tag` reads as the tag of a node.
    bool has_tag(const std::string& tag) const;

private:
    class Bytes;
    void bend(OzkMapNode& node, const schema::Node* parent, unsigned depth, Bytes& bytes);
    void fill(OzkMapNode& node, const ozk::DataNode& data, ozk::Edit inherited);
    template <class Matches>
    bool any_node(Matches matches) const;

    GuardedNodes nodes_;
    std::deque<std::string> texts_;
};

} // namespace test

#endif
