#include "walk_model.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>

namespace model {
namespace {

using ozk::Call;
using ozk::Op;
using schema::Kind;

/// What a handler does beside tracing.
enum class Shape {
    empty,
    unmapped,
    bare_list,
    path_list,
    config_leaf,
    state_leaf,
    state_key,
    mapped,
    key,
    whole_container,
    interface_name,
};

#define NATIVE_ENTRY "/interface-configurations/interface-configuration"
#define OPER_ENTRY   "/interfaces/interface-nq/interface"
#define STATE_ENTRY  "/interfaces-state/interface"
#define OPER_STATS   OPER_ENTRY "/interface-statistics"
#define FULL_STATS   OPER_STATS "/full-interface-stats"
#define STATE_STATS  STATE_ENTRY "/statistics"

struct End {
    Shape shape;
    const char* path;
};

/// A pair of nodes that map to each other.
struct Mapping {
    End ietf, native;
};

using enum Shape;

// Nodes that aren't here are empty, unmapped leaves or bare lists.
// clang-format off
constexpr Mapping mappings[] = {
    {{path_list, "/interfaces/interface"}, {path_list, NATIVE_ENTRY}},
    {{interface_name, "/interfaces/interface/name"}, {key, NATIVE_ENTRY "/interface-name"}},
    {{config_leaf, "/interfaces/interface/description"}, {mapped, NATIVE_ENTRY "/description"}},
    {{config_leaf, "/interfaces/interface/enabled"}, {mapped, NATIVE_ENTRY "/shutdown"}},
    {{path_list, STATE_ENTRY}, {path_list, OPER_ENTRY}},
    {{state_key, STATE_ENTRY "/name"}, {key, OPER_ENTRY "/interface-name"}},
    {{state_leaf, STATE_ENTRY "/phys-address"}, {mapped, OPER_ENTRY "/mac-address/address"}},
    {{whole_container, STATE_STATS}, {whole_container, OPER_STATS}},
    {{state_leaf, STATE_STATS "/in-octets"}, {mapped, FULL_STATS "/bytes-received"}},
    {{state_leaf, STATE_STATS "/in-broadcast-pkts"},
     {mapped, FULL_STATS "/broadcast-packets-received"}},
    {{state_leaf, STATE_STATS "/in-multicast-pkts"},
     {mapped, FULL_STATS "/multicast-packets-received"}},
    {{state_leaf, STATE_STATS "/in-discards"}, {mapped, FULL_STATS "/input-ignored-packets"}},
    {{state_leaf, STATE_STATS "/in-errors"}, {mapped, FULL_STATS "/input-errors"}},
    {{state_leaf, STATE_STATS "/in-unknown-protos"},
     {mapped, FULL_STATS "/unknown-protocol-packets-received"}},
    {{state_leaf, STATE_STATS "/out-octets"}, {mapped, FULL_STATS "/bytes-sent"}},
    {{state_leaf, STATE_STATS "/out-broadcast-pkts"},
     {mapped, FULL_STATS "/broadcast-packets-sent"}},
    {{state_leaf, STATE_STATS "/out-multicast-pkts"},
     {mapped, FULL_STATS "/multicast-packets-sent"}},
    {{state_leaf, STATE_STATS "/out-errors"},
     {mapped, OPER_STATS "/basic-interface-stats/output-errors"}},
};
// clang-format on

constexpr char acl_entry_point[] =
    "ymap_iq_ietf_interfaces_brelvikietfinterfacesaclext_augment_lvla_interface";
constexpr std::pair<const char*, const char*> filters[] = {
    {"ipv6-packet-filter",
     "ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvla_interface_configuration"},
    {"es-packet-filter",
     "ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvlb_interface_configuration"},
    {"ipv4-packet-filter",
     "ymap_qi_ietf_interfaces_brelviknqippfiltercfg_augment_lvlc_interface_configuration"},
};

class Walker {
public:
    explicit Walker(const Input& input)
        : in_(input), model_ns_(input.model->ns_uri.c_str()),
          from_ietf_(input.model->ns_uri == NS_IETF_INTERFACES),
          gated_(input.model->ns_uri == NS_NQ_PFI_IM_CMD_OPER ||
                 input.root->tag == "interfaces-state"),
          switches_(input.switches)
    {
    }

