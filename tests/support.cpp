#include "support.h"

#include <dlfcn.h>

#include <algorithm>

#include "siblings.h"

namespace test {
namespace {

void fill_namespaces(DataNode& node, const char* ns_uri)
{
    if (!node.ns_uri)
        node.ns_uri = ns_uri;
    for (DataNode& child : node.children)
        fill_namespaces(child, ns_uri);
}

ozk::InputTree build(const Root& root, uint32_t op_code, std::vector<DataNode> children)
{
    DataNode tree = node(root.tag, std::move(children));
    fill_namespaces(tree, root.ns_uri);
    return ozk::InputTree(tree, op_code == MAP_OP_EDIT ? Edit::merge : Edit::none);
}

std::string shown(const char* text)
{
    return text == nullptr ? "-" : text;
}

std::string tag_of(const OzkMapNode* node)
{
    return node == nullptr ? "-" : shown(node->tag);
}

std::string line_of(const ozk::Call& call)
{
    const std::string answer = call.result != 0 ? " yes" : " no";
    switch (call.op) {
    case ozk::Op::hierarchy_add:
        return "push " + tag_of(call.node) +
               (call.kind == MAP_HIER_CONTAINER ? " container"
                : call.kind == MAP_HIER_LIST    ? " list"
                                                : " ?");
    case ozk::Op::hierarchy_remove: return "pop " + tag_of(call.node);
    case ozk::Op::update_list: return "list " + shown(call.text_1);
    case ozk::Op::match:
        return call.result == 0 ? "" : "match " + shown(call.text_1) + " " + shown(call.text_2);
    case ozk::Op::is_request_add: return "add? " + tag_of(call.node) + answer;
    case ozk::Op::is_request_delete: return "delete? " + tag_of(call.node) + answer;
    case ozk::Op::add_path:
        return "add " + shown(call.text_1) + (call.kind == 1 ? " list" : "") +
               (call.value == nullptr ? "" : " = " + shown(call.value)) +
               (call.node == nullptr ? "" : " ref " + tag_of(call.node));
    case ozk::Op::copy_text: return "copy " + shown(call.text_1);
    case ozk::Op::sibling: return "sibling " + shown(call.text_1) + " " + tag_of(call.node);
    case ozk::Op::log: // the formats themselves are the business of the tests of tracing
        return call.line.substr(0, 3) + " " + call.line.substr(call.line.find(',') + 1);
    case ozk::Op::should_log:
    case ozk::Op::trace_index:
    case ozk::Op::trace: return "";
    }
    return "";
}

uint32_t ask_run(const char* entry_point, OzkMapCtx*, const OzkMapNode* node)
{
    ozk::Run* run = ozk::Run::current();
    return run == nullptr ? uint32_t{MAP_OK} : run->sibling_called(entry_point, node);
}

} // namespace

const Root ietf_configuration{"interfaces", NS_IETF_INTERFACES, NS_NQ_IFMGR_CFG,
                              ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces};
const Root ietf_state{"interfaces-state", NS_IETF_INTERFACES, NS_NQ_PFI_IM_CMD_OPER,
                      ymap_iq_ietf_if_ietfinterfaces_lvla_interfacesstate};
const Root native_configuration{"interface-configurations", NS_NQ_IFMGR_CFG, NS_IETF_INTERFACES,
                                ymap_qi_ietf_if_brelviknqifmgrcfg_lvla_interfaceconfigurations};
const Root native_global{"global-interface-configuration", NS_NQ_IFMGR_CFG, NS_IETF_INTERFACES,
                         ymap_qi_ietf_if_brelviknqifmgrcfg_lvla_globalinterfaceconfiguration};
const Root native_operational{"interfaces", NS_NQ_PFI_IM_CMD_OPER, NS_IETF_INTERFACES,
                              ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces};
const Root* const all_roots[5] = {&ietf_configuration, &ietf_state, &native_configuration,
                                  &native_global, &native_operational};

DataNode node(const char* tag, std::vector<DataNode> children)
{
    DataNode made;
    made.tag      = tag;
    made.children = std::move(children);
    return made;
}

DataNode leaf(const char* tag, const char* value)
{
    DataNode made = node(tag);
    made.value    = value;
    return made;
}

DataNode in_ns(DataNode node, const char* ns_uri)
{
    node.ns_uri = ns_uri;
    return node;
}

DataNode with(Edit edit, DataNode node)
{
    node.edit = edit;
    return node;
}

DataNode without_tag(DataNode node)
{
    node.tag.reset();
    return node;
}

DataNode at_position(uint32_t position, DataNode node)
{
    node.position = position;
    return node;
}

const schema::Model& model_of(const Root& root)
{
    return *std::ranges::find(schema::models(), root.ns_uri, &schema::Model::ns_uri);
}

const schema::Node& node_of(const Root& root)
{
    return schema::find(model_of(root), std::string("/") + root.tag);
}

DataNode whole(const schema::Node& described, const char* ns_uri)
{
    DataNode made = in_ns(node(described.tag.c_str()), ns_uri);
    if (described.kind == schema::Kind::leaf) {
        made.value = described.path;
        return made;
    }
    for (const schema::Node& child : described.children)
        made.children.push_back(whole(child, ns_uri));
    made.children.push_back(in_ns(node("no-such-tag"), ns_uri));
    return made;
}

Walk::Walk(const Root& walked, uint32_t op_code, std::vector<DataNode> children)
    : input(build(walked, op_code, std::move(children))), run(op_code), root(walked)
{
    connect_siblings();
    run.record_calls(true);
    run.set_level(MAP_LOG_ERROR, true);
}

uint32_t Walk::go()
{
    return run.walk(root.walker, &input.root());
}

std::vector<std::string> Walk::script() const
{
    std::vector<std::string> lines;
    for (const ozk::Call& call : run.calls())
        if (std::string line = line_of(call); !line.empty())
            lines.push_back(std::move(line));
    return lines;
}

std::vector<std::string> Walk::script(std::vector<std::string_view> words) const
{
    std::vector<std::string> lines = script();
    std::erase_if(lines, [&](const std::string& line) {
        return std::ranges::none_of(words, [&](std::string_view word) {
            return line.starts_with(word) && line.substr(word.size()).starts_with(' ');
        });
    });
    return lines;
}

std::string Walk::offending_tag() const
{
    return shown(run.offending_tag());
}

std::vector<std::string> operator+(std::vector<std::string> a, const std::vector<std::string>& b)
{
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

void* find_map_function(const std::string& name)
{
    void* found = dlsym(RTLD_DEFAULT, name.c_str());
    EXPECT_NE(found, nullptr) << name;
    return found;
}

void connect_siblings()
{
    ymap_siblings_set_listener(ask_run);
}

} // namespace test
