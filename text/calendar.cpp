#include "text/calendar.h"

namespace ovaline {

namespace {

using platform::CalendarTime;

// The calendar repeats every 400 years. Within such an era, years are counted from March, so that the leap day is the
// last day of its year: Howard Hinnant, "chrono-Compatible Low-Level Date Algorithms", days_from_civil and
// civil_from_days.
constexpr std::int64_t kYearsOfEra = 400;
constexpr std::int64_t kDaysOfEra = 146097;
constexpr std::int64_t kEpoch = 719468;  // days from 0000-03-01 to 1970-01-01

constexpr std::int64_t floorDivide(std::int64_t value, std::int64_t divisor) {
    return (value >= 0 ? value : value - (divisor - 1)) / divisor;
}

constexpr std::int32_t modulo(std::int64_t value, std::int32_t divisor) {
    return static_cast<std::int32_t>(value - floorDivide(value, divisor) * divisor);
}

constexpr std::int32_t kThursday = 4;  // 1970-01-01

}  // namespace

std::int64_t dayNumber(const CalendarTime& date) {
    const std::int64_t year = std::int64_t{date.year} - (date.month <= 2 ? 1 : 0);
    const std::int64_t era = floorDivide(year, kYearsOfEra);
    const std::int64_t yearOfEra = year - era * kYearsOfEra;
    const std::int64_t monthFromMarch = date.month > 2 ? date.month - 3 : date.month + 9;
    const std::int64_t dayOfMarchYear = (153 * monthFromMarch + 2) / 5 + date.day - 1;
    const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfMarchYear;
    return era * kDaysOfEra + dayOfEra - kEpoch;
}

CalendarTime addDays(const CalendarTime& time, std::int32_t days) {
    const std::int64_t day = dayNumber(time) + days + kEpoch;
    const std::int64_t era = floorDivide(day, kDaysOfEra);
    const std::int64_t dayOfEra = day - era * kDaysOfEra;
    const std::int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const std::int64_t dayOfMarchYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t monthFromMarch = (5 * dayOfMarchYear + 2) / 153;
    CalendarTime moved = time;
    moved.month = static_cast<std::int32_t>(monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9);
    moved.day = static_cast<std::int32_t>(dayOfMarchYear - (153 * monthFromMarch + 2) / 5 + 1);
    moved.year = static_cast<std::int32_t>(yearOfEra + era * kYearsOfEra + (moved.month <= 2 ? 1 : 0));
    return moved;
}

std::int32_t weekday(const CalendarTime& date) {
    return modulo(dayNumber(date) + kThursday, 7);
}

std::int32_t dayOfYear(const CalendarTime& date) {
    return static_cast<std::int32_t>(dayNumber(date) - dayNumber({.year = date.year})) + 1;
}

std::int32_t weekOfYear(const CalendarTime& date, std::int32_t firstWeekday) {
    const std::int32_t daysIntoWeek = modulo(weekday(date) - firstWeekday, 7);
    return (dayOfYear(date) + 6 - daysIntoWeek) / 7;
}

std::int32_t isoWeek(const CalendarTime& date) {
    // A week belongs to the year of its Thursday, three days after the Monday that it begins on.
    const CalendarTime thursday = addDays(date, 3 - modulo(weekday(date) - 1, 7));
    return (dayOfYear(thursday) + 6) / 7;
}

}  // namespace ovaline
