// Trees in an arena.

#include "tree.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <limits>
#include <new>
#include <utility>

#include "texts.h"

namespace ozk {

namespace {

constexpr std::pair<std::string_view, Edit> names[] = {
    {"none", Edit::none},     {"merge", Edit::merge},   {"replace", Edit::replace},
    {"create", Edit::create}, {"remove", Edit::remove}, {"delete", Edit::erase},
};

} // namespace

std::optional<Edit> edit_from_name(std::string_view name)
{
    const auto* found = std::ranges::find(names, name, &std::pair<std::string_view, Edit>::first);
    return found != std::end(names) && found->second != Edit::none ? std::optional(found->second)
                                                                   : std::nullopt;
}

const char* name_of(Edit edit)
{
    const auto* found = std::ranges::find(names, edit, &std::pair<std::string_view, Edit>::second);
    return found != std::end(names) ? found->first.data() : "none";
}

bool same_text(const char* a, const char* b)
{
    return a == b || (a != nullptr && b != nullptr && std::strcmp(a, b) == 0);
}

bool is_named(const OzkMapNode& node, const char* tag, const char* ns_uri)
{
    return same_text(node.tag, tag) && same_text(node.ns_uri, ns_uri);
}

const OzkMapNode* find_child(const OzkMapNode& node, const char* tag, const char* ns_uri)
{
    for (const OzkMapNode& child : children(node))
        if (is_named(child, tag, ns_uri))
            return &child;
    return nullptr;
}

OzkMapNode* find_child(OzkMapNode& node, const char* tag, const char* ns_uri)
{
    return const_cast<OzkMapNode*>(find_child(std::as_const(node), tag, ns_uri));
}

// ---------------------------------------------------------------------------------------------

struct Tree::Store : Texts {
    OzkMapNode top{};
};

Tree::Tree() : store_(std::make_unique<Store>()) {}
Tree::~Tree()                          = default;
Tree::Tree(Tree&&) noexcept            = default;
Tree& Tree::operator=(Tree&&) noexcept = default;

OzkMapNode& Tree::top()
{
    return store_->top;
}

const OzkMapNode& Tree::top() const
{
    return store_->top;
}

void Tree::reserve(OzkMapNode& parent, uint32_t count)
{
    if (count <= parent.capacity)
        return;
    const auto before = children(parent);
    auto* records     = static_cast<OzkMapNode*>(
        store_->arena().allocate(count * sizeof(OzkMapNode), alignof(OzkMapNode)));
    std::uninitialized_copy(before.begin(), before.end(), records);
    parent.subtrees = records;
    parent.capacity = count;
    parent.flags |= MAP_NODE_HAS_SUBTREES;
}

OzkMapNode& Tree::append(OzkMapNode& parent)
{
    const size_t count = children(parent).size();
    if (count == std::numeric_limits<uint32_t>::max())
        throw std::bad_alloc();
    if (count == parent.capacity)
        reserve(parent, static_cast<uint32_t>(std::min<size_t>(
                            count < 4 ? 4 : 2 * count, std::numeric_limits<uint32_t>::max())));
    auto* made = new (const_cast<OzkMapNode*>(parent.subtrees) + count) OzkMapNode{};
    made->edit = parent.edit;
    ++parent.subtree_count;
    return *made;
}

OzkMapNode& Tree::append(OzkMapNode& parent, const char* tag, const char* ns_uri)
{
    OzkMapNode& made = append(parent);
    made.tag         = tag;
    made.ns_uri      = ns_uri;
    return made;
}

void Tree::set_children(OzkMapNode& parent, std::span<const OzkMapNode> records)
{
    const auto count = static_cast<uint32_t>(records.size());
    auto* copy       = static_cast<OzkMapNode*>(
        store_->arena().allocate(count * sizeof(OzkMapNode), alignof(OzkMapNode)));
    std::uninitialized_copy(records.begin(), records.end(), copy);
    parent.subtrees      = copy;
    parent.subtree_count = parent.capacity = count;
    parent.flags |= MAP_NODE_HAS_SUBTREES;
}

void Tree::set_value(OzkMapNode& node, const char* value)
{
    node.value = value;
    if (value != nullptr)
        node.flags |= MAP_NODE_HAS_VALUE;
    else
        node.flags &= static_cast<uint8_t>(~MAP_NODE_HAS_VALUE);
}

const char* Tree::keep(std::string_view text)
{
    return store_->keep(text);
}

const char* Tree::intern(std::string_view text)
{
    return store_->intern(text).data();
}

size_t Tree::size() const
{
    return store_->size();
}

} // namespace ozk
