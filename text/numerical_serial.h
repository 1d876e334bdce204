// Serial numbers that are decimal integers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ovaline {

/// Reads the value of a numerical serial text (serial_number.h says how). Never fails.
std::int64_t readSerialValue(std::u16string_view text);

/// `value` after `steps` steps (at least 1), each of which adds 1 and starts over at 0 where the sum, taken as
/// unsigned, has reached 10^`digits`. `digits` outside 1..19 never starts over.
std::int64_t advanceSerialValue(std::int64_t value, std::int32_t digits, std::uint64_t steps);

/// `value` in decimal, padded with zeros to `width` characters, a minus sign among them and first.
std::u16string decimalText(std::int64_t value, std::int32_t width);

}  // namespace ovaline
