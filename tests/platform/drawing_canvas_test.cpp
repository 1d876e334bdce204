// Canvases on bitmaps: what each operation leaves in the pixels.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "platform/drawing_path.h"
#include "tests/platform/drawing_engine.h"

namespace ovaline::platform {
namespace {

constexpr Argb kRed = 0xFFFF0000;

class DrawingCanvasTest : public ::testing::Test {
protected:
    /// One letter a pixel: '#' black, '.' white, '+' in between, '*' other colours.
    std::string row(int y) const {
        std::string text;
        for (const std::uint32_t raw : bitmap->row(y)) {
            const std::uint32_t pixel = raw & 0xFFFFFF;
            const bool grey = (pixel & 0xFF) == (pixel >> 8 & 0xFF) && (pixel & 0xFF) == pixel >> 16;
            text += pixel == 0 ? '#' : pixel == 0xFFFFFF ? '.' : grey ? '+' : '*';
        }
        return text;
    }

    /// How many pixels of a row are black.
    double black(int y) const { return static_cast<double>(std::ranges::count(row(y), '#')); }

    /// How many pixels it would blacken, were it all black.
    double ink() const {
        double sum = 0;
        for (int y = 0; y < bitmap->height(); ++y)
            for (const std::uint32_t pixel : bitmap->row(y)) sum += 1 - (pixel & 0xFF) / 255.0;
        return sum;
    }

    /// A path of closed figures.
    struct Area {
        std::vector<DrawingPoint> points;
        std::vector<std::uint8_t> types;

        Area& figure(std::vector<DrawingPoint> corners, bool closed = true) {
            for (std::size_t i = 0; i < corners.size(); ++i) {
                points.push_back(corners[i]);
                types.push_back(i == 0 ? 0 : closed && i + 1 == corners.size() ? 0x81 : 1);
            }
            return *this;
        }
        Area& square(float left, float top, float right, float bottom) {
            return figure({{left, top}, {right, top}, {right, bottom}, {left, bottom}});
        }
        Area& line(DrawingPoint from, DrawingPoint to) { return figure({from, to}, false); }
        operator DrawingPath() const { return {points, types}; }
    };

