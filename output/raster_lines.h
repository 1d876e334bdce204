// The lines of a raster: hatch and outline.
#pragma once

#include <vector>

#include "output/raster_fill.h"
#include "platform/drawing.h"

namespace ovaline {

/// A part of the picture, in pixels. Its left side is on a multiple of 8.
struct RasterTile {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
};

/// Draws a job's lines on bitmaps and adds what is dark there to the raster. A bitmap takes 32 times the memory of the
/// raster, and has a largest side; so pictures beyond a limit, of pixels or of points of the text, are drawn in halves.
class RasterLines {
public:
    /// `box`: the picture's place in pixels before its corner is moved to the origin.
    RasterLines(const RasterJob& job, const RectF& box, Raster& raster);

    /// `OutOfMemory` where a bitmap is refused, or a small tile still has too many points.
    Status draw() { return draw({0, 0, raster_.columns, raster_.rows}); }

private:
    class SeenPath;
    enum class Ink { Dark, Light };

    Status draw(const RasterTile& tile);
    Status drawHalves(const RasterTile& tile);
    void drawDark(platform::Canvas& canvas, const SeenPath& text, const RasterTile& tile) const;
    void drawHatch(platform::Canvas& canvas, const SeenPath& text, const RasterTile& tile) const;
    /// The whole picture's box in the pixels of the tile's bitmap.
    platform::DrawingBox boxIn(const RasterTile& tile) const;
    /// Gives the tile's pixels of the raster the ink where its bitmap is dark.
    void apply(Ink ink, const platform::Bitmap& bitmap, const RasterTile& tile);

    const RasterJob& job_;
    RectF box_;
    RasterPlace place_;
    Raster& raster_;
    bool hatch_;      ///< whether there are hatch lines
    bool outline_;    ///< whether there is a dark outline
    bool lightLine_;  ///< whether a light line follows the text, over all that is dark
};

}  // namespace ovaline
