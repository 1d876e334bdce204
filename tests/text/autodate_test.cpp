#include "text/autodate.h"

#include <gtest/gtest.h>

#include <clocale>
#include <ctime>
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
    constexpr std::string_view kTexts[] = {"Tuesday, November 17, 2026",
                                           "Tue, Nov 17, 2026",
                                           "November 17, 2026",
                                           "11/17/26",
                                           "11/17/2026",
                                           "11-17-26",
                                           "11-17-2026",
                                           "2026-11-17",
                                           "17-Nov-26",
                                           "17 Nov",
                                           "17 Nov 26",
                                           "17 Nov 2026",
                                           "17 November 2026",
                                           "17.11.2026",
                                           "17.11.26",
                                           "November 2026"};
    std::int32_t value = Format00;
    for (const std::string_view text : kTexts) EXPECT_EQ(narrow(format(ResolveAutoDatePattern(value++, u"own"))), text);
    EXPECT_EQ(value, Custom);
}

TEST(AutoDate, PatternOfAFormat) {
    EXPECT_EQ(ResolveAutoDatePattern(Custom, u"%q own"), u"%q own");
    EXPECT_EQ(ResolveAutoDatePattern(Custom, u""), u"");
    EXPECT_EQ(ResolveAutoDatePattern(201, u"own"), u"Prefix");
    for (const std::int32_t unknown : {0, -1, 19999, 20017, INT32_MIN, INT32_MAX})
        EXPECT_EQ(ResolveAutoDatePattern(unknown, u"own"), u"") << unknown;
}

TEST(AutoDate, EveryLetter) {
    const Sample samples[] = {
        {u"%L", "L"},        {u"%l", "K"},       {u"%C", "NO"},       {u"%T", "E"},     {u"%Y", "2026"},
        {u"%y", "26"},       {u"%e", "6"},       {u"%x", "11/17/26"}, {u"%V", "47"},    {u"%c", "11/17/26 19:33:24"},
        {u"%a", "Tue"},      {u"%A", "Tuesday"}, {u"%b", "Nov"},      {u"%d", "17"},    {u"%B", "November"},
        {u"%H", "19"},       {u"%I", "07"},      {u"%j", "321"},      {u"%m", "11"},    {u"%M", "33"},
        {u"%p", "PM"},       {u"%S", "24"},      {u"%U", "46"},       {u"%w", "2"},     {u"%W", "46"},
        {u"%X", "19:33:24"}, {u"%z", "CET"},     {u"%Z", "CET"},      {u"%%", "%"},     {u"%q", "%"},
        {u"%5Y", "%Y"},      {u"%%Y", "%Y"},     {u"%%%Y", "%2026"},  {u"%D%d", "%17"},
    };
    expectAll(samples);
}

TEST(AutoDate, MonthsAndHours) {
    constexpr std::string_view kCodes[] = {"JA A A", "FE B B", "MR C C", "AL D D", "MA E E", "JN F F",
                                           "JL G G", "AU H H", "SE J I", "OC K J", "NO L K", "DE M L"};
    for (std::int32_t month = 1; month <= 12; ++month)
        EXPECT_EQ(narrow(format(u"%C %L %l", {2026, month, 1})), kCodes[month - 1]);
    constexpr std::string_view kBlocks = "AAAABBBBCCCCDDDDEEEEFFFF";
    for (std::int32_t hour = 0; hour < 24; ++hour)
        EXPECT_EQ(narrow(format(u"%T", {2026, 1, 1, hour, 59})), kBlocks.substr(static_cast<std::size_t>(hour), 1));
    const Sample samples[] = {{u"%I %p", "12 AM", {2026, 1, 1, 0}},
                              {u"%I %p", "11 AM", {2026, 1, 1, 11}},
                              {u"%I %p", "12 PM", {2026, 1, 1, 12}},
                              {u"%I %p", "11 PM", {2026, 1, 1, 23}}};
    expectAll(samples);
}

