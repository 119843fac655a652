// Captured runs: the cases in tests/cases/, which any capture can be put into as it is; and that a
// capture runs again as it was, that a difference shows, and that a malformed case is refused.

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "shell.h"

namespace {

namespace fs = std::filesystem;
using test::Printed;
using test::run_ymap;

std::string quoted(const fs::path& path)
{
    return "'" + path.string() + "' ";
}

/// A folder of its own for each test, removed behind it.
class Replay : public testing::Test {
protected:
    Replay() : folder(fs::temp_directory_path() / ("ymap_replay." + std::to_string(getpid())))
    {
        fs::create_directory(folder);
    }
    ~Replay() override { fs::remove_all(folder); }

    fs::path write(const std::string& name, const std::string& text) const
    {
        std::ofstream(folder / name, std::ios::binary) << text;
        return folder / name;
    }
    /// The text of the case that a run of `ymap map` writes.
    std::string capture(const std::string& arguments) const
    {
        const fs::path file = folder / "captured.case";
        const Printed printed =
            run_ymap("map --capture " + quoted(file) + arguments + " 2>&1 >/dev/null");
        EXPECT_NE(printed.status, 2) << printed.text;
        return test::read_file(file);
    }
    Printed replay(const std::string& text, const std::string& arguments = "") const
    {
        return run_ymap("replay " + arguments + quoted(write("replayed.case", text)) + "2>&1");
    }

