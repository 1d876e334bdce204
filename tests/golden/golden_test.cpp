// The same settings and font file give the same bytes, on every platform and by every compiler.
//
// The expected streams lie beside this file. After a change that is meant to alter them, run the test once with
// OVALINE_WRITE_GOLDEN=1, look at the new ones as pictures, and commit them with the reason.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>

#include "control/regenerate.h"
#include "control/settings_slices.h"
#include "platform/clock.h"
#include "tests/platform/fonts_backend.h"

namespace ovaline {
namespace {

const std::string kSource = OVALINE_SOURCE_DIR;

std::string streamOf(const TextSettings& settings) {
    static const auto fonts = platform::makePlatformFonts({kSource + "/tests/fonts", kSource + "/fonts"});
    LayoutFont font;
    const Regenerated result = regenerate(settings, *fonts, platform::systemClock(), font);
    const VectorJob job = vectorJobOf(settings, result.paths);
    std::vector<std::byte> buffer(vectorDataSize(job));
    EXPECT_TRUE(writeVectorData(job, buffer));
    std::size_t size = 0;
    while (decode(&buffer[size]).code != 'E') size += kVectorRecordSize;
    size += kVectorRecordSize;
    return {reinterpret_cast<const char*>(buffer.data()), size};
}

TextSettings solidCircle() {
    TextSettings settings = startUpSettings(96);
    settings.FontName = u"Ovaline Test";
    settings.TextData = u"Ovaline 08";
    settings.Width = settings.Height = 20000;
    settings.StartAngle = 170;
    return settings;
}

std::map<std::string, TextSettings> cases() {
    std::map<std::string, TextSettings> all;
    all["solid-circle"] = solidCircle();
    TextSettings& cross = all["cross-inside"] = solidCircle();
    cross.TextDirection = CounterClockwise;
    cross.FillStyle = Cross;
    cross.FillDistance = 150;
    cross.FillLineAngle = 20;
    cross.StartAngle = 10;
    cross.Angle = 33;
    TextSettings& line = all["line-mirrored-bold-italic"] = solidCircle();
    line.FillStyle = Line;
    line.FillDistance = 200;
    line.MirrorHorizontal = -1;
    line.Height = 12000;
    line.FontBold = line.FontItalic = -1;
    line.TextData = u"AVATo\u00C4x";
    TextSettings& inch = all["inch-outline-spaced"] = solidCircle();
    inch.Measurement = 1;
    setDotsPerUnit(inch, 15882.62f);
    inch.FillStyle = NoFilling;
    inch.CharSpace = 2000;
    inch.ShowAxes = NoAxesPartial;
    inch.Flatness = 2;
    TextSettings& strokes = all["single-stroke"] = solidCircle();
    setFontName(strokes, u"Filament SanSerif");
    strokes.TextData = u"Größe Łódź №7";
    strokes.Angle = 90;
    return all;
}

std::string golden(const std::string& name) {
    std::ifstream file(kSource + "/tests/golden/" + name + ".ovl", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(Golden, StreamsAreTheSameByteForByte) {
    for (const auto& [name, settings] : cases()) {
        const std::string stream = streamOf(settings);
        ASSERT_GT(stream.size(), 100 * kVectorRecordSize) << name;
        if (std::getenv("OVALINE_WRITE_GOLDEN"))
            std::ofstream(kSource + "/tests/golden/" + name + ".ovl", std::ios::binary) << stream;
        EXPECT_TRUE(stream == golden(name)) << name << " differs from its golden stream";
    }
    // The comparison can fail: the smallest change of a setting shows.
    TextSettings wider = solidCircle();
    wider.Width += 1;
    EXPECT_FALSE(streamOf(wider) == golden("solid-circle"));
}

}  // namespace
}  // namespace ovaline
