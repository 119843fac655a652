// `ymap read`: a read of a client, carried out on native data as the agent does it.

#include "read.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "commands.h"
#include "documents.h"
#include "options.h"
#include "output.h"
#include "reply.h"
#include "report.h"

namespace ymap::host {

namespace {

struct ReadVerbOptions {
    std::string request;
    std::vector<std::string> data;
    std::string op       = "get";
    std::string format   = "xml";
    uint32_t depth_limit = formats::DEFAULT_DEPTH_LIMIT;
    DiagnosticsOptions diagnostics;
    LibraryOptions library;
};

const std::map<std::string, uint32_t> read_codes = {{"get", MAP_OP_GET},
                                                    {"get-config", MAP_OP_GET_CONFIG}};

formats::JsonType json_type(const OzkMapNode& leaf)
{
    switch (agent::leaf_type(leaf)) {
    case agent::LeafType::unknown: return formats::JsonType::unknown;
    case agent::LeafType::string: return formats::JsonType::string;
    case agent::LeafType::boolean: return formats::JsonType::boolean;
    case agent::LeafType::integer: return formats::JsonType::integer;
    }
    return formats::JsonType::unknown;
}

/// What the map library knows of containers and lists, and the tables of the rest.
formats::JsonSchema json_schema(const agent::MapLibrary& library)
{
    using Paths = std::set<std::pair<std::string_view, std::string>>;
    Paths containers, lists;
    for (const agent::ModelRoot& root : agent::model_roots())
        if (library.root_walker(root) != nullptr)
            for (const data::ExploredNode& node : library.schema(root).explored()) {
                if (node.kind != data::NodeKind::leaf)
                    containers.emplace(root.ns_uri, node.path);
                if (node.kind == data::NodeKind::list)
                    lists.emplace(root.ns_uri, node.path);
            }
    const auto is_in = [](Paths paths) {
        return [paths = std::move(paths)](const char* ns_uri, const std::string& path) {
            return paths.contains({ozk::text(ns_uri), path});
        };
    };
    return {[](const char* ns_uri) { return agent::module_of(ozk::text(ns_uri)); }, json_type,
            is_in(std::move(containers)), is_in(std::move(lists))};
}

int read(const ReadVerbOptions& options)
{
    // Nothing is walked or printed before all input is known to be sound.
    const agent::Request request =
        read_request(options.request, options.depth_limit, false, read_codes.at(options.op));
    const NativeData natives(options.data, options.depth_limit);
    const agent::MapLibrary library = load_library(options.library);
    const agent::Reading reading    = agent::read(request, natives.documents(), library,
                                                  hooks_for(options.diagnostics, true, true));

    const std::string& name = request.document.name;
    const bool failed       = report_walks(name, reading.walks);
    if (!failed) {
        formats::Output out(print);
        if (options.format == "json") {
            write_json(out, reading.reply.top(), json_schema(library));
            out << "\n";
        } else {
            netconf::Reply(out, request.document, request.rpc(), formats::Layout::lines)
                .data(reading.reply.top());
        }
        out.flush();
    }
    report_notes(name, reading.notes);
    for (const agent::Native& native : natives.documents())
        report_notes(native.document->name, agent::find_unfit(*native.top, library));
    return report_faults(name, reading.faults) || failed ? exit_walk_error : exit_mapped;
}

} // namespace

void add_read_command(CLI::App& app, Command& chosen)
{
    auto options   = std::make_shared<ReadVerbOptions>();
    CLI::App* verb = app.add_subcommand("read", "Carry out a read on native data, both passes, "
                                                "and print the reply");
    verb->add_option("REQUEST", options->request,
                     "NETCONF <rpc> with <get> or <get-config>, or a bare data tree as a filter; - "
                     "is standard input. Whatever nobody serves is told on standard error, a line "
                     "each")
        ->required()
        ->type_name("");
    verb->add_option(
            "--data", options->data,
            "Native data in XML or JSON: a bare data tree, a <data>, a <config> or a whole "
            "<rpc-reply>; several may have the same root")
        ->required()
        ->type_name("NATIVE");
    verb->add_option("--op", options->op, "Operation for which a bare data tree is read")
        ->check(CLI::IsMember(read_codes))
        ->capture_default_str();
    verb->add_option("--format", options->format,
                     "Form of the reply: NETCONF's, or JSON as of RFC 7951")
        ->check(CLI::IsMember({"xml", "json"}))
        ->capture_default_str();
    add_diagnostics_options(*verb, options->diagnostics,
                            "Print every call of the framework on standard error, pass by pass");
    add_depth_limit_option(*verb, options->depth_limit);
    add_library_options(*verb, options->library);
    verb->footer("Example: ymap read examples/read-state-one.xml --data "
                 "examples/native-operational.xml");
    verb->callback([options, &chosen] { chosen = [options] { return read(*options); }; });
}

} // namespace ymap::host
