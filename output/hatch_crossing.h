// The rule by which a hatch line crosses an outline edge.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

#include "geometry/matrix.h"

namespace ovaline {

/// A straight piece from `from` to `to`: an outline edge or a hatch line.
struct Segment {
    PointF from;
    PointF to;
};

/// A segment with what the crossing rule asks of it again and again.
struct PreparedSegment {
    PointF from, to;
    PointF delta;  ///< `to` minus `from`
    float left, right, top, bottom;

    PreparedSegment() = default;
    explicit PreparedSegment(const Segment& s)
        : from(s.from),
          to(s.to),
          delta{s.to.X - s.from.X, s.to.Y - s.from.Y},
          left(std::min(s.from.X, s.to.X)),
          right(std::max(s.from.X, s.to.X)),
          top(std::min(s.from.Y, s.to.Y)),
          bottom(std::max(s.from.Y, s.to.Y)) {}

    bool upright() const { return from.X == to.X; }
};

namespace detail {

inline bool isFinite(float value) {
    return std::abs(value) <= std::numeric_limits<float>::max();
}

/// The rule where the edge, the line or both are upright.
inline bool findUprightCrossing(const PreparedSegment& edge, const PreparedSegment& hatch, PointF& crossing) {
    const PointF p = edge.from, q = edge.to, a = hatch.from, b = hatch.to;
    if (edge.upright() && hatch.upright()) return false;
    if (edge.upright()) {
        const float m = (a.Y - b.Y) / (a.X - b.X);
        const float k = a.Y - a.X * m;
        crossing = {p.X, m * p.X + k};
    } else {
        const float m = (p.Y - q.Y) / (p.X - q.X);
        const float k = p.Y - p.X * m;
        crossing = {a.X, p.X == a.X ? p.Y : q.X == a.X ? q.Y : m * a.X + k};
        if (crossing == q) return false;
    }
    return edge.top <= crossing.Y && crossing.Y <= edge.bottom && isFinite(crossing.Y);
}

/// The rule where neither is upright, the bounding boxes included. Without branches, so that a loop over lines can be
/// carried out on several at a time; `crossing` is written in any case.
inline bool findSlantedCrossing(const PreparedSegment& edge, const PreparedSegment& hatch, PointF& crossing) {
    const PointF d1 = edge.delta, d2 = hatch.delta;
    const PointF e{edge.from.X - hatch.from.X, edge.from.Y - hatch.from.Y};
    const float den = d1.X * d2.Y - d1.Y * d2.X;
    const float nt = d2.X * e.Y - d2.Y * e.X;
    const float nu = d1.X * e.Y - d1.Y * e.X;
    const float t = nt / den;
    const float u = nu / den;
    crossing = {edge.from.X + t * d1.X, edge.from.Y + t * d1.Y};
    const bool together = (hatch.left <= edge.right) & (hatch.right >= edge.left) & (hatch.top <= edge.bottom) &
                          (hatch.bottom >= edge.top);
    const bool within = (den != 0) & (0 <= t) & (t <= 1) & (0 <= u) & (u <= 1) & ((nt != 0) | (nu != 0));
    const bool before = (crossing.X != edge.to.X) | (crossing.Y != edge.to.Y);
    return together & within & before & isFinite(crossing.X) & isFinite(crossing.Y);
}

}  // namespace detail

/// Finds the crossing of the edge P→Q with the hatch line A→B, in single precision throughout, the bounding boxes
/// tested first and inclusively. The edge's end point belongs to the next edge. A point that is not finite is no
/// crossing. Returns whether there is one.
inline bool findCrossing(const PreparedSegment& edge, const PreparedSegment& hatch, PointF& crossing) {
    const bool together = (hatch.left <= edge.right) & (hatch.right >= edge.left) & (hatch.top <= edge.bottom) &
                          (hatch.bottom >= edge.top);
    if (!together) return false;
    if (edge.upright() || hatch.upright()) return detail::findUprightCrossing(edge, hatch, crossing);

    return detail::findSlantedCrossing(edge, hatch, crossing);
}

}  // namespace ovaline
