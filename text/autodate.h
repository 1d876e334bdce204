// AutoDate: the date part of the marked text.
//
// A pattern is text with specifiers: '%', then '#' and '+N' at most once each and in any order, then a letter. '#'
// picks the alternative form of Y, y, e, x and c, '+N' adds N years to the year that they write; other letters ignore
// both.
//
//     a A  weekday, short and in full              L  month as a letter A to M without I
//     b B  month, short and in full                l  month as a letter A to L
//     d    day 01-31                               C  month as two letters, JA to DE
//     m    month 01-12                             T  four hours of the day as a letter A to F
//     j    day of the year 001-366                 Y  year, four digits at least; # as it is
//     U W  week 00-53 from Sunday, from Monday     y  year modulo 100, two digits; # as it is
//     V    week 01-53 of ISO 8601                  e  last digit of the year
//     w    weekday 0-6 from Sunday                 x  mm/dd/yy; # "Tuesday, November 17, 2026"
//     H I  hour 00-23, 01-12                       c  x and the time of day
//     p    AM or PM                                X  hh:mm:ss
//     M S  minute, second                          z Z  name of the time zone, nothing when unknown
//     %    a percent sign; so does any other letter, which is itself left out
//
// Names are English in every process: a host that sets its locale must not change what is marked.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/clock.h"

namespace ovaline {

/// Longest text that a pattern gives, in UTF-16 code units. A longer one is cut, before a surrogate pair rather than
/// within it.
inline constexpr std::size_t kMaxDateLength = 255;

/// The years that a date text can be made of.
inline constexpr std::int32_t kFirstDateYear = 100;
inline constexpr std::int32_t kLastDateYear = 9999;

/// The pattern of an `AutoDateFormat`: `customText` for `Custom`, else the string of the module that has this number, a
/// date pattern or not; empty where there is no such string.
std::u16string ResolveAutoDatePattern(std::int32_t format, std::u16string_view customText);

/// `time` written by `pattern`. "Invalid DateTime" where its year lies outside kFirstDateYear to kLastDateYear; for an
/// empty pattern the text by which the user's locale writes date and time, from `clock`. A specifier without letter
/// writes nothing. A year that '+N' carries beyond 9999 is written with all its digits.
std::u16string FormatAutoDate(const platform::CalendarTime& time, std::u16string_view pattern,
                              const platform::Clock& clock);

}  // namespace ovaline
