// Fuzzes the wire: whatever the bytes are and however they are cut, they are messages in frames or
// a bad frame; each message is answered with one reply that can be read again, and nothing that it
// makes the server log is more than one line. The data is in memory; nothing is written.

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "framing.h"
#include "models.h"
#include "reader.h"
#include "server.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

using namespace ymap;
using netconf::FrameReader;
using netconf::Framing;

constexpr size_t MAX_MESSAGE = 3000;

[[noreturn]] void fail(const std::string& what)
{
    fprintf(stderr, "%s\n", what.c_str());
    abort();
}

data::Document native(std::string_view text)
{
    return formats::read_xml("native", formats::bytes_of(text), {});
}

class MemoryStore : public netconf::Datastore {
public:
    agent::Native running() override { return natives_[0]; }
    std::span<const agent::Native> all() override { return natives_; }
    agent::Native begin_edit() override
    {
        is_edited_ = true;
        return running();
    }
    void commit() override
    {
        if (!is_edited_)
            fail("a commit without an edit");
    }
    void end_edit(bool is_changed) override
    {
        if (!is_edited_)
            fail("an end without an edit");
        is_edited_ = false;
        if (is_changed)
            fail("an edit was left as it was, half done");
    }
    void lock() override { is_locked_ = true; }
    void unlock() override { is_locked_ = false; }
    netconf::LockHolder lock_holder() override { return {is_locked_ ? 1U : 0U, 1'000'000'000}; }
    std::vector<netconf::SessionInfo> other_sessions() override { return {{2, "b", 1}}; }
    void kill_session(uint32_t id) override
    {
        throw agent::RequestError({"invalid-value", "no session " + std::to_string(id)});
    }

private:
    data::Document configuration_ = native(R"(<interface-configurations xmlns=
"http://brelvik.example/ns/yang/Brelvik-NQ-ifmgr-cfg"><interface-configuration><active>act</active>
<interface-name>a</interface-name><description>uplink</description></interface-configuration>
</interface-configurations>)");
    data::Document operational_   = native(R"(<interfaces xmlns=
"http://brelvik.example/ns/yang/Brelvik-NQ-pfi-im-cmd-oper"><interface-nq><interface>
<interface-name>a</interface-name><mac-address><address>0</address></mac-address>
</interface></interface-nq></interfaces>)");
    std::array<agent::Native, 2> natives_{
        {{&configuration_, &configuration_.tree.top()}, {&operational_, &operational_.tree.top()}}};
    bool is_edited_ = false, is_locked_ = false;
};

/// What comes out of a frame that was made of `pieces`; has to be one message.
std::string framed_and_back(Framing framing, const std::string& stream, uint8_t piece_size)
{
    FrameReader reader(size_t{1} << 30);
    reader.set_framing(framing);
    for (size_t at = 0; at < stream.size(); at += piece_size) {
        reader.feed(std::string_view(stream).substr(at, piece_size));
        const FrameReader::Event event = reader.next();
        if (event == FrameReader::Event::message && at + piece_size >= stream.size())
            return reader.take_message();
        if (event != FrameReader::Event::more)
            fail("a reply ends before its frame does: " + stream);
    }
    fail("a reply without an end: " + stream);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const agent::MapLibrary library(YMAP_LIBRARY, YMAP_SIBLINGS);
    if (size < 2)
        return 0;
    // The first byte chooses the framing and what the server allows; the second cuts the stream.
    const uint8_t mode       = data[0];
    const uint8_t piece_size = std::max<uint8_t>(data[1], 1);
    const std::string_view stream(reinterpret_cast<const char*>(data + 2), size - 2);

    MemoryStore store;
    netconf::Server server(
        store, [&]() -> const agent::MapLibrary& { return library; },
        {.session_id     = 1,
         .read_only      = (mode & 2) != 0,
         .drops_unmapped = (mode & 4) != 0,
         .depth_limit    = 64,
         .modules        = {{"a-module", "", "urn:a", "", [] { return "module a-module {}"; }}}},
        [](const std::string& line) {
            if (line.find('\n') != std::string::npos)
                fail("not one line: " + line);
        });
    Framing framing = (mode & 1) != 0 ? Framing::chunked : Framing::end_of_message;
    FrameReader reader(MAX_MESSAGE);
    reader.set_framing(framing);
    if (framing == Framing::end_of_message)
        server.set_old_client();

    const auto answer = [&](auto write) {
        std::string frames, whole;
        formats::Output out([&](std::string_view piece) {
            frames.append(netconf::piece_head(framing, piece.size())).append(piece);
            whole.append(piece);
        });
        write(out);
        frames += netconf::message_end(framing);
        if (framed_and_back(framing, frames, piece_size) != whole)
            fail("a reply that isn't itself out of its frame: " + frames);
        try {
            const data::Document reply = formats::read_xml(
                "reply", formats::bytes_of(whole), {.depth_limit = formats::MAX_DEPTH_LIMIT});
            if (ozk::text(reply.tree.top().subtrees[0].tag) != "rpc-reply")
                fail("no rpc-reply: " + whole);
        } catch (const formats::InputError& error) {
            fail(std::string(error.what()) + " in " + whole);
        }
    };
    bool is_hello = (mode & 8) != 0;
    for (size_t at = 0; at < stream.size() && !server.is_closed(); at += piece_size) {
        reader.feed(stream.substr(at, piece_size));
        for (FrameReader::Event event; (event = reader.next()) != FrameReader::Event::more;) {
            if (event == FrameReader::Event::bad) {
                if (reader.fault().empty() || reader.next() != FrameReader::Event::bad)
                    fail("a bad frame that isn't told");
                return 0;
            }
            if (event == FrameReader::Event::too_big) {
                answer([&](formats::Output& out) { server.refuse_too_big(MAX_MESSAGE, out); });
                continue;
            }
            const std::string message = reader.take_message();
            if (message.size() > MAX_MESSAGE)
                fail("a message beyond the limit");
            if (!is_hello) {
                answer([&](formats::Output& out) { server.answer(message, out); });
                continue;
            }
            is_hello = false;
            try {
                server.take_hello(message);
            } catch (const formats::InputError&) {
                return 0;
            } catch (const agent::RequestError&) {
                return 0;
            }
        }
    }
    return 0;
}
