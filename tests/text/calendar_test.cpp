#include "text/calendar.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>

namespace ovaline {

namespace platform {

void PrintTo(const CalendarTime& time, std::ostream* out) {
    *out << time.year << '-' << time.month << '-' << time.day << 'T' << time.hour << ':' << time.minute << ':'
         << time.second;
}

}  // namespace platform

namespace {

using platform::CalendarTime;

bool isLeap(std::int32_t year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

/// The next day, as one turns the pages of a calendar.
CalendarTime dayAfter(CalendarTime date) {
    constexpr std::int32_t kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool hasLeapDay = date.month == 2 && isLeap(date.year);
    if (++date.day > kDays[date.month - 1] + (hasLeapDay ? 1 : 0)) {
        date.day = 1;
        if (++date.month > 12) {
            date.month = 1;
            ++date.year;
        }
    }
    return date;
}

TEST(Calendar, EveryDayFollowsTheOneBefore) {
    CalendarTime date = {.year = 100};
    std::int64_t number = dayNumber(date);
    std::int32_t dayOfWeek = weekday(date);
    std::int32_t inYear = 1;
    for (; date.year <= 9999; ++number) {
        ASSERT_EQ(dayNumber(date), number) << ::testing::PrintToString(date);
        ASSERT_EQ(weekday(date), dayOfWeek) << ::testing::PrintToString(date);
        ASSERT_EQ(dayOfYear(date), inYear) << ::testing::PrintToString(date);
        const CalendarTime next = dayAfter(date);
        ASSERT_EQ(addDays(date, 1), next);
        ASSERT_EQ(addDays(next, -1), date);
        inYear = next.year == date.year ? inYear + 1 : 1;
        dayOfWeek = (dayOfWeek + 1) % 7;
        date = next;
    }
    EXPECT_EQ(dayNumber({.year = 1970}), 0);
    EXPECT_EQ(weekday({.year = 1970}), 4);
}

TEST(Calendar, OffsetsCarryAndKeepTheTimeOfDay) {
    const struct {
        CalendarTime from;
        std::int32_t days;
        CalendarTime to;
    } cases[] = {
        {{2026, 12, 31, 19, 33, 24}, 1, {2027, 1, 1, 19, 33, 24}},
        {{2028, 3, 1, 0, 0, 0}, -1, {2028, 2, 29, 0, 0, 0}},
        {{2027, 2, 28, 23, 59, 59}, 1, {2027, 3, 1, 23, 59, 59}},
        {{2100, 2, 28}, 1, {2100, 3, 1}},
        {{2000, 2, 28}, 1, {2000, 2, 29}},
        {{2026, 11, 17}, 146097, {2426, 11, 17}},
        {{2026, 11, 17}, 0, {2026, 11, 17}},
        {{2026, 2, 31}, 0, {2026, 3, 3}},
        {{1970, 1, 1}, std::numeric_limits<std::int32_t>::max(), {5881580, 7, 11}},
        {{1970, 1, 1}, std::numeric_limits<std::int32_t>::min(), {-5877641, 6, 23}},
    };
    for (const auto& c : cases) EXPECT_EQ(addDays(c.from, c.days), c.to);
}

TEST(Calendar, WeeksAroundNewYear) {
    const struct {
        CalendarTime date;
        std::int32_t iso, fromSunday, fromMonday;
    } cases[] = {
        {{2027, 1, 1}, 53, 0, 0},                                // a Friday
        {{2025, 12, 29}, 1, 52, 52},                             // a Monday
        {{2026, 11, 17}, 47, 46, 46}, {{2023, 1, 1}, 52, 1, 0},  // a Sunday
        {{2024, 1, 1}, 1, 0, 1},                                 // a Monday
        {{2028, 12, 31}, 52, 53, 52}, {{2012, 12, 30}, 52, 53, 52},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(isoWeek(c.date), c.iso) << ::testing::PrintToString(c.date);
        EXPECT_EQ(weekOfYear(c.date, 0), c.fromSunday) << ::testing::PrintToString(c.date);
        EXPECT_EQ(weekOfYear(c.date, 1), c.fromMonday) << ::testing::PrintToString(c.date);
    }
}

}  // namespace
}  // namespace ovaline
