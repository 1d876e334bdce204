#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "path_text.h"

namespace ovaline {
namespace {

struct Sample {
    double x, y;
};

Sample at(const PointF* p, double t) {
    const double s = 1 - t;
    const double b[] = {s * s * s, 3 * s * s * t, 3 * s * t * t, t * t * t};
    Sample sum{0, 0};
    for (int i = 0; i < 4; ++i) {
        sum.x += b[i] * p[i].X;
        sum.y += b[i] * p[i].Y;
    }
    return sum;
}

double distance(Sample q, Sample a, Sample b) {
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double length = dx * dx + dy * dy;
    const double share = length > 0 ? ((q.x - a.x) * dx + (q.y - a.y) * dy) / length : 0;
    const double s = std::min(1.0, std::max(0.0, share));
    return std::hypot(q.x - a.x - s * dx, q.y - a.y - s * dy);
}

// The farthest sampled point of the curve from the polyline that replaced it.
double farthest(const PointF* p, std::span<const PointF> polyline) {
    double worst = 0;
    for (int i = 0; i <= 1000; ++i) {
        const Sample q = at(p, i / 1000.0);
        double nearest = std::numeric_limits<double>::infinity();
        for (std::size_t j = 1; j < polyline.size(); ++j)
            nearest =
                std::min(nearest, distance(q, {polyline[j - 1].X, polyline[j - 1].Y}, {polyline[j].X, polyline[j].Y}));
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

GraphicsPath curve(const PointF* p) {
    GraphicsPath path;
    GdipAddPathBezier(path, p[0].X, p[0].Y, p[1].X, p[1].Y, p[2].X, p[2].Y, p[3].X, p[3].Y);
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
                const auto raised = [](float a, float b) { return a + (b - a) * 2 / 3; };
                const PointF p[] = {q[0],
                                    {raised(q[0].X, q[1].X), raised(q[0].Y, q[1].Y)},
                                    {raised(q[2].X, q[1].X), raised(q[2].Y, q[1].Y)},
                                    q[2]};
                GraphicsPath path = curve(p);
                GdipFlattenPath(path, tolerance);
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
            GraphicsPath path = curve(p);
            GdipFlattenPath(path, 1.0f);
            ASSERT_LE(farthest(p, path.points()), 1.0) << describe(curve(p));
        }
    }
}

TEST(Flatten, KeepsFiguresAndCloseFlags) {
    GraphicsPath path = pathFrom("M0,0 C0,60 C60,60 C60,0 L30,-9 Z M5,5 L6,6 M1,1 C1,9 C9,9 C9,1 Z");
    GdipFlattenPath(path, 100);  // so coarse that each curve is one segment
    EXPECT_EQ(describe(path), "M0,0 L60,0 L30,-9 Z M5,5 L6,6 M1,1 L9,1 Z");
    GdipFlattenPath(path, 0.1f);
    EXPECT_EQ(describe(path), "M0,0 L60,0 L30,-9 Z M5,5 L6,6 M1,1 L9,1 Z");
}

// Finer than single precision can place vertices, negative, NaN: the polyline ends all the same, and stays bounded.
TEST(Flatten, EndsForEveryFlatnessAndCoordinate) {
    constexpr float kHuge = 3e38f, kNan = std::numeric_limits<float>::quiet_NaN();
    for (const float flatness : {0.0f, -1.0f, 1e-30f, kNan, std::numeric_limits<float>::infinity()}) {
        for (const float scale : {1e-30f, 1.0f, 1e7f, 1e30f, kHuge, kNan}) {
            const PointF p[] = {{0, 0}, {scale, 0}, {scale, scale}, {0, scale / 2}};
            GraphicsPath path = curve(p);
            GdipFlattenPath(path, flatness);
            EXPECT_LE(path.size(), 40000u);
            EXPECT_GE(path.size(), 2u);
        }
    }
}

}  // namespace
}  // namespace ovaline
