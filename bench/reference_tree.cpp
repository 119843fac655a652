// How the trees of the benches are built: records and nothing else, since a tree of 100,000
// interfaces has close to five million nodes.

#include "reference_tree.h"

#include <malloc.h>

#include <cstdio>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace bench {

namespace {

/// Tags of the leaves of `full-interface-stats`, in the order of the schema.
constexpr char full_statistics[] =
    "packets-received bytes-received packets-sent bytes-sent multicast-packets-received "
    "broadcast-packets-received multicast-packets-sent broadcast-packets-sent output-drops "
    "output-queue-drops input-drops input-queue-drops runt-packets-received "
    "giant-packets-received throttled-packets-received parity-packets-received "
    "unknown-protocol-packets-received input-errors crc-errors input-overruns "
    "framing-errors-received input-ignored-packets input-aborts output-errors "
    "output-underruns output-buffer-failures output-buffers-swapped-out applique resets "
    "carrier-transitions availability-flag last-data-time seconds-since-last-clear-counters "
    "last-discontinuity-time seconds-since-packet-received seconds-since-packet-sent";

/// Builds a tree of one root, whose namespace all nodes have. What is added to a node stays where
/// it is as long as no more children are added than the node was made for.
struct Builder {
    const char* ns_uri;
    ozk::Tree tree = {};

    OzkMapNode& node(OzkMapNode& parent, const char* tag, uint32_t children)
    {
        OzkMapNode& made = tree.append(parent, tag, ns_uri);
        tree.reserve(made, children);
        return made;
    }

    OzkMapNode& root(const char* tag, uint32_t children) { return node(tree.top(), tag, children); }

    void leaf(OzkMapNode& parent, const char* tag) { tree.append(parent, tag, ns_uri); }

    void leaf(OzkMapNode& parent, const char* tag, const std::string& value)
    {
        ozk::Tree::set_value(tree.append(parent, tag, ns_uri), tree.keep(value));
    }
};

std::string interface_name(uint32_t i)
{
    return "gigabit-ethernet-" + std::to_string(i / 4096) + "/" + std::to_string(i / 64 % 64) +
           "/" + std::to_string(i % 64);
}

std::string description(uint32_t i)
{
    return "Uplink " + std::to_string(i) + " to core & edge";
}

std::string mac_address(uint32_t i)
{
    char text[18];
    snprintf(text, sizeof text, "02:00:%02x:%02x:%02x:%02x", i >> 24 & 0xff, i >> 16 & 0xff,
             i >> 8 & 0xff, i & 0xff);
    return text;
}

/// Counters of all lengths up to 15 digits.
std::string counter(uint32_t i, uint32_t which)
{
    const uint64_t mixed = (uint64_t{i} + 1) * 0x9e3779b97f4a7c15 ^ which * uint64_t{0xff51afd7};
    return std::to_string(mixed % 1000000000000000 >> which % 48);
}

/// The number of entry `i` of a request, which names interfaces in another order than the data has
/// them. The factor is prime and larger than any number of interfaces, so that none comes twice.
uint32_t shuffled(uint32_t i, uint32_t interfaces)
{
    return static_cast<uint32_t>(i * uint64_t{1618033} % interfaces);
}

} // namespace

ozk::Tree operational_tree(uint32_t interfaces)
{
    Builder builder{NS_NQ_PFI_IM_CMD_OPER};
    OzkMapNode& root = builder.root("interfaces", 1);
    OzkMapNode& list = builder.node(root, "interface-nq", interfaces);
    std::vector<const char*> counters;
    std::istringstream names(full_statistics);
    for (std::string name; names >> name;)
        counters.push_back(builder.tree.intern(name));
    const auto count = static_cast<uint32_t>(counters.size());
    for (uint32_t i = 0; i < interfaces; ++i) {
        OzkMapNode& entry = builder.node(list, "interface", 8);
        builder.leaf(entry, "interface-name", interface_name(i));
        builder.leaf(builder.node(entry, "mac-address", 1), "address", mac_address(i));

        OzkMapNode& stats = builder.node(entry, "interface-statistics", 2);
        OzkMapNode& full  = builder.node(stats, "full-interface-stats", count);
        for (uint32_t which = 0; which < count; ++which)
            builder.leaf(full, counters[which], counter(i, which));
        builder.leaf(stats, "stats-type", "full");

        builder.leaf(entry, "state", i % 8 != 0 ? "up" : "down");
        builder.leaf(entry, "line-state", i % 8 != 0 ? "up" : "down");
        builder.leaf(entry, "mtu", std::to_string(1500 + i % 7 * 250));
        builder.leaf(entry, "bandwidth", "1000000");
        builder.leaf(entry, "description", description(i));
    }
    return std::move(builder.tree);
}

ozk::Tree native_configuration_tree(uint32_t interfaces)
{
    Builder builder{NS_NQ_IFMGR_CFG};
    OzkMapNode& root = builder.root("interface-configurations", interfaces);
    for (uint32_t i = 0; i < interfaces; ++i) {
        OzkMapNode& entry = builder.node(root, "interface-configuration", 6);
        builder.leaf(entry, "active", "act");
        builder.leaf(entry, "interface-name", interface_name(i));
        builder.leaf(entry, "description", description(i));
        builder.leaf(entry, "shutdown", "");
        builder.leaf(entry, "bandwidth", "1000000");
        OzkMapNode& mtu = builder.node(builder.node(entry, "mtus", 1), "mtu", 2);
        builder.leaf(mtu, "owner", "gigabit-ethernet");
        builder.leaf(mtu, "mtu", std::to_string(1500 + i % 7 * 250));
    }
    return std::move(builder.tree);
}

ozk::Tree state_read(uint32_t interfaces, uint32_t first)
{
    Builder builder{NS_IETF_INTERFACES};
    OzkMapNode& root = builder.root("interfaces-state", interfaces);
    for (uint32_t i = 0; i < interfaces; ++i)
        builder.leaf(builder.node(root, "interface", 1), "name",
                     interface_name(first + shuffled(i, interfaces)));
    return std::move(builder.tree);
}

ozk::Tree configuration_read(uint32_t interfaces)
{
    Builder builder{NS_IETF_INTERFACES};
    OzkMapNode& root = builder.root("interfaces", interfaces);
    for (uint32_t i = 0; i < interfaces; ++i) {
        OzkMapNode& entry = builder.node(root, "interface", 3);
        builder.leaf(entry, "name", interface_name(shuffled(i, interfaces)));
        builder.leaf(entry, "description");
        builder.leaf(entry, "enabled");
    }
    return std::move(builder.tree);
}

ozk::Tree configuration_edit(uint32_t interfaces, ozk::Edit edit, uint32_t first)
{
    Builder builder{NS_IETF_INTERFACES};
    builder.tree.top().edit = static_cast<uint8_t>(ozk::Edit::merge);
    OzkMapNode& root        = builder.root("interfaces", interfaces);
    for (uint32_t i = 0; i < interfaces; ++i) {
        const uint32_t number = first + shuffled(i, interfaces);
        OzkMapNode& entry     = builder.node(root, "interface", 3);
        entry.edit            = static_cast<uint8_t>(edit);
        entry.edit_is_own     = 1;
        builder.leaf(entry, "name", interface_name(number));
        if (ozk::deletes(edit))
            continue;
        builder.leaf(entry, "description", description(number));
        builder.leaf(entry, "enabled", "true");
    }
    return std::move(builder.tree);
}

void keep_memory()
{
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, -1);
}

} // namespace bench
