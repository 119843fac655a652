// Options that several verbs have.

#include "options.h"

#include <filesystem>
#include <system_error>

#include <CLI/CLI.hpp>

namespace ymap::host {

namespace {

namespace fs = std::filesystem;

/// The file that was built or installed with this executable.
std::string beside_executable(const char* built, const char* installed)
{
    std::error_code error;
    const fs::path folder = fs::read_symlink("/proc/self/exe", error).parent_path();
    const fs::path path   = (folder / built).lexically_normal();
    return (fs::exists(path, error) ? path : (folder / installed).lexically_normal()).string();
}

} // namespace

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

agent::MapLibrary load_library(const LibraryOptions& options)
{
    const std::string library = !options.library.empty()
                                    ? options.library
                                    : beside_executable(YMAP_LIBRARY_BUILT, YMAP_LIBRARY_INSTALLED);
    const std::string siblings =
        !options.siblings.empty() ? options.siblings
                                  : beside_executable(YMAP_SIBLINGS_BUILT, YMAP_SIBLINGS_INSTALLED);
    return {library, siblings};
}

void add_diagnostics_options(CLI::App& verb, DiagnosticsOptions& options,
                             const std::string& calls_help)
{
    verb.add_flag("--calls", options.calls, calls_help);
    verb.add_option("--log", options.log, "Print the log on standard error, up to this level")
        ->check(CLI::IsMember({"error", "trace"}));
    verb.add_flag("--trace", options.trace, "Print the trace buffer on standard error");
}

void add_depth_limit_option(CLI::App& verb, uint32_t& limit)
{
    verb.add_option("--depth-limit", limit,
                    "Levels that a document may be nested, those of NETCONF included")
        ->check(CLI::Range(uint32_t{1}, formats::MAX_DEPTH_LIMIT))
        ->capture_default_str();
}

} // namespace ymap::host
