#include "output/fill_section.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "geometry/hatching.h"
#include "plain_fill.h"
#include "stream_text.h"

namespace ovaline {
namespace {

using Bytes = std::vector<std::byte>;

Bytes fastFill(std::span<const Segment> edges, std::span<const Segment> hatch) {
    Bytes buffer(kVectorRecordSize * edges.size() * hatch.size());
    RecordSink sink(buffer);
    writeFillSection(edges, hatch, sink);
    EXPECT_TRUE(sink.fits());
    buffer.resize(static_cast<std::size_t>(sink.position() - buffer.data()));
    return buffer;
}

/// Compares bit by bit: an equal zero of another sign is another stream. Returns the number of records.
std::size_t compare(std::span<const Segment> edges, std::span<const Segment> hatch) {
    const std::vector<VectorRecord> plain = plainFill(edges, hatch);
    Bytes bytes(kVectorRecordSize * plain.size());
    for (std::size_t i = 0; i < plain.size(); ++i) encode(plain[i], &bytes[i * kVectorRecordSize]);
    EXPECT_TRUE(fastFill(edges, hatch) == bytes) << describe(plain);
    return plain.size();
}

std::vector<Segment> family(float angle, float spacing, RectF area) {
    GraphicsPath path;
    HatchRectangle(path, angle, spacing, area);
    std::vector<Segment> lines;
    for (std::size_t i = 0; i + 1 < path.size(); i += 2) lines.push_back({path.points()[i], path.points()[i + 1]});
    return lines;
}

RectF boundsOf(std::span<const Segment> edges) {
    Extent extent;
    for (const Segment& edge : edges) {
        extent.include(edge.from);
        extent.include(edge.to);
    }
    return extent.rectangle();
}

/// Closed polygons on a grid of `step`, so that vertices are shared and many edges are level or upright; no grid for 0.
std::vector<Segment> randomPolygons(std::mt19937& random, float size, float step, float origin) {
    std::uniform_real_distribution<float> coordinate(0, size);
    const auto snapped = [&] {
        const float value = coordinate(random);
        return origin + (step > 0 ? std::round(value / step) * step : value);
    };
    std::vector<Segment> edges;
    const int polygons = 1 + static_cast<int>(random() % 4);
    for (int i = 0; i < polygons; ++i) {
        const PointF first{snapped(), snapped()};
        PointF last = first;
        for (int corner = 0; corner < 3 + static_cast<int>(random() % 12); ++corner) {
            const PointF next{snapped(), snapped()};
            edges.push_back({last, next});
            last = next;
        }
        if (random() % 8 != 0) edges.push_back({last, first});
    }
    return edges;
}

TEST(FillSection, EqualsThePlainEvaluation) {
    std::mt19937 random(20);
    const float angles[] = {0, 90, 45, 135, 30, 10, 80, 100, 170, 89.9f, 90.1f, 0.1f, 179.9f, 89.9999f, 1e-4f};
    std::size_t crossings = 0;
    for (int round = 0; round < 4000 && !HasFailure(); ++round) {
        const float size = std::pow(10.0f, static_cast<float>(random() % 5));
        const float grids[] = {0, size / 10, size / 100};
        const float origin = random() % 4 == 0 ? size * 50 : 0;
        const std::vector<Segment> edges = randomPolygons(random, size, grids[random() % 3], origin);
        const RectF area = boundsOf(edges);
        const float spacing = size / static_cast<float>(3 + random() % 60);
        const float angle = random() % 3 == 0 ? static_cast<float>(random() % 1800) / 10 : angles[random() % 15];
        std::vector<Segment> hatch = family(angle, spacing, area);
        if (random() % 3 == 0) {
            const std::vector<Segment> crossing = family(angle + 90, spacing * 1.3f, area);
            hatch.insert(hatch.end(), crossing.begin(), crossing.end());
        }
        crossings += compare(edges, hatch);
    }
    EXPECT_GT(crossings, 100000u) << "the comparison must have had something to compare";
}

// Lines that belong to no family, single points, coordinates whose products overflow or underflow.
TEST(FillSection, EqualsThePlainEvaluationOnAnyInput) {
    std::mt19937 random(21);
    std::uniform_real_distribution<float> any(-1, 1);
    const float scales[] = {1e-44f, 1e-40f, 1e-30f, 1e-19f, 1.0f, 1e4f, 1e9f, 1e16f, 1e18f, 1e25f, 3e38f};
    for (int round = 0; round < 3000 && !HasFailure(); ++round) {
        const float scale = scales[random() % 11];
        const float grid = random() % 2 ? 1 : 0.25f;
        const auto value = [&] { return scale * (random() % 2 ? any(random) : std::round(any(random) / grid) * grid); };
        std::vector<Segment> edges(1 + random() % 20), hatch(1 + random() % 20);
        for (Segment& edge : edges) edge = {{value(), value()}, {value(), value()}};
        for (std::size_t i = 0; i < hatch.size(); ++i) {
            hatch[i] = {{value(), value()}, {value(), value()}};
            if (i > 0 && random() % 2) {  // nearly parallel to the line before, or as short as a point
                const PointF shift{value() / 8, value() / 8}, a = hatch[i - 1].from, b = hatch[i - 1].to;
                hatch[i] = {{a.X + shift.X, a.Y + shift.Y}, {b.X + shift.X, b.Y + shift.Y}};
                if (random() % 4 == 0) hatch[i].to = hatch[i].from;
            }
        }
        if (random() % 50 == 0) edges[0].to.X = std::numeric_limits<float>::quiet_NaN();
        if (random() % 50 == 0) hatch[0].from.Y = std::numeric_limits<float>::infinity();
        compare(edges, hatch);
    }
}

// Edges that end within a rounding of a line, far from the origin: single precision then decides on either side.
TEST(FillSection, EqualsThePlainEvaluationWhereEdgesEndOnLines) {
    std::mt19937 random(22);
    std::uniform_real_distribution<float> share(0, 1);
    std::size_t touching = 0;
    for (int round = 0; round < 3000 && !HasFailure(); ++round) {
        const float origin = round % 3 == 0 ? 0.0f : 20000.0f * static_cast<float>(1 + random() % 50);
        const float angle = static_cast<float>(random() % 1800) / 10;
        const std::vector<Segment> hatch = family(angle, 40, {origin, -origin, 1000, 700});
        std::vector<Segment> edges;
        for (int i = 0; i < 20 && !hatch.empty(); ++i) {
            const Segment& line = hatch[random() % hatch.size()];
            const float s = share(random);
            PointF end{line.from.X + s * (line.to.X - line.from.X), line.from.Y + s * (line.to.Y - line.from.Y)};
            for (int step = static_cast<int>(random() % 5); step > 2; --step) end.Y = std::nextafter(end.Y, 1e30f);
            for (int step = static_cast<int>(random() % 5); step > 2; --step) end.X = std::nextafter(end.X, -1e30f);
            // Away from the line, as short as a fraction of its distance to the next.
            const PointF other{end.X + 15 * (share(random) - 0.5f), end.Y + 15 * (share(random) - 0.5f)};
            edges.push_back(random() % 2 ? Segment{end, other} : Segment{other, end});
        }
        touching += compare(edges, hatch);
    }
    EXPECT_GT(touching, 10000u);
}

TEST(FillSection, AlternatesItsDirectionLineByLine) {
    const auto fill = [](std::span<const Segment> edges, std::span<const Segment> hatch) {
        return describe(recordsOf(fastFill(edges, hatch)));
    };
    const Segment square[] = {{{0, 0}, {10, 0}}, {{10, 0}, {10, 10}}, {{10, 10}, {0, 10}}, {{0, 10}, {0, 0}}};
    const Segment lines[] = {{{-5, 2}, {15, 2}}, {{-5, 4}, {15, 4}}, {{-5, 40}, {15, 40}}, {{-5, 6}, {15, 6}}};
    EXPECT_EQ(fill(square, lines), "U 0,2 D 10,2 U 10,4 D 0,4 U 10,6 D 0,6") << "a line without crossings counts";
    EXPECT_EQ(fill(std::span(square).last(1), lines), "U 0,2 U 0,4 U 0,6");
    // An upright line through a vertex: the vertex counts as the start of the edge that follows.
    const Segment roof[] = {{{0, 10}, {5, 0}}, {{5, 0}, {10, 10}}, {{10, 10}, {0, 10}}};
    const Segment upright[] = {{{5, -5}, {5, 15}}};
    EXPECT_EQ(fill(roof, upright), "U 5,0 D 5,10");
}

}  // namespace
}  // namespace ovaline
