// The edges of the scaling; what real fonts have is compared with their files.
#include "platform/posix/fonts_scaling.h"

#include <gtest/gtest.h>

#include <limits>

namespace ovaline::platform {
namespace {

constexpr CellUnits kCell{2048, 1854, 434};
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();

TEST(FontScaling, RoundsHalvesAwayFromZero) {
    EXPECT_EQ(mulDiv(5, 1, 2), 3);
    EXPECT_EQ(mulDiv(-5, 1, 2), -3);
    EXPECT_EQ(mulDiv(kMost, 65535, 65535), kMost);
    EXPECT_EQ(kerningDots(1023, 1, 2048), 1);  // one unit more is half a dot
    EXPECT_EQ(kerningDots(-1023, 1, 2048), -1);
    EXPECT_EQ(kerningDots(1022, 1, 2048), 0);
    EXPECT_EQ(cellDots(250, 6, 1000), 1);    // 1.5, at a scale rounded down
    EXPECT_EQ(cellDots(250, 50, 1000), 13);  // 12.5, at a scale rounded up
    EXPECT_EQ(emboldeningStrength(89), 237);
    EXPECT_EQ(slantShift(-538), -135);
}

TEST(FontScaling, SizesWithinTheEngine) {
    EXPECT_EQ(dotsPerEm(100, kCell), 89);  // 89.5 rounds to 90, whose cell is 101 dots high
    EXPECT_EQ(dotsPerEm(1, kCell), 1);
    EXPECT_EQ(dotsPerEm(-65535, kCell), 65535);
    EXPECT_FALSE(dotsPerEm(-65536, kCell));
    EXPECT_FALSE(dotsPerEm(kMost, CellUnits{65535, 1, 0}));
    EXPECT_FALSE(dotsPerEm(-65535, CellUnits{16, 16, 0}));  // the scale itself overflows
}

}  // namespace
}  // namespace ovaline::platform
