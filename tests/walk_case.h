// A table of walks: what goes in, and what must come of it, call by call.

#ifndef TESTS_WALK_CASE_H
#define TESTS_WALK_CASE_H

#include <functional>

#include "support.h"

namespace test {

struct WalkCase {
    const char* name;
    std::vector<DataNode> children; ///< of the root
    std::vector<std::string> calls; ///< Walk::script(), whole
    uint32_t status                    = MAP_OK;
    const char* offending_tag          = "-";
    std::function<void(Walk&)> prepare = {}; ///< answers of the framework, bent records
};

/// The line of a comparison of two texts that are the same.
inline std::string match_of(const std::string& text)
{
    return "match " + text + " " + text;
}

inline void check(const Root& root, uint32_t op_code, const std::vector<WalkCase>& cases)
{
    for (const WalkCase& c : cases) {
        SCOPED_TRACE(c.name);
        Walk walk(root, op_code, c.children);
        if (c.prepare)
            c.prepare(walk);
        EXPECT_EQ(walk.go(), c.status);
        EXPECT_EQ(walk.script(), c.calls);
        EXPECT_EQ(walk.offending_tag(), c.offending_tag);
        for (const ozk::AddedPath& added : walk.run.added())
            EXPECT_EQ(added.ns_uri, root.output_ns) << added.path;
        EXPECT_TRUE(walk.run.faults().empty()) << walk.run.faults().front();
    }
}

} // namespace test

#endif
