// The real command on real documents. Good ones against golden files, each of which holds all that
// a run gave: its exit status, its standard output and its standard error. Bad ones against a table
// of cases: one line on standard error, nothing on standard output, status 2.
//
// YMAP_UPDATE_GOLDEN=1 in the environment rewrites the golden files; read what comes of it as you
// would read a change of the library.

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include "shell.h"

namespace {

using test::ietf;
using test::Outcome;
using test::rpc;

/// Runs `ymap` in the folder of the examples.
Outcome run_ymap(const std::string& arguments, const std::string& input = "")
{
    return test::run_ymap(arguments, YMAP_EXAMPLES, input);
}

/// `text` without the lines that hold `word`.
std::string without_lines(const std::string& text, const std::string& word)
{
    std::istringstream lines(text);
    std::string result, line;
    while (std::getline(lines, line))
        if (line.find(word) == std::string::npos)
            result += line + '\n';
    return result;
}

size_t count_lines(const std::string& text, const std::string& word)
{
    std::istringstream lines(text);
    size_t count = 0;
    for (std::string line; std::getline(lines, line);)
        count += line.find(word) != std::string::npos;
    return count;
}

// ---------------------------------------------------------------------------------------------
// Golden runs

struct GoldenCase {
    const char* name;      ///< of the golden file
    const char* arguments; ///< behind `map`
};

const GoldenCase golden_cases[] = {
    {"edit-create", "--calls edit-create.xml"},
    {"edit-description", "edit-description.xml"},
    {"edit-disable", "edit-disable.xml"},
    {"edit-delete-description", "--calls edit-delete-description.xml"},
    {"edit-delete-interface", "--calls edit-delete-interface.xml"},
    {"edit-with-type", "--calls edit-with-type.xml"},
    {"edit-key-last", "--calls edit-key-last.xml"},
    {"edit-acl", "--calls edit-acl.xml"},
    {"bare-edit", "--op edit bare-edit.xml"},
    {"read-all", "--calls read-all.xml"},
    {"read-one", "--calls read-one.xml"},
    {"read-unknown-tag", "--calls read-unknown-tag.xml"},
    {"read-state-all", "read-state-all.xml"},
    {"read-state-one", "--calls read-state-one.xml"},
    {"native-filters", "--op get-config native-filters.xml"},
    {"native-global", "--op edit --calls native-global.xml"},
    {"native-interface-types", "--op get native-interface-types.xml"},
    {"native-interface-types-edit", "--op edit --calls native-interface-types.xml"},
    {"several-documents", "edit-disable.xml read-unknown-tag.xml read-one.xml"},
    {"xml-of-edits", "--format xml edit-description.xml edit-delete-interface.xml"},
    {"xml-of-read", "--format xml --calls read-one.xml"},
    {"json", "--format json edit-with-type.xml edit-description.xml"},
    {"json-with-calls", "--format json --calls edit-key-last.xml"},
};

TEST(Golden, run)
{
    for (const GoldenCase& row : golden_cases) {
        SCOPED_TRACE(row.name);
        const std::string command = std::string("map ") + row.arguments;
        const Outcome outcome     = run_ymap(command);
        std::ostringstream got;
        // Log points are no theme here; one file, in JSON, shows them.
        got << "$ ymap " << command << "\n--- exit status\n"
            << outcome.status << "\n--- standard output\n"
            << without_lines(outcome.out, "  ozk_debug_should_log(") << "--- standard error\n"
            << without_lines(outcome.err, "  ozk_debug_should_log(");

        const std::string path = std::string(YMAP_GOLDEN "/") + row.name + ".txt";
        if (std::getenv("YMAP_UPDATE_GOLDEN") != nullptr)
            std::ofstream(path) << got.str();
        else
            EXPECT_EQ(got.str(), test::read_file(path));
    }
}

// ---------------------------------------------------------------------------------------------
// Bad input

struct BadCase {
    const char* name;
    std::string arguments; ///< behind `map`
    std::string input;     ///< what `-` reads
    std::string message;   ///< the line on standard error, or how it begins if it ends in "..."
};

const std::string in = "(standard input):";

std::string edit(const std::string& entry)
{
    return rpc("<edit-config><config><interfaces" + ietf + ">\n" + entry +
               "</interfaces></config></edit-config>");
}

const std::string bare = "<interfaces" + ietf + "/>";

const BadCase bad_cases[] = {
    // The XML itself
    {"empty", "-", "", in + "1: Document is empty"},
    {"unclosed", "-", rpc("<get>"), in + "3: Opening and ending tag mismatch: get line 2 and rpc"},
    {"cut_short", "- --op get", "<interfaces" + ietf + ">\n<interf", in + "2: ..."},
    {"undeclared_prefix", "-", "<if:interfaces/>",
     in + "1: Namespace prefix if on interfaces is not defined"},
    {"wrong_encoding", "-", rpc("<get>\xff</get>"),
     in + "2: Input is not proper UTF-8, indicate encoding !"},
    {"far_down", "- --op get", "<interfaces" + ietf + ">" + std::string(70000, '\n') + "<",
     in + "70001: ..."},
    {"doctype", "-", "<?xml version='1.0'?>\n<!DOCTYPE a SYSTEM 'file:///etc/passwd'><a/>",
     in + "2: a DOCTYPE is not accepted"},
    {"undefined_entity", "- --op edit", "<interfaces" + ietf + ">\n&x;</interfaces>",
     in + "2: Entity 'x' not defined"},
    {"too_deep", "--depth-limit 5 edit-create.xml", "",
     "edit-create.xml:11: element 'name' is nested deeper than 5 levels"},

    // NETCONF
    {"no_operation", "-", rpc(""), in + "3: the rpc holds no operation"},
    {"unknown_operation", "-", rpc("<lock/>"),
     in + "2: operation 'lock' is not supported: get, get-config or edit-config is expected"},
    {"foreign_operation", "-", rpc("<get xmlns='urn:x'/>"),
     in + "2: operation 'get' is not sup..."},
    {"two_operations", "-", rpc("<get/>\n<get/>"),
     in + "3: element 'get' follows the operation of the rpc"},
    {"xpath_filter", "-", rpc("<get><filter type='xpath' select='/x'/></get>"),
     in + "2: a filter of type 'xpath' is not supported, only of type 'subtree'"},
    {"unknown_parameter", "-", rpc("<edit-config>\n<url>x</url></edit-config>"),
     in + "3: element 'url' is not supported in edit-config"},
    {"edit_without_config", "-", rpc("<edit-config>\n</edit-config>"),
     in + "3: edit-config holds no config"},
    {"unknown_default_operation", "-",
     rpc("<edit-config><default-operation>de\nlete</default-operation></edit-config>"),
     in + "3: unknown default-operation 'de lete'"},
    {"late_default_operation", "-",
     rpc("<edit-config><config/>\n<default-operation>none</default-operation></edit-config>"),
     in + "3: default-operation stands behind config"},
    {"text_in_rpc", "-", rpc("<get/>\nget"), in + "4: text is not expected here"},

    // Data
    {"unknown_namespace", "-", rpc("<get><filter>\n<interfaces xmlns='urn:x'/></filter></get>"),
     in + "3: unknown namespace 'urn:x' of root 'interfaces'"},
    {"unknown_root", "-", "<interface" + ietf + "/>",
     in + "1: unknown root 'interface' of namespace 'urn:ietf:params:xml:ns:yang:ietf-interfaces'"},
    {"bare_tree_without_op", "-", bare,
     in + "1: a bare data tree: say with --op get, get-config or edit what to do with it"},
    {"unknown_edit", "-", edit("<interface nc:operation='destroy'/>"),
     in + "3: unknown operation 'destroy' of 'interface'"},
    {"operation_without_prefix", "-", edit("<interface\noperation='delete'/>"),
     in + "4: attribute 'operation' of 'interface' has no namespace and is not supported"},
    {"operation_on_a_read", "-",
     rpc("<get><filter><interfaces" + ietf + " nc:operation='delete'/></filter></get>"),
     in + "2: 'interfaces' has an operation, but the request is no edit"},
    {"text_before_element", "-", edit("<interface>x<name>y</name></interface>"),
     in + "3: text and element 'name' stand side by side"},
    {"text_behind_element", "-", edit("<interface><name>y</name>\nx</interface>"),
     in + "4: text stands beside the elements in 'interface'"},

    // Files and the command line
    {"no_such_file", "no-such.xml", "", "no-such.xml: cannot open: No such file or directory"},
    {"folder", ".", "", ".: cannot read: Is a directory"},
    {"bad_behind_good", "edit-create.xml -", "<", in + "1: ..."},
    {"no_such_library", "--library /no/such.so edit-create.xml", "",
     "ymap: cannot load the map library: /no/such.so: cannot open shared object file: No such file "
     "or directory"},
    {"no_library_at_all", "--library edit-create.xml edit-create.xml", "",
     "ymap: cannot load the map library: ./edit-create.xml: ..."},
    {"library_without_root", "--library libc.so.6 edit-create.xml", "",
     "edit-create.xml:8: the map library libc.so.6 has no walker "
     "ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces for /interfaces"},
    {"library_without_any_root", "--library libc.so.6 -", rpc("<get/>"),
     in + "2: the map library libc.so.6 has no walker ..."},
    {"no_such_siblings", "--siblings /no/such.so edit-create.xml", "",
     "ymap: cannot load the sibling library: /no/such.so: ..."},
    {"no_document", "", "", "ymap: DOCUMENT is required; see ymap --help"},
    {"unknown_format", "--format yaml -", "", "ymap: --format: yaml not in ..."},
};

TEST(BadInput, one_line_and_status_2)
{
    for (const BadCase& row : bad_cases) {
        SCOPED_TRACE(row.name);
        const Outcome outcome = run_ymap("map " + row.arguments, row.input);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        test::expect_one_line(outcome.err);
        std::string message = row.message, got = outcome.err;
        if (message.ends_with("...")) {
            message.resize(message.size() - 3);
            got.resize(std::min(got.size(), message.size()));
        } else {
            message += '\n';
        }
        EXPECT_EQ(got, message) << outcome.err;
    }
}

TEST(BadInput, unknown_verb_is_named)
{
    const Outcome outcome = run_ymap("mao edit-create.xml", "");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "ymap: no verb 'mao'; see ymap --help\n");
}

