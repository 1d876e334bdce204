#include "text/marking_text.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/memory/clock.h"
#include "text/enumerations.h"

namespace ovaline {
namespace {

using platform::CalendarTime;
using platform::MemoryClock;

constexpr CalendarTime kSample = {2026, 11, 17, 19, 33, 24};

/// A composition of "SN-", "42" and "/A" that each test varies.
struct Composition {
    std::u16string pattern = u"%d.%m.%Y";
    std::int32_t position = After_Suffix;
    std::int32_t type = Numerical;
    bool serialOn = true;
    bool dateOn = true;
    std::int32_t offset = 0;
};

std::u16string compose(const Composition& c, const platform::Clock& clock) {
    return ComposeMarkingText(u"SN-", u"42", u"/A", 4, c.pattern, c.position, c.type, c.serialOn, c.dateOn, c.offset,
                              clock);
}

std::u16string compose(const Composition& c, const CalendarTime& time = kSample) {
    return compose(c, MemoryClock{time});
}

TEST(MarkingText, Positions) {
    const std::pair<std::int32_t, std::u16string> orders[] = {{BeforePrefix, u"17.11.2026SN-0042/A"},
                                                              {After_Prefix, u"SN-17.11.20260042/A"},
                                                              {BeforeSuffix, u"SN-004217.11.2026/A"},
                                                              {After_Suffix, u"SN-0042/A17.11.2026"}};
    for (const auto& [position, text] : orders) {
        EXPECT_EQ(compose({.position = position}), text);
        EXPECT_EQ(compose({.position = position, .dateOn = false}), u"SN-0042/A");
        EXPECT_EQ(compose({.position = position, .serialOn = false}), u"17.11.2026");
        EXPECT_EQ(compose({.position = position, .serialOn = false, .dateOn = false}), u"");
    }
    for (const std::int32_t position : {0, 257, 262, -1, std::numeric_limits<std::int32_t>::min()})
        for (const bool dateOn : {false, true})
            EXPECT_EQ(compose({.position = position, .dateOn = dateOn}), u"") << position;
}

TEST(MarkingText, SerialTypes) {
    EXPECT_EQ(compose({.type = Alphanumeric, .dateOn = false}), u"SN-0042/A");
    EXPECT_EQ(compose({.type = 2, .dateOn = false}), u"SN-/A");
    EXPECT_EQ(compose({.type = 2}), u"SN-/A17.11.2026");
}

TEST(MarkingText, OffsetMovesTheDateAlone) {
    const auto date = [](const CalendarTime& from, std::int32_t days) {
        return compose({.pattern = u"%Y-%m-%d %X", .serialOn = false, .offset = days}, from);
    };
    EXPECT_EQ(date(kSample, 30), u"2026-12-17 19:33:24");
    EXPECT_EQ(date({2028, 3, 1}, -1), u"2028-02-29 00:00:00");
    EXPECT_EQ(date({2027, 2, 28}, 1), u"2027-03-01 00:00:00");
    EXPECT_EQ(date({2026, 12, 31, 23, 59, 59}, 1), u"2027-01-01 23:59:59");
    EXPECT_EQ(date({9999, 12, 31}, 0), u"9999-12-31 00:00:00");
    EXPECT_EQ(date({9999, 12, 31}, 1), u"Invalid DateTime");
    EXPECT_EQ(date({100, 1, 1}, -1), u"Invalid DateTime");
    for (const std::int32_t days :
         {3000000, std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min()}) {
        EXPECT_EQ(date(kSample, days), u"Invalid DateTime");
        EXPECT_EQ(date({.year = std::numeric_limits<std::int32_t>::max()}, days), u"Invalid DateTime");
    }
    EXPECT_EQ(compose({.offset = 3000000}), u"SN-0042/AInvalid DateTime");
}

TEST(MarkingText, ClockIsReadAtEachCall) {
    MemoryClock clock{{2026, 12, 31, 23, 59, 59}, {2027, 1, 1}};
    const Composition stamp = {.pattern = u"%X", .serialOn = false};
    EXPECT_EQ(compose(stamp, clock), u"23:59:59");
    EXPECT_EQ(compose(stamp, clock), u"00:00:00");
    EXPECT_EQ(clock.readings(), 2u);
    compose({.dateOn = false}, clock);
    EXPECT_EQ(clock.readings(), 2u);
}

TEST(MarkingText, EmptyPieces) {
    const MemoryClock clock{kSample};
    EXPECT_EQ(ComposeMarkingText(u"", u"", u"", 0, u"", BeforePrefix, Numerical, true, false, 0, clock), u"0");
    EXPECT_EQ(ComposeMarkingText(u"", u"", u"", 0, u"", BeforePrefix, Alphanumeric, true, true, 0, clock), u"default");
}

}  // namespace
}  // namespace ovaline
