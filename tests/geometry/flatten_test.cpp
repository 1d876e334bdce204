#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "geometry/cubic.h"
#include "path_text.h"

namespace ovaline {
namespace {

PointD at(const PointF* p, double t) {
    const double s = 1 - t;
    const double b[] = {s * s * s, 3 * s * s * t, 3 * s * t * t, t * t * t};
    PointD sum;
    for (int i = 0; i < 4; ++i) sum = sum + b[i] * PointD{p[i].X, p[i].Y};
    return sum;
}

double distance(PointD q, PointD a, PointD b) {
    const PointD d = b - a, e = q - a;
    const double length = d.x * d.x + d.y * d.y;
    const PointD off = e - (length > 0 ? std::clamp((e.x * d.x + e.y * d.y) / length, 0.0, 1.0) : 0) * d;
    return std::hypot(off.x, off.y);
}

// The farthest sampled point of the curve from the polyline that replaced it.
double farthest(const PointF* p, std::span<const PointF> polyline) {
    double worst = 0;
    for (int i = 0; i <= 1000; ++i) {
        double nearest = std::numeric_limits<double>::infinity();
        for (std::size_t j = 1; j < polyline.size(); ++j) {
            const PointF a = polyline[j - 1], b = polyline[j];
            nearest = std::min(nearest, distance(at(p, i / 1000.0), {a.X, a.Y}, {b.X, b.Y}));
        }
        worst = std::max(worst, nearest);
    }
    return worst;
}

// The fewest chords with both ends on the curve: each as long as the tolerance lets it, found by bisection.
int fewest(const PointF* p, double tolerance) {
    const auto within = [&](double t0, double t1) {
        for (int i = 1; i < 50; ++i)
            if (distance(at(p, t0 + (t1 - t0) * i / 50), at(p, t0), at(p, t1)) > tolerance) return false;
        return true;
    };
    int count = 1;
    for (double t = 0; !within(t, 1); ++count) {
        double low = t, high = 1;
        for (int i = 0; i < 40; ++i) (within(t, (low + high) / 2) ? low : high) = (low + high) / 2;
        t = low;
    }
    return count;
}

GraphicsPath flattened(const PointF* p, float flatness) {
    GraphicsPath path;
    GdipAddPathBezier(path, p[0].X, p[0].Y, p[1].X, p[1].Y, p[2].X, p[2].Y, p[3].X, p[3].Y);
    GdipFlattenPath(path, flatness);
    return path;
}

// Glyph curves are quadratics raised to cubics; general cubics have inflections, loops and cusps as well.
TEST(Flatten, HonoursItsToleranceWithCloseToTheFewestSegments) {
    std::mt19937 random(7);
    for (const float size : {30.0f, 300.0f, 3000.0f}) {
        std::uniform_real_distribution<float> coordinate(-size, size);
        for (const float tolerance : {0.25f, 2.5f, 6.25f}) {
            std::size_t segments = 0;
            int optimum = 0;
            for (int i = 0; i < 150; ++i) {
                PointF q[3];
                for (PointF& point : q) point = {coordinate(random), coordinate(random)};
                const auto raised = [](PointF a, PointF b) {
                    return PointF{a.X + (b.X - a.X) * 2 / 3, a.Y + (b.Y - a.Y) * 2 / 3};
                };
                const PointF p[] = {q[0], raised(q[0], q[1]), raised(q[2], q[1]), q[2]};
                const GraphicsPath path = flattened(p, tolerance);
                ASSERT_LE(farthest(p, path.points()), tolerance);
                segments += path.size() - 1;
                optimum += fewest(p, tolerance);
            }
            EXPECT_LE(static_cast<double>(segments), 1.15 * optimum) << size << " within " << tolerance;
        }
        for (int i = 0; i < 200; ++i) {
            PointF p[4];
            for (PointF& point : p) point = {coordinate(random), coordinate(random)};
            if (i % 4 == 0) p[3] = p[0];
            if (i % 5 == 0) p[2] = p[1];
            ASSERT_LE(farthest(p, flattened(p, 1).points()), 1.0) << size << ", curve " << i;
        }
    }
}

TEST(Flatten, KeepsFiguresAndCloseFlags) {
    GraphicsPath path = pathFrom("M0,0 C0,60 C60,60 C60,0 L30,-9 Z M5,5 L6,6 M1,1 C1,9 C9,9 C9,1 Z");
    GdipFlattenPath(path, 100);  // so coarse that each curve is one segment
    EXPECT_EQ(describe(path), "M0,0 L60,0 L30,-9 Z M5,5 L6,6 M1,1 L9,1 Z");
}

// Finer than single precision can place vertices, negative, NaN: the polyline ends all the same, and stays bounded.
TEST(Flatten, EndsForEveryFlatnessAndCoordinate) {
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    for (const float flatness : {0.0f, -1.0f, 1e-30f, kNan, std::numeric_limits<float>::infinity()}) {
        for (const float scale : {1e-30f, 1.0f, 1e7f, 3e38f, kNan}) {
            const PointF p[] = {{0, 0}, {scale, 0}, {scale, scale}, {0, scale / 2}};
            const GraphicsPath path = flattened(p, flatness);
            EXPECT_LE(path.size(), 40000u);
            EXPECT_GE(path.size(), 2u);
        }
    }
}

}  // namespace
}  // namespace ovaline
