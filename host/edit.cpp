// `ymap edit`: an edit of a client, carried out on a native document.

#include "edit.h"

#include <string>
#include <vector>

#include <fmt/core.h>

#include "commands.h"
#include "documents.h"
#include "native_file.h"
#include "options.h"
#include "output.h"
#include "reply.h"
#include "report.h"

namespace ymap::host {

int carry_out_edit(const EditOptions& options)
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

} // namespace ymap::host
