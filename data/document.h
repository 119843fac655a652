// A document as it was read: its tree, and what the tree doesn't hold.

#ifndef YMAP_DATA_DOCUMENT_H
#define YMAP_DATA_DOCUMENT_H

#include <string>
#include <unordered_map>
#include <vector>

#include "lists.h"
#include "tree.h"

namespace ymap::data {

/// The namespace of NETCONF's own elements and of the operation attribute (RFC 6241, 3.1).
inline constexpr char NS_NETCONF[] = "urn:ietf:params:xml:ns:netconf:base:1.0";

/// An attribute of an element. A namespace declaration is one with the prefix "xmlns", and its name
/// is the prefix that it declares, which may be empty.
struct Attribute {
    std::string prefix;
    std::string name;
    std::string ns_uri; ///< empty for none
    std::string value;
};

struct Document {
    std::string name; ///< for messages
    ozk::Tree tree  = {};
    Indexes indexes = {}; ///< of the tree's lists
    /// The attributes of the nodes with MARK_ATTRIBUTES. A good operation of NETCONF isn't among
    /// them: it is the node's own edit. Declarations are those of an outermost element of NETCONF.
    std::unordered_map<const OzkMapNode*, std::vector<Attribute>> attributes = {};
    bool has_operations = false; ///< an edit operation stands on some node
    bool has_prefixed   = false; ///< some node has ozk::MARK_PREFIXED

    const std::vector<Attribute>& attributes_of(const OzkMapNode& node) const
    {
        static const std::vector<Attribute> none;
        const auto found = attributes.find(&node);
        return found != attributes.end() ? found->second : none;
    }
};

} // namespace ymap::data

#endif
