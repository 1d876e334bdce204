#include "control/regenerate.h"

#include <gtest/gtest.h>

#include <cmath>

#include "control/settings_slices.h"
#include "platform/memory/clock.h"
#include "platform/memory/fonts.h"

// What turns, mirrors and fills is compared with other libraries, golden streams and copies laid out one by one.
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
    const Regenerated inches = build();
    EXPECT_NEAR(inches.resultBottom, result.resultBottom, 2) << "micrometres in inches as well";
    EXPECT_NEAR(inches.screenHeight, result.screenHeight, 1);
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
