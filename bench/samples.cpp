#include "samples.h"

#include "control/settings_slices.h"
#include "geometry/path_writer.h"
#include "output/outline_section.h"
#include "platform/fonts.h"

namespace ovaline::bench {

TextSettings defaultSettings() {
    TextSettings settings = startUpSettings(96);
    settings.Width = settings.Height = 20000;
    return settings;
}

FillSample copiesOfText(int side, float hatchAngle) {
    TextSettings settings = defaultSettings();
    LayoutFont font;
    const Regenerated one = regenerate(settings, platform::systemFonts(), platform::systemClock(), font);
    RectF bounds;
    GdipGetPathWorldBounds(one.paths.TextPath, bounds);
    constexpr float kGap = 600;  // dots between the copies, about a millimetre
    GraphicsPath text;
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            const float dx = static_cast<float>(column) * (bounds.Width + kGap);
            const float dy = static_cast<float>(row) * (bounds.Height + kGap);
            appendTransformed(text, one.paths.TextPath, {1, 0, 0, 1, dx, dy});
        }
    }
    HatchInput input = hatchInputOf(settings);
    input.fillStyle = Line;
    input.spacing = input.solidSpacing;
    input.lineAngle = hatchAngle;
    GraphicsPath fill;
    BuildFill(input, text, fill);
    FillSample sample{outlineEdges(text), {}};
    for (std::size_t i = 0; i + 1 < fill.size(); i += 2)
        sample.hatch.push_back({fill.points()[i], fill.points()[i + 1]});
    return sample;
}

}  // namespace ovaline::bench
