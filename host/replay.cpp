// `ymap replay`: captured runs, run again and compared.

#include <algorithm>
#include <cstdio>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "capture.h"
#include "commands.h"
#include "document.h"
#include "input_error.h"
#include "library.h"
#include "output.h"
#include "run.h"
#include "walk.h"

namespace ymap::host {

namespace {

using Lines = std::vector<std::string>;

struct ReplayOptions {
    std::vector<std::string> files;
    LibraryOptions library;
};

/// A case that is ready to run.
struct Prepared {
    const std::string* file;
    Case captured;
    Request request;
    std::vector<Step> steps;
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
    std::vector<uint32_t> common((a.size() + 1) * width); // of what lies behind i in a, j in b
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
            text += fmt::format("    {} {}\n", lines[i].mark, without_controls(lines[i].line));
        else if (!is_cut)
            text += "      ...\n";
        is_cut = !shown;
    }
    if (rest_a + tail < expected.size() && !is_cut)
        text += "      ...\n";
    return text;
}

// ---------------------------------------------------------------------------------------------

CaseResult run_case(const Prepared& prepared)
{
    ozk::Run run(prepared.request.op_code);
    switch_on(run, prepared.captured.diagnostics);
    run.set_log_stream(nullptr);
    run.record_calls(true);
    answer_as_recorded(run, prepared.captured.result.calls);
    return result_of({prepared.request, run, walk_roots(run, prepared.steps)});
}

int replay(const ReplayOptions& options)
{
    // Nothing runs before all cases are known to be sound.
    std::vector<Prepared> cases;
    for (const std::string& file : options.files) {
        const std::string name = name_of_document(file);
        Prepared& next         = cases.emplace_back();
        next.file              = &file;
        next.captured          = parse_case(name, read_bytes(file));
        next.request =
            parse_document(name + ", document", next.captured.document, next.captured.read_options);
    }
    LibraryOptions library_options      = options.library;
    library_options.shows_sibling_calls = false;
    const MapLibrary library(library_options);
    for (Prepared& prepared : cases)
        prepared.steps = plan_walks(prepared.request, library);

    int status = exit_mapped;
    for (const Prepared& prepared : cases) {
        const CaseResult& expected = prepared.captured.result;
        const CaseResult got       = run_case(prepared);
        std::string text;
        for (const auto& [section, a, b] : {std::tuple{"calls", &expected.calls, &got.calls},
                                            std::tuple{"output", &expected.output, &got.output},
                                            std::tuple{"status", &expected.status, &got.status}})
            if (const std::string lines = difference(*a, *b); !lines.empty())
                text += fmt::format("  {}:\n{}", section, lines);
        fmt::print("{}: {}\n{}", name_of_document(*prepared.file),
                   text.empty() ? "as captured" : "differs (- captured, + now)", text);
        if (!text.empty())
            status = exit_differs;
    }
    return status;
}

} // namespace

void add_replay_command(CLI::App& app, Command& chosen)
{
    auto options   = std::make_shared<ReplayOptions>();
    CLI::App* verb = app.add_subcommand(
        "replay", "Run cases that map --capture has written, and show what comes out otherwise");
    verb->add_option("FILE", options->files, "Case files; - is standard input")
        ->required()
        ->type_name("");
    verb->add_option("--library", options->library.library,
                     "Map library to load (default: the one built or installed with this command)")
        ->type_name("FILE");
    verb->footer("Example: ymap replay tests/cases/*.case");
    verb->callback([options, &chosen] { chosen = [options] { return replay(*options); }; });
}

} // namespace ymap::host