    Outcome go()
    {
        out_.status = walker(*in_.root, in_.node);
        return std::move(out_);
    }

    Outcome call_alone(const schema::Node& described, Function function)
    {
        out_.status = status_of(described, function);
        return std::move(out_);
    }

private:
    bool is_read() const { return in_.op_code == MAP_OP_GET_CONFIG || in_.op_code == MAP_OP_GET; }
    bool passes_gate() const { return !gated_ || in_.op_code == MAP_OP_GET; }

    // --- The framework, as it is defined to answer

    /// The status that the framework is set to give this call, or 0.
    uint32_t call(Call made)
    {
        const auto answer = in_.answers.find({made.op, ++seen_[static_cast<size_t>(made.op)]});
        if (answer != in_.answers.end())
            made.result = answer->second;
        out_.calls.push_back(made);
        if (const auto turned = in_.turned.find(out_.calls.size()); turned != in_.turned.end())
            switches_ = turned->second;
        return made.result;
    }

    bool ask(Op op, const OzkMapNode* node, bool answer)
    {
        return call({.op = op, .result = answer, .node = node}) != 0;
    }

    bool is_add(const OzkMapNode* node)
    {
        const ozk::Edit edit = static_cast<ozk::Edit>(node->edit);
        return ask(Op::is_request_add, node,
                   in_.op_code == MAP_OP_EDIT &&
                       (edit == ozk::Edit::create || edit == ozk::Edit::merge ||
                        edit == ozk::Edit::replace));
    }

    bool is_delete(const OzkMapNode* node)
    {
        const ozk::Edit edit = static_cast<ozk::Edit>(node->edit);
        return ask(Op::is_request_delete, node,
                   in_.op_code == MAP_OP_EDIT && node->edit_is_own != 0 &&
                       (edit == ozk::Edit::erase || edit == ozk::Edit::remove));
    }

    bool match(const char* first, const char* second)
    {
        const bool same = first != nullptr && second != nullptr && std::strcmp(first, second) == 0;
        return call({.op = Op::match, .result = same, .text_1 = first, .text_2 = second}) != 0;
    }

    uint32_t add(const char* path, const char* value, const OzkMapNode* ref_node,
                 uint32_t is_list = 0)
    {
        const bool of_configuration = std::string_view(path).starts_with(NATIVE_ENTRY);
        const char* ns              = !from_ietf_        ? NS_IETF_INTERFACES
                                      : of_configuration ? NS_NQ_IFMGR_CFG
                                                         : NS_NQ_PFI_IM_CMD_OPER;
        return call({.op     = Op::add_path,
                     .kind   = is_list,
                     .node   = ref_node,
                     .text_1 = path,
                     .text_2 = ns,
                     .value  = value});
    }

    uint32_t sibling(const char* entry_point, const OzkMapNode* node)
    {
        return call({.op = Op::sibling, .node = node, .text_1 = entry_point});
    }

    void report_tag(const OzkMapNode* node)
    {
        const bool is_copied =
            !in_.answers.contains({Op::copy_text, seen_[static_cast<size_t>(Op::copy_text)] + 1});
        call({.op = Op::copy_text, .text_1 = node->tag, .text_2 = "OZK MAP"});
        out_.offending_tag.reset();
        if (is_copied && node->tag != nullptr)
            out_.offending_tag = node->tag;
    }

    void log(const std::string& function, uint32_t level, const std::string& text,
             const std::string& argument = "")
    {
        const char* prefix = level == MAP_LOG_ERROR ? "ERR: " : "TRC: ";
        const bool answer  = level == MAP_LOG_ERROR ? switches_.error : switches_.trace;
        call({.op = Op::should_log, .kind = level, .result = answer});
        // A switch that is turned by this very question already holds for the answer.
        const bool log_on        = level == MAP_LOG_ERROR ? switches_.error : switches_.trace;
        out_.calls.back().result = log_on;

        std::array<char, 32> ctx{};
        std::snprintf(ctx.data(), ctx.size(), "%p", static_cast<const void*>(in_.ctx));
        std::string finished = text;
        if (const size_t at = text.find("%s"); at != std::string::npos)
            finished.replace(at, 2, argument);
        if (log_on)
            call({.op   = Op::log,
                  .kind = level,
                  .line = std::string(prefix) + "OZK: ctx=" + ctx.data() + "," + finished});
        if (switches_.lines) {
            call({.op = Op::trace_index, .result = ++trace_index_});
            call({.op   = Op::trace,
                  .line = "#" + std::to_string(trace_index_) + ": " + prefix + function +
                          ": ctx=" + ctx.data() + "," + finished});
        }
    }
    void error(const std::string& function, const char* text)
    {
        log(function, MAP_LOG_ERROR, text);
    }
    void trace(const std::string& function, const char* text, const std::string& argument = "")
    {
        log(function, MAP_LOG_TRACE, text, argument);
    }

