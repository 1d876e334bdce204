// The numbers of the property pages' dialogs and strings, as the resource tables have them.
#pragma once

#include <cstdint>

namespace ovaline::platform {

inline constexpr std::uint32_t kTextPageDialog = 105;
inline constexpr std::uint32_t kSerialPageDialog = 110;

inline constexpr std::uint32_t kHeightMessageString = 103;
inline constexpr std::uint32_t kTextPageTitleString = 104;
inline constexpr std::uint32_t kTextPageHelpFileString = 105;
inline constexpr std::uint32_t kTextPageDescriptionString = 106;
inline constexpr std::uint32_t kSerialPageTitleString = 107;
inline constexpr std::uint32_t kSerialPageHelpFileString = 108;
inline constexpr std::uint32_t kSerialPageDescriptionString = 109;

/// Strings one after the other, each for an item of a list.
struct StringRange {
    std::uint32_t first;
    std::uint32_t count;
};

inline constexpr StringRange kSerialTypeStrings = {10129, 2};
inline constexpr StringRange kDateFormatStrings = {10132, 17};
inline constexpr StringRange kDigitCountStrings = {10201, 16};
inline constexpr StringRange kFillStyleStrings = {10301, 4};
inline constexpr StringRange kOutlineStyleStrings = {10311, 6};
inline constexpr StringRange kFontStyleStrings = {10321, 2};
inline constexpr StringRange kDatePartStrings = {20500, 9};

}  // namespace ovaline::platform
