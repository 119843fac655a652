// Storage of texts that live as long as their owner, a tree or a run. Internal to the framework.

#ifndef OZK_TEXTS_H
#define OZK_TEXTS_H

#include <cstring>
#include <memory_resource>
#include <string_view>
#include <unordered_set>

namespace ozk {

/// An arena that knows how much was asked of it.
class Arena : public std::pmr::memory_resource {
public:
    size_t size() const { return size_; }

private:
    void* do_allocate(size_t bytes, size_t alignment) override
    {
        size_ += bytes;
        return arena_.allocate(bytes, alignment);
    }
    void do_deallocate(void*, size_t, size_t) override {}
    bool do_is_equal(const memory_resource& other) const noexcept override
    {
        return this == &other;
    }

    std::pmr::monotonic_buffer_resource arena_;
    size_t size_ = 0;
};

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

    Arena& arena() { return arena_; }
    size_t size() const { return arena_.size(); }

private:
    Arena arena_;
    std::unordered_set<std::string_view> interned_;
};

} // namespace ozk

#endif
