#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "geometry/baseline_path.h"
#include "geometry/ellipse_layout.h"
#include "path_text.h"
#include "platform/memory/fonts.h"

namespace ovaline {
namespace {

// The memory font at height 100: boxes of 40 x 70 dots, advance 50, ascent 80, descent 20.
class EllipseLayout : public testing::Test {
protected:
    EllipseLayout() {
        input.font.lfHeight = 100;
        input.font.lfFaceName = u"Memory";
        input.box = {0, 0, 1000, 600};
        input.startAngle = 90;
        input.text = u"A";
        input.dotsPerPixel = 165;
    }
    LayoutPaths lay() { return LayoutTextOnEllipse(input, fonts, font); }

    platform::MemoryFontService fonts;
    LayoutFont font;
    LayoutInput input;
};

TEST_F(EllipseLayout, ClockwiseTextStandsOutsideTheEllipse) {
    const LayoutPaths paths = lay();
    EXPECT_NEAR(paths.text.points()[0].Y, 0, 0.01);
    EXPECT_GT(paths.text.points()[3].X, 535) << "it runs to the right";
    EXPECT_LT(boundsOf(paths.text).Y, -69) << "its body stands above the ellipse";
    EXPECT_EQ(paths.text.fillMode(), FillModeWinding);
}

TEST_F(EllipseLayout, CounterClockwiseTextHangsInsideTheGrownEllipse) {
    input.direction = CounterClockwise;
    const GraphicsPath top = lay().text;
    EXPECT_NEAR(top.points()[0].X, 500, 0.5);
    EXPECT_NEAR(top.points()[0].Y, -60, 0.5) << "the baseline is the ellipse grown by 80 - 20";
    EXPECT_LT(top.points()[3].X, 465) << "it runs to the left";
    EXPECT_GT(boundsOf(top).Y + boundsOf(top).Height, 9) << "and hangs downwards";
    input.startAngle = 270;
    const GraphicsPath bottom = lay().text;
    EXPECT_NEAR(bottom.points()[0].Y, 660, 0.5);
    EXPECT_GT(bottom.points()[3].X, 535) << "at the bottom it runs to the right, upright";
}

TEST_F(EllipseLayout, StartAngleCountsCounterClockwiseFromThreeOClock) {
    for (const auto& [angle, x, y] :
         {std::tuple{0.0f, 1000, 300}, {180.0f, 0, 300}, {270.0f, 500, 600}, {450.0f, 500, 0}}) {
        input.startAngle = angle;
        const PointF origin = lay().text.points()[0];
        EXPECT_NEAR(origin.X, x, 0.01) << angle;
        EXPECT_NEAR(origin.Y, y, 0.01) << angle;
    }
}

TEST_F(EllipseLayout, FrameIsTwoAxesAndTwoEllipses) {
    const GraphicsPath frame = lay().frame;
    EXPECT_TRUE(describe(frame).starts_with("M-80,300 L1080,300 M500,-80 L500,680 M"));
    double growth = -20;  // shrunk by the descent, then grown by the ascent
    for (std::size_t i = 4; i < frame.size(); ++i) {
        if (i > 4 && frame.types()[i] == PathPointTypeStart) growth += 100;
        const double x = (frame.points()[i].X - 500) / (500 + growth), y = (frame.points()[i].Y - 300) / (300 + growth);
        ASSERT_NEAR(x * x + y * y, 1, 0.003);
    }
    EXPECT_EQ(growth, 80);
}

TEST_F(EllipseLayout, PathTypeSelectsTheGuideAndMovesNoGlyph) {
    struct Row {
        std::int32_t pathType;
        double top, topInside;  ///< of the guide for text outside and inside the ellipse
    };
    for (const Row& row : {Row{Center, -30, -30},
                           {Baseline, 0, -60},
                           {Descender, 20, -80},
                           {Ascender, -80, 20},
                           {77, -80, -80},
                           {-1, -80, -80}}) {
        for (const std::int32_t direction : {Clockwise, CounterClockwise}) {
            input.direction = direction;
            input.pathType = Baseline;
            const std::string text = describe(lay().text);
            input.pathType = row.pathType;
            const LayoutPaths paths = lay();
            EXPECT_NEAR(boundsOf(paths.guide).Y, direction == Clockwise ? row.top : row.topInside, 0.3) << row.pathType;
            EXPECT_EQ(describe(paths.text), text) << row.pathType;
        }
    }
}

TEST_F(EllipseLayout, EachGlyphStartsWhereTheLastOnesAdvanceEnded) {
    const auto gap = [&](float spacing) {
        input.spacing = spacing;
        const GraphicsPath text = lay().text;
        EXPECT_EQ(text.size(), 8u) << "a space moves the text and draws nothing";
        return std::hypot(text.points()[4].X - text.points()[0].X, text.points()[4].Y - text.points()[0].Y);
    };
    input.text = u"A A";
    EXPECT_NEAR(gap(0), 100, 1);
    // 0.165 segments after each; at the top, of radius 833, those within 2.5 dots are up to 129 long.
    EXPECT_NEAR(gap(0.1f), 100 + 2 * 0.165 * 129, 5);
}

// No advance chord ends beyond the start point, and each ends on the baseline.
TEST_F(EllipseLayout, ATextTooLongIsCutAfterOneTurn) {
    input.text = u"ABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKLMNOPQRSTUVWXYZABCDEFGHIJKLMNOPQRSTUVWXYZ";
    const LayoutPaths paths = lay();
    const std::size_t glyphs = paths.text.size() / 4;
    // The circumference of semi-axes 500 and 300 is 2552.7 (Ramanujan's second formula); the inscribed polyline with
    // its sagitta of 2.5 is 5 shorter.
    EXPECT_EQ(glyphs, static_cast<std::size_t>((2552.7 - 5) / 50));
    for (std::size_t i = 0; i < glyphs; ++i) {
        const PointF origin = paths.text.points()[4 * i];
        ASSERT_NEAR(std::hypot((origin.X - 500) / 500, (origin.Y - 300) / 300), 1, 2.6 / 300)
            << "the baseline is a polyline within 2.5 dots";
    }
}

// A spacing below zero may carry the next glyph before the start; the one that was placed stays.
TEST_F(EllipseLayout, NegativeSpacingEndsTheTextBehindAPlacedGlyph) {
    input.text = u"ABC";
    for (const auto& [spacing, glyphs] :
         {std::pair{-30.0f, 1u}, {-0.2f, 3u}, {std::numeric_limits<float>::quiet_NaN(), 1u}}) {
        input.spacing = spacing;
        EXPECT_EQ(lay().text.size(), 4 * glyphs) << spacing;
    }
}

TEST_F(EllipseLayout, CharactersWithoutAdvanceEndTheText) {
    fonts.setGlyph(u'|', platform::NativeOutlineBuilder(), 0);
    fonts.failGlyph(u'!');
    const auto glyphs = [&](std::u16string_view text) {
        input.text = text;
        font = LayoutFont();
        return lay().text.size() / 4;
    };
    EXPECT_EQ(glyphs(u"AB|CD"), 2u);
    EXPECT_EQ(glyphs(u"A!B"), 1u);
    EXPECT_EQ(glyphs(std::u16string_view(u"AB\0CD", 5)), 2u) << "a text ends at its first zero";
    EXPECT_EQ(glyphs(u"A\u0301B"), 2u) << "of each character the first code unit is laid";
    EXPECT_EQ(glyphs(u""), 0u);
    EXPECT_GT(lay().frame.size(), 8u) << "an empty text still has its frame";
}

TEST_F(EllipseLayout, DegenerateBoxesAndMissingFontsEnd) {
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    input.text = u"ABC";
    for (const float width : {0.0f, -500.0f, 1e-20f, 1e9f, 3e38f, kNan, kInfinity}) {
        for (const float height : {0.0f, 600.0f, -1e9f, kInfinity}) {
            for (const std::int32_t direction : {Clockwise, CounterClockwise}) {
                input.box = {0, 0, width, height};
                input.direction = direction;
                EXPECT_LE(lay().text.size(), 12u);
            }
        }
    }
    input.box = {0, 0, 0, 600};
    EXPECT_EQ(boundsOf(lay().frame).Width, 0) << "a side without extent keeps it";
    input.box = {0, 0, 1000, 600};
    fonts.refuseFonts(true);
    font = LayoutFont();
    const LayoutPaths paths = lay();
    EXPECT_TRUE(paths.text.empty());
    EXPECT_NEAR(boundsOf(paths.frame).Width, 1000, 0.3);
}

TEST(Baseline, ParametersAndChords) {
    const BaselinePath square(pathFrom("M0,0 L100,0 L100,100 L0,100"));
    EXPECT_EQ(square.ParameterAtLength(0), 0);
    EXPECT_EQ(square.ParameterAtLength(150), 1.5f);
    EXPECT_EQ(square.ParameterAtLength(300), -1) << "the end is no start";
    EXPECT_EQ(square.PointAtParameter(1.25f), (PointF{100, 25}));
    EXPECT_EQ(square.PointAtParameter(3), (PointF{0, 100})) << "the last vertex";
    EXPECT_EQ(square.PointAtParameter(3.5f), (PointF{0, 0}));
    EXPECT_EQ(square.PointAtParameter(-1), (PointF{0, 0}));
    EXPECT_FLOAT_EQ(square.AdvanceByChord(0, 40), 0.4f);
    EXPECT_NEAR(square.AdvanceByChord(0.5f, std::hypot(50.0f, 30.0f)), 1.3f, 1e-6) << "straight across the corner";
    EXPECT_EQ(square.AdvanceByChord(0, 150), -1) << "no point of it is that far away";
    EXPECT_EQ(square.AdvanceByChord(3, 1), -1);
    EXPECT_EQ(BaselinePath().AdvanceByChord(0, 1), -1);
    EXPECT_EQ(BaselinePath().ParameterAtLength(0), -1);
    EXPECT_EQ(SegmentCircleExit({0, 0}, {10, 0}, {0, 0}, 25), 0.5f);
    EXPECT_EQ(SegmentCircleExit({0, 0}, {10, 0}, {0, 0}, 400), -1) << "inside";
    EXPECT_EQ(SegmentCircleExit({10, 0}, {20, 0}, {0, 0}, 25), -1) << "outside";
    EXPECT_EQ(SegmentCircleExit({-10, 3}, {10, 3}, {0, 0}, 25), -1) << "in and out again is no exit";
}

}  // namespace
}  // namespace ovaline
