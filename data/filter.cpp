// Subtree filters. A filter is put in order first, so that like nodes of it stand together, however
// many a request holds; then the data is walked once, with all that stands for the node reached.

#include "filter.h"

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "text.h"

namespace ymap::data {

namespace {

using ozk::children;
using ozk::text;
using Nodes = std::vector<const OzkMapNode*>;

bool has_value(const OzkMapNode& node)
{
    return children(node).empty() && !trim(text(node.value)).empty();
}

/// Whether `node` is a leaf with that value.
bool has_value(const OzkMapNode& node, std::string_view value)
{
    return children(node).empty() && trim(text(node.value)) == value;
}

/// A leaf with a value that a node must have, or that is selected.
struct Match {
    const char* tag;
    const char* ns_uri; ///< null: any
    std::string_view value;

    bool stands_for(const OzkMapNode& node) const
    {
        return ozk::same_text(node.tag, tag) &&
               (ns_uri == nullptr || ozk::same_text(node.ns_uri, ns_uri));
    }
    bool holds_in(const OzkMapNode& node) const
    {
        return std::ranges::any_of(children(node), [&](const OzkMapNode& leaf) {
            return stands_for(leaf) && has_value(leaf, value);
        });
    }
};

/// Names of an entry, of one of its leaves, and the leaf's value.
struct EntryKey {
    std::string_view tag, leaf, value;
    friend bool operator==(const EntryKey&, const EntryKey&) = default;
};
struct EntryKeyHash {
    size_t operator()(const EntryKey& key) const
    {
        const std::hash<std::string_view> hash;
        return hash(key.tag) * 31 + hash(key.leaf) * 7 + hash(key.value);
    }
};

} // namespace

/// What stands below one node of a filter, like nodes once.
struct Filter::Level {
    struct Node {
        const char* tag;
        const char* ns_uri;          ///< null: any
        std::string_view value = {}; ///< that a leaf must have to be selected; empty: any
        std::vector<Match> matches;
        bool is_whole  = false; ///< selects all below
        bool completes = false; ///< selected beside others only
        Nodes sources;          ///< of the filter, which this one stands for

        bool is_named_like(const OzkMapNode& data) const
        {
            return ozk::same_text(data.tag, tag) &&
                   (ns_uri == nullptr || ozk::same_text(data.ns_uri, ns_uri));
        }
        bool stands_for(const OzkMapNode& data) const
        {
            return is_named_like(data) && (value.empty() || has_value(data, value)) &&
                   std::ranges::all_of(matches,
                                       [&](const Match& match) { return match.holds_in(data); });
        }
        /// Made when data first reaches it: of the entries that a filter names, many may not be
        /// there.
        const Level* below() const
        {
            if (below_ == nullptr) {
                Nodes filters;
                for (const OzkMapNode* source : sources)
                    for (const OzkMapNode& child : children(*source))
                        filters.push_back(&child);
                below_ = std::make_unique<const Level>(filters);
            }
            return below_.get();
        }

    private:
        mutable std::unique_ptr<const Level> below_;
    };

    explicit Level(const Nodes& filters);

