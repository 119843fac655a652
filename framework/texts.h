// Storage of texts that live as long as their owner, an input tree or a run. Internal to the
// framework.

#ifndef OZK_TEXTS_H
#define OZK_TEXTS_H

#include <cstring>
#include <memory_resource>
#include <string_view>
#include <unordered_set>

namespace ozk {

class Texts {
public:
    /// A copy with a terminating zero.
    char* keep(std::string_view text)
    {
        char* copy = static_cast<char*>(arena_.allocate(text.size() + 1, 1));
        if (!text.empty())
            std::memcpy(copy, text.data(), text.size());
        copy[text.size()] = '\0';
        return copy;
    }

    /// Like keep(), but equal texts share one copy.
    std::string_view intern(std::string_view text)
    {
        if (const auto known = interned_.find(text); known != interned_.end())
            return *known;
        return *interned_.emplace(keep(text), text.size()).first;
    }

    std::pmr::memory_resource& arena() { return arena_; }

private:
    std::pmr::monotonic_buffer_resource arena_;
    std::unordered_set<std::string_view> interned_;
};

} // namespace ozk

#endif
