// What the font service has of its own on GDI: fonts that need no installing, and what GDI answers at its limits.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

#include "platform/com.h"
#include "platform/windows/fonts.h"
#include "tests/platform/fonts_records.h"

namespace ovaline::platform {
namespace {

const std::filesystem::path kSourceFonts = OVALINE_SOURCE_DIR "/tests/fonts";

/// A folder with the test font under a name of its own, so that it is nobody else's private font.
class PrivateFolder : public testing::Test {
protected:
    PrivateFolder() {
        std::filesystem::remove_all(folder_);
        std::filesystem::create_directories(folder_);
        std::filesystem::copy_file(kSourceFonts / "OvalineTest.ttf", folder_ / L"\u041E\u0432\u0430\u043B.ttf");
        std::ofstream(folder_ / "broken.ttf") << "no font";
        std::ofstream(folder_ / "other.txt") << "nor this";
    }
    ~PrivateFolder() override {
        std::error_code busy;
        std::filesystem::remove_all(folder_, busy);
    }

    static bool lists(FontService& service) {
        const auto families = service.families();
        return std::ranges::find(families, u"Ovaline Test", &FontFamily::name) != families.end();
    }
    static std::shared_ptr<const Font> make(FontService& service, std::int32_t height) {
        return service.createFont({.lfHeight = height, .lfFaceName = u"Ovaline Test"});
    }

    std::filesystem::path folder_ =
        std::filesystem::temp_directory_path() / ("ovaline_fonts_" + std::to_string(GetCurrentProcessId()));
};

TEST_F(PrivateFolder, FontsAreThereWhileSomebodyUsesThem) {
    GdiFontService other({folder_ / "missing"});
    if (lists(other)) GTEST_SKIP() << "the test font is installed";
    std::shared_ptr<const Font> font;
    {
        GdiFontService service({folder_, folder_ / "missing"});
        EXPECT_TRUE(lists(service));
        font = make(service, 100);
        ASSERT_TRUE(font);
        EXPECT_EQ(font->familyName(), u"Ovaline Test");
    }
    EXPECT_EQ(font->kerningPairs().size(), 4U);
    EXPECT_TRUE(lists(other));
    font.reset();
    EXPECT_FALSE(lists(other));
}

TEST_F(PrivateFolder, FontsUsedLongAgoStayValid) {
    GdiFontService service({folder_});
    const DWORD before = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    const auto font = make(service, 5);
    for (std::int32_t height = 6; height < 400; ++height) make(service, height);
    EXPECT_LE(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), before + 70);  // few are kept
    const auto again = make(service, 5);
    EXPECT_NE(again, font);
    EXPECT_EQ(again->glyphOutline(u'A', false)->polygons, font->glyphOutline(u'A', false)->polygons);
}

TEST_F(PrivateFolder, AdvancesBeyondFifteenBits) {
    GdiFontService service({folder_});
    const std::int32_t third = make(service, -20000)->glyphOutline(u'n', false)->gmCellIncX;
    const auto glyph = make(service, -60000)->glyphOutline(u'n', false);
    ASSERT_TRUE(glyph);
    EXPECT_GT(glyph->gmCellIncX, 0x8000);
    EXPECT_NEAR(glyph->gmCellIncX, 3 * third, 3);
}

TEST(GdiFonts, FamiliesAreNamedOnceAndStandUpright) {
    GdiFontService service({});
    const auto families = service.families();
    EXPECT_FALSE(families.empty());
    for (const FontFamily& family : families) EXPECT_NE(family.name.front(), u'@');
}

TEST(GdiFonts, NamesOfAnyLength) {
    GdiFontService service({});
    for (const std::u16string& name : {std::u16string(), std::u16string(1000, u'x'), std::u16string(u"A\0B", 3)})
        EXPECT_TRUE(service.createFont({.lfHeight = 50, .lfFaceName = name}));
}

}  // namespace
}  // namespace ovaline::platform
