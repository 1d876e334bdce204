#include "ratios.h"

#include <cstdio>

#include "control/settings_slices.h"
#include "geometry/cubic.h"
#include "geometry/path_writer.h"
#include "output/fill_section.h"
#include "platform/fonts.h"
#include "samples.h"
#include "tests/output/plain_fill.h"

namespace ovaline::bench {

namespace {

struct FillTimes {
    double fast;
    double records;  ///< the same records written from memory
};

FillTimes timeFill(const FillSample& sample, std::vector<std::byte>& buffer, std::size_t& count) {
    FillTimes times{};
    times.fast = fastest(7, [&] {
        RecordSink sink(buffer);
        writeFillSection(sample.edges, sample.hatch, sink);
        count = static_cast<std::size_t>(sink.position() - buffer.data()) / kVectorRecordSize;
    });
    std::vector<VectorRecord> records(count);
    for (std::size_t i = 0; i < count; ++i) records[i] = decode(&buffer[i * kVectorRecordSize]);
    times.records = fastest(7, [&] {
        RecordSink sink(buffer);
        for (const VectorRecord& record : records) sink.write(record);
    });
    return times;
}

void printFill(int side, float angle, bool withPlain) {
    const FillSample sample = copiesOfText(side, angle);
    std::vector<std::byte> buffer(std::size_t{1} << 28);
    std::size_t count = 0;
    const FillTimes times = timeFill(sample, buffer, count);
    std::printf(
        "  %2d x %2d copies, %3.0f degrees: %7zu edges, %5zu lines, %8zu records; %4.1f times writing the records",
        side, side, static_cast<double>(angle), sample.edges.size(), sample.hatch.size(), count,
        times.fast / times.records);
    if (withPlain) {
        std::size_t plainCount = 0;
        const double plain = fastest(2, [&] { plainCount = plainFill(sample.edges, sample.hatch).size(); });
        std::printf("; plain evaluation %5.0f times slower%s", plain / times.fast,
                    plainCount == count ? "" : " (DIFFERS)");
    }
    std::printf("\n");
}

double microseconds(double seconds) {
    return seconds * 1e6;
}

void printPut() {
    const TextSettings settings = defaultSettings();
    platform::FontService& fonts = platform::systemFonts();
    LayoutFont font;
    const Regenerated built = regenerate(settings, fonts, font);
    constexpr int kRuns = 2000;
    const double put = fastest(kRuns, [&] { regenerate(settings, fonts, font); });

    // The bare geometry: the cached outlines transformed, flattened and hatched.
    const float flatness = unitsOf(settings).dots(settings.Flatness);
    const Matrix turn{0.8f, 0.6f, -0.6f, 0.8f, 100, 100};
    const double bare = fastest(kRuns, [&] {
        GraphicsPath text, fill;
        for (const char16_t code : settings.TextData) appendTransformed(text, font.glyph(code).outline, turn);
        GdipFlattenPath(text, flatness);
        BuildFill(hatchInputOf(settings), built.paths.TextPath, fill);
    });
    const double layout =
        fastest(kRuns, [&] { LayoutTextOnEllipse(layoutInputOf(settings, settings.TextData), fonts, font); });
    const double curves = fastest(kRuns, [&] { LayoutTextOnEllipse(layoutInputOf(settings, u""), fonts, font); });
    std::printf("A default put, glyphs already seen: %.1f times its bare geometry (%.1f and %.1f us in this run)\n",
                put / bare, microseconds(put), microseconds(bare));
    std::printf(
        "  of the put, %.0f %% are the ellipse and its band curves, %.0f %% the glyphs' places, %.0f %% rotation, "
        "bounds, flattening, fill\n",
        100 * curves / put, 100 * (layout - curves) / put, 100 * (put - layout) / put);
}

}  // namespace

void printRatios() {
    std::printf("\nThe fill section, in one run:\n");
    for (const float angle : {0.0f, 45.0f, 90.0f, 135.0f}) printFill(10, angle, true);
    printFill(40, 0, false);
    printFill(40, 45, false);
    printPut();
}

}  // namespace ovaline::bench
