// `ymap read`: a read of a client, carried out on native data as the agent does it.

#include "read.h"

#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <fmt/core.h>

#include "commands.h"
#include "documents.h"
#include "options.h"
#include "output.h"
#include "reply.h"
#include "report.h"

namespace ymap::host {

namespace {

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

} // namespace

int carry_out_read(const ReadOptions& options)
{
    // Nothing is walked or printed before all input is known to be sound.
    const agent::Request request =
        read_request(options.request, options.depth_limit, false, operation_codes.at(options.op));
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

} // namespace ymap::host
