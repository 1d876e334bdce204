// Where the copies of a path stand, and what of them a picture shows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "geometry/graphics_path.h"
#include "platform/drawing.h"

namespace ovaline {

/// Copies in columns and rows: the one in column i and row j, from 0, is moved by (i · dx, j · dy).
struct Copies {
    std::int32_t columns = 1;
    std::int32_t rows = 1;
    float dx = 0;  ///< dots
    float dy = 0;  ///< dots

    PointF offset(std::int32_t column, std::int32_t row) const {
        return {static_cast<float>(column) * dx, static_cast<float>(row) * dy};
    }
    PointF last() const { return offset(columns - 1, rows - 1); }
};

/// From dots to pixels: scaled about the origin, then moved.
struct ToPixels {
    float scale = 1;  ///< pixels per dot
    PointF move;      ///< pixels

    PointF map(PointF p) const { return {p.X * scale + move.X, p.Y * scale + move.Y}; }
    Extent mapExtent(const Extent& extent) const;
};

/// Extent of all copies, `one` being that of the copy at (0, 0).
Extent extentOf(const Extent& one, const Copies& copies);

/// Most points of one path of a picture. Cairo needs some 200 bytes for each, and a screen has no more pixels.
constexpr std::size_t kMostDrawnPoints = 2'000'000;

/// A path in pixels.
class DrawnPath {
public:
    /// The copies of `path`, row by row, left to right, as far as they reach into `seen`. Where they would have more
    /// than `kMostDrawnPoints` points, vertices that are nearer to each other than a quarter of a pixel are drawn as
    /// one, and where that does not suffice, only every second, third … figure is.
    DrawnPath(const GraphicsPath& path, const Copies& copies, const ToPixels& toPixels, const Extent& seen);

    operator platform::DrawingPath() const { return {points_, types_}; }

private:
    std::vector<platform::DrawingPoint> points_;
    std::vector<std::uint8_t> types_;
};

}  // namespace ovaline
