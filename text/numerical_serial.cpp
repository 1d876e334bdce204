#include "text/numerical_serial.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace ovaline {
namespace {

/// The highest power of ten that an unsigned 64-bit number can reach is 10^19.
constexpr std::int32_t kMostLimitDigits = 19;

constexpr std::u16string_view kWhiteSpace = u" \t\n\v\f\r";

std::uint64_t powerOfTen(std::int32_t exponent) {
    std::uint64_t power = 1;
    for (; exponent > 0; --exponent) power *= 10;
    return power;
}

}  // namespace

std::int64_t readSerialValue(std::u16string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(kWhiteSpace), text.size()));
    const bool negative = text.starts_with(u'-');
    if (negative || text.starts_with(u'+')) text.remove_prefix(1);
    const std::uint64_t largest = std::uint64_t{std::numeric_limits<std::int64_t>::max()} + (negative ? 1 : 0);
    std::uint64_t magnitude = 0;
    for (const char16_t character : text) {
        if (character < u'0' || character > u'9') break;
        const std::uint64_t digit = character - std::uint64_t{u'0'};
        if (magnitude > (largest - digit) / 10) {
            magnitude = largest;
            break;
        }
        magnitude = magnitude * 10 + digit;
    }
    return static_cast<std::int64_t>(negative ? 0 - magnitude : magnitude);
}

// With limit = 10^digits, a step leads from u to u + 1, or to 0 where u + 1 >= limit. A value below the limit therefore
// goes round 0..limit - 1, and any other comes to 0 in one step: u + 1 is either still not below the limit or, from the
// largest unsigned number, 0 itself. Without a limit the round is the 2^64 of the type.
std::int64_t advanceSerialValue(std::int64_t value, std::int32_t digits, std::uint64_t steps) {
    std::uint64_t current = static_cast<std::uint64_t>(value);
    if (digits <= 0 || digits > kMostLimitDigits) return static_cast<std::int64_t>(current + steps);
    const std::uint64_t limit = powerOfTen(digits);
    if (current >= limit) {
        current = 0;
        --steps;
    }
    // The sum of both would overflow for 19 digits.
    const std::uint64_t onward = steps % limit, room = limit - current;
    return static_cast<std::int64_t>(onward < room ? current + onward : onward - room);
}

std::u16string decimalText(std::int64_t value, std::int32_t width) {
    const bool negative = value < 0;
    const std::uint64_t magnitude =
        negative ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
    char digits[std::numeric_limits<std::uint64_t>::digits10 + 1];
    char* const end = std::to_chars(std::begin(digits), std::end(digits), magnitude).ptr;
    const std::size_t length = static_cast<std::size_t>(end - digits), sign = negative ? 1 : 0;
    std::u16string text(std::max(length + sign, static_cast<std::size_t>(std::max(width, 0))), u'0');
    if (negative) text.front() = u'-';
    std::copy_backward(std::begin(digits), end, text.end());
    return text;
}

}  // namespace ovaline
