// A walk to be checked, made of a sound tree or of arbitrary bytes: root, operation, switches, a
// tree as no client and no framework would send it, and what the framework answers. The fuzzer
// brings the bytes, the property test draws them.

#ifndef TESTS_CHECKED_CASE_H
#define TESTS_CHECKED_CASE_H

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "notation.h"
#include "roots.h"
#include "walk_model.h"

namespace test {

/// The input of a walk. Each array of nodes is an allocation of its own, so that the address
/// sanitizer sees a step beyond it; where a flag is clear, the fields that it stands for hold an
/// address that the processor refuses.
class CheckedCase {
public:
    explicit CheckedCase(std::span<const uint8_t> all);
    /// A root with `children`, see notation.h. On an edit the default operation is merge.
    CheckedCase(const Root& root, uint32_t op_code, std::string_view children);
    /// The same out of a tree, whose texts have to stay.
    CheckedCase(const Root& root, uint32_t op_code, const OzkMapNode& node);

    const Root* root = nullptr;
    model::Input input; ///< but for `ctx`

    bool has_node(const OzkMapNode* node) const;
    /// Whether `value` is the very pointer of a node's value.
    bool has_value(const char* value) const;
    /// Whether `tag` reads as the tag of a node.
    bool has_tag(const std::string& tag) const;
    /// Whether all nodes are as they were made.
    bool is_unchanged() const;

private:
    class Bytes;
    void start(const Root& walked, uint32_t op_code);
    OzkMapNode* make(size_t count);
    void bend(OzkMapNode& node, const schema::Node* parent, unsigned depth, Bytes& bytes);
    void copy(OzkMapNode& node, const OzkMapNode& from);
    void keep_as_made();
    template <class Matches>
    bool any_node(Matches matches) const;

    struct Array {
        std::unique_ptr<OzkMapNode[]> nodes;
        std::vector<OzkMapNode> as_made;
        size_t count;
    };
    std::vector<Array> arrays_;
    std::deque<std::string> texts_;
    ozk::Tree tree_; ///< that a notation was read into
};

/// Bytes for a case, the same for a seed on any machine.
std::vector<uint8_t> drawn_bytes(uint32_t seed);

} // namespace test

#endif
