// Documents that are made to hurt, through the real command: each ends soon and in little memory,
// with one line that a person can read. Most are refused with status 2 before anything is walked;
// what is merely large is mapped.

#include <functional>
#include <string>

#include "shell.h"

namespace {

using namespace std::string_literals;
using namespace test;

/// `count` pieces, each with its number in place of '#'.
std::string numbered(size_t count, const std::string& text)
{
    const size_t at = text.find('#');
    std::string all;
    for (size_t i = 0; i < count; ++i)
        all += text.substr(0, at) + std::to_string(i) + text.substr(at + 1);
    return all;
}

std::string root(const std::string& content)
{
    return "<interfaces" + ietf + ">" + content + "</interfaces>";
}

std::string name(const std::string& value)
{
    return root("<interface><name>" + value + "</name></interface>");
}

std::string entity_bomb()
{
    std::string bomb = "<!DOCTYPE interfaces [<!ENTITY e0 'ha'>";
    for (int i = 1; i < 30; ++i)
        bomb += "<!ENTITY e" + std::to_string(i) + " '" +
                repeat(10, "&e" + std::to_string(i - 1) + ";") + "'>";
    return bomb + "]>" + name("&e29;");
}

struct Document {
    const char* name;
    std::function<std::string()> text;
    int exit_status;
    std::string message; ///< is part of the line; without one, nothing is said
};

const Document documents[] = {
    {"entities that grow", entity_bomb, 2, "a DOCTYPE is not accepted"},
    {"an entity of a megabyte, many times",
     [] {
         return "<!DOCTYPE a [<!ENTITY e '" + repeat(1'000'000, "x") + "'>]>" +
                name(repeat(10'000, "&e;"));
     },
     2, "a DOCTYPE is not accepted"},
    {"entities of a DTD elsewhere",
     [] { return "<!DOCTYPE a [<!ENTITY % p SYSTEM 'http://127.0.0.1/x'>%p;]>" + name("a"); }, 2,
     "a DOCTYPE is not accepted"},
    {"10 MB of one tag", [] { return root("<" + repeat(10'000'000, "a") + "/>"); }, 2, ":1: "},
    {"a tag as long as the parser takes", [] { return root("<" + repeat(49'000, "a") + "/>"); }, 1,
     "offending tag 'aaaaaa"},
    {"10 MB of one attribute",
     [] { return "<interfaces" + ietf + nc + " nc:operation='" + repeat(10'000'000, "a") + "'/>"; },
     2, "a tag is longer than"},
    {"an attribute as long as a tag may be",
     [] { return "<interfaces" + ietf + nc + " nc:operation='" + repeat(50'000, "a") + "'/>"; }, 2,
     "unknown operation 'aaaaaa"},
    {"attributes without end", [] { return "<interfaces" + numbered(300'000, " a#=''"); }, 2,
     "a tag is longer than"},
    {"namespaces without end",
     [] { return "<interfaces" + ietf + numbered(200'000, " xmlns:a#='urn:#'") + "/>"; }, 2,
     "a tag is longer than"},
    {"the same attribute twice",
     [] { return "<interfaces" + ietf + nc + " nc:operation='merge' nc:operation='merge'/>"; }, 2,
     "operation"},
    {"a namespace redeclared at each level",
     [] { return root(numbered(60, "<a xmlns='urn:#'>") + repeat(60, "</a>")); }, 1,
     "offending tag 'a'"},
    {"a namespace redeclared beyond all levels",
     [] { return root(numbered(100'000, "<a xmlns='urn:#'>") + repeat(100'000, "</a>")); }, 2,
     "nested deeper than 64 levels"},
    {"100,000 levels", [] { return root(repeat(100'000, "<a>") + repeat(100'000, "</a>")); }, 2,
     "nested deeper than 64 levels"},
    {"UTF-8 that is too long", [] { return name("\xc0\xaf"); }, 2, ":1: "},
    {"half of a surrogate pair", [] { return name("\xed\xa0\x80"); }, 2, ":1: "},
    {"a sequence cut short", [] { return name("\xe2\x82"); }, 2, ":1: "},
    {"a byte of no sequence", [] { return root("<\xff/>"); }, 2, ":1: "},
    {"a NUL byte in a value", [] { return name("a\0b"s); }, 2, ":1: "},
    {"a NUL byte in a tag", [] { return root("<a\0b/>"s); }, 2, ":1: "},
    {"a NUL by reference", [] { return name("a&#0;b"); }, 2, "value 0"},
    {"control characters for the terminal",
     [] { return "<interfaces" + ietf + nc + " nc:operation='&#x9b;31m&#x7f;\xc2\x9b&#10;x'/>"; },
     2, "unknown operation ' 31m   x'"},
    {"UTF-16 cut within a character", [] { return "\xff\xfe<\0i\0n"s; }, 2, ":1: "},
    {"an encoding of no one", [] { return "<?xml version='1.0' encoding='x-none'?><a/>"s; }, 2,
     "encoding"},
    {"10 MB of blanks and no end", [] { return repeat(10'000'000, " "); }, 2, ":1: "},
    {"a comment without end",
     [] { return "<interfaces" + ietf + "><!--" + repeat(5'000'000, "-"); }, 2, ":1: "},
    {"nothing at all", [] { return ""s; }, 2, ":1: "},

    // Merely large
    {"a million siblings",
     [] {
         return "<interface-configurations" + cfg + ">" + repeat(1'000'000, "<a/>") +
                "</interface-configurations>";
     },
     0, ""},
    {"comments and instructions, one after the other",
     [] { return root(repeat(50'000, "<!--x--><?p x?>") + "<interface/>"); }, 0, ""},
    {"a value of 10 MB", [] { return name(repeat(10'000'000, "a")); }, 0, ""},
    {"a value of 5 MB in CDATA", [] { return name("<![CDATA[" + repeat(5'000'000, "<") + "]]>"); },
     0, ""},
};

class HostileDocument : public InFolder {
protected:
    /// A verb and its options end in the name of a file, which is to hold `document`.
    void expect(const std::string& arguments, const std::string& document, int exit_status,
                const std::string& message) const
    {
        write("in.xml", document);
        const Outcome outcome = run(arguments + " in.xml");
        EXPECT_EQ(outcome.status, exit_status);
        if (message.empty()) {
            EXPECT_EQ(outcome.err, "");
        } else {
            expect_one_line(outcome.err);
            EXPECT_NE(outcome.err.find(message), std::string::npos) << outcome.err;
        }
        if (exit_status == 2) {
            EXPECT_EQ(outcome.out, "");
        }
        // Enough for a loaded machine, and far below what a quadratic step would take.
        EXPECT_LT(outcome.seconds, 15);
#ifndef YMAP_SANITIZED // a sanitizer's shadow is memory too
        const long size = static_cast<long>(document.size() / 1024);
        EXPECT_LT(outcome.kilobytes, exit_status == 2 ? 150'000 : 40'000 + 40 * size)
            << "a refused document is never held whole";
#endif
    }
};

TEST_F(HostileDocument, EndsSoonWithOneLine)
{
    for (const Document& row : documents) {
        SCOPED_TRACE(row.name);
        expect("map --op edit", row.text(), row.exit_status, row.message);
    }
}

// The other verbs read documents the same way: as native data, or within a case.
TEST_F(HostileDocument, EndsSoonWhereverItStands)
{
    write("request.xml", rpc("<get/>"));
    write("edit.xml", root(""));
    const auto in_case = [](const std::string& document) {
        return "ymap case 1\nop: edit\ndocument:\n  " + document + "\ncalls:\noutput:\nstatus:\n";
    };
    const std::string deep = root(repeat(100'000, "<a>") + repeat(100'000, "</a>"));
    const struct {
        const char* name;
        const char* arguments;
        std::string document;
        const char* message;
    } rows[] = {
        {"native data with entities", "read request.xml --data", entity_bomb(), "a DOCTYPE is"},
        {"deep data to edit", "edit edit.xml --data", deep, "nested deeper than 64 levels"},
        {"a case with entities", "replay", in_case(entity_bomb()), "a DOCTYPE is"},
        {"a deep case", "replay", in_case(deep), "nested deeper than 64 levels"},
        {"a case with a long line", "replay", in_case("x\n" + repeat(10'000'000, "\xc2\x9b")),
         "neither a setting nor a section: '   "},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        expect(row.arguments, row.document, 2, row.message);
    }
}

TEST_F(HostileDocument, CutAnywhereIsRefused)
{
    const std::string whole = "<?xml version='1.0'?><interfaces" + ietf + nc +
                              "><interface nc:operation='create'><name>a&amp;b</name>"
                              "<description><![CDATA[x]]></description></interface></interfaces>";
    expect("map --op edit", whole, 0, "");
    for (size_t size = 1; size < whole.size(); size += 5) {
        SCOPED_TRACE(size);
        expect("map --op edit", whole.substr(0, size), 2, ":1: ");
    }
}

} // namespace
