// Fuzzes the road of a document through the command: whatever the bytes are, they are read or
// refused with one line. A request that was read is mapped, and carried out on native data; what is
// printed of that can be read again.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "edit.h"
#include "map.h"
#include "output.h"
#include "reader.h"
#include "reply.h"
#include "run.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

using namespace ymap;

[[noreturn]] void fail(const std::string& what)
{
    fprintf(stderr, "%s\n", what.c_str());
    abort();
}

void check_line(const std::string& line)
{
    if (line.empty() || line.size() > 1000 || line.find('\n') != std::string::npos)
        fail("not one line that a person can read: " + line);
}

void check_faults(std::span<const std::string> faults)
{
    if (!faults.empty())
        fail(faults.front());
}

constexpr char configuration[] = R"(<interface-configurations xmlns=
"http://brelvik.example/ns/yang/Brelvik-NQ-ifmgr-cfg"><interface-configuration><active>act</active>
<interface-name>a</interface-name><description>uplink</description></interface-configuration>
</interface-configurations>)";
constexpr char operational[]   = R"(<interfaces xmlns=
"http://brelvik.example/ns/yang/Brelvik-NQ-pfi-im-cmd-oper"><interface-nq><interface>
<interface-name>a</interface-name><mac-address><address>0</address></mac-address>
</interface></interface-nq></interfaces>)";

data::Document native(std::string_view text)
{
    return formats::read_xml("native", formats::bytes_of(text), {});
}

/// Prints what `write` writes, and reads it again.
template <class Write>
void there_and_back(const Write& write)
{
    std::string text;
    formats::Output out([&](std::string_view piece) { text += piece; });
    write(out);
    out.flush();
    try {
        formats::read_xml("again", formats::bytes_of(text),
                          {.depth_limit = formats::MAX_DEPTH_LIMIT});
    } catch (const formats::InputError& error) {
        fail(std::string(error.what()) + " in\n" + text);
    }
}

void carry_out(agent::Request request, const agent::MapLibrary& library)
{
    data::Document documents[]    = {native(configuration), native(operational)};
    const agent::Native natives[] = {{&documents[0], &documents[0].tree.top()},
                                     {&documents[1], &documents[1].tree.top()}};
    if (!request.is_edit()) {
        const agent::Reading reading = agent::read(request, natives, library);
        check_faults(reading.faults);
        for (const agent::Walk& walk : reading.walks)
            check_line(agent::error_of(walk).message);
        there_and_back([&](formats::Output& out) {
            netconf::Reply(out, request.document, request.rpc(), formats::Layout::compact)
                .data(reading.reply.top());
        });
        return;
    }
    const agent::Edited edited =
        agent::edit(request, natives[0], library, {.drops_unmapped = request.test_only});
    check_faults(edited.faults);
    there_and_back([&](formats::Output& out) {
        netconf::Reply reply(out, request.document, request.rpc(), formats::Layout::lines);
        if (edited.errors.empty())
            reply.ok();
        else
            reply.errors(edited.errors);
    });
    for (const OzkMapNode& root : ozk::children(*natives[0].top))
        there_and_back(
            [&](formats::Output& out) { write_xml(out, root, nullptr, formats::Layout::lines); });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const agent::MapLibrary library(YMAP_LIBRARY, YMAP_SIBLINGS);
    static constexpr std::string_view datastores[] = {"running", "candidate"};
    if (size == 0)
        return 0;
    // The first byte is the format, and the operation of bare data trees.
    const uint8_t mode = data[0];
    const auto bytes   = formats::bytes_of({reinterpret_cast<const char*>(data + 1), size - 1});
    constexpr uint32_t codes[] = {MAP_OP_GET, MAP_OP_GET_CONFIG, MAP_OP_EDIT};
    agent::RequestOptions options{.bare_op_code = {}, .datastores = datastores};
    if (mode % 4 != 3)
        options.bare_op_code = codes[mode % 4];
    try {
        if (mode >= 128) {
            data::Document document =
                formats::read_json("data", bytes, {.depth_limit = 64}, agent::namespace_of);
            const OzkMapNode& top = agent::data_of(document);
            for (const OzkMapNode& root : ozk::children(top))
                there_and_back([&](formats::Output& out) {
                    write_xml(out, root, nullptr, formats::Layout::lines);
                });
            return 0;
        }
        const formats::ReadOptions reading{.depth_limit = 64, .takes_operations = true};
        const auto request = [&] {
            return agent::parse_request(formats::read_xml("request", bytes, reading), options);
        };
        carry_out(request(), library);
        agent::Request mapped = request();
        check_faults(agent::map(mapped, library).run->faults());
    } catch (const formats::InputError& error) {
        check_line(error.what());
    } catch (const agent::RequestError& error) {
        check_line(error.what());
    }
    return 0;
}