    std::vector<Node> nodes;
    Nodes::size_type plain = 0; ///< nodes without content matches, which come first, by their tags
    std::unordered_multimap<EntryKey, const Node*, EntryKeyHash> by_match; ///< the others

private:
    static std::string identity_of(const Node& node);
    static bool read(const OzkMapNode& filter, Node& node);
};

/// Reads what one node of a filter says; false if it can't stand for anything.
bool Filter::Level::read(const OzkMapNode& filter, Node& node)
{
    if ((filter.marks & ozk::MARK_MATCHES_NONE) != 0)
        return false;
    node.tag     = filter.tag;
    node.ns_uri  = filter.ns_uri;
    node.sources = {&filter};
    if (has_value(filter))
        node.value = trim(filter.value);
    bool selects = children(filter).empty();
    bool matches = false;
    for (const OzkMapNode& child : children(filter)) {
        if (!has_value(child)) {
            selects |= (child.marks & ozk::MARK_COMPLETES) == 0;
        } else if ((child.marks & ozk::MARK_MATCHES_NONE) != 0) {
            return false;
        } else {
            matches = true;
            node.matches.push_back({child.tag, child.ns_uri, trim(child.value)});
        }
    }
    node.is_whole  = children(filter).empty() || (matches && !selects);
    node.completes = (filter.marks & ozk::MARK_COMPLETES) != 0;
    return true;
}

/// Nodes with the same one are the same question; what stands below them is taken together.
std::string Filter::Level::identity_of(const Node& node)
{
    std::string identity;
    const auto add = [&](std::string_view part) {
        identity.append(std::to_string(part.size())).append(1, ':').append(part);
    };
    const auto add_ns = [&](const char* ns_uri) {
        identity += ns_uri != nullptr ? '=' : '*';
        add(text(ns_uri));
    };
    add(text(node.tag));
    add_ns(node.ns_uri);
    add(node.value);
    for (const Match& match : node.matches) {
        add(text(match.tag));
        add_ns(match.ns_uri);
        add(match.value);
    }
    return identity;
}

Filter::Level::Level(const Nodes& filters)
{
    std::unordered_map<std::string, size_t> known;
    for (const OzkMapNode* filter : filters) {
        Node node{};
        if (!read(*filter, node))
            continue;
        const auto [place, is_new] = known.try_emplace(identity_of(node), nodes.size());
        if (is_new) {
            nodes.push_back(std::move(node));
            continue;
        }
        Node& same = nodes[place->second];
        same.is_whole |= node.is_whole;
        same.completes &= node.completes;
        same.sources.push_back(filter);
    }
    const auto others = std::stable_partition(
        nodes.begin(), nodes.end(), [](const Node& node) { return node.matches.empty(); });
    plain = static_cast<size_t>(others - nodes.begin());
    std::ranges::stable_sort(nodes.begin(), others, {},
                             [](const Node& node) { return text(node.tag); });
    std::unordered_map<EntryKey, size_t, EntryKeyHash> shared; // by how many nodes
    const auto key_of = [](const Node& node, const Match& match) {
        return EntryKey{text(node.tag), text(match.tag), match.value};
    };
    for (const Node& node : nodes)
        for (const Match& match : node.matches)
            ++shared[key_of(node, match)];
    for (const Node& node : std::span(nodes).subspan(plain)) {
        const auto rarest = std::ranges::min_element(
            node.matches, {}, [&](const Match& match) { return shared[key_of(node, match)]; });
        by_match.emplace(key_of(node, *rarest), &node);
    }
}

namespace {

/// One walk over the data.
template <class Level, class Node>
class Selection {
public:
    using Found = std::vector<const Node*>;

    Selection(Indexes& indexes, ozk::Tree& into) : indexes_(indexes), into_(into) {}

    /// What `levels`, which stand below `data`, select of its children; false for nothing.
    bool select(const OzkMapNode& data, const std::vector<const Level*>& levels, OzkMapNode& result)
    {
        const auto all = children(data);
        std::vector<OzkMapNode> selected;
        bool is_asked_for = false; // something that doesn't only complete the others
        const auto take   = [&](const OzkMapNode& child, const Found& found) {
            OzkMapNode part = child;
            if (!select_child(child, found, part))
                return;
            selected.push_back(part);
            is_asked_for |= std::ranges::any_of(found, [](const Node* n) { return !n->completes; });
        };

        std::vector<std::pair<uint32_t, const Node*>> by_index;
        if (only_entries(levels, all.size())) {
            for (const Level* level : levels)
                for (const Node& node : level->nodes)
                    look_up(data, node, by_index);
            std::ranges::sort(by_index);
            for (size_t i = 0; i < by_index.size();) {
                const uint32_t place = by_index[i].first;
                Found found;
                for (; i < by_index.size() && by_index[i].first == place; ++i)
                    found.push_back(by_index[i].second);
                take(all[place], found);
            }
        } else {
            Found found;
            for (const OzkMapNode& child : all) {
                found.clear();
                for (const Level* level : levels)
                    find_nodes(*level, child, found);
                if (!found.empty())
                    take(child, found);
            }
        }
        if (!is_asked_for)
            return false;
        result          = data;
        result.capacity = 0;
        into_.set_children(result, selected);
        return true;
    }

private:
    /// Whether the levels hold nothing but a few questions for entries of a long list, which an
    /// index answers without a look at the others.
    static bool only_entries(const std::vector<const Level*>& levels, size_t count)
    {
        size_t questions = 0;
        for (const Level* level : levels) {
            if (level->plain != 0)
                return false;
            questions += level->nodes.size();
        }
        return count > Indexes::worth_it && questions <= count;
    }

