// `ymap map`: documents in, paths of the other model out.

#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include <fmt/core.h>

#include "case_file.h"
#include "commands.h"
#include "documents.h"
#include "mapping.h"
#include "options.h"
#include "report.h"

namespace ymap::host {

namespace {

/// False if it can't be printed in the form that was asked for.
bool print_mapping(const agent::Request& request, const agent::Mapping& mapping,
                   const MapOptions& options, bool is_first)
{
    const std::string& name = request.document.name;
    const bool has_heading  = options.documents.size() > 1;
    bool is_printed         = true;
    if (options.format == "json") {
        print((is_first ? "\n" : ",\n") +
              json_object(json_members(request, mapping, options.diagnostics.calls)));
    } else if (options.format == "xml") {
        if (options.diagnostics.calls)
            fmt::print(stderr, "{}", calls_text(*mapping.run));
        if (has_heading) {
            std::string heading = name; // a comment holds no two hyphens in a row
            for (size_t at; (at = heading.find("--")) != heading.npos;)
                heading.replace(at, 2, "- -");
            print(fmt::format("{}<!-- {} -->\n", is_first ? "" : "\n", heading));
        }
        formats::Output out(print);
        is_printed = write_xml_mapping(out, request, mapping);
        if (!is_printed && !mapping.ended() && !mapping.has_faults)
            fmt::print(stderr,
                       "{}: an operation on a root reaches entries that the request doesn't name: "
                       "no configuration says what it does\n",
                       name);
        out.flush();
    } else {
        if (has_heading)
            print(fmt::format("{}{}:\n", is_first ? "" : "\n", name));
        if (options.diagnostics.calls)
            print(calls_text(*mapping.run) + "\n");
        print(table_text(request, mapping));
    }
    return is_printed;
}

void check_capture(const MapOptions& options)
{
    if (options.documents.size() != 1)
        throw UsageError("--capture takes one document");
    if (!options.library.siblings.empty())
        throw UsageError("--capture sees the calls of the stand-in siblings only: it "
                         "doesn't go with --siblings");
    std::error_code error;
    if (std::filesystem::equivalent(options.capture, options.documents[0], error))
        throw formats::InputError(options.capture, 0, "the case file is the document itself");
}

} // namespace

int map_documents(const MapOptions& options)
{
    std::optional<uint32_t> op_code;
    if (!options.op.empty())
        op_code = operation_codes.at(options.op);
    const bool captures = !options.capture.empty();
    if (captures)
        check_capture(options);

    // Nothing is walked or printed before all input is known to be sound, unless it may be at
    // fault.
    int status = exit_mapped;
    std::vector<agent::Request> requests;
    std::string text;
    for (const std::string& document : options.documents) {
        try {
            formats::Source source = formats::bytes_of_file(document);
            if (captures) {
                text   = formats::read_all(source);
                source = formats::bytes_of(text);
            }
            requests.push_back(read_request(formats::name_of_file(document), source,
                                            options.depth_limit, op_code));
        } catch (const formats::InputError& error) {
            if (!options.keep_going)
                throw;
            fmt::print(stderr, "{}\n", error.what());
            status = exit_bad_input;
        }
    }
    const agent::MapLibrary library = load_library(options.library);

    DiagnosticsOptions diagnostics = options.diagnostics;
    diagnostics.calls |= captures;
    const agent::Hooks hooks = hooks_for(diagnostics, true);
    const bool is_json       = options.format == "json";
    if (is_json)
        print("[");
    bool is_first = true;
    for (agent::Request& request : requests) {
        const std::string& name      = request.document.name;
        const agent::Mapping mapping = map_request(request, library, hooks);
        const bool is_printed        = print_mapping(request, mapping, options, is_first);
        is_first                     = false;
        report_notes(name, mapping.notes);
        const bool failed     = report_walks(name, mapping.walks);
        const bool has_faults = report_faults(name, mapping.run->faults());
        if ((has_faults || failed || !is_printed) && status == exit_mapped)
            status = exit_walk_error;
        if (captures)
            write_case(
                options.capture,
                {"", text, options.op, options.depth_limit, diagnostics.log, diagnostics.trace},
                json_members(request, mapping, true));
    }
    if (is_json)
        print(is_first ? "]\n" : "\n]\n");
    return status;
}

agent::Mapping map_request(agent::Request& request, const agent::MapLibrary& library,
                           const agent::Hooks& hooks)
{
    try {
        return agent::map(request, library, hooks);
    } catch (const agent::RequestError& error) {
        throw formats::InputError(request.document.name, error.error.line, error.error.message);
    }
}

} // namespace ymap::host
