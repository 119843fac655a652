// `ymap map`: documents in, paths of the other model out.

#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "capture.h"
#include "commands.h"
#include "diagnostics.h"
#include "document.h"
#include "input_error.h"
#include "library.h"
#include "output.h"
#include "run.h"
#include "walk.h"

namespace ymap::host {

namespace {

struct MapOptions {
    std::vector<std::string> documents;
    std::string op;
    std::string format = "table";
    std::string capture; ///< case file to write; empty: none
    uint32_t depth_limit = ReadOptions{}.depth_limit;
    DiagnosticsOptions diagnostics;
    LibraryOptions library;
};

void print(const std::string& text)
{
    std::fwrite(text.data(), 1, text.size(), stdout);
}

void print_mapping(const Mapping& mapping, const MapOptions& options, bool is_first)
{
    const bool has_heading = options.documents.size() > 1;
    if (options.format == "json") {
        print((is_first ? "" : ",\n") + json_text(mapping, options.diagnostics.calls));
    } else if (options.format == "xml") {
        if (options.diagnostics.calls)
            fmt::print(stderr, "{}", calls_text(mapping.run));
        if (has_heading)
            print(fmt::format("{}<!-- {} -->\n", is_first ? "" : "\n", mapping.request.document));
        print(xml_text(mapping));
    } else {
        if (has_heading)
            print(fmt::format("{}{}:\n", is_first ? "" : "\n", mapping.request.document));
        if (options.diagnostics.calls)
            print(calls_text(mapping.run) + "\n");
        print(table_text(mapping));
    }
}

int map_documents(const MapOptions& options)
{
    ReadOptions read_options;
    read_options.depth_limit = options.depth_limit;
    if (!options.op.empty())
        read_options.op_code = operation_codes.at(options.op);

    Case captured;
    captured.read_options = read_options;
    captured.diagnostics  = options.diagnostics;
    if (!options.capture.empty()) {
        if (options.documents.size() != 1)
            throw InputError("ymap: --capture takes one document");
        if (!options.library.siblings.empty())
            throw InputError("ymap: --capture sees the calls of the stand-in siblings only: it "
                             "doesn't go with --siblings");
        std::error_code error;
        if (std::filesystem::equivalent(options.capture, options.documents[0], error))
            throw InputError(
                fmt::format("{}: the case file is the document itself", options.capture));
        captured.document = read_bytes(options.documents[0]);
    }

    // Nothing is walked or printed before all input is known to be sound.
    std::vector<Request> requests;
    for (const std::string& document : options.documents)
        requests.push_back(
            options.capture.empty()
                ? read_document(document, read_options)
                : parse_document(name_of_document(document), captured.document, read_options));
    const MapLibrary library(options.library);
    std::vector<std::vector<Step>> plans;
    plans.reserve(requests.size());
    for (const Request& request : requests)
        plans.push_back(plan_walks(request, library));

    int status = exit_mapped;
    if (options.format == "json")
        print("[\n");
    for (size_t i = 0; i < requests.size(); ++i) {
        ozk::Run run(requests[i].op_code);
        switch_on(run, options.diagnostics);
        run.record_calls(options.diagnostics.calls || !options.capture.empty());
        const Mapping mapping{requests[i], run, walk_roots(run, plans[i])};
        if (options.diagnostics.trace)
            print_trace(run);
        print_mapping(mapping, options, i == 0);
        std::fflush(stdout); // so that reports stand behind what they are about
        const bool failed = report_walks(requests[i].document, mapping.walks);
        if (report_faults(requests[i].document, run) || failed)
            status = exit_walk_error;
        if (!options.capture.empty())
            captured.result = result_of(mapping);
    }
    if (options.format == "json")
        print("\n]\n");
    if (!options.capture.empty())
        write_bytes(options.capture, to_text(captured));
    return status;
}

} // namespace

void add_map_command(CLI::App& app, Command& chosen)
{
    auto options   = std::make_shared<MapOptions>();
    CLI::App* verb = app.add_subcommand("map", "Map documents and print the paths that come of it");
    verb->add_option("DOCUMENT", options->documents,
                     "NETCONF <rpc> with <get>, <get-config> or <edit-config>, or a bare data "
                     "tree; - is standard input")
        ->required()
        ->type_name("");
    verb->add_option("--op", options->op, "Operation on bare data trees")
        ->check(CLI::IsMember(operation_codes));
    verb->add_option("--format", options->format, "Form of the output")
        ->check(CLI::IsMember({"table", "xml", "json"}))
        ->capture_default_str();
    add_diagnostics_options(*verb, options->diagnostics,
                            "Print every call of the framework, ahead of the paths (with xml: on "
                            "standard error)");
    add_depth_limit_option(*verb, options->depth_limit);
    verb->add_option("--capture", options->capture,
                     "Write the run to a case file, for ymap replay: document, switches, calls, "
                     "paths and status")
        ->type_name("FILE");
    add_library_options(*verb, options->library);
    verb->footer("Example: ymap map --calls examples/edit-create.xml");
    verb->callback([options, &chosen] { chosen = [options] { return map_documents(*options); }; });
}

} // namespace ymap::host
