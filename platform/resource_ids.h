// The numbers of the text settings page's dialog and strings, as the resource tables have them.
#pragma once

#include <cstdint>

namespace ovaline::platform {

inline constexpr std::uint32_t kTextPageDialog = 105;

inline constexpr std::uint32_t kHeightMessageString = 103;
inline constexpr std::uint32_t kTextPageTitleString = 104;
inline constexpr std::uint32_t kTextPageHelpFileString = 105;
inline constexpr std::uint32_t kTextPageDescriptionString = 106;

/// Strings one after the other, each for an item of a list.
struct StringRange {
    std::uint32_t first;
    std::uint32_t count;
};

inline constexpr StringRange kFillStyleStrings = {10301, 4};
inline constexpr StringRange kOutlineStyleStrings = {10311, 6};
inline constexpr StringRange kFontStyleStrings = {10321, 2};

}  // namespace ovaline::platform
