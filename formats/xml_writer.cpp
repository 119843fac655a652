// Trees in XML.

#include "output.h"

namespace ymap::formats {

using ozk::children;
using ozk::text;

void write_escaped(Output& out, std::string_view text, bool is_attribute)
{
    size_t begin = 0; // most of a text needs no escape and goes over in runs
    for (size_t i = 0; i < text.size(); ++i) {
        std::string_view escape;
        switch (text[i]) {
        case '&': escape = "&amp;"; break;
        case '<': escape = "&lt;"; break;
        case '>': escape = "&gt;"; break;
        case '"': escape = "&quot;"; break;
        case '\r': escape = "&#13;"; break; // a reader would make a line feed of it
        case '\n':
        case '\t':
            if (!is_attribute)
                continue;
            escape = text[i] == '\n' ? "&#10;" : "&#9;";
            break;
        default: continue;
        }
        out << text.substr(begin, i - begin) << escape;
        begin = i + 1;
    }
    out << text.substr(begin);
}

std::string escaped(std::string_view text, bool is_attribute)
{
    std::string result;
    Output out([&](std::string_view piece) { result += piece; });
    write_escaped(out, text, is_attribute);
    out.flush();
    return result;
}

void write_xml(Output& out, const OzkMapNode& node, const char* ns_uri, Layout layout,
               size_t indent)
{
    const std::string_view tag = text(node.tag);
    const bool has_lines       = layout == Layout::lines;
    if (has_lines)
        out.fill(indent, ' ');
    out << "<" << tag;
    if (!ozk::same_text(node.ns_uri, ns_uri)) {
        out << " xmlns=\"";
        write_escaped(out, text(node.ns_uri), true);
        out << "\"";
    }
    if (node.edit_is_own != 0 && ozk::edit_of(node) != ozk::Edit::none)
        out << " nc:operation=\"" << ozk::name_of(ozk::edit_of(node)) << "\"";
    if (!children(node).empty()) {
        out << (has_lines ? ">\n" : ">");
        for (const OzkMapNode& child : children(node))
            write_xml(out, child, node.ns_uri, layout, indent + 2);
        if (has_lines)
            out.fill(indent, ' ');
    } else if (node.value != nullptr) {
        out << ">";
        write_escaped(out, node.value);
    } else {
        out << (has_lines ? "/>\n" : "/>");
        return;
    }
    out << "</" << tag << (has_lines ? ">\n" : ">");
}

} // namespace ymap::formats
