// Libraries that a verb loads.

#include "options.h"

#include <filesystem>
#include <system_error>

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

} // namespace ymap::host
