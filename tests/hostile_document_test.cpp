// Documents that are made to hurt, through the real command: each ends soon and in little memory,
// with one line that a person can read. Most are refused with status 2 before anything is walked;
// what is merely large is mapped.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include <fcntl.h>

#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;

const std::string ietf = " xmlns='urn:ietf:params:xml:ns:yang:ietf-interfaces'";
const std::string native = " xmlns='http://brelvik.example/ns/yang/Brelvik-NQ-ifmgr-cfg'";
const std::string nc = " xmlns:nc='urn:ietf:params:xml:ns:netconf:base:1.0'";

/// A folder that goes with the test.
class Folder {
public:
    Folder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "ymap-XXXXXX").string();
        path_ = mkdtemp(name.data()) != nullptr ? name : "";
    }
    ~Folder() { std::filesystem::remove_all(path_); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    std::string file(const std::string& name) const { return path_ + "/" + name; }

private:
    std::string path_;
};

std::string contents(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

struct Outcome {
    int exit_status = -1; ///< -1 if a signal ended the process
    std::string err;
    uintmax_t out_size = 0;
    double seconds = 0; ///< of processor time
    long kilobytes = 0;
};

/// Runs the command on `document`, whose file is the last of the arguments; processor time beyond a
/// minute ends it.
Outcome run(const Folder& folder, std::vector<std::string> arguments, const std::string& document)
{
    const std::string in = folder.file("in.xml");
    std::vector<char*> argv;
    arguments.insert(arguments.begin(), "ymap");
    arguments.push_back(in);
    for (std::string& argument : arguments)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    const std::string out = folder.file("out"), err = folder.file("err");
    std::ofstream(in, std::ios::binary) << document;

    const pid_t child = fork();
    if (child == 0) {
        const rlimit limit{60, 60};
        setrlimit(RLIMIT_CPU, &limit);
        for (const auto& [path, descriptor] : {std::pair(out, 1), std::pair(err, 2)}) {
            const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
            if (file < 0 || dup2(file, descriptor) < 0)
                _exit(126);
        }
        execv(YMAP_BINARY, argv.data());
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    Outcome outcome;
    outcome.exit_status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    outcome.err = contents(err);
    outcome.out_size = std::filesystem::file_size(out);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    outcome.seconds = seconds(usage.ru_utime) + seconds(usage.ru_stime);
    outcome.kilobytes = usage.ru_maxrss;
    return outcome;
}

/// Maps `document` as an edit.
Outcome map(const Folder& folder, const std::string& document)
{
    return run(folder, {"map", "--op", "edit"}, document);
}

/// One line behind the name of the file, short enough to be read, without control characters.
void expect_one_line(const Outcome& outcome, const std::string& part)
{
    ASSERT_FALSE(outcome.err.empty());
    EXPECT_LE(outcome.err.size(), 600U);
    EXPECT_EQ(std::ranges::count(outcome.err, '\n'), 1) << outcome.err;
    EXPECT_TRUE(outcome.err.ends_with('\n'));
    EXPECT_TRUE(std::ranges::none_of(outcome.err,
                                     [](unsigned char c) {
                                         return (c < 0x20 && c != '\n') || c == 0x7f;
                                     }))
        << outcome.err;
    EXPECT_NE(outcome.err.find(part), std::string::npos) << outcome.err;
}

std::string repeat(size_t count, const std::string& text)
{
    std::string all;
    all.reserve(count * text.size());
    for (size_t i = 0; i < count; ++i)
        all += text;
    return all;
}

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

struct HostileDocument {
    const char* name;
    std::function<std::string()> document;
    int exit_status;
    std::string message; ///< is part of the line
};

const HostileDocument documents[] = {
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
     [] {
         return "<interfaces" + ietf + nc + " nc:operation='" + repeat(10'000'000, "a") + "'/>";
     },
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
     [] {
         return "<interfaces" + ietf + nc + " nc:operation='&#x9b;31m&#x7f;\xc2\x9b&#10;x'/>";
     },
     2, "unknown operation ' 31m   x'"},
    {"UTF-16 cut within a character", [] { return "\xff\xfe<\0i\0n"s; }, 2, ":1: "},
    {"an encoding of no one", [] { return "<?xml version='1.0' encoding='x-none'?><a/>"s; }, 2,
     "encoding"},
    {"10 MB of blanks and no end", [] { return repeat(10'000'000, " "); }, 2, ":1: "},
    {"a comment without end", [] { return "<interfaces" + ietf + "><!--" + repeat(5'000'000, "-"); },
     2, ":1: "},
    {"nothing at all", [] { return ""s; }, 2, ":1: "},
};

const struct {
    const char* name;
    std::function<std::string()> document;
} large_documents[] = {
    {"a million siblings",
     [] {
         return "<interface-configurations" + native + ">" + repeat(1'000'000, "<a/>") +
                "</interface-configurations>";
     }},
    {"comments and instructions, one after the other",
     [] { return root(repeat(50'000, "<!--x--><?p x?>") + "<interface/>"); }},
    {"a value of 10 MB", [] { return name(repeat(10'000'000, "a")); }},
    {"a value of 5 MB in CDATA", [] { return name("<![CDATA[" + repeat(5'000'000, "<") + "]]>"); }},
};

/// Enough for a loaded machine, and far below what a quadratic step would take.
constexpr double longest_seconds = 15;

/// Of memory: a refused document is never held whole.
constexpr long refused_kilobytes = 150'000;

long kilobytes_for(const std::string& document)
{
    return 40'000 + 40 * static_cast<long>(document.size() / 1024);
}

void expect_little(const Outcome& outcome, [[maybe_unused]] long most_kilobytes)
{
    EXPECT_LT(outcome.seconds, longest_seconds);
#ifndef YMAP_SANITIZED // a sanitizer's shadow is memory too
    EXPECT_LT(outcome.kilobytes, most_kilobytes);
#endif
}

TEST(HostileDocument, EndsSoonWithOneLine)
{
    const Folder folder;
    for (const HostileDocument& row : documents) {
        SCOPED_TRACE(row.name);
        const std::string document = row.document();
        const Outcome outcome = map(folder, document);
        EXPECT_EQ(outcome.exit_status, row.exit_status);
        expect_one_line(outcome, row.message);
        if (row.exit_status == 2) {
            EXPECT_EQ(outcome.out_size, 0U);
        }
        expect_little(outcome, row.exit_status == 2 ? refused_kilobytes : kilobytes_for(document));
    }
}

// The other verbs read documents the same way: as native data, or within a case.
TEST(HostileDocument, EndsSoonWhereverItStands)
{
    const Folder folder;
    const std::string request = folder.file("request.xml");
    std::ofstream(request) << "<rpc xmlns='urn:ietf:params:xml:ns:netconf:base:1.0'><get/></rpc>";
    const std::string edit = folder.file("edit.xml");
    std::ofstream(edit) << root("");
    const auto in_case = [](const std::string& document) {
        return "ymap case 1\nop: edit\ndocument:\n  " + document + "\ncalls:\noutput:\nstatus:\n";
    };
    const std::string deep = root(repeat(100'000, "<a>") + repeat(100'000, "</a>"));
    const struct {
        const char* name;
        std::vector<std::string> arguments;
        std::string document;
        const char* message;
    } rows[] = {
        {"native data with entities", {"read", request, "--data"}, entity_bomb(), "a DOCTYPE is"},
        {"deep data to edit", {"edit", edit, "--data"}, deep, "nested deeper than 64 levels"},
        {"a case with entities", {"replay"}, in_case(entity_bomb()), "a DOCTYPE is"},
        {"a deep case", {"replay"}, in_case(deep), "nested deeper than 64 levels"},
        {"a case with a long line", {"replay"}, in_case("x\n" + repeat(10'000'000, "\xc2\x9b")),
         "neither a setting nor a section: '   "},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const Outcome outcome = run(folder, row.arguments, row.document);
        EXPECT_EQ(outcome.exit_status, 2);
        EXPECT_EQ(outcome.out_size, 0U);
        expect_one_line(outcome, row.message);
        expect_little(outcome, refused_kilobytes);
    }
}

TEST(HostileDocument, WhatIsMerelyLargeIsMapped)
{
    const Folder folder;
    for (const auto& row : large_documents) {
        SCOPED_TRACE(row.name);
        const std::string document = row.document();
        const Outcome outcome = map(folder, document);
        EXPECT_EQ(outcome.exit_status, 0);
        EXPECT_EQ(outcome.err, "");
        expect_little(outcome, kilobytes_for(document));
    }
}

TEST(HostileDocument, CutAnywhereIsRefused)
{
    const Folder folder;
    const std::string whole = "<?xml version='1.0'?><interfaces" + ietf + nc +
                              "><interface nc:operation='create'><name>a&amp;b</name>"
                              "<description><![CDATA[x]]></description></interface></interfaces>";
    ASSERT_EQ(map(folder, whole).exit_status, 0);
    for (size_t size = 1; size < whole.size(); size += 5) {
        const Outcome outcome = map(folder, whole.substr(0, size));
        EXPECT_EQ(outcome.exit_status, 2) << whole.substr(0, size);
        EXPECT_EQ(outcome.out_size, 0U);
        expect_one_line(outcome, ":1: ");
    }
}

} // namespace
