// A bare pass over a document: libxml2 reads it and calls for each element and text, and nobody
// does anything with them. What a program makes of a document is measured by this. usage: sax_pass
// DOCUMENT    prints the number of elements

#include <cstdio>

#include <libxml/parser.h>

int main(int argc, char** argv)
{
    if (argc != 2) {
        fprintf(stderr, "usage: sax_pass DOCUMENT\n");
        return 2;
    }
    unsigned long elements = 0;
    xmlSAXHandler handler{};
    handler.initialized    = XML_SAX2_MAGIC;
    handler.startElementNs = [](void* count, const xmlChar*, const xmlChar*, const xmlChar*, int,
                                const xmlChar**, int, int,
                                const xmlChar**) { ++*static_cast<unsigned long*>(count); };
    handler.endElementNs   = [](void*, const xmlChar*, const xmlChar*, const xmlChar*) {};
    handler.characters     = [](void*, const xmlChar*, int) {};
    // The parser then doesn't ask itself whether white space may be ignored.
    handler.ignorableWhitespace = handler.characters;
    if (xmlSAXUserParseFile(&handler, &elements, argv[1]) != 0) {
        fprintf(stderr, "sax_pass: %s is no well-formed document\n", argv[1]);
        return 1;
    }
    printf("%lu\n", elements);
    return 0;
}
