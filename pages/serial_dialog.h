// What is on the serial number and AutoDate page: the controls of its dialog and the strings of its lists.
#pragma once

#include <array>
#include <string_view>

#include "platform/resource_ids.h"
#include "text/enumerations.h"

namespace ovaline::serial_dialog {

// Controls. Each radio button has the position that it stands for as its id, a value of _autodatepos.
inline constexpr int kCustomPattern = 205;
inline constexpr int kSerialEnable = 241;
inline constexpr int kType = 243;
inline constexpr int kPrefix = 244;
inline constexpr int kStart = 245;
inline constexpr int kSuffix = 246;
inline constexpr int kIncrement = 247;
inline constexpr int kDigitCount = 248;
inline constexpr int kDateEnable = 255;
inline constexpr int kFormat = 257;
inline constexpr int kPreview = 263;
inline constexpr int kDateOffset = 265;
inline constexpr int kHelper = 273;

// What is shown and hidden together, labels and boxes around others included.
inline constexpr std::array kSerialControls = {242, kType,      251, kPrefix,     249, 252,    kStart,
                                               253, kIncrement, 254, kDigitCount, 250, kSuffix};
inline constexpr std::array kDateControls = {256, kFormat, 264, kDateOffset};
inline constexpr std::array<int, 4> kPositions = {BeforePrefix, After_Prefix, BeforeSuffix, After_Suffix};
inline constexpr std::array kCustomControls = {206, kCustomPattern, 274, kHelper};
inline constexpr std::array kPreviewControls = {262, kPreview};

/// A list and the strings of its items.
struct List {
    int id;
    platform::StringRange strings;
};
inline constexpr std::array<List, 4> kLists = {{
    {kHelper, platform::kDatePartStrings},
    {kType, platform::kSerialTypeStrings},
    {kFormat, platform::kDateFormatStrings},
    {kDigitCount, platform::kDigitCountStrings},
}};

inline constexpr int kCustomFormatItem = Custom - Format00;

/// What the items of the helper list stand for.
inline constexpr std::array<std::u16string_view, 9> kHelperCodes = {u"%y", u"%b", u"%m", u"%d", u"%H",
                                                                    u"%M", u"%S", u"%j", u"%Y"};

}  // namespace ovaline::serial_dialog