    std::unique_ptr<Bitmap> bitmap = makeBitmap(12, 6);
    Canvas& canvas = bitmap->canvas();
    /// How many pixels the engine may be wrong where an edge isn't between pixels.
    const double aside = drawsWithinPixels() ? 0 : 1;
};

TEST_F(DrawingCanvasTest, IsWhiteUnclippedAndRoughWhenNew) {
    EXPECT_EQ(bitmap->width(), 12);
    EXPECT_EQ(bitmap->height(), 6);
    EXPECT_EQ(canvas.pixelsPerInch(), 96);
    EXPECT_EQ(canvas.visible(), (DrawingBox{0, 0, 12, 6}));
    for (int y = 0; y < 6; ++y) EXPECT_EQ(row(y), "............");
    canvas.fill(Area().figure({{0, 0}, {6, 0}, {0, 6}}), kOpaqueBlack);
    for (int y = 0; y < 6; ++y) EXPECT_EQ(row(y).find('+'), std::string::npos);
}

TEST_F(DrawingCanvasTest, AreasAreEvenOddAndClosed) {
    canvas.fill(Area().square(1, 1, 8, 5).square(3, 2, 6, 4).figure({{9, 1}, {11, 1}, {11, 3}, {9, 3}}, false),
                kOpaqueBlack);
    EXPECT_EQ(row(0), "............");
    EXPECT_EQ(row(1), ".#######.##.");
    EXPECT_EQ(row(2), ".##...##.##.");
    EXPECT_EQ(row(5), "............");
}

TEST_F(DrawingCanvasTest, BoxWithoutPath) {
    // The path reaches over the box: only what lies in both counts.
    canvas.fillOutside({1, 1, 8, 3}, Area().square(3, 0, 5, 6).square(8, 2, 12, 4), kOpaqueBlack);
    EXPECT_EQ(row(0), "............");
    EXPECT_EQ(row(1), ".##..####...");
    EXPECT_EQ(row(2), ".##..###....");
    EXPECT_EQ(row(4), "............");
}

TEST_F(DrawingCanvasTest, ClipsReplaceEachOther) {
    const Area all = Area().square(-5, -5, 20, 20);
    const auto fillAll = [&] { canvas.fill(all, kOpaqueBlack); };
    canvas.setClip({1, 0, 3, 1});
    fillAll();
    canvas.setClip(Area().square(4, 1, 9, 2).square(5, 1, 6, 2));
    fillAll();
    canvas.setClipOutside({2, 2, 8, 1}, Area().square(4, 0, 6, 6));
    fillAll();
    canvas.setClip(Area());
    fillAll();
    canvas.setClip(DrawingBox{3, 3, 0, 0});
    fillAll();
    EXPECT_EQ(row(0), ".###........");
    EXPECT_EQ(row(1), "....#.###...");
    EXPECT_EQ(row(2), "..##..####..");
    EXPECT_EQ(row(3), "............");
    canvas.setClip({1, 3, 3, 1});
    canvas.addToClip(Area().square(3, 3, 6, 4));
    canvas.addToClip(Area().square(8, 3, 9, 5));
    fillAll();
    EXPECT_EQ(row(3), ".#####..#...");
    EXPECT_EQ(row(4), "........#...");
    canvas.resetClip();
    canvas.addToClip(Area().square(0, 0, 1, 1));  // everything and more is everything
    canvas.fill(all, kRed);
    EXPECT_EQ(row(5), "************");
}

TEST_F(DrawingCanvasTest, Smoothing) {
    if (aside > 0) GTEST_SKIP() << "this engine does not smooth";
    canvas.setSmoothing(true);
    canvas.fill(Area().square(1, 0, 3.5f, 1), kOpaqueBlack);
    canvas.setSmoothing(false);
    canvas.fill(Area().square(1, 1, 3.75f, 2), kOpaqueBlack);
    EXPECT_EQ(row(0), ".##+........");
    EXPECT_EQ(row(1), ".###........");
    EXPECT_NEAR(static_cast<int>(bitmap->row(0)[3] & 0xFF), 128, 1);
}

TEST_F(DrawingCanvasTest, Ellipses) {
    canvas.fillEllipse({0, 0, 12, 6}, kRed);
    canvas.fillEllipse({0, 0, NAN, 6}, kOpaqueBlack);
    canvas.fillEllipse({0, 0, -12, 6}, kOpaqueBlack);
    EXPECT_EQ(row(3), "************");
    EXPECT_EQ(row(0)[0], '.');
    bitmap = makeBitmap(200, 100);
    bitmap->canvas().fillEllipse({0, 10, 200, 80}, kOpaqueBlack);
    EXPECT_NEAR(ink(), 3.14159 * 100 * 40, 40 + 200 * aside);
}

TEST_F(DrawingCanvasTest, DashesCountInPenWidths) {
    for (const auto& [style, dashes] : {std::pair{DashStyle::Solid, "########################################"},
                                        {DashStyle::Dash, "######..######..######..######..######.."},
                                        {DashStyle::Dot, "##..##..##..##..##..##..##..##..##..##.."},
                                        {DashStyle::DashDot, "######..##..######..##..######..##..####"},
                                        {DashStyle::DashDotDot, "######..##..##..######..##..##..######.."}}) {
        for (const float start : {0.0f, -4800.0f, -1.2e9f}) {  // whole periods of each style away
            bitmap = makeBitmap(40, 4);
            bitmap->canvas().stroke(Area().line({start, 2}, {40, 2}), {kOpaqueBlack, 2, style});
            for (const int y : {0, 3}) EXPECT_EQ(row(y), std::string(40, '.'));
            for (const int y : {1, 2}) EXPECT_EQ(row(y), dashes) << start;
        }
    }
}

TEST_F(DrawingCanvasTest, LinesEndFlatAndCornersAreMitred) {
    canvas.stroke(Area().line({2, 3}, {6, 3}), {kOpaqueBlack, 2, DashStyle::Solid});
    EXPECT_EQ(row(2), "..####......");
    bitmap = makeBitmap(12, 6);
    for (const float width : {1.0f, 4.0f}) {
        bitmap->canvas().stroke(Area().line({5, 3}, {5, 3}).figure({{8, 3}, {8, 3}, {8, 3}}),
                                {kOpaqueBlack, width, DashStyle::Solid});
    }
    EXPECT_EQ(ink(), 0);
    bitmap->canvas().stroke(Area().figure({{2, 2}, {8, 2}, {8, 5}}, false), {kOpaqueBlack, 2, DashStyle::Solid});
    EXPECT_EQ(row(1), "..#######...");
    EXPECT_EQ(row(4), ".......##...");
}

TEST_F(DrawingCanvasTest, ThinPensDrawTheInkOfTheirWidth) {
    canvas.setSmoothing(true);
    canvas.stroke(Area().line({0, 2.5f}, {12, 2.5f}), {kOpaqueBlack, 0.25f, DashStyle::Solid});
    EXPECT_NEAR(ink(), 3, 0.2);
    for (const float width : {0.0f, -1.0f, NAN})
        canvas.stroke(Area().line({0, 4.5f}, {12, 4.5f}), {kOpaqueBlack, width, DashStyle::Dot});
    EXPECT_NEAR(ink(), 3, 0.2);
}

TEST_F(DrawingCanvasTest, FiguresThatAreNotFiniteAreLeftOut) {
    const float inf = std::numeric_limits<float>::infinity();
    for (const float wrong : {NAN, inf, -inf}) {
        const Area area = Area().square(0, 0, wrong, 6).square(2, 2, 4, 4).square(wrong, wrong, wrong, wrong);
        canvas.fill(area, kOpaqueBlack);
        canvas.stroke(area, {kOpaqueBlack, 1e-3f, DashStyle::Solid});
        EXPECT_EQ(row(2), "..##........");
        EXPECT_EQ(row(0), "............");
    }
}

TEST_F(DrawingCanvasTest, AreasReachAnyDistance) {
    for (const float away : {2e6f, 1e9f, 1e30f}) {
        bitmap = makeBitmap(12, 6);
        bitmap->canvas().fill(Area().square(-away, 2, 3, away), kOpaqueBlack);
        EXPECT_EQ(row(1), "............") << away;
        EXPECT_EQ(row(2), "###.........") << away;
        EXPECT_EQ(row(5), "###.........") << away;
        // A slope that is cut far outside still runs where it ran: through (6.25, 3), down to the right.
        bitmap = makeBitmap(12, 6);
        bitmap->canvas().fill(
            Area().figure({{6.25f - away, 3 - away}, {6.25f + away, 3 + away}, {6.25f - away, 3 + away}}),
            kOpaqueBlack);
        // Beyond it, single precision's corners don't lie on such a slope themselves.
        const bool slopeIsThere = away < 1e6f * 4;
        EXPECT_TRUE(!slopeIsThere || std::abs(black(4) - 8) <= aside) << row(4) << away;
    }
}

TEST_F(DrawingCanvasTest, LinesReachAnyDistance) {
    for (const float away : {2e6f, 1e9f, 1e30f}) {
        bitmap = makeBitmap(12, 6);
        bitmap->canvas().stroke(Area().line({-away, 3}, {away, 3}).figure({{2, -away}, {2, away}, {4, away}}),
                                {kOpaqueBlack, 2, DashStyle::Solid});
        EXPECT_EQ(row(2), "############") << away;
        EXPECT_EQ(row(1).substr(0, 4), ".###") << away;
        EXPECT_NEAR(black(1), 3, aside) << away;
        bitmap->canvas().stroke(Area().line({0, 0}, {12, 6}), {kRed, away, DashStyle::Dash});
        EXPECT_EQ(row(0).find('.'), std::string::npos) << away;
        // A corner is whole, the one where the figure starts and ends too.
        for (const Area& frame : {Area().square(2, 2, away, away), Area().square(-away, -away, 10, 4)}) {
            bitmap = makeBitmap(12, 6);
            bitmap->canvas().stroke(frame, {kOpaqueBlack, 2, DashStyle::Solid});
            const bool isFirst = frame.points[0].X == 2;
            EXPECT_EQ(row(isFirst ? 1 : 4), isFirst ? ".###########" : "###########.") << away;
        }
        // So is one within a dash, which is 12 long.
        bitmap = makeBitmap(12, 6);
        bitmap->canvas().stroke(Area().figure({{2, 2}, {10, 2}, {10, away}, {2, away}}),
                                {kOpaqueBlack, 4, DashStyle::Dash});
        EXPECT_EQ(row(1).substr(2), "##########") << away;
        // And one between the last dash, of which there is a third, and the first.
        bitmap = makeBitmap(12, 6);
        bitmap->canvas().stroke(Area().figure({{4, 3}, {4, away}, {-away, away}, {-away, 3}}),
                                {kOpaqueBlack, 2, DashStyle::Dash});
        EXPECT_TRUE(away > 1e9f || row(2) == "..###.......") << row(2) << away;
    }
}

TEST_F(DrawingCanvasTest, FarEllipsesAreSeenAsTheLinesThatTheyAreHere) {
    for (const float away : {1e4f, 1e9f, 1e30f}) {
        const Area all = Area().square(0, 0, 12, 6);
        const DrawingBox box = {6, -away, 2 * away, 2 * away};
        const auto expectHalf = [&](const std::string& half) {
            for (const int y : {0, 5}) EXPECT_EQ(row(y), half) << away;
            bitmap->canvas().resetClip();
            bitmap->canvas().fill(all, kOpaqueWhite);
        };
        bitmap = makeBitmap(12, 6);
        Canvas& fresh = bitmap->canvas();
        fresh.fillEllipse(box, kOpaqueBlack);
        expectHalf("......######");
        fresh.fillOutside({-away, -away, 3 * away, 3 * away}, ellipseOutline(box), kOpaqueBlack);
        expectHalf("######......");
        fresh.setClip(ellipseOutline(box));
        fresh.fill(all, kOpaqueBlack);
        expectHalf("......######");
        fresh.setClipOutside({-away, -away, 3 * away, 3 * away}, ellipseOutline(box));
        fresh.fill(all, kOpaqueBlack);
        expectHalf("######......");
        // So many dots that only those in sight can be counted.
        bitmap = makeBitmap(200, 20);
        bitmap->canvas().stroke(ellipseOutline({-away, 5, 2 * away, 10}), {kOpaqueBlack, 2, DashStyle::Dot});
        for (const int y : {4, 5, 14, 15}) EXPECT_NEAR(black(y), 100, 2) << away;
    }
}

TEST_F(DrawingCanvasTest, CurvesAreDrawn) {
    const std::vector<DrawingPoint> points = {{0, 120}, {0, -40}, {240, -40}, {240, 120}};
    const std::vector<std::uint8_t> types = {0, 3, 3, 0x83};
    bitmap = makeBitmap(240, 120);
    bitmap->canvas().fill({points, types}, kOpaqueBlack);
    EXPECT_NEAR(ink(), 240 * 160 * 0.6, 60 + 300 * aside);
}

TEST(DrawingBitmap, SizesThatAreNone) {
    for (const auto& [width, height] : {std::pair{0, 1}, {1, 0}, {-1, 5}, {kMostPixelsAcross + 1, 1}, {1, 1 << 30}})
        EXPECT_EQ(makeBitmap(width, height), nullptr) << width << " x " << height;
    EXPECT_NE(makeBitmap(kMostPixelsAcross, 1), nullptr);
    EXPECT_EQ(makeCanvas(nullptr), nullptr);
}

}  // namespace
}  // namespace ovaline::platform
