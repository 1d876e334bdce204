// Text assembly: the one string that is laid along the ellipse when it is composed of a serial number and a date.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/clock.h"

namespace ovaline {

/// Prefix, displayed serial number, suffix and date, joined without anything between them:
///
///     position       order                            with the date off
///     BeforePrefix   date, prefix, serial, suffix     the same order without it
///     After_Prefix   prefix, date, serial, suffix
///     BeforeSuffix   prefix, serial, date, suffix
///     After_Suffix   prefix, serial, suffix, date
///     any other      nothing                          nothing
///
/// Without `serialOn` prefix, serial number and suffix are all left out. The date is the clock's, read once in each
/// call and moved by `dateOffset` days of the calendar with the time of day kept, as FormatAutoDate writes it by
/// `pattern`; with the date off the clock is not read. `serialType` and `digitCount` are those of serialDisplayForm.
std::u16string ComposeMarkingText(std::u16string_view prefix, std::u16string_view serialText,
                                  std::u16string_view suffix, std::int32_t digitCount, std::u16string_view pattern,
                                  std::int32_t position, std::int32_t serialType, bool serialOn, bool dateOn,
                                  std::int32_t dateOffset, const platform::Clock& clock);

}  // namespace ovaline
