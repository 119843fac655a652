// YANG modules as texts.

#include "yang.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include <fmt/format.h>

namespace ymap::agent {

namespace {

/// The day of the newest change of what the modules say: a module that has changed needs another
/// (RFC 7950, 11).
constexpr const char* last_change = "2026-11-23";

/// The text up to the revision. `links` are the statements between prefix and organisation.
std::string head(const YangModule& module, std::string_view links, std::string_view description)
{
    return fmt::format(R"(module {} {{
  namespace "{}";
  prefix {};
{}
  organization
    "ymap-ietf-if";
  contact
    "maintainers@ymap.example";
  description
    "{}";

  revision {} {{
    description
      "The map as it stands.";
  }}
)",
                       module.name, module.ns_uri, module.prefix, links, description,
                       module.revision);
}

// ---------------------------------------------------------------------------------------------
// Deviations

/// Whether the node, or one below it, has a native path.
bool is_supported(const Schema& schema, const Schema::Node& node)
{
    return is_mapped(*node.facts) || std::ranges::any_of(node.children, [&](uint32_t child) {
               return is_supported(schema, schema.at(child));
           });
}

void append_deviation(std::string& text, std::string_view prefix, std::string_view path)
{
    text += "\n  deviation ";
    for (const char c : path)
        text += c == '/' ? fmt::format("/{}:", prefix) : std::string(1, c);
    text += " {\n    deviate not-supported;\n  }\n";
}

void append_deviations(std::string& text, const ModelRoot& root, const Schema& schema,
                       const Schema::Node& node)
{
    if (!is_supported(schema, node)) {
        append_deviation(text, prefix_of(root.ns_uri), node.facts->path);
        return;
    }
    const data::ListKeys* keys = data::keys_of(list_keys(), root.ns_uri, node.facts->path);
    for (const uint32_t place : node.children) {
        const Schema::Node& child = schema.at(place);
        if (keys == nullptr ||
            std::ranges::find(keys->leaves, child.facts->tag) == keys->leaves.end())
            append_deviations(text, root, schema, child);
    }
}

std::string deviations_text(const YangModule& module, const MapLibrary& library)
{
    const Module& deviated = *module.model;
    std::string text =
        head(module,
             fmt::format("\n  import {} {{\n    prefix {};\n    revision-date {};\n  }}\n",
                         deviated.name, deviated.prefix, deviated.revision),
             fmt::format("The nodes of {} that have no counterpart in the router's\n"
                         "     native models. Drawn from the map library.",
                         deviated.name));
    for (const ModelRoot& root : model_roots()) {
        if (std::string_view(root.ns_uri) != deviated.ns_uri)
            continue;
        if (library.root_walker(root) == nullptr) {
            append_deviation(text, deviated.prefix, fmt::format("/{}", root.name));
            continue;
        }
        const Schema& schema = library.schema(root);
        append_deviations(text, root, schema, schema.root());
    }
    return text + "}\n";
}

// ---------------------------------------------------------------------------------------------
// Native models

void append_node(std::string& text, const ModelRoot& root, const Schema& schema,
                 const Schema::Node& node, size_t indent)
{
    constexpr const char* keywords[] = {"container", "list", "leaf"};
    const data::ExploredNode& facts  = *node.facts;
    text += fmt::format("{:{}}{} {} {{\n", "", indent, keywords[static_cast<size_t>(facts.kind)],
                        facts.tag);
    const data::ListKeys* keys = data::keys_of(list_keys(), root.ns_uri, facts.path);
    if (keys != nullptr)
        text += fmt::format("{:{}}key \"{}\";\n", "", indent + 2, fmt::join(keys->leaves, " "));
    // A list of configuration needs keys (RFC 7950, 7.8.2). One whose keys aren't known can be
    // read, but not edited.
    const bool is_keyless = facts.kind == data::NodeKind::list && keys == nullptr;
    if (root.is_state ? &node == &schema.root() : is_keyless)
        text += fmt::format("{:{}}config false;\n", "", indent + 2);
    if (facts.kind == data::NodeKind::leaf)
        text += fmt::format("{:{}}type string;\n", "", indent + 2);
    for (const uint32_t child : node.children)
        append_node(text, root, schema, schema.at(child), indent + 2);
    text += fmt::format("{:{}}}}\n", "", indent);
}

std::string native_text(const YangModule& module, const MapLibrary& library)
{
    std::string text =
        head(module, "",
             "The structure of the model as the map knows it: containers, lists with\n"
             "     their keys, and leaves as strings, whatever the model's own types are.\n"
             "     Drawn from the map library.");
    for (const ModelRoot& root : model_roots()) {
        if (root.ns_uri != module.ns_uri || library.root_walker(root) == nullptr)
            continue;
        const Schema& schema = library.schema(root);
        text += '\n';
        append_node(text, root, schema, schema.root(), 2);
    }
    return text + "}\n";
}

} // namespace

std::vector<YangModule> yang_modules()
{
    const auto has_root = [](const Module& model) {
        return std::ranges::any_of(model_roots(), [&](const ModelRoot& root) {
            return std::string_view(root.ns_uri) == model.ns_uri;
        });
    };
    std::vector<YangModule> result;
    for (const bool is_clients : {true, false})
        for (const Module& model : modules()) {
            if (model.is_clients != is_clients || !has_root(model))
                continue;
            YangModule module{model.name, last_change, model.ns_uri, model.prefix, &model};
            if (is_clients) {
                module.name   = fmt::format("ymap-{}-deviations", model.name);
                module.ns_uri = "http://brelvik.example/ns/yang/" + module.name;
                module.prefix = fmt::format("{}-deviations", model.prefix);
            }
            result.push_back(std::move(module));
        }
    return result;
}

std::string yang_text(const YangModule& module, const MapLibrary& library)
{
    return module.deviates() ? deviations_text(module, library) : native_text(module, library);
}

} // namespace ymap::agent