    // --- The frame

    /// The question that goes with the assertions.
    void enter(const std::string& function, const char* text)
    {
        call({.op = Op::should_log, .kind = MAP_LOG_TRACE});
        out_.calls.back().result = switches_.trace;
        trace(function, text);
    }

    template <class Work>
    uint32_t frame(const std::string& function, const OzkMapNode* node, Work work)
    {
        enter(function, "Start");
        if (node == nullptr || !in_.has_tree) {
            error(function, "Invalid arguments passed!");
            return MAP_ERR_INVALID_ARGS;
        }
        const uint32_t status = work();
        trace(function, "End");
        return status;
    }

    // --- Handlers

    /// What the node's handler does, and the path that it maps to, if any.
    End end_of(const schema::Node& described) const
    {
        for (const Mapping& row : mappings)
            if (described.path == (from_ietf_ ? row.ietf : row.native).path)
                return from_ietf_ ? End{row.ietf.shape, row.native.path}
                                  : End{row.native.shape, row.ietf.path};
        if (from_ietf_ && described.kind == Kind::leaf)
            return {unmapped, nullptr};
        return {described.kind == Kind::list ? bare_list : empty, nullptr};
    }

    uint32_t handler(const schema::Node& described, const OzkMapNode* node, uint32_t count = 0)
    {
        const std::string function = (described.manual_handler ? "" : "__") + described.handler();
        const auto [shape, target] = end_of(described);
        if (shape == bare_list) {
            enter(function, "End");
            return MAP_OK;
        }
        return frame(function, node, [&, shape = shape, target = target]() -> uint32_t {
            if (described.manual_leaf)
                return manual_leaf(described, node);
            if (described.when_hook)
                when_hook(described, node);
            return work(shape, target, function, node, count);
        });
    }

    uint32_t manual_leaf(const schema::Node& described, const OzkMapNode* node)
    {
        return frame(name_of(described, Function::manual_leaf), node, [] { return MAP_OK; });
    }

    uint32_t when_hook(const schema::Node& described, const OzkMapNode* node)
    {
        const std::string name = name_of(described, Function::when_hook);
        enter(name, "Start");
        if (node == nullptr)
            trace(name, "No valid input to validate when statement ");
        trace(name, "End");
        return node != nullptr ? MAP_OK : MAP_WHEN_NO_INPUT;
    }

    uint32_t status_of(const schema::Node& described, Function function)
    {
        switch (function) {
        case Function::handler: return handler(described, in_.node, in_.count);
        case Function::augment_hook: return augment_hook(described, in_.node);
        case Function::default_hook: return default_hook(described, in_.node);
        case Function::manual_leaf: return manual_leaf(described, in_.node);
        case Function::when_hook: return when_hook(described, in_.node);
        }
        return MAP_OK;
    }

    uint32_t work(Shape shape, const char* target, const std::string& function,
                  const OzkMapNode* node, uint32_t count)
    {
        const bool read = is_read();
        switch (shape) {
        case path_list: return add(target, nullptr, is_delete(node) ? node : nullptr, 1);
        case config_leaf:
            if (read)
                return add(target, nullptr, nullptr);
            return add(target, is_delete(node) ? nullptr : node->value, node);
        case state_leaf: return read ? add(target, nullptr, nullptr) : MAP_OK;
        case state_key:
            if (!read)
                return MAP_OK;
            [[fallthrough]];
        case key: add(target, node->value, nullptr); [[fallthrough]];
        case mapped: return add(target, node->value, nullptr);
        case interface_name:
            add(target, node->value, read ? nullptr : node);
            return add(NATIVE_ENTRY "/active", active_value, read ? nullptr : node);
        case whole_container:
            trace(function, count == 0 ? "No subtrees" : "No mapping done for this node");
            return count == 0 ? add(target, nullptr, nullptr) : MAP_OK;
        case unmapped: return MAP_NOT_MAPPED;
        case empty:
        case bare_list: break;
        }
        return MAP_OK;
    }

