// The rule by which a hatch line crosses an outline edge.
#pragma once

#include <algorithm>
#include <cmath>

#include "geometry/matrix.h"

namespace ovaline {

/// A straight piece from `from` to `to`: an outline edge or a hatch line.
struct Segment {
    PointF from;
    PointF to;
};

/// Finds the crossing of the edge P→Q with the hatch line A→B, in single precision throughout, the bounding boxes
/// tested first and inclusively. The edge's end point belongs to the next edge. A point that is not finite is no
/// crossing. Returns whether there is one.
inline bool findCrossing(const Segment& edge, const Segment& hatch, PointF& crossing) {
    const PointF p = edge.from, q = edge.to, a = hatch.from, b = hatch.to;
    const bool apart = !(std::min(a.X, b.X) <= std::max(p.X, q.X)) || !(std::max(a.X, b.X) >= std::min(p.X, q.X)) ||
                       !(std::min(a.Y, b.Y) <= std::max(p.Y, q.Y)) || !(std::max(a.Y, b.Y) >= std::min(p.Y, q.Y));
    if (apart) return false;

    if (p.X == q.X || a.X == b.X) {
        if (p.X == q.X && a.X == b.X) return false;
        if (p.X == q.X) {
            const float m = (a.Y - b.Y) / (a.X - b.X);
            const float k = a.Y - a.X * m;
            crossing = {p.X, m * p.X + k};
        } else {
            const float m = (p.Y - q.Y) / (p.X - q.X);
            const float k = p.Y - p.X * m;
            crossing = {a.X, p.X == a.X ? p.Y : q.X == a.X ? q.Y : m * a.X + k};
            if (crossing == q) return false;
        }
        return std::min(p.Y, q.Y) <= crossing.Y && crossing.Y <= std::max(p.Y, q.Y) && std::isfinite(crossing.Y);
    }

    const PointF d1{q.X - p.X, q.Y - p.Y};
    const PointF d2{b.X - a.X, b.Y - a.Y};
    const PointF e{p.X - a.X, p.Y - a.Y};
    const float den = d1.X * d2.Y - d1.Y * d2.X;
    if (den == 0) return false;
    const float nt = d2.X * e.Y - d2.Y * e.X;
    const float nu = d1.X * e.Y - d1.Y * e.X;
    const float t = nt / den;
    const float u = nu / den;
    if (!(0 <= t && t <= 1 && 0 <= u && u <= 1) || (nt == 0 && nu == 0)) return false;
    crossing = {p.X + t * d1.X, p.Y + t * d1.Y};
    return crossing != q && std::isfinite(crossing.X) && std::isfinite(crossing.Y);
}

}  // namespace ovaline
