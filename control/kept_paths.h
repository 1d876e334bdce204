// The paths that a control keeps between regenerations.
#pragma once

#include "geometry/graphics_path.h"

namespace ovaline {

/// All in dots, alternate fill mode, empty until the first regeneration.
struct KeptPaths {
    GraphicsPath TextPath;    ///< glyph outlines, rotated, mirrored and flattened
    GraphicsPath FramePath;   ///< axes and band ellipses, rotated, never mirrored
    GraphicsPath GuidePath;   ///< the guide curve, rotated, never mirrored
    GraphicsPath BoundsPath;  ///< the text before mirroring and flattening, then the frame; only measured
    GraphicsPath FillPath;    ///< hatch lines, a figure of two points each
};

}  // namespace ovaline
