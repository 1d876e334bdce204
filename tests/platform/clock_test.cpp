// The system's clock, under time zones and locales that the environment names.
#include "platform/clock.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <ctime>

#include "tests/platform/wall_clock.h"

namespace ovaline::platform {
namespace {

/// Sets variables of the environment for one test.
class ClockTest : public ::testing::Test {
protected:
    void TearDown() override {
        for (const char* name : {"TZ", "LC_ALL"}) unsetenv(name);
        tzset();
    }
    static void setZone(const char* zone) {
        setenv("TZ", zone, 1);
        tzset();
    }
    static std::string zoneAt(const CalendarTime& time) {
        const std::u16string name = systemClock().zoneName(time);
        return {name.begin(), name.end()};
    }
};

// Central European time as a rule of its own, so that no zone file is needed.
constexpr const char* kCentralEurope = "CET-1CEST,M3.5.0,M10.5.0/3";

TEST_F(ClockTest, NowIsTheWallClockOfTheZone) {
    for (const char* zone : {"UTC0", kCentralEurope, "XYZ-14", "ABC+11:30"}) {
        setZone(zone);
        const std::time_t before = std::time(nullptr);
        const std::time_t shown = secondsOf(systemClock().now());
        EXPECT_GE(shown, before) << zone;
        EXPECT_LE(shown, std::time(nullptr)) << zone;
    }
}

TEST_F(ClockTest, ZoneIsTheOneInEffectAtThatTime) {
    setZone(kCentralEurope);
    EXPECT_EQ(zoneAt({2026, 1, 15, 12}), "CET");
    EXPECT_EQ(zoneAt({2026, 7, 15, 12}), "CEST");
    EXPECT_EQ(zoneAt({2026, 3, 29, 1, 59, 59}), "CET");
    EXPECT_EQ(zoneAt({2026, 3, 29, 3}), "CEST");
    setZone("UTC0");
    EXPECT_EQ(zoneAt({2026, 7, 15, 12}), "UTC");
}

TEST_F(ClockTest, DefaultTextIsThatOfTheUsersLocale) {
    for (const char* locale : {"C", "C.utf8", "not_THERE"}) {
        setenv("LC_ALL", locale, 1);
        EXPECT_EQ(systemClock().defaultText({2026, 11, 17, 19, 33, 24}), u"11/17/26 19:33:24") << locale;
    }
    EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
    // An hour that the change to daylight saving leaves out is still written as it is.
    setZone(kCentralEurope);
    EXPECT_EQ(systemClock().defaultText({2026, 3, 29, 2, 30, 0}), u"03/29/26 02:30:00");
    EXPECT_EQ(systemClock().defaultText({100, 1, 1}), u"01/01/00 00:00:00");
}

}  // namespace
}  // namespace ovaline::platform
