#include "geometry/hatching.h"

#include <cmath>

#include "geometry/path_writer.h"
#include "platform/extended_precision.h"

namespace ovaline {

namespace {

/// Into [0, 180), as a float: lines at a and a + 180 are the same.
float normalised(float angle) {
    float a = angle;
    // The remainder is exact, whatever the size of the angle.
    if (a >= 180 || a < -180) a = std::fmod(a, 180.0f);
    if (a < 0) a = a + 180;
    // Just below 0 the sum rounds to 180 itself.
    return a < 180 ? a : 0;
}

struct Sides {
    float left, top, right, bottom;  // single precision, like the rectangle they come from
};

/// Appends lines until `lineAt` has none left; takes them all back where they would not end within the limit.
class Family {
public:
    explicit Family(GraphicsPath& target) : writer_(target), begin_(target.size()) {}

    /// Adds the line through the next position; false ends the family.
    bool add(PointF from, PointF to, bool progress) {
        if (!progress || count_ == kMostHatchLines) {
            writer_.truncate(begin_);
            writer_.fail(ValueOverflow);
            return false;
        }
        ++count_;
        writer_.add(from, PathPointTypeStart);
        writer_.add(to, PathPointTypeLine);
        return true;
    }

private:
    PathWriter writer_;
    std::size_t begin_;
    std::size_t count_ = 0;
};

struct Slope {
    double sine, cosine;  // rounded to single precision
};

Slope slopeOf(float angle) {
    constexpr double kPi = 3.141592653589793;
    const double r = static_cast<double>(angle) * kPi / 180.0;
    return {static_cast<double>(static_cast<float>(std::sin(r))), static_cast<double>(static_cast<float>(std::cos(r)))};
}

// A slanted line is the set of points with y + x·sin/cos = k for one k. The position k and the ends of the lines are
// single precision; what lies between is computed in double precision and rounded once.

PointF onUpright(double x, double k, Slope s) {
    return {static_cast<float>(x), static_cast<float>(k - x * s.sine / s.cosine)};
}

PointF onLevel(double y, double k, Slope s) {
    return {static_cast<float>((k - y) * s.cosine / s.sine), static_cast<float>(y)};
}

void hatchRising(Family& family, Slope s, double d, const Sides& r) {
    const double start = (r.top * s.cosine + r.left * s.sine) / s.cosine;
    const float end = static_cast<float>((r.bottom * s.cosine + r.right * s.sine - d) / s.cosine);
    const double step = d / s.cosine;
    if (!(start < end)) return;
    float k = static_cast<float>(start);
    do {
        const float last = k;
        k = static_cast<float>(k + step);
        PointF from = onUpright(r.left, k, s);
        if (from.Y > r.bottom) from = onLevel(r.bottom, k, s);
        PointF to = onLevel(r.top, k, s);
        if (to.X > r.right) to = onUpright(r.right, k, s);
        if (!family.add(from, to, k > last)) return;
    } while (k < end);
}

void hatchFalling(Family& family, Slope s, double d, const Sides& r) {
    const double start = r.bottom + r.left * s.sine / s.cosine;
    const float end = static_cast<float>(r.top + (r.right * s.sine - d) / s.cosine);
    const double step = d / s.cosine;
    if (!(start > end)) return;
    float k = static_cast<float>(start);
    do {
        const float last = k;
        k = static_cast<float>(k + step);
        PointF from = onUpright(r.left, k, s);
        if (from.Y < r.top) from = onLevel(r.top, k, s);
        PointF to = onLevel(r.bottom, k, s);
        if (to.X > r.right) to = onUpright(r.right, k, s);
        if (!family.add(from, to, k < last)) return;
    } while (k > end);
}

void hatchVertical(Family& family, float d, const Sides& r) {
    float x = r.left;
    while (x < r.right) {
        const float last = x;
        x = x + d;
        if (!family.add({x, r.top}, {x, r.bottom}, x > last)) return;
    }
}

void hatchHorizontal(Family& family, float d, const Sides& r) {
    float y = r.top;
    while (y < r.bottom) {
        const float last = y;
        y = y + d;
        if (!family.add({r.left, y}, {r.right, y}, y > last)) return;
    }
}

float angleSum(float a, float b, float c) {
    return static_cast<float>(static_cast<long double>(a) + static_cast<long double>(b) + static_cast<long double>(c));
}

}  // namespace

void HatchRectangle(GraphicsPath& target, float angle, float spacing, const RectF& area) {
    const Sides sides{area.X, area.Y, area.X + area.Width, area.Y + area.Height};
    const bool finite = std::isfinite(angle) && std::isfinite(spacing) && std::isfinite(sides.left) &&
                        std::isfinite(sides.top) && std::isfinite(sides.right) && std::isfinite(sides.bottom);
    if (!finite || spacing <= 0) return;
    GdipStartPathFigure(target);
    Family family(target);
    const float a = normalised(angle);
    if (a == 0)
        hatchHorizontal(family, spacing, sides);
    else if (a < 90)
        hatchRising(family, slopeOf(a), spacing, sides);
    else if (a == 90)
        hatchVertical(family, spacing, sides);
    else
        hatchFalling(family, slopeOf(a), spacing, sides);
}

void BuildFill(const HatchInput& input, const GraphicsPath& text, GraphicsPath& fill) {
    const std::int32_t style = input.fontStyle == TrueType ? input.fillStyle : NoFilling;
    if (style < Solid || style > Cross) return;
    const ExtendedPrecisionGuard extendedPrecision;
    RectF area;
    GdipGetPathWorldBounds(text, area);
    area.Width += 0.5f;
    area.Height += 0.5f;
    if (style == Solid) HatchRectangle(fill, 0, input.solidSpacing, area);
    if (style == Cross)
        HatchRectangle(fill, angleSum(input.lineAngle, input.angle, input.crossAngle), input.spacing, area);
    if (style == Line || style == Cross)
        HatchRectangle(fill, angleSum(input.lineAngle, input.angle, 0), input.spacing, area);
}

}  // namespace ovaline
