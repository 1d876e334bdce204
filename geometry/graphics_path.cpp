#include "geometry/graphics_path.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "geometry/cubic.h"
#include "geometry/path_writer.h"

namespace ovaline {

void PathWriter::reserve(std::size_t extraPoints) {
    // Growing geometrically keeps many small appends linear; an exact reserve for each would not.
    const std::size_t needed = path_.points_.size() + extraPoints;
    if (needed <= path_.points_.capacity()) return;
    const std::size_t capacity = std::max(needed, path_.points_.capacity() * 2);
    path_.points_.reserve(capacity);
    path_.types_.reserve(capacity);
}

void PathWriter::releaseSpare() {
    constexpr std::size_t kWorthwhile = 100'000;
    if (path_.points_.capacity() < kWorthwhile || path_.points_.capacity() / 4 < path_.points_.size()) return;
    path_.points_.shrink_to_fit();
    path_.types_.shrink_to_fit();
}

void PathWriter::startSegment(PointF point) {
    if (!path_.figureOpen_) {
        add(point, PathPointTypeStart);
        path_.figureOpen_ = true;
    } else if (path_.points_.back() != point) {
        add(point, PathPointTypeLine);
    }
}

Status GdipResetPath(GraphicsPath& path) {
    path.points_.clear();
    path.types_.clear();
    path.fillMode_ = FillModeAlternate;
    path.figureOpen_ = false;
    path.status_ = Ok;
    return Ok;
}

Status GdipSetPathFillMode(GraphicsPath& path, FillMode mode) {
    path.fillMode_ = mode;
    return Ok;
}

Status GdipAddPathLine(GraphicsPath& path, float x1, float y1, float x2, float y2) {
    PathWriter writer(path);
    writer.startSegment({x1, y1});
    writer.add({x2, y2}, PathPointTypeLine);
    return Ok;
}

Status GdipAddPathBezier(GraphicsPath& path, float x1, float y1, float x2, float y2, float x3, float y3, float x4,
                         float y4) {
    PathWriter writer(path);
    writer.startSegment({x1, y1});
    writer.add({x2, y2}, PathPointTypeBezier);
    writer.add({x3, y3}, PathPointTypeBezier);
    writer.add({x4, y4}, PathPointTypeBezier);
    return Ok;
}

namespace {

constexpr double kRadians = std::numbers::pi / 180.0;

/// Parameter of the ellipse's point that is seen from the centre at `angle` (radians), in the same half-turn.
double ellipseParameter(double angle, double rx, double ry) {
    const double parameter = std::atan2(rx * std::sin(angle), ry * std::cos(angle));
    const double turn = 2 * std::numbers::pi;
    return parameter + turn * std::round((angle - parameter) / turn);
}

}  // namespace

Status GdipAddPathArc(GraphicsPath& path, float x, float y, float width, float height, float startAngle,
                      float sweepAngle) {
    PathWriter writer(path);
    const bool finite = std::isfinite(x) && std::isfinite(y) && std::isfinite(width) && std::isfinite(height) &&
                        std::isfinite(startAngle) && std::isfinite(sweepAngle);
    if (!finite) return writer.fail(InvalidParameter);

    const double rx = width / 2.0;
    const double ry = height / 2.0;
    const double cx = x + rx;
    const double cy = y + ry;
    const bool fullTurn = std::abs(sweepAngle) >= 360.0f;
    const double start = std::fmod(static_cast<double>(startAngle), 360.0) * kRadians;
    const double sweep = std::clamp(static_cast<double>(sweepAngle), -360.0, 360.0) * kRadians;
    const double from = ellipseParameter(start, rx, ry);
    const double to = fullTurn ? from + sweep : ellipseParameter(start + sweep, rx, ry);

    // Pieces of at most 45° keep the cubic within 4.3e-6 of the radius (M. Goldapp, "Approximation of circular arcs by
    // cubic polynomials", CAGD 8, 1991: the error falls with the sixth power of the angle).
    const int pieces = std::max(1, static_cast<int>(std::ceil(std::abs(to - from) / (std::numbers::pi / 4) - 1e-9)));
    const double step = (to - from) / pieces;
    const double reach = 4.0 / 3.0 * std::tan(step / 4);
    const auto point = [&](double px, double py) {
        return PointF{static_cast<float>(cx + rx * px), static_cast<float>(cy + ry * py)};
    };

    writer.reserve(1 + 3 * static_cast<std::size_t>(pieces));
    const PointF first = point(std::cos(from), std::sin(from));
    writer.startSegment(first);
    for (int i = 0; i < pieces; ++i) {
        const double a = from + i * step;
        const double b = from + (i + 1) * step;
        const PointF end = fullTurn && i + 1 == pieces ? first : point(std::cos(b), std::sin(b));
        writer.add(point(std::cos(a) - reach * std::sin(a), std::sin(a) + reach * std::cos(a)), PathPointTypeBezier);
        writer.add(point(std::cos(b) + reach * std::sin(b), std::sin(b) - reach * std::cos(b)), PathPointTypeBezier);
        writer.add(end, PathPointTypeBezier);
    }
    return Ok;
}

Status GdipAddPathRectangle(GraphicsPath& path, float x, float y, float width, float height) {
    GdipStartPathFigure(path);
    PathWriter writer(path);
    writer.add({x, y}, PathPointTypeStart);
    writer.add({x + width, y}, PathPointTypeLine);
    writer.add({x + width, y + height}, PathPointTypeLine);
    writer.add({x, y + height}, PathPointTypeLine | PathPointTypeCloseSubpath);
    return Ok;
}

Status GdipAddPathPath(GraphicsPath& path, const GraphicsPath& addition) {
    appendTransformed(path, addition, Matrix());
    return Ok;
}

void appendTransformed(GraphicsPath& path, const GraphicsPath& addition, const Matrix& matrix) {
    if (addition.empty()) return;
    PathWriter writer(path);
    const std::size_t first = path.size();
    if (&addition == &path)
        writer.append(GraphicsPath(addition));
    else
        writer.append(addition);
    if (matrix != Matrix()) writer.transformFrom(first, matrix);
}

Status GdipStartPathFigure(GraphicsPath& path) {
    path.figureOpen_ = false;
    return Ok;
}

Status GdipClosePathFigure(GraphicsPath& path) {
    if (path.figureOpen_) path.types_.back() |= PathPointTypeCloseSubpath;
    path.figureOpen_ = false;
    return Ok;
}

GraphicsPath GdipCreatePath2I(std::span<const Point> points, std::span<const std::uint8_t> types, FillMode mode) {
    GraphicsPath path(mode);
    PathWriter writer(path);
    if (points.size() != types.size()) {
        writer.fail(InvalidParameter);
        return path;
    }
    writer.reserve(points.size());
    for (std::size_t i = 0; i < points.size(); ++i)
        writer.add({static_cast<float>(points[i].X), static_cast<float>(points[i].Y)}, types[i]);
    writer.setFigureOpen(!types.empty() && !(types.back() & PathPointTypeCloseSubpath));
    return path;
}

Status GdipTransformPath(GraphicsPath& path, const Matrix* matrix) {
    if (matrix)
        for (PointF& point : path.points_) point = matrix->map(point);
    return Ok;
}

Extent extentOf(const GraphicsPath& path) {
    const std::span<const PointF> points = path.points();
    const std::span<const std::uint8_t> types = path.types();
    Extent extent;
    const auto include = [&extent](PointF p) { extent.include(p); };
    for (std::size_t i = 0; i < points.size(); ++i) {
        if (isCurve(types, i)) {
            includeExtrema(Cubic::from(&points[i - 1]), include);
            i += 2;
        }
        include(points[i]);
    }
    return extent;
}

Status GdipGetPathWorldBounds(const GraphicsPath& path, RectF& bounds) {
    if (!path.empty()) bounds = extentOf(path).rectangle();
    return Ok;
}

std::int32_t GdipGetPointCount(const GraphicsPath& path) {
    constexpr std::size_t kMost = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::min(path.size(), kMost));
}

Status GdipGetPathData(const GraphicsPath& path, PathData& data) {
    data.Points.assign(path.points().begin(), path.points().end());
    data.Types.assign(path.types().begin(), path.types().end());
    data.Count = GdipGetPointCount(path);
    return Ok;
}

Status GdipGetPathLastPoint(const GraphicsPath& path, PointF& point) {
    if (path.empty()) return InvalidParameter;
    point = path.points().back();
    return Ok;
}

}  // namespace ovaline
