// What the text settings page edits: its own copy of a control's settings.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "control/interface/norvel_ovaline_ctrl.h"
#include "control/interface/property_record.h"
#include "output/units.h"
#include "platform/little_endian.h"

namespace ovaline {

/// Lengths, those of the record included, are in the display unit: millimetres or inches as `measurement` says. Angles
/// are in degrees.
struct TextPageSettings {
    std::int32_t displayInPoint = 0;
    Measurement measurement = 0;
    std::u16string text;
    std::u16string fontName;
    float fontHeight = 0;  ///< points where `displayInPoint` is set
    VARIANT_BOOL fontBold = VARIANT_FALSE;
    VARIANT_BOOL fontItalic = VARIANT_FALSE;
    bool fontUnderline = false;  ///< of the preview alone
    bool fontStrikeout = false;  ///< of the preview alone
    std::int32_t fontStyle = TrueType;
    std::array<std::byte, kPropertyRecordSize> record{};

    /// The record's field at that offset.
    template <typename Value>
    Value field(std::size_t offset) const {
        Value value{};
        loadLittleEndian(record.data() + offset, value);
        return value;
    }
    template <typename Value>
    void setField(std::size_t offset, Value value) {
        storeLittleEndian(record.data() + offset, value);
    }
};

/// No value where the control refuses to tell one of its settings.
std::optional<TextPageSettings> readTextPageSettings(INorvel_OvalineCtrl& control);

/// Writes all settings but underline and strikeout. The control rebuilds its paths when its update flag is set again,
/// with the record, and with each of the four settings of the font.
void writeTextPageSettings(const TextPageSettings& settings, INorvel_OvalineCtrl& control);

}  // namespace ovaline
