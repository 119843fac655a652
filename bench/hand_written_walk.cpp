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

template <class Function>
void for_each_named(const xmlNode* parent, const char* name, Function function)
{
    for (const xmlNode* child = parent->children; child != nullptr; child = child->next)
        if (is_named(child, name))
            function(child);
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

void map_statistics(const xmlNode* native, xmlNodePtr statistics)
{
    for (const xmlNode* child = native->children; child != nullptr; child = child->next)
        if (is_named(child, "full-interface-stats")) {
            for (const xmlNode* leaf = child->children; leaf != nullptr; leaf = leaf->next)
                for (const auto& [name, ietf] : full_counters)
                    if (is_named(leaf, name)) {
                        add_leaf(statistics, ietf, leaf);
                        break;
                    }
        } else if (is_named(child, "basic-interface-stats")) {
            for_each_named(child, "output-errors",
                           [&](const xmlNode* leaf) { add_leaf(statistics, "out-errors", leaf); });
        }
}

void map_interface(const xmlNode* native, xmlNodePtr interface)
{
    for (const xmlNode* child = native->children; child != nullptr; child = child->next)
        if (is_named(child, "interface-name"))
            add_leaf(interface, "name", child);
        else if (is_named(child, "mac-address"))
            for_each_named(child, "address",
                           [&](const xmlNode* leaf) { add_leaf(interface, "phys-address", leaf); });
        else if (is_named(child, "interface-statistics"))
            map_statistics(child, add_container(interface, "statistics"));
}

} // namespace

xmlDocPtr map_by_hand(const xmlDoc* native)
{
    xmlDocPtr result = xmlNewDoc(reinterpret_cast<const xmlChar*>("1.0"));
    xmlNodePtr state = xmlNewNode(nullptr, reinterpret_cast<const xmlChar*>("interfaces-state"));
    xmlSetNs(state, xmlNewNs(state, reinterpret_cast<const xmlChar*>(NS_IETF_INTERFACES), nullptr));
    xmlDocSetRootElement(result, state);
    for_each_named(xmlDocGetRootElement(native), "interface-nq", [&](const xmlNode* list) {
        for_each_named(list, "interface", [&](const xmlNode* entry) {
            map_interface(entry, add_container(state, "interface"));
        });
    });
    return result;
}

} // namespace bench
