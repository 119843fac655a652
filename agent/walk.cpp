// Walks, and which node ended one.

#include "walk.h"

#include <span>
#include <unordered_map>

#include <fmt/core.h>

#include "instance_path.h"
#include "request.h"

namespace ymap::agent {

namespace {

using ozk::children;
using ozk::text;

void give_own_tags(ozk::Tree& tree, OzkMapNode& node)
{
    if (node.tag != nullptr)
        node.tag = tree.keep(node.tag);
    for (OzkMapNode& child : children(node))
        give_own_tags(tree, child);
}

using NodesByTag = std::unordered_map<const char*, const OzkMapNode*>;

void enter(NodesByTag& nodes, const OzkMapNode& node)
{
    nodes.emplace(node.tag, &node);
    for (const OzkMapNode& child : children(node))
        enter(nodes, child);
}

/// The node that a walk had come to: the one whose tag was compared last, or that was put on the
/// hierarchy last.
const OzkMapNode* last_node(std::span<const ozk::Call> calls, const OzkMapNode& root)
{
    NodesByTag nodes;
    enter(nodes, root);
    const OzkMapNode* last = nullptr;
    for (const ozk::Call& call : calls) {
        if (call.op == ozk::Op::hierarchy_add)
            last = call.node;
        else if (call.op == ozk::Op::match)
            if (const auto found = nodes.find(call.text_1); found != nodes.end())
                last = found->second;
    }
    return last;
}

} // namespace

Walk walk(ozk::Run& run, const MapLibrary& library, const ModelRoot& root, OzkMapNode& node,
          ozk::Tree* tree, const OzkMapNode* top)
{
    OzkMapFunction* walker = library.root_walker(root);
    if (tree != nullptr && run.records_calls())
        give_own_tags(*tree, node);
    const size_t calls_before = run.calls().size();
    const size_t added_before = run.added().size();
    const uint32_t status     = run.walk(walker, &node);
    Walk result{&root, status, added_before, run.added().size()};
    if (result.status == MAP_OK || tree == nullptr)
        return result;
    if (run.records_calls()) {
        result.node = last_node(run.calls().subspan(calls_before), node);
    } else {
        give_own_tags(*tree, node);
        ozk::Run again(run.ctx()->request->operation->op_code);
        again.record_calls(true);
        again.walk(walker, &node);
        result.node = last_node(again.calls(), node);
    }
    if (result.node != nullptr) {
        data::InstancePaths paths(*top, list_keys());
        // The key that an entry should begin with may not be there: the entry is at fault.
        const OzkMapNode* parent = paths.parent_of(*result.node);
        if (result.status == MAP_ERR_BAD_KEY && children(*result.node).empty() && parent != top)
            result.node = parent;
        result.tag        = text(result.node->tag);
        result.path       = paths.of(*result.node);
        result.error_path = error_path(paths, *result.node);
        result.line       = result.node->line;
    }
    return result;
}

Error error_of(const Walk& walk)
{
    Error error{"operation-failed", {}};
    error.path        = walk.path;
    error.error_path  = walk.error_path;
    error.line        = walk.line;
    error.bad_element = walk.tag;
    switch (walk.status) {
    case MAP_NOT_MAPPED:
        error.tag     = "operation-not-supported";
        error.message = fmt::format("'{}' has no native path", walk.tag);
        break;
    case MAP_ERR_UNSUPPORTED_TAG:
        error.tag     = "unknown-element";
        error.message = fmt::format("'{}' is not known here", walk.tag);
        break;
    case MAP_ERR_BAD_KEY:
        error.tag         = "missing-element";
        error.message     = "an entry begins with its key 'name', which has a value";
        error.bad_element = "name";
        break;
    case MAP_ERR_KEY_DELETE:
        error.tag           = "bad-attribute";
        error.message       = "a key can't be deleted without its entry";
        error.bad_attribute = "operation";
        break;
    case MAP_ERR_ADD_REFUSED:
        error.tag     = "unknown-namespace";
        error.message = fmt::format("'{}' is of a model that nobody serves here", walk.tag);
        if (walk.node != nullptr)
            error.bad_namespace = text(walk.node->ns_uri);
        break;
    default: break;
    }
    if (walk.node == nullptr || error.message.empty()) // of no node that is known, or no known end
        error.message =
            fmt::format("the walk of /{} returned {}", walk.root->name, status_text(walk.status));
    return error;
}

std::string_view status_name(uint32_t status)
{
    switch (status) {
    case MAP_OK: return "MAP_OK";
    case MAP_WHEN_NO_INPUT: return "MAP_WHEN_NO_INPUT";
    case MAP_NOT_MAPPED: return "MAP_NOT_MAPPED";
    case MAP_ERR_NO_SUBTREES: return "MAP_ERR_NO_SUBTREES";
    case MAP_ERR_INVALID_ARGS: return "MAP_ERR_INVALID_ARGS";
    case MAP_ERR_UNSUPPORTED_TAG: return "MAP_ERR_UNSUPPORTED_TAG";
    case MAP_ERR_BAD_KEY: return "MAP_ERR_BAD_KEY";
    case MAP_ERR_KEY_DELETE: return "MAP_ERR_KEY_DELETE";
    case MAP_ERR_ADD_REFUSED: return "MAP_ERR_ADD_REFUSED";
    default: return {};
    }
}

std::string status_text(uint32_t status)
{
    const std::string code =
        status > 0xffff ? fmt::format("{:#x}", status) : fmt::format("{}", status);
    const auto name = status_name(status);
    return name.empty() ? fmt::format("status {}", code) : fmt::format("{} ({})", name, code);
}

} // namespace ymap::agent
