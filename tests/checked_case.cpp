#include "checked_case.h"

#include <algorithm>
#include <cstring>
#include <random>

namespace test {
namespace {

constexpr size_t max_arrays = 1024;

/// An address that must not be followed.
const OzkMapNode* poison()
{
    return reinterpret_cast<const OzkMapNode*>(0xdead000000000000);
}

} // namespace

/// Reads zeroes after its end, which mean a plain case without children.
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

    constexpr uint32_t ops[] = {MAP_OP_GET_CONFIG, MAP_OP_EDIT, MAP_OP_GET,
                                MAP_OP_EDIT,       MAP_OP_GET,  2};
    const Root& walked       = roots()[bytes.next() % roots().size()];
    start(walked, bytes.one_of(ops));
    const auto switches = [&] {
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

    OzkMapNode* node = make(1);
    bend(*node, nullptr, 0, bytes);
    input.node = missing == 254 ? nullptr : node;
    keep_as_made();
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
        OzkMapNode* children = make(node.subtree_count);
        node.subtrees        = children;
        if (children == nullptr)
            node.subtree_count = 0;
        for (uint32_t i = 0; i < node.subtree_count; ++i)
            bend(children[i], described, depth + 1, bytes);
    }
}

CheckedCase::CheckedCase(const Root& walked, uint32_t op_code, std::string_view children)
{
    start(walked, op_code);
    OzkMapNode& node =
        tree_.append(tree_.top(), walked.node.tag.c_str(), input.model->ns_uri.c_str());
    node.edit = static_cast<uint8_t>(op_code == MAP_OP_EDIT ? ozk::Edit::merge : ozk::Edit::none);
    read_nodes(tree_, node, children, node.ns_uri);
    copy(*make(1), node);
    keep_as_made();
}

CheckedCase::CheckedCase(const Root& walked, uint32_t op_code, const OzkMapNode& node)
{
    start(walked, op_code);
    copy(*make(1), node);
    keep_as_made();
}

void CheckedCase::start(const Root& walked, uint32_t op_code)
{
    root          = &walked;
    input.model   = &walked.model;
    input.root    = &walked.node;
    input.op_code = op_code;
}

OzkMapNode* CheckedCase::make(size_t count)
{
    if (arrays_.size() == max_arrays)
        return nullptr;
    Array& made = arrays_.emplace_back(
        Array{std::unique_ptr<OzkMapNode[]>(new OzkMapNode[count]{}), {}, count});
    if (input.node == nullptr)
        input.node = made.nodes.get();
    return made.nodes.get();
}

void CheckedCase::copy(OzkMapNode& node, const OzkMapNode& from)
{
    const auto children = ozk::children(from);
    node                = from;
    node.subtrees       = poison();
    node.subtree_count  = 1;
    if ((node.flags & MAP_NODE_HAS_POSITION) == 0)
        node.position = 0xfade;
    if (children.empty())
        return;
    OzkMapNode* copies = make(children.size());
    node.subtrees      = copies;
    node.subtree_count = static_cast<uint32_t>(children.size());
    for (const OzkMapNode& child : children)
        copy(*copies++, child);
}

void CheckedCase::keep_as_made()
{
    for (Array& array : arrays_)
        array.as_made.assign(array.nodes.get(), array.nodes.get() + array.count);
}

bool CheckedCase::is_unchanged() const
{
    return std::ranges::all_of(arrays_, [](const Array& array) {
        return std::memcmp(array.nodes.get(), array.as_made.data(),
                           array.count * sizeof(OzkMapNode)) == 0;
    });
}

template <class Matches>
bool CheckedCase::any_node(Matches matches) const
{
    return std::ranges::any_of(
        arrays_, [&](const Array& array) { return std::ranges::any_of(array.as_made, matches); });
}

bool CheckedCase::has_node(const OzkMapNode* node) const
{
    return std::ranges::any_of(arrays_, [=](const Array& array) {
        return node >= array.nodes.get() && node < array.nodes.get() + array.count;
    });
}

bool CheckedCase::has_value(const char* value) const
{
    return any_node([=](const OzkMapNode& each) { return each.value == value; });
}

bool CheckedCase::has_tag(const std::string& tag) const
{
    return any_node([&](const OzkMapNode& each) { return each.tag != nullptr && each.tag == tag; });
}

std::vector<uint8_t> drawn_bytes(uint32_t seed)
{
    std::mt19937 random(seed); // gives the same on every platform, as distributions don't
    std::vector<uint8_t> bytes(16 + random() % 600);
    for (uint8_t& byte : bytes)
        byte = static_cast<uint8_t>(random());
    return bytes;
}

} // namespace test
