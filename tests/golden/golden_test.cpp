// The same settings and font file give the same bytes, on every platform and by every compiler.
//
// The expected streams lie beside this file. After a change that is meant to alter them, run the test once with
// OVALINE_WRITE_GOLDEN=1, look at the new ones as pictures, and commit them with the reason.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "control/regenerate.h"
#include "control/settings_slices.h"
#include "platform/clock.h"
#include "platform/posix/fonts.h"

namespace ovaline {
namespace {

const std::string kSource = OVALINE_SOURCE_DIR;

std::string streamOf(const TextSettings& settings) {
    static platform::PosixFontService fonts({kSource + "/tests/fonts", kSource + "/fonts"});
    LayoutFont font;
    const Regenerated result = regenerate(settings, fonts, platform::systemClock(), font);
    const VectorJob job = vectorJobOf(settings, result.paths);
    std::vector<std::byte> buffer(vectorDataSize(job));
    EXPECT_TRUE(writeVectorData(job, buffer));
    std::size_t size = 0;
    while (decode(&buffer[size]).code != 'E') size += kVectorRecordSize;
    size += kVectorRecordSize;
    return {reinterpret_cast<const char*>(buffer.data()), size};
}

TextSettings testSettings() {
    TextSettings settings = startUpSettings(96);
    settings.FontName = u"Ovaline Test";
    settings.TextData = u"Ovaline 08";
    settings.Width = settings.Height = 20000;
    settings.StartAngle = 170;
    return settings;
}

struct Case {
    const char* name;
    TextSettings settings;
};

std::vector<Case> cases() {
    std::vector<Case> all(5, Case{"", testSettings()});
    all[0].name = "solid-circle";
    all[1].name = "cross-inside";
    all[1].settings.TextDirection = CounterClockwise;
    all[1].settings.FillStyle = Cross;
    all[1].settings.FillDistance = 150;
    all[1].settings.FillLineAngle = 20;
    all[1].settings.StartAngle = 10;
    all[1].settings.Angle = 33;
    all[2].name = "line-mirrored-bold-italic";
    all[2].settings.FillStyle = Line;
    all[2].settings.FillDistance = 200;
    all[2].settings.MirrorHorizontal = -1;
    all[2].settings.Height = 12000;
    all[2].settings.FontBold = all[2].settings.FontItalic = -1;
    all[2].settings.TextData = u"AVATo\u00C4x.";
    all[3].name = "inch-outline-spaced";
    all[3].settings.Measurement = 1;
    setDotsPerUnit(all[3].settings, 15882.62f);
    all[3].settings.FillStyle = NoFilling;
    all[3].settings.CharSpace = 2000;
    all[3].settings.ShowAxes = NoAxesPartial;
    all[3].settings.Flatness = 2;
    all[4].name = "single-stroke";
    setFontName(all[4].settings, u"Filament SanSerif");
    all[4].settings.TextData = u"Größe Łódź №7";
    all[4].settings.Angle = 90;
    return all;
}

std::string golden(const std::string& name) {
    std::ifstream file(kSource + "/tests/golden/" + name + ".ovl", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(Golden, StreamsAreTheSameByteForByte) {
    for (const Case& test : cases()) {
        const std::string stream = streamOf(test.settings);
        ASSERT_GT(stream.size(), 100 * kVectorRecordSize) << test.name;
        if (std::getenv("OVALINE_WRITE_GOLDEN"))
            std::ofstream(kSource + "/tests/golden/" + test.name + ".ovl", std::ios::binary) << stream;
        EXPECT_TRUE(stream == golden(test.name)) << test.name << " differs from its golden stream";
    }
}

// The comparison can fail: the smallest change of a setting shows.
TEST(Golden, AMicrometreMakesAnotherStream) {
    Case wider = cases()[0];
    wider.settings.Width += 1;
    EXPECT_FALSE(streamOf(wider.settings) == golden(wider.name));
}

}  // namespace
}  // namespace ovaline
