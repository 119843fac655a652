// The map library as the agent loads it: by file name, its root walkers by symbol; and the schema
// that it walks, found by asking it.

#ifndef YMAP_AGENT_LIBRARY_H
#define YMAP_AGENT_LIBRARY_H

#include <cstdint>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "explore.h"
#include "models.h"

namespace ymap::agent {

/// The schema of one root, as the map library knows it.
class Schema {
public:
    struct Node {
        const data::ExploredNode* facts;
        std::vector<uint32_t> children; ///< places in the schema
    };

    explicit Schema(std::vector<data::ExploredNode> explored);

    const Node& root() const { return nodes_.front(); }
    const Node& at(uint32_t place) const { return nodes_[place]; }
    /// The child of that tag, whatever its namespace, or null: a walker looks at the tag alone.
    const Node* child(const Node& node, const char* tag) const;
    const std::vector<data::ExploredNode>& explored() const { return explored_; }

private:
    std::vector<data::ExploredNode> explored_; // in schema pre-order
    std::vector<Node> nodes_;
};

/// Whether the map library adds a path for the node, on any query.
bool is_mapped(const data::ExploredNode& node);

/// A shared object that can't be loaded. Its text is a line for a person.
struct LoadError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A loaded map library. It stays loaded until the process ends, since recorded calls point to
/// texts in it.
class MapLibrary {
public:
    /// Loads the siblings, then the map library. Throws LoadError, also for a library that has no
    /// walker of any root.
    MapLibrary(std::string library, const std::string& siblings);

    /// The exported function of that name, or null if the library has none.
    void* function(const std::string& name) const;
    /// The walker of a root, or null if the library has none.
    OzkMapFunction* root_walker(const ModelRoot& root) const;
    /// The schema of a root that it has a walker of; explored when it is first asked for.
    const Schema& schema(const ModelRoot& root) const;
    const std::string& path() const { return path_; }

private:
    std::string path_;
    void* handle_;
    mutable std::map<const ModelRoot*, std::unique_ptr<Schema>> schemas_;
};

} // namespace ymap::agent

#endif
