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

std::u16string compose(const Composition& c, const platform::Clock& clock = MemoryClock{kSample}) {
    return ComposeMarkingText(u"SN-", u"42", u"/A", 4, c.pattern, c.position, c.type, c.serialOn, c.dateOn, c.offset,
                              clock);
}

TEST(MarkingText, PositionsAndTypes) {
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
    for (const std::int32_t position : {0, 257, 262, -1})
        for (const bool dateOn : {false, true})
            EXPECT_EQ(compose({.position = position, .dateOn = dateOn}), u"") << position;
    EXPECT_EQ(compose({.type = Alphanumeric, .dateOn = false}), u"SN-0042/A");
    EXPECT_EQ(compose({.type = 2}), u"SN-/A17.11.2026");
}

TEST(MarkingText, OffsetMovesTheDateAlone) {
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    const struct {
        CalendarTime from;
        std::int32_t days;
        std::u16string text;
    } cases[] = {
        {kSample, 30, u"2026-12-17 19:33:24"},         {{2028, 3, 1}, -1, u"2028-02-29 00:00:00"},
        {{9999, 12, 31}, 0, u"9999-12-31 00:00:00"},   {{9999, 12, 31}, 1, u"Invalid DateTime"},
        {{100, 1, 1}, -1, u"Invalid DateTime"},        {kSample, kMost, u"Invalid DateTime"},
        {{.year = kMost}, kMost, u"Invalid DateTime"}, {kSample, -kMost - 1, u"Invalid DateTime"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(compose({.pattern = u"%Y-%m-%d %X", .serialOn = false, .offset = c.days}, MemoryClock{c.from}),
                  c.text);
    EXPECT_EQ(compose({.offset = 3000000}), u"SN-0042/AInvalid DateTime");
}

TEST(MarkingText, ClockIsReadAtEachCall) {
    const MemoryClock clock{{2026, 12, 31, 23, 59, 59}, {2027, 1, 1}};
    const Composition stamp = {.pattern = u"%X", .serialOn = false};
    EXPECT_EQ(compose(stamp, clock), u"23:59:59");
    EXPECT_EQ(compose(stamp, clock), u"00:00:00");
    EXPECT_EQ(clock.readings(), 2u);
    compose({.dateOn = false}, clock);
    EXPECT_EQ(clock.readings(), 2u);
}

}  // namespace
}  // namespace ovaline
