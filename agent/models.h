// What is known of the models beside what the map library knows itself: their roots and root
// walkers, prefixes and modules, the keys of lists, the types of leaves. All that a new model or
// root needs to be told to the host stands in the tables of models.cpp.

#ifndef YMAP_AGENT_MODELS_H
#define YMAP_AGENT_MODELS_H

#include <cstdint>
#include <span>
#include <string_view>

#include "lists.h"
#include "ymap.h"

namespace ymap::agent {

/// A YANG module.
struct Module {
    const char* ns_uri;
    const char* name;
    const char* prefix;
    const char* revision; ///< empty if the module has none
    bool is_clients;      ///< the clients' model or what augments it
};

/// A root node of a model, and the exported function that walks trees on it.
struct ModelRoot {
    const char* ns_uri;
    const char* name;
    const char* symbol;
    bool is_clients; ///< of the clients' model; else of a native one
    bool is_state;   ///< config false (RFC 7950, 7.21.1): no get-config and no edit reaches it
};

/// The prefix of NETCONF's own elements in an error-path.
inline constexpr std::string_view NETCONF_PREFIX = "nc";

std::span<const Module> modules();
/// The module of that namespace, or null.
const Module* find_module(std::string_view ns_uri);
/// The prefix that messages and replies have for a namespace; the URI itself if none is known.
std::string_view prefix_of(std::string_view ns_uri);
/// The namespace of a module, or null.
const char* namespace_of(std::string_view module);
/// The name of the module of a namespace; its last part if none is known.
std::string_view module_of(std::string_view ns_uri);

std::span<const ModelRoot> model_roots();
/// The root `name` of the namespace `ns_uri`, or null.
const ModelRoot* find_root(std::string_view ns_uri, std::string_view name);
const ModelRoot* find_root(const OzkMapNode& node);

/// The keys of the lists of all models, as far as they are known.
std::span<const data::ListKeys> list_keys();

/// Tags that a map library compares nowhere, spelt as in their module; for display only.
std::span<const std::string_view> spellings();

/// What a leaf's values are, as far as is known.
enum class LeafType : uint8_t { unknown, string, boolean, integer };
LeafType leaf_type(const OzkMapNode& leaf);

} // namespace ymap::agent

#endif
