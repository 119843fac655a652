// How the trees of the benches are built: records and nothing else, since a tree of 100,000
// interfaces has close to five million nodes.

#include "reference_tree.h"

#include <malloc.h>

#include <cstdio>
#include <iterator>
#include <string>
#include <utility>

namespace bench {

namespace {

constexpr const char* full_statistics[] = {
    "packets-received",
    "bytes-received",
    "packets-sent",
    "bytes-sent",
    "multicast-packets-received",
    "broadcast-packets-received",
    "multicast-packets-sent",
    "broadcast-packets-sent",
    "output-drops",
    "output-queue-drops",
    "input-drops",
    "input-queue-drops",
    "runt-packets-received",
    "giant-packets-received",
    "throttled-packets-received",
    "parity-packets-received",
    "unknown-protocol-packets-received",
    "input-errors",
    "crc-errors",
    "input-overruns",
    "framing-errors-received",
    "input-ignored-packets",
    "input-aborts",
    "output-errors",
    "output-underruns",
    "output-buffer-failures",
    "output-buffers-swapped-out",
    "applique",
    "resets",
    "carrier-transitions",
    "availability-flag",
    "last-data-time",
    "seconds-since-last-clear-counters",
    "last-discontinuity-time",
    "seconds-since-packet-received",
    "seconds-since-packet-sent",
};
constexpr uint32_t statistics = std::size(full_statistics);

/// Builds a tree of one root. What is added to a node stays where it is as long as no more children
/// are added than the node was made for.
class Builder {
public:
    Builder(const char* root_tag, const char* ns_uri, uint32_t children,
            ozk::Edit default_edit = ozk::Edit::none)
        : ns_uri_(ns_uri)
    {
        tree_.top().edit = static_cast<uint8_t>(default_edit);
        root_            = &node(tree_.top(), root_tag, children);
    }

    OzkMapNode& root() { return *root_; }

    OzkMapNode& node(OzkMapNode& parent, const char* tag, uint32_t children)
    {
        OzkMapNode& made = tree_.append(parent, tag, ns_uri_);
        tree_.reserve(made, children);
        return made;
    }

    OzkMapNode& leaf(OzkMapNode& parent, const char* tag)
    {
        return tree_.append(parent, tag, ns_uri_);
    }

    void leaf(OzkMapNode& parent, const char* tag, const std::string& value)
    {
        ozk::Tree::set_value(leaf(parent, tag), tree_.keep(value));
    }

    ozk::Tree take() { return std::move(tree_); }

private:
    ozk::Tree tree_;
    const char* ns_uri_;
    OzkMapNode* root_;
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

/// Requests on /interfaces: what stands in each entry after the key.
ozk::Tree configuration_request(uint32_t interfaces, uint32_t first, ozk::Edit edit,
                                bool with_leaves, bool with_values)
{
    const bool is_edit = edit != ozk::Edit::none;
    Builder builder("interfaces", NS_IETF_INTERFACES, interfaces,
                    is_edit ? ozk::Edit::merge : ozk::Edit::none);
    for (uint32_t i = first; i < first + interfaces; ++i) {
        OzkMapNode& entry = builder.node(builder.root(), "interface", with_leaves ? 3 : 1);
        if (is_edit) {
            entry.edit        = static_cast<uint8_t>(edit);
            entry.edit_is_own = 1;
        }
        builder.leaf(entry, "name", interface_name(i));
        if (!with_leaves)
            continue;
        if (with_values) {
            builder.leaf(entry, "description", description(i));
            builder.leaf(entry, "enabled", "true");
        } else {
            builder.leaf(entry, "description");
            builder.leaf(entry, "enabled");
        }
    }
    return builder.take();
}

} // namespace

ozk::Tree operational_tree(uint32_t interfaces)
{
    Builder builder("interfaces", NS_NQ_PFI_IM_CMD_OPER, 1);
    OzkMapNode& list = builder.node(builder.root(), "interface-nq", interfaces);
    for (uint32_t i = 0; i < interfaces; ++i) {
        OzkMapNode& entry = builder.node(list, "interface", 8);
        builder.leaf(entry, "interface-name", interface_name(i));
        builder.leaf(builder.node(entry, "mac-address", 1), "address", mac_address(i));

        OzkMapNode& stats = builder.node(entry, "interface-statistics", 2);
        OzkMapNode& full  = builder.node(stats, "full-interface-stats", statistics);
        for (uint32_t which = 0; which < statistics; ++which)
            builder.leaf(full, full_statistics[which], counter(i, which));
        builder.leaf(stats, "stats-type", "full");

        builder.leaf(entry, "state", i % 8 != 0 ? "up" : "down");
        builder.leaf(entry, "line-state", i % 8 != 0 ? "up" : "down");
        builder.leaf(entry, "mtu", std::to_string(1500 + i % 7 * 250));
        builder.leaf(entry, "bandwidth", "1000000");
        builder.leaf(entry, "description", description(i));
    }
    return builder.take();
}

uint64_t operational_nodes(uint32_t interfaces)
{
    constexpr uint64_t of_an_interface = 1 + 8 + 1 + 2 + statistics;
    return 2 + interfaces * of_an_interface;
}

ozk::Tree native_configuration_tree(uint32_t interfaces)
{
    Builder builder("interface-configurations", NS_NQ_IFMGR_CFG, interfaces);
    for (uint32_t i = 0; i < interfaces; ++i) {
        OzkMapNode& entry = builder.node(builder.root(), "interface-configuration", 6);
        builder.leaf(entry, "active", "act");
        builder.leaf(entry, "interface-name", interface_name(i));
        builder.leaf(entry, "description", description(i));
        builder.leaf(entry, "shutdown", "");
        builder.leaf(entry, "bandwidth", "1000000");
        OzkMapNode& mtu = builder.node(builder.node(entry, "mtus", 1), "mtu", 2);
        builder.leaf(mtu, "owner", "gigabit-ethernet");
        builder.leaf(mtu, "mtu", std::to_string(1500 + i % 7 * 250));
    }
    return builder.take();
}

ozk::Tree native_global_tree()
{
    Builder builder("global-interface-configuration", NS_NQ_IFMGR_CFG, 1);
    builder.leaf(builder.root(), "link-status", "software-interfaces");
    return builder.take();
}

ozk::Tree configuration_read(uint32_t interfaces)
{
    return configuration_request(interfaces, 0, ozk::Edit::none, true, false);
}

ozk::Tree state_read(uint32_t interfaces, uint32_t first)
{
    Builder builder("interfaces-state", NS_IETF_INTERFACES, interfaces);
    for (uint32_t i = first; i < first + interfaces; ++i)
        builder.leaf(builder.node(builder.root(), "interface", 1), "name", interface_name(i));
    return builder.take();
}

ozk::Tree configuration_edit(uint32_t interfaces, ozk::Edit edit, uint32_t first)
{
    return configuration_request(interfaces, first, edit, !ozk::deletes(edit), true);
}

void keep_memory()
{
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, -1);
}

} // namespace bench
