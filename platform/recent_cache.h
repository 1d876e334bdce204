// A small cache.
#pragma once

#include <algorithm>
#include <cstddef>
#include <list>
#include <utility>

namespace ovaline::platform {

/// Keeps the `capacity` values used last. Looks them up one by one, which for the few dozen it is meant for costs less
/// than hashing a key.
template <typename Key, typename Value>
class RecentCache {
public:
    explicit RecentCache(std::size_t capacity) : capacity_(capacity) {}

    /// Null where it is not kept. The value stays at its address until the next call of `keep`.
    const Value* find(const Key& key) {
        const auto found = std::ranges::find(entries_, key, &Entry::first);
        if (found == entries_.end()) return nullptr;
        entries_.splice(entries_.begin(), entries_, found);
        return &entries_.front().second;
    }

    /// Keeps a value whose key is not kept yet.
    void keep(Key key, Value value) {
        entries_.emplace_front(std::move(key), std::move(value));
        if (entries_.size() > capacity_) entries_.pop_back();
    }

    /// The first value, from the one used last, that `matches`; null for none.
    template <typename Predicate>
    const Value* findIf(Predicate matches) const {
        const auto found = std::ranges::find_if(entries_, matches, &Entry::second);
        return found == entries_.end() ? nullptr : &found->second;
    }

private:
    using Entry = std::pair<Key, Value>;
    std::size_t capacity_;
    std::list<Entry> entries_;
};

}  // namespace ovaline::platform