    void look_up(const OzkMapNode& data, const Node& node,
                 std::vector<std::pair<uint32_t, const Node*>>& result)
    {
        // The match that leaves the fewest; a key leaves one.
        std::span<const uint32_t> places;
        bool is_first = true;
        for (const auto& match : node.matches) {
            const auto found =
                indexes_.of(data, node.tag, node.ns_uri, match.tag).find(match.value);
            if (is_first || found.size() < places.size())
                places = found;
            is_first = false;
            if (places.size() <= 1)
                break;
        }
        for (const uint32_t place : places)
            if (node.stands_for(children(data)[place]))
                result.emplace_back(place, &node);
    }

    static void find_nodes(const Level& level, const OzkMapNode& child, Found& found)
    {
        const std::string_view tag = text(child.tag);
        const auto end             = level.nodes.begin() + static_cast<ptrdiff_t>(level.plain);
        const auto first_plain     = std::ranges::lower_bound(
                level.nodes.begin(), end, tag, {}, [](const Node& node) { return text(node.tag); });
        for (auto node = first_plain; node != end && text(node->tag) == tag; ++node)
            if (node->stands_for(child))
                found.push_back(&*node);
        if (level.by_match.empty())
            return;
        const size_t first = found.size();
        for (const OzkMapNode& leaf : children(child)) {
            if (!has_value(leaf))
                continue;
            const auto [begin_matches, end_matches] =
                level.by_match.equal_range({tag, text(leaf.tag), trim(leaf.value)});
            for (auto each = begin_matches; each != end_matches; ++each)
                if (each->second->stands_for(child) &&
                    std::find(found.begin() + static_cast<ptrdiff_t>(first), found.end(),
                              each->second) == found.end())
                    found.push_back(each->second);
        }
    }

    /// What nodes that all stand for `child` select of it.
    bool select_child(const OzkMapNode& child, const Found& found, OzkMapNode& part)
    {
        std::vector<const Level*> levels;
        for (const Node* node : found) {
            if (node->is_whole)
                return true;
            levels.push_back(node->below());
        }
        return select(child, levels, part);
    }

    Indexes& indexes_;
    ozk::Tree& into_;
};

} // namespace

Filter::Filter(const OzkMapNode& top)
{
    Nodes filters;
    for (const OzkMapNode& filter : children(top))
        filters.push_back(&filter);
    level_ = std::make_unique<const Level>(filters);
}

Filter::~Filter()                 = default;
Filter::Filter(Filter&&) noexcept = default;

OzkMapNode Filter::select(const OzkMapNode& data, Indexes& indexes, ozk::Tree& into) const
{
    OzkMapNode result{};
    Selection<Level, Level::Node>(indexes, into).select(data, {level_.get()}, result);
    return result;
}

// ---------------------------------------------------------------------------------------------

namespace {

/// Whether `path` lies below the node of `above`.
bool is_below(const ozk::AddedPath& path, const ozk::AddedPath& above)
{
    const std::string_view lower = path.path, upper = above.path;
    return ozk::same_text(path.ns_uri, above.ns_uri) && lower.size() > upper.size() &&
           lower.starts_with(upper) && lower[upper.size()] == '/';
}

} // namespace

ozk::Tree filter_of(std::span<const ozk::AddedPath> added)
{
    // In a tree, children would narrow what a path selects: those of an entry that lie below such
    // a path are left out. Paths are static texts, of which an entry has few.
    std::vector<ozk::AddedPath> paths, wholes;
    for (size_t begin = 0, end = 0; begin < added.size(); begin = end) {
        while (++end < added.size() && !added[end].is_list) {
        }
        const auto entry = added.subspan(begin, end - begin);
        wholes.clear();
        for (const ozk::AddedPath& path : entry)
            if (!path.is_list && path.value == nullptr &&
                std::ranges::find(wholes, path.path, &ozk::AddedPath::path) == wholes.end())
                wholes.push_back(path);
        std::ranges::copy_if(entry, std::back_inserter(paths), [&](const ozk::AddedPath& path) {
            return std::ranges::none_of(
                wholes, [&](const ozk::AddedPath& whole) { return is_below(path, whole); });
        });
    }
    return ozk::tree_of(paths);
}

} // namespace ymap::data
