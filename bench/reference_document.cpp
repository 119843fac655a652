// Writes the reference trees, and requests on them, as documents: for programs that read text.
// usage: reference_document KIND INTERFACES > FILE

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string_view>

#include "output.h"
#include "reference_tree.h"

namespace {

using ozk::Edit;

struct Kind {
    std::string_view name;
    ozk::Tree (*make_tree)(uint32_t interfaces);
    /// What stands around a request; nothing around data.
    const char* before = "";
    const char* after  = "";
};

#define RPC "<rpc message-id=\"1\" xmlns=\"urn:ietf:params:xml:ns:netconf:base:1.0\""
constexpr char get[]      = RPC "><get><filter>\n";
constexpr char get_end[]  = "</filter></get></rpc>\n";
constexpr char edit[]     = RPC " xmlns:nc=\"urn:ietf:params:xml:ns:netconf:base:1.0\">"
                                "<edit-config><target><running/></target><config>\n";
constexpr char edit_end[] = "</config></edit-config></rpc>\n";

constexpr Kind kinds[] = {
    {"operational", bench::operational_tree},
    {"configuration", bench::native_configuration_tree},
    {"read-state", [](uint32_t n) { return bench::state_read(n); }, get, get_end},
    {"read-state-one", [](uint32_t n) { return bench::state_read(1, n / 2); }, get, get_end},
    {"read-state-all", [](uint32_t) { return bench::state_read(0); }, get, get_end},
    {"read", bench::configuration_read, get, get_end},
    {"merge", [](uint32_t n) { return bench::configuration_edit(n, Edit::merge); }, edit, edit_end},
    // Of interfaces that the configuration of the same size doesn't have.
    {"create", [](uint32_t n) { return bench::configuration_edit(n, Edit::create, n); }, edit,
     edit_end},
    {"delete", [](uint32_t n) { return bench::configuration_edit(n, Edit::erase); }, edit,
     edit_end},
};

} // namespace

int main(int argc, char** argv)
{
    char* end                      = nullptr;
    const unsigned long interfaces = argc == 3 ? strtoul(argv[2], &end, 10) : 0;
    const Kind* kind               = std::begin(kinds);
    while (argc == 3 && kind != std::end(kinds) && kind->name != argv[1])
        ++kind;
    if (interfaces == 0 || interfaces > 1000000 || *end != '\0' || kind == std::end(kinds)) {
        fprintf(stderr, "usage: reference_document KIND INTERFACES (1 to 1000000)\nkinds:");
        for (const Kind& each : kinds)
            fprintf(stderr, " %s", each.name.data());
        fputc('\n', stderr);
        return 2;
    }

    const ozk::Tree tree = kind->make_tree(static_cast<uint32_t>(interfaces));
    ymap::formats::Output out(
        [](std::string_view text) { fwrite(text.data(), 1, text.size(), stdout); });
    out << kind->before;
    write_xml(out, bench::root_of(tree), nullptr, ymap::formats::Layout::lines);
    out << kind->after;
    out.flush();
    if (fflush(stdout) != 0 || ferror(stdout) != 0) {
        perror("reference_document");
        return 1;
    }
    return 0;
}
