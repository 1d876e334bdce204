// The resource service: the module's strings, looked up by language.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace ovaline::platform {

/// String `id` of the module's string table in exactly the language `languageId` (1031, 1033, 1041, 1045, 1049 or
/// 2052). No value where the table has no such string in that language.
std::optional<std::u16string> loadString(std::uint32_t id, std::uint16_t languageId);

/// The same in the language that the platform chooses for a process that asks for none: on Windows the user's, of those
/// that the table has, else English.
std::optional<std::u16string> loadString(std::uint32_t id);

}  // namespace ovaline::platform
