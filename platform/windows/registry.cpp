#include "platform/registry.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "platform/registry_tree.h"
#include "platform/windows/text.h"

namespace ovaline::platform {

namespace {

using Kind = RegistryChange::Kind;

/// A key of the platform, open for as long as this lives.
class OpenKey {
public:
    OpenKey() = default;
    ~OpenKey() {
        if (key_) RegCloseKey(key_);
    }
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;

    HKEY get() const { return key_; }
    HKEY* put() { return &key_; }

private:
    HKEY key_ = nullptr;
};

/// A path's root and what comes under it, which is empty for the root itself.
struct Place {
    HKEY root;
    std::u16string under;
};

Place placeOf(std::u16string_view path) {
    const std::size_t rootEnd = std::min(path.find(u'\\'), path.size());
    const RegistryNameLess less;
    const std::u16string_view root = path.substr(0, rootEnd);
    const bool isUser = !less(root, kCurrentUserRoot) && !less(kCurrentUserRoot, root);
    return {isUser ? HKEY_CURRENT_USER : HKEY_CLASSES_ROOT,
            std::u16string(path.substr(std::min(rootEnd + 1, path.size())))};
}

LSTATUS open(const Place& place, REGSAM access, OpenKey& key) {
    return RegOpenKeyExW(place.root, wide(place.under), 0, access, key.put());
}

/// A key or a value that is not there needs no removal.
LSTATUS unlessMissing(LSTATUS status) {
    return status == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : status;
}

LSTATUS setValue(HKEY key, const std::u16string& name, const RegistryValue& value) {
    const auto set = [&](DWORD type, const void* data, std::size_t size) {
        return RegSetValueExW(key, wide(name), 0, type, static_cast<const BYTE*>(data), static_cast<DWORD>(size));
    };
    if (const auto* number = std::get_if<std::uint32_t>(&value)) return set(REG_DWORD, number, sizeof *number);
    const auto& text = std::get<std::u16string>(value);
    return set(REG_SZ, text.c_str(), (text.size() + 1) * sizeof(char16_t));
}

LSTATUS removeIfEmpty(const Place& place) {
    DWORD keys = 0;
    DWORD values = 0;
    {
        OpenKey key;
        if (const LSTATUS status = open(place, KEY_READ, key); status != ERROR_SUCCESS) return unlessMissing(status);
        const LSTATUS status = RegQueryInfoKeyW(key.get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values,
                                                nullptr, nullptr, nullptr, nullptr);
        if (status != ERROR_SUCCESS) return status;
    }
    return keys == 0 && values == 0 ? unlessMissing(RegDeleteKeyW(place.root, wide(place.under))) : ERROR_SUCCESS;
}

LSTATUS make(const RegistryChange& change) {
    const Place place = placeOf(change.key);
    switch (change.kind) {
        case Kind::CreateKey:
        case Kind::SetValue: {
            OpenKey key;
            const LSTATUS status = RegCreateKeyExW(place.root, wide(place.under), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                                   KEY_SET_VALUE, nullptr, key.put(), nullptr);
            if (status != ERROR_SUCCESS || change.kind == Kind::CreateKey) return status;
            return setValue(key.get(), change.name, change.value);
        }
        case Kind::RemoveValue: {
            OpenKey key;
            if (const LSTATUS status = open(place, KEY_SET_VALUE, key); status != ERROR_SUCCESS)
                return unlessMissing(status);
            return unlessMissing(RegDeleteValueW(key.get(), wide(change.name)));
        }
        case Kind::RemoveKeyIfEmpty:
            return removeIfEmpty(place);
        case Kind::RemoveTree:
            return unlessMissing(RegDeleteTreeW(place.root, wide(place.under)));
    }
    return ERROR_INVALID_PARAMETER;
}

/// What `next` gives for 0, 1, ... as long as there is one: a name in the buffer and its length. Sorted.
template <typename Next>
std::vector<std::u16string> namesOf(Next&& next) {
    constexpr std::size_t kLongestName = 16384;  // of a value; a key's has 255
    std::vector<wchar_t> buffer(kLongestName);
    std::vector<std::u16string> names;
    for (DWORD i = 0;; ++i) {
        auto length = static_cast<DWORD>(buffer.size());
        if (next(i, buffer.data(), &length) != ERROR_SUCCESS) break;
        names.emplace_back(utf16({buffer.data(), length}));
    }
    std::ranges::sort(names, RegistryNameLess());
    return names;
}

class SystemRegistry final : public Registry {
public:
    std::optional<RegistryValue> value(std::u16string_view key, std::u16string_view name) const override {
        if (!isRegistryKey(key)) return std::nullopt;
        OpenKey opened;
        if (open(placeOf(key), KEY_QUERY_VALUE, opened) != ERROR_SUCCESS) return std::nullopt;
        const std::u16string valueName(name);
        std::vector<BYTE> bytes(256);
        for (;;) {
            DWORD type = 0;
            auto size = static_cast<DWORD>(bytes.size());
            const LSTATUS status = RegQueryValueExW(opened.get(), wide(valueName), nullptr, &type, bytes.data(), &size);
            // Another process may have made it longer since its size was told.
            if (status == ERROR_MORE_DATA) bytes.resize(std::max<std::size_t>(size, 2 * bytes.size()));
            if (status == ERROR_MORE_DATA) continue;
            if (status != ERROR_SUCCESS) return std::nullopt;
            bytes.resize(size);
            return valueOf(type, bytes);
        }
    }

    std::optional<RegistryKeyContent> list(std::u16string_view key) const override {
        if (!isRegistryKey(key)) return std::nullopt;
        OpenKey opened;
        if (open(placeOf(key), KEY_READ, opened) != ERROR_SUCCESS) return std::nullopt;
        RegistryKeyContent content;
        content.keys = namesOf([&](DWORD i, wchar_t* name, DWORD* length) {
            return RegEnumKeyExW(opened.get(), i, name, length, nullptr, nullptr, nullptr, nullptr);
        });
        content.names = namesOf([&](DWORD i, wchar_t* name, DWORD* length) {
            return RegEnumValueW(opened.get(), i, name, length, nullptr, nullptr, nullptr, nullptr);
        });
        return content;
    }

    HRESULT apply(std::span<const RegistryChange> changes) override {
        if (!std::ranges::all_of(changes, isRegistryChange)) return E_INVALIDARG;
        for (const RegistryChange& change : changes)
            if (const LSTATUS status = make(change); status != ERROR_SUCCESS)
                return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
        return S_OK;
    }

    std::string place() const override { return "the registry"; }
    std::string problem() const override { return {}; }
    std::string remedy() const override { return "run it as an administrator"; }

private:
    /// None for types that this system doesn't store.
    static std::optional<RegistryValue> valueOf(DWORD type, std::span<const BYTE> bytes) {
        if (type == REG_DWORD && bytes.size() == sizeof(std::uint32_t)) {
            std::uint32_t number = 0;
            std::memcpy(&number, bytes.data(), sizeof number);
            return number;
        }
        if (type != REG_SZ) return std::nullopt;
        std::u16string text(bytes.size() / sizeof(char16_t), u'\0');
        std::memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
        // Who wrote it may have left out the terminating zero, or counted more than one.
        text.resize(std::min(text.find(u'\0'), text.size()));
        return text;
    }
};

}  // namespace

Registry& systemRegistry() {
    static SystemRegistry registry;
    return registry;
}

}  // namespace ovaline::platform
