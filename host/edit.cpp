// `ymap edit`: an edit of a client, carried out on a native document.

#include "edit.h"

#include <memory>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "commands.h"
#include "documents.h"
#include "native_file.h"
#include "options.h"
#include "output.h"
#include "reply.h"
#include "report.h"

namespace ymap::host {

namespace {

struct EditVerbOptions {
    std::string request;
    std::string data;
    std::string unmapped = "refuse";
    bool reply           = false;
    uint32_t depth_limit = formats::DEFAULT_DEPTH_LIMIT;
    DiagnosticsOptions diagnostics;
    LibraryOptions library;
};

int edit(const EditVerbOptions& options)
{
    agent::Request request = read_request(options.request, options.depth_limit, true, MAP_OP_EDIT);
    const NativeData natives({&options.data, 1}, options.depth_limit);
    const agent::Native native      = natives.documents().front();
    const agent::MapLibrary library = load_library(options.library);
    const agent::Edited edited =
        agent::edit(request, native, library, {.drops_unmapped = options.unmapped == "drop"},
                    hooks_for(options.diagnostics, true, true));

    const std::string& name = request.document.name;
    report_notes(name, edited.notes);
    const bool is_refused = report_errors(name, edited.errors);
    const bool is_broken  = report_faults(name, edited.faults);
    if (options.reply) {
        formats::Output out(print);
        netconf::Reply reply(out, request.document, request.rpc(), formats::Layout::lines);
        if (is_refused)
            reply.errors(edited.errors);
        else
            reply.ok();
        out.flush();
    } else if (!is_refused && request.test_only) {
        fmt::print(stderr, "{}: the edit would be carried out; test-only: no document\n", name);
    } else if (!is_refused && !is_broken) {
        formats::Output out(print);
        netconf::write_native(out, *native.top);
    }
    return is_refused || is_broken ? exit_walk_error : exit_mapped;
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
    verb->add_option("--data", options->data,
                     "Native configuration in XML or JSON: a bare data tree, a <data>, a <config> "
                     "or a whole <rpc-reply>")
        ->required()
        ->type_name("NATIVE");
    verb->add_option("--unmapped", options->unmapped,
                     "What to do with an edit that holds something the map doesn't carry out, such "
                     "as 'type': refuse it, or drop that and say so on standard error")
        ->check(CLI::IsMember({"refuse", "drop"}))
        ->capture_default_str();
    verb->add_flag("--reply", options->reply,
                   "Print the reply, <ok/> or <rpc-error>, in place of the document");
    add_diagnostics_options(*verb, options->diagnostics,
                            "Print every call of the framework on standard error");
    add_depth_limit_option(*verb, options->depth_limit);
    add_library_options(*verb, options->library);
    verb->footer("Example: ymap edit examples/edit-description.xml --data "
                 "examples/native-configuration.xml");
    verb->callback([options, &chosen] { chosen = [options] { return edit(*options); }; });
}

} // namespace ymap::host
