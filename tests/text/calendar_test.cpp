#include "text/calendar.h"

#include <gtest/gtest.h>

#include <limits>

namespace ovaline {
namespace {

using platform::CalendarTime;

/// The next day, as one turns the pages of a calendar.
CalendarTime dayAfter(CalendarTime date) {
    constexpr std::int32_t kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leapYear = date.year % 4 == 0 && (date.year % 100 != 0 || date.year % 400 == 0);
    if (++date.day > kDays[date.month - 1] + (date.month == 2 && leapYear ? 1 : 0)) {
        date.day = 1;
        if (++date.month > 12) {
            date.month = 1;
            ++date.year;
        }
    }
    return date;
}

TEST(Calendar, EveryDayFollowsTheOneBefore) {
    EXPECT_EQ(dayNumber({.year = 1970}), 0);
    EXPECT_EQ(weekday({.year = 1970}), 4);
    CalendarTime date = {.year = 100};
    std::int64_t number = dayNumber(date);
    std::int32_t dayOfWeek = weekday(date);
    std::int32_t inYear = 1;
    for (; date.year <= 9999; ++number) {
        ASSERT_EQ(dayNumber(date), number);
        ASSERT_EQ(weekday(date), dayOfWeek) << number;
        ASSERT_EQ(dayOfYear(date), inYear) << number;
        const CalendarTime next = dayAfter(date);
        ASSERT_EQ(addDays(date, 1), next) << number;
        ASSERT_EQ(addDays(next, -1), date) << number;
        inYear = next.year == date.year ? inYear + 1 : 1;
        dayOfWeek = (dayOfWeek + 1) % 7;
        date = next;
    }
}

TEST(Calendar, OffsetsCarryAndKeepTheTimeOfDay) {
    const struct {
        CalendarTime from;
        std::int32_t days;
        CalendarTime to;
    } cases[] = {
        {{2026, 12, 31, 19, 33, 24}, 1, {2027, 1, 1, 19, 33, 24}},
        {{2026, 11, 17}, 146097, {2426, 11, 17}},
        {{2026, 2, 31}, 0, {2026, 3, 3}},
        {{1970, 1, 1}, std::numeric_limits<std::int32_t>::max(), {5881580, 7, 11}},
        {{1970, 1, 1}, std::numeric_limits<std::int32_t>::min(), {-5877641, 6, 23}},
    };
    for (const auto& c : cases) EXPECT_EQ(addDays(c.from, c.days), c.to) << c.days;
}

}  // namespace
}  // namespace ovaline
