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
    float left, top, right, bottom;
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
    float sine, cosine;
};

Slope slopeOf(float angle) {
    constexpr double kPi = 3.141592653589793;
    const double r = static_cast<double>(angle) * kPi / 180.0;
    return {static_cast<float>(std::sin(r)), static_cast<float>(std::cos(r))};
}

// A slanted line is the set of points with y + x·sin/cos = k for one k.

void hatchRising(Family& family, Slope s, float d, const Sides& r) {
    float k = (r.top * s.cosine + r.left * s.sine) / s.cosine;
    const float end = (r.bottom * s.cosine + r.right * s.sine - d) / s.cosine;
    const float step = d / s.cosine;
    while (k < end) {
        const float last = k;
        k = k + step;
        PointF from{r.left, k - r.left * s.sine / s.cosine};
        if (from.Y > r.bottom) from = {(k - r.bottom) * s.cosine / s.sine, r.bottom};
        PointF to{(k - r.top) * s.cosine / s.sine, r.top};
        if (to.X > r.right) to = {r.right, k - r.right * s.sine / s.cosine};
        if (!family.add(from, to, k > last)) return;
    }
}

void hatchFalling(Family& family, Slope s, float d, const Sides& r) {
    float k = r.bottom + r.left * s.sine / s.cosine;
    const float end = r.top + (r.right * s.sine - d) / s.cosine;
    const float step = d / s.cosine;
    while (k > end) {
        const float last = k;
        k = k + step;
        PointF from{r.left, k - r.left * s.sine / s.cosine};
        if (from.Y < r.top) from = {(k - r.top) * s.cosine / s.sine, r.top};
        PointF to{(k - r.bottom) * s.cosine / s.sine, r.bottom};
        if (to.X > r.right) to = {r.right, k - r.right * s.sine / s.cosine};
        if (!family.add(from, to, k < last)) return;
    }
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
