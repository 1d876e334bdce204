#include "text/serial_number.h"

#include <algorithm>

#include "text/alphanumeric_serial.h"
#include "text/enumerations.h"
#include "text/numerical_serial.h"

namespace ovaline {
namespace {

std::u16string alphanumericDisplayForm(std::u16string_view code, std::int32_t digits) {
    if (digits <= 0) return std::u16string(code);
    const std::u16string_view shown = code.substr(0, 2 * static_cast<std::size_t>(digits));
    const std::size_t width = std::max(shown.size(), static_cast<std::size_t>(std::min(digits, kMaxDisplayWidth)));
    std::u16string text(width - shown.size(), u'0');
    return text.append(shown);
}

}  // namespace

std::u16string serialDisplayForm(std::u16string_view serial, std::int32_t type, std::int32_t digits) {
    switch (type) {
        case Numerical:
            return decimalText(readSerialValue(serial), std::min(digits, kMaxDisplayWidth));
        case Alphanumeric:
            return alphanumericDisplayForm(serial, digits);
        default:
            return {};
    }
}

std::u16string StepSerialNumber(std::u16string_view serial, std::int32_t type, std::int32_t digits) {
    return advanceSerialNumber(serial, type, digits, 1);
}

std::u16string advanceSerialNumber(std::u16string_view serial, std::int32_t type, std::int32_t digits,
                                   std::uint64_t steps) {
    if (steps == 0) return std::u16string(serial);
    if (type == Numerical) return decimalText(advanceSerialValue(readSerialValue(serial), digits, steps), 0);
    std::u16string code(serial);
    advanceAlphanumericSerial(code, steps);
    return code;
}

}  // namespace ovaline
