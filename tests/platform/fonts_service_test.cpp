// What the platform's font service adds: the mapper, the made-up styles, kerning, damaged and vanishing files.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>

#include "platform/posix/fonts.h"
#include "platform/posix/fonts_face.h"
#include "tests/platform/fonts_records.h"

namespace ovaline::platform {
namespace {

const std::filesystem::path kTestFonts = OVALINE_SOURCE_DIR "/tests/fonts";

LogFont description(std::u16string family, std::int32_t height, bool bold = false, bool italic = false) {
    LogFont font{.lfHeight = height, .lfFaceName = std::move(family)};
    if (bold) font.lfWeight = 700;
    font.lfItalic = italic;
    return font;
}

/// A service that knows the fonts of one folder only.
class FolderFonts : public testing::Test {
protected:
    FolderFonts() {
        std::filesystem::remove_all(root_);
        std::filesystem::create_directories(fonts());
        std::ofstream(root_ / "fonts.conf")
            << "<fontconfig><cachedir>" << (root_ / "cache").string() << "</cachedir></fontconfig>";
        useConfiguration(root_ / "fonts.conf");
    }
    ~FolderFonts() override {
        unsetenv("FONTCONFIG_FILE");
        std::filesystem::remove_all(root_);
    }

    static void useConfiguration(const std::filesystem::path& file) { setenv("FONTCONFIG_FILE", file.c_str(), 1); }
    std::filesystem::path fonts() const { return root_ / "fonts"; }
    std::filesystem::path addFont(const char* name) const {
        std::filesystem::copy_file(kTestFonts / name, fonts() / name);
        return fonts() / name;
    }

