// The solid fill of a raster.
#pragma once

#include "output/raster.h"

namespace ovaline {

/// From dots to a raster's pixels: scaled about the origin, then moved, rounded once each.
struct RasterPlace {
    float scale = 1;  ///< pixels per dot
    PointF corner;    ///< what comes to lie on the raster's corner, in pixels

    PointF map(PointF dots) const { return {dots.X * scale - corner.X, dots.Y * scale - corner.Y}; }
};

/// Makes the pixels dark whose centre lies in the path by the even-odd rule, all others light; `invert` the other way
/// round. A centre on an edge belongs to the pixels right of it, or below. `path` holds straight segments; an open
/// figure counts as closed, and one with a point that is not finite is left out. The raster's bits are all 0 before.
void fillRaster(const GraphicsPath& path, const RasterPlace& place, bool invert, Raster& raster);

}  // namespace ovaline
