#include <gtest/gtest.h>

#include "platform/memory/fonts.h"
#include "tests/platform/fonts_records.h"

namespace ovaline::platform {
namespace {

const LogFont kOfTenDots{.lfHeight = 10, .lfFaceName = u"Memory"};

TEST(MemoryFonts, DefaultsAreComputedFromTheHeight) {
    MemoryFontService service;
    const auto font = service.createFont(kOfTenDots);
    EXPECT_EQ(font->textMetrics().tmAscent, 8);
    EXPECT_EQ(font->textMetrics().tmDescent, 2);
    EXPECT_EQ(described(font->glyphOutline(u'x', false)->polygons), "M0,0 L0,7 4,7 4,0 Z ");
    EXPECT_EQ(font->glyphOutline(u'x', false)->gmCellIncX, 5);
}

TEST(MemoryFonts, WhatIsSetCountsForFontsMadeBefore) {
    MemoryFontService service;
    const auto font = service.createFont(kOfTenDots);
    service.setMetrics({7, 3});
    service.setGlyph(u'Q', NativeOutlineBuilder().begin(1, 2).line({{3, 4}}).qspline({{5.5, 6}, {1, 2}}), 9);
    service.setKerningPairs({{u'A', u'V', -1}, {u'A', u'V', -2}});
    service.failGlyph(u'x');
    service.setRawGlyph(u'y', {std::vector<std::byte>(3), 4, 0});
    EXPECT_EQ(font->textMetrics().tmAscent, 7);
    EXPECT_EQ(described(font->glyphOutline(u'Q', true)->polygons), "M1,-2 L3,-4 Q5.5,-6 1,-2 Z ");
    EXPECT_EQ(font->kerningPairs().size(), 2U);
    EXPECT_FALSE(font->glyphOutline(u'x', false));
    EXPECT_EQ(font->glyphOutline(u'y', true)->polygons.size(), 3U);
    service.refuseFonts(true);
    EXPECT_FALSE(service.createFont(kOfTenDots));
}

TEST(MemoryFonts, CallsAreCounted) {
    MemoryFontService service;
    const auto font = service.createFont(kOfTenDots);
    service.createFont(kOfTenDots);
    font->glyphOutline(u'A', false);
    font->kerningPairs();
    EXPECT_EQ(service.calls().createFont, 2);
    EXPECT_EQ(service.calls().glyphOutline, 1);
    EXPECT_EQ(service.calls().kerningPairs, 1);
    service.resetCalls();
    EXPECT_EQ(service.calls().createFont, 0);
}

}  // namespace
}  // namespace ovaline::platform
