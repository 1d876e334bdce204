// The settings of a control that the serial number and AutoDate page edits.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "control/interface/norvel_ovaline_ctrl.h"

namespace ovaline {

/// The settings of the same names; any value, for nobody checks what a host puts. `CustomAutoText` stands apart: it is
/// written whether it has changed or not.
struct SerialSettings {
    bool serialOn = false;
    std::int32_t type = 0;
    std::u16string prefix;
    std::u16string start;
    std::u16string suffix;
    std::int32_t increment = 0;
    std::int32_t dateOffset = 0;  ///< days
    std::int32_t digitCount = 0;
    bool dateOn = false;
    std::int32_t dateFormat = 0;
    std::int32_t datePosition = 0;
};

SerialSettings readSerialSettings(INorvel_OvalineCtrl& control);

/// Puts each setting in which `wanted` differs from `remembered`, and takes it over there.
void writeDifferences(INorvel_OvalineCtrl& control, const SerialSettings& wanted, SerialSettings& remembered);

std::u16string readCustomPattern(INorvel_OvalineCtrl& control);
void writeCustomPattern(INorvel_OvalineCtrl& control, std::u16string_view pattern);

}  // namespace ovaline
