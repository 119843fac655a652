// The whole map as a text for Graphviz's dot.

#include "picture.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <tuple>
#include <vector>

#include <fmt/format.h>

namespace ymap::host {

namespace {

/// A node of a schema as a line of its box.
struct Row {
    std::string path; ///< schema path
    bool is_met         = false;
    std::string literal = {}; ///< the value that requests give it
};

/// The nodes of a root that the picture shows, each after the one that it is a child of.
struct Box {
    std::string ns_uri, root;
    bool is_clients;
    std::vector<Row> rows;
};

/// A line from a node of the clients' model to a native one.
struct Line {
    std::string client, native; ///< ends as dot has them
    bool is_request;            ///< an arrow to the native node; else data, to the clients'

    bool operator<(const Line& other) const
    {
        return std::tie(client, native, is_request) <
               std::tie(other.client, other.native, other.is_request);
    }
};

bool is_below(std::string_view path, std::string_view above)
{
    return path.starts_with(above) && path.substr(above.size()).starts_with('/');
}

/// The row of `path`. A new one, and so a new one above it, is the last child of the node above.
Row& row_of(Box& box, const std::string& path)
{
    const auto known = std::ranges::find(box.rows, path, &Row::path);
    if (known != box.rows.end())
        return *known;
    auto place = box.rows.end();
    if (const std::string above = path.substr(0, path.rfind('/')); !above.empty()) {
        row_of(box, above);
        place = std::ranges::find(box.rows, above, &Row::path) + 1;
        place = std::find_if_not(place, box.rows.end(),
                                 [&](const Row& row) { return is_below(row.path, above); });
    }
    return *box.rows.insert(place, Row{path});
}

std::string name_of(const Box& box)
{
    return fmt::format("{}:{}", agent::prefix_of(box.ns_uri), box.root);
}

/// The end of a line at a node. Each row has two, so that the two directions lie side by side.
std::string end_of(const Box& box, std::string_view path, bool is_request)
{
    return fmt::format("\"{}\":\"{} {}\":{}", name_of(box), path, is_request ? "request" : "data",
                       box.is_clients ? "e" : "w");
}

struct Picture {
    std::vector<Box> boxes;
    std::set<Line> lines;

    Box& box_of(std::string_view ns_uri, std::string_view path)
    {
        const auto root  = path.substr(1, path.find('/', 1) - 1);
        const auto known = std::ranges::find_if(
            boxes, [&](const Box& box) { return box.ns_uri == ns_uri && box.root == root; });
        if (known != boxes.end())
            return *known;
        const agent::ModelRoot* model_root = agent::find_root(ns_uri, root);
        return boxes.emplace_back(Box{std::string(ns_uri),
                                      std::string(root),
                                      model_root != nullptr && model_root->is_clients,
                                      {}});
    }

