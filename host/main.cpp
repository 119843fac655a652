// The command `ymap`: one subcommand a verb. Here is what they share: the version, the one line for
// a bad command line or bad input, the limit of depth, and the check that standard output took all
// that was written.

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <string>
#include <utility>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/core.h>

#include "commands.h"
#include "library.h"
#include "reader.h"
#include "text.h"

namespace {

/// A line for a person; where nobody can read it, the exit status has to do.
void complain(const std::string& line)
{
    std::fputs((line + "\n").c_str(), stderr);
}

} // namespace

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
    add_map_command(app, chosen);
    add_table_command(app, chosen);
    add_replay_command(app, chosen);
    add_read_command(app, chosen);
    add_edit_command(app, chosen);
    add_serve_command(app, chosen);

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
    } catch (const ymap::formats::InputError& error) {
        complain(error.what());
    } catch (const std::exception& error) {
        complain(fmt::format("ymap: {}", ymap::data::for_message(error.what())));
    }
    return exit_bad_input;
}