    fs::path folder;
};

std::string example(const char* name)
{
    return quoted(fs::path(YMAP_EXAMPLES) / name);
}

std::string replaced(std::string text, const std::string& from, const std::string& to)
{
    const size_t place = text.find(from);
    EXPECT_NE(place, text.npos) << from;
    return place == text.npos ? text : text.replace(place, from.size(), to);
}

TEST_F(Replay, EveryCaseOfTheFolder)
{
    std::string files;
    for (const fs::directory_entry& entry : fs::directory_iterator(YMAP_CASES))
        files += quoted(entry.path());
    ASSERT_FALSE(files.empty());
    const Printed printed = run_ymap("replay " + files + "2>&1");
    EXPECT_EQ(printed.status, 0) << printed.text;
}

TEST_F(Replay, RunsACaptureAgainAsItWas)
{
    const std::string cases[] = {
        example("edit-create.xml"),
        example("edit-with-type.xml"),
        example("read-all.xml"),
        "--op edit " + example("bare-edit.xml"),
        "--op get --log error --depth-limit 9 --format json " + example("native-filters.xml"),
        "--log trace --trace " + example("read-state-one.xml"),
    };
    for (const std::string& arguments : cases) {
        const Printed printed = replay(capture(arguments));
        EXPECT_EQ(printed.status, 0) << arguments << printed.text;
    }
}

TEST_F(Replay, LeavesOutWhatChangesFromRunToRun)
{
    const std::string text = capture("--log trace --trace " + example("read-state-one.xml"));
    EXPECT_NE(text.find("  _tlm_dt_log_filter_adv(error, ERR: OZK: ctx=*,Unsupported tag is "),
              text.npos);
    EXPECT_NE(text.find("  _lstrace(#1: TRC: ymap_iq_ietf_if_ietfinterfaces_lvla_interfacesstate:* "
                        "ctx=*,Start)\n"),
              text.npos);
    EXPECT_EQ(text.find("ctx=0x"), text.npos);
    EXPECT_EQ(text.find("ozk_debug_should_log"), text.npos);
}

// Comments, blank lines, lines like those of a case, and no line end behind the last one.
TEST_F(Replay, KeepsEachByteOfTheDocument)
{
    const std::string document =
        "<interfaces xmlns='urn:ietf:params:xml:ns:yang:ietf-interfaces'>\r\n\n<!--\ncalls:\n  \n"
        "\\ no newline at the end\n# -->\n<interface><name>\nb</name></interface></interfaces>";
    const std::string text = capture("--op edit " + quoted(write("document.xml", document)));
    EXPECT_NE(text.find("\n\n  <!--\n  calls:\n    \n  \\ no newline at the end\n  # -->\n"),
              text.npos);
    EXPECT_NE(text.find("</interfaces>\n\\ no newline at the end\ncalls:\n"), text.npos);
    EXPECT_EQ(replay(text).status, 0);
    EXPECT_EQ(replay(replaced(text, "\n\\ no newline at the end\ncalls:", "\ncalls:")).status, 0);
    EXPECT_EQ(replay(replaced(text, "  <!--\n", "  <!--\n\n")).status, 1); // nodes move a line down
}

TEST_F(Replay, ShowsWhatIsDifferent)
{
    const std::string text = capture(example("edit-description.xml"));
    const struct {
        const char* name;
        std::string from;
        std::string to;
        std::string arguments;
        std::string shown; ///< part of what is printed
    } cases[] = {
        {"a value", ">Uplink", ">Downlink", "",
         "/description = \"Uplink to core-2 & core-3\", ref \"description\", line 12\n    + "},
        {"a call that is missing", "  ozk_map_is_request_add(name) = 1\n", "", "",
         "    + ozk_map_is_request_add(name) = 1\n"},
        {"a call too many", "  ozk_map_is_request_add(name) = 1\n",
         "  ozk_map_is_request_add(name) = 1\n  another()\n", "",
         "      ozk_map_is_request_add(name) = 1\n    - another()\n"
         "      ozk_map_do_these_match(name, name) = 1\n"},
        {"a status", "MAP_OK (0)", "MAP_NOT_MAPPED (51)", "",
         "  status:\n    - if:/interfaces: MAP_NOT_MAPPED (51)\n"
         "    + if:/interfaces: MAP_OK (0)\n"},
        {"control characters", "MAP_OK (0)", "\x1b[31m\xc2\x9b!", "",
         "  status:\n    - if:/interfaces:  [31m !\n"},
        {"another library", "ymap case", "ymap case", "--library '" YMAP_REPLACED_LIBRARY "' ",
         "    - nq-ifmgr-cfg:/interface-configurations/interface-configuration, list\n"
         "    + nq-ifmgr-cfg:/container\n    + nq-ifmgr-cfg:/list\n"},
    };
    for (const auto& c : cases) {
        const Printed printed = replay(replaced(text, c.from, c.to), c.arguments);
        EXPECT_EQ(printed.status, 1) << c.name;
        EXPECT_NE(printed.text.find(c.shown), std::string::npos) << c.name << "\n" << printed.text;
    }
}

// A recorded answer of the framework or of a sibling is given again.
TEST_F(Replay, AnswersAsRecorded)
{
    const std::string text = capture(example("edit-acl.xml"));
    const std::string list =
        "_path_flagged(/interface-configurations/interface-configuration, "
        "http://brelvik.example/ns/yang/Brelvik-NQ-ifmgr-cfg, -, -, 1) = ";
    for (const std::string& call : {std::string(", ingress-acl) = "), list}) {
        const Printed printed = replay(replaced(text, call + "0", call + "77"));
        EXPECT_EQ(printed.status, 1);
        EXPECT_NE(printed.text.find("    + if:/interfaces: status 77"), std::string::npos)
            << printed.text;
        EXPECT_EQ(printed.text.find("- " + call), std::string::npos) << printed.text;
    }
}

TEST_F(Replay, RefusesAMalformedCase)
{
    const std::string file = (folder / "replayed.case").string();
    const std::string good = "ymap case 1\nop: get\ndocument:\n"
                             "  <interfaces xmlns=\"urn:ietf:params:xml:ns:yang:ietf-interfaces\"/>"
                             "\ncalls:\noutput:\nstatus:\n";
    ASSERT_EQ(replay(good).status, 1);
    const struct {
        const char* name;
        std::string text;
        std::string message; ///< behind the file's name
    } cases[] = {
        {"empty", "", ":1: no case: the first line is not 'ymap case 1'"},
        {"another file", "<rpc/>", ":1: no case: the first line is not 'ymap case 1'"},
        {"cut short", replaced(good, "status:\n", ""), ": section 'status' is missing"},
        {"unknown setting", replaced(good, "op: get", "ops: get"), ":2: unknown setting 'ops'"},
        {"unknown operation", replaced(good, "op: get", "op: lock"),
         ":2: 'lock' is no value of 'op'"},
        {"depth out of range", replaced(good, "op: get", "depth-limit: 999"),
         ":2: '999' is no value of 'depth-limit'"},
        {"unknown section", replaced(good, "output:", "outputs:"), ":6: unknown section 'outputs'"},
        {"a second section", good + "calls:\n", ":8: a second 'calls'"},
        {"a line that is not indented", replaced(good, "  <interfaces", "<interfaces"),
         ":4: unknown section '<interfaces xmlns=\"urn'"},
        {"text in a section", replaced(good, "output:\n", "output:\nmore\n"),
         ":7: neither a setting nor a section: 'more'"},
        {"a document that is none", replaced(good, "/>", ">"), ", document:2: "},
        {"no operation", replaced(good, "op: get\n", ""),
         ", document:1: a bare data tree: say with --op get, get-config or edit what to do with "},
    };
    for (const auto& c : cases) {
        const Printed printed = replay(c.text);
        EXPECT_EQ(printed.status, 2) << c.name;
        EXPECT_TRUE(printed.text.starts_with(file + c.message)) << c.name << "\n" << printed.text;
        EXPECT_EQ(std::ranges::count(printed.text, '\n'), 1) << c.name << "\n" << printed.text;
    }
    // Nothing runs before all cases are known to be sound.
    const Printed two = run_ymap("replay " + quoted(write("good.case", good)) +
                                 quoted(write("replayed.case", "")) + "2>/dev/null");
    EXPECT_EQ(two.status, 2);
    EXPECT_EQ(two.text, "");
}

TEST_F(Replay, CaptureRefusesWhatItCannotWrite)
{
    const std::string own = quoted(write("own.xml", "<rpc/>"));
    const struct {
        const char* name;
        std::string arguments;
        std::string message;
    } cases[] = {
        {"two documents", "--capture x.case " + example("read-one.xml") + example("read-all.xml"),
         "ymap: --capture takes one document\n"},
        {"siblings", "--capture x.case --siblings none " + example("read-one.xml"),
         "ymap: --capture sees the calls of the stand-in siblings only: it doesn't go with "
         "--siblings\n"},
        {"its own document", "--capture " + own + own,
         "own.xml: the case file is the document itself\n"},
        {"no such folder", "--capture /no/such/x.case " + example("read-one.xml"),
         "/no/such/x.case: cannot write: No such file or directory\n"},
    };
    for (const auto& c : cases) {
        const Printed printed = run_ymap("map " + c.arguments + " 2>&1 >/dev/null");
        EXPECT_EQ(printed.status, 2) << c.name;
        EXPECT_TRUE(printed.text.ends_with(c.message)) << c.name << "\n" << printed.text;
    }
}

} // namespace
