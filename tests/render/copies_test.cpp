// CopyGrid in a picture: what is seen of them, and how many points they may have.
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

TEST(CopyGrid, OnlyFiguresThatReachIntoThePictureAreDrawn) {
    const GraphicsPath path = pathFrom("M0,0 L10,0 L10,10 Z M0,20 L10,20");
    EXPECT_EQ(pointCount(path, {1, 1, 0, 0}), 5u);
    EXPECT_EQ(pointCount(path, {255, 1, 30, 0}), 4 * 5u);  // at 0, 30, 60 and 90
    EXPECT_EQ(pointCount(path, {1, 3, 0, -20}), 5u + 2u);  // of the second copy only the line is not above the picture
    EXPECT_EQ(pointCount(path, {255, 255, 0, 0}), 65025 * 5u);  // all in one place
    EXPECT_EQ(pointCount(path, {1, 1, 0, 0}, {1, {0, 101}}), 0u);
    EXPECT_EQ(pointCount(path, {1, 1, 0, 0}, {NAN, {0, 0}}), 0u);
}

TEST(CopyGrid, ExtentHoldsEveryCopy) {
    const Extent all = extentOf(Extent{1, 2, 3, 4}, CopyGrid{3, 2, -10, 7});
    EXPECT_EQ(all.left, -19);
    EXPECT_EQ(all.right, 3);
    EXPECT_EQ(all.top, 2);
    EXPECT_EQ(all.bottom, 11);
    EXPECT_TRUE(extentOf(Extent(), CopyGrid{3, 2, 1, 1}).empty());
}

/// A closed ring of many vertices.
GraphicsPath ring(int vertices, float radius) {
    GraphicsPath path;
    for (int i = 0; i + 1 < vertices; ++i) {
        const auto at = [&](int k) {
            const float angle = 6.2831853f * static_cast<float>(k) / static_cast<float>(vertices);
            return PointF{50 + radius * std::cos(angle), 50 + radius * std::sin(angle)};
        };
        GdipAddPathLine(path, at(i).X, at(i).Y, at(i + 1).X, at(i + 1).Y);
    }
    GdipClosePathFigure(path);
    return path;
}

TEST(CopyGrid, VerticesWithinAQuarterOfAPixelAreOneWhereThereAreTooMany) {
    const GraphicsPath fine = ring(1000, 10);  // vertices 1/16 apart
    EXPECT_EQ(pointCount(fine, {100, 10, 0, 0}), 1'000'000u);
    const DrawnPath thin(fine, {101, 10, 0, 0}, {}, kSeen);
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

TEST(CopyGrid, FiguresAreLeftOutWhereThereAreStillTooMany) {
    GraphicsPath lines;
    for (int i = 0; i < 100; ++i) {
        GdipStartPathFigure(lines);
        GdipAddPathLine(lines, 0, static_cast<float>(i), 100, static_cast<float>(i));
    }
    EXPECT_EQ(pointCount(lines, {100, 50, 0, 0}), kMostDrawnPoints);
    EXPECT_EQ(pointCount(lines, {101, 50, 0, 0}), 505'000u);  // every second
    EXPECT_LE(pointCount(lines, {255, 255, 0, 0}), kMostDrawnPoints);
}

}  // namespace
}  // namespace ovaline