// ---------------------------------------------------------------------------------------------
// What has no golden file, because it holds addresses or changes with the library's size

TEST(Diagnostics, go_to_standard_error_and_change_no_output)
{
    const Outcome plain = run_ymap("map read-unknown-tag.xml");
    EXPECT_EQ(count_lines(plain.err, ""), 1);

    const Outcome errors = run_ymap("map --log error read-unknown-tag.xml");
    EXPECT_EQ(errors.out, plain.out);
    EXPECT_EQ(count_lines(errors.err, ",Unsupported tag is specified in the request."), 1);
    EXPECT_EQ(count_lines(errors.err, "TRC: OZK: "), 0);

    const Outcome all = run_ymap("map --log trace read-unknown-tag.xml");
    EXPECT_EQ(all.out, plain.out);
    EXPECT_EQ(count_lines(all.err, "ERR: OZK: "), 1);
    EXPECT_GT(count_lines(all.err, "TRC: OZK: "), 10);

    const Outcome trace = run_ymap("map --trace read-unknown-tag.xml");
    EXPECT_EQ(trace.out, plain.out);
    EXPECT_EQ(count_lines(trace.err, "ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces:"), 2);
    EXPECT_EQ(count_lines(trace.err, "OZK: "), 0);
    EXPECT_TRUE(trace.err.ends_with(plain.err)) << trace.err;
}

