#include "output/units.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/numbers.h"

namespace ovaline {
namespace {

constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

TEST(Units, LengthsAreRoundedInAndOut) {
    struct Row {
        float length;
        Measurement measurement;
        std::int32_t stored;
        float shown;
    };
    const Row rows[] = {
        {12.3456f, 0, 12346, 12.346f}, {-1.7f, 0, -1699, -1.698f},  {0.0005f, 0, 1, 0.001f}, {1, -3, 25400, 1},
        {0.00004f, 1, 1, 0},           {0.1234f, 1, 3134, 0.1234f}, {kNan, 1, 0, 0},         {0.00001f, 1, 0, 0},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(toInternalUnits(row.length, row.measurement), row.stored) << row.length;
        EXPECT_EQ(toUserUnits(row.stored, row.measurement), row.shown) << row.length;
    }
    EXPECT_EQ(toInternalUnits(2147484, 0), kMost);
    EXPECT_EQ(toInternalUnits(-3e38f, 1), kLeast);
    EXPECT_EQ(pointsToMicrometres(12), 4233);
    EXPECT_EQ(micrometresToPoints(4233), 12.0f);
}

TEST(Units, NumbersAreTruncatedIntoTheirType) {
    EXPECT_EQ(truncateToInt32(kInfinity), kMost);
    EXPECT_EQ(truncateToInt32(2147483648.0f), kMost);
    EXPECT_EQ(truncateToInt32(-2147483648.0f), kLeast);
    EXPECT_EQ(truncateToInt32(-2.7f), -2);
    EXPECT_EQ(truncateToInt32(kNan), 0);
    EXPECT_EQ(truncateTo<std::uint32_t>(5e9), 0xFFFFFFFFu);
    EXPECT_EQ(truncateTo<std::uint32_t>(-1.0), 0u);
}

// Dots are one rounding to single precision and one product of singles.
TEST(Units, Dots) {
    EXPECT_EQ((Units{0, 625.3f}.dots(20000)), 20.0f * 625.3f);
    EXPECT_EQ((Units{1, 15882.62f}.dots(25400)), 15882.62f);
    EXPECT_EQ((Units{0, 625.3f}.pitchDots(30)), 0.03f * 625.3f);
    EXPECT_FLOAT_EQ((Units{1, 15882.62f}.pitchDots(40)), 40 / 25400.0f * 15882.62f);
    EXPECT_EQ((Units{0, 625.3f}.dots(kNan)), 0);
}

}  // namespace
}  // namespace ovaline
