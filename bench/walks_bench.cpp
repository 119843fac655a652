// Walks of every root over trees of all sizes, edits, threads, and the log point.
// usage: walks_bench [benchmark options]
//        walks_bench --once    walk each root once with each state of the logs; callgrind writes a
//                              profile of each walk

#include <malloc.h>

#include <algorithm>
#include <barrier>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>
#include <valgrind/callgrind.h>

#include "reference_tree.h"
#include "run.h"

namespace {

/// Interfaces that are walked between two looks at the clock, so that the clock costs nothing.
constexpr uint32_t batch = 1000;

enum class Logs { off, error_level, trace_level, trace };
/// Whether the paths that a walk adds go to memory that the process has used before, or to pages
/// that the kernel has to hand out first.
enum class Memory { kept, fresh };

struct Subject {
    const char* name;
    uint32_t op_code;
    OzkMapFunction* root_walker;
    ozk::Tree (*make_tree)(uint32_t interfaces);
};

using ozk::Edit;
constexpr auto create = [](uint32_t n) { return bench::configuration_edit(n, Edit::create); };
constexpr auto erase  = [](uint32_t n) { return bench::configuration_edit(n, Edit::erase); };

const Subject operational = {"native_operational/get", MAP_OP_GET,
                             ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces,
                             bench::operational_tree};
const Subject subjects[]  = {
     operational,
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
/// Of the native global configuration there is one, whatever the number of interfaces.
const Subject global = {"native_global/get", MAP_OP_GET_CONFIG,
                        ymap_qi_ietf_if_brelviknqifmgrcfg_lvla_globalinterfaceconfiguration,
                        [](uint32_t) { return bench::native_global_tree(); }};

/// Trees are kept: a bench is entered many times.
const OzkMapNode& tree_of(const Subject& subject, uint32_t interfaces)
{
    static std::map<std::pair<std::string, uint32_t>, ozk::Tree> trees;
    auto found = trees.find({subject.name, interfaces});
    if (found == trees.end())
        found =
            trees.emplace(std::pair(subject.name, interfaces), subject.make_tree(interfaces)).first;
    return bench::root_of(found->second);
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

void walks(benchmark::State& state, const Subject& subject, uint32_t interfaces, Logs logs,
           Memory memory)
{
    const OzkMapNode& tree = tree_of(subject, interfaces);
    const uint32_t times   = interfaces < batch ? batch / interfaces : 1;
    const auto walk_in_run = [&](auto before, auto after) {
        ozk::Run run(subject.op_code);
        set_logs(run, logs);
        before();
        walk(run, subject, tree, times);
        after();
    };
    if (memory == Memory::kept)
        walk_in_run([] {}, [] {});
    for (auto _ : state) {
        state.PauseTiming();
        if (memory == Memory::fresh)
            malloc_trim(0);
        walk_in_run([&] { state.ResumeTiming(); }, [&] { state.PauseTiming(); });
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * times * interfaces);
}

/// Threads with a run each over one tree, from the moment when the first begins until the last is
/// done. The processor's time is the counter `cpu`, in seconds.
void threads(benchmark::State& state, uint32_t count)
{
    using Clock              = std::chrono::steady_clock;
    constexpr uint32_t times = 20;
    const OzkMapNode& tree   = tree_of(operational, batch);
    double cpu               = 0;
    for (auto _ : state) {
        std::barrier ready(count);
        std::vector<Clock::time_point> starts(count);
        std::vector<Clock::time_point> ends(count);
        std::vector<std::thread> workers;
        const clock_t cpu_before = clock();
        for (uint32_t i = 0; i < count; ++i)
            workers.emplace_back([&, i] {
                ready.arrive_and_wait();
                starts[i] = Clock::now();
                for (uint32_t k = 0; k < times; ++k) {
                    ozk::Run run(operational.op_code);
                    walk(run, operational, tree, 1);
                }
                ends[i] = Clock::now();
            });
        for (std::thread& worker : workers)
            worker.join();
        cpu += static_cast<double>(clock() - cpu_before) / CLOCKS_PER_SEC;
        const auto wall = *std::ranges::max_element(ends) - *std::ranges::min_element(starts);
        state.SetIterationTime(std::chrono::duration<double>(wall).count());
    }
    state.SetItemsProcessed(state.iterations() * count * times * batch);
    state.counters["cpu"] = benchmark::Counter(cpu, benchmark::Counter::kAvgIterations);
}

void log_points(benchmark::State& state, Logs logs)
{
    static constexpr ymap::LogText<> text{MAP_LOG_ERROR, "Invalid arguments passed!"};
    static ymap::SiteWord site_word;
    ozk::Run run(MAP_OP_GET);
    set_logs(run, logs);
    const ymap::Place place{__func__, __LINE__};
    run.call([&] {
        for (auto _ : state)
            ymap::log_point<text>(run.ctx(), place, site_word);
    });
}

benchmark::internal::Benchmark* add(const std::string& name,
                                    std::function<void(benchmark::State&)> function,
                                    benchmark::TimeUnit unit)
{
    return benchmark::RegisterBenchmark(name.c_str(), std::move(function))->Unit(unit);
}

void add_walk(const Subject& subject, uint32_t interfaces, Logs logs, const char* variant,
              Memory memory = Memory::kept)
{
    add(
        std::string("walk/") + subject.name + "/" + variant + "/" + std::to_string(interfaces),
        [&subject, interfaces, logs, memory](benchmark::State& state) {
            walks(state, subject, interfaces, logs, memory);
        },
        benchmark::kMicrosecond);
}

constexpr std::pair<Logs, const char*> log_states[] = {{Logs::off, "off"},
                                                       {Logs::error_level, "error_level"},
                                                       {Logs::trace_level, "trace_level"},
                                                       {Logs::trace, "trace"}};

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
    for (const Subject& subject : subjects) {
        for (const auto& [logs, name] : log_states)
            add_walk(subject, batch, logs, name);
        for (const uint32_t interfaces : {1U, 10U, 100U, 10000U, 100000U})
            add_walk(subject, interfaces, Logs::off, "off");
    }
    add_walk(operational, 100000, Logs::off, "fresh_memory", Memory::fresh);
    add_walk(global, 1, Logs::off, "off");
    for (const auto& [logs, name] : log_states)
        if (logs != Logs::trace_level) // the text is an error
            add(
                std::string("log_point/") + name,
                [logs = logs](benchmark::State& state) { log_points(state, logs); },
                benchmark::kNanosecond);
    for (const uint32_t count : {1U, 2U})
        add(
            "threads/" + std::to_string(count),
            [count](benchmark::State& state) { threads(state, count); }, benchmark::kMillisecond)
            ->UseManualTime();

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
