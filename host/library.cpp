// Loading of the map library and its siblings, and the table of the models' roots.

#include "library.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include <CLI/CLI.hpp>
#include <dlfcn.h>
#include <fmt/core.h>

#include "input_error.h"
#include "run.h"
#include "siblings.h"

namespace ymap::host {

namespace {

namespace fs = std::filesystem;

constexpr ModelRoot roots[] = {
    {NS_IETF_INTERFACES, "interfaces", "ymap_iq_ietf_if_ietfinterfaces_lvla_interfaces", true},
    {NS_IETF_INTERFACES, "interfaces-state", "ymap_iq_ietf_if_ietfinterfaces_lvla_interfacesstate",
     true},
    {NS_NQ_IFMGR_CFG, "global-interface-configuration",
     "ymap_qi_ietf_if_brelviknqifmgrcfg_lvla_globalinterfaceconfiguration", false},
    {NS_NQ_IFMGR_CFG, "interface-configurations",
     "ymap_qi_ietf_if_brelviknqifmgrcfg_lvla_interfaceconfigurations", false},
    {NS_NQ_PFI_IM_CMD_OPER, "interfaces", "ymap_qi_ietf_if_brelviknqpfiimcmdoper_lvla_interfaces",
     false},
};

constexpr std::pair<std::string_view, std::string_view> prefixes[] = {
    {NS_IETF_INTERFACES, "if"}, // the prefix that RFC 7223 gives the module
    {NS_IETF_INTERFACES_ACL_EXT, "acl-ext"},
    {NS_NQ_IFMGR_CFG, "nq-ifmgr-cfg"},
    {NS_NQ_PFI_IM_CMD_OPER, "nq-pfi-im-cmd-oper"},
    {NS_NQ_IP_PFILTER_CFG, "nq-ip-pfilter-cfg"},
};

/// The file that was built or installed with this executable.
std::string beside_executable(const char* built, const char* installed)
{
    std::error_code error;
    const fs::path folder = fs::read_symlink("/proc/self/exe", error).parent_path();
    const fs::path path   = (folder / built).lexically_normal();
    return (fs::exists(path, error) ? path : (folder / installed).lexically_normal()).string();
}

/// Loads a shared object. A bare name of a file in the current folder means that file, as with any
/// other file name on a command line; the loader would look for it in the system's folders only.
void* load(const std::string& path, int flags, const char* what)
{
    std::error_code error;
    const bool is_here = path.find('/') == std::string::npos && fs::exists(path, error);
    void* handle       = dlopen(is_here ? ("./" + path).c_str() : path.c_str(), flags);
    if (handle == nullptr)
        throw InputError(fmt::format("ymap: cannot load the {}: {}", what, dlerror()));
    return handle;
}

/// What the stand-in siblings call from each of their entry points.
uint32_t on_sibling_call(const char* entry_point, OzkMapCtx*, const OzkMapNode* node)
{
    ozk::Run* run = ozk::Run::current();
    return run != nullptr ? run->sibling_called(entry_point, node) : MAP_OK;
}

void load_siblings(const std::string& path, bool shows_calls)
{
    // Global, and before the map library, which looks its siblings up in the process.
    void* handle = load(path, RTLD_NOW | RTLD_GLOBAL, "sibling library");
    // A sibling library of another make has neither function, and is silent.
    if (void* symbol = dlsym(handle, "ymap_siblings_set_listener"))
        reinterpret_cast<decltype(&ymap_siblings_set_listener)>(symbol)(on_sibling_call);
    if (void* symbol = dlsym(handle, "ymap_siblings_set_stream"))
        reinterpret_cast<decltype(&ymap_siblings_set_stream)>(symbol)(shows_calls ? stderr
                                                                                  : nullptr);
}

} // namespace

std::span<const ModelRoot> model_roots()
{
    return roots;
}

const ModelRoot* find_root(std::string_view ns_uri, std::string_view name)
{
    const auto found = std::ranges::find_if(
        roots, [&](const ModelRoot& root) { return root.ns_uri == ns_uri && root.name == name; });
    return found != std::end(roots) ? found : nullptr;
}

bool is_model_namespace(std::string_view ns_uri)
{
    return std::ranges::any_of(roots, [&](const ModelRoot& root) { return root.ns_uri == ns_uri; });
}

std::string_view prefix_of(std::string_view ns_uri)
{
    const auto* found =
        std::ranges::find_if(prefixes, [&](const auto& row) { return row.first == ns_uri; });
    return found != std::end(prefixes) ? found->second : ns_uri;
}

void add_library_options(CLI::App& verb, LibraryOptions& options)
{
    verb.add_option("--library", options.library,
                    "Map library to load (default: the one built or installed with this command)")
        ->type_name("FILE");
    verb.add_option("--siblings", options.siblings,
                    "Library with the augment entry points of other models (default: a stand-in "
                    "that prints each call); with 'none', a call of one ends the process")
        ->type_name("FILE|none");
}

MapLibrary::MapLibrary(const LibraryOptions& options)
    : path_(!options.library.empty()
                ? options.library
                : beside_executable(YMAP_LIBRARY_BUILT, YMAP_LIBRARY_INSTALLED))
{
    if (options.siblings.empty())
        load_siblings(beside_executable(YMAP_SIBLINGS_BUILT, YMAP_SIBLINGS_INSTALLED),
                      options.shows_sibling_calls);
    else if (options.siblings != "none")
        load_siblings(options.siblings, options.shows_sibling_calls);
    handle_ = load(path_, RTLD_LAZY | RTLD_LOCAL, "map library");
}

void* MapLibrary::function(const std::string& name) const
{
    return dlsym(handle_, name.c_str());
}

OzkMapFunction* MapLibrary::root_walker(const ModelRoot& root) const
{
    return reinterpret_cast<OzkMapFunction*>(function(root.symbol));
}

} // namespace ymap::host
