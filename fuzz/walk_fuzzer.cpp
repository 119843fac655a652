// Fuzzes the walk: the bytes are a root, an operation, switches, a tree and what the framework
// answers; what must hold afterwards is what the property test checks too.

#include <cstdio>
#include <cstdlib>

#include "invariants.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::vector<std::string> wrong = test::violations(test::CheckedCase({data, size}));
    for (const std::string& line : wrong)
        fprintf(stderr, "%s\n", line.c_str());
    if (!wrong.empty())
        abort();
    return 0;
}
