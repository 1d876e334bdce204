// What a picture shows of a path's copies.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "geometry/copy_grid.h"
#include "platform/drawing.h"

namespace ovaline {

/// From dots to pixels: scaled about the origin, then moved.
struct ToPixels {
    float scale = 1;  ///< pixels per dot
    PointF move;      ///< pixels

    PointF map(PointF p) const { return {p.X * scale + move.X, p.Y * scale + move.Y}; }
    Extent mapExtent(const Extent& extent) const;
};

/// Most points of one path of a picture. Cairo needs some 200 bytes for each, and a screen has no more pixels.
constexpr std::size_t kMostDrawnPoints = 1'000'000;

/// A path in pixels.
class DrawnPath {
public:
    /// The copies of `path`, row by row, left to right, as far as they reach into `seen`. Where they would have more
    /// than `kMostDrawnPoints` points, vertices that are nearer to each other than a quarter of a pixel are drawn as
    /// one, and where that does not suffice, only every second, third … figure is.
    DrawnPath(const GraphicsPath& path, const CopyGrid& copies, const ToPixels& toPixels, const Extent& seen);

    operator platform::DrawingPath() const { return {points_, types_}; }

private:
    std::vector<platform::DrawingPoint> points_;
    std::vector<std::uint8_t> types_;
};

}  // namespace ovaline
