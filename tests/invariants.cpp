#include "invariants.h"

#include <dlfcn.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <tuple>

#include "ymap_ietf_if.h"

namespace test {
namespace {

using ozk::Call;
using ozk::Op;

constexpr uint32_t untouched_position = 0xfeedface;

const void* image_of(const void* address)
{
    Dl_info info{};
    return dladdr(address, &info) != 0 ? info.dli_fbase : nullptr;
}

/// Whether `address` lies within the map library: a constant, or a site word.
bool is_of_library(const void* address)
{
    static std::map<const void*, bool> known;
    static const void* const library =
        image_of(reinterpret_cast<const void*>(ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces));
    const auto [found, is_new] = known.try_emplace(address, false);
    if (is_new)
        found->second = image_of(address) == library;
    return found->second;
}

using ozk::same_text;

/// A call in a message.
std::string told(const Call& call)
{
    const auto text = [](const char* each) { return std::string(each != nullptr ? each : "-"); };
    return std::string(name_of(call.op)) + "(" +
           (call.node != nullptr ? text(call.node->tag) : text(call.text_1)) + ", " +
           text(call.text_2) + ", " + text(call.value) + ", " + std::to_string(call.kind) +
           ") = " + std::to_string(call.result) + " " + call.line;
}

/// A trace line without the number of the source line, which no rule gives.
std::string without_source_line(const std::string& line)
{
    const size_t function = line.find(": ", line.find(": ") + 1) + 2;
    const size_t colon    = line.find(':', function);
    const size_t blank    = line.find(' ', colon);
    if (colon == std::string::npos || blank == std::string::npos)
        return line;
    return line.substr(0, colon + 1) + line.substr(blank);
}

bool same_line(const Call& made, const Call& expected)
{
    if (made.op != Op::trace)
        return made.line == expected.line;
    const std::string line = without_source_line(made.line);
    return made.line.size() == MAP_MAX_TRACE_LINE - 1 ? expected.line.starts_with(line)
                                                      : line == expected.line;
}

bool same(const Call& made, const Call& expected)
{
    return made.op == expected.op && made.kind == expected.kind && made.result == expected.result &&
           made.node == expected.node && same_text(made.text_1, expected.text_1) &&
           same_text(made.text_2, expected.text_2) &&
           (made.value == expected.value ||
            (expected.value == model::active_value && same_text(made.value, expected.value))) &&
           same_line(made, expected);
}

void turn(ozk::Run& run, const model::Switches& switches)
{
    run.set_level(MAP_LOG_ERROR, switches.error);
    run.set_level(MAP_LOG_TRACE, switches.trace);
    run.set_trace(switches.lines);
}

class Check {
public:
    explicit Check(const CheckedCase& walked) : case_(walked), input_(walked.input) {}

    Walked go()
    {
        run([&](OzkMapCtx* ctx, OzkDataTree* tree) {
            return case_.root->walker(ctx, input_.node, tree);
        });
        const bool is_operational = input_.model->ns_uri == NS_NQ_PFI_IM_CMD_OPER;
        expect(!is_operational || input_.op_code == MAP_OP_GET || run_.added().empty(),
               "operational data on an operation that doesn't reach it");
        check([&] { return model::walk(input_); });
        return std::move(result_);
    }

    std::string call(const schema::Node& described, model::Function function)
    {
        run([&](OzkMapCtx* ctx, OzkDataTree* tree) {
            return call_function(described, function, {ctx, input_.node, input_.count, tree});
        });
        check([&] { return model::call(input_, described, function); });
        return std::move(result_.wrong);
    }

private:
    void expect(bool holds, const std::string& otherwise)
    {
        if (!holds)
            result_.wrong += otherwise + "\n";
    }

    /// What of context and request no walk may write, and no framework but for its switches.
    auto fixed_fields()
    {
        const OzkMapCtx& ctx         = *run_.ctx();
        const OzkMapRequest* request = ctx.request;
        return std::tuple(request, request->operation, request->operation->op_code,
                          ctx._debug_ctx.run, ctx._debug_ctx.levels, ctx.error_log, ctx.trace_log,
                          ctx.trace_buffer, ctx.trace_on);
    }

    template <class Function>
    void run(Function function)
    {
        run_.set_operation(input_.op_code);
        run_.record_calls(true);
        turn(run_, input_.switches);
        for (const auto& [call, status] : input_.answers)
            run_.answer(call.first, call.second, status);
        size_t count = 0;
        run_.on_call([&](ozk::Run& run, const Call&) {
            if (const auto found = input_.turned.find(++count); found != input_.turned.end())
                turn(run, found->second);
        });
        run_.ctx()->list_position = untouched_position;
        const auto before         = fixed_fields();
        run_.call([&] {
            result_.status = function(run_.ctx(), input_.has_tree ? run_.tree() : nullptr);
        });
        run_.on_call(nullptr);
        if (!input_.turned.empty())
            turn(run_, input_.switches);
        expect(fixed_fields() == before, "a field of the context or the request has changed");
        expect(case_.is_unchanged(), "a node of the tree has changed");
        result_.paths = shown(run_.added());
        if (run_.offending_tag() != nullptr)
            result_.offending_tag = run_.offending_tag();
    }

