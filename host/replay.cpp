// `ymap replay`: captured runs, run again and compared.

#include <algorithm>
#include <cstdio>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include <fmt/core.h>

#include "case_file.h"
#include "commands.h"
#include "documents.h"
#include "options.h"
#include "report.h"
#include "text.h"

namespace ymap::host {

namespace {

using Lines = std::vector<std::string>;

/// A case that is ready to run.
struct Prepared {
    std::string path;
    Case captured;
    agent::Request request;
};

// ---------------------------------------------------------------------------------------------
// Differences

/// A line with its mark: '-' expected but missing, '+' not expected, ' ' as expected.
struct Marked {
    char mark;
    std::string line;
};

/// The shortest way from `a` to `b`, by their longest common subsequence. Where that would take too
/// long, the one is given as a whole and then the other.
std::vector<Marked> compare(std::span<const std::string> a, std::span<const std::string> b)
{
    constexpr size_t limit = 25'000'000;
    std::vector<Marked> result;
    if (a.size() * b.size() > limit) {
        for (const std::string& line : a)
            result.push_back({'-', line});
        for (const std::string& line : b)
            result.push_back({'+', line});
        return result;
    }
    const size_t width = b.size() + 1;
    std::vector<uint32_t> common((a.size() + 1) * width); // of what lies after i in a, j in b
    for (size_t i = a.size(); i-- > 0;)
        for (size_t j = b.size(); j-- > 0;)
            common[i * width + j] =
                a[i] == b[j] ? common[(i + 1) * width + j + 1] + 1
                             : std::max(common[(i + 1) * width + j], common[i * width + j + 1]);
    size_t i = 0, j = 0;
    while (i < a.size() || j < b.size()) {
        if (i < a.size() && j < b.size() && a[i] == b[j])
            result.push_back({' ', a[i++]}), ++j;
        else if (j == b.size() ||
                 (i < a.size() && common[(i + 1) * width + j] >= common[i * width + j + 1]))
            result.push_back({'-', a[i++]});
        else
            result.push_back({'+', b[j++]});
    }
    return result;
}

/// What is different, with a few lines around it; empty if nothing is.
std::string difference(const Lines& expected, const Lines& got)
{
    constexpr size_t around = 2;
    if (expected == got)
        return "";
    // Equal ends cost nothing.
    const auto [a, b] = std::ranges::mismatch(expected, got);
    const auto from   = static_cast<size_t>(a - expected.begin());
    size_t rest_a = expected.size(), rest_b = got.size();
    while (rest_a > from && rest_b > from && expected[rest_a - 1] == got[rest_b - 1])
        --rest_a, --rest_b;
    const size_t first = from - std::min(from, around);
    const size_t tail  = std::min(around, expected.size() - rest_a);
    const auto lines   = compare(std::span(expected).subspan(first, rest_a + tail - first),
                                 std::span(got).subspan(first, rest_b + tail - first));

    std::string text = first > 0 ? "      ...\n" : "";
    bool is_cut      = false;
    for (size_t i = 0; i < lines.size(); ++i) {
        const size_t begin = i - std::min(i, around);
        const size_t end   = std::min(lines.size(), i + around + 1);
        const bool shown   = std::any_of(lines.begin() + static_cast<ptrdiff_t>(begin),
                                         lines.begin() + static_cast<ptrdiff_t>(end),
                                         [](const Marked& line) { return line.mark != ' '; });
        if (shown)
            text +=
                fmt::format("    {} {}\n", lines[i].mark, data::without_controls(lines[i].line));
        else if (!is_cut)
            text += "      ...\n";
        is_cut = !shown;
    }
    if (rest_a + tail < expected.size() && !is_cut)
        text += "      ...\n";
    return text;
}

// ---------------------------------------------------------------------------------------------

std::vector<JsonMember> run_case(Prepared& prepared, const agent::MapLibrary& library)
{
    const CaseInput& input = prepared.captured.input;
    agent::Hooks hooks     = hooks_for({.log = input.log, .calls = true}, false);
    hooks.after_pass       = nullptr;
    hooks.before_pass      = [&, turn_on = hooks.before_pass](ozk::Run& run, const char* pass) {
        turn_on(run, pass);
        run.set_trace(input.trace);
        run.set_log_stream(nullptr);
        for (const auto& [call, status] : prepared.captured.answers)
            run.answer(call.first, call.second, status);
    };
    const agent::Mapping mapping = map_request(prepared.request, library, hooks);
    return json_members(prepared.request, mapping, true);
}

/// What came out otherwise, member by member; empty if nothing did. The document's name is where it
/// lay when it was captured.
std::string differences(const Case& captured, const std::vector<JsonMember>& result)
{
    auto now      = compact(result);
    auto expected = captured.members;
    for (const auto& [name, values] : now)
        expected.try_emplace(name);
    expected.erase("document");
    std::string text;
    for (const auto& [name, values] : expected)
        if (const std::string lines = difference(values, now[name]); !lines.empty())
            text += fmt::format("  {}:\n{}", name, lines);
    return text;
}

} // namespace

int replay_cases(const ReplayOptions& options)
{
    if (options.update && std::ranges::find(options.files, "-") != options.files.end())
        throw UsageError("--update writes files: it doesn't go with standard input");
    // Nothing runs before all cases are known to be sound.
    std::vector<Prepared> cases;
    for (const std::string& path : options.files) {
        const std::string name = formats::name_of_file(path);
        Case captured          = read_case(name, formats::read_all(formats::bytes_of_file(path)));
        const CaseInput& input = captured.input;
        std::optional<uint32_t> op_code;
        if (!input.op.empty())
            op_code = operation_codes.at(input.op);
        agent::Request request = read_request(name + ", input", formats::bytes_of(input.document),
                                              input.depth_limit, op_code);
        cases.push_back({path, std::move(captured), std::move(request)});
    }
    const agent::MapLibrary library = load_library(options.library);

    int status = exit_mapped;
    for (Prepared& prepared : cases) {
        auto result            = run_case(prepared, library);
        const std::string text = differences(prepared.captured, result);
        if (!text.empty() && options.update) {
            // where the document lay when it was captured
            if (const auto& document = prepared.captured.members["document"]; document.size() == 1)
                result.front().values = document;
            write_case(prepared.path, prepared.captured.input, result);
        } else if (!text.empty())
            status = exit_differs;
        fmt::print("{}: {}\n{}", formats::name_of_file(prepared.path),
                   text.empty()     ? "as captured"
                   : options.update ? "updated (- captured, + now)"
                                    : "differs (- captured, + now)",
                   text);
    }
    return status;
}

} // namespace ymap::host
