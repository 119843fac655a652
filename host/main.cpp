// The command `ymap`: the command line, with a subcommand for each verb, the one line for a bad one
// or for bad input, and the check that standard output took all that was written.

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/core.h>

#include "commands.h"
#include "models.h"
#include "reader.h"
#include "text.h"

namespace ymap::host {

namespace {

/// A line for a person; where nobody can read it, the exit status has to do.
void complain(const std::string& line)
{
    std::fputs((line + "\n").c_str(), stderr);
}

/// What the command line asks for; its result is the exit status.
using Command = std::function<int()>;

/// A subcommand, and what it puts its options into.
template <typename Options>
struct Verb {
    CLI::App& app;
    Options& options;
};

/// Adds a verb; if the command line asks for it, `run` with its options is what is `chosen`.
template <typename Options>
Verb<Options> add_verb(CLI::App& app, Command& chosen, const char* name, const char* description,
                       int (*run)(const Options&))
{
    CLI::App& verb = *app.add_subcommand(name, description);
    auto options   = std::make_shared<Options>();
    verb.callback([=, &chosen] { chosen = [=] { return run(*options); }; });
    return {verb, *options};
}

/// Only the map library can be chosen; the siblings are the stand-ins.
void add_library_option(CLI::App& verb, LibraryOptions& options)
{
    verb.add_option("--library", options.library,
                    "Map library to load (default: the one built or installed with this command)")
        ->type_name("FILE");
}

void add_library_options(CLI::App& verb, LibraryOptions& options)
{
    add_library_option(verb, options);
    verb.add_option("--siblings", options.siblings,
                    "Library with the augment entry points of other models (default: a stand-in "
                    "that prints each call)")
        ->type_name("FILE");
}

/// `calls_help` says where the calls go, which is the verb's affair.
void add_diagnostics_options(CLI::App& verb, DiagnosticsOptions& options,
                             const std::string& calls_help)
{
    verb.add_flag("--calls", options.calls, calls_help);
    verb.add_option("--log", options.log, "Print the log on standard error, up to this level")
        ->check(CLI::IsMember({"error", "trace"}));
    verb.add_flag("--trace", options.trace, "Print the trace buffer on standard error");
}

/// The limit of depth of the documents that a verb reads.
void add_depth_limit_option(CLI::App& verb, uint32_t& limit)
{
    verb.add_option("--depth-limit", limit,
                    "Levels that a document may be nested, those of NETCONF included")
        ->check(CLI::Range(uint32_t{1}, formats::MAX_DEPTH_LIMIT))
        ->capture_default_str();
}

void add_map(CLI::App& app, Command& chosen)
{
    const auto [verb, options] = add_verb(
        app, chosen, "map", "Map documents and print the paths that come of it", map_documents);
    verb.add_option("DOCUMENT", options.documents,
                    "NETCONF <rpc> with <get>, <get-config> or <edit-config>, or a bare data "
                    "tree; - is standard input. Whatever of a request the map doesn't carry out "
                    "is told on standard error, a line each")
        ->required()
        ->type_name("");
    verb.add_option("--op", options.op, "Operation for which bare data trees are mapped")
        ->check(CLI::IsMember(operation_codes));
    verb.add_option("--format", options.format, "Form of the output")
        ->check(CLI::IsMember({"table", "xml", "json"}))
        ->capture_default_str();
    verb.add_flag("--keep-going", options.keep_going,
                  "Go on after a document that can't be read; the exit status is still 2");
    add_diagnostics_options(verb, options.diagnostics,
                            "Print every call of the framework, ahead of the paths (with xml: on "
                            "standard error)");
    add_depth_limit_option(verb, options.depth_limit);
    verb.add_option("--capture", options.capture,
                    "Write the run to a case file, for ymap replay: document, switches, and what "
                    "--format json --calls prints")
        ->type_name("FILE");
    add_library_options(verb, options.library);
    verb.footer("Example: ymap map --calls examples/edit-create.xml");
}

void add_read(CLI::App& app, Command& chosen)
{
    const auto [verb, options] = add_verb(
        app, chosen, "read", "Carry out a read on native data, both passes, and print the reply",
        carry_out_read);
    verb.add_option("REQUEST", options.request,
                    "NETCONF <rpc> with <get> or <get-config>, or a bare data tree as a filter; - "
                    "is standard input. Whatever nobody serves is told on standard error, a line "
                    "each")
        ->required()
        ->type_name("");
    verb.add_option("--data", options.data,
                    "Native data in XML or JSON: a bare data tree, a <data>, a <config> or a whole "
                    "<rpc-reply>; several may have the same root")
        ->required()
        ->type_name("NATIVE");
    verb.add_option("--op", options.op, "Operation for which a bare data tree is read")
        ->check(CLI::IsMember({"get", "get-config"}))
        ->capture_default_str();
    verb.add_option("--format", options.format,
                    "Form of the reply: NETCONF's, or JSON as of RFC 7951")
        ->check(CLI::IsMember({"xml", "json"}))
        ->capture_default_str();
    add_diagnostics_options(verb, options.diagnostics,
                            "Print every call of the framework on standard error, pass by pass");
    add_depth_limit_option(verb, options.depth_limit);
    add_library_options(verb, options.library);
    verb.footer("Example: ymap read examples/read-state-one.xml --data "
                "examples/native-operational.xml");
}

void add_edit(CLI::App& app, Command& chosen)
{
    const auto [verb, options] = add_verb(
        app, chosen, "edit", "Carry out an edit on a native document and print it", carry_out_edit);
    verb.add_option("REQUEST", options.request,
                    "NETCONF <rpc> with <edit-config>, or a bare data tree; - is standard input. "
                    "Values go over unchanged: that of 'enabled' becomes that of 'shutdown', not "
                    "its opposite. An edit that is refused prints no document")
        ->required()
        ->type_name("");
    verb.add_option("--data", options.data,
                    "Native configuration in XML or JSON: a bare data tree, a <data>, a <config> "
                    "or a whole <rpc-reply>")
        ->required()
        ->type_name("NATIVE");
    verb.add_option("--unmapped", options.unmapped,
                    "What to do with an edit that holds something the map doesn't carry out, such "
                    "as 'type': refuse it, or drop that and say so on standard error")
        ->check(CLI::IsMember({"refuse", "drop"}))
        ->capture_default_str();
    verb.add_flag("--reply", options.reply,
                  "Print the reply, <ok/> or <rpc-error>, in place of the document");
    add_diagnostics_options(verb, options.diagnostics,
                            "Print every call of the framework on standard error");
    add_depth_limit_option(verb, options.depth_limit);
    add_library_options(verb, options.library);
    verb.footer("Example: ymap edit examples/edit-description.xml --data "
                "examples/native-configuration.xml");
}

void add_table(CLI::App& app, Command& chosen)
{
    const auto [verb, options] =
        add_verb(app, chosen, "table",
                 "Print what the map library makes of each node of its schema", print_table);
    std::vector<std::string> models;
    for (const agent::ModelRoot& root : agent::model_roots())
        if (models.empty() || models.back() != agent::prefix_of(root.ns_uri))
            models.emplace_back(agent::prefix_of(root.ns_uri));
    verb.add_option("PATH", options.path, "Only this node and those below it")->type_name("");
    verb.add_option("--model", options.model, "Only the model with this prefix")
        ->check(CLI::IsMember(models));
    verb.add_option(
            "--format", options.format,
            "Form of the output: a tree that fits a terminal; a table with all there is to tell, "
            "or one for other programs; the map as a picture, for Graphviz; what clients are told: "
            "the YANG module of deviations, or that of one native --model")
        ->check(CLI::IsMember({"tree", "text", "markdown", "csv", "dot", "deviations", "yang"}))
        ->capture_default_str();
    verb.add_flag("--mapped", options.mapped, "Only nodes that map to a path");
    add_library_option(verb, options.library);
    verb.footer("Example: ymap table --mapped /interfaces-state");
}

void add_replay(CLI::App& app, Command& chosen)
{
    const auto [verb, options] =
        add_verb(app, chosen, "replay",
                 "Run cases that map --capture has written, and show what comes out otherwise",
                 replay_cases);
    verb.add_option("FILE", options.files, "Case files; - is standard input")
        ->required()
        ->type_name("");
    verb.add_flag("--update", options.update, "Write what comes out now to cases that differ");
    add_library_option(verb, options.library);
    verb.footer("Example: ymap replay tests/transcripts/cases/*.json");
}

void add_serve(CLI::App& app, Command& chosen)
{
    const auto [verb, options] = add_verb(
        app, chosen, "serve",
        "Serve a NETCONF session on standard input and output, as a subsystem of OpenSSH", serve);
    verb.add_option("--running", options.running,
                    "Running configuration: native data in XML; edits replace the file")
        ->required()
        ->type_name("FILE");
    verb.add_option("--state", options.state,
                    "State data: native data in XML or JSON, read whenever it has changed")
        ->type_name("FILE");
    verb.add_option("--unmapped", options.unmapped,
                    "What becomes of an edit that holds what the map doesn't carry out, such as "
                    "'type': it is refused, or that is dropped and told in the log")
        ->check(CLI::IsMember({"refuse", "drop"}))
        ->capture_default_str();
    verb.add_flag("--read-only", options.read_only, "Refuse all that changes or locks the data");
    verb.add_option("--max-message", options.session.max_message, "Bytes that a message may have")
        ->check(CLI::Range(size_t{1} << 10, size_t{1} << 30))
        ->capture_default_str();
    verb.add_option("--idle-timeout", options.session.idle_time,
                    "Seconds between two messages after which a session ends; 0 is never")
        ->check(CLI::Range(0, 1'000'000))
        ->capture_default_str();
    verb.add_option("--frame-timeout", options.session.frame_time,
                    "Seconds that a client may be silent within a message")
        ->check(CLI::Range(1, 1'000'000))
        ->capture_default_str();
    verb.add_option("--hello-timeout", options.session.hello_time,
                    "Seconds that a client has for its hello")
        ->check(CLI::Range(1, 1'000'000))
        ->capture_default_str();
    verb.add_option("--write-timeout", options.session.write_time,
                    "Seconds that a client may take nothing of an answer")
        ->check(CLI::Range(1, 1'000'000))
        ->capture_default_str();
    verb.add_option("--log", options.log, "Write the map's own log too, up to this level")
        ->check(CLI::IsMember({"error", "trace"}));
    verb.add_flag("--log-to-stderr", options.log_to_stderr,
                  "Write the log to standard error in place of the system's log");
    add_depth_limit_option(verb, options.depth_limit);
    add_library_options(verb, options.library);
    verb.footer("Example: ymap serve --running native-configuration.xml --state "
                "native-operational.xml");
}

} // namespace

} // namespace ymap::host

