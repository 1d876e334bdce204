#include "platform/resources.h"

#include <array>

namespace ovaline::platform {

namespace {

constexpr std::array<std::uint16_t, 6> kLanguages = {1031, 1033, 1041, 1045, 1049, 2052};
// What is marked must not depend on the language of whoever starts the host.
constexpr std::uint16_t kDefaultLanguage = 1033;

struct Entry {
    std::uint32_t id;
    std::array<const char16_t*, kLanguages.size()> texts;
};

constexpr Entry kStrings[] = {
#define STRING(id, ...) {id, {__VA_ARGS__}},
#include "platform/resource_strings.inc"
#undef STRING
};

}  // namespace

std::optional<std::u16string> loadString(std::uint32_t id, std::uint16_t languageId) {
    for (const Entry& entry : kStrings) {
        if (entry.id != id) continue;
        for (std::size_t i = 0; i < kLanguages.size(); ++i)
            if (kLanguages[i] == languageId) return entry.texts[i];
    }
    return std::nullopt;
}

std::optional<std::u16string> loadString(std::uint32_t id) {
    return loadString(id, kDefaultLanguage);
}

}  // namespace ovaline::platform
