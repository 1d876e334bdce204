#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "geometry/baseline_path.h"
#include "geometry/ellipse_layout.h"
#include "path_text.h"
#include "platform/memory/fonts.h"

namespace ovaline {
namespace {

using platform::MemoryFontService;

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

    MemoryFontService fonts;
    LayoutFont font;
    LayoutInput input;
};

constexpr double kRoom = 2.6;  // the baseline is a polyline within 2.5 dots

TEST_F(EllipseLayout, ClockwiseTextStandsOutsideTheEllipse) {
    const LayoutPaths paths = lay();
    const PointF origin = paths.text.points()[0];
    EXPECT_NEAR(origin.X, 500, 0.01);
    EXPECT_NEAR(origin.Y, 0, 0.01);
    EXPECT_GT(paths.text.points()[3].X, 535) << "it runs to the right";
    EXPECT_LT(boundsOf(paths.text).Y, -69) << "its body stands above the ellipse";
    EXPECT_EQ(paths.text.fillMode(), FillModeWinding);
}

TEST_F(EllipseLayout, CounterClockwiseTextHangsInsideTheGrownEllipse) {
    input.direction = CounterClockwise;
    LayoutPaths paths = lay();
    EXPECT_NEAR(paths.text.points()[0].X, 500, 0.5);
    EXPECT_NEAR(paths.text.points()[0].Y, -60, 0.5) << "the baseline is the ellipse grown by 80 - 20";
    EXPECT_LT(paths.text.points()[3].X, 465) << "it runs to the left";
    EXPECT_GT(boundsOf(paths.text).Y + boundsOf(paths.text).Height, 9) << "and hangs downwards";

    input.startAngle = 270;
    paths = lay();
    EXPECT_NEAR(paths.text.points()[0].Y, 660, 0.5);
    EXPECT_GT(paths.text.points()[3].X, 535) << "at the bottom it runs to the right, upright";
}

TEST_F(EllipseLayout, StartAngleCountsCounterClockwiseFromThreeOClock) {
    const auto origin = [&](float angle) {
        input.startAngle = angle;
        return lay().text.points()[0];
    };
    EXPECT_NEAR(origin(0).X, 1000, 0.01);
    EXPECT_NEAR(origin(180).X, 0, 0.01);
    EXPECT_NEAR(origin(270).Y, 600, 0.01);
    EXPECT_NEAR(origin(450).Y, 0, 0.01);
}

TEST_F(EllipseLayout, FrameIsTwoAxesAndTwoEllipses) {
    const LayoutPaths paths = lay();
    std::vector<std::size_t> starts;
    for (std::size_t i = 0; i < paths.frame.size(); ++i)
        if (paths.frame.types()[i] == PathPointTypeStart) starts.push_back(i);
    ASSERT_EQ(starts.size(), 4u);
    ASSERT_EQ(starts[2], 4u);
    const auto p = paths.frame.points();
    const auto onEllipse = [&](std::size_t from, std::size_t to, double rx, double ry) {
        for (std::size_t i = from; i < to; ++i)
            ASSERT_NEAR(std::pow((p[i].X - 500) / rx, 2) + std::pow((p[i].Y - 300) / ry, 2), 1, 0.003);
    };
    onEllipse(4, starts[3], 480, 280);                   // shrunk by the descent
    onEllipse(starts[3], paths.frame.size(), 580, 380);  // grown by the ascent
    EXPECT_NEAR(p[0].X, -80, 0.3);
    EXPECT_NEAR(p[0].Y, 300, 0.3);
    EXPECT_NEAR(p[1].X, 1080, 0.3);
    EXPECT_NEAR(p[2].Y, -80, 0.3);
    EXPECT_NEAR(p[3].Y, 680, 0.3);
}

TEST_F(EllipseLayout, PathTypeSelectsTheGuideAndMovesNoGlyph) {
    struct Row {
        const char* name;
        std::int32_t pathType, direction;
        double top;
    };
    const Row rows[] = {
        {"center", Center, Clockwise, -30},
        {"baseline", Baseline, Clockwise, 0},
        {"descender", Descender, Clockwise, 20},
        {"ascender", Ascender, Clockwise, -80},
        {"unknown", 77, Clockwise, -80},
        {"center inside", Center, CounterClockwise, -30},
        {"baseline inside", Baseline, CounterClockwise, -60},
        {"descender inside", Descender, CounterClockwise, -80},
        {"ascender inside", Ascender, CounterClockwise, 20},
        {"unknown inside", -1, CounterClockwise, -80},
    };
    for (const Row& row : rows) {
        input.direction = row.direction;
        input.pathType = Baseline;
        const std::string text = describe(lay().text);
        input.pathType = row.pathType;
        const LayoutPaths paths = lay();
        EXPECT_NEAR(boundsOf(paths.guide).Y, row.top, 0.3) << row.name;
        EXPECT_EQ(describe(paths.text), text) << row.name;
    }
}

TEST_F(EllipseLayout, EachGlyphStartsWhereTheLastOnesAdvanceEnded) {
    input.text = u"A A";
    const LayoutPaths paths = lay();
    ASSERT_EQ(paths.text.size(), 8u) << "a space moves the text and draws nothing";
    const PointF first = paths.text.points()[0], second = paths.text.points()[4];
    const double gap = std::hypot(second.X - first.X, second.Y - first.Y);
    EXPECT_NEAR(gap, 100, 1);
    input.spacing = 5;
    const PointF spaced = lay().text.points()[4];
    EXPECT_GT(std::hypot(spaced.X - first.X, spaced.Y - first.Y), gap + 1);
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
        ASSERT_NEAR(std::hypot((origin.X - 500) / 500, (origin.Y - 300) / 300), 1, kRoom / 300);
    }
}

// A spacing below zero may carry the next glyph before the start; the one that was placed stays.
TEST_F(EllipseLayout, NegativeSpacingEndsTheTextBehindAPlacedGlyph) {
    input.text = u"ABC";
    input.spacing = -30;
    EXPECT_EQ(lay().text.size(), 4u);
    input.spacing = -0.2f;
    EXPECT_EQ(lay().text.size(), 12u);
    input.spacing = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(lay().text.size(), 4u);
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
    for (const float width : {0.0f, -500.0f, 1e-20f, 1e9f, 1e30f, 3e38f, kNan, kInfinity}) {
        for (const float height : {0.0f, 600.0f, -1e9f, kInfinity}) {
            for (const std::int32_t direction : {0, 1, 2}) {
                input.box = {0, 0, width, height};
                input.direction = direction;
                input.text = u"ABC";
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
    EXPECT_EQ(square.ParameterAtLength(301), -1);
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
}

}  // namespace
}  // namespace ovaline
