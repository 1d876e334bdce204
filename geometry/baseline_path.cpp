#include "geometry/baseline_path.h"

#include <algorithm>
#include <cmath>

namespace ovaline {

namespace {

float dot(PointF a, PointF b) {
    return a.X * b.X + a.Y * b.Y;
}
PointF minus(PointF a, PointF b) {
    return {a.X - b.X, a.Y - b.Y};
}
float squaredDistance(PointF a, PointF b) {
    return dot(minus(a, b), minus(a, b));
}
float distance(PointF a, PointF b) {
    return std::sqrt(squaredDistance(a, b));
}

}  // namespace

float SegmentCircleExit(PointF a, PointF b, PointF c, float r2) {
    const PointF a0 = minus(a, c);
    const PointF b0 = minus(b, c);
    const float dA = dot(a0, a0);
    const float dB = dot(b0, b0);
    if (dA > r2 && dB > r2) return -1;
    if (dA < r2 && dB < r2) return -1;
    const PointF d = minus(b, a);
    const float qa = dot(d, d);
    const float qb = 2 * dot(a0, d);
    const float qc = dA - r2;
    const float discriminant = qb * qb - 4 * qa * qc;
    if (discriminant == 0) return -qb / (2 * qa);
    if (discriminant < 0) return -1;
    const float s = std::sqrt(discriminant);
    const float u1 = (-qb - s) / (2 * qa);
    const float u2 = (s - qb) / (2 * qa);
    if (0 <= u2 && u2 <= 1) return u1 < 0 ? u2 : std::min(u1, u2);
    return 0 <= u1 && u1 <= 1 ? u1 : -1;
}

PointF BaselinePath::PointAtParameter(float t) const {
    const std::span<const PointF> p = points();
    if (p.empty() || !(t >= 0) || t > static_cast<float>(p.size() - 1)) return {};
    if (p.size() == 1) return p[0];
    const std::size_t i = std::min(static_cast<std::size_t>(t), p.size() - 2);
    const float share = t - static_cast<float>(i);
    return {p[i].X + share * (p[i + 1].X - p[i].X), p[i].Y + share * (p[i + 1].Y - p[i].Y)};
}

float BaselinePath::ParameterAtLength(float length) const {
    const std::span<const PointF> p = points();
    for (std::size_t i = 0; i + 1 < p.size(); ++i) {
        const float segment = distance(p[i], p[i + 1]);
        if (segment > length) return static_cast<float>(i) + length / segment;
        length -= segment;
    }
    return -1;
}

float BaselinePath::AdvanceByChord(float t, float d) const {
    const std::span<const PointF> p = points();
    if (p.size() < 2 || !(t >= 0) || t >= static_cast<float>(p.size() - 1)) return -1;
    std::size_t i = static_cast<std::size_t>(t);
    const PointF from = PointAtParameter(t);
    const float r2 = d * d;
    const float e2 = squaredDistance(from, p[i + 1]);
    if (e2 <= r2) {
        for (;;) {
            ++i;
            if (i + 1 >= p.size()) return -1;
            const float u = SegmentCircleExit(p[i], p[i + 1], from, r2);
            if (u >= 0) return static_cast<float>(i) + u;
        }
    }
    const float e = std::sqrt(e2);
    const float s = distance(from, p[i]);
    return static_cast<float>(i + 1) - (e - d) / (s + e);
}

}  // namespace ovaline