    /// The line of a path that `node`, of a walk over a tree on `root`, maps to.
    void draw(const agent::ModelRoot& root, const data::ExploredNode& node,
              const data::MappedPath& mapped)
    {
        Row& target   = row_of(box_of(mapped.ns_uri, mapped.path), mapped.path);
        target.is_met = true;
        if (mapped.value_from == data::ValueFrom::literal)
            target.literal = mapped.literal;
        row_of(box_of(root.ns_uri, node.path), node.path).is_met = true;
        const std::string from = end_of(box_of(root.ns_uri, node.path), node.path, root.is_clients);
        const std::string to =
            end_of(box_of(mapped.ns_uri, mapped.path), mapped.path, root.is_clients);
        lines.insert(root.is_clients ? Line{from, to, true} : Line{to, from, false});
    }
};

constexpr char blue[] = "#2f6db0", orange[] = "#c77d11";

std::string head()
{
    return fmt::format(
        R"(// The whole map, drawn from the built library by `ymap table --format dot`.
digraph map {{
    rankdir = LR
    ranksep = 3
    nodesep = 0.4
    splines = line
    labelloc = t
    fontname = "Helvetica"
    node [shape = plain, fontname = "Helvetica", fontsize = 12]
    edge [arrowsize = 0.6, penwidth = 1.2]
    label = <<TABLE BORDER="0" CELLSPACING="8"><TR>
        <TD><FONT COLOR="{}"><B>&#8594; request</B>: what an edit writes or a read selects</FONT></TD>
        <TD><FONT COLOR="{}"><B>&#8592; data</B>: what a reply is made of</FONT></TD>
        <TD BGCOLOR="#d5e5f7">maps</TD>
        <TD>holds what maps</TD>
        <TD><FONT COLOR="#999999">doesn't map</FONT></TD>
        </TR></TABLE>>
)",
        blue, orange);
}

std::string text_of(const Box& box)
{
    const agent::ModelRoot* root = agent::find_root(box.ns_uri, box.root);
    std::string text =
        fmt::format("\n    \"{}\" [label = <<TABLE BORDER=\"1\" COLOR=\"#777777\" CELLBORDER=\"0\" "
                    "CELLSPACING=\"0\" CELLPADDING=\"0\">\n"
                    "        <TR><TD COLSPAN=\"2\" CELLPADDING=\"4\"><B>{}</B>{}</TD></TR>\n",
                    name_of(box), agent::module_of(box.ns_uri),
                    root == nullptr  ? ""
                    : root->is_state ? ", state"
                                     : ", configuration");
    for (const Row& row : box.rows) {
        const bool holds = std::ranges::any_of(box.rows, [&](const Row& each) {
            return each.is_met && is_below(each.path, row.path);
        });
        std::string name;
        for (auto depth = std::ranges::count(row.path, '/'); depth > 1; --depth)
            name += "&#160;&#160;&#160;&#160;";
        name += row.path.substr(row.path.rfind('/') + (name.empty() ? 0 : 1));
        if (!row.literal.empty())
            name += fmt::format(" = &quot;{}&quot;", row.literal);
        const std::string cell =
            fmt::format("<TD ROWSPAN=\"2\" ALIGN=\"LEFT\" WIDTH=\"250\"{}>&#160;<FONT "
                        "COLOR=\"{}\">{}</FONT>&#160;</TD>",
                        row.is_met ? " BGCOLOR=\"#d5e5f7\"" : "",
                        row.is_met || holds ? "#000000" : "#999999", name);
        const auto half = [&](const char* direction) {
            return fmt::format(
                "<TD PORT=\"{} {}\" HEIGHT=\"9\" WIDTH=\"4\" FIXEDSIZE=\"TRUE\"></TD>", row.path,
                direction);
        };
        text += fmt::format("        <TR>{}{}</TR><TR>{}</TR>\n",
                            box.is_clients ? cell : half("request"),
                            box.is_clients ? half("request") : cell, half("data"));
    }
    return text + "        </TABLE>>]\n";
}

} // namespace

std::string picture_of(const agent::MapLibrary& library)
{
    Picture picture;
    // Native nodes come in the order in which the clients' meet them.
    for (const bool is_clients : {true, false}) {
        for (const agent::ModelRoot& root : agent::model_roots()) {
            if (root.is_clients != is_clients || library.root_walker(root) == nullptr)
                continue;
            for (const data::ExploredNode& node : library.schema(root).explored()) {
                if (is_clients)
                    row_of(picture.box_of(root.ns_uri, node.path), node.path);
                for (const data::Outcome& outcome : node.outcomes)
                    for (const data::MappedPath& mapped : outcome.paths)
                        picture.draw(root, node, mapped);
            }
        }
    }

    std::string text = head();
    for (const Box& box : picture.boxes)
        text += text_of(box);
    text += '\n';
    for (const Line& line : picture.lines)
        text += fmt::format("    {} -> {} [color = \"{}\"{}]\n", line.client, line.native,
                            line.is_request ? blue : orange, line.is_request ? "" : ", dir = back");
    // The clients' roots stand one below the other, in their order.
    std::vector<std::string> clients;
    for (const Box& box : picture.boxes)
        if (box.is_clients)
            clients.push_back(fmt::format("\"{}\"", name_of(box)));
    return text + fmt::format("\n    {{ rank = same; edge [style = invis]; {} }}\n}}\n",
                              fmt::join(clients, " -> "));
}

} // namespace ymap::host