    uint32_t augment_hook(const schema::Node& described, const OzkMapNode* node)
    {
        const std::string name = described.augment_hook();
        if (!described.manual_augment_hook)
            return default_hook(described, node);
        return frame(name, node, [&] {
            const char* ns  = from_ietf_ ? NS_IETF_INTERFACES_ACL_EXT : NS_NQ_IP_PFILTER_CFG;
            uint32_t status = MAP_OK;
            if (match(ns, node->ns_uri))
                status = to_sibling(name, node, status);
            if (is_read())
                status = to_sibling(name, node, status);
            return status;
        });
    }

    uint32_t default_hook(const schema::Node& described, const OzkMapNode* node)
    {
        return frame("__" + described.augment_hook(), node, [&]() -> uint32_t {
            if (!from_ietf_ || !is_add(node))
                return MAP_OK;
            report_tag(node);
            return MAP_ERR_ADD_REFUSED;
        });
    }

    uint32_t to_sibling(const std::string& hook, const OzkMapNode* node, uint32_t status)
    {
        if (from_ietf_)
            return sibling(acl_entry_point, node);
        if (node->tag == nullptr) {
            error(hook, "Tag name is not available!");
            return MAP_ERR_NO_SUBTREES;
        }
        trace(hook, "Processing tag '%s'", node->tag);
        for (const auto& [tag, entry_point] : filters)
            if (match(node->tag, tag))
                return sibling(entry_point, node);
        trace(hook, "Unknown Name tag.");
        return status;
    }

    // --- Walkers

    uint32_t target(const schema::Node& described, const OzkMapNode* node)
    {
        if (described.kind != Kind::leaf)
            return walker(described, node);
        return frame(described.walker(), node, [&] { return handler(described, node); });
    }

    uint32_t walker(const schema::Node& described, const OzkMapNode* node)
    {
        return frame(described.walker(), node, [&] {
            return described.path == STATE_ENTRY ? whole_list(described, node)
                                                 : container_or_list(described, node);
        });
    }

    uint32_t update_list(const schema::Node& described)
    {
        return call({.op = Op::update_list, .text_1 = described.path.c_str()});
    }

    void set_position(const OzkMapNode* node)
    {
        out_.sets_list_position = true;
        out_.list_position      = (node->flags & MAP_NODE_HAS_POSITION) != 0 ? node->position : 0;
    }

    uint32_t whole_list(const schema::Node& described, const OzkMapNode* node)
    {
        call({.op = Op::hierarchy_add, .kind = MAP_HIER_LIST, .node = node});
        uint32_t status = update_list(described);
        if (status == MAP_OK)
            status = handler(described, node);
        if (status == MAP_OK)
            set_position(node);
        for (const schema::Node& child : described.children)
            target(child, node);
        augment_hook(described, node);
        call({.op = Op::hierarchy_remove, .node = node});
        return status;
    }

    uint32_t container_or_list(const schema::Node& described, const OzkMapNode* node)
    {
        const std::string function = described.walker();
        const bool is_list         = described.kind == Kind::list;
        const bool has_children    = (node->flags & MAP_NODE_HAS_SUBTREES) != 0;
        const uint32_t count       = has_children ? node->subtree_count : 0;
        if (count > 0 && node->subtrees == nullptr) {
            error(function, "Failed to get subtrees!");
            return MAP_ERR_NO_SUBTREES;
        }
        if (is_list && count == 0)
            error(function, "No keys specified with a list node.");
        call({.op   = Op::hierarchy_add,
              .kind = is_list ? MAP_HIER_LIST : MAP_HIER_CONTAINER,
              .node = node});
        uint32_t status = is_list ? update_list(described) : MAP_OK;
        bool expands    = from_ietf_ && count == 0 && is_read();
        if (status == MAP_OK && is_list && from_ietf_ && count > 0)
            status = key_place(function, &node->subtrees[0], described.children.front());
        if (status == MAP_OK)
            status = handler(described, node, count);
        if (status == MAP_OK && is_list && from_ietf_)
            set_position(node);
        for (uint32_t i = 0; i < count && status == MAP_OK; ++i)
            status = child(described, &node->subtrees[i]);
        if (expands) {
            if (passes_gate())
                for (const schema::Node& each : described.children)
                    target(each, node);
            augment_hook(described, node);
        }
        call({.op = Op::hierarchy_remove, .node = node});
        return status;
    }

