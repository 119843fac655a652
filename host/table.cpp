// `ymap table`: what the loaded map library makes of each node of its schema, found by asking it.

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "commands.h"
#include "explore.h"
#include "input_error.h"
#include "library.h"
#include "output.h"

namespace ymap::host {

namespace {

/// Tags that the library compares nowhere, as RFC 7223, 5 spells them: its functions' names give
/// them without hyphens. For display only.
constexpr std::string_view spellings[] = {"admin-status",  "oper-status",  "last-change",
                                          "if-index",      "phys-address", "higher-layer-if",
                                          "lower-layer-if"};

struct TableOptions {
    std::string path;
    std::string format = "text";
    bool mapped        = false;
    LibraryOptions library;
};

/// A root with its nodes, or those of them that were asked for.
struct Section {
    const ModelRoot* root;
    std::vector<ozk::ExploredNode> nodes;
};

using Lines = std::vector<std::string>;

// ---------------------------------------------------------------------------------------------
// Cells

/// Names of a set of queries; both reads together are "read".
std::string names_of(const std::set<ozk::Query>& queries)
{
    using enum ozk::Query;
    const bool is_read = queries.contains(get_config) && queries.contains(get);
    Lines names;
    if (is_read)
        names.push_back("read");
    else if (queries.contains(get_config) || queries.contains(get))
        names.push_back(queries.contains(get) ? "get" : "get-config");
    if (queries.contains(edit))
        names.push_back("edit");
    if (queries.contains(erase))
        names.push_back("delete");
    return fmt::format("{}", fmt::join(names, ", "));
}

/// What `describe` says of the outcomes of the queries that concern the node. Equal answers stand
/// together, under the names of their queries where there are several answers.
template <class Describe>
Lines by_query(const ozk::ExploredNode& node, Describe describe)
{
    using enum ozk::Query;
    std::vector<std::pair<Lines, std::set<ozk::Query>>> groups;
    for (const ozk::Query query : {get_config, get, edit, erase}) {
        // A delete that the walker refuses doesn't reach the node, but says something of it.
        const bool concerns = node.on(query == erase ? edit : query).is_reached;
        if (!concerns)
            continue;
        const Lines lines = describe(node.on(query));
        auto group        = std::ranges::find(groups, lines, &decltype(groups)::value_type::first);
        if (group == groups.end())
            group = groups.insert(group, {lines, {}});
        group->second.insert(query);
    }
    Lines all;
    for (const auto& [lines, queries] : groups)
        for (const std::string& line : lines)
            all.push_back(groups.size() == 1 ? line
                                             : fmt::format("{}: {}", names_of(queries), line));
    return all;
}

std::string path_text(const ozk::MappedPath& mapped)
{
    std::string text = fmt::format("{}:{}", prefix_of(mapped.ns_uri), mapped.path);
    switch (mapped.value_from) {
    case ozk::ValueFrom::nowhere: break;
    case ozk::ValueFrom::node: text += " = value"; break;
    case ozk::ValueFrom::above: text += " = value of the node above"; break;
    case ozk::ValueFrom::literal: text += fmt::format(" = \"{}\"", mapped.literal); break;
    }
    return text + (mapped.is_list ? ", list" : "") + (mapped.only_if_empty ? ", if empty" : "") +
           (mapped.refers_to_node ? ", ref" : "");
}

/// The paths that a node maps to, a path a line.
Lines maps_to(const ozk::ExploredNode& node)
{
    return by_query(node, [](const ozk::Outcome& outcome) {
        Lines lines;
        for (const ozk::MappedPath& mapped : outcome.paths) {
            const std::string text = path_text(mapped);
            if (!lines.empty() && lines.back() == text)
                lines.back() += ", twice";
            else
                lines.push_back(text);
        }
        return lines;
    });
}

Lines statuses(const ozk::ExploredNode& node)
{
    return by_query(node, [](const ozk::Outcome& outcome) {
        return Lines{(outcome.status == MAP_OK ? "MAP_OK" : status_text(outcome.status)) +
                     (outcome.is_dropped ? ", dropped" : "")};
    });
}

std::string kind_text(const ozk::ExploredNode& node)
{
    constexpr const char* names[] = {"container", "list", "leaf"};
    return names[static_cast<size_t>(node.kind)];
}

/// The operations that reach a node, "-" for all.
std::string gate(const ozk::ExploredNode& node)
{
    using enum ozk::Query;
    std::set<ozk::Query> reaching;
    for (const ozk::Query query : {get_config, get, edit})
        if (node.on(query).is_reached)
            reaching.insert(query);
    if (reaching.empty())
        return "closed";
    return (reaching.size() == 3 ? "-" : names_of(reaching)) +
           (node.is_compared ? "" : ", expansion");
}

/// Who wrote the functions of a node.
std::string written(const ozk::ExploredNode& node)
{
    std::string text = node.handler_by_hand ? "by hand" : "generated";
    for (const std::string& function : node.called_by_hand)
        text += function.ends_with("_handle_when")                 ? ", when hook"
                : function.find("_man_leaf_") != std::string::npos ? ", manual leaf"
                                                                   : ", calls " + function;
    return text + (node.hook_by_hand ? ", augment hook by hand" : "");
}

bool is_mapped(const ozk::ExploredNode& node)
{
    return std::ranges::any_of(node.outcomes,
                               [](const ozk::Outcome& outcome) { return !outcome.paths.empty(); });
}

// ---------------------------------------------------------------------------------------------
// Formats

constexpr size_t columns = 8;
using Row                = std::array<Lines, columns>;

const std::array<std::string, columns> titles = {"MODEL",  "NODE",    "KIND",    "GATE",
                                                 "STATUS", "WRITTEN", "MAPS TO", "HANDLER"};

Row row_of(const ModelRoot& root, const ozk::ExploredNode& node)
{
    return {Lines{std::string(prefix_of(root.ns_uri))},
            {node.path},
            {kind_text(node)},
            {gate(node)},
            statuses(node),
            {written(node)},
            maps_to(node),
            {node.handler}};
}

void print(const std::string& text)
{
    std::fwrite(text.data(), 1, text.size(), stdout);
}

/// Aligned columns. A row is as many lines as its longest cell has.
void print_text(const std::vector<Section>& sections)
{
    std::vector<Row> rows = {{}};
    std::ranges::transform(titles, rows[0].begin(), [](const auto& title) { return Lines{title}; });
    for (const Section& section : sections)
        for (const ozk::ExploredNode& node : section.nodes)
            rows.push_back(row_of(*section.root, node));

    std::array<size_t, columns> widths{};
    for (const Row& row : rows)
        for (size_t i = 0; i < columns; ++i)
            for (const std::string& line : row[i])
                widths[i] = std::max(widths[i], line.size());
    for (const Row& row : rows) {
        const size_t height = std::ranges::max_element(row, {}, &Lines::size)->size();
        for (size_t line = 0; line < height; ++line) {
            std::string text;
            for (size_t i = 0; i < columns; ++i)
                text += fmt::format("{:{}}  ",
                                    line < row[i].size() ? row[i][line]
                                                         : (row[i].empty() && line == 0 ? "-" : ""),
                                    widths[i]);
            print(text.substr(0, text.find_last_not_of(' ') + 1) + "\n");
        }
    }
}

/// Fields as in RFC 4180, but with the line ends of this system; the lines of a cell are separated
/// by a semicolon.
void print_csv(const std::vector<Section>& sections)
{
    const auto field = [](const std::string& text) {
        std::string quoted;
        for (const char c : text)
            quoted.append(c == '"' ? 2 : 1, c);
        return text.find_first_of("\",\n") == std::string::npos ? text : '"' + quoted + '"';
    };
    print("model,node,kind,gate,status,written,maps to,handler\n");
    for (const Section& section : sections) {
        for (const ozk::ExploredNode& node : section.nodes) {
            Lines fields;
            for (const Lines& lines : row_of(*section.root, node))
                fields.push_back(field(fmt::format("{}", fmt::join(lines, "; "))));
            print(fmt::format("{}\n", fmt::join(fields, ",")));
        }
    }
}

constexpr char markdown_head[] = R"(# The mapping table

What the map library makes of each node of its schema. The command `ymap table --format markdown`
has made this file by asking the built library: it offers each walker a node of an unknown tag, sees
which tags the walker compares it with, goes on below each of them, and looks at what the library
adds. A test fails when the file is out of date; don't edit it.

- **Node**: the schema path, in the order in which the library knows the nodes.
- **Gate**: the operations that reach the node; `-` for all. A node with the word *expansion* is
  called with the node above whenever that is walked: its walker looks at no child, and the library
  compares the tag nowhere. The tag is taken from a function's name and spelt as in RFC 7223.
- **Maps to**: the paths added to the output tree, with the prefix of their model. `= value` is the
  node's own value; without it the path only selects, or names, data. `if empty`: only for a node
  without children. `ref`: the path is added with a reference to the node. Where operations differ,
  they stand in front; *read* is get-config and get, *delete* an edit with a delete on the node.
- **Status**: what a walk that ends at the node returns. *Dropped*: the handler's status, which its
  caller doesn't look at.
- **Written**: whether the handler is generated, or replaced by hand; and what else was written by
  hand for the node.
)";

void print_markdown(const std::vector<Section>& sections)
{
    size_t count = 0, mapped = 0;
    for (const Section& section : sections) {
        count += section.nodes.size();
        mapped += static_cast<size_t>(std::ranges::count_if(section.nodes, is_mapped));
    }
    print(fmt::format("{}\n{} nodes, of which {} map.\n", markdown_head, count, mapped));
    const auto code = [](const Lines& lines) {
        return lines.empty() ? "" : fmt::format("`{}`", fmt::join(lines, "`<br>`"));
    };
    for (const Section& section : sections) {
        print(fmt::format("\n## {}:/{}\n\nNamespace `{}`, root walker `{}`.\n\n"
                          "| Node | Kind | Gate | Maps to | Status | Written | Handler |\n"
                          "|---|---|---|---|---|---|---|\n",
                          prefix_of(section.root->ns_uri), section.root->name, section.root->ns_uri,
                          section.root->symbol));
        for (const ozk::ExploredNode& node : section.nodes)
            print(fmt::format("| `{}` | {} | {} | {} | {} | {} | `{}` |\n", node.path,
                              kind_text(node), gate(node), code(maps_to(node)),
                              fmt::join(statuses(node), "<br>"), written(node), node.handler));
    }
}

// ---------------------------------------------------------------------------------------------

/// Whether `path` is `prefix` or lies below it.
bool is_below(std::string_view path, std::string_view prefix)
{
    while (prefix.ends_with('/'))
        prefix.remove_suffix(1);
    return path.starts_with(prefix) && (path.size() == prefix.size() || path[prefix.size()] == '/');
}

int print_table(const TableOptions& options)
{
    LibraryOptions library_options      = options.library;
    library_options.shows_sibling_calls = false;
    const MapLibrary library(library_options);
    std::vector<Section> sections;
    size_t roots = 0, known = 0;
    for (const ModelRoot& root : model_roots()) {
        OzkMapFunction* walker = library.root_walker(root);
        if (walker == nullptr)
            continue;
        ++roots;
        Section section{&root, ozk::explore(
                                   {root.ns_uri, root.name, walker},
                                   [&](const std::string& name) { return library.function(name); },
                                   spellings)};
        std::erase_if(section.nodes, [&](const ozk::ExploredNode& node) {
            return !is_below(node.path, options.path);
        });
        known += section.nodes.size();
        if (options.mapped)
            std::erase_if(section.nodes, std::not_fn(is_mapped));
        if (!section.nodes.empty())
            sections.push_back(std::move(section));
    }
    if (roots == 0)
        throw InputError(
            fmt::format("ymap: the map library {} has no root walker", library.path()));
    if (known == 0)
        throw InputError(
            for_message(fmt::format("ymap: the map library has no node '{}'", options.path)));

    if (options.format == "markdown")
        print_markdown(sections);
    else if (options.format == "csv")
        print_csv(sections);
    else
        print_text(sections);
    return exit_mapped;
}

} // namespace

void add_table_command(CLI::App& app, Command& chosen)
{
    auto options = std::make_shared<TableOptions>();
    CLI::App* verb =
        app.add_subcommand("table", "Print what the map library makes of each node of its schema");
    verb->add_option("PATH", options->path, "Only this node and those below it")->type_name("");
    verb->add_option("--format", options->format, "Form of the output")
        ->check(CLI::IsMember({"text", "markdown", "csv"}))
        ->capture_default_str();
    verb->add_flag("--mapped", options->mapped, "Only nodes that map to a path");
    add_library_options(*verb, options->library);
    verb->footer("Example: ymap table --mapped /interfaces-state");
    verb->callback([options, &chosen] { chosen = [options] { return print_table(*options); }; });
}

} // namespace ymap::host
