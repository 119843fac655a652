// Fuzzes the map library: the bytes are a root, an operation, a tree and what the framework
// answers; what must hold afterwards is what the property test checks too.

#include <cstdio>
#include <cstdlib>

#include "invariants.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string wrong = test::walk(test::CheckedCase({data, size})).wrong;
    fputs(wrong.c_str(), stderr);
    if (!wrong.empty())
        abort();
    return 0;
}
