#include "checked_case.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace test {
namespace {

constexpr size_t page_size = 4096;
static_assert(GuardedNodes::max_count * sizeof(OzkMapNode) <= page_size);

/// Pages of arrays, each with a page behind it that can't be read.
std::byte* guarded_pages()
{
    static std::byte* const pages = [] {
        void* made = mmap(nullptr, GuardedNodes::max_arrays * 2 * page_size, PROT_NONE,
                          MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        if (made == MAP_FAILED)
            abort();
        return static_cast<std::byte*>(made);
    }();
    return pages;
}

} // namespace

GuardedNodes::~GuardedNodes()
{
    if (!arrays_.empty() &&
        mprotect(guarded_pages(), arrays_.size() * 2 * page_size, PROT_NONE) != 0)
        abort();
}

OzkMapNode* GuardedNodes::make(uint32_t count)
{
    if (arrays_.size() == max_arrays || count > max_count)
        return nullptr;
    std::byte* page = guarded_pages() + arrays_.size() * 2 * page_size;
    if (mprotect(page, page_size, PROT_READ | PROT_WRITE) != 0)
        abort();
    auto* nodes = reinterpret_cast<OzkMapNode*>(page + page_size - count * sizeof(OzkMapNode));
    std::uninitialized_fill_n(nodes, count, OzkMapNode{});
    arrays_.emplace_back(nodes, count);
    return nodes;
}

void GuardedNodes::seal() const
{
    for (size_t i = 0; i < arrays_.size(); ++i)
        if (mprotect(guarded_pages() + i * 2 * page_size, page_size, PROT_READ) != 0)
            abort();
}

/// Reads zeroes behind its end, which mean a plain case without children.
class CheckedCase::Bytes {
public:
    explicit Bytes(std::span<const uint8_t> bytes) : rest_(bytes) {}

    uint8_t next()
    {
        if (rest_.empty())
            return 0;
        const uint8_t byte = rest_.front();
        rest_              = rest_.subspan(1);
        return byte;
    }

