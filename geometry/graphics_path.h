// The outline path model: paths, their figures and the operations on them.
//
// Coordinates are single-precision, x to the right and y downwards. A positive angle turns from +x towards +y.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "geometry/matrix.h"

namespace ovaline {

/// Outcome of a path operation. A failing operation leaves the path as it was and its status on the path.
enum Status : std::int32_t { Ok = 0, InvalidParameter = 2, OutOfMemory = 3, ValueOverflow = 11 };

enum FillMode : std::int32_t { FillModeAlternate = 0, FillModeWinding = 1 };

/// One byte per point: the kind in the low three bits, and a flag on the last point of a closed figure.
enum PathPointType : std::uint8_t {
    PathPointTypeStart = 0,
    PathPointTypeLine = 1,
    PathPointTypeBezier = 3,  ///< control, control and end point of a cubic, always in threes
    PathPointTypePathTypeMask = 0x07,
    PathPointTypeCloseSubpath = 0x80
};

/// Points with one type byte each, grouped into figures, and a fill mode. A figure is a maximal run that begins with a
/// start point; a closed one ends with an implied segment back to its first point.
class GraphicsPath {
public:
    GraphicsPath() = default;
    explicit GraphicsPath(FillMode mode) : fillMode_(mode) {}

    std::span<const PointF> points() const { return points_; }
    std::span<const std::uint8_t> types() const { return types_; }
    std::size_t size() const { return points_.size(); }
    bool empty() const { return points_.empty(); }
    FillMode fillMode() const { return fillMode_; }
    /// Status of the last failing operation, `Ok` if none failed since the path was made or reset.
    Status status() const { return status_; }

private:
    friend class PathWriter;
    friend Status GdipResetPath(GraphicsPath&);
    friend Status GdipSetPathFillMode(GraphicsPath&, FillMode);
    friend Status GdipStartPathFigure(GraphicsPath&);
    friend Status GdipClosePathFigure(GraphicsPath&);
    friend Status GdipTransformPath(GraphicsPath&, const Matrix*);
    friend Status GdipFlattenPath(GraphicsPath&, float);

    std::vector<PointF> points_;
    std::vector<std::uint8_t> types_;
    FillMode fillMode_ = FillModeAlternate;
    bool figureOpen_ = false;
    Status status_ = Ok;
};

/// Copies of all points and types of a path.
struct PathData {
    std::int32_t Count = 0;
    std::vector<PointF> Points;
    std::vector<std::uint8_t> Types;
};

/// Removes all points and figures; the fill mode is alternate again, the status `Ok`. Memory is kept for reuse.
Status GdipResetPath(GraphicsPath& path);
Status GdipSetPathFillMode(GraphicsPath& path, FillMode mode);

/// Appends a straight segment. With a figure open the segment continues it, and its start point is stored only where it
/// differs from the figure's last point; otherwise it starts a new figure.
Status GdipAddPathLine(GraphicsPath& path, float x1, float y1, float x2, float y2);
/// Appends a cubic Bézier segment, with the same rule for its start point.
Status GdipAddPathBezier(GraphicsPath& path, float x1, float y1, float x2, float y2, float x3, float y3, float x4,
                         float y4);
/// Appends the arc of the ellipse inscribed in the rectangle, from the point that is seen from the centre at
/// `startAngle`, over `sweepAngle` (degrees, positive clockwise on the screen; beyond ±360 is one full turn), as cubic
/// Béziers, with the same rule for its start point. A full turn ends exactly at its start. The figure stays open.
Status GdipAddPathArc(GraphicsPath& path, float x, float y, float width, float height, float startAngle,
                      float sweepAngle);
/// Appends a closed figure of the four corners.
Status GdipAddPathRectangle(GraphicsPath& path, float x, float y, float width, float height);
/// Appends copies of all figures of `addition` as new figures. `addition` may be `path` itself.
Status GdipAddPathPath(GraphicsPath& path, const GraphicsPath& addition);

/// Ends the open figure without closing it.
Status GdipStartPathFigure(GraphicsPath& path);
/// Closes the open figure, if there is one.
Status GdipClosePathFigure(GraphicsPath& path);

/// A point on whole units.
struct Point {
    std::int32_t X = 0;
    std::int32_t Y = 0;
};
/// New path from points and raw type bytes, which are stored unchanged. Spans of different lengths give an empty path
/// with status `InvalidParameter`.
GraphicsPath GdipCreatePath2I(std::span<const Point> points, std::span<const std::uint8_t> types, FillMode mode);

/// Maps every point through the matrix; without one the path stays unchanged.
Status GdipTransformPath(GraphicsPath& path, const Matrix* matrix);

/// The sides of a rectangle around points, x to the right and y downwards; empty until a point is included.
struct Extent {
    float left = std::numeric_limits<float>::infinity();
    float top = std::numeric_limits<float>::infinity();
    float right = -std::numeric_limits<float>::infinity();
    float bottom = -std::numeric_limits<float>::infinity();

    bool empty() const { return !(left <= right); }
    void include(PointF p) {
        left = std::min(left, p.X);
        right = std::max(right, p.X);
        top = std::min(top, p.Y);
        bottom = std::max(bottom, p.Y);
    }
    /// Includes `other` moved by `offset`: what including its moved points would give, since rounding keeps their
    /// order.
    void include(const Extent& other, PointF offset) {
        if (other.empty()) return;
        include({other.left + offset.X, other.top + offset.Y});
        include({other.right + offset.X, other.bottom + offset.Y});
    }
    /// A zero rectangle where it is empty.
    RectF rectangle() const { return empty() ? RectF() : RectF{left, top, right - left, bottom - top}; }
};

/// Smallest extent that holds the path: of a curve, its own extrema count and not its control points.
Extent extentOf(const GraphicsPath& path);

/// Smallest rectangle that holds the path: of a curve, its own extrema count and not its control points. An empty path
/// leaves `bounds` unchanged.
Status GdipGetPathWorldBounds(const GraphicsPath& path, RectF& bounds);

std::int32_t GdipGetPointCount(const GraphicsPath& path);
Status GdipGetPathData(const GraphicsPath& path, PathData& data);
/// The last point stored; `InvalidParameter` for an empty path.
Status GdipGetPathLastPoint(const GraphicsPath& path, PointF& point);

}  // namespace ovaline
