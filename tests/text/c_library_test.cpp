// Dates against the C library of platforms whose own is the standard's in full.
#include <gtest/gtest.h>

#include <clocale>
#include <ctime>

#include "platform/memory/clock.h"
#include "text/autodate.h"
#include "text/calendar.h"

namespace ovaline {
namespace {

TEST(AutoDate, AgreesWithTheCLibraryDayByDay) {
    ASSERT_TRUE(std::setlocale(LC_ALL, "C"));
    const std::string letters = "%a %A %b %B %d %H %I %j %m %M %p %S %U %w %W %X %V %y %Y %%";
    const std::u16string pattern(letters.begin(), letters.end());
    const platform::MemoryClock clock{platform::CalendarTime{}};
    platform::CalendarTime time = {1600, 1, 1};
    for (; time.year < 2500; time = addDays(time, 1)) {
        time.hour = (time.hour + 5) % 24;
        time.minute = (time.minute + 7) % 60;
        time.second = (time.second + 11) % 60;
        std::tm fields{};
        fields.tm_year = time.year - 1900;
        fields.tm_mon = time.month - 1;
        fields.tm_mday = time.day;
        fields.tm_hour = time.hour;
        fields.tm_min = time.minute;
        fields.tm_sec = time.second;
        timegm(&fields);
        char expected[256];
        ASSERT_NE(std::strftime(expected, sizeof expected, letters.c_str(), &fields), 0u);
        const std::u16string text = FormatAutoDate(time, pattern, clock);
        ASSERT_EQ(std::string(text.begin(), text.end()), expected);
    }
}

}  // namespace
}  // namespace ovaline
