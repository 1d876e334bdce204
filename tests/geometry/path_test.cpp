#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "path_text.h"

namespace ovaline {
namespace {

TEST(Path, SegmentsContinueTheOpenFigure) {
    GraphicsPath path;
    GdipAddPathLine(path, 0, 0, 10, 0);
    GdipAddPathLine(path, 10, 0, 10, 10);  // starts where the figure ends: the point is not stored twice
    GdipAddPathLine(path, 20, 20, 30, 20);
    GdipClosePathFigure(path);
    GdipAddPathBezier(path, 1, 1, 2, 2, 3, 3, 4, 4);
    GdipStartPathFigure(path);
    GdipAddPathLine(path, 4, 4, 5, 5);
    EXPECT_EQ(describe(path), "M0,0 L10,0 L10,10 L20,20 L30,20 Z M1,1 C2,2 C3,3 C4,4 M4,4 L5,5");
    PointF last;
    EXPECT_EQ(GdipGetPathLastPoint(path, last), Ok);
    EXPECT_EQ(last, (PointF{5, 5}));
    EXPECT_EQ(GdipGetPathLastPoint(GraphicsPath(), last), InvalidParameter);
}

TEST(Path, AppendedPathsAreNewFigures) {
    GraphicsPath path = pathFrom("M0,0 L1,0");
    GdipAddPathPath(path, GraphicsPath());
    GdipAddPathPath(path, path);
    GdipAddPathPath(path, pathFrom("M5,5 L6,6 L7,5 Z M8,8 L9,9"));
    GdipAddPathLine(path, 9, 9, 10, 9);  // the last appended figure is open and goes on
    EXPECT_EQ(describe(path), "M0,0 L1,0 M0,0 L1,0 M5,5 L6,6 L7,5 Z M8,8 L9,9 L10,9");
}

TEST(Path, ResetRestoresTheFillModeAndRectanglesAreClosed) {
    GraphicsPath path(FillModeWinding);
    GdipAddPathLine(path, 0, 0, 1, 1);
    GdipAddPathRectangle(path, 1, 2, 3, 4);
    EXPECT_EQ(describe(path), "M0,0 L1,1 M1,2 L4,2 L4,6 L1,6 Z");
    GdipResetPath(path);
    EXPECT_TRUE(path.empty());
    EXPECT_EQ(path.fillMode(), FillModeAlternate);
    GdipAddPathLine(path, 3, 3, 4, 4);
    EXPECT_EQ(describe(path), "M3,3 L4,4");
}

TEST(Path, IntegerPathsKeepTheirTypeBytes) {
    const Point points[] = {{0, 0}, {1, 2}, {-3, 4}};
    const std::uint8_t types[] = {0, 1, 0x81};
    const GraphicsPath path = GdipCreatePath2I(points, types, FillModeWinding);
    EXPECT_EQ(describe(path), "M0,0 L1,2 L-3,4 Z");
    EXPECT_EQ(path.fillMode(), FillModeWinding);
    const GraphicsPath refused = GdipCreatePath2I(points, std::span(types).first(2), FillModeWinding);
    EXPECT_TRUE(refused.empty() && refused.status() == InvalidParameter);
}

TEST(Matrix, CompositionsArePrepended) {
    Matrix flip;
    GdipTranslateMatrix(flip, 100, 0);
    GdipScaleMatrix(flip, -1, 1);  // acts first: x goes to 100 - x
    EXPECT_EQ(flip.map({30, 7}), (PointF{70, 7}));

    Matrix about;
    GdipTranslateMatrix(about, 10, 20);
    GdipRotateMatrix(about, 90);
    GdipTranslateMatrix(about, -10, -20);
    const PointF turned = about.map({15, 20});  // positive angles turn from +x towards +y
    EXPECT_NEAR(turned.X, 10, 1e-5);
    EXPECT_NEAR(turned.Y, 25, 1e-5);

    GraphicsPath path = pathFrom("M1,2 C3,4 C5,6 C7,8 Z");
    GdipTransformPath(path, nullptr);
    Matrix set;
    GdipSetMatrixElements(set, 2, 0, 0, 3, 1, -1);
    GdipTransformPath(path, &set);
    EXPECT_EQ(describe(path), "M3,5 C7,11 C11,17 C15,23 Z");
}

// Every point of an arc satisfies the ellipse's equation; it begins where its angle points from the centre and turns by
// its sweep.
TEST(Arc, FollowsTheEllipse) {
    constexpr double kRadians = std::numbers::pi / 180;
    for (const RectF box : {RectF{0, 0, 1000, 600}, RectF{-50, 20, 80, 4000}}) {
        for (const float start : {0.0f, 30.0f, 135.0f, 270.0f, -400.0f, 1000.0f}) {
            for (const float sweep : {360.0f, -360.0f, 90.0f, -270.0f, 33.0f}) {
                GraphicsPath path;
                GdipAddPathArc(path, box.X, box.Y, box.Width, box.Height, start, sweep);
                GdipFlattenPath(path, 0.01f);
                const double rx = box.Width / 2.0, ry = box.Height / 2.0;
                double lastX = std::cos(start * kRadians), lastY = std::sin(start * kRadians), turned = 0;
                for (const PointF& p : path.points()) {
                    const double x = p.X - box.X - rx, y = p.Y - box.Y - ry;
                    ASSERT_NEAR(std::pow(x / rx, 2) + std::pow(y / ry, 2), 1, 2e-5) << start << ' ' << sweep;
                    const double turn = std::atan2(lastX * y - lastY * x, lastX * x + lastY * y);
                    if (&p == path.points().data()) {
                        ASSERT_NEAR(turn, 0, 1e-3) << start << ' ' << sweep;
                    }
                    turned += turn;
                    lastX = x;
                    lastY = y;
                }
                ASSERT_NEAR(turned, sweep * kRadians, 1e-3) << start << ' ' << sweep;
                ASSERT_EQ(path.points().front() == path.points().back(), std::abs(sweep) == 360);
                ASSERT_EQ(path.types().back(), PathPointTypeLine) << "an arc stays open";
            }
        }
    }
    GraphicsPath path = pathFrom("M0,0 L1,1 Z");
    EXPECT_EQ(GdipAddPathArc(path, 0, 0, std::numeric_limits<float>::infinity(), 1, 0, 360), InvalidParameter);
    EXPECT_EQ(path.status(), InvalidParameter);
    EXPECT_EQ(path.size(), 2u);
    GdipAddPathArc(path, 5, 5, 0, 0, 0, 360);  // a point
    EXPECT_EQ(boundsOf(path), (RectF{0, 0, 5, 5}));
}

TEST(Bounds, AreThoseOfTheCurve) {
    RectF untouched{1, 2, 3, 4};
    GdipGetPathWorldBounds(GraphicsPath(), untouched);
    EXPECT_EQ(untouched, (RectF{1, 2, 3, 4}));
    // A parabola raised to a cubic: its top is at half the height of its control polygon.
    EXPECT_EQ(boundsOf(pathFrom("M0,0 C20,40 C40,40 C60,0")), (RectF{0, 0, 60, 30}));
    // A curve that turns twice, against dense sampling.
    const RectF bounds = boundsOf(pathFrom("M0,0 C300,-170 C-250,140 C90,55"));
    double left = 0, right = 0;
    for (double t = 0; t <= 1; t += 1e-5) {
        const double s = 1 - t, x = 3 * s * s * t * 300 - 3 * s * t * t * 250 + t * t * t * 90;
        left = std::min(left, x);
        right = std::max(right, x);
    }
    EXPECT_NEAR(bounds.X, left, 1e-3);
    EXPECT_NEAR(bounds.X + bounds.Width, right, 1e-3);
}

}  // namespace
}  // namespace ovaline
