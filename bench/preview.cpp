// What a preview costs, and how much of that is the drawing engine's.
#include <benchmark/benchmark.h>

#include <cstdio>

#include "control/settings_slices.h"
#include "platform/clock.h"
#include "platform/drawing.h"
#include "platform/fonts.h"
#include "ratios.h"
#include "samples.h"

namespace ovaline::bench {
namespace {

using platform::Argb;
using platform::DrawingBox;
using platform::DrawingPath;

constexpr int kPixels = 1000;

/// Takes everything and draws nothing.
class IdleCanvas final : public platform::Canvas {
public:
    float pixelsPerInch() const override { return 96; }
    DrawingBox visible() const override { return {0, 0, kPixels, kPixels}; }
    void setSmoothing(bool) override {}
    void resetClip() override {}
    void setClip(const DrawingBox&) override {}
    void setClip(const DrawingPath& path) override { take(path); }
    void setClipOutside(const DrawingBox&, const DrawingPath& path) override { take(path); }
    void addToClip(const DrawingPath& path) override { take(path); }
    void fill(const DrawingPath& path, Argb) override { take(path); }
    void fillOutside(const DrawingBox&, const DrawingPath& path, Argb) override { take(path); }
    void fillEllipse(const DrawingBox&, Argb) override {}
    void stroke(const DrawingPath& path, const platform::Pen&) override { take(path); }

private:
    static void take(const DrawingPath& path) { benchmark::DoNotOptimize(path.points.data()); }
};

/// `side` × `side` copies of the default text, as large as the picture.
struct PreviewSample {
    TextSettings settings;
    KeptPaths paths;

    PreviewSample(int side, std::int32_t fillStyle) : settings(defaultSettings()) {
        settings.FillStyle = fillStyle;
        settings.ArrayXDimension = settings.ArrayYDimension = side;
        settings.ArrayXOffset = settings.ArrayYOffset = 30000;
        settings.ZoomFactor = 9.0f / static_cast<float>(side);
        LayoutFont font;
        paths = regenerate(settings, platform::systemFonts(), platform::systemClock(), font).paths;
    }
    void draw(platform::Canvas& canvas) const { drawPreview(previewJobOf(settings, paths, 96), canvas); }
};

void preview(benchmark::State& state) {
    const PreviewSample sample(static_cast<int>(state.range(0)), static_cast<std::int32_t>(state.range(1)));
    const auto bitmap = platform::makeBitmap(kPixels, kPixels);
    for (auto _ : state) sample.draw(bitmap->canvas());
}
// Copies on a side; solid or hatched at 40 micrometres.
BENCHMARK(preview)->ArgsProduct({{1, 5, 20}, {Solid, Line}})->Unit(benchmark::kMillisecond);

}  // namespace

void printPreview() {
    std::printf("\nThe preview on 1000 x 1000 pixels, in one run:\n");
    for (const int side : {1, 20}) {
        for (const std::int32_t fillStyle : {Solid, Line}) {
            const PreviewSample sample(side, fillStyle);
            const auto bitmap = platform::makeBitmap(kPixels, kPixels);
            IdleCanvas idle;
            constexpr int kRuns = 5;
            const double all = fastest(kRuns, [&] { sample.draw(bitmap->canvas()); });
            const double own = fastest(kRuns, [&] { sample.draw(idle); });
            constexpr double kMilliseconds = 1e3;
            std::printf("%3d x %-3d copies, %s: %8.1f ms, of which the drawing engine takes %.1f %%\n", side, side,
                        fillStyle == Solid ? "solid  " : "hatched", all * kMilliseconds, 100 * (all - own) / all);
        }
    }
}

}  // namespace ovaline::bench
