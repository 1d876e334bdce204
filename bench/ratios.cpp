#include "ratios.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

#include "control/settings_slices.h"
#include "geometry/cubic.h"
#include "geometry/path_writer.h"
#include "output/fill_section.h"
#include "platform/fonts.h"
#include "samples.h"
#include "tests/control/plain_copies.h"
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
    const Regenerated built = regenerate(settings, fonts, platform::systemClock(), font);
    constexpr int kRuns = 2000;
    const double put = fastest(kRuns, [&] { regenerate(settings, fonts, platform::systemClock(), font); });

    // The bare geometry: the cached outlines transformed, flattened and hatched.
    const float flatness = unitsOf(settings).dots(settings.Flatness);
    const Matrix turn{0.8f, 0.6f, -0.6f, 0.8f, 100, 100};
    const double bare = fastest(kRuns, [&] {
        GraphicsPath text, fill;
        for (const char16_t code : settings.TextData) appendTransformed(text, font.glyph(code).outline, turn);
        GdipFlattenPath(text, flatness);
        BuildFill(hatchInputOf(settings), built.paths.TextPath, fill);
    });
    const auto layOut = [&](std::u16string_view text) {
        LayoutInput input = layoutInputOf(settings);
        input.text = text;
        LayoutTextOnEllipse(input, fonts, font);
    };
    const double layout = fastest(kRuns, [&] { layOut(settings.TextData); });
    const double curves = fastest(kRuns, [&] { layOut(u""); });
    std::printf("A default put, glyphs already seen: %.1f times its bare geometry (%.1f and %.1f us in this run)\n",
                put / bare, microseconds(put), microseconds(bare));
    std::printf(
        "  of the put, %.0f %% are the ellipse and its band curves, %.0f %% the glyphs' places, %.0f %% rotation, "
        "bounds, flattening, fill\n",
        100 * curves / put, 100 * (layout - curves) / put, 100 * (put - layout) / put);
}

/// Bytes by which `work` raises the process's memory at its peak, seen in a process of its own.
template <typename Work>
double peakBytes(Work&& work) {
    int ends[2] = {};
    if (pipe(ends) != 0) return 0;
    if (fork() == 0) {
        const auto peak = [] {
            rusage usage{};
            getrusage(RUSAGE_SELF, &usage);
            return static_cast<double>(usage.ru_maxrss) * 1024;
        };
        const double before = peak();
        work();
        const double taken = peak() - before;
        _exit(write(ends[1], &taken, sizeof taken) == sizeof taken ? 0 : 1);
    }
    close(ends[1]);
    double taken = 0;
    const bool known = read(ends[0], &taken, sizeof taken) == sizeof taken;
    close(ends[0]);
    wait(nullptr);
    return known ? taken : 0;
}

/// The largest array of serial numbers, against copies that are laid out in full, one by one.
void printComposed() {
    TextSettings settings = defaultSettings();
    settings.SerialNumEnable = -1;
    settings.SerialNumPrefix = u"SN-";
    settings.SerNumSuffix = u"";
    settings.SerNumDecimalPlaces = Five;
    settings.FontHeight = 2000;
    settings.FillStyle = NoFilling;
    settings.ArrayXOffset = settings.ArrayYOffset = 25000;
    platform::FontService& fonts = platform::systemFonts();
    const platform::Clock& clock = platform::systemClock();
    LayoutFont font;

    settings.ArrayXDimension = settings.ArrayYDimension = 30;
    const double plain = fastest(3,
                                 [&] {
                                     PlainCopies copies = plainCopies(settings, fonts, clock, font);
                                     GdipFlattenPath(copies.text, unitsOf(settings).dots(settings.Flatness));
                                 }) /
                         (30 * 30);

    settings.ArrayXDimension = settings.ArrayYDimension = 255;
    const double taken = peakBytes([&] { regenerate(settings, fonts, clock, font); });
    Regenerated built = regenerate(settings, fonts, clock, font);
    const std::size_t points = built.paths.TextPath.size();
    const double fast = fastest(3, [&] { built = regenerate(settings, fonts, clock, font, std::move(built.paths)); });
    constexpr double kCopies = 255.0 * 255.0;
    constexpr double kGlyphs = kCopies * 8;
    const double beyond = taken - static_cast<double>(points) * 9;
    std::printf(
        "255 x 255 copies of \"SN-00001\": %.0f times faster than laid out one by one (%.0f ms, %.1f million points);\n"
        "  %.0f bytes a glyph beyond the points themselves\n",
        plain * kCopies / fast, fast * 1000, static_cast<double>(points) / 1e6, beyond / kGlyphs);
}

}  // namespace

void printRatios() {
    printComposed();
    std::printf("\nThe fill section, in one run:\n");
    for (const float angle : {0.0f, 45.0f, 90.0f, 135.0f}) printFill(10, angle, true);
    printFill(40, 0, false);
    printFill(40, 45, false);
    printPut();
    printPreview();
}

}  // namespace ovaline::bench