TEST(Values, show_no_control_character)
{
    const std::string document = "<interfaces" + ietf +
                                 "><interface><name>a&#x7f;&#x9b;31m"
                                 "\xc2\x80\xc2\xa0\xc3\x9b</name></interface></interfaces>";
    for (const std::string format : {"table", "json"}) {
        const Outcome outcome = run_ymap("map --op edit - --format " + format, document);
        EXPECT_EQ(count_lines(outcome.out, "\"a\\u007f\\u009b31m\\u0080\xc2\xa0\xc3\x9b\""), 1)
            << outcome.out;
    }
}

TEST(Output, that_cannot_be_written_is_one_line_and_status_2)
{
    for (const std::string arguments :
         {"map edit-create.xml", "table", "read read-one.xml --data native-configuration.xml",
          "edit edit-description.xml --data native-configuration.xml"}) {
        const Outcome outcome = run_ymap(arguments + " >/dev/full");
        EXPECT_EQ(outcome.status, 2) << arguments;
        EXPECT_EQ(outcome.err, "ymap: cannot write the output: No space left on device\n");
    }
}

TEST(Read, without_a_filter_asks_for_every_root_of_the_model)
{
    const Outcome outcome = run_ymap("map --format json -", rpc("<get/>"));
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(count_lines(outcome.out, R"({"root": "/interfaces", "status": 0)"), 1);
    EXPECT_EQ(count_lines(outcome.out, R"({"root": "/interfaces-state", "status": 0)"), 1);
    EXPECT_EQ(count_lines(outcome.out, R"(interface-configuration/interface-name")"), 1);
}

TEST(Read, with_an_empty_filter_asks_for_nothing)
{
    const Outcome outcome = run_ymap("map -", rpc("<get><filter type='subtree'/></get>"));
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out, "no paths\n");
}

TEST(Read, takes_a_document_as_deep_as_the_limit)
{
    const std::string document = "<interfaces" + ietf + ">" + test::repeat(62, "<a>") + "<b/>" +
                                 test::repeat(62, "</a>") + "</interfaces>";
    const Outcome outcome = run_ymap("map --op get -", document);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, in + "1: walk of /interfaces returned MAP_ERR_UNSUPPORTED_TAG "
                                "(0xaaf2e600), offending tag 'a'\n");
}

} // namespace
