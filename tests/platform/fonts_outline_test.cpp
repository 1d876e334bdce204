#include <gtest/gtest.h>

#include <limits>

#include "platform/posix/native_outline.h"
#include "tests/platform/fonts_records.h"

namespace ovaline::platform {
namespace {

constexpr bool kOn = true;
constexpr bool kOff = false;

/// One contour per list, coordinates in whole dots.
std::string converted(const std::vector<std::vector<OutlinePoint>>& contours, bool flip = false) {
    std::vector<OutlinePoint> points;
    std::vector<std::size_t> ends;
    for (const auto& contour : contours) {
        for (const OutlinePoint& point : contour) points.push_back({point.x * 64, point.y * 64, point.isOnCurve});
        ends.push_back(points.size() - 1);
    }
    const auto polygons = nativePolygons(points, ends, flip);
    return polygons ? described(*polygons) : "error";
}

TEST(NativeOutline, ContoursBecomeRuns) {
    const struct {
        std::vector<std::vector<OutlinePoint>> contours;
        const char* expected;
    } rows[] = {
        {{{{0, 0, kOn}, {0, 9, kOn}, {4, 9, kOn}, {8, 9, kOff}, {8, 4, kOff}, {8, 0, kOn}, {4, 1, kOn}}},
         "M0,0 L0,9 4,9 Q8,9 8,4 8,0 L4,1 Z "},
        // A spline at the end returns to the start; a contour that begins off the curve starts at its last point.
        {{{{0, 0, kOn}, {0, 9, kOn}, {9, 9, kOff}}}, "M0,0 L0,9 Q9,9 0,0 Z "},
        {{{{8, 0, kOff}, {8, 8, kOn}, {0, 8, kOn}, {0, 0, kOn}}}, "M0,0 Q8,0 8,8 L0,8 Z "},
        {{{{8, 0, kOff}, {8, 8, kOff}, {0, 0, kOn}}}, "M0,0 Q8,0 8,8 0,0 Z "},
        // One that is off the curve at both ends starts midway.
        {{{{8, 0, kOff}, {8, 8, kOn}, {0, 8, kOff}}}, "M4,4 Q8,0 8,8 Q0,8 4,4 Z "},
        {{{{0, 0, kOff}, {0, 8, kOff}, {8, 8, kOff}, {8, 0, kOff}}}, "M4,0 Q0,0 0,8 8,8 8,0 4,0 Z "},
        // A contour of one point is dropped.
        {{{{5, 5, kOn}}, {{0, 0, kOn}, {3, 0, kOn}}, {{7, 7, kOff}}}, "M0,0 L3,0 Z "},
        {{}, ""},
    };
    for (const auto& row : rows) EXPECT_EQ(converted(row.contours), row.expected);
    // Flipped, the midway start is the mirror image too.
    const std::vector<OutlinePoint> points{{0, 0, kOff}, {64, 128, kOn}, {0, 129, kOff}};
    const std::vector<std::size_t> ends{2};
    EXPECT_EQ(coordinates(*nativePolygons(points, ends, false))[1], fixedOf(64));
    EXPECT_EQ(coordinates(*nativePolygons(points, ends, true))[1], fixedOf(-64));
}

TEST(NativeOutline, LongLineRunIsSplitAndTooLongSplineRejected) {
    std::vector<OutlinePoint> points(kMostPointsOfRecord + 3, OutlinePoint{64, 64, kOn});
    const std::vector<std::size_t> ends{points.size() - 1};
    const auto lines = nativePolygons(points, ends, false);
    ASSERT_TRUE(lines);
    EXPECT_EQ(lines->size(), 16 + 2 * 4 + (kMostPointsOfRecord + 2) * 8);
    EXPECT_EQ(coordinates(*lines).size(), 2 * points.size());
    EXPECT_EQ(described(*lines).substr(0, 9), "M1,1 L1,1");
    for (OutlinePoint& point : points) point.isOnCurve = kOff;
    EXPECT_FALSE(nativePolygons(points, ends, false));
}

TEST(NativeOutline, FixedRepeatsTheFractionBitsWithinItsRange) {
    EXPECT_EQ(fixedOf(1), 0x0410);
    EXPECT_EQ(fixedOf(63), 0xFFFF);
    EXPECT_EQ(fixedOf(-1), -1);
    constexpr std::int64_t kEnd = 32768 * 64;
    EXPECT_EQ(fixedOf(kEnd - 1), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(fixedOf(-kEnd), std::numeric_limits<std::int32_t>::min());
    EXPECT_FALSE(fixedOf(kEnd));
    EXPECT_FALSE(fixedOf(-kEnd - 1));
    EXPECT_EQ(converted({{{0, 0, kOn}, {0, -32768, kOn}}}), "M0,0 L0,-32768 Z ");
    EXPECT_EQ(converted({{{0, 0, kOn}, {0, -32768, kOn}}}, true), "error");
}

}  // namespace
}  // namespace ovaline::platform
