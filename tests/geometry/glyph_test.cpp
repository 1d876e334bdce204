#include <gtest/gtest.h>

#include "platform/char_next.h"
#include "geometry/text_on_path.h"
#include "path_text.h"
#include "platform/memory/fonts.h"

namespace ovaline {
namespace {

using platform::MemoryFontService;
using platform::NativeOutline;
using platform::NativeOutlineBuilder;

platform::LogFont fontOf(std::int32_t height) {
    platform::LogFont font;
    font.lfHeight = height;
    font.lfFaceName = u"Memory";
    return font;
}

std::string outlineOf(MemoryFontService& fonts, char16_t code, bool flip = false) {
    return describe(BuildGlyphOutline(*fonts.createFont(fontOf(100)), code, flip).outline);
}

TEST(GlyphOutline, LinesAndSplinesBecomeClosedFigures) {
    MemoryFontService fonts;
    fonts.setGlyph(u'I', NativeOutlineBuilder().begin(0, 0).line({{0, 70}, {10, 70}, {10, 0}}), 20);
    EXPECT_EQ(outlineOf(fonts, u'I'), "M0,0 L0,70 L10,70 L10,0 Z");
    EXPECT_EQ(outlineOf(fonts, u'I', true), "M0,0 L0,-70 L10,-70 L10,0 Z");
    EXPECT_EQ(outlineOf(fonts, u' '), "");

    // Three points after the current one: two quadratics that meet midway between the control points.
    fonts.setGlyph(u'O', NativeOutlineBuilder().begin(0, 0).qspline({{0, 30}, {30, 30}, {30, 0}}), 40);
    EXPECT_EQ(outlineOf(fonts, u'O'), "M0,0 C0,20 C5,30 C15,30 C25,30 C30,20 C30,0 Z");
}

// Records that lie about their size, of unknown type or cut off: what came before stays, nothing is read beyond.
TEST(GlyphOutline, DamagedRecordsEndTheConversion) {
    MemoryFontService fonts;
    const NativeOutline good =
        NativeOutlineBuilder().begin(0, 0).line({{8, 0}, {8, 8}}).begin(1, 1).line({{2, 2}}).finish(9);
    const std::string whole = "M0,0 L8,0 L8,8 Z M1,1 L2,2 Z";
    fonts.setRawGlyph(u'a', good);
    EXPECT_EQ(outlineOf(fonts, u'a'), whole);
    for (std::size_t size = 0; size < good.polygons.size(); ++size) {
        NativeOutline cut = good;
        cut.polygons.resize(size);
        fonts.setRawGlyph(u'a', cut);
        EXPECT_TRUE(whole.starts_with(outlineOf(fonts, u'a'))) << size;
    }
    NativeOutline otherType = good;
    otherType.polygons[4] = std::byte{23};
    fonts.setRawGlyph(u'a', otherType);
    EXPECT_EQ(outlineOf(fonts, u'a'), "");
    NativeOutline cubic = good;
    cubic.polygons[16] = std::byte{3};  // a cubic spline record is skipped whole
    fonts.setRawGlyph(u'a', cubic);
    EXPECT_EQ(outlineOf(fonts, u'a'), "M1,1 L2,2 Z");

    fonts.failGlyph(u'a');
    const GlyphOutline failed = BuildGlyphOutline(*fonts.createFont(fontOf(100)), u'a', true);
    EXPECT_TRUE(failed.outline.empty());
    EXPECT_EQ(failed.advanceX, 0);
}

TEST(Kerning, MovesThePenBetweenTheTwoCharacters) {
    MemoryFontService fonts;
    fonts.setKerningPairs({{u'V', u'A', -9}, {u'A', u'V', -7}, {u'A', u'V', -1}});
    LayoutFont font;
    font.SetLayoutFont(fonts, fontOf(100), true);
    TextOnPath run(pathFrom("M0,0 L1000,0"), 1, font);
    GraphicsPath target;
    PointF pen;
    run.AppendGlyph(u'A', u'V', pen, &target);
    EXPECT_EQ(pen, (PointF{50 - 7, 0})) << "the pair's first listing counts";
    run.AppendGlyph(u'V', 0, pen, &target);
    EXPECT_EQ(pen, (PointF{50 - 7 + 50, 0})) << "the last glyph is not kerned";
    EXPECT_EQ(boundsOf(target), (RectF{0, -70, 43 + 40, 70}));
}

TEST(LayoutFont, FetchesEachGlyphOnceAsLongAsTheFontStays) {
    MemoryFontService fonts;
    LayoutFont font;
    const auto layTwice = [&] {
        for (int i = 0; i < 2; ++i) {
            font.SetLayoutFont(fonts, fontOf(100), true);
            for (const char16_t code : std::u16string_view(u"ABBA")) font.glyph(code);
        }
    };
    layTwice();
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
    ConvertToSingleStroke(pathFrom("M0.9,-2.7 L10.5,0 L10.5,9.99 L0,9 Z M1,1 C2.5,2 C3,3 C4,4 Z"), target);
    EXPECT_EQ(describe(target), "M0,-2 L10,0 L10,9 L0,9 M1,1 C2,2 C3,3 C4,4");
    GraphicsPath point;
    GdipAddPathRectangle(point, 0, 0, 1, 1);
    const Point one[] = {{5, 5}};
    const std::uint8_t start[] = {0};
    GraphicsPath none;
    ConvertToSingleStroke(GdipCreatePath2I(one, start, FillModeAlternate), none);
    EXPECT_TRUE(none.empty());
}

TEST(CharNext, StepsByWholeCharacters) {
    const auto steps = [](std::u16string_view text) {
        std::vector<std::size_t> ends;
        for (std::size_t i = 0; i < text.size();) ends.push_back(i = platform::charNext(text, i));
        return ends;
    };
    using Ends = std::vector<std::size_t>;
    EXPECT_EQ(steps(u"aé😀b"), (Ends{1, 2, 4, 5}));
    EXPECT_EQ(steps(u"e\u0301\u0323x"), (Ends{3, 4})) << "combining marks belong to their letter";
    const char16_t lone[] = {0xD800, u'a', 0xDC00, 0xDC00, 0xD83D};
    EXPECT_EQ(steps({lone, 5}), (Ends{1, 2, 3, 4, 5})) << "a lone surrogate is a character";
    EXPECT_EQ(steps(u"\u0301a"), (Ends{1, 2}));
}

}  // namespace
}  // namespace ovaline
