// The library beside its rivals, on the same native operational document: a stylesheet run by
// libxslt, and a walk over the libxml2 tree written by hand. All make the same /interfaces-state,
// which is checked before anything is measured.
// usage: side_by_side_bench DOCUMENT [benchmark options]

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <libxml/parser.h>
#include <libxslt/transform.h>
#include <libxslt/xsltInternals.h>

#include "hand_written_walk.h"
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
using Document   = std::unique_ptr<xmlDoc, Freer<xmlFreeDoc>>;
using Stylesheet = std::unique_ptr<xsltStylesheet, Freer<xsltFreeStylesheet>>;

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

// ---------------------------------------------------------------------------------------------
// From the tree of the parser to the tree of the library

uint32_t count_elements(const xmlNode* parent)
{
    uint32_t count = 0;
    for (const xmlNode* child = parent->children; child != nullptr; child = child->next)
        count += child->type == XML_ELEMENT_NODE ? 1 : 0;
    return count;
}

void copy_into(ozk::InputTree& tree, OzkMapNode& node, const xmlNode* element)
{
    node.tag    = tree.intern(view(element->name));
    node.ns_uri = tree.intern(view(element->ns->href));
    if (const uint32_t count = count_elements(element); count != 0) {
        OzkMapNode* child = tree.make_children(node, count);
        for (const xmlNode* each = element->children; each != nullptr; each = each->next)
            if (each->type == XML_ELEMENT_NODE)
                copy_into(tree, *child++, each);
    } else {
        const xmlNode* text = element->children;
        node.value          = tree.keep(text != nullptr ? view(text->content) : "");
        node.flags |= MAP_NODE_HAS_VALUE;
    }
}

/// What all sides start from.
struct Inputs {
    const char* path;
    Document parsed;
    ozk::InputTree tree;
    Stylesheet stylesheet;
};

Inputs read_inputs(const char* path)
{
    Inputs inputs{path, Document(xmlReadFile(path, nullptr, XML_PARSE_NONET)), {}, {}};
    if (!inputs.parsed)
        stop(std::string("cannot read ") + path);
    copy_into(inputs.tree, inputs.tree.root(), xmlDocGetRootElement(inputs.parsed.get()));
    inputs.stylesheet.reset(
        xsltParseStylesheetFile(reinterpret_cast<const xmlChar*>(BENCH_STYLESHEET)));
    if (!inputs.stylesheet)
        stop("cannot read the stylesheet");
    return inputs;
}

// ---------------------------------------------------------------------------------------------
// The mapping step

/// The flat list of added paths, as a run keeps it.
std::unique_ptr<ozk::Run> map_to_paths(const Inputs& inputs)
{
    auto run = std::make_unique<ozk::Run>(MAP_OP_GET);
    if (run->walk(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces, &inputs.tree.root()) !=
        MAP_OK)
        stop("the walk has failed");
    return run;
}

struct Mapped {
    std::unique_ptr<ozk::Run> run;
    std::vector<ozk::DataNode> tree;
};

Mapped map_to_tree(const Inputs& inputs)
{
    Mapped mapped{map_to_paths(inputs), {}};
    mapped.tree = ozk::build_data_tree(mapped.run->added());
    return mapped;
}

Document map_by_hand(const Inputs& inputs)
{
    return Document(bench::map_by_hand(inputs.parsed.get()));
}

Document map_by_stylesheet(const Inputs& inputs)
{
    return Document(xsltApplyStylesheet(inputs.stylesheet.get(), inputs.parsed.get(), nullptr));
}

/// Whether an element and all below it is the same as a node of the library's result.
bool same(const ozk::DataNode& node, const xmlNode* element)
{
    if (element->type != XML_ELEMENT_NODE || node.tag != view(element->name) ||
        element->ns == nullptr || node.ns_uri != view(element->ns->href))
        return false;
    const xmlNode* below = element->children;
    if (node.children.empty()) {
        const bool is_text = below != nullptr && below->type == XML_TEXT_NODE;
        return node.value.value_or("") == (is_text ? view(below->content) : "");
    }
    for (const ozk::DataNode& child : node.children) {
        if (below == nullptr || !same(child, below))
            return false;
        below = below->next;
    }
    return below == nullptr;
}

void check_results(const Inputs& inputs)
{
    const Mapped mapped          = map_to_tree(inputs);
    const Document by_hand       = map_by_hand(inputs);
    const Document by_stylesheet = map_by_stylesheet(inputs);
    if (mapped.tree.size() != 1 || mapped.tree.front().children.empty())
        stop("the library has made no tree");
    if (!by_hand || !same(mapped.tree.front(), xmlDocGetRootElement(by_hand.get())))
        stop("the walk by hand gives another result than the library");
    const xmlNode* outermost = by_stylesheet ? xmlDocGetRootElement(by_stylesheet.get()) : nullptr;
    if (outermost == nullptr || outermost->children == nullptr ||
        !same(mapped.tree.front(), outermost->children))
        stop("the stylesheet gives another result than the library");
}

/// Measures a mapping step; its result is freed beside the clock.
template <class Map>
void mapping_step(benchmark::State& state, const Inputs& inputs, Map map)
{
    const uint32_t interfaces = inputs.tree.root().subtrees[0].subtree_count;
    for (auto _ : state) {
        auto result = map(inputs);
        benchmark::DoNotOptimize(result);
        state.PauseTiming();
        result = {};
        state.ResumeTiming();
    }
    state.counters["nodes"] = static_cast<double>(bench::operational_nodes(interfaces));
}

// ---------------------------------------------------------------------------------------------
// The whole way, from text to text: processes

/// Runs a program with its output thrown away. The time is the wall's; the processor's time is the
/// counter `cpu`, in seconds.
void whole_way(benchmark::State& state, const std::vector<const char*>& command)
{
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const char* each : command)
        arguments.push_back(const_cast<char*>(each));
    arguments.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    double cpu = 0;
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        pid_t child      = 0;
        int status       = 0;
        rusage usage{};
        if (posix_spawnp(&child, command[0], &actions, nullptr, arguments.data(), environ) != 0 ||
            wait4(child, &status, 0, &usage) != child || status != 0)
            stop(std::string(command[0]) + " has failed");
        const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(wall.count());
        for (const timeval& time : {usage.ru_utime, usage.ru_stime})
            cpu += static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    }
    posix_spawn_file_actions_destroy(&actions);
    state.counters["cpu"] = benchmark::Counter(cpu, benchmark::Counter::kAvgIterations);
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

    const auto step = [&](const char* name, auto map) {
        benchmark::RegisterBenchmark(name, [&inputs, map](benchmark::State& state) {
            mapping_step(state, inputs, map);
        })->Unit(benchmark::kMillisecond);
    };
    step("mapping_step/library_paths", map_to_paths);
    step("mapping_step/library_tree", map_to_tree);
    step("mapping_step/by_hand", map_by_hand);
    step("mapping_step/libxslt", map_by_stylesheet);

    const auto way = [](const char* name, const std::vector<const char*>& command) {
        benchmark::RegisterBenchmark(
            name, [command](benchmark::State& state) { whole_way(state, command); })
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime();
    };
    way("whole_way/ymap", {BENCH_YMAP, "map", "--op", "get", "--format", "xml", inputs.path});
    way("whole_way/xsltproc", {"xsltproc", BENCH_STYLESHEET, inputs.path});

    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
