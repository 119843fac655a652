// How the trees of the benches are built: straight into the records, since a tree of 100,000
// interfaces has more than five million nodes.

#include "reference_tree.h"

#include <malloc.h>

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

/// Names the records of one tree. Nodes are filled in document order; the last children that were
/// asked for are the ones that leaf() fills.
class Builder {
public:
    Builder(const char* root_tag, const char* ns_uri, ozk::Edit default_edit = ozk::Edit::none)
    {
        ns_uri_ = tree_.intern(ns_uri);
        name(tree_.root(), root_tag);
        tree_.root().edit = static_cast<uint8_t>(default_edit);
    }

    OzkMapNode* children(OzkMapNode& node, uint32_t count)
    {
        return tree_.make_children(node, count);
    }

    OzkMapNode& name(OzkMapNode& node, const char* tag)
    {
        node.tag    = tree_.intern(tag);
        node.ns_uri = ns_uri_;
        return node;
    }

    void leaf(OzkMapNode& node, const char* tag, const std::string& value)
    {
        name(node, tag).value = tree_.keep(value);
        node.flags |= MAP_NODE_HAS_VALUE;
    }

    ozk::InputTree& tree() { return tree_; }

private:
    ozk::InputTree tree_;
    const char* ns_uri_;
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

void write_escaped(FILE* file, const char* text)
{
    for (; *text != '\0'; ++text) {
        switch (*text) {
        case '&': fputs("&amp;", file); break;
        case '<': fputs("&lt;", file); break;
        case '>': fputs("&gt;", file); break;
        default: fputc(*text, file);
        }
    }
}

void write_node(FILE* file, const OzkMapNode& node, int indent, bool is_root)
{
    fprintf(file, "%*s<%s", indent, "", node.tag);
    if (is_root)
        fprintf(file, " xmlns=\"%s\"", node.ns_uri);
    if (node.subtree_count == 0) {
        fputs(">", file);
        write_escaped(file, node.value != nullptr ? node.value : "");
    } else {
        fputs(">\n", file);
        for (uint32_t i = 0; i < node.subtree_count; ++i)
            write_node(file, node.subtrees[i], indent + 2, false);
        fprintf(file, "%*s", indent, "");
    }
    fprintf(file, "</%s>\n", node.tag);
}

/// Requests on /interfaces: what stands in each entry behind the key.
ozk::InputTree configuration_request(uint32_t interfaces, ozk::Edit edit, bool with_leaves,
                                     bool with_values)
{
    const bool is_edit = edit != ozk::Edit::none;
    Builder builder("interfaces", NS_IETF_INTERFACES, is_edit ? ozk::Edit::merge : ozk::Edit::none);
    OzkMapNode* entry = builder.children(builder.tree().root(), interfaces);
    for (uint32_t i = 0; i < interfaces; ++i, ++entry) {
        builder.name(*entry, "interface");
        if (is_edit) {
            entry->edit        = static_cast<uint8_t>(edit);
            entry->edit_is_own = 1;
        }
        OzkMapNode* child = builder.children(*entry, with_leaves ? 3 : 1);
        builder.leaf(*child++, "name", interface_name(i));
        if (!with_leaves)
            continue;
        if (with_values) {
            builder.leaf(*child++, "description", description(i));
            builder.leaf(*child++, "enabled", "true");
        } else {
            builder.name(*child++, "description");
            builder.name(*child++, "enabled");
        }
    }
    return std::move(builder.tree());
}

} // namespace

ozk::InputTree operational_tree(uint32_t interfaces)
{
    Builder builder("interfaces", NS_NQ_PFI_IM_CMD_OPER);
    OzkMapNode& list  = builder.name(*builder.children(builder.tree().root(), 1), "interface-nq");
    OzkMapNode* entry = builder.children(list, interfaces);
    for (uint32_t i = 0; i < interfaces; ++i, ++entry) {
        builder.name(*entry, "interface");
        OzkMapNode* child = builder.children(*entry, 8);
        builder.leaf(*child++, "interface-name", interface_name(i));
        OzkMapNode& mac = builder.name(*child++, "mac-address");
        builder.leaf(*builder.children(mac, 1), "address", mac_address(i));

        OzkMapNode& stats = builder.name(*child++, "interface-statistics");
        OzkMapNode* parts = builder.children(stats, 2);
        OzkMapNode* leaf =
            builder.children(builder.name(parts[0], "full-interface-stats"), statistics);
        for (uint32_t which = 0; which < statistics; ++which)
            builder.leaf(*leaf++, full_statistics[which], counter(i, which));
        builder.leaf(parts[1], "stats-type", "full");

        builder.leaf(*child++, "state", i % 8 != 0 ? "up" : "down");
        builder.leaf(*child++, "line-state", i % 8 != 0 ? "up" : "down");
        builder.leaf(*child++, "mtu", std::to_string(1500 + i % 7 * 250));
        builder.leaf(*child++, "bandwidth", "1000000");
        builder.leaf(*child++, "description", description(i));
    }
    return std::move(builder.tree());
}

uint64_t operational_nodes(uint32_t interfaces)
{
    constexpr uint64_t of_an_interface = 1 + 8 + 1 + 2 + statistics;
    return 2 + interfaces * of_an_interface;
}

ozk::InputTree native_configuration_tree(uint32_t interfaces)
{
    Builder builder("interface-configurations", NS_NQ_IFMGR_CFG);
    OzkMapNode* entry = builder.children(builder.tree().root(), interfaces);
    for (uint32_t i = 0; i < interfaces; ++i, ++entry) {
        builder.name(*entry, "interface-configuration");
        OzkMapNode* child = builder.children(*entry, 6);
        builder.leaf(*child++, "active", "act");
        builder.leaf(*child++, "interface-name", interface_name(i));
        builder.leaf(*child++, "description", description(i));
        builder.leaf(*child++, "shutdown", "");
        builder.leaf(*child++, "bandwidth", "1000000");
        OzkMapNode& mtus = builder.name(*child++, "mtus");
        OzkMapNode& mtu  = builder.name(*builder.children(mtus, 1), "mtu");
        OzkMapNode* leaf = builder.children(mtu, 2);
        builder.leaf(leaf[0], "owner", "gigabit-ethernet");
        builder.leaf(leaf[1], "mtu", std::to_string(1500 + i % 7 * 250));
    }
    return std::move(builder.tree());
}

ozk::InputTree native_global_tree()
{
    Builder builder("global-interface-configuration", NS_NQ_IFMGR_CFG);
    builder.leaf(*builder.children(builder.tree().root(), 1), "link-status", "software-interfaces");
    return std::move(builder.tree());
}

ozk::InputTree configuration_read(uint32_t interfaces)
{
    return configuration_request(interfaces, ozk::Edit::none, true, false);
}

ozk::InputTree state_read(uint32_t interfaces)
{
    Builder builder("interfaces-state", NS_IETF_INTERFACES);
    OzkMapNode* entry = builder.children(builder.tree().root(), interfaces);
    for (uint32_t i = 0; i < interfaces; ++i, ++entry) {
        builder.name(*entry, "interface");
        builder.leaf(*builder.children(*entry, 1), "name", interface_name(i));
    }
    return std::move(builder.tree());
}

ozk::InputTree configuration_edit(uint32_t interfaces, ozk::Edit edit)
{
    const bool deletes = edit == ozk::Edit::erase || edit == ozk::Edit::remove;
    return configuration_request(interfaces, edit, !deletes, true);
}

void keep_memory()
{
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, -1);
}

void write_document(FILE* file, const OzkMapNode& root)
{
    write_node(file, root, 0, true);
}

} // namespace bench
