// The languages of the module's resources, in the order of the resource tables.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace ovaline::platform {

constexpr std::array<std::uint16_t, 6> kResourceLanguages = {1031, 1033, 1041, 1045, 1049, 2052};
/// What is marked must not depend on the language of whoever starts the host.
constexpr std::uint16_t kDefaultLanguage = 1033;

/// The language's place in the tables; no value for a language that they do not have.
constexpr std::optional<std::size_t> placeOfLanguage(std::uint16_t languageId) {
    for (std::size_t i = 0; i < kResourceLanguages.size(); ++i)
        if (kResourceLanguages[i] == languageId) return i;
    return std::nullopt;
}

}  // namespace ovaline::platform