    // Tests run side by side.
    std::filesystem::path root_ =
        std::filesystem::path(testing::TempDir()) / ("ovaline_fonts_" + std::to_string(getpid()));
};

TEST_F(FolderFonts, NamesAreFoundWhateverTheirCase) {
    PosixFontService none({fonts(), root_ / "missing"});
    EXPECT_FALSE(none.createFont(description(u"Ovaline Test", 100)));
    EXPECT_TRUE(none.families().empty());
    addFont("OvalineTest.ttf");
    useConfiguration(root_ / "missing.conf");
    EXPECT_TRUE(PosixFontService({fonts()}).createFont(description(u"Ovaline Test", 100)));
    useConfiguration(root_ / "fonts.conf");
    PosixFontService service({fonts()});
    EXPECT_EQ(service.createFont(description(u"oVALINE tEST", 100))->familyName(), u"Ovaline Test");
    EXPECT_EQ(service.createFont(description(u"", 100))->familyName(), u"Ovaline Test");
    EXPECT_EQ(service.createFont(description(u"\xD800\xFFFF, :=-", 100))->familyName(), u"Ovaline Test");
}

TEST_F(FolderFonts, WhatWasFoundNeedsItsFileNoMore) {
    const auto file = addFont("OvalineTest.ttf");
    PosixFontService service({fonts()});
    const auto font = service.createFont(description(u"Ovaline Test", 100));
    std::filesystem::resize_file(file, 100);
    std::filesystem::remove(file);
    EXPECT_TRUE(font->glyphOutline(u'A', false));
    EXPECT_TRUE(service.createFont(description(u"Ovaline Test", 200))->glyphOutline(u'B', false));
}

TEST_F(FolderFonts, UnreadableFileGivesTheNextBest) {
    const auto file = addFont("OvalineTest.ttf");
    const auto other = addFont("OvalineTestGpos.ttf");
    PosixFontService service({fonts()});
    PosixFontService serviceOfNone({fonts()});
    std::filesystem::resize_file(file, 100);
    EXPECT_EQ(service.createFont(description(u"Ovaline Test", 100))->familyName(), u"Ovaline Test Gpos");
    std::filesystem::remove(other);
    EXPECT_FALSE(serviceOfNone.createFont(description(u"Ovaline Test", 100)));
}

TEST_F(FolderFonts, FontsUsedLongAgoStayValid) {
    addFont("OvalineTest.ttf");
    PosixFontService service({fonts()});
    const auto font = service.createFont(description(u"Ovaline Test", 5));
    for (std::int32_t height = 6; height < 200; ++height) service.createFont(description(u"Ovaline Test", height));
    const auto again = service.createFont(description(u"Ovaline Test", 5));
    EXPECT_NE(again, font);
    EXPECT_EQ(again->glyphOutline(u'A', false)->polygons, font->glyphOutline(u'A', false)->polygons);
}

TEST_F(FolderFonts, MissingBoldIsEmboldened) {
    addFont("OvalineTest.ttf");
    PosixFontService service({fonts()});
    const auto regular = service.createFont(description(u"Ovaline Test", -240));
    const auto bold = service.createFont(description(u"Ovaline Test", -240, true));
    const auto width = [](const Font& font) {
        const auto points = coordinates(font.glyphOutline(u'H', false)->polygons);
        std::set<std::int32_t> columns;
        for (std::size_t i = 0; i < points.size(); i += 2) columns.insert(points[i]);
        return (*columns.rbegin() - *columns.begin()) / 65536.0;
    };
    EXPECT_NEAR(width(*bold) - width(*regular), 10, 0.1);  // a 24th of the em
    EXPECT_EQ(bold->glyphOutline(u'H', false)->gmCellIncX, regular->glyphOutline(u'H', false)->gmCellIncX + 1);
    EXPECT_TRUE(bold->glyphOutline(u' ', false)->polygons.empty());
}

TEST(SystemFonts, StylesComeFromTheFamily) {
    PosixFontService service({});
    EXPECT_EQ(service.createFont(description(u"Arial", 100))->familyName(), u"Liberation Sans") << "of the same widths";
    std::set<std::vector<std::byte>> outlines;
    for (const bool bold : {false, true}) {
        for (const bool italic : {false, true}) {
            const auto font = service.createFont(description(u"Liberation Sans", 1000, bold, italic));
            EXPECT_EQ(font->familyName(), u"Liberation Sans");
            const auto glyph = font->glyphOutline(u'A', false);
            outlines.insert(glyph->polygons);
            EXPECT_EQ(glyph->gmCellIncX, bold ? 647 : 597);  // 1479 and 1366 units, nothing added
        }
    }
    EXPECT_EQ(outlines.size(), 4U);
}

TEST(DamagedFontFiles, NeverBreakTheService) {
    constexpr int kRounds = 300;
    const std::filesystem::path copy = std::filesystem::path(testing::TempDir()) / "ovaline_damaged.ttf";
    std::ifstream file(kTestFonts / "OvalineTest.ttf", std::ios::binary);
    const std::string sound{std::istreambuf_iterator<char>(file), {}};
    ASSERT_FALSE(sound.empty());
    const FontEngine engine = startFontEngine();
    std::mt19937 random(1854);  // the same damage in every run
    int opened = 0;
    for (int round = 0; round < kRounds; ++round) {
        std::string damaged = sound;
        const std::size_t reach = round % 3 ? damaged.size() : 1000;  // the directory and the first tables
        for (int i = 0; i < 1 + round / 4; ++i) damaged[random() % reach] = static_cast<char>(random());
        if (round % 5 == 4) damaged.resize(random() % damaged.size());
        std::ofstream(copy, std::ios::binary) << damaged;
        const auto face = FontFace::open(engine, copy, 0);
        if (!face) continue;
        ++opened;
        face->kerningPairs();
        for (char16_t code = 0x20; code < 0x180; ++code) face->outline(code, 300, {round % 2 == 0, true}, true);
    }
    EXPECT_GT(opened, kRounds / 4);
    std::filesystem::remove(copy);
}

}  // namespace
}  // namespace ovaline::platform
