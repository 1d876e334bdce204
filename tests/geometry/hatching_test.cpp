#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "geometry/hatching.h"
#include "path_text.h"
#include "platform/extended_precision.h"

namespace ovaline {
namespace {

std::string hatch(float angle, float spacing, RectF area) {
    GraphicsPath path;
    HatchRectangle(path, angle, spacing, area);
    return describe(path);
}

TEST(Hatch, LevelAndUprightLines) {
    const RectF area{0, 0, 35.5f, 20.5f};
    EXPECT_EQ(hatch(0, 10, area), "M0,10 L35.5,10 M0,20 L35.5,20 M0,30 L35.5,30");
    EXPECT_EQ(hatch(90, 10, area), "M10,0 L10,20.5 M20,0 L20,20.5 M30,0 L30,20.5 M40,0 L40,20.5");
    EXPECT_EQ(hatch(90, 10, {0, 0, 20, 5}), "M10,0 L10,5 M20,0 L20,5") << "the side itself ends the family";
    EXPECT_EQ(hatch(0, 10, {0, 0, 5, 0}), "") << "an area without height";
}

TEST(Hatch, SlantedLinesRunFromTheLeftWithinTheArea) {
    for (const float angle : {45.0f, 80.0f, 2.0f, 135.0f, 100.0f, 178.0f}) {
        SCOPED_TRACE(angle);
        GraphicsPath path;
        HatchRectangle(path, angle, 7, {100, 200, 300, 150});
        ASSERT_EQ(path.size() % 2, 0u);
        const double radians = angle * std::acos(-1.0) / 180, sine = std::sin(radians), cosine = std::cos(radians);
        double last = 0;
        for (std::size_t i = 0; i < path.size(); i += 2) {
            const PointF a = path.points()[i], b = path.points()[i + 1];
            for (const PointF p : {a, b}) {
                EXPECT_NEAR(p.X, 250, 150 + 1e-3);
                EXPECT_NEAR(p.Y, 275, 75 + 1e-3);
            }
            EXPECT_GE(b.X, a.X);
            EXPECT_EQ(b.Y <= a.Y, angle < 90);
            // Position along the normal; neighbours are one spacing apart.
            const double position = a.X * sine + a.Y * cosine;
            if (i > 0) {
                EXPECT_NEAR(std::abs(position - last), 7, 1e-3);
            }
            last = position;
        }
        // The area's extent along the normal holds as many whole spacings.
        EXPECT_EQ(path.size() / 2, static_cast<std::size_t>((300 * sine + 150 * std::abs(cosine)) / 7));
    }
}

TEST(Hatch, AnglesHalfATurnApartAreTheSame) {
    const RectF area{3, 4, 100, 80};
    const std::pair<float, float> same[] = {{225, 45}, {-45, 135}, {180, 0}, {-1e-9f, 0}, {45 + 180 * 1024, 45}};
    for (const auto& [angle, turned] : same) EXPECT_EQ(hatch(angle, 9, area), hatch(turned, 9, area)) << angle;
}

TEST(Fill, StylesAndAngles) {
    const RectF area{0, 0, 35.5f, 20.5f};
    HatchInput input;
    input.spacing = 10;
    input.solidSpacing = 5;
    input.lineAngle = 30;
    input.crossAngle = 50;
    input.angle = 15;
    const auto fill = [&](std::int32_t style) {
        input.fillStyle = style;
        GraphicsPath path;
        BuildFill(input, pathFrom("M0,0 L35,0 L35,20 L0,20 Z"), path);
        return describe(path);
    };
    EXPECT_EQ(fill(NoFilling), "");
    EXPECT_EQ(fill(9), "");
    EXPECT_EQ(fill(Solid), hatch(0, 5, area)) << "level, whatever the angles";
    EXPECT_EQ(fill(Line), hatch(45, 10, area)) << "turns with the text";
    EXPECT_EQ(fill(Cross), hatch(95, 10, area) + " " + hatch(45, 10, area)) << "the crossing family first";
    GraphicsPath path;
    BuildFill(input, GraphicsPath(), path);
    EXPECT_LE(path.size(), 2u) << "no text: half a dot of area";
    input.fontStyle = SingleStroke;
    EXPECT_EQ(fill(Solid), "");
}

TEST(Hatch, EveryFamilyEnds) {
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    for (const float angle : {0.0f, 45.0f, 90.0f, 135.0f, 89.99999f, 1e-30f, 1e30f, kNan}) {
        for (const float spacing : {0.0f, -1.0f, 1e-30f, 1e-3f, 25.0f, 1e30f, kNan}) {
            for (const float size : {0.0f, 1.0f, 1e5f, 1e9f, 3e38f, kNan}) {
                GraphicsPath path;
                HatchRectangle(path, angle, spacing, {-size, size, size, size});
                EXPECT_LE(path.size(), 2 * kMostHatchLines);
            }
        }
    }
    // A family that cannot be completed is left out whole and says so; what was there before stays.
    GraphicsPath path = pathFrom("M0,0 L1,1");
    HatchRectangle(path, 0, 1, {0, 0, 10, 1'000'001});
    EXPECT_EQ(describe(path), "M0,0 L1,1");
    EXPECT_EQ(path.status(), ValueOverflow);
    HatchRectangle(path, 0, 0.25f, {0, 16777216.0f, 10, 1000});  // the step is lost at once
    EXPECT_EQ(describe(path), "M0,0 L1,1");
    HatchRectangle(path, 0, 1, {0, 0, 10, 1.5f});
    EXPECT_EQ(describe(path), "M0,0 L1,1 M0,1 L10,1 M0,2 L10,2");
}

// A host may run the module with x87 arithmetic limited to 53 bits; what needs 64 gets them.
TEST(ExtendedPrecision, IsRestoredForItsScope) {
    const auto significandBits = [] {
        volatile long double one = 1, small = 0x1p-60L;
        return one + small != one ? 64 : 53;
    };
    std::uint16_t control = 0;
    asm volatile("fnstcw %0" : "=m"(control));
    const std::uint16_t limited = static_cast<std::uint16_t>((control & ~0x0300) | 0x0200);
    asm volatile("fldcw %0" : : "m"(limited));
    EXPECT_EQ(significandBits(), 53);
    {
        const ExtendedPrecisionGuard guard;
        EXPECT_EQ(significandBits(), 64);
    }
    EXPECT_EQ(significandBits(), 53);
    asm volatile("fldcw %0" : : "m"(control));
}

}  // namespace
}  // namespace ovaline
