// Reads and edits of clients on native data, by the real command, and edits of a plain tree. In the
// end the loop: what generated edits write is what a read of the result gives.

#include <algorithm>
#include <map>
#include <optional>
#include <random>
#include <regex>
#include <string>
#include <vector>

#include "edit.h"
#include "shell.h"

namespace {

using test::cfg;
using test::ietf;
using test::oper;
using test::Outcome;
using test::rpc;
using OnNativeData = test::InFolder;

/// `text` without white space around tags.
std::string squeezed(const std::string& text)
{
    return std::regex_replace(text, std::regex("\n *(<|$)"), "$1");
}

std::string get(const std::string& roots, const std::string& operation = "get")
{
    return rpc("<" + operation + "><filter>" + roots + "</filter></" + operation + ">");
}

/// What stands in the <data> of a reply.
std::string reply_data(const std::string& out)
{
    const std::string text = squeezed(out);
    const size_t begin = text.find("<data>"), end = text.find("</data>");
    if (begin == text.npos)
        return text.find("<data/>") != text.npos ? "" : "no reply: " + text;
    return text.substr(begin + 6, end - begin - 6);
}

std::string interfaces(const std::string& entries)
{
    return "<interfaces" + ietf + ">" + entries + "</interfaces>";
}

std::string state(const std::string& entries)
{
    return "<interfaces-state" + ietf + ">" + entries + "</interfaces-state>";
}

std::string entry(const std::string& name, const std::string& leaves)
{
    return "<interface-configuration><active>act</active><interface-name>" + name +
           "</interface-name>" + leaves + "</interface-configuration>";
}

std::string configuration(const std::string& entries)
{
    return "<interface-configurations" + cfg + ">" + entries + "</interface-configurations>";
}

// ---------------------------------------------------------------------------------------------
// Reads

const std::string port = "<interface><name>gigabit-ethernet-0/0/1</name>";
const std::string port_configuration =
    port + "<description>Uplink to core-1, port 7</description><enabled>true</enabled></interface>";
const std::string port_counters =
    "<statistics><in-octets>61283400912</in-octets><out-octets>59921880122</out-octets>"
    "<in-multicast-pkts>20113</in-multicast-pkts><in-broadcast-pkts>812</in-broadcast-pkts>"
    "<out-multicast-pkts>19877</out-multicast-pkts><out-broadcast-pkts>77</out-broadcast-pkts>"
    "<in-unknown-protos>3</in-unknown-protos><in-errors>12</in-errors>"
    "<in-discards>1</in-discards><out-errors>4</out-errors></statistics>";
const std::string port_address = "<phys-address>00:53:00:0a:01:07</phys-address>";
const std::string all_configuration =
    port_configuration +
    "<interface><name>ten-gigabit-ethernet-1/13</name><enabled>false</enabled></interface>"
    "<interface><name>loopback10</name><description>Router identity</description></interface>";
const std::string all_state = port + port_address + port_counters +
                              "</interface><interface><name>ten-gigabit-ethernet-1/13</name>"
                              "<phys-address>00:53:00:0a:01:0b</phys-address></interface>"
                              "<interface><name>loopback10</name></interface>";

TEST_F(OnNativeData, ReadsGiveWhatTheRequestNames)
{
    const struct {
        const char* name;
        std::string request;
        std::string data; ///< of the reply
        int status = 0;
    } cases[] = {
        {"configuration by key", get(interfaces(port + "</interface>"), "get-config"),
         interfaces(port_configuration)},
        {"one leaf by key", get(interfaces(port + "<enabled/></interface>")),
         interfaces(port + "<enabled>true</enabled></interface>")},
        {"names", get(interfaces("<interface><name/></interface>")),
         interfaces(port + "</interface><interface><name>ten-gigabit-ethernet-1/13</name>"
                           "</interface><interface><name>loopback10</name></interface>")},
        {"a leaf without the key", get(interfaces("<interface><enabled/></interface>")),
         interfaces("<interface><enabled>true</enabled></interface>"
                    "<interface><enabled>false</enabled></interface>")},
        {"the whole configuration", get(interfaces(""), "get-config"),
         interfaces(all_configuration)},
        {"no such entry", get(interfaces("<interface><name>port-9</name></interface>")), ""},
        {"an entry that isn't active",
         get(interfaces("<interface><name>gigabit-ethernet-0/2/0</name></interface>")), ""},
        {"state by key, without counters", get(state(port + "</interface>")),
         state(port + port_address + "</interface>")},
        {"the whole state", get(state("")), state(all_state)},
        {"a leaf of the state, of which the map selects all",
         get(state("<interface><phys-address/></interface>")),
         state("<interface>" + port_address +
               "</interface><interface>"
               "<phys-address>00:53:00:0a:01:0b</phys-address></interface>")},
        {"everything", rpc("<get/>"), interfaces(all_configuration) + state(all_state)},
        {"state on get-config is refused, what came before is not",
         get(interfaces(port + "</interface>") + state("<interface/>"), "get-config"),
         interfaces(port_configuration), 1},
        {"a leaf that isn't mapped ends the walk",
         get(interfaces(port + "<description/><type/><enabled/></interface>")),
         interfaces(port + "<description>Uplink to core-1, port 7</description></interface>"), 1},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        write("request.xml", row.request);
        const Outcome outcome = run("read request.xml --data examples/native-configuration.xml "
                                    "examples/native-operational.xml");
        EXPECT_EQ(outcome.status, row.status) << outcome.err;
        EXPECT_EQ(reply_data(outcome.out), row.data);
    }
}

TEST_F(OnNativeData, ReadsOfAThousandEntries)
{
    const auto address = [](const std::string& tag, int i) {
        return "<" + tag + ">00:53:00:00:" + std::to_string(i) + "</" + tag + ">";
    };
    std::string native, all;
    for (int i = 0; i < 1000; ++i) {
        const std::string name = "name>port-" + std::to_string(i) + "</";
        native += "<interface><interface-" + name + "interface-name><mac-address>" +
                  address("address", i) + "</mac-address></interface>\n";
        all += "<interface><" + name + "name>" + address("phys-address", i) + "</interface>";
    }
    write("native.xml",
          "<interfaces" + oper + "><interface-nq>" + native + "</interface-nq></interfaces>");
    EXPECT_EQ(reply_data(run("read examples/read-state-all.xml --data native.xml").out),
              state(all));
    write("one.xml", get(state("<interface><name>port-17</name></interface>")));
    EXPECT_EQ(
        reply_data(run("read one.xml --data native.xml").out),
        state("<interface><name>port-17</name>" + address("phys-address", 17) + "</interface>"));
}

TEST_F(OnNativeData, FormsOfTheReply)
{
    EXPECT_EQ(run("read examples/read-one.xml --data examples/native-configuration.xml").out,
              R"(<rpc-reply message-id="202" xmlns="urn:ietf:params:xml:ns:netconf:base:1.0">
  <data>
    <interfaces xmlns="urn:ietf:params:xml:ns:yang:ietf-interfaces">
      <interface>
        <name>gigabit-ethernet-0/0/1</name>
        <description>Uplink to core-1, port 7</description>
      </interface>
    </interfaces>
  </data>
</rpc-reply>
)");
    // The message-id comes back as it was (RFC 6241, 4.1).
    const std::string id = "message-id=\"a&#10;b&#9;&quot;\"";
    write("id.xml",
          "<rpc " + id + " xmlns=\"urn:ietf:params:xml:ns:netconf:base:1.0\"><get/></rpc>");
    EXPECT_NE(run("read id.xml --data examples/native-configuration.xml").out.find(id),
              std::string::npos);
    write("bare.xml", interfaces("<interface><name>port-9</name></interface>"));
    const std::string nothing = "read bare.xml --data examples/native-configuration.xml";
    EXPECT_EQ(run(nothing).out, "<data xmlns=\"urn:ietf:params:xml:ns:netconf:base:1.0\"/>\n");
    EXPECT_EQ(run(nothing + " --format json").out, "{}\n");

    write("all.xml", rpc("<get/>"));
    write("configuration.xml",
          configuration("<interface-configuration><active>act</active><interface-name>a\"\\"
                        "</interface-name><shutdown/></interface-configuration>" +
                        entry("b", "<shutdown>false</shutdown>")));
    write("operational.xml",
          "<interfaces" + oper +
              "><interface-nq><interface><interface-name>b</interface-name>"
              "<interface-statistics><full-interface-stats><bytes-sent>7</bytes-sent>"
              "<input-errors>0</input-errors><input-ignored-packets>n/a</input-ignored-packets>"
              "</full-interface-stats></interface-statistics></interface><interface>"
              "<interface-statistics/></interface></interface-nq></interfaces>");
    EXPECT_EQ(run("read --format json all.xml --data configuration.xml operational.xml").out,
              R"({
  "ietf-interfaces:interfaces": {
    "interface": [
      {
        "name": "a\"\\",
        "enabled": [null]
      },
      {
        "name": "b",
        "enabled": false
      }
    ]
  },
  "ietf-interfaces:interfaces-state": {
    "interface": [
      {
        "name": "b",
        "statistics": {
          "out-octets": "7",
          "in-errors": 0,
          "in-discards": "n/a"
        }
      },
      {
        "statistics": {}
      }
    ]
  }
}
)");
}

