// The map library as the agent loads it: by file name, its root walkers by symbol. And what the
// command knows of the models: their roots and the prefixes of their namespaces.

#ifndef YMAP_HOST_LIBRARY_H
#define YMAP_HOST_LIBRARY_H

#include <span>
#include <string>
#include <string_view>

#include "ymap.h"

namespace CLI {
class App;
}

namespace ymap::host {

/// A root node of a model, and the exported function that walks trees on it.
struct ModelRoot {
    const char* ns_uri;
    const char* name;
    const char* symbol;
    bool is_clients; ///< belongs to the clients' model: read when a request has no filter
};

std::span<const ModelRoot> model_roots();
/// The root `name` of the namespace `ns_uri`, or null.
const ModelRoot* find_root(std::string_view ns_uri, std::string_view name);
/// Whether any root is of that namespace.
bool is_model_namespace(std::string_view ns_uri);
/// The prefix that the command writes for a namespace; the URI itself if it has none.
std::string_view prefix_of(std::string_view ns_uri);

/// Options of every verb that loads a map library.
struct LibraryOptions {
    std::string library;  ///< empty: the one that the command was built or installed with
    std::string siblings; ///< likewise; "none" for no sibling library
    bool shows_sibling_calls = true; ///< print calls of the stand-in on standard error
};
void add_library_options(CLI::App& verb, LibraryOptions& options);

/// A loaded map library. It stays loaded until the process ends, since recorded calls point to
/// texts in it.
class MapLibrary {
public:
    /// Loads the siblings, then the map library. Calls of the stand-in siblings are recorded by the
    /// run that is going on, answered as it says, and printed on standard error if the options ask
    /// for it. Throws InputError.
    explicit MapLibrary(const LibraryOptions& options);

    /// The exported function of that name, or null if the library has none.
    void* function(const std::string& name) const;
    /// The walker of a root, or null if the library has none.
    OzkMapFunction* root_walker(const ModelRoot& root) const;
    const std::string& path() const { return path_; }

private:
    std::string path_;
    void* handle_;
};

} // namespace ymap::host

#endif
