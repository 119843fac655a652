// What tells the entries of lists apart, and a way to find one that doesn't look at all of them.

#ifndef YMAP_DATA_LISTS_H
#define YMAP_DATA_LISTS_H

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "tree.h"

namespace ymap::data {

/// The keys of a list (RFC 7950, 7.8.2). Trees don't say them.
struct ListKeys {
    const char* ns_uri;
    std::string_view path; ///< schema path of the list
    std::span<const char* const> leaves;
};

/// The keys of the list at `path`, or null if none are known.
const ListKeys* keys_of(std::span<const ListKeys> lists, const char* ns_uri, std::string_view path);

/// The entries of one list by the value of one leaf, white space around it aside.
class EntryIndex {
public:
    /// Of the children of `parent` with that tag and namespace; a null namespace stands for any.
    EntryIndex(const OzkMapNode& parent, const char* tag, const char* ns_uri, const char* leaf);

    /// The entries whose leaf has that value, by their places among the children, in their order.
    std::span<const uint32_t> find(std::string_view value) const;

private:
    friend class Indexes;
    /// Takes in the children of `parent` that were appended since.
    void extend(const OzkMapNode& parent);

    std::string tag_, ns_uri_, leaf_;
    bool any_namespace_;
    uint32_t count_ = 0; ///< children that were looked at
    std::unordered_map<std::string_view, std::vector<uint32_t>> entries_; ///< by trimmed value
};

/// The indexes of a tree, made where they are first asked for. Whoever changes the children of a
/// node says so.
class Indexes {
public:
    /// Below so many children a look at each is cheaper.
    static constexpr size_t worth_it = 16;

    const EntryIndex& of(const OzkMapNode& parent, const char* tag, const char* ns_uri,
                         const char* leaf);
    /// Children were appended to `parent`.
    void appended(const OzkMapNode& parent);
    /// Children of `parent` were taken away.
    void changed(const OzkMapNode& parent) { indexes_.erase(&parent); }
    /// Leaves of that name have other values, or have come or gone.
    void values_changed(std::string_view leaf);
    void clear() { indexes_.clear(); }

private:
    std::unordered_map<const OzkMapNode*, std::vector<std::unique_ptr<EntryIndex>>> indexes_;
};

} // namespace ymap::data

#endif
