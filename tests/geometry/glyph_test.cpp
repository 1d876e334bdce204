#include <gtest/gtest.h>

#include "geometry/text_on_path.h"
#include "path_text.h"
#include "platform/char_next.h"
#include "platform/memory/fonts.h"

namespace ovaline {
namespace {

using platform::NativeOutline;
using platform::NativeOutlineBuilder;

platform::LogFont fontOf(std::int32_t height) {
    platform::LogFont font;
    font.lfHeight = height;
    font.lfFaceName = u"Memory";
    return font;
}

class GlyphTest : public testing::Test {
protected:
    std::string outlineOf(char16_t code, bool flip = false) {
        return describe(BuildGlyphOutline(*fonts.createFont(fontOf(100)), code, flip).outline);
    }
    std::string outlineOf(const NativeOutline& native) {
        fonts.setRawGlyph(u'a', native);
        return outlineOf(u'a');
    }

    platform::MemoryFontService fonts;
    LayoutFont font;
};

TEST_F(GlyphTest, LinesAndSplinesBecomeClosedFigures) {
    fonts.setGlyph(u'I', NativeOutlineBuilder().begin(0, 0).line({{0, 70}, {10, 70}, {10, 0}}), 20);
    EXPECT_EQ(outlineOf(u'I'), "M0,0 L0,70 L10,70 L10,0 Z");
    EXPECT_EQ(outlineOf(u'I', true), "M0,0 L0,-70 L10,-70 L10,0 Z");
    EXPECT_EQ(outlineOf(u' '), "");
    // Three points after the current one: two quadratics that meet midway between the control points.
    fonts.setGlyph(u'O', NativeOutlineBuilder().begin(0, 0).qspline({{0, 30}, {30, 30}, {30, 0}}), 40);
    EXPECT_EQ(outlineOf(u'O'), "M0,0 C0,20 C5,30 C15,30 C25,30 C30,20 C30,0 Z");
}

// Records that lie about their size, of unknown type or cut off: what came before stays, nothing is read beyond.
TEST_F(GlyphTest, DamagedRecordsEndTheConversion) {
    const NativeOutline good =
        NativeOutlineBuilder().begin(0, 0).line({{8, 0}, {8, 8}}).begin(1, 1).line({{2, 2}}).finish(9);
    const std::string whole = "M0,0 L8,0 L8,8 Z M1,1 L2,2 Z";
    EXPECT_EQ(outlineOf(good), whole);
    for (std::size_t size = 0; size < good.polygons.size(); ++size) {
        NativeOutline cut = good;
        cut.polygons.resize(size);
        EXPECT_TRUE(whole.starts_with(outlineOf(cut))) << size;
    }
    const auto changed = [&](std::size_t at, int byte) {
        NativeOutline outline = good;
        outline.polygons[at] = static_cast<std::byte>(byte);
        return outlineOf(outline);
    };
    EXPECT_EQ(changed(0, 0), "") << "a record without size";
    EXPECT_EQ(changed(4, 23), "") << "a record that is no polygon";
    EXPECT_EQ(changed(16, 3), "M1,1 L2,2 Z") << "a cubic spline is skipped whole";
    EXPECT_EQ(changed(18, 9), "M1,1 L2,2 Z") << "more points than the record holds";

    fonts.failGlyph(u'a');
    const GlyphOutline failed = BuildGlyphOutline(*fonts.createFont(fontOf(100)), u'a', true);
    EXPECT_TRUE(failed.outline.empty());
    EXPECT_EQ(failed.advanceX, 0);
}

TEST_F(GlyphTest, KerningMovesThePenBetweenTwoCharacters) {
    fonts.setKerningPairs({{u'V', u'A', -9}, {u'A', u'V', -7}, {u'A', u'V', -1}});
    font.SetLayoutFont(fonts, fontOf(100), true);
    TextOnPath run(pathFrom("M0,0 L1000,0"), 1, font);
    GraphicsPath target;
    PointF pen;
    run.AppendGlyph(u'A', u'V', pen, &target);
    EXPECT_EQ(pen, (PointF{50 - 7, 0})) << "the pair's first listing counts";
    run.AppendGlyph(u'V', 0, pen, &target);
    EXPECT_EQ(pen, (PointF{50 - 7 + 50, 0})) << "the last glyph is not kerned";
    EXPECT_EQ(boundsOf(target), (RectF{0, -70, 43 + 40, 70}));
    GraphicsPath laid;
    run.LayoutString(laid, u"AV", 0);
    EXPECT_FLOAT_EQ(boundsOf(laid).Width, boundsOf(target).Width) << "along a straight line the same";
}

TEST_F(GlyphTest, EachGlyphIsFetchedOnceAsLongAsTheFontStays) {
    for (int i = 0; i < 2; ++i) {
        font.SetLayoutFont(fonts, fontOf(100), true);
        for (const char16_t code : std::u16string_view(u"ABBA")) font.glyph(code);
    }
    EXPECT_EQ(fonts.calls().createFont, 1);
    EXPECT_EQ(fonts.calls().kerningPairs, 1);
    EXPECT_EQ(fonts.calls().glyphOutline, 2);
    font.SetLayoutFont(fonts, fontOf(200), true);
    EXPECT_EQ(boundsOf(font.glyph(u'A').outline), (RectF{0, -140, 80, 140})) << "another size is another font";

    fonts.refuseFonts(true);
    font.SetLayoutFont(fonts, fontOf(300), true);
    EXPECT_EQ(font.glyph(u'A').advanceX, 0);
    EXPECT_EQ(font.metrics().tmAscent, 0);
}

TEST(SingleStroke, OpensFiguresOnWholeDots) {
    GraphicsPath target;
    ConvertToSingleStroke(pathFrom("M5,5"), target);
    EXPECT_TRUE(target.empty());
    ConvertToSingleStroke(pathFrom("M0.9,-2.7 L10.5,0 L10.5,9.99 L0,9 Z M1,1 C2.5,2 C3,3 C4,4 Z"), target);
    EXPECT_EQ(describe(target), "M0,-2 L10,0 L10,9 L0,9 M1,1 C2,2 C3,3 C4,4");
}

TEST(CharNext, StepsByWholeCharacters) {
    using Ends = std::vector<std::size_t>;
    const auto steps = [](std::u16string_view text) {
        Ends ends;
        for (std::size_t i = 0; i < text.size();) ends.push_back(i = platform::charNext(text, i));
        return ends;
    };
    EXPECT_EQ(steps(u"aé😀b"), (Ends{1, 2, 4, 5}));
    EXPECT_EQ(steps(u"e\u0301\u0323x"), (Ends{3, 4})) << "combining marks belong to their letter";
    const char16_t lone[] = {0xD800, u'a', 0xDC00, 0xDC00, 0xD83D};
    EXPECT_EQ(steps({lone, 5}), (Ends{1, 2, 3, 4, 5})) << "a lone surrogate is a character";
    EXPECT_EQ(steps(u"\u0301a"), (Ends{1, 2}));
}

}  // namespace
}  // namespace ovaline
