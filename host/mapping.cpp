// The forms of a mapping.

#include "mapping.h"

#include <algorithm>
#include <iterator>

#include <fmt/format.h>

#include "calls.h"
#include "columns.h"
#include "text.h"

namespace ymap::host {

using agent::Mapping;
using agent::Request;
using formats::json_string;
using ozk::text;

namespace {

const char* operation_name(uint32_t op_code)
{
    return op_code == MAP_OP_GET ? "get" : op_code == MAP_OP_EDIT ? "edit" : "get-config";
}

/// The operation that an added path stands for; nothing on a read.
const char* edit_name(const Request& request, const ozk::AddedPath& added)
{
    const OzkMapNode* origin = origin_of(added);
    return request.is_edit() && origin != nullptr ? name_of(ozk::edit_of(*origin)) : nullptr;
}

/// The paths of a request's nodes.
data::InstancePaths paths_of(const Request& request)
{
    return {request.content != nullptr ? *request.content : request.document.tree.top(),
            agent::list_keys()};
}

std::string json_or_null(const char* text)
{
    return text != nullptr ? json_string(text) : "null";
}

std::string json_line(uint32_t line)
{
    return line != 0 ? std::to_string(line) : "null";
}

std::string json_path(const Request& request, const ozk::AddedPath& added,
                      data::InstancePaths& paths)
{
    const OzkMapNode* ref = added.ref_node;
    return fmt::format(
        R"({{"path": {}, "value": {}, "namespace": {}, "prefix": {}, "list": {}, "operation": {}, )"
        R"("refers_to": {}}})",
        json_string(added.path), json_or_null(added.value), json_string(added.ns_uri),
        json_string(agent::prefix_of(added.ns_uri)), added.is_list,
        json_or_null(edit_name(request, added)),
        ref == nullptr ? "null"
                       : fmt::format(R"({{"place": {}, "line": {}}})", json_string(paths.of(*ref)),
                                     json_line(ref->line)));
}

std::string json_walk(const agent::Walk& walk)
{
    const auto name = agent::status_name(walk.status);
    return fmt::format(R"({{"root": {}, "status": {}, "status_name": {}, "tag": {}, "place": {}, )"
                       R"("line": {}}})",
                       json_string(fmt::format("/{}", walk.root->name)), walk.status,
                       name.empty() ? "null" : json_string(name),
                       walk.node != nullptr ? json_string(walk.tag) : "null",
                       walk.node != nullptr ? json_string(walk.path) : "null",
                       json_line(walk.line));
}

std::string json_note(const agent::Note& note)
{
    return fmt::format(R"({{"error_tag": "{}", "place": {}, "message": {}, "line": {}}})", note.tag,
                       json_string(note.path), json_string(note.message), json_line(note.line));
}

} // namespace

std::string table_text(const Request& request, const Mapping& mapping)
{
    std::vector<std::vector<std::string>> rows = {
        {"PATH", "VALUE", "NAMESPACE", "LIST", "OPERATION", "REFERS TO"}};
    data::InstancePaths paths = paths_of(request);
    for (const ozk::AddedPath& added : mapping.run->added()) {
        const char* edit      = edit_name(request, added);
        const OzkMapNode* ref = added.ref_node;
        rows.push_back({
            added.path,
            added.value != nullptr ? json_string(added.value) : "-",
            std::string(agent::prefix_of(added.ns_uri)),
            added.is_list ? "list" : "-",
            edit != nullptr ? edit : "-",
            ref != nullptr
                ? fmt::format("{}, line {}", data::without_controls(paths.of(*ref)), ref->line)
                : "-",
        });
    }
    return rows.size() == 1 ? "no paths\n" : aligned(rows);
}

bool write_xml_mapping(formats::Output& out, const Request& request, const Mapping& mapping)
{
    const auto roots = request.roots();
    const bool depends_on_data =
        request.is_edit() && std::ranges::any_of(roots, agent::reaches_unnamed_entries);
    if (mapping.ended() || mapping.has_faults || depends_on_data)
        return false;
    const auto* root             = roots.empty() ? nullptr : agent::find_root(roots.front());
    const bool is_data           = root != nullptr && !root->is_clients;
    const std::string_view name  = request.is_edit() ? "config" : is_data ? "data" : "filter";
    const std::string_view extra = name == "filter" ? " type=\"subtree\"" : "";
    out << fmt::format("<nc:{}{} xmlns:nc=\"{}\"", name, extra, data::NS_NETCONF);
    const ozk::Tree read  = request.is_edit() ? ozk::Tree() : ozk::tree_of(mapping.run->added());
    const ozk::Tree& tree = request.is_edit() ? mapping.tree : read;
    if (ozk::children(tree.top()).empty()) {
        out << "/>\n";
        return true;
    }
    out << ">\n";
    for (const OzkMapNode& each : ozk::children(tree.top()))
        formats::write_xml(out, each, nullptr, formats::Layout::lines, 2);
    out << fmt::format("</nc:{}>\n", name);
    return true;
}

std::vector<JsonMember> json_members(const Request& request, const Mapping& mapping,
                                     bool with_calls)
{
    std::string message_id = "null";
    if (request.rpc() != nullptr)
        for (const data::Attribute& each : request.document.attributes_of(*request.rpc()))
            if (each.prefix.empty() && each.name == "message-id")
                message_id = json_string(each.value);
    std::vector<JsonMember> members = {
        {"document", false, {json_string(request.document.name)}},
        {"message_id", false, {message_id}},
        {"operation", false, {fmt::format("\"{}\"", operation_name(request.op_code))}},
        {"walks", true, {}},
        {"paths", true, {}},
        {"unmapped", true, {}},
        {"faults", true, {}},
    };
    data::InstancePaths paths = paths_of(request);
    std::ranges::transform(mapping.walks, std::back_inserter(members[3].values), json_walk);
    for (const ozk::AddedPath& added : mapping.run->added())
        members[4].values.push_back(json_path(request, added, paths));
    std::ranges::transform(mapping.notes, std::back_inserter(members[5].values), json_note);
    std::ranges::transform(mapping.run->faults(), std::back_inserter(members[6].values),
                           json_string);
    if (with_calls) {
        JsonMember& calls = members.emplace_back(JsonMember{"calls", true, {}});
        for (const ozk::Call& call : mapping.run->calls())
            calls.values.push_back(to_json(call));
    }
    return members;
}

std::string json_object(const std::vector<JsonMember>& members)
{
    std::string out       = "{";
    const char* separator = "\n";
    for (const JsonMember& member : members) {
        out += fmt::format("{}  \"{}\": ", separator, member.name);
        if (!member.is_array)
            out += member.values.front();
        else if (member.values.empty())
            out += "[]";
        else
            out += fmt::format("[\n    {}\n  ]", fmt::join(member.values, ",\n    "));
        separator = ",\n";
    }
    return out + "\n}";
}

} // namespace ymap::host
