// The raster: the result as a picture of one bit a pixel, for marking line by line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "geometry/enumerations.h"
#include "geometry/graphics_path.h"
#include "output/enumerations.h"
#include "output/units.h"

namespace ovaline {

/// What a rendering reads. Paths are in dots and stay unchanged; `text` holds straight segments, `fill` figures of two
/// points.
struct RasterJob {
    const GraphicsPath& text;
    const GraphicsPath& fill;
    Extent frame;                          ///< dots, of the frames of all copies
    float scale = 0;                       ///< pixels per dot
    std::int32_t showAxes = FullAxes;      ///< `_axesstyle`: whose bounds are the picture
    std::int32_t outlineType = SolidLine;  ///< `_outlinestyle`
    std::int32_t fontStyle = TrueType;     ///< `_txtfontstyle`
    std::int32_t fillStyle = NoFilling;    ///< `_fillstyle`
    bool outlined = true;                  ///< whether there is an outline at all, of whatever type
    bool invert = false;                   ///< the ground is filled in place of the text
    bool lightInk = false;                 ///< draws in the ground's own colour

    bool isSolid() const { return fontStyle == TrueType && fillStyle == Solid; }
};

/// Pixels per dot for pixels of `stepSize` micrometres, so that a whole number of them spans an ellipse of `width`
/// micrometres. 0 where none fits, and for a step or a width that is not a positive number.
float rasterScale(float stepSize, float width, const Units& units);

/// Sides are 16 bits wide in the raster's header.
constexpr std::int32_t kMostRasterSide = 65535;
/// Most bytes of a raster. The host needs as much again for its copy; beyond it a 32-bit host would run out of
/// addresses.
constexpr std::int64_t kMostRasterBytes = std::int64_t{1} << 28;

/// A rendered picture.
struct Raster {
    std::int32_t columns = 0;
    std::int32_t rows = 0;
    /// Rows from the bottom of the picture to its top, each of whole bytes; the leftmost pixel in a byte's highest bit;
    /// 1 is dark. Bits beyond the last column are 0.
    std::vector<std::byte> bits;

    std::size_t bytesPerRow() const { return (static_cast<std::size_t>(columns) + 7) / 8; }
};

/// Draws the picture in black on white, as the preview does but with all lines one pixel wide. A pixel is dark where
/// the sum of its three colours, 255 each at most, is below 450. The picture is as large as the bounds, rounded down;
/// bounds of less than a pixel across give the raster without rows and columns. What `raster` held is released first;
/// it stays empty where the scale is not a positive number (`InvalidParameter`) or the picture is too large
/// (`OutOfMemory`).
Status renderRaster(const RasterJob& job, Raster& raster);

/// Bytes to allocate for a raster: its rows padded to four bytes, and 62. Never less than what is written.
std::int32_t rasterDataSize(const Raster& raster);

/// Writes rows and columns, 16 bits each, and the rows, bottom-up. Returns false where they do not fit: the header is
/// then that of an empty raster, if even that fits. Nothing else is written, and nothing past the buffer.
bool writeRasterData(const Raster& raster, std::span<std::byte> buffer);

}  // namespace ovaline
