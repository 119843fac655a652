// Loading of the map library and its siblings, and what the library says of its schema.

#include "library.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

#include <dlfcn.h>
#include <fmt/core.h>

namespace ymap::agent {

namespace {

/// Loads a shared object. A bare name of a file in the current folder means that file, as with any
/// other file name on a command line; the loader would look for it in the system's folders only.
void* load(const std::string& path, int flags, const char* what)
{
    std::error_code error;
    const bool is_here =
        path.find('/') == std::string::npos && std::filesystem::exists(path, error);
    void* handle = dlopen(is_here ? ("./" + path).c_str() : path.c_str(), flags);
    if (handle == nullptr)
        throw LoadError(fmt::format("cannot load the {}: {}", what, dlerror()));
    return handle;
}

} // namespace

Schema::Schema(std::vector<data::ExploredNode> explored) : explored_(std::move(explored))
{
    nodes_.reserve(explored_.size());
    std::vector<uint32_t> open; // the nodes above
    for (const data::ExploredNode& each : explored_) {
        while (!open.empty() && !each.path.starts_with(nodes_[open.back()].facts->path + "/"))
            open.pop_back();
        const auto place = static_cast<uint32_t>(nodes_.size());
        if (!open.empty())
            nodes_[open.back()].children.push_back(place);
        nodes_.push_back({&each, {}});
        open.push_back(place);
    }
}

const Schema::Node* Schema::child(const Node& node, const char* tag) const
{
    const auto is_wanted = [&, wanted = ozk::text(tag)](uint32_t place) {
        return nodes_[place].facts->tag == wanted;
    };
    const auto found = std::ranges::find_if(node.children, is_wanted);
    return found != node.children.end() ? &nodes_[*found] : nullptr;
}

bool is_mapped(const data::ExploredNode& node)
{
    return std::ranges::any_of(node.outcomes,
                               [](const data::Outcome& outcome) { return !outcome.paths.empty(); });
}

MapLibrary::MapLibrary(std::string library, const std::string& siblings) : path_(std::move(library))
{
    // Global, and before the map library, which looks its siblings up in the process.
    load(siblings, RTLD_NOW | RTLD_GLOBAL, "sibling library");
    handle_ = load(path_, RTLD_LAZY | RTLD_LOCAL, "map library");
    if (std::ranges::none_of(model_roots(), [&](auto& root) { return root_walker(root); }))
        throw LoadError(fmt::format("the map library {} has no root walker", path_));
}

void* MapLibrary::function(const std::string& name) const
{
    return dlsym(handle_, name.c_str());
}

OzkMapFunction* MapLibrary::root_walker(const ModelRoot& root) const
{
    return reinterpret_cast<OzkMapFunction*>(function(root.symbol));
}

const Schema& MapLibrary::schema(const ModelRoot& root) const
{
    auto& schema = schemas_[&root];
    if (!schema)
        schema = std::make_unique<Schema>(data::explore(
            {root.ns_uri, root.name, root_walker(root)},
            [&](const std::string& name) { return function(name); }, spellings()));
    return *schema;
}

} // namespace ymap::agent
