// An agent that loads the map library whose file name it is given, and finds the root walker by
// symbol.

#include <cstdio>

#include <dlfcn.h>

#include "framework.h"

int main(int, char** argv)
{
    // Bound lazily: the entry points of sibling libraries are not there.
    void* library = dlopen(argv[1], RTLD_LAZY | RTLD_LOCAL);
    void* walker  = library != nullptr
                        ? dlsym(library, "ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces")
                        : nullptr;
    if (walker == nullptr) {
        std::fprintf(stderr, "%s\n", dlerror());
        return 1;
    }
    return map_one_request(reinterpret_cast<OzkMapFunction*>(walker));
}