TEST_F(OnNativeData, WhatDoesNotFitIsMappedAsFarAsItFitsAndListed)
{
    write("configuration.xml",
          "<interface-configurations" + cfg +
              " xmlns:pf='http://brelvik.example/ns/yang/Brelvik-NQ-ip-pfilter-cfg'>\n"
              "<interface-configuration><active>act</active><interface-name>a</interface-name>\n"
              "<mtu>1500</mtu>\n"
              "<pf:ipv4-packet-filter><pf:inbound/></pf:ipv4-packet-filter>\n"
              "<pf:other><pf:inbound/></pf:other><" +
              std::string(500, 'x') +
              "/>\n"
              "<dampening>on<!-- no value here --></dampening>\n"
              "<description><line/></description>\n"
              "<shutdown>true</shutdown></interface-configuration>\n"
              "<interface-configuration><foo/></interface-configuration>\n"
              "</interface-configurations>");
    write("operational.xml", "<interfaces" + oper +
                                 "><interface-nq><interface>\n"
                                 "<interface-name>a</interface-name>\n"
                                 "<mac><address>1</address></mac>\n"
                                 "</interface></interface-nq></interfaces>");
    write("request.xml", get(interfaces("<interface><name>a</name></interface>") + state("")));
    const Outcome outcome = run("read request.xml --data configuration.xml operational.xml");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(reply_data(outcome.out),
              interfaces("<interface><name>a</name><description/><enabled>true</enabled>"
                         "</interface>") +
                  state("<interface><name>a</name></interface>"));
    const std::string called =
        "sibling called: ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvlc_interface_"
        "configuration, tag ipv4-packet-filter\n";
    const std::string unknown = " is not in the schema of the map, skipped\n";
    EXPECT_EQ(outcome.err,
              called + called + "configuration.xml:3: 'mtu' (nq-ifmgr-cfg)" + unknown +
                  "configuration.xml:5: 'other' (nq-ip-pfilter-cfg)" + unknown +
                  "configuration.xml:5: '" + std::string(399, 'x') + "..." + unknown +
                  "configuration.xml:6: 'dampening' (nq-ifmgr-cfg) takes no value, its value is "
                  "skipped\n"
                  "configuration.xml:7: 'line' (nq-ifmgr-cfg)" +
                  unknown + "configuration.xml:9: 'foo' (nq-ifmgr-cfg)" + unknown +
                  "operational.xml:3: 'mac' (nq-pfi-im-cmd-oper)" + unknown);

    const Outcome without = run("read examples/read-state-one.xml --data configuration.xml");
    EXPECT_EQ(without.status, 0);
    EXPECT_EQ(without.err, "examples/read-state-one.xml: no native document has /interfaces "
                           "(nq-pfi-im-cmd-oper), which the request selects\n");
}

