// Enumerations of the interface that give the output its meaning.
#pragma once

#include <cstdint>

namespace ovaline {

/// Which axes the preview shows and whether the result's extent includes the ellipse (Full) or follows the text alone.
enum _axesstyle : std::int32_t { FullAxes = 0, PartialAxes = 1, NoAxesFull = 2, NoAxesPartial = 3 };

/// Whether the result's extent includes the frame; values outside the list follow the text.
constexpr bool includesFrame(std::int32_t showAxes) {
    return showAxes == FullAxes || showAxes == NoAxesFull;
}

enum _outlinestyle : std::int32_t { NoOutline = 0, SolidLine = 1, Dash = 2, Dots = 3, DashDot = 4, DashDotDot = 5 };

}  // namespace ovaline
