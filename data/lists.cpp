// Keys of lists, and indexes of their entries.

#include "lists.h"

#include <algorithm>

#include "text.h"

namespace ymap::data {

const ListKeys* keys_of(std::span<const ListKeys> lists, const char* ns_uri, std::string_view path)
{
    const auto found = std::ranges::find_if(lists, [&](const ListKeys& list) {
        return list.path == path && ozk::same_text(list.ns_uri, ns_uri);
    });
    return found != lists.end() ? &*found : nullptr;
}

// ---------------------------------------------------------------------------------------------

EntryIndex::EntryIndex(const OzkMapNode& parent, const char* tag, const char* ns_uri,
                       const char* leaf)
    : tag_(tag), ns_uri_(ozk::text(ns_uri)), leaf_(leaf), any_namespace_(ns_uri == nullptr)
{
    extend(parent);
}

void EntryIndex::extend(const OzkMapNode& parent)
{
    const auto children = ozk::children(parent);
    for (; count_ < children.size(); ++count_) {
        const OzkMapNode& entry = children[count_];
        if (ozk::text(entry.tag) != tag_ || (!any_namespace_ && ozk::text(entry.ns_uri) != ns_uri_))
            continue;
        for (const OzkMapNode& leaf : ozk::children(entry)) {
            if (leaf.value == nullptr || ozk::text(leaf.tag) != leaf_)
                continue;
            auto& places = entries_[trim(leaf.value)];
            if (places.empty() || places.back() != count_)
                places.push_back(count_);
        }
    }
}

std::span<const uint32_t> EntryIndex::find(std::string_view value) const
{
    const auto found = entries_.find(trim(value));
    return found != entries_.end() ? std::span<const uint32_t>(found->second)
                                   : std::span<const uint32_t>();
}

const EntryIndex& Indexes::of(const OzkMapNode& parent, const char* tag, const char* ns_uri,
                              const char* leaf)
{
    auto& indexes    = indexes_[&parent];
    const auto found = std::ranges::find_if(indexes, [&](const auto& index) {
        return index->tag_ == tag && index->leaf_ == leaf &&
               index->any_namespace_ == (ns_uri == nullptr) && index->ns_uri_ == ozk::text(ns_uri);
    });
    if (found != indexes.end())
        return **found;
    return *indexes.emplace_back(std::make_unique<EntryIndex>(parent, tag, ns_uri, leaf));
}

void Indexes::appended(const OzkMapNode& parent)
{
    if (const auto found = indexes_.find(&parent); found != indexes_.end())
        for (const auto& index : found->second)
            index->extend(parent);
}

void Indexes::values_changed(std::string_view leaf)
{
    for (auto& [parent, indexes] : indexes_)
        std::erase_if(indexes, [&](const auto& index) { return index->leaf_ == leaf; });
}

} // namespace ymap::data
