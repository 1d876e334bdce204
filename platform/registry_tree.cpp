#include "platform/registry_tree.h"

#include <algorithm>

namespace ovaline::platform {

namespace {

using Kind = RegistryChange::Kind;

char16_t folded(char16_t code) {
    return code >= u'A' && code <= u'Z' ? static_cast<char16_t>(code + (u'a' - u'A')) : code;
}

bool isSame(std::u16string_view a, std::u16string_view b) {
    return std::ranges::equal(a, b, {}, folded, folded);
}

bool isRoot(std::u16string_view path) {
    return isSame(path, kClassesRoot) || isSame(path, kCurrentUserRoot);
}

/// Whether every encoding can hold the text.
bool isText(std::u16string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto isIn = [&](std::size_t at, char16_t first, char16_t last) {
            return at < text.size() && text[at] >= first && text[at] <= last;
        };
        if (text[i] == 0 || isIn(i, 0xDC00, 0xDFFF)) return false;
        if (isIn(i, 0xD800, 0xDBFF) && !isIn(++i, 0xDC00, 0xDFFF)) return false;
    }
    return true;
}

bool isKeyName(std::u16string_view name) {
    constexpr std::size_t kLongest = 255;
    return !name.empty() && name.size() <= kLongest && std::ranges::none_of(name, [](char16_t c) { return c < u' '; });
}

}  // namespace

bool isRegistryKey(std::u16string_view path) {
    const std::size_t rootEnd = std::min(path.find(u'\\'), path.size());
    if (!isText(path) || !isRoot(path.substr(0, rootEnd))) return false;
    for (std::size_t begin = rootEnd; begin < path.size();) {
        const std::size_t end = std::min(path.find(u'\\', begin + 1), path.size());
        if (!isKeyName(path.substr(begin + 1, end - begin - 1))) return false;
        begin = end;
    }
    return true;
}

bool isRegistryChange(const RegistryChange& change) {
    const bool removesKey = change.kind == Kind::RemoveTree || change.kind == Kind::RemoveKeyIfEmpty;
    const auto* text = std::get_if<std::u16string>(&change.value);
    return isRegistryKey(change.key) && !(removesKey && isRoot(change.key)) && isText(change.name) &&
           (!text || isText(*text));
}

bool RegistryNameLess::operator()(std::u16string_view a, std::u16string_view b) const {
    return std::ranges::lexicographical_compare(a, b, {}, folded, folded);
}

RegistryTree::RegistryTree() {
    keys_.try_emplace(std::u16string(kClassesRoot));
    keys_.try_emplace(std::u16string(kCurrentUserRoot));
}

std::optional<RegistryValue> RegistryTree::value(std::u16string_view key, std::u16string_view name) const {
    const auto found = keys_.find(key);
    if (found == keys_.end()) return std::nullopt;
    const auto held = found->second.find(name);
    if (held == found->second.end()) return std::nullopt;
    return held->second;
}

std::optional<RegistryKeyContent> RegistryTree::list(std::u16string_view key) const {
    const auto found = keys_.find(key);
    if (found == keys_.end()) return std::nullopt;
    RegistryKeyContent content;
    for (const auto& [name, held] : found->second) content.names.push_back(name);
    const std::size_t nameAt = found->first.size() + 1;
    const auto [first, last] = under(key);
    for (auto at = first; at != last; ++at)
        if (at->first.find(u'\\', nameAt) == std::u16string::npos) content.keys.push_back(at->first.substr(nameAt));
    return content;
}

std::pair<RegistryTree::KeyAt, RegistryTree::KeyAt> RegistryTree::under(std::u16string_view key) const {
    const std::u16string prefix = std::u16string(key) + u'\\';
    const auto first = keys_.lower_bound(prefix);
    const auto isBelow = [&](const auto& entry) {
        return isSame(std::u16string_view(entry.first).substr(0, prefix.size()), prefix);
    };
    return {first, std::find_if_not(first, keys_.end(), isBelow)};
}

RegistryTree::Values& RegistryTree::create(std::u16string_view key) {
    for (std::size_t end = 0; end < key.size();) {
        end = std::min(key.find(u'\\', end + 1), key.size());
        keys_.try_emplace(std::u16string(key.substr(0, end)));
    }
    return keys_.find(key)->second;
}

void RegistryTree::make(const RegistryChange& change) {
    switch (change.kind) {
        case Kind::CreateKey:
            create(change.key);
            return;
        case Kind::SetValue:
            create(change.key).insert_or_assign(change.name, change.value);
            return;
        case Kind::RemoveValue:
            if (const auto key = keys_.find(change.key); key != keys_.end()) key->second.erase(change.name);
            return;
        case Kind::RemoveKeyIfEmpty: {
            const auto key = keys_.find(change.key);
            const auto [first, last] = under(change.key);
            if (key != keys_.end() && key->second.empty() && first == last) keys_.erase(key);
            return;
        }
        case Kind::RemoveTree: {
            const auto [first, last] = under(change.key);
            keys_.erase(first, last);
            if (const auto key = keys_.find(change.key); key != keys_.end()) keys_.erase(key);
            return;
        }
    }
}

HRESULT RegistryTree::apply(std::span<const RegistryChange> changes) {
    if (!std::ranges::all_of(changes, isRegistryChange)) return E_INVALIDARG;
    for (const RegistryChange& change : changes) make(change);
    return S_OK;
}

}  // namespace ovaline::platform
