// From settings to kept paths.
#pragma once

#include "control/kept_paths.h"
#include "control/text_settings.h"
#include "geometry/layout_font.h"
#include "platform/clock.h"

namespace ovaline {

/// What one regeneration produces.
struct Regenerated {
    KeptPaths paths;
    bool refused = false;    ///< memory cannot hold it: the paths are empty, and nothing was measured
    float resultRight = 0;   ///< µm: width of the result, the array included
    float resultBottom = 0;  ///< µm: its height
    float screenWidth = 0;   ///< pixels
    float screenHeight = 0;  ///< pixels
};

/// Lays the text out, rotates it about the centre of the layout rectangle by -`Angle`, mirrors it about the centre of
/// the frame, flattens and hatches it, and measures the result. With serial numbers or dates on it builds every copy of
/// the array, each with its own text; where they have more points than `kMostTextPoints` the pass is refused. Depends
/// on nothing but its arguments; `font` keeps the glyphs for the next time, and the memory of the `reused` paths, the
/// last result's, is taken for the new ones. A failing path operation leaves its status in the path, and the pass goes
/// on.
Regenerated regenerate(const TextSettings& settings, platform::FontService& fonts, const platform::Clock& clock,
                       LayoutFont& font, KeptPaths reused = {});

}  // namespace ovaline
