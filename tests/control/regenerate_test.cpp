#include "control/regenerate.h"

#include <gtest/gtest.h>

#include <cmath>

#include "../geometry/path_text.h"
#include "control/settings_slices.h"
#include "platform/memory/clock.h"
#include "platform/memory/fonts.h"

namespace ovaline {
namespace {

class RegenerateTest : public testing::Test {
protected:
    RegenerateTest() {
        settings.Width = 20000;
        settings.Height = 12000;
        settings.TextData = u"AB";
        settings.StartAngle = 90;
    }
    Regenerated build() { return regenerate(settings, fonts, clock, font); }

    platform::MemoryFontService fonts;
    platform::MemoryClock clock{{{2026, 11, 17, 19, 33, 24}}};
    LayoutFont font;
    TextSettings settings = startUpSettings(96);
};

TEST_F(RegenerateTest, FontRequest) {
    const platform::LogFont request = logFontOf(settings);
    EXPECT_EQ(request.lfHeight, 3126) << "5 mm at 625.3 dots";
    EXPECT_EQ(request.lfWeight, 400);
    settings.FontName = std::u16string(40, u'x');
    settings.FontBold = 5;
    settings.FontItalic = 0x1FF;
    EXPECT_EQ(logFontOf(settings).lfFaceName.size(), 31u);
    EXPECT_EQ(logFontOf(settings).lfWeight, 700);
    EXPECT_EQ(logFontOf(settings).lfItalic, 0xFF);
    EXPECT_EQ(layoutBoxOf(settings), (RectF{0, 0, 20.0f * 625.3f, 12.0f * 625.3f}));
    settings.Measurement = 1;
    settings.DotsPerUnit = 15882.62f;
    EXPECT_NEAR(layoutBoxOf(settings).Width, 20.0f * 625.3f, 0.01);
}

TEST_F(RegenerateTest, AngleTurnsAllThreeAboutTheCentre) {
    const Regenerated level = build();
    settings.Angle = 90;
    const Regenerated turned = build();
    const double cx = 20 * 625.3 / 2, cy = 12 * 625.3 / 2;
    const auto check = [&](const GraphicsPath& a, const GraphicsPath& b) {
        ASSERT_EQ(a.size(), b.size());
        for (std::size_t i = 0; i < a.size(); ++i) {  // counter-clockwise on the screen: right goes to the top
            ASSERT_NEAR(b.points()[i].X, cx + (a.points()[i].Y - cy), 0.01);
            ASSERT_NEAR(b.points()[i].Y, cy - (a.points()[i].X - cx), 0.01);
        }
    };
    check(level.paths.TextPath, turned.paths.TextPath);
    check(level.paths.FramePath, turned.paths.FramePath);
    check(level.paths.GuidePath, turned.paths.GuidePath);
}

TEST_F(RegenerateTest, MirrorsTheTextAloneAboutTheFrame) {
    const Regenerated plain = build();
    settings.MirrorHorizontal = -1;
    settings.MirrorVertical = -1;
    const Regenerated mirrored = build();
    EXPECT_EQ(describe(mirrored.paths.FramePath), describe(plain.paths.FramePath));
    EXPECT_EQ(describe(mirrored.paths.GuidePath), describe(plain.paths.GuidePath));
    EXPECT_EQ(describe(mirrored.paths.BoundsPath), describe(plain.paths.BoundsPath)) << "taken before mirroring";
    const RectF frame = boundsOf(plain.paths.FramePath);
    const auto a = plain.paths.TextPath.points(), b = mirrored.paths.TextPath.points();
    for (std::size_t i = 0; i < a.size(); ++i) {
        EXPECT_NEAR(b[i].X, 2 * frame.X + frame.Width - a[i].X, 0.01);
        EXPECT_NEAR(b[i].Y, 2 * frame.Y + frame.Height - a[i].Y, 0.01);
    }
}

TEST_F(RegenerateTest, ResultAndScreenSize) {
    settings.ShowAxes = FullAxes;
    Regenerated result = build();
    // The ellipse grown by the ascent: 2500 of 3126 dots on each side.
    const double width = 20000 + 2 * 2500 / 0.6253;
    EXPECT_NEAR(result.resultRight, width, 2);
    EXPECT_EQ(result.screenWidth, std::trunc(result.resultRight / 1000 * 96 / 25.4 + 0.5) + 1);
    settings.ArrayXDimension = 3;
    settings.ArrayXOffset = 10000;
    EXPECT_NEAR(build().resultRight, width + 2 * 10000, 2);
    EXPECT_EQ(build().paths.TextPath.size(), result.paths.TextPath.size()) << "the host repeats the copy";
    settings.ShowAxes = PartialAxes;
    EXPECT_LT(build().resultBottom, 8000) << "the text alone";
    settings.ZoomFactor = 2;
    result = build();
    EXPECT_EQ(result.screenHeight, std::trunc(2 * result.resultBottom / 1000 * 96 / 25.4 + 0.5) + 1);
    settings.Measurement = 1;
    setDotsPerUnit(settings, 15882.62f);
    EXPECT_NEAR(build().resultBottom, result.resultBottom, 2) << "micrometres in inches as well";
}

TEST_F(RegenerateTest, SingleStrokesAreOpenOnWholeDotsAndUnfilled) {
    settings.FontStyle = SingleStroke;
    const Regenerated result = build();
    ASSERT_EQ(result.paths.TextPath.size(), 8u);
    for (const std::uint8_t type : result.paths.TextPath.types()) EXPECT_LE(type, 1);
    EXPECT_TRUE(result.paths.FillPath.empty());
    settings.FontStyle = TrueType;
    EXPECT_EQ(build().paths.TextPath.types()[3], 0x81);
}

// A solid fill is level and 30 µm apart; line fills turn with the text.
TEST_F(RegenerateTest, FillFollowsTheFlattenedText) {
    settings.Angle = 30;
    settings.FillStyle = Solid;
    Regenerated result = build();
    const RectF text = boundsOf(result.paths.TextPath);
    const auto lines = result.paths.FillPath.points();
    EXPECT_FLOAT_EQ(lines[0].Y, text.Y + 0.03f * 625.3f);
    EXPECT_EQ(lines[0].Y, lines[1].Y);
    EXPECT_FLOAT_EQ(lines[1].X, text.X + text.Width + 0.5f);
    settings.FillStyle = Line;
    settings.FillLineAngle = 15;
    settings.FillDistance = 200;
    result = build();
    const PointF a = result.paths.FillPath.points()[40], b = result.paths.FillPath.points()[41];
    EXPECT_NEAR(std::atan2(a.Y - b.Y, b.X - a.X), std::atan(1.0), 1e-4) << "15 + 30 degrees";
}

TEST_F(RegenerateTest, FlatnessAndFontsAreReused) {
    fonts.setGlyph(u'A', platform::NativeOutlineBuilder().begin(0, 0).qspline({{0, 3000}, {2000, 3000}, {2000, 0}}),
                   2100);
    settings.Flatness = 1;
    const std::size_t fine = build().paths.TextPath.size();
    settings.Flatness = 2540;
    const Regenerated coarse = build();
    EXPECT_EQ(coarse.paths.TextPath.size(), 3u + 4u);
    EXPECT_GT(fine, 20u);
    EXPECT_GT(coarse.paths.FramePath.size(), 500u) << "frame and guide keep their curves";
    fonts.resetCalls();
    settings.TextData = u"BABA";
    build();
    EXPECT_EQ(fonts.calls().createFont + fonts.calls().glyphOutline + fonts.calls().kerningPairs, 0);
}

}  // namespace
}  // namespace ovaline
