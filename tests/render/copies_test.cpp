// What is seen of copies in a picture, and how many points they may have.
#include <gtest/gtest.h>

#include <cmath>

#include "render/copies.h"
#include "tests/geometry/path_text.h"

namespace ovaline {
namespace {

using platform::DrawingPath;

constexpr Extent kSeen = {0, 0, 100, 100};

std::size_t pointCount(const GraphicsPath& path, const CopyGrid& copies, const ToPixels& toPixels = {}) {
    const DrawnPath drawn(path, copies, toPixels, kSeen);
    return DrawingPath(drawn).points.size();
}

TEST(DrawnPath, OnlyFiguresThatReachIntoThePictureAreDrawn) {
    const GraphicsPath path = pathFrom("M0,0 L10,0 L10,10 Z M0,20 L10,20");
    EXPECT_EQ(pointCount(path, {255, 1, 30, 0}), 4 * 5u);  // at 0, 30, 60 and 90
    EXPECT_EQ(pointCount(path, {1, 3, 0, -20}), 5u + 2u);  // of the second copy only the line is not above the picture
    EXPECT_EQ(pointCount(path, {255, 255, 0, 0}), 65025 * 5u);  // all in one place
    EXPECT_EQ(pointCount(path, {}, {1, {0, 101}}), 0u);
    EXPECT_EQ(pointCount(path, {}, {NAN, {0, 0}}), 0u);
}

TEST(CopyGrid, ExtentHoldsEveryCopy) {
    const Extent all = extentOf(Extent{1, 2, 3, 4}, CopyGrid{3, 2, -10, 7});
    EXPECT_EQ(all.rectangle(), (RectF{-19, 2, 22, 9}));
    EXPECT_TRUE(extentOf(Extent(), CopyGrid{3, 2, 1, 1}).empty());
}

TEST(DrawnPath, VerticesWithinAQuarterOfAPixelAreOneWhereThereAreTooMany) {
    std::ostringstream ring;  // of 1000 vertices, 1/16 of a pixel apart at two pixels a dot
    for (int i = 0; i < 1000; ++i)
        ring << (i == 0 ? 'M' : 'L') << 25 + 5 * std::cos(i * 0.0062831853) << ','
             << 25 + 5 * std::sin(i * 0.0062831853) << ' ';
    const GraphicsPath fine = pathFrom(ring.str() + "Z");
    const ToPixels twice{2, {}};
    EXPECT_EQ(pointCount(fine, {100, 10, 0, 0}, twice), 1'000'000u);
    const DrawnPath thin(fine, {101, 10, 0, 0}, twice, kSeen);
    const DrawingPath path = thin;
    EXPECT_LE(path.points.size(), 1010u * 252u);
    EXPECT_GE(path.points.size(), 1010u * 200u);
    // What is left lies on the ring, and each copy is closed.
    std::size_t closed = 0;
    for (std::size_t i = 0; i < path.points.size(); ++i) {
        EXPECT_NEAR(std::hypot(path.points[i].X - 50, path.points[i].Y - 50), 10, 1e-3);
        closed += (path.types[i] & PathPointTypeCloseSubpath) != 0 ? 1u : 0u;
    }
    EXPECT_EQ(closed, 1010u);
}

TEST(DrawnPath, FiguresAreLeftOutWhereThereAreStillTooMany) {
    std::string lines;
    for (int i = 0; i < 100; ++i) lines += "M0," + std::to_string(i) + " L100," + std::to_string(i) + " ";
    EXPECT_EQ(pointCount(pathFrom(lines), {100, 50, 0, 0}), kMostDrawnPoints);
    EXPECT_EQ(pointCount(pathFrom(lines), {101, 50, 0, 0}), 505'000u);  // every second
    EXPECT_LE(pointCount(pathFrom(lines), {255, 255, 0, 0}), kMostDrawnPoints);
}

}  // namespace
}  // namespace ovaline
