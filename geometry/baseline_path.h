// Measurements on the polyline that text is laid on.
#pragma once

#include "geometry/graphics_path.h"

namespace ovaline {

/// Fraction u in [0, 1] along the segment from `a` to `b` where it crosses the circle of squared radius `r2` about `c`;
/// -1 where it does not.
float SegmentCircleExit(PointF a, PointF b, PointF c, float r2);

/// A polyline with a position on it given as a path parameter t: its integer part names the segment, its fraction the
/// share of that segment. A negative parameter stands for no position. All arithmetic is in single precision.
class BaselinePath {
public:
    BaselinePath() = default;
    /// The points of `path`, which holds straight segments.
    explicit BaselinePath(GraphicsPath path) : path_(std::move(path)) {}

    /// The point at t; (0, 0) where t is no position. t = n - 1 is the last vertex.
    PointF PointAtParameter(float t) const;
    /// The parameter at `length` dots from the start, -1 beyond the end.
    float ParameterAtLength(float length) const;
    /// The parameter of the first point after the one at `t` whose straight-line distance from it is `distance`; -1
    /// where the polyline ends before.
    float AdvanceByChord(float t, float distance) const;

private:
    std::span<const PointF> points() const { return path_.points(); }

    GraphicsPath path_;
};

}  // namespace ovaline
