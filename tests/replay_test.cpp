// Captured runs: the cases in tests/cases/, which any capture can be put into as it is; and that a
// capture runs again as it was, that a difference shows, and that a malformed case is refused.

#include <string>

#include "shell.h"

namespace {

using test::Outcome;

class Replay : public test::InFolder {
protected:
    /// The text of the case that a run of `ymap map` writes.
    std::string capture(const std::string& arguments) const
    {
        const Outcome outcome = run("map --capture captured.case " + arguments);
        EXPECT_NE(outcome.status, 2) << outcome.err;
        return test::read_file(folder / "captured.case");
    }
    Outcome replay(const std::string& text, const std::string& arguments = "") const
    {
        write("replayed.case", text);
        return run("replay " + arguments + "replayed.case");
    }
};

std::string replaced(std::string text, const std::string& from, const std::string& to)
{
    const size_t place = text.find(from);
    EXPECT_NE(place, text.npos) << from;
    return place == text.npos ? text : text.replace(place, from.size(), to);
}

TEST_F(Replay, EveryCaseOfTheFolder)
{
    const Outcome outcome = run("replay '" YMAP_CASES "'/*");
    EXPECT_EQ(outcome.status, 0) << outcome.out << outcome.err;
}

TEST_F(Replay, RunsACaptureAgainAsItWas)
{
    for (const std::string arguments : {
             "examples/edit-create.xml",
             "examples/edit-with-type.xml",
             "examples/read-all.xml",
             "--op edit examples/bare-edit.xml",
             "--op get --log error --depth-limit 9 --format json examples/native-filters.xml",
             "--log trace --trace examples/read-state-one.xml",
         }) {
        const Outcome outcome = replay(capture(arguments));
        EXPECT_EQ(outcome.status, 0) << arguments << outcome.out;
    }
}

TEST_F(Replay, LeavesOutWhatChangesFromRunToRun)
{
    const std::string text = capture("--log trace --trace examples/read-state-one.xml");
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
    write("document.xml", document);
    const std::string text = capture("--op edit document.xml");
    EXPECT_NE(text.find("\n\n  <!--\n  calls:\n    \n  \\ no newline at the end\n  # -->\n"),
              text.npos);
    EXPECT_NE(text.find("</interfaces>\n\\ no newline at the end\ncalls:\n"), text.npos);
    EXPECT_EQ(replay(text).status, 0);
    EXPECT_EQ(replay(replaced(text, "\n\\ no newline at the end\ncalls:", "\ncalls:")).status, 0);
    EXPECT_EQ(replay(replaced(text, "  <!--\n", "  <!--\n\n")).status, 1); // nodes move a line down
}

TEST_F(Replay, ShowsWhatIsDifferent)
{
    const std::string text = capture("examples/edit-description.xml");
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
        const Outcome outcome = replay(replaced(text, c.from, c.to), c.arguments);
        EXPECT_EQ(outcome.status, 1) << c.name;
        EXPECT_NE(outcome.out.find(c.shown), std::string::npos) << c.name << "\n" << outcome.out;
    }
}

// A recorded answer of the framework or of a sibling is given again.
TEST_F(Replay, AnswersAsRecorded)
{
    const std::string text = capture("examples/edit-acl.xml");
    const std::string list = "_path_flagged(/interface-configurations/interface-configuration, "
                             "http://brelvik.example/ns/yang/Brelvik-NQ-ifmgr-cfg, -, -, 1) = ";
    for (const std::string& call : {std::string(", ingress-acl) = "), list}) {
        const Outcome outcome = replay(replaced(text, call + "0", call + "77"));
        EXPECT_EQ(outcome.status, 1);
        EXPECT_NE(outcome.out.find("    + if:/interfaces: status 77"), std::string::npos)
            << outcome.out;
        EXPECT_EQ(outcome.out.find("- " + call), std::string::npos) << outcome.out;
    }
}

TEST_F(Replay, RefusesAMalformedCase)
{
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
        const Outcome outcome = replay(c.text);
        EXPECT_EQ(outcome.status, 2) << c.name;
        EXPECT_EQ(outcome.out, "");
        EXPECT_TRUE(outcome.err.starts_with("replayed.case" + c.message)) << outcome.err;
        test::expect_one_line(outcome.err);
    }
    // Nothing runs before all cases are known to be sound.
    write("good.case", good);
    write("empty.case", "");
    const Outcome two = run("replay good.case empty.case");
    EXPECT_EQ(two.status, 2);
    EXPECT_EQ(two.out, "");
}

TEST_F(Replay, CaptureRefusesWhatItCannotWrite)
{
    write("own.xml", "<rpc/>");
    const struct {
        const char* name;
        std::string arguments;
        std::string message;
    } cases[] = {
        {"two documents", "--capture x.case examples/read-one.xml examples/read-all.xml",
         "ymap: --capture takes one document\n"},
        {"siblings", "--capture x.case --siblings none examples/read-one.xml",
         "ymap: --capture sees the calls of the stand-in siblings only: it doesn't go with "
         "--siblings\n"},
        {"its own document", "--capture own.xml own.xml",
         "own.xml: the case file is the document itself\n"},
        {"no such folder", "--capture /no/such/x.case examples/read-one.xml",
         "/no/such/x.case: cannot write: No such file or directory\n"},
    };
    for (const auto& c : cases) {
        const Outcome outcome = run("map " + c.arguments);
        EXPECT_EQ(outcome.status, 2) << c.name;
        EXPECT_TRUE(outcome.err.ends_with(c.message)) << c.name << "\n" << outcome.err;
    }
}

} // namespace
