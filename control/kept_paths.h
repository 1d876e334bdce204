// The paths that a control keeps between regenerations.
#pragma once

#include "geometry/copy_grid.h"

namespace ovaline {

/// All in dots, alternate fill mode, empty until the first regeneration.
struct KeptPaths {
    GraphicsPath TextPath;    ///< glyph outlines of all built copies, rotated, mirrored and flattened
    GraphicsPath FramePath;   ///< axes and band ellipses of the copy at (0, 0), rotated, never mirrored
    GraphicsPath GuidePath;   ///< the guide curve of the copy at (0, 0), rotated, never mirrored
    GraphicsPath BoundsPath;  ///< a line across what the result's bounds include before mirroring; only measured
    GraphicsPath FillPath;    ///< hatch lines, a figure of two points each
    CopyGrid grid;            ///< where else frame and guide stand: every copy's are the same
};

/// Empties all paths; their memory is kept for the next ones.
void reset(KeptPaths& paths);

/// Extent of the frames of all copies.
Extent frameExtent(const KeptPaths& paths);

}  // namespace ovaline
