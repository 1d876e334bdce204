#include "platform/posix/fonts_scaling.h"

#include <gtest/gtest.h>

#include <limits>

namespace ovaline::platform {
namespace {

constexpr CellUnits kCell{2048, 1854, 434};
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

TEST(FontScaling, MulDivRoundsHalvesAwayFromZero) {
    EXPECT_EQ(mulDiv(5, 1, 2), 3);
    EXPECT_EQ(mulDiv(-5, 1, 2), -3);
    EXPECT_EQ(mulDiv(7, 1, 5), 1);
    EXPECT_EQ(mulDiv(8, -1, 5), -2);
    EXPECT_EQ(mulDiv(kMost, 65535, 65535), kMost);
}

TEST(FontScaling, CellHeightIsNeverExceeded) {
    EXPECT_EQ(dotsPerEm(100, kCell), 89);  // 89.5 rounds to 90, whose cell is 101 dots high
    EXPECT_EQ(dotsPerEm(101, kCell), 90);
    EXPECT_EQ(dotsPerEm(1, kCell), 1);
    EXPECT_EQ(cellDots(1854, 89, 2048), 81);
    EXPECT_EQ(cellDots(434, 89, 2048), 19);
    EXPECT_EQ(cellDots(434, 394, 2048), 83);  // 83.494
    EXPECT_EQ(cellDots(250, 6, 1000), 1);     // 1.5, at a scale rounded down
    EXPECT_EQ(cellDots(250, 50, 1000), 13);   // 12.5, at a scale rounded up
}

TEST(FontScaling, SizesWithinTheEngine) {
    EXPECT_EQ(dotsPerEm(-17, kCell), 17);
    EXPECT_EQ(dotsPerEm(-65535, kCell), 65535);
    EXPECT_FALSE(dotsPerEm(-65536, kCell));
    EXPECT_FALSE(dotsPerEm(0, kCell));
    EXPECT_FALSE(dotsPerEm(kMost, kCell));
    EXPECT_FALSE(dotsPerEm(kMost, CellUnits{65535, 1, 0}));
    EXPECT_FALSE(dotsPerEm(std::numeric_limits<std::int32_t>::min(), kCell));
    EXPECT_FALSE(dotsPerEm(-65535, CellUnits{16, 16, 0}));  // the scale itself overflows
}

TEST(FontScaling, AdvancesRoundUp) {
    EXPECT_EQ(advanceDots(0), 0);
    EXPECT_EQ(advanceDots(1), 1);
    EXPECT_EQ(advanceDots(64), 1);
    EXPECT_EQ(advanceDots(65), 2);
}

TEST(FontScaling, KerningCountsOneUnitMore) {
    EXPECT_EQ(kerningDots(-152, 89, 2048), -7);  // 153 units are 6.65 dots
    EXPECT_EQ(kerningDots(1023, 1, 2048), 1);    // 1024 units are half a dot
    EXPECT_EQ(kerningDots(-1023, 1, 2048), -1);
    EXPECT_EQ(kerningDots(1022, 1, 2048), 0);
}

TEST(FontScaling, MadeUpStyles) {
    EXPECT_EQ(emboldeningStrength(24), 64);
    EXPECT_EQ(emboldeningStrength(89), 237);  // 237.3
    EXPECT_EQ(slantShift(5), 1);
    EXPECT_EQ(slantShift(538), 135);  // 134.5
    EXPECT_EQ(slantShift(-538), -135);
}

}  // namespace
}  // namespace ovaline::platform
