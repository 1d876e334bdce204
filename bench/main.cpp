// Times the put, the export and the raster at three sizes each, then prints the ratios.
#include <benchmark/benchmark.h>

#include "control/settings_slices.h"
#include "output/fill_section.h"
#include "platform/fonts.h"
#include "ratios.h"
#include "samples.h"

namespace ovaline::bench {
namespace {

void put(benchmark::State& state) {
    TextSettings settings = defaultSettings();
    const auto letters = static_cast<std::size_t>(state.range(0));
    settings.Width = settings.Height = 2000.0f * static_cast<float>(letters);  // room for all of them
    settings.TextData.clear();
    while (settings.TextData.size() < letters) settings.TextData += u"Ovaline";
    LayoutFont font;
    for (auto _ : state)
        benchmark::DoNotOptimize(regenerate(settings, platform::systemFonts(), platform::systemClock(), font));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(put)->Arg(7)->Arg(70)->Arg(700)->Unit(benchmark::kMicrosecond)->Complexity();

void fillExport(benchmark::State& state) {
    const FillSample sample = copiesOfText(static_cast<int>(state.range(0)), 45);
    std::vector<std::byte> buffer(std::size_t{1} << 27);
    std::size_t bytes = 0;
    for (auto _ : state) {
        RecordSink sink(buffer);
        writeFillSection(sample.edges, sample.hatch, sink);
        bytes = static_cast<std::size_t>(sink.position() - buffer.data());
    }
    const auto records = static_cast<std::int64_t>(bytes / kVectorRecordSize);
    state.SetItemsProcessed(state.iterations() * records);
    state.SetComplexityN(records);
}
BENCHMARK(fillExport)->Arg(1)->Arg(5)->Arg(25)->Unit(benchmark::kMillisecond)->Complexity();

void raster(benchmark::State& state) {
    TextSettings settings = defaultSettings();
    settings.Width = settings.Height = 1000.0f * static_cast<float>(state.range(0));
    settings.FontHeight = static_cast<std::int32_t>(settings.Width) / 5;
    LayoutFont font;
    const Regenerated built = regenerate(settings, platform::systemFonts(), platform::systemClock(), font);
    Raster picture;
    for (auto _ : state) renderRaster(rasterJobOf(settings, built.paths), picture);
    const auto pixels = std::int64_t{picture.columns} * picture.rows;
    state.SetItemsProcessed(state.iterations() * pixels);
    state.SetComplexityN(pixels);
}
// Millimetres, at 40 micrometres a pixel.
BENCHMARK(raster)->Arg(10)->Arg(100)->Arg(200)->Unit(benchmark::kMillisecond)->Complexity();

}  // namespace
}  // namespace ovaline::bench

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    ovaline::bench::printRatios();
}
