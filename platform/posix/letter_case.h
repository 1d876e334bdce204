// Texts as people compare them who do not care for upper and lower case.
#pragma once

#include <string>
#include <string_view>

namespace ovaline::platform {

/// The text in lower case, code unit by code unit, by the platform's Unicode tables whatever the locale of the process;
/// A to Z alone where the platform has none. Characters beyond the basic plane stay as they are.
std::u16string lowerCase(std::u16string_view text);

/// Whether `first` comes before `second` in alphabetical order: without regard to case, and among texts that differ in
/// case alone, by their code units.
bool alphabetically(std::u16string_view first, std::u16string_view second);

}  // namespace ovaline::platform
