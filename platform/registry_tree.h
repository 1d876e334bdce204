// A registry's keys and values in memory: what a backend without a registry of its own reads, changes and writes.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "platform/registry.h"

namespace ovaline::platform {

/// Orders names without telling A-Z from a-z apart. No other letters are folded: what is looked up here are
/// identifiers, and the result must not depend on a locale.
struct RegistryNameLess {
    using is_transparent = void;
    bool operator()(std::u16string_view a, std::u16string_view b) const;
};

class RegistryTree {
public:
    using Values = std::map<std::u16string, RegistryValue, RegistryNameLess>;
    /// Every key by its whole path. The keys under a key stand in one run: they begin with its path and a backslash.
    using Keys = std::map<std::u16string, Values, RegistryNameLess>;

    /// Holds the two roots.
    RegistryTree();

    const Keys& keys() const { return keys_; }
    std::optional<RegistryValue> value(std::u16string_view key, std::u16string_view name) const;
    std::optional<RegistryKeyContent> list(std::u16string_view key) const;

    /// Makes all changes, or none and E_INVALIDARG.
    HRESULT apply(std::span<const RegistryChange> changes);

private:
    using KeyAt = Keys::const_iterator;

    /// The keys under `key`, at whatever depth.
    std::pair<KeyAt, KeyAt> under(std::u16string_view key) const;
    Values& create(std::u16string_view key);
    void make(const RegistryChange& change);

    Keys keys_;
};

}  // namespace ovaline::platform
