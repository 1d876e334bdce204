// Serial numbers: the number of the next part to be marked, kept as text, how it is shown and how it counts.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ovaline {

/// Widest zero padding of a displayed serial number, in UTF-16 code units. The digit count comes from a host that
/// nobody checks; unlimited, 2^31 - 1 would lay out gigabytes of zeros. 255 is far above the list of digit counts
/// (0..15) and keeps the padding of the largest array (255 by 255 copies) at 32 MiB.
inline constexpr std::int32_t kMaxDisplayWidth = 255;

/// What is marked for `serial`.
/// - Numerical: the value in decimal, padded on the left with zeros to `digits` characters, of which a minus sign is
///   the first. A longer value shows in full.
/// - Alphanumeric: the text cut to its first 2 * `digits` code units and padded on the left with '0' to `digits`.
/// - Any other type: nothing.
/// `digits` 0 or less neither pads nor cuts. Padding ends at kMaxDisplayWidth; a cut beyond it is still made.
///
/// A numerical text is read as a signed 64-bit integer: white space (the six characters of the C locale: space, tab,
/// line feed, vertical tab, form feed, carriage return), one sign or none, then '0'..'9' up to any other character. No
/// digits read as 0; a value beyond the type reads as its nearest bound.
std::u16string serialDisplayForm(std::u16string_view serial, std::int32_t type, std::int32_t digits);

/// The serial text of the next part.
/// - Numerical: the value plus 1 (the largest 64-bit value is followed by the smallest), or 0 if that, taken as an
///   unsigned 64-bit number, has reached 10^`digits`: a negative value counts as one that has. `digits` 0 or less never
///   starts over, nor does 20 or more, where no 64-bit number reaches the limit. Plain decimal, no leading zeros.
/// - Any other type counts as alphanumeric, without regard to `digits`. Digits count 0..9 and capital letters A..Z,
///   each carrying into the position before it; a carry out of the first position is lost. Every other code unit, when it is
///   added to, becomes the next one (0 follows 0xFFFF). Two texts are stepped otherwise: all nines become 'A' and
///   zeros, and "Z...Z9", and "9" alone, end in 'A' instead. An empty text stays empty.
std::u16string StepSerialNumber(std::u16string_view serial, std::int32_t type, std::int32_t digits);

/// `serial` stepped `steps` times: always what that many calls of StepSerialNumber give, in a time that depends on the
/// length of the text alone. 0 steps give `serial` itself, a number's leading zeros included.
std::u16string advanceSerialNumber(std::u16string_view serial, std::int32_t type, std::int32_t digits,
                                   std::uint64_t steps);

}  // namespace ovaline
