// Trees in JSON.

#include <algorithm>
#include <map>
#include <set>
#include <vector>

#include <fmt/core.h>

#include "output.h"
#include "text.h"

namespace ymap::formats {

using ozk::children;
using ozk::text;

namespace {

bool is_integer(std::string_view text)
{
    if (text.starts_with('-'))
        text.remove_prefix(1);
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos &&
           (text == "0" || !text.starts_with('0'));
}

class JsonWriter {
public:
    JsonWriter(Output& out, const JsonSchema& schema) : out_(out), schema_(schema) {}

    /// Writes the children of `node` as an object.
    void object(const OzkMapNode& node, size_t indent)
    {
        // The instances of each name, in the order in which the names come first.
        std::vector<std::vector<const OzkMapNode*>> members;
        std::map<std::pair<std::string_view, std::string_view>, size_t> known;
        for (const OzkMapNode& child : children(node)) {
            const auto [place, is_new] =
                known.try_emplace({text(child.ns_uri), text(child.tag)}, members.size());
            if (is_new)
                members.emplace_back();
            members[place->second].push_back(&child);
        }
        out_ << "{";
        const char* separator = "\n";
        std::set<std::string> names;
        for (const auto& instances : members) {
            const OzkMapNode& first = *instances.front();
            out_ << separator;
            separator        = ",\n";
            std::string name = name_of(first, node);
            if (!names.insert(name).second) // by a guess at two modules that nobody knows
                name = fmt::format("{}:{}", text(first.ns_uri), text(first.tag));
            out_.fill(indent + 2, ' ') << json_string(name) << ": ";
            const size_t above = path_.size();
            path_.append(1, '/').append(text(first.tag));
            if (instances.size() > 1 || schema_.is_list(first.ns_uri, path_))
                array(instances, indent + 2);
            else
                value(first, indent + 2);
            path_.resize(above);
        }
        if (!members.empty())
            (out_ << "\n").fill(indent, ' ');
        out_ << "}";
    }

private:
    std::string name_of(const OzkMapNode& node, const OzkMapNode& parent) const
    {
        if (ozk::same_text(node.ns_uri, parent.ns_uri))
            return std::string(text(node.tag));
        return fmt::format("{}:{}", schema_.module_of(node.ns_uri), text(node.tag));
    }

    void array(const std::vector<const OzkMapNode*>& entries, size_t indent)
    {
        const char* separator = "[\n";
        for (const OzkMapNode* entry : entries) {
            out_ << separator;
            separator = ",\n";
            out_.fill(indent + 2, ' ');
            value(*entry, indent + 2);
        }
        (out_ << "\n").fill(indent, ' ') << "]";
    }

    void value(const OzkMapNode& node, size_t indent)
    {
        if (!children(node).empty() || schema_.is_container(node.ns_uri, path_))
            return object(node, indent);
        const std::string_view content = text(node.value);
        const JsonType type            = schema_.type_of(node);
        const bool is_bare =
            (type == JsonType::boolean && (content == "true" || content == "false")) ||
            (type == JsonType::integer && is_integer(content));
        if (is_bare)
            out_ << content;
        else if (node.value == nullptr && type == JsonType::unknown)
            out_ << "[null]";
        else
            out_ << json_string(content);
    }

    Output& out_;
    const JsonSchema& schema_;
    std::string path_; ///< schema path of the node that is being written
};

} // namespace

std::string json_string(std::string_view text)
{
    std::string out = "\"";
    for (size_t i = 0; i < text.size(); ++i) {
        switch (const char c = text[i]) {
        case '"': out += "\\\""; break;
        case '\\': out += "\\\\"; break;
        case '\n': out += "\\n"; break;
        case '\r': out += "\\r"; break;
        case '\t': out += "\\t"; break;
        default:
            if (const size_t size = data::control_size(text, i); size > 0) {
                i += size - 1; // its last byte is its code
                out += fmt::format("\\u{:04x}", static_cast<unsigned char>(text[i]));
            } else {
                out += c;
            }
        }
    }
    return out += '"';
}

void write_json(Output& out, const OzkMapNode& top, const JsonSchema& schema, size_t indent)
{
    JsonWriter(out, schema).object(top, indent);
}

} // namespace ymap::formats
