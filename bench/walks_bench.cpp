// Walks of the roots over trees of all sizes, with logs on and off, and by two threads.
// usage: walks_bench [benchmark options]
//        walks_bench --once    walk each root once with each state of the logs; callgrind writes a
//                              profile of each walk

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include <benchmark/benchmark.h>
#include <valgrind/callgrind.h>

#include "reference_tree.h"
#include "run.h"

namespace {

/// Interfaces that are walked between two looks at the clock, so that the clock costs nothing.
constexpr uint32_t batch = 1000;

enum class Logs { off, error_level, trace_level, trace };
constexpr std::pair<Logs, const char*> log_states[] = {{Logs::off, "off"},
                                                       {Logs::error_level, "error_level"},
                                                       {Logs::trace_level, "trace_level"},
                                                       {Logs::trace, "trace"}};

struct Subject {
    const char* name;
    uint32_t op_code;
    OzkMapFunction* root_walker;
    ozk::Tree (*make_tree)(uint32_t interfaces);
};

using ozk::Edit;
constexpr auto create = [](uint32_t n) { return bench::configuration_edit(n, Edit::create); };
constexpr auto erase  = [](uint32_t n) { return bench::configuration_edit(n, Edit::erase); };

const Subject subjects[] = {
    {"native_operational/get", MAP_OP_GET, ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces,
     bench::operational_tree},
    {"native_configuration/get", MAP_OP_GET_CONFIG,
     ymap_qi_ietf_if_brelviknqifmgrcfg_lvla_interfaceconfigurations,
     bench::native_configuration_tree},
    {"ietf_state/get", MAP_OP_GET, ymap_iq_ietf_if_ietfinterfaces_lvla_interfacesstate,
     [](uint32_t n) { return bench::state_read(n); }},
    {"ietf_configuration/get", MAP_OP_GET_CONFIG, ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces,
     bench::configuration_read},
    {"ietf_configuration/create", MAP_OP_EDIT, ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces,
     create},
    {"ietf_configuration/delete", MAP_OP_EDIT, ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces,
     erase},
};

/// Trees are kept: a bench is entered many times.
const OzkMapNode& tree_of(const Subject& subject, uint32_t interfaces)
{
    static std::map<std::pair<const Subject*, uint32_t>, std::optional<ozk::Tree>> trees;
    std::optional<ozk::Tree>& tree = trees[{&subject, interfaces}];
    if (!tree)
        tree = subject.make_tree(interfaces);
    return bench::root_of(*tree);
}

void set_logs(ozk::Run& run, Logs logs)
{
    run.set_level(MAP_LOG_ERROR, logs == Logs::error_level);
    run.set_level(MAP_LOG_TRACE, logs == Logs::trace_level);
    run.set_trace(logs == Logs::trace);
}

/// Walks the tree several times; a walk that fails has no cost worth knowing and ends the bench.
void walk(ozk::Run& run, const Subject& subject, const OzkMapNode& tree, uint32_t times)
{
    uint32_t status = MAP_OK;
    for (uint32_t i = 0; i < times; ++i)
        status |= run.walk(subject.root_walker, &tree);
    if (status != MAP_OK || !run.faults().empty()) {
        fprintf(stderr, "walks_bench: a walk of %s has failed\n", subject.name);
        std::exit(1);
    }
}

void walks(benchmark::State& state, const Subject& subject, uint32_t interfaces, Logs logs)
{
    const OzkMapNode& tree = tree_of(subject, interfaces);
    const uint32_t times   = interfaces < batch ? batch / interfaces : 1;
    for (auto _ : state) {
        state.PauseTiming();
        {
            ozk::Run run(subject.op_code);
            set_logs(run, logs);
            state.ResumeTiming();
            walk(run, subject, tree, times);
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * times * interfaces);
}

void walk_once()
{
    for (const Subject& subject : subjects)
        for (const auto& [logs, logs_name] : log_states) {
            const std::string name = std::string(subject.name) + "/" + logs_name;
            const OzkMapNode& tree = tree_of(subject, batch);
            ozk::Run run(subject.op_code);
            set_logs(run, logs);
            CALLGRIND_ZERO_STATS;
            walk(run, subject, tree, 1);
            CALLGRIND_DUMP_STATS_AT(name.c_str());
        }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 2 && std::string_view(argv[1]) == "--once") {
        walk_once();
        return 0;
    }
    bench::keep_memory();
    const auto add = [](const std::string& name, const Subject& subject, uint32_t interfaces,
                        Logs logs) {
        return benchmark::RegisterBenchmark(name.c_str(), [=, &subject](benchmark::State& state) {
            walks(state, subject, interfaces, logs);
        });
    };
    for (const Subject& subject : subjects) {
        const std::string name = std::string("walk/") + subject.name + "/";
        for (const auto& [logs, logs_name] : log_states)
            add(name + logs_name + "/1000", subject, batch, logs);
        for (const uint32_t interfaces : {1U, 10U, 100U, 10000U, 100000U})
            add(name + "off/" + std::to_string(interfaces), subject, interfaces, Logs::off);
    }
    tree_of(subjects[0], batch); // made before threads share it
    add("walkers", subjects[0], batch, Logs::off)->ThreadRange(1, 2)->UseRealTime();

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