    template <class T, size_t size>
    const T& one_of(const T (&list)[size])
    {
        return list[next() % size];
    }

private:
    std::span<const uint8_t> rest_;
};

CheckedCase::CheckedCase(std::span<const uint8_t> all)
{
    Bytes bytes(all);

    const uint8_t root = bytes.next() % 5;
    const struct {
        size_t model;
        size_t root;
    } roots[]   = {{0, 0}, {0, 1}, {1, 0}, {1, 1}, {2, 0}};
    input.model = &schema::models()[roots[root].model];
    input.root  = &input.model->roots[roots[root].root];

    constexpr uint32_t ops[] = {MAP_OP_GET_CONFIG, MAP_OP_EDIT, MAP_OP_GET,
                                MAP_OP_EDIT,       MAP_OP_GET,  2};
    input.op_code            = bytes.one_of(ops);
    const auto switches      = [&] {
        const uint8_t bits = bytes.next();
        return model::Switches{(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0};
    };
    input.switches        = switches();
    const uint8_t missing = bytes.next();
    input.has_tree        = missing != 255;

    const uint8_t scheduled       = bytes.next();
    constexpr ozk::Op answered[]  = {ozk::Op::add_path, ozk::Op::update_list, ozk::Op::sibling,
                                     ozk::Op::copy_text};
    constexpr uint32_t statuses[] = {0xbad, MAP_NOT_MAPPED, MAP_ERR_BAD_KEY, ~0U};
    for (int i = 0; i < scheduled % 4; ++i) {
        const ozk::Op op       = bytes.one_of(answered);
        const size_t k         = 1 + bytes.next() % 24;
        input.answers[{op, k}] = bytes.one_of(statuses);
    }
    for (int i = 0; i < scheduled / 4 % 4; ++i) {
        const size_t high  = bytes.next() % 2;
        const size_t call  = 1 + high * 256 + bytes.next();
        input.turned[call] = switches();
    }

    OzkMapNode* node = nodes_.make(1);
    bend(*node, nullptr, 0, bytes);
    input.node = missing == 254 ? nullptr : node;
    nodes_.seal();
}

void CheckedCase::bend(OzkMapNode& node, const schema::Node* parent, unsigned depth, Bytes& bytes)
{
    // The tag, and with it what the node is to the schema.
    const schema::Node* described = nullptr;
    const uint8_t tag             = bytes.next();
    if (parent == nullptr) {
        described = input.root;
        node.tag  = tag == 255 ? nullptr : described->tag.c_str();
    } else if (tag < 216 && !parent->children.empty()) {
        described = &parent->children[tag % parent->children.size()];
        node.tag  = described->tag.c_str();
    } else if (tag >= 254) {
        node.tag = nullptr;
    } else {
        static const std::string longer_than_a_line(1100, 'x');
        const char* const tags[] = {"ipv4-packet-filter",
                                    "es-packet-filter",
                                    "ipv6-packet-filter",
                                    "unknown",
                                    "",
                                    longer_than_a_line.c_str(),
                                    "name",
                                    "interface"};
        node.tag                 = bytes.one_of(tags);
    }

    const char* const foreign[] = {nullptr,
                                   "urn:example:foreign",
                                   NS_IETF_INTERFACES_ACL_EXT,
                                   NS_NQ_IP_PFILTER_CFG,
                                   NS_IETF_INTERFACES,
                                   NS_NQ_IFMGR_CFG,
                                   NS_NQ_PFI_IM_CMD_OPER,
                                   ""};
    const uint8_t ns            = bytes.next();
    node.ns_uri = ns < 192 ? input.model->ns_uri.c_str() : foreign[ns % std::size(foreign)];

    const uint8_t bits = bytes.next();
    node.flags         = bits & (MAP_NODE_HAS_VALUE | MAP_NODE_HAS_POSITION);
    node.flags = static_cast<uint8_t>(node.flags | ((bits & 0x20) != 0 ? 0x8d : 0)); // others
    if ((bits & 0x80) == 0)
        node.value = texts_.emplace_back("value " + std::to_string(texts_.size())).c_str();
    node.position      = 0x1000U + bits; // whether it is valid or not
    const uint8_t edit = bytes.next();
    node.edit          = edit % 6;
    node.edit_is_own   = edit >= 128;

    // The children. What the records don't allow to be followed is poisoned.
    const uint8_t shape   = bytes.next();
    const bool has_schema = described != nullptr && !described->children.empty();
    node.subtrees         = poison();
    node.subtree_count    = 1U + shape;
    if (shape == 0 || depth > 12 || (!has_schema && shape < 224))
        return;
    node.flags |= MAP_NODE_HAS_SUBTREES;
    if (shape % 16 == 1)
        node.subtree_count = 0;
    else if (shape % 32 == 2)
        node.subtrees = nullptr;
    else {
        node.subtree_count   = 1U + shape / 16 % 6;
        OzkMapNode* children = nodes_.make(node.subtree_count);
        node.subtrees        = children;
        if (children == nullptr)
            node.subtree_count = 0;
        for (uint32_t i = 0; i < node.subtree_count; ++i)
            bend(children[i], described, depth + 1, bytes);
    }
}

CheckedCase::CheckedCase(const schema::Model& model, const schema::Node& root, uint32_t op_code,
                         const ozk::DataNode& tree)
{
    input.model      = &model;
    input.root       = &root;
    input.op_code    = op_code;
    OzkMapNode* node = nodes_.make(1);
    fill(*node, tree, op_code == MAP_OP_EDIT ? ozk::Edit::merge : ozk::Edit::none);
    input.node = node;
    nodes_.seal();
}

void CheckedCase::fill(OzkMapNode& node, const ozk::DataNode& data, ozk::Edit inherited)
{
    const auto keep = [&](const std::optional<std::string>& text) {
        return text ? texts_.emplace_back(*text).c_str() : nullptr;
    };
    node.tag           = keep(data.tag);
    node.ns_uri        = data.ns_uri ? keep(data.ns_uri) : input.model->ns_uri.c_str();
    node.value         = keep(data.value);
    node.edit_is_own   = data.edit != ozk::Edit::none;
    node.edit          = static_cast<uint8_t>(data.edit != ozk::Edit::none ? data.edit : inherited);
    node.flags         = static_cast<uint8_t>((data.value ? MAP_NODE_HAS_VALUE : 0) |
                                      (data.position ? MAP_NODE_HAS_POSITION : 0) |
                                      (data.children.empty() ? 0 : MAP_NODE_HAS_SUBTREES));
    node.position      = data.position.value_or(0xfade);
    node.subtrees      = poison();
    node.subtree_count = 1;
    if (data.children.empty())
        return;
    node.subtree_count = static_cast<uint32_t>(data.children.size());
    OzkMapNode* child  = nodes_.make(node.subtree_count);
    node.subtrees      = child;
    for (const ozk::DataNode& each : data.children)
        fill(*child++, each, static_cast<ozk::Edit>(node.edit));
}

template <class Matches>
bool CheckedCase::any_node(Matches matches) const
{
    return std::ranges::any_of(nodes_.arrays(), [&](std::span<const OzkMapNode> array) {
        return std::ranges::any_of(array, matches);
    });
}

bool CheckedCase::has_node(const OzkMapNode* node) const
{
    return any_node([=](const OzkMapNode& each) { return &each == node; });
}

bool CheckedCase::has_value(const char* value) const
{
    return any_node([=](const OzkMapNode& each) { return each.value == value; });
}

bool CheckedCase::has_tag(const std::string& tag) const
{
    return any_node([&](const OzkMapNode& each) { return each.tag != nullptr && each.tag == tag; });
}

} // namespace test
