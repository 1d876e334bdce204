// The registry service: named values in a tree of keys, where programs leave what other programs look up.
//
// A key is named by its whole path, "HKEY_CLASSES_ROOT\CLSID\{...}", under one of two roots that always exist. A value
// is named within its key; the name "" is the key's default value. Neither kind of name tells A-Z from a-z apart, and
// both keep the spelling that they were made with. Where the platform has a registry of its own, this is that one.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/com.h"

namespace ovaline::platform {

inline constexpr std::u16string_view kClassesRoot = u"HKEY_CLASSES_ROOT";
inline constexpr std::u16string_view kCurrentUserRoot = u"HKEY_CURRENT_USER";

/// What changes can fail with, besides E_INVALIDARG: the platform's own codes for these conditions.
inline constexpr HRESULT kRegistryNoPath = static_cast<HRESULT>(0x80070003);
inline constexpr HRESULT kRegistryAccessDenied = static_cast<HRESULT>(0x80070005);
inline constexpr HRESULT kRegistryWriteFault = static_cast<HRESULT>(0x8007001D);
inline constexpr HRESULT kRegistryDiskFull = static_cast<HRESULT>(0x80070070);
inline constexpr HRESULT kRegistryDamaged = static_cast<HRESULT>(0x800703F1);

/// A text (REG_SZ) or a number (REG_DWORD). Texts hold no U+0000 and no surrogate without its partner.
using RegistryValue = std::variant<std::u16string, std::uint32_t>;

/// One step of a change.
struct RegistryChange {
    enum class Kind {
        CreateKey,         ///< the key, and those above it, unless they are there
        SetValue,          ///< as CreateKey, then the value under `name`
        RemoveValue,       ///< nothing where there is none
        RemoveKeyIfEmpty,  ///< the key, where it holds neither values nor keys
        RemoveTree,        ///< the key and all below it; nothing where there is none
    };
    Kind kind;
    std::u16string key;
    std::u16string name;
    RegistryValue value;
};

/// What a key holds, each list in the order of its names.
struct RegistryKeyContent {
    std::vector<std::u16string> keys;
    std::vector<std::u16string> names;
};

class Registry {
public:
    /// The value as it is now; none where the key or the value is missing or the registry can't be read.
    virtual std::optional<RegistryValue> value(std::u16string_view key, std::u16string_view name) const = 0;

    /// What the key holds now; none where it is missing. A registry that can't be read is as an empty one.
    virtual std::optional<RegistryKeyContent> list(std::u16string_view key) const = 0;

    /// Makes the changes in their order. E_INVALIDARG where a name or a text is none, or a root is to be removed. A
    /// backend that can makes all of them or none; another stops at the first that fails.
    virtual HRESULT apply(std::span<const RegistryChange> changes) = 0;

    /// Where the registry is kept, for a person.
    virtual std::string place() const = 0;

    /// Why the registry can't be read, in one line for a person; empty where it can.
    virtual std::string problem() const = 0;

    /// What a person can do where it can't be written, as the end of a sentence.
    virtual std::string remedy() const = 0;

protected:
    ~Registry() = default;
};

/// Whether the path is a key's: one of the roots, or under one of them names of 1 to 255 code units.
bool isRegistryKey(std::u16string_view path);

/// Whether a backend can make the change: its names and its text are ones, and it removes no root.
bool isRegistryChange(const RegistryChange& change);

/// The registry of the platform.
Registry& systemRegistry();

}  // namespace ovaline::platform