int main(int argc, char** argv)
{
    using namespace ymap::host;

    CLI::App app{"Maps NETCONF requests on ietf-interfaces to a router's native models, and native "
                 "data back,\nby walking a map library as the router's agent does.",
                 "ymap"};
    app.set_version_flag("--version", "ymap " YMAP_VERSION);
    app.set_help_all_flag("--help-all", "Print the help of all verbs and exit");
    app.require_subcommand(1);

    Command chosen;
    add_map(app, chosen);
    add_table(app, chosen);
    add_replay(app, chosen);
    add_read(app, chosen);
    add_edit(app, chosen);
    add_serve(app, chosen);

    std::string footer;
    const std::vector<const CLI::App*> verbs =
        std::as_const(app).get_subcommands([](const CLI::App*) { return true; });
    for (const CLI::App* verb : verbs)
        footer += verb->get_footer() + "\n";
    app.footer(footer + "\nExit status: 0 mapped, 1 a walk returned a status, the data refused an "
                        "edit or a case\ndiffers, 2 the input or the command line is at fault.");

    std::string help = "see ymap --help";
    try {
        // The parser would only say that a verb is missing, and call it a subcommand.
        if (argc < 2)
            throw ymap::formats::InputError("ymap", 0, "a verb is missing; " + help);
        const std::string first = argv[1];
        const bool is_option    = first.starts_with('-');
        if (is_option ? app.get_option_no_throw(first) == nullptr
                      : std::ranges::find(verbs, first, &CLI::App::get_name) == verbs.end())
            throw ymap::formats::InputError(
                "ymap", 0,
                fmt::format("no {} '{}'; {}", is_option ? "option" : "verb", first, help));
        if (!is_option)
            help = fmt::format("see ymap {} --help", first);
        app.parse(argc, argv);
        const int status = chosen();
        if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
            complain(fmt::format("ymap: cannot write the output: {}", std::strerror(errno)));
            return exit_bad_input;
        }
        return status;
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0)
            return app.exit(error); // --help, --version
        complain(fmt::format("ymap: {}; {}", ymap::data::for_message(error.what()), help));
    } catch (const UsageError& error) {
        complain(fmt::format("ymap: {}; {}", error.what(), help));
    } catch (const ymap::formats::InputError& error) {
        complain(error.what());
    } catch (const std::exception& error) {
        complain(fmt::format("ymap: {}", ymap::data::for_message(error.what())));
    }
    return exit_bad_input;
}
