// Calendar arithmetic on dates of the proleptic Gregorian calendar, whatever their year.
#pragma once

#include <cstdint>

#include "platform/clock.h"

namespace ovaline {

// Each function takes a date whose month is 1 to 12 and whose day the month has; the time of day does not matter to it.

/// Days from 1970-01-01 to the date, negative before it.
std::int64_t dayNumber(const platform::CalendarTime& date);

/// `time` moved by `days`, of any size and sign; the time of day stays. The year may come out beyond what can be
/// written, up to about 5.9 million years away. A day that the month does not have counts on into the next month.
platform::CalendarTime addDays(const platform::CalendarTime& time, std::int32_t days);

/// Day of the week, 0 (Sunday) to 6.
std::int32_t weekday(const platform::CalendarTime& date);

/// Day of the year, 1 to 366.
std::int32_t dayOfYear(const platform::CalendarTime& date);

/// Week of the year, 0 to 53, of weeks that begin on `firstWeekday` (0 is Sunday): the days before the first such day
/// are in week 0.
std::int32_t weekOfYear(const platform::CalendarTime& date, std::int32_t firstWeekday);

/// Week number of ISO 8601, 1 to 53: weeks begin on Monday, and week 1 holds the year's first Thursday, so that the
/// days around New Year can belong to a week of the neighbouring year.
std::int32_t isoWeek(const platform::CalendarTime& date);

}  // namespace ovaline
