// `ymap map`: documents in, paths of the other model out.

#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "commands.h"
#include "document.h"
#include "library.h"
#include "output.h"
#include "run.h"
#include "walk.h"

namespace ymap::host {

namespace {

struct MapOptions {
    std::vector<std::string> documents;
    std::string              op;
    std::string              format = "table";
    std::string              log;
    uint32_t                 depth_limit = 64;
    bool                     calls       = false;
    bool                     trace       = false;
    LibraryOptions           library;
};

const std::map<std::string, uint32_t> op_codes = {
    {"get", MAP_OP_GET}, {"get-config", MAP_OP_GET_CONFIG}, {"edit", MAP_OP_EDIT}};

/// Reports on standard error what went wrong, a line each; tells whether anything did.
bool report(const Mapping& mapping)
{
    const std::string& document = mapping.request.document;
    bool               failed   = !mapping.run.faults().empty();
    for (const Walk& walk : mapping.walks) {
        if (walk.status == MAP_OK)
            continue;
        failed = true;
        fmt::print(stderr, "{}{}: walk of /{} returned {}{}\n", document,
                   walk.line != 0 ? fmt::format(":{}", walk.line) : "", walk.model_root->name,
                   status_text(walk.status),
                   walk.tag ? fmt::format(", offending tag '{}'", *walk.tag) : "");
    }
    for (const std::string& fault : mapping.run.faults())
        fmt::print(stderr, "{}: broken contract: {}\n", document, fault);
    return failed;
}

void print_trace(const ozk::Run& run)
{
    const std::vector<std::string> lines = run.trace_lines();
    if (run.trace_index() > lines.size())
        fmt::print(stderr, "({} earlier trace lines are lost)\n", run.trace_index() - lines.size());
    for (const std::string& line : lines)
        fmt::print(stderr, "{}\n", line);
}

void print(const std::string& text)
{
    std::fwrite(text.data(), 1, text.size(), stdout);
}

void print_mapping(const Mapping& mapping, const MapOptions& options, bool is_first)
{
    const bool has_heading = options.documents.size() > 1;
    if (options.format == "json") {
        print((is_first ? "" : ",\n") + json_text(mapping, options.calls));
    } else if (options.format == "xml") {
        if (options.calls)
            fmt::print(stderr, "{}", calls_text(mapping));
        if (has_heading)
            print(fmt::format("{}<!-- {} -->\n", is_first ? "" : "\n", mapping.request.document));
        print(xml_text(mapping));
    } else {
        if (has_heading)
            print(fmt::format("{}{}:\n", is_first ? "" : "\n", mapping.request.document));
        if (options.calls)
            print(calls_text(mapping) + "\n");
        print(table_text(mapping));
    }
}

int map_documents(const MapOptions& options)
{
    ReadOptions read_options;
    read_options.depth_limit = options.depth_limit;
    if (!options.op.empty())
        read_options.op_code = op_codes.at(options.op);

    // Nothing is walked or printed before all input is known to be sound.
    std::vector<Request> requests;
    for (const std::string& document : options.documents)
        requests.push_back(read_document(document, read_options));
    const MapLibrary               library(options.library);
    std::vector<std::vector<Step>> plans;
    for (const Request& request : requests)
        plans.push_back(plan_walks(request, library));

    int status = exit_mapped;
    if (options.format == "json")
        print("[\n");
    for (size_t i = 0; i < requests.size(); ++i) {
        ozk::Run run(requests[i].op_code);
        run.record_calls(options.calls);
        run.set_trace(options.trace);
        run.set_log_stream(stderr);
        run.set_level(MAP_LOG_ERROR, !options.log.empty());
        run.set_level(MAP_LOG_TRACE, options.log == "trace");
        const Mapping mapping{requests[i], run, walk_roots(run, plans[i])};
        if (options.trace)
            print_trace(run);
        print_mapping(mapping, options, i == 0);
        std::fflush(stdout); // so that reports stand behind what they are about
        if (report(mapping))
            status = exit_walk_error;
    }
    if (options.format == "json")
        print("\n]\n");
    return status;
}

} // namespace

void add_map_command(CLI::App& app, Command& chosen)
{
    auto      options = std::make_shared<MapOptions>();
    CLI::App* verb = app.add_subcommand("map", "Map documents and print the paths that come of it");
    verb->add_option("DOCUMENT", options->documents,
                     "NETCONF <rpc> with <get>, <get-config> or <edit-config>, or a bare data "
                     "tree; - is standard input")
        ->required()
        ->type_name("");
    verb->add_option("--op", options->op, "Operation on bare data trees")
        ->check(CLI::IsMember(op_codes));
    verb->add_option("--format", options->format, "Form of the output")
        ->check(CLI::IsMember({"table", "xml", "json"}))
        ->capture_default_str();
    verb->add_flag("--calls", options->calls,
                   "Print every call of the framework, ahead of the paths (with xml: on standard "
                   "error)");
    verb->add_option("--log", options->log, "Print the log on standard error, up to this level")
        ->check(CLI::IsMember({"error", "trace"}));
    verb->add_flag("--trace", options->trace, "Print the trace buffer on standard error");
    verb->add_option("--depth-limit", options->depth_limit,
                     "Levels that a document may be nested, those of NETCONF included")
        ->check(CLI::Range(uint32_t{1}, MAX_DEPTH_LIMIT))
        ->capture_default_str();
    add_library_options(*verb, options->library);
    verb->footer("Example: ymap map --calls examples/edit-create.xml");
    verb->callback([options, &chosen] { chosen = [options] { return map_documents(*options); }; });
}

} // namespace ymap::host