    // --- What holds for any walk, told without the model of it

    template <class Rules>
    void check(Rules rules)
    {
        check_promises();
        input_.ctx = run_.ctx();
        check_rules(rules());
    }

    void check_promises()
    {
        for (const std::string& fault : run_.faults())
            expect(false, "fault: " + fault);
        int depth = 0;
        for (const Call& call : run_.calls()) {
            depth += call.op == Op::hierarchy_add;
            depth -= call.op == Op::hierarchy_remove;
            if (!check_pointers(call))
                expect(false, "a pointer from nowhere: " + told(call));
        }
        expect(depth == 0, "the hierarchy is not balanced");

        const bool is_answer = std::ranges::any_of(
            input_.answers, [&](const auto& answer) { return answer.second == result_.status; });
        expect(model::is_status_of_library(result_.status) || is_answer, "a status from nowhere");
        const char* tag = run_.offending_tag();
        expect(tag == nullptr || case_.has_tag(tag), "an offending tag from nowhere");
    }

    bool check_pointers(const Call& call) const
    {
        const bool node_is_known = call.node == nullptr || case_.has_node(call.node);
        const auto is_constant   = [](const char* text) {
            return text != nullptr && is_of_library(text);
        };
        switch (call.op) {
        case Op::hierarchy_add:
        case Op::hierarchy_remove:
        case Op::is_request_add:
        case Op::is_request_delete:
        case Op::sibling: return call.node != nullptr && node_is_known;
        case Op::update_list: return is_constant(call.text_1);
        case Op::add_path:
            return node_is_known && is_constant(call.text_1) && is_constant(call.text_2) &&
                   (call.value == nullptr || case_.has_value(call.value) ||
                    (is_constant(call.value) && same_text(call.value, model::active_value)));
        case Op::log: return is_constant(call.format) && is_of_library(call.site_word);
        case Op::match: return is_constant(call.text_1) || is_constant(call.text_2);
        case Op::copy_text: return is_constant(call.text_2);
        case Op::should_log:
        case Op::trace_index:
        case Op::trace: return true;
        }
        return false;
    }

    // --- What the rules give for this walk

    void check_rules(const model::Outcome& expected)
    {
        expect(result_.status == expected.status, "status " + std::to_string(result_.status) +
                                                      " instead of " +
                                                      std::to_string(expected.status));
        const char* tag = run_.offending_tag();
        expect(expected.offending_tag ? tag != nullptr && *expected.offending_tag == tag
                                      : tag == nullptr,
               std::string("offending tag ") + (tag != nullptr ? tag : "-"));
        expect(run_.ctx()->list_position ==
                   (expected.sets_list_position ? expected.list_position : untouched_position),
               "list position " + std::to_string(run_.ctx()->list_position));

        check_output(expected);
        const auto made              = run_.calls();
        const auto [at, expected_at] = std::ranges::mismatch(made, expected.calls, same);
        if (at == made.end() && expected_at == expected.calls.end())
            return;
        expect(false, "call " + std::to_string(at - made.begin() + 1) + " is " +
                          (at != made.end() ? told(*at) : "missing") + ", expected " +
                          (expected_at != expected.calls.end() ? told(*expected_at) : "none"));
    }

    /// What has been added and not refused stays, and nothing else is there.
    void check_output(const model::Outcome& expected)
    {
        std::vector<Call> stays;
        std::ranges::copy_if(expected.calls, std::back_inserter(stays), [](const Call& call) {
            return call.op == Op::add_path && call.result == MAP_OK;
        });
        const auto is_same = [](const ozk::AddedPath& added, const Call& call) {
            return same_text(added.path, call.text_1) && same_text(added.ns_uri, call.text_2) &&
                   added.ref_node == call.node && added.is_list == (call.kind != 0);
        };
        expect(std::ranges::equal(run_.added(), stays, is_same),
               "the output holds something else than the paths that were added");
    }

    const CheckedCase& case_;
    model::Input input_;
    ozk::Run run_{MAP_OP_GET};
    Walked result_;
};

} // namespace

Walked walk(const CheckedCase& walked)
{
    return Check(walked).go();
}

uint32_t call_function(const schema::Node& described, model::Function function,
                       const Arguments& arguments)
{
    const auto& [ctx, node, count, tree] = arguments;
    const std::string name               = model::name_of(described, function);
    if (function == model::Function::when_hook)
        return map_function<OzkMapWhenFunction>(name)(ctx, node);
    if (function == model::Function::handler && described.kind == schema::Kind::container)
        return map_function<OzkMapContainerFunction>(name)(ctx, node, count, tree);
    return map_function(name)(ctx, node, tree);
}

std::string wrong_with_call(const CheckedCase& walked, const schema::Node& described,
                            model::Function function)
{
    return Check(walked).call(described, function);
}

} // namespace test