    uint32_t key_place(const std::string& function, const OzkMapNode* first,
                       const schema::Node& key)
    {
        if (!is_add(first) || (first->tag != nullptr && match(first->tag, key.tag.c_str())))
            return MAP_OK;
        error(function, "List key 'name' expected.");
        report_tag(first);
        return MAP_ERR_BAD_KEY;
    }

    uint32_t child(const schema::Node& parent, const OzkMapNode* node)
    {
        const std::string function = parent.walker();
        if (node->tag == nullptr) {
            error(function, "Tag name is not available!");
            return MAP_ERR_NO_SUBTREES;
        }
        for (const schema::Node& each : parent.children)
            if (match(node->tag, each.tag.c_str()) && passes_gate()) {
                const bool is_key = from_ietf_ && parent.kind == Kind::list && each.tag == "name";
                const uint32_t status = is_key ? check_key(function, node) : MAP_OK;
                return status != MAP_OK ? status : target(each, node);
            }
        if (!match(model_ns_, node->ns_uri))
            return augment_hook(parent, node);
        if (!from_ietf_) {
            trace(function, "Unsupported tag. Ignoring.");
            return MAP_OK;
        }
        error(function, "Unsupported tag is specified in the request.");
        report_tag(node);
        return MAP_ERR_UNSUPPORTED_TAG;
    }

    uint32_t check_key(const std::string& function, const OzkMapNode* node)
    {
        if (in_.op_code == MAP_OP_EDIT && (node->flags & MAP_NODE_HAS_VALUE) == 0) {
            error(function, "Empty list key specified.");
            report_tag(node);
            return MAP_ERR_BAD_KEY;
        }
        if (is_delete(node)) {
            error(function, "The key node should not have delete operation.");
            return MAP_ERR_KEY_DELETE;
        }
        return MAP_OK;
    }

    const Input& in_;
    const char* model_ns_;
    bool from_ietf_;
    bool gated_;
    Switches switches_;
    uint32_t trace_index_ = 0;
    std::array<size_t, static_cast<size_t>(Op::sibling) + 1> seen_{};
    Outcome out_;
};

} // namespace

Outcome walk(const Input& input)
{
    return Walker(input).go();
}

std::string name_of(const schema::Node& described, Function function)
{
    const bool has_hook = described.kind != schema::Kind::leaf;
    switch (function) {
    case Function::handler: return described.handler();
    case Function::augment_hook: return has_hook ? described.augment_hook() : "";
    case Function::default_hook: return has_hook ? "__" + described.augment_hook() : "";
    case Function::manual_leaf:
        return described.manual_leaf ? described.prefix + "man_leaf_" + described.stem : "";
    case Function::when_hook:
        return described.when_hook ? described.handler() + "_handle_when" : "";
    }
    return "";
}

Outcome call(const Input& input, const schema::Node& described, Function function)
{
    return Walker(input).call_alone(described, function);
}

bool is_status_of_library(uint32_t status)
{
    constexpr uint32_t statuses[] = {MAP_OK,
                                     MAP_WHEN_NO_INPUT,
                                     MAP_NOT_MAPPED,
                                     MAP_ERR_NO_SUBTREES,
                                     MAP_ERR_INVALID_ARGS,
                                     MAP_ERR_UNSUPPORTED_TAG,
                                     MAP_ERR_BAD_KEY,
                                     MAP_ERR_KEY_DELETE,
                                     MAP_ERR_ADD_REFUSED};
    return std::ranges::find(statuses, status) != std::end(statuses);
}

} // namespace model
