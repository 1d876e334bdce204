// What every font service keeps, run against the platform's and the one in memory.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <memory>

#include "platform/memory/fonts.h"
#include "tests/platform/fonts_backend.h"
#include "tests/platform/fonts_records.h"

namespace ovaline::platform {
namespace {

constexpr char16_t kUnmapped = 0xE000;

struct Backend {
    const char* name;
    std::unique_ptr<FontService> (*make)();
    std::u16string family;
};

void PrintTo(const Backend& backend, std::ostream* out) {
    *out << backend.name;
}

const Backend kPlatform{"platform", [] { return makePlatformFonts({OVALINE_SOURCE_DIR "/tests/fonts"}); },
                        u"Ovaline Test"};
const Backend kMemory{"memory", [] { return std::unique_ptr<FontService>(new MemoryFontService); }, u"Memory"};

class FontServiceConformance : public testing::TestWithParam<Backend> {
protected:
    std::shared_ptr<const Font> fontOfHeight(std::int32_t height) {
        LogFont description;
        description.lfFaceName = GetParam().family;
        description.lfHeight = height;
        return service_->createFont(description);
    }

    std::unique_ptr<FontService> service_ = GetParam().make();
};

TEST_P(FontServiceConformance, SizesAndMetrics) {
    EXPECT_EQ(fontOfHeight(100), fontOfHeight(100));
    EXPECT_NE(fontOfHeight(100), fontOfHeight(101));
    EXPECT_FALSE(fontOfHeight(0));
    EXPECT_FALSE(fontOfHeight(std::numeric_limits<std::int32_t>::max()));
    EXPECT_FALSE(fontOfHeight(std::numeric_limits<std::int32_t>::min()));
    for (const std::int32_t height : {60, 777, 4000}) {
        const TextMetrics metrics = fontOfHeight(height)->textMetrics();
        EXPECT_GT(metrics.tmAscent, metrics.tmDescent);
        EXPECT_GT(metrics.tmDescent, 0);
        EXPECT_NEAR(metrics.tmAscent + metrics.tmDescent, height, 1);
        EXPECT_GE(fontOfHeight(-height)->textMetrics().tmAscent, metrics.tmAscent) << "of the em";
    }
}

TEST_P(FontServiceConformance, OutlinesAreWellFormed) {
    for (const char16_t code : std::u16string(u"AHOZ09a ")) {
        const auto glyph = fontOfHeight(100)->glyphOutline(code, false);
        ASSERT_TRUE(glyph);
        EXPECT_EQ(glyph->polygons.empty(), code == u' ');
        EXPECT_GT(glyph->gmCellIncX, 0);
        EXPECT_EQ(glyph->gmCellIncY, 0);
        EXPECT_EQ(described(glyph->polygons).find("bad"), std::string::npos);
    }
}

TEST_P(FontServiceConformance, FlipNegatesY) {
    const auto font = fontOfHeight(100);
    const auto upward = coordinates(font->glyphOutline(u'O', false)->polygons);
    const auto downward = coordinates(font->glyphOutline(u'O', true)->polygons);
    ASSERT_EQ(upward.size(), downward.size());
    ASSERT_GE(upward.size(), 6U);
    for (std::size_t i = 0; i < upward.size(); i += 2) {
        EXPECT_EQ(upward[i], downward[i]);
        EXPECT_EQ(upward[i + 1] >> 10, -(downward[i + 1] >> 10));  // in 1/64 dots; the bits below only fill up
    }
}

TEST_P(FontServiceConformance, UnmappedCodesGiveTheNotdefGlyph) {
    const auto font = fontOfHeight(100);
    const auto notdef = font->glyphOutline(kUnmapped, false);
    ASSERT_TRUE(notdef);
    EXPECT_FALSE(notdef->polygons.empty());
    EXPECT_EQ(notdef->polygons, font->glyphOutline(0xD800, false)->polygons);
    EXPECT_NE(notdef->polygons, font->glyphOutline(u'A', false)->polygons);
}

TEST_P(FontServiceConformance, CoordinatesBeyondFixedAreAnError) {
    const auto font = fontOfHeight(60000);
    ASSERT_TRUE(font);
    EXPECT_FALSE(font->glyphOutline(u'H', false));
    EXPECT_TRUE(font->glyphOutline(u' ', false));
}

TEST_P(FontServiceConformance, FontOutlivesItsService) {
    const auto font = fontOfHeight(100);
    const auto before = font->glyphOutline(u'A', false);
    service_.reset();
    EXPECT_EQ(font->glyphOutline(u'A', false)->polygons, before->polygons);
    EXPECT_GT(font->textMetrics().tmAscent, 0);
    font->kerningPairs();
}

TEST_P(FontServiceConformance, FamiliesAreSortedAndUsable) {
    const auto families = service_->families();
    EXPECT_TRUE(std::ranges::is_sorted(families, std::less_equal(), &FontFamily::name));
    EXPECT_TRUE(std::ranges::find(families, GetParam().family, &FontFamily::name) != families.end());
    for (const FontFamily& family : families) {
        const auto font = service_->createFont({.lfHeight = 50, .lfFaceName = family.name});
        ASSERT_TRUE(font);
        EXPECT_EQ(font->familyName(), family.name);
    }
}

TEST_P(FontServiceConformance, UnknownFamilyIsSubstituted) {
    const auto font = service_->createFont({.lfHeight = 50, .lfFaceName = u"No Such Family"});
    ASSERT_TRUE(font);
    EXPECT_NE(font->familyName(), u"No Such Family");
    EXPECT_TRUE(font->glyphOutline(u'A', false));
}

INSTANTIATE_TEST_SUITE_P(Backends, FontServiceConformance, testing::Values(kPlatform, kMemory),
                         [](const auto& instance) { return instance.param.name; });

}  // namespace
}  // namespace ovaline::platform
