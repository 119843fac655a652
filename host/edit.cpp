// `ymap edit`: an edit of a client, carried out on a native document.

#include "edit.h"

#include <array>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "commands.h"
#include "diagnostics.h"
#include "input_error.h"
#include "native.h"
#include "walk.h"

namespace ymap::host {

namespace {

struct EditVerbOptions {
    std::string request;
    std::string data;
    uint32_t depth_limit = ReadOptions{}.depth_limit;
    DiagnosticsOptions diagnostics;
    LibraryOptions library;
};

constexpr std::array<std::string_view, 2> interface_configuration_key = {"active",
                                                                         "interface-name"};
/// The keys of the native lists that an edit can reach.
constexpr ozk::ListKey list_keys[] = {
    {NS_NQ_IFMGR_CFG, "/interface-configurations/interface-configuration",
     interface_configuration_key},
};

/// An operation of a root that covers all below it holds for the named entries alone: the map has
/// no path for a root.
void warn_of_root_operations(const Request& request)
{
    for (const RequestRoot& root : request.roots) {
        const OzkMapNode& node = root.tree.root();
        const auto edit        = static_cast<ozk::Edit>(node.edit);
        if (edit == ozk::Edit::replace || edit == ozk::Edit::erase || edit == ozk::Edit::remove)
            fmt::print(stderr,
                       "{}:{}: the operation on /{} reaches the entries that the request names and "
                       "no others\n",
                       request.document, node.line, node.tag);
    }
}

int edit(const EditVerbOptions& options)
{
    const Request request =
        read_client_request(options.request, options.depth_limit, true, MAP_OP_EDIT);
    NativeDocument document = read_native_document(options.data, options.depth_limit);
    const MapLibrary library(options.library);
    const std::vector<Step> steps = plan_walks(request, library);

    ozk::Run run(request.op_code);
    switch_on(run, options.diagnostics);
    const std::vector<Walk> walks = walk_roots(run, steps);
    if (options.diagnostics.calls)
        fmt::print(stderr, "{}", calls_text(run));
    if (options.diagnostics.trace)
        print_trace(run);
    const bool failed = report_walks(request.document, walks);
    if (report_faults(request.document, run) || failed)
        return exit_walk_error;

    for (const ozk::AddedPath& added : run.added()) {
        const std::string_view path = added.path.substr(1);
        const ModelRoot* root       = find_root(added.ns_uri, path.substr(0, path.find('/')));
        if (root != document.model_root)
            throw InputError(fmt::format("{}: the edit is of {} ({}), not of /{} ({})",
                                         document.name, added.path, prefix_of(added.ns_uri),
                                         document.model_root->name,
                                         prefix_of(document.model_root->ns_uri)));
    }
    warn_of_root_operations(request);
    std::string text;
    try {
        append_xml(text, ozk::apply_edit(std::move(document.root), run.added(), list_keys), "", 0);
    } catch (const ozk::EditError& error) {
        fmt::print(stderr, "{}{}: {}\n", request.document,
                   error.line != 0 ? fmt::format(":{}", error.line) : "",
                   for_message(error.what()));
        return exit_walk_error;
    }
    std::fwrite(text.data(), 1, text.size(), stdout);
    return exit_mapped;
}

} // namespace

void add_edit_command(CLI::App& app, Command& chosen)
{
    auto options   = std::make_shared<EditVerbOptions>();
    CLI::App* verb = app.add_subcommand("edit", "Carry out an edit on a native document and "
                                                "print it");
    verb->add_option("REQUEST", options->request,
                     "NETCONF <rpc> with <edit-config>, or a bare data tree; - is standard input. "
                     "Values go over unchanged: that of 'enabled' becomes that of 'shutdown', not "
                     "its opposite. An edit that is refused prints no document")
        ->required()
        ->type_name("");
    verb->add_option("--data", options->data, "Native configuration, a bare data tree")
        ->required()
        ->type_name("NATIVE");
    add_diagnostics_options(*verb, options->diagnostics,
                            "Print every call of the framework on standard error");
    add_depth_limit_option(*verb, options->depth_limit);
    add_library_options(*verb, options->library);
    verb->footer("Example: ymap edit examples/edit-description.xml --data "
                 "examples/native-configuration.xml");
    verb->callback([options, &chosen] { chosen = [options] { return edit(*options); }; });
}

} // namespace ymap::host
