// Writes the operational reference tree as a document, for programs that read text.
// usage: native_document INTERFACES > FILE

#include <cstdio>
#include <cstdlib>

#include "reference_tree.h"

int main(int argc, char** argv)
{
    char* end                      = nullptr;
    const unsigned long interfaces = argc == 2 ? strtoul(argv[1], &end, 10) : 0;
    if (interfaces == 0 || interfaces > 1000000 || *end != '\0') {
        fprintf(stderr, "usage: native_document INTERFACES (1 to 1000000)\n");
        return 2;
    }
    const ozk::InputTree tree = bench::operational_tree(static_cast<uint32_t>(interfaces));
    bench::write_document(stdout, tree.root());
    if (fflush(stdout) != 0 || ferror(stdout) != 0) {
        perror("native_document");
        return 1;
    }
    return 0;
}
