// One cubic Bézier segment in double precision: evaluation, extrema and flattening.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>

#include "geometry/graphics_path.h"

namespace ovaline {

/// Whether a whole cubic (two control points and an end point, after a current point) stands at index `i`.
inline bool isCurve(std::span<const std::uint8_t> types, std::size_t i) {
    return (types[i] & PathPointTypePathTypeMask) == PathPointTypeBezier && i > 0 && i + 2 < types.size();
}

struct PointD {
    double x = 0;
    double y = 0;

    friend PointD operator+(PointD a, PointD b) { return {a.x + b.x, a.y + b.y}; }
    friend PointD operator-(PointD a, PointD b) { return {a.x - b.x, a.y - b.y}; }
    friend PointD operator*(double s, PointD p) { return {s * p.x, s * p.y}; }
};

/// The cubic a·t³ + b·t² + c·t + d, t from 0 to 1.
struct Cubic {
    PointD a, b, c, d;
    PointF end;            ///< its last control point, exactly
    double magnitude = 0;  ///< largest absolute coordinate of the control points; not finite if one of them is not

    /// From four consecutive points: start, two controls, end.
    static Cubic from(const PointF* p) {
        const auto wide = [](PointF q) { return PointD{q.X, q.Y}; };
        const PointD p0 = wide(p[0]), p1 = wide(p[1]), p2 = wide(p[2]), p3 = wide(p[3]);
        Cubic curve{p3 - p0 + 3 * (p1 - p2), 3 * (p0 - p1 + (p2 - p1)), 3 * (p1 - p0), p0, p[3], 0};
        for (const PointD q : {p0, p1, p2, p3}) {
            const double larger = std::abs(q.x) > std::abs(q.y) ? std::abs(q.x) : std::abs(q.y);
            if (!(larger <= curve.magnitude)) curve.magnitude = larger;
        }
        return curve;
    }

    PointD at(double t) const { return {((a.x * t + b.x) * t + c.x) * t + d.x, ((a.y * t + b.y) * t + c.y) * t + d.y}; }
    PointD slopeAt(double t) const { return {(3 * a.x * t + 2 * b.x) * t + c.x, (3 * a.y * t + 2 * b.y) * t + c.y}; }
};

inline PointF narrowed(PointD p) {
    return {static_cast<float>(p.x), static_cast<float>(p.y)};
}

/// Parameters in (0, 1) where the derivative 3·a·t² + 2·b·t + c of one coordinate vanishes; returns how many.
int extrema(double a, double b, double c, double (&parameters)[2]);

/// Calls `include` with the points of the curve, ends aside, where a coordinate is extreme.
template <typename Include>
void includeExtrema(const Cubic& curve, Include&& include) {
    double parameters[2];
    const auto visit = [&](int count) {
        for (int i = 0; i < count; ++i) include(narrowed(curve.at(parameters[i])));
    };
    visit(extrema(curve.a.x, curve.b.x, curve.c.x, parameters));
    visit(extrema(curve.a.y, curve.b.y, curve.c.y, parameters));
}

/// Steps along a curve in the longest chords that stay within a tolerance of it, so that a polyline through its
/// vertices needs close to the fewest segments possible. The distance of a piece from its chord is bounded by 3/4 of
/// its control points' distance from it, 4/9 where they lie on different sides (T. W. Sederberg, "Computer Aided
/// Geometric Design", course notes: distance between a cubic and its chord).
class ChordStepper {
public:
    /// `flatness` in the curve's units. Below the spacing of single-precision numbers at the curve's coordinates,
    /// or not above 0, it counts as that spacing, since vertices can be placed no finer.
    ChordStepper(const Cubic& curve, double flatness);

    /// Parameter at which the chord from `t` ends, greater than `t`; 1 at the end of the curve.
    double next(double t);

private:
    double squaredError(double t0, PointD start, PointD slope, double t1) const;

    const Cubic& curve_;
    double squaredTolerance_;
    double lastStep_ = 1;
};

/// Replaces every Bézier segment by line segments that no point of the curve is farther from than `flatness` (path
/// units). Start points, figures and close flags stay.
Status GdipFlattenPath(GraphicsPath& path, float flatness);

}  // namespace ovaline
