// Numbers in edits, read and written alike in every locale.
#pragma once

#include <string>
#include <string_view>

namespace ovaline {

/// The number that `text` begins with: white space, a sign, decimal digits with at most one point, an exponent. What
/// follows is ignored; 0 where there is no number. Neither hexadecimal digits nor names of infinities are numbers. One
/// too large for a double is the largest double.
double leadingNumber(std::u16string_view text);

/// The nearest single; beyond the singles' range the largest one.
float nearestSingle(double number);

/// No more decimals than this are ever written: a double holds no more digits.
inline constexpr int kMostDecimals = 15;

/// The number with that many decimals, from 0 to `kMostDecimals`. What is not finite reads "inf", "-inf" or "nan".
std::u16string fixedText(double number, int decimals);

/// The number in its shortest form of at most six digits, with an exponent where that is shorter.
std::u16string generalText(double number);

}  // namespace ovaline