TEST_F(OnNativeData, DiagnosticsCoverBothPasses)
{
    const std::string read = "read examples/read-one.xml --data examples/native-configuration.xml ";
    const std::string out  = run(read).out;
    const struct {
        const char* option;
        const char* pass_1;
        const char* pass_2;
    } cases[] = {
        {"--calls", "ozk_map_update_current_list_node(/interfaces/interface) = 0",
         "update_current_list_node(/interface-configurations/interface-configuration) = 0"},
        {"--log trace", "TRC: OZK: ", "TRC: OZK: "},
        {"--trace", "TRC: ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces:",
         "TRC: ymap_qi_ietf_if_brelviknqifmgrcfg_lvla_interfaceconfigurations:"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.option);
        const Outcome outcome = run(read + row.option);
        EXPECT_EQ(outcome.out, out);
        const size_t first = outcome.err.find("pass 1: "), second = outcome.err.find("pass 2: ");
        ASSERT_EQ(first, 0u) << outcome.err;
        ASSERT_NE(second, std::string::npos);
        EXPECT_LT(outcome.err.find(row.pass_1), second);
        EXPECT_NE(outcome.err.find(row.pass_2, second), std::string::npos);
    }
}

TEST_F(OnNativeData, BadInputIsOneLine)
{
    const std::string data = " --data examples/native-configuration.xml";
    write("native.xml", "<interface-configurations" + cfg + "/>");
    write("native-rpc.xml", get("<interface-configurations" + cfg + "/>"));
    write("cut.xml", "<interface-configurations" + cfg + ">\n<interface-conf");
    const struct {
        const char* name;
        std::string arguments;
        const char* begins;
    } cases[] = {
        {"no data", "read examples/read-one.xml", "ymap: --data is required"},
        {"read of an edit", "read examples/edit-create.xml" + data,
         "examples/edit-create.xml: a get or get-config is expected"},
        {"edit of a read", "edit examples/read-one.xml" + data,
         "examples/read-one.xml: an edit-config is expected"},
        {"request of a native root", "read native.xml" + data,
         "native.xml:1: /interface-configurations is of a native model"},
        {"native rpc", "read examples/read-one.xml --data native-rpc.xml",
         "native-rpc.xml: an rpc, where native data is expected"},
        {"data of the clients' model", "read examples/read-one.xml --data examples/bare-edit.xml",
         "examples/bare-edit.xml:3: /interfaces is no native data"},
        {"cut short", "read examples/read-one.xml" + data + " cut.xml", "cut.xml:2: "},
        {"missing file", "edit examples/edit-create.xml --data none.xml",
         "none.xml: cannot open: "},
        {"other root", "edit examples/edit-create.xml --data examples/native-operational.xml",
         "examples/native-operational.xml: the edit is of /interface-configurations/"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        const Outcome outcome = run(row.arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        test::expect_one_line(outcome.err);
        EXPECT_TRUE(outcome.err.starts_with(row.begins)) << outcome.err;
    }
}

// ---------------------------------------------------------------------------------------------
// Edits

std::string edit(const std::string& entries, const std::string& default_operation = "",
                 const std::string& root_attribute = "")
{
    return rpc("<edit-config>" +
               (default_operation.empty()
                    ? ""
                    : "<default-operation>" + default_operation + "</default-operation>") +
               "<config><interfaces" + ietf + root_attribute + ">\n" + entries +
               "</interfaces></config></edit-config>");
}

TEST_F(OnNativeData, EditsDoWhatTheirOperationsSay)
{
    const std::string a     = entry("a", "<description>old</description><mtus><mtu/></mtus>");
    const std::string b     = entry("b", "<shutdown>false</shutdown>");
    const std::string new_a = entry("a", "<description>new</description><mtus><mtu/></mtus>");
    const std::string prepared =
        "<interface-configuration><active>prepared</active><interface-name>c</interface-name>"
        "</interface-configuration>";
    const std::string there = "/interface-configurations/interface-configuration[active='act']"
                              "[interface-name='";

    const auto one = [](const std::string& name, const std::string& leaves,
                        const std::string& operation = "") {
        return "<interface" + (operation.empty() ? "" : " nc:operation='" + operation + "'") +
               "><name>" + name + "</name>" + leaves + "</interface>";
    };
    const std::string text = "<description>new</description>";

    const struct {
        const char* name;
        std::string request;
        std::string result; ///< entries, or the line that refuses the edit
        std::string err = {};
    } cases[] = {
        {"merge into an entry", edit(one("a", text)), new_a + b + prepared},
        {"merge makes an entry", edit(one("c", text)),
         a + b + prepared + entry("c", "<description>new</description>")},
        {"create what is there", edit(one("a", text, "create")),
         "request.xml:3: data-exists: " + there + "a'] exists already\n"},
        {"create a leaf that is there",
         edit(one("a", "<description nc:operation='create'>new</description>")),
         "request.xml:3: data-exists: /interface-configurations/interface-configuration/"
         "description exists already\n"},
        {"replace drops what it doesn't name", edit(one("a", text, "replace")),
         entry("a", "<description>new</description>") + b + prepared},
        {"delete", edit(one("a", "", "delete")), b + prepared},
        {"delete with content", edit(one("a", text, "delete")), b + prepared},
        {"delete what is missing", edit(one("c", "", "delete")),
         "request.xml:3: data-missing: there is no " + there + "c']\n"},
        {"delete without a key", edit("<interface nc:operation='delete'/>"),
         "request.xml:3: missing-element: an entry of /interface-configurations/"
         "interface-configuration has no active\n"},
        {"delete a leaf that is missing", edit(one("b", "<description nc:operation='delete'/>")),
         "request.xml:3: data-missing: there is no /interface-configurations/"
         "interface-configuration/description to delete\n"},
        {"delete what has control characters", edit(one("c&#10;&#x9b;", "", "delete")),
         "request.xml:3: data-missing: there is no " + there + "c  ']\n"},
        {"none wants the entry", edit(one("c", ""), "none"),
         "request.xml:3: data-missing: there is no " + there + "c']\n"},
        {"none but for a leaf",
         edit(one("a", "<description nc:operation='merge'>new</description>"), "none"),
         new_a + b + prepared},
        {"all or nothing", edit(one("a", text) + "\n" + one("b", "", "create")),
         "request.xml:4: data-exists: " + there + "b'] exists already\n"},
        {"replace of the root is that of its entries",
         edit(one("a", text), "", " nc:operation='replace'"),
         entry("a", "<description>new</description>") + b + prepared,
         "request.xml:2: the operation on /interfaces reaches the entries that the request names "
         "and no others\n"},
        {"refused by the map", edit(one("a", text + "<type>x</type>")),
         "request.xml:3: walk of /interfaces returned MAP_NOT_MAPPED (51), offending tag 'type'\n"},
        {"key behind", edit("<interface><description>new</description><name>a</name></interface>"),
         "request.xml:3: walk of /interfaces returned MAP_ERR_BAD_KEY (0xaaf2e800), offending tag "
         "'description'\n"},
    };
    write("native.xml", configuration(a + b + prepared));
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        write("request.xml", row.request);
        const Outcome outcome = run("edit request.xml --data native.xml");
        if (row.result.starts_with("request.xml")) {
            EXPECT_EQ(outcome.status, 1);
            EXPECT_EQ(outcome.out, "");
            EXPECT_EQ(outcome.err, row.result);
        } else {
            EXPECT_EQ(outcome.status, 0);
            EXPECT_EQ(squeezed(outcome.out), configuration(row.result));
            EXPECT_EQ(outcome.err, row.err);
        }
    }
}

/// What a map of other models could add: containers on the way, leaves outside of lists.
TEST(Edit, OfPlainTrees)
{
    OzkMapNode merge{}, erase{};
    merge.edit = static_cast<uint8_t>(ozk::Edit::merge);
    erase.edit = static_cast<uint8_t>(ozk::Edit::erase), erase.edit_is_own = 1, erase.line = 7;
    const auto path = [](const char* text, const char* value, const OzkMapNode* ref_node,
                         bool is_list = false) {
        ozk::AddedPath added;
        added.path = text, added.ns_uri = "urn:n", added.ref_node = ref_node;
        added.is_list = is_list;
        if (value != nullptr)
            added.value = value;
        return added;
    };
    constexpr std::string_view key_leaves[] = {"key"};
    const ozk::ListKey keys[]               = {{"urn:n", "/top/box/list", key_leaves}};
    ozk::DataNode top;
    top.tag = "top", top.ns_uri = "urn:n";

    const std::vector<ozk::AddedPath> made = {
        path("/top/box/list", nullptr, nullptr, true), path("/top/box/list/key", "1", &merge),
        path("/top/box/list/in/leaf", "x", &merge), path("/top/away/leaf", "y", nullptr)};
    top = apply_edit(top, made, keys);
    ASSERT_EQ(top.children.size(), 2u);
    const ozk::DataNode& list = top.children[0].children.at(0);
    EXPECT_EQ(list.children.at(0).value, "1");
    EXPECT_EQ(list.children.at(1).children.at(0).value, "x");
    EXPECT_EQ(top.children[1].children.at(0).value, "y");

    const std::vector<ozk::AddedPath> gone = {path("/top/box/list", nullptr, &erase, true),
                                              path("/top/box/list/key", "1", &merge),
                                              path("/top/away/leaf", nullptr, &erase)};
    top                                    = apply_edit(top, gone, keys);
    EXPECT_TRUE(top.children[0].children.empty());
    EXPECT_TRUE(top.children[1].children.empty());

    const struct {
        ozk::AddedPath path;
        const char* begins;
    } refused[] = {
        {path("/top/no/way", nullptr, &erase), "data-missing"},
        {path("/other/leaf", "1", &erase), "unknown-element"},
        {path("/top/list", nullptr, &erase, true), "operation-failed"},
    };
    for (const auto& row : refused) {
        try {
            apply_edit(top, {&row.path, 1}, keys);
            ADD_FAILURE() << row.begins;
        } catch (const ozk::EditError& error) {
            EXPECT_TRUE(std::string(error.what()).starts_with(row.begins)) << error.what();
            EXPECT_EQ(error.line, 7u);
        }
    }
}

// ---------------------------------------------------------------------------------------------
// There and back, with an oracle of RFC 6241, 7.2

using Leaves  = std::map<std::string, std::string>; ///< description and enabled, by tag
using Entries = std::map<std::string, Leaves>;      ///< by name

struct EditedLeaf {
    std::string tag, value, operation; ///< an empty operation is inherited
};
struct EditedEntry {
    std::string name, operation;
    std::vector<EditedLeaf> leaves;
};

bool removes(const std::string& operation)
{
    return operation == "delete" || operation == "remove";
}

/// What becomes of the entries, or nothing if the edit has to be refused.
std::optional<Entries> expected(Entries entries, const std::vector<EditedEntry>& edits,
                                const std::string& by_default)
{
    for (const EditedEntry& edited : edits) {
        const std::string& operation = edited.operation.empty() ? by_default : edited.operation;
        if (entries.contains(edited.name) ? operation == "create"
                                          : operation == "delete" || operation == "none")
            return std::nullopt;
        if (removes(operation)) {
            entries.erase(edited.name);
            continue;
        }
        Leaves& leaves      = entries[edited.name];
        const Leaves before = leaves;
        if (operation == "replace")
            leaves.clear();
        for (const EditedLeaf& leaf : edited.leaves) {
            const std::string& own = leaf.operation.empty() ? operation : leaf.operation;
            if (before.contains(leaf.tag) ? own == "create" : own == "delete")
                return std::nullopt;
            if (removes(own))
                leaves.erase(leaf.tag);
            else if (own != "none")
                leaves[leaf.tag] = leaf.value;
        }
    }
    return entries;
}

Entries entries_of(const std::string& reply)
{
    static const std::regex leaf("<(name|description|enabled)>([^<]*)</");
    Entries entries;
    std::string name;
    for (std::sregex_iterator at(reply.begin(), reply.end(), leaf), end; at != end; ++at)
        if ((*at)[1] == "name")
            entries[name = (*at)[2]];
        else
            entries[name][(*at)[1]] = (*at)[2];
    return entries;
}

class Generator {
public:
    explicit Generator(uint32_t seed) : random_(seed) {}

    std::string any_of(const std::vector<std::string>& choices)
    {
        return choices[random_() % choices.size()];
    }

    EditedEntry entry()
    {
        EditedEntry made{any_of({"port-1", "port-2", "lo&amp;1", "Ærø 1"}),
                         any_of({"", "", "", "merge", "create", "replace", "delete", "remove"}),
                         {}};
        const std::vector<std::string> of_leaf = {"",        "",       "",       "",      "merge",
                                                  "replace", "create", "delete", "remove"};
        if (random_() % 3 != 0)
            made.leaves.push_back(
                {"description", any_of({"a", "b &lt;c&gt;", "d  e", "&amp;"}), any_of(of_leaf)});
        if (random_() % 2 != 0)
            made.leaves.push_back({"enabled", any_of({"true", "false"}), any_of(of_leaf)});
        return made;
    }

private:
    std::mt19937 random_;
};

std::string request_of(const EditedEntry& edited)
{
    const auto attribute = [](const std::string& operation) {
        return operation.empty() ? "" : " nc:operation=\"" + operation + "\"";
    };
    std::string text =
        "<interface" + attribute(edited.operation) + "><name>" + edited.name + "</name>";
    for (const EditedLeaf& leaf : edited.leaves)
        text += "<" + leaf.tag + attribute(leaf.operation) + ">" +
                (removes(leaf.operation) ? "" : leaf.value) + "</" + leaf.tag + ">";
    return text + "</interface>\n";
}

TEST_F(OnNativeData, WhatEditsWriteIsWhatAReadGives)
{
    size_t applied = 0, refused = 0;
    write("all.xml", get(interfaces("")));
    for (uint32_t seed = 1; seed <= 15; ++seed) {
        Generator generator(seed);
        Entries entries;
        std::string native = configuration("");
        for (int step = 0; step < 6; ++step) {
            std::vector<EditedEntry> edits(seed % 3 + 1);
            std::ranges::generate(edits, [&] { return generator.entry(); });
            const std::string by_default = generator.any_of({"merge", "merge", "none", "replace"});
            std::string request;
            for (const EditedEntry& each : edits)
                request += request_of(each);
            SCOPED_TRACE("default " + by_default + ":\n" + request + "on\n" + native);
            write("edit.xml", edit(request, by_default));
            write("native.xml", native);
            const Outcome edited = run("edit edit.xml --data native.xml");
            const auto result    = expected(entries, edits, by_default);
            if (!result) {
                ASSERT_EQ(edited.status, 1);
                ASSERT_EQ(edited.out, "");
                ++refused;
                continue;
            }
            ASSERT_EQ(edited.status, 0) << edited.err;
            entries = *result;
            native  = edited.out;
            ++applied;
            write("native.xml", native);
            const Outcome read = run("read all.xml --data native.xml");
            ASSERT_EQ(entries_of(read.out), entries) << read.out;
        }
    }
    EXPECT_GT(applied, 30u);
    EXPECT_GT(refused, 15u);
}

} // namespace
