// The walk knows the nodes that have a counterpart and passes over all others. Like the library, it
// keeps the order of the document and adds an empty `statistics` for empty statistics.

#include "hand_written_walk.h"

#include <cstring>
#include <utility>

#include "ymap.h"

namespace bench {

namespace {

bool is_named(const xmlNode* node, const char* name)
{
    return node->type == XML_ELEMENT_NODE &&
           std::strcmp(reinterpret_cast<const char*>(node->name), name) == 0;
}

xmlNodePtr add_container(xmlNodePtr parent, const char* name)
{
    return xmlNewChild(parent, parent->ns, reinterpret_cast<const xmlChar*>(name), nullptr);
}

void add_leaf(xmlNodePtr parent, const char* name, const xmlNode* native)
{
    const xmlNode* text = native->children;
    xmlNewTextChild(parent, parent->ns, reinterpret_cast<const xmlChar*>(name),
                    text != nullptr && text->type == XML_TEXT_NODE ? text->content : nullptr);
}

constexpr std::pair<const char*, const char*> full_counters[] = {
    {"bytes-received", "in-octets"},
    {"bytes-sent", "out-octets"},
    {"multicast-packets-received", "in-multicast-pkts"},
    {"broadcast-packets-received", "in-broadcast-pkts"},
    {"multicast-packets-sent", "out-multicast-pkts"},
    {"broadcast-packets-sent", "out-broadcast-pkts"},
    {"unknown-protocol-packets-received", "in-unknown-protos"},
    {"input-errors", "in-errors"},
    {"input-ignored-packets", "in-discards"},
};

void map_full_statistics(const xmlNode* full, xmlNodePtr statistics)
{
    for (const xmlNode* leaf = full->children; leaf != nullptr; leaf = leaf->next)
        for (const auto& [native, ietf] : full_counters)
            if (is_named(leaf, native)) {
                add_leaf(statistics, ietf, leaf);
                break;
            }
}

void map_statistics(const xmlNode* native, xmlNodePtr interface)
{
    xmlNodePtr statistics = add_container(interface, "statistics");
    for (const xmlNode* child = native->children; child != nullptr; child = child->next) {
        if (is_named(child, "full-interface-stats")) {
            map_full_statistics(child, statistics);
        } else if (is_named(child, "basic-interface-stats")) {
            for (const xmlNode* leaf = child->children; leaf != nullptr; leaf = leaf->next)
                if (is_named(leaf, "output-errors"))
                    add_leaf(statistics, "out-errors", leaf);
        }
    }
}

void map_interface(const xmlNode* native, xmlNodePtr state)
{
    xmlNodePtr interface = add_container(state, "interface");
    for (const xmlNode* child = native->children; child != nullptr; child = child->next) {
        if (is_named(child, "interface-name")) {
            add_leaf(interface, "name", child);
        } else if (is_named(child, "mac-address")) {
            for (const xmlNode* leaf = child->children; leaf != nullptr; leaf = leaf->next)
                if (is_named(leaf, "address"))
                    add_leaf(interface, "phys-address", leaf);
        } else if (is_named(child, "interface-statistics")) {
            map_statistics(child, interface);
        }
    }
}

} // namespace

xmlDocPtr map_by_hand(const xmlDoc* native)
{
    const xmlNode* root = xmlDocGetRootElement(native);
    if (root == nullptr || !is_named(root, "interfaces"))
        return nullptr;
    xmlDocPtr result = xmlNewDoc(reinterpret_cast<const xmlChar*>("1.0"));
    xmlNodePtr state = xmlNewNode(nullptr, reinterpret_cast<const xmlChar*>("interfaces-state"));
    xmlSetNs(state, xmlNewNs(state, reinterpret_cast<const xmlChar*>(NS_IETF_INTERFACES), nullptr));
    xmlDocSetRootElement(result, state);
    for (const xmlNode* list = root->children; list != nullptr; list = list->next)
        if (is_named(list, "interface-nq"))
            for (const xmlNode* entry = list->children; entry != nullptr; entry = entry->next)
                if (is_named(entry, "interface"))
                    map_interface(entry, state);
    return result;
}

} // namespace bench
