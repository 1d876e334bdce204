#include "platform/resources.h"

#include <array>

#include "platform/posix/resource_languages.h"

namespace ovaline::platform {

namespace {

struct Entry {
    std::uint32_t id;
    std::array<const char16_t*, kResourceLanguages.size()> texts;
};

constexpr Entry kStrings[] = {
#define STRING(id, german, english, japanese, polish, russian, chinese) \
    {id, {u##german, u##english, u##japanese, u##polish, u##russian, u##chinese}},
#include "platform/resource_strings.inc"
#undef STRING
};

}  // namespace

std::optional<std::u16string> loadString(std::uint32_t id, std::uint16_t languageId) {
    const auto language = placeOfLanguage(languageId);
    if (!language) return std::nullopt;
    for (const Entry& entry : kStrings)
        if (entry.id == id) return entry.texts[*language];
    return std::nullopt;
}

std::optional<std::u16string> loadString(std::uint32_t id) {
    return loadString(id, kDefaultLanguage);
}

}  // namespace ovaline::platform
