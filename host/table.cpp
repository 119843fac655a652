// `ymap table`: what the loaded map library makes of each node of its schema, found by asking it.

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "columns.h"
#include "commands.h"
#include "explore.h"
#include "options.h"
#include "picture.h"
#include "report.h"
#include "text.h"
#include "yang.h"

namespace ymap::host {

namespace {

using agent::is_mapped;
using agent::prefix_of;
using data::ExploredNode;

/// A root with its nodes, or those of them that were asked for.
struct Section {
    const agent::ModelRoot* root;
    std::vector<ExploredNode> nodes;
};

using Lines = std::vector<std::string>;

// ---------------------------------------------------------------------------------------------
// Cells

/// Names of a set of queries; both reads together are "read".
std::string names_of(const std::set<data::Query>& queries)
{
    using enum data::Query;
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
Lines by_query(const ExploredNode& node, Describe describe)
{
    using enum data::Query;
    std::vector<std::pair<Lines, std::set<data::Query>>> groups;
    for (const data::Query query : {get_config, get, edit, erase}) {
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

std::string path_text(const data::MappedPath& mapped)
{
    std::string text = fmt::format("{}:{}", prefix_of(mapped.ns_uri), mapped.path);
    switch (mapped.value_from) {
    case data::ValueFrom::nowhere: break;
    case data::ValueFrom::node: text += " = value"; break;
    case data::ValueFrom::above: text += " = value of the node above"; break;
    case data::ValueFrom::literal: text += fmt::format(" = \"{}\"", mapped.literal); break;
    }
    return text + (mapped.is_list ? ", list" : "") + (mapped.only_if_empty ? ", if empty" : "") +
           (mapped.refers_to_node ? ", ref" : "");
}

/// The paths that a node maps to, a path a line.
Lines maps_to(const ExploredNode& node)
{
    return by_query(node, [](const data::Outcome& outcome) {
        Lines lines;
        for (const data::MappedPath& mapped : outcome.paths) {
            const std::string text = path_text(mapped);
            if (!lines.empty() && lines.back() == text)
                lines.back() += ", twice";
            else
                lines.push_back(text);
        }
        return lines;
    });
}

Lines statuses(const ExploredNode& node)
{
    return by_query(node, [](const data::Outcome& outcome) {
        return Lines{(outcome.status == MAP_OK ? "MAP_OK" : agent::status_text(outcome.status)) +
                     (outcome.is_dropped ? ", dropped" : "")};
    });
}

std::string kind_text(const ExploredNode& node)
{
    constexpr const char* names[] = {"container", "list", "leaf"};
    return names[static_cast<size_t>(node.kind)];
}

/// The operations that reach a node, "-" for all.
std::string gate(const ExploredNode& node)
{
    using enum data::Query;
    std::set<data::Query> reaching;
    for (const data::Query query : {get_config, get, edit})
        if (node.on(query).is_reached)
            reaching.insert(query);
    if (reaching.empty())
        return "closed";
    return (reaching.size() == 3 ? "-" : names_of(reaching)) +
           (node.is_compared ? "" : ", expansion");
}

/// Who wrote the functions of a node.
std::string written(const ExploredNode& node)
{
    std::string text = node.handler_by_hand ? "by hand" : "generated";
    for (const std::string& function : node.called_by_hand)
        text += function.ends_with("_handle_when")                 ? ", when hook"
                : function.find("_man_leaf_") != std::string::npos ? ", manual leaf"
                                                                   : ", calls " + function;
    return text + (node.hook_by_hand ? ", augment hook by hand" : "");
}

// ---------------------------------------------------------------------------------------------
// Formats

const Lines titles = {"MODEL", "NODE", "KIND", "GATE", "STATUS", "WRITTEN", "MAPS TO", "HANDLER"};

/// The cells of a node, each a list of lines.
std::vector<Lines> row_of(const agent::ModelRoot& root, const ExploredNode& node)
{
    return {{std::string(prefix_of(root.ns_uri))},
            {node.path},
            {kind_text(node)},
            {gate(node)},
            statuses(node),
            {written(node)},
            maps_to(node),
            {node.handler}};
}

/// Aligned columns.
void print_text(const std::vector<Section>& sections)
{
    std::vector<Lines> rows = {titles};
    for (const Section& section : sections)
        for (const ExploredNode& node : section.nodes) {
            Lines& row = rows.emplace_back();
            for (const Lines& cell : row_of(*section.root, node))
                row.push_back(cell.empty() ? "-" : fmt::format("{}", fmt::join(cell, "\n")));
        }
    print(aligned(rows));
}

/// What the tree says of a node beside its tag: the kind, and what isn't as with most.
std::string about(const ExploredNode& node)
{
    Lines words = {kind_text(node)};
    if (const std::string reached = gate(node); reached != "-")
        words.push_back(reached);
    for (const std::string& status : statuses(node))
        if (status != "MAP_OK")
            words.push_back(status);
    return fmt::format("  ({})", fmt::join(words, "; "));
}

/// Columns that the tree may take.
constexpr size_t terminal_width = 80;

/// Prints what a node maps to, below the node: broken after slashes and blanks.
void print_below(const std::string& text, size_t indent)
{
    std::string_view rest = text;
    std::string margin(indent, ' ');
    margin += "-> ";
    while (!rest.empty()) {
        const size_t room = terminal_width - margin.size();
        size_t end        = rest.size();
        if (end > room) {
            end = rest.find_last_of("/ ", room - 1);
            end = end == rest.npos ? std::min(room, rest.size()) : end + 1;
        }
        std::string line = margin + std::string(rest.substr(0, end));
        print(line.substr(0, line.find_last_not_of(' ') + 1) + "\n");
        rest.remove_prefix(end);
        margin.assign(indent + 5, ' ');
    }
}

/// The tags of a schema path.
std::vector<std::string_view> tags_of(std::string_view path)
{
    std::vector<std::string_view> tags;
    for (size_t at = 0; at != path.npos; at = path.find('/', at + 1))
        tags.push_back(path.substr(at + 1, path.find('/', at + 1) - at - 1));
    return tags;
}

/// The schema as a tree, no wider than a terminal: what a node maps to stands below it, and nodes
/// above that weren't asked for by their tags alone.
void print_tree(const std::vector<Section>& sections)
{
    for (const Section& section : sections) {
        print(fmt::format("{}{}\n", &section == &sections.front() ? "" : "\n",
                          prefix_of(section.root->ns_uri)));
        std::vector<std::string_view> shown;
        for (const ExploredNode& node : section.nodes) {
            const auto tags = tags_of(node.path);
            const auto known =
                static_cast<size_t>(std::ranges::mismatch(tags, shown).in1 - tags.begin());
            for (size_t i = known; i < tags.size(); ++i)
                print(fmt::format("{:{}}{}{}\n", "", 2 * i + 2, tags[i],
                                  i + 1 < tags.size() ? "" : about(node)));
            for (const std::string& mapped : maps_to(node))
                print_below(mapped, 2 * tags.size() + 2);
            shown = tags;
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
        for (const ExploredNode& node : section.nodes) {
            Lines fields;
            for (const Lines& lines : row_of(*section.root, node))
                fields.push_back(field(fmt::format("{}", fmt::join(lines, "; "))));
            print(fmt::format("{}\n", fmt::join(fields, ",")));
        }
    }
}

constexpr char markdown_head[] = R"(# The mapping table

![Nodes of ietf-interfaces on the left, native ones on the right, and a line for each that
maps](mapping.svg)

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
        for (const ExploredNode& node : section.nodes)
            print(fmt::format("| `{}` | {} | {} | {} | {} | {} | `{}` |\n", node.path,
                              kind_text(node), gate(node), code(maps_to(node)),
                              fmt::join(statuses(node), "<br>"), written(node), node.handler));
    }
}

// ---------------------------------------------------------------------------------------------

/// Whether `path` is `prefix` or lies below it.
bool is_at_or_below(std::string_view path, std::string_view prefix)
{
    while (prefix.ends_with('/'))
        prefix.remove_suffix(1);
    return path.starts_with(prefix) && (path.size() == prefix.size() || path[prefix.size()] == '/');
}

/// Prints the picture, or the one YANG module that was asked for: each is whole or nothing.
void print_whole(const TableOptions& options, const agent::MapLibrary& library)
{
    if (!options.path.empty() || options.mapped)
        throw UsageError(fmt::format("--format {} takes no path and no --mapped", options.format));
    if (options.format == "dot") {
        if (!options.model.empty())
            throw UsageError("--format dot draws the whole map: it takes no --model");
        print(picture_of(library));
        return;
    }
    std::vector<std::string_view> prefixes; // of the models that could be asked for
    std::vector<std::string> texts;
    for (const agent::YangModule& module : agent::yang_modules()) {
        if (module.deviates() != (options.format == "deviations"))
            continue;
        if (!module.deviates() &&
            std::ranges::none_of(agent::model_roots(), [&](const agent::ModelRoot& root) {
                return root.ns_uri == module.ns_uri && library.root_walker(root) != nullptr;
            }))
            continue;
        prefixes.emplace_back(module.model->prefix);
        if (options.model.empty() || options.model == prefixes.back())
            texts.push_back(yang_text(module, library));
    }
    if (prefixes.empty())
        throw std::runtime_error("the map library has no native model");
    if (texts.size() != 1)
        throw UsageError(fmt::format("--format {} prints one module: give --model {}",
                                     options.format, fmt::join(prefixes, " or ")));
    print(texts.front());
}

} // namespace

int print_table(const TableOptions& options)
{
    const agent::MapLibrary library = load_library(options.library);
    if (options.format == "dot" || options.format == "deviations" || options.format == "yang") {
        print_whole(options, library);
        return exit_mapped;
    }
    std::vector<Section> sections;
    size_t known = 0;
    for (const agent::ModelRoot& root : agent::model_roots()) {
        if (library.root_walker(root) == nullptr)
            continue;
        if (!options.model.empty() && options.model != prefix_of(root.ns_uri))
            continue;
        Section section{&root, library.schema(root).explored()};
        std::erase_if(section.nodes, [&](const ExploredNode& node) {
            return !is_at_or_below(node.path, options.path);
        });
        known += section.nodes.size();
        if (options.mapped)
            std::erase_if(section.nodes, std::not_fn(is_mapped));
        if (!section.nodes.empty())
            sections.push_back(std::move(section));
    }
    if (known == 0)
        throw formats::InputError("ymap", 0,
                                  fmt::format("the map library has no node '{}'", options.path));

    if (options.format == "markdown")
        print_markdown(sections);
    else if (options.format == "csv")
        print_csv(sections);
    else if (options.format == "text")
        print_text(sections);
    else
        print_tree(sections);
    return exit_mapped;
}

} // namespace ymap::host
