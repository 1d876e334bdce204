// The fill section evaluated plainly: every hatch line against every edge. The fast writer must give the same bytes.
#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

#include "output/hatch_crossing.h"
#include "output/vector_record.h"

namespace ovaline {

struct Crossing {
    bool found = false;
    float x = 0, y = 0;
};

inline Crossing plainCrossing(PointF P, PointF Q, PointF A, PointF B) {
    const Crossing none;
    const auto overlaps = [](float a, float b, float p, float q) {
        return std::min(a, b) <= std::max(p, q) && std::max(a, b) >= std::min(p, q);
    };
    if (!overlaps(A.X, B.X, P.X, Q.X) || !overlaps(A.Y, B.Y, P.Y, Q.Y)) return none;
    const bool uprightEdge = P.X == Q.X, uprightLine = A.X == B.X;
    const auto within = [&](float X, float Y) {
        const bool inside = std::min(P.Y, Q.Y) <= Y && Y <= std::max(P.Y, Q.Y) && std::isfinite(Y);
        return inside ? Crossing{true, X, Y} : Crossing{};
    };
    if (uprightEdge && uprightLine) return none;
    if (uprightEdge) {
        const float m = (A.Y - B.Y) / (A.X - B.X);
        const float k = A.Y - A.X * m;
        return within(P.X, m * P.X + k);
    }
    if (uprightLine) {
        const float X = A.X;
        float Y = 0;
        if (P.X == X) {
            Y = P.Y;
        } else if (Q.X == X) {
            Y = Q.Y;
        } else {
            const float m = (P.Y - Q.Y) / (P.X - Q.X);
            const float k = P.Y - P.X * m;
            Y = m * X + k;
        }
        if (Q.X == X && Y == Q.Y) return none;
        return within(X, Y);
    }
    const float d1x = Q.X - P.X, d1y = Q.Y - P.Y;
    const float d2x = B.X - A.X, d2y = B.Y - A.Y;
    const float ex = P.X - A.X, ey = P.Y - A.Y;
    const float den = d1x * d2y - d1y * d2x;
    if (den == 0) return none;
    const float nt = d2x * ey - d2y * ex;
    const float nu = d1x * ey - d1y * ex;
    const float t = nt / den, u = nu / den;
    if (!(t >= 0) || !(t <= 1) || !(u >= 0) || !(u <= 1)) return none;
    if (nt == 0 && nu == 0) return none;
    const float X = P.X + t * d1x, Y = P.Y + t * d1y;
    if (X == Q.X && Y == Q.Y) return none;
    if (!std::isfinite(X) || !std::isfinite(Y)) return none;
    return {true, X, Y};
}

inline std::vector<VectorRecord> plainFill(std::span<const Segment> edges, std::span<const Segment> hatch) {
    std::vector<VectorRecord> records;
    std::vector<Crossing> crossings;
    for (std::size_t h = 0; h < hatch.size(); ++h) {
        crossings.clear();
        for (const Segment& edge : edges) {
            const Crossing crossing = plainCrossing(edge.from, edge.to, hatch[h].from, hatch[h].to);
            if (crossing.found) crossings.push_back(crossing);
        }
        std::sort(crossings.begin(), crossings.end(), [](const Crossing& a, const Crossing& b) {
            if (a.x != b.x) return a.x < b.x;
            if (a.y != b.y) return a.y < b.y;
            return std::pair(!std::signbit(a.x), !std::signbit(a.y)) <
                   std::pair(!std::signbit(b.x), !std::signbit(b.y));
        });
        if (h % 2 == 1) std::reverse(crossings.begin(), crossings.end());
        for (std::size_t i = 0; i < crossings.size(); ++i)
            records.push_back({i % 2 == 0 ? 'U' : 'D', crossings[i].x, crossings[i].y});
    }
    return records;
}

}  // namespace ovaline