TEST(AutoDate, Flags) {
    constexpr CalendarTime kEarly = {905, 3, 4, 5, 6, 7};
    const Sample samples[] = {
        {u"%Y %#Y %y %#y %e %#e", "0905 905 05 5 5 5", kEarly},
        {u"%#x|%#c", "Wednesday, March 4, 0905|Wednesday, March 4, 0905, 05:06:07", kEarly},
        {u"%#x", "Tuesday, November 17, 2026"},
        {u"%#c", "Tuesday, November 17, 2026, 19:33:24"},
        {u"%#d %+3d %#+3H %+3#V %#q %#%", "17 17 19 47 % %"},
        {u"%d.%m.%+2Y", "17.11.2028"},
        {u"%+1Y", "2027", {2026, 12, 31}},
        {u"%+10y %+4e %+0Y %+00002Y", "36 0 2026 2028"},
        {u"%+2x|%+2c", "11/17/28|11/17/28 19:33:24"},
        {u"%#+2x|%+2#x", "Tuesday, November 17, 2028|Tuesday, November 17, 2028"},
        {u"%d.%m.%+1Y %+1V", "29.02.2029 09", {2028, 2, 29}},
        {u"%+2Y%Y%#Y%Y", "2028202620262026"},
        // A flag that stands there twice is a letter like any other.
        {u"%##Y|%+1+2Y|%#+1#Y", "%Y|%2Y|%Y"},
        {u"%+9000Y %+9000y", "11026 26"},
        {u"%+2147483647Y %+99999999999999999999Y", "2147485673 2147485673"},
    };
    expectAll(samples);
}

TEST(AutoDate, UnfinishedSpecifiersAreDropped) {
    const Sample samples[] = {{u"100%", "100"},  {u"%#", ""},       {u"a%+", "a"}, {u"%#+", ""}, {u"%+#", "#"},
                              {u"%+12", ""},     {u"%+12#", ""},    {u"%+Y", "Y"}, {u"%", ""},   {u"%#+Yb", "Yb"},
                              {u"%+%Y", "2026"}, {u"%+-1Y", "-1Y"}, {u"%%%", "%"}};
    expectAll(samples);
}

TEST(AutoDate, AnyCodeUnitSurvives) {
    const std::u16string odd = std::u16string(u"\xD83D\xDE00\xDE00\xD83D\uFFFF") + u'\0' + u"\u65E5\u5E74";
    EXPECT_EQ(format(odd), odd);
    EXPECT_EQ(format(u"%Y\u5E74"), u"2026\u5E74");
    EXPECT_EQ(format(std::u16string(u"%") + u'\0' + u"Y"), u"%Y");
    EXPECT_EQ(format(u"%\xD83D\xDE00Y"), u"%Y");
    EXPECT_EQ(format(u"%\xD83DY"), u"%Y");
    MemoryClock clock{kSample};
    EXPECT_EQ(FormatAutoDate(kSample, u"[%z%Z]", clock), u"[]");
}

TEST(AutoDate, LongTextsAreCut) {
    const std::u16string filled(kMaxDateLength, u'x');
    EXPECT_EQ(format(filled + u"y"), filled);
    EXPECT_EQ(format(filled), filled);
    const std::u16string before(kMaxDateLength - 1, u'x');
    EXPECT_EQ(format(before + u"%Y"), before + u"2");
    EXPECT_EQ(format(before + u"\xD83D\xDE00"), before);
    EXPECT_EQ(format(before.substr(1) + u"\xD83D\xDE00z"), before.substr(1) + u"\xD83D\xDE00");
    EXPECT_EQ(format(before + u"\xD83D"), before + u"\xD83D");
    std::u16string many;
    for (int i = 0; i < 1000; ++i) many += u"%B";
    EXPECT_EQ(format(many).size(), kMaxDateLength);
}

TEST(AutoDate, EmptyPatternAndYearsBeyond) {
    EXPECT_EQ(format(u""), u"default");
    for (const std::int32_t year : {100, 9999}) EXPECT_EQ(format(u"x", {year, 1, 1}), u"x");
    for (const std::int32_t year : {99, 10000, 0, -5877641, INT32_MAX}) {
        EXPECT_EQ(format(u"x", {year, 12, 31}), u"Invalid DateTime");
        EXPECT_EQ(format(u"", {year, 12, 31}), u"Invalid DateTime");
    }
}

TEST(AutoDate, AgreesWithTheCLibraryDayByDay) {
    ASSERT_TRUE(std::setlocale(LC_ALL, "C"));
    const std::string letters = "%a %A %b %B %d %H %I %j %m %M %p %S %U %w %W %X %V %y %Y %%";
    const std::u16string pattern(letters.begin(), letters.end());
    CalendarTime time = {1600, 1, 1};
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
        ASSERT_EQ(narrow(format(pattern, time)), expected);
    }
}

TEST(AutoDate, ProcessLocaleDoesNotMatter) {
    const std::u16string_view pattern = u"%a %A %b %B %p %x %c %#x %X";
    const std::u16string before = format(pattern);
    for (const char* locale : {"", "C.utf8", "de_DE.UTF-8", "ja_JP.UTF-8"}) {
        std::setlocale(LC_ALL, locale);
        EXPECT_EQ(format(pattern), before) << locale;
    }
    std::setlocale(LC_ALL, "C");
}

}  // namespace
}  // namespace ovaline
