// The texts of an array's copies, each with its own serial number and date.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>

#include "text/autodate.h"
#include "text/enumerations.h"
#include "text/marking_text.h"
#include "text/serial_number.h"

namespace ovaline {

/// What the texts are composed of; the settings of the same names.
struct CopyTexts {
    std::u16string prefix;
    std::u16string serialStart;
    std::u16string suffix;
    std::int32_t digitCount = 0;
    std::int32_t serialType = Numerical;
    std::int32_t increment = 1;  ///< steps from one copy to the next; 0 or less is none
    bool serialOn = false;
    bool dateOn = false;
    std::int32_t dateFormat = Format00;
    std::u16string customDate;
    std::int32_t datePosition = BeforePrefix;
    std::int32_t dateOffset = 0;  ///< days
    std::int32_t columns = 1;     ///< 1 to 255
    std::int32_t rows = 1;        ///< 1 to 255
    std::int32_t direction = Across;

    std::uint64_t stepsPerCopy() const { return static_cast<std::uint64_t>(std::max<std::int32_t>(increment, 0)); }

    /// The serial number that the copy after the array's last would carry.
    std::u16string serialAfterArray() const {
        const auto copies = static_cast<std::uint64_t>(columns) * static_cast<std::uint64_t>(rows);
        return advanceSerialNumber(serialStart, serialType, digitCount, copies * stepsPerCopy());
    }

    /// Calls `visit(column, row, text)` for each copy in the order of the serial numbers, row by row or, for `Down`,
    /// column by column, until it answers false. The clock is read anew for each copy.
    template <typename Visit>
    void forEach(const platform::Clock& clock, Visit&& visit) const {
        const std::u16string pattern = ResolveAutoDatePattern(dateFormat, customDate);
        const bool down = direction == Down;
        const std::int32_t inner = down ? rows : columns;
        std::u16string serial = serialStart;
        for (std::int32_t k = 0; k < columns * rows; ++k) {
            const std::u16string text = ComposeMarkingText(prefix, serial, suffix, digitCount, pattern, datePosition,
                                                           serialType, serialOn, dateOn, dateOffset, clock);
            if (!visit(down ? k / inner : k % inner, down ? k % inner : k / inner, text)) return;
            serial = advanceSerialNumber(serial, serialType, digitCount, stepsPerCopy());
        }
    }
};

}  // namespace ovaline
