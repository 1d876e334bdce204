#include "text/autodate.h"

#include <gtest/gtest.h>

#include <clocale>
#include <span>

#include "platform/memory/clock.h"
#include "text/calendar.h"
#include "text/enumerations.h"

namespace ovaline {
namespace {

using platform::CalendarTime;
using platform::MemoryClock;

constexpr CalendarTime kSample = {2026, 11, 17, 19, 33, 24};  // a Tuesday

std::string narrow(std::u16string_view text) {
    std::string ascii;
    for (const char16_t unit : text) ascii += unit < 0x80 ? static_cast<char>(unit) : '?';
    return ascii;
}

std::u16string format(std::u16string_view pattern, const CalendarTime& time = kSample) {
    MemoryClock clock{CalendarTime{}};
    clock.setZoneName(u"CET");
    return FormatAutoDate(time, pattern, clock);
}

struct Sample {
    std::u16string_view pattern;
    std::string_view text;
    CalendarTime time = kSample;
};

void expectAll(std::span<const Sample> samples) {
    for (const Sample& sample : samples)
        EXPECT_EQ(narrow(format(sample.pattern, sample.time)), sample.text) << narrow(sample.pattern);
}

TEST(AutoDate, FixedFormats) {
    std::string all;
    for (std::int32_t value = Format00; value < Custom; ++value)
        all += narrow(format(ResolveAutoDatePattern(value, u"own"))) + '|';
    EXPECT_EQ(all,
              "Tuesday, November 17, 2026|Tue, Nov 17, 2026|November 17, 2026|11/17/26|11/17/2026|11-17-26|11-17-2026|"
              "2026-11-17|17-Nov-26|17 Nov|17 Nov 26|17 Nov 2026|17 November 2026|17.11.2026|17.11.26|November 2026|");
    EXPECT_EQ(ResolveAutoDatePattern(Custom, u"%q own"), u"%q own");
    EXPECT_EQ(ResolveAutoDatePattern(201, u"own"), u"Prefix") << "any string of the module";
    for (const std::int32_t unknown : {0, -1, 19999, 20017, INT32_MIN, INT32_MAX})
        EXPECT_EQ(ResolveAutoDatePattern(unknown, u"own"), u"") << unknown;
}

TEST(AutoDate, MonthsAndHours) {
    constexpr std::string_view kCodes[] = {"JA A A", "FE B B", "MR C C", "AL D D", "MA E E", "JN F F",
                                           "JL G G", "AU H H", "SE J I", "OC K J", "NO L K", "DE M L"};
    for (std::int32_t month = 1; month <= 12; ++month)
        EXPECT_EQ(narrow(format(u"%C %L %l", {2026, month, 1})), kCodes[month - 1]);
    constexpr std::string_view kBlocks = "AAAABBBBCCCCDDDDEEEEFFFF";
    for (std::int32_t hour = 0; hour < 24; ++hour)
        EXPECT_EQ(narrow(format(u"%T", {2026, 1, 1, hour, 59})), kBlocks.substr(static_cast<std::size_t>(hour), 1));
}

TEST(AutoDate, LettersAndFlags) {
    constexpr CalendarTime kEarly = {905, 3, 4, 5, 6, 7};
    const Sample samples[] = {
        // The letters that the C library has as well are compared with it in a test of their own.
        {u"%x|%c|%z|%Z", "11/17/26|11/17/26 19:33:24|CET|CET"},
        {u"%5Y|%%Y|%%%Y|%D%d%q", "%Y|%Y|%2026|%17%"},
        {u"%Y %#Y %y %#y %e %#e", "0905 905 05 5 5 5", kEarly},
        {u"%#x|%#c", "Wednesday, March 4, 0905|Wednesday, March 4, 0905, 05:06:07", kEarly},
        {u"%#d %+3d %#+3H %+3#V %#q %#%", "17 17 19 47 % %"},
        {u"%+10y %+4e %+0Y %+00002Y", "36 0 2026 2028"},
        {u"%+2x|%+2c", "11/17/28|11/17/28 19:33:24"},
        {u"%#+2x|%+2#x", "Tuesday, November 17, 2028|Tuesday, November 17, 2028"},
        {u"%d.%m.%+1Y %+1V", "29.02.2029 09", {2028, 2, 29}},
        {u"%+2Y%Y%#Y%Y", "2028202620262026"},
        // A flag that stands there twice is a letter like any other.
        {u"%##Y|%+1+2Y|%#+1#Y", "%Y|%2Y|%Y"},
        {u"%+9000Y %+9000y", "11026 26"},
        {u"%+2147483647Y %+99999999999999999999Y", "2147485673 2147485673"},
        // A specifier without letter writes nothing.
        {u"100%", "100"},
        {u"%#", ""},
        {u"%+12#", ""},
        {u"%+Y%#+Yb", "YYb"},
        {u"%+%Y%+-1Y", "2026-1Y"},
    };
    expectAll(samples);
}

TEST(AutoDate, AnyCodeUnitSurvives) {
    const std::u16string odd = std::u16string(u"\xD83D\xDE00\xDE00\xD83D\uFFFF") + u'\0' + u"\u65E5\u5E74";
    EXPECT_EQ(format(odd), odd);
    EXPECT_EQ(format(std::u16string(u"%") + u'\0' + u"Y"), u"%Y");
    EXPECT_EQ(format(u"%\xD83D\xDE00Y"), u"%Y");
    EXPECT_EQ(format(u"%\xD83DY"), u"%Y");
    MemoryClock clock{kSample};
    EXPECT_EQ(FormatAutoDate(kSample, u"[%z%Z]", clock), u"[]");
}

TEST(AutoDate, LongTextsAreCut) {
    const std::u16string filled(kMaxDateLength, u'x');
    EXPECT_EQ(format(filled + u"y"), filled);
    const std::u16string before(kMaxDateLength - 1, u'x');
    EXPECT_EQ(format(before + u"%Y"), before + u"2");
    EXPECT_EQ(format(before + u"\xD83D\xDE00"), before);
    EXPECT_EQ(format(before.substr(1) + u"\xD83D\xDE00z"), before.substr(1) + u"\xD83D\xDE00");
    EXPECT_EQ(format(before + u"\xD83D"), before + u"\xD83D");
}

TEST(AutoDate, EmptyPatternAndYearsBeyond) {
    EXPECT_EQ(format(u""), u"default");
    for (const std::int32_t year : {100, 9999}) EXPECT_EQ(format(u"x", {year, 1, 1}), u"x");
    for (const std::int32_t year : {99, 10000, -5877641, INT32_MAX}) {
        EXPECT_EQ(format(u"x", {year, 12, 31}), u"Invalid DateTime");
        EXPECT_EQ(format(u"", {year, 12, 31}), u"Invalid DateTime");
    }
}

TEST(AutoDate, ProcessLocaleDoesNotMatter) {
    const std::u16string before = format(u"%a %A %b %B %p %x %c %#x %X");
    for (const char* locale : {"", "C.utf8", "de_DE.UTF-8", "ja_JP.UTF-8", "C"}) {
        std::setlocale(LC_ALL, locale);
        EXPECT_EQ(format(u"%a %A %b %B %p %x %c %#x %X"), before) << locale;
    }
}

}  // namespace
}  // namespace ovaline
