// Walks the operational reference tree once, with all logs off: what the script check-bounds runs
// under a profiler.
// usage: reference_walk INTERFACES [--count]
//     --count     print how many calls of the framework the walk makes

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "reference_tree.h"
#include "run.h"

int main(int argc, char** argv)
{
    char* end                      = nullptr;
    const unsigned long interfaces = argc >= 2 ? strtoul(argv[1], &end, 10) : 0;
    const bool counts              = argc == 3 && std::string_view(argv[2]) == "--count";
    if (interfaces == 0 || interfaces > 1000000 || *end != '\0' || (argc > 2 && !counts)) {
        fprintf(stderr, "usage: reference_walk INTERFACES [--count] (1 to 1000000)\n");
        return 2;
    }
    const ozk::Tree tree = bench::operational_tree(static_cast<uint32_t>(interfaces));

    ozk::Run run(MAP_OP_GET);
    uint64_t calls = 0;
    if (counts)
        run.on_call([&](ozk::Run&, const ozk::Call&) { ++calls; });
    const uint32_t status =
        run.walk(ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces, &bench::root_of(tree));

    // A walk that failed or added something else than it should has no cost worth knowing: each
    // interface has a list path, its key, added twice, its MAC address and nine counters.
    if (status != MAP_OK || !run.faults().empty() || run.added().size() != interfaces * 13) {
        fprintf(stderr, "reference_walk: status %#x, %zu paths, %zu faults\n", status,
                run.added().size(), run.faults().size());
        return 1;
    }
    if (counts)
        printf("%llu\n", static_cast<unsigned long long>(calls));
    return 0;
}
