// The library beside its rivals, on the same native operational document: a stylesheet run by
// libxslt, and a walk over the libxml2 tree written by hand. All make the same /interfaces-state,
// which is checked before anything is measured.
// usage: side_by_side_bench DOCUMENT [benchmark options]

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <utility>

#include <benchmark/benchmark.h>
#include <libxml/parser.h>
#include <libxslt/transform.h>
#include <libxslt/xsltInternals.h>

#include "reader.h"
#include "reference_tree.h"
#include "run.h"

namespace {

template <auto Free>
struct Freer {
    template <class T>
    void operator()(T* object) const
    {
        Free(object);
    }
};
using XmlDocument = std::unique_ptr<xmlDoc, Freer<xmlFreeDoc>>;
using Stylesheet  = std::unique_ptr<xsltStylesheet, Freer<xsltFreeStylesheet>>;

[[noreturn]] void stop(const std::string& message)
{
    fprintf(stderr, "side_by_side_bench: %s\n", message.c_str());
    std::exit(1);
}

std::string_view view(const xmlChar* text)
{
    return text != nullptr ? std::string_view(reinterpret_cast<const char*>(text))
                           : std::string_view();
}

/// What all sides start from: the tree in memory that each of them reads.
struct Inputs {
    ymap::data::Document native;
    XmlDocument parsed;
    Stylesheet stylesheet;
};

Inputs read_inputs(const char* path)
{
    Inputs inputs{
        ymap::formats::read_xml(path, ymap::formats::bytes_of_file(path), {}),
        XmlDocument(xmlReadFile(path, nullptr, XML_PARSE_NONET)),
        Stylesheet(xsltParseStylesheetFile(reinterpret_cast<const xmlChar*>(BENCH_STYLESHEET)))};
    if (!inputs.parsed || !inputs.stylesheet)
        stop(std::string("cannot read the stylesheet or ") + path);
    return inputs;
}

// ---------------------------------------------------------------------------------------------
// The walk that a person would write for this one purpose. It knows the nodes that have a
// counterpart and passes over all others; like the library, it keeps the order of the document and
// adds an empty `statistics` for empty statistics.

/// Inlined wherever it is called: most of the walk is this comparison.
[[gnu::always_inline]] inline bool is_named(const xmlNode* node, const char* name)
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

// ---------------------------------------------------------------------------------------------
// The mapping step. Its functions are found by name in a profile: each is called once before
// anything is measured.

/// The flat list of added paths, as a run keeps it.
[[gnu::noinline]] std::unique_ptr<ozk::Run> map_to_paths(const Inputs& inputs)
{
    auto run = std::make_unique<ozk::Run>(MAP_OP_GET);
    if (run->walk(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces,
                  &bench::root_of(inputs.native.tree)) != MAP_OK)
        stop("the walk has failed");
    return run;
}

struct Mapped {
    std::unique_ptr<ozk::Run> run;
    ozk::Tree tree;
};

[[gnu::noinline]] Mapped map_to_tree(const Inputs& inputs)
{
    auto run       = map_to_paths(inputs);
    ozk::Tree tree = ozk::tree_of(run->added());
    return {std::move(run), std::move(tree)};
}

[[gnu::noinline]] XmlDocument map_by_hand(const Inputs& inputs)
{
    XmlDocument result(xmlNewDoc(reinterpret_cast<const xmlChar*>("1.0")));
    xmlNodePtr state = xmlNewNode(nullptr, reinterpret_cast<const xmlChar*>("interfaces-state"));
    xmlSetNs(state, xmlNewNs(state, reinterpret_cast<const xmlChar*>(NS_IETF_INTERFACES), nullptr));
    xmlDocSetRootElement(result.get(), state);
    for_each_named(xmlDocGetRootElement(inputs.parsed.get()), "interface-nq",
                   [&](const xmlNode* list) {
                       for_each_named(list, "interface", [&](const xmlNode* entry) {
                           map_interface(entry, add_container(state, "interface"));
                       });
                   });
    return result;
}

[[gnu::noinline]] XmlDocument map_by_stylesheet(const Inputs& inputs)
{
    return XmlDocument(xsltApplyStylesheet(inputs.stylesheet.get(), inputs.parsed.get(), nullptr));
}

/// Whether an element and all below it is the same as a node of the library's result.
bool same(const OzkMapNode& node, const xmlNode* element)
{
    if (element->type != XML_ELEMENT_NODE || node.tag != view(element->name) ||
        element->ns == nullptr || node.ns_uri != view(element->ns->href))
        return false;
    const xmlNode* below = element->children;
    if (ozk::children(node).empty()) {
        const bool is_text = below != nullptr && below->type == XML_TEXT_NODE;
        return ozk::text(node.value) == (is_text ? view(below->content) : "");
    }
    for (const OzkMapNode& child : ozk::children(node)) {
        if (below == nullptr || !same(child, below))
            return false;
        below = below->next;
    }
    return below == nullptr;
}

void check_results(const Inputs& inputs)
{
    const Mapped mapped             = map_to_tree(inputs);
    const XmlDocument by_hand       = map_by_hand(inputs);
    const XmlDocument by_stylesheet = map_by_stylesheet(inputs);
    const auto roots                = ozk::children(mapped.tree.top());
    if (roots.size() != 1 || ozk::children(roots.front()).empty())
        stop("the library has made no tree");
    if (!by_hand || !same(roots.front(), xmlDocGetRootElement(by_hand.get())))
        stop("the walk by hand gives another result than the library");
    const xmlNode* outermost = by_stylesheet ? xmlDocGetRootElement(by_stylesheet.get()) : nullptr;
    if (outermost == nullptr || outermost->children == nullptr ||
        !same(roots.front(), outermost->children))
        stop("the stylesheet gives another result than the library");
}

} // namespace

int main(int argc, char** argv)
{
    bench::keep_memory();
    benchmark::Initialize(&argc, argv);
    if (argc != 2)
        stop("usage: side_by_side_bench DOCUMENT [benchmark options]");
    const Inputs inputs = read_inputs(argv[1]);
    check_results(inputs);

    // What a step has made is freed beside the clock.
    const auto step = [&](const char* name, auto map) {
        benchmark::RegisterBenchmark(name, [&inputs, map](benchmark::State& state) {
            for (auto _ : state) {
                auto result = map(inputs);
                benchmark::DoNotOptimize(result);
                state.PauseTiming();
                result = {};
                state.ResumeTiming();
            }
        })->Unit(benchmark::kMillisecond);
    };
    step("to_paths", map_to_paths);
    step("to_tree", map_to_tree);
    step("by_hand", map_by_hand);
    step("by_stylesheet", map_by_stylesheet);

    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
