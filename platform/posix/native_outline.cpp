#include "platform/posix/native_outline.h"

#include <algorithm>
#include <limits>

namespace ovaline::platform {

namespace {

/// Writes contours; the first coordinate that does not fit makes the whole glyph fail.
class ContourConverter {
public:
    explicit ContourConverter(bool flip) : flip_(flip) {}

    void add(std::span<const OutlinePoint> contour) {
        if (contour.size() < 2) return;
        const OutlinePoint start = startOf(contour);
        writer_.beginContour(fixedPointOf(start));
        std::span<const OutlinePoint> rest = contour;
        if (contour.front().isOnCurve) {
            rest = contour.subspan(1);
        } else if (contour.back().isOnCurve) {
            rest = contour.first(contour.size() - 1);
        }
        while (!rest.empty()) rest = rest.subspan(addRun(rest, start));
        writer_.endContour();
    }

    std::optional<std::vector<std::byte>> take() {
        if (!fits_) return std::nullopt;
        return writer_.take();
    }

private:
    /// A contour that begins off the curve starts at its last point, or midway to it where that is off the curve too.
    static OutlinePoint startOf(std::span<const OutlinePoint> contour) {
        if (contour.front().isOnCurve) return contour.front();
        const OutlinePoint& last = contour.back();
        if (last.isOnCurve) return last;
        // Rounded toward zero, so that the flipped contour is the mirror image.
        return {(contour.front().x + last.x) / 2, (contour.front().y + last.y) / 2, true};
    }

    /// Writes the run that `rest` begins with and returns its number of points. A spline at the contour's end closes
    /// the contour in `start`.
    std::size_t addRun(std::span<const OutlinePoint> rest, const OutlinePoint& start) {
        const bool isLine = rest.front().isOnCurve;
        const auto end = std::ranges::find(rest, !isLine, &OutlinePoint::isOnCurve);
        auto count = static_cast<std::size_t>(end - rest.begin());
        run_.clear();
        for (const OutlinePoint& point : rest.first(count)) run_.push_back(fixedPointOf(point));
        if (isLine) {
            writer_.line(run_);
            return count;
        }
        run_.push_back(fixedPointOf(count < rest.size() ? rest[count++] : start));
        fits_ = fits_ && run_.size() <= kMostPointsOfRecord;
        if (fits_) writer_.qspline(run_);
        return count;
    }

    FixedPoint fixedPointOf(const OutlinePoint& point) {
        const std::optional<std::int32_t> x = fixedOf(point.x);
        const std::optional<std::int32_t> y = fixedOf(flip_ ? -point.y : point.y);
        fits_ = fits_ && x && y;
        return {x.value_or(0), y.value_or(0)};
    }

    bool flip_ = false;
    bool fits_ = true;
    NativeOutlineWriter writer_;
    std::vector<FixedPoint> run_;
};

}  // namespace

std::optional<std::int32_t> fixedOf(std::int64_t value) {
    const std::int64_t whole = value >> 6;
    using Whole = std::numeric_limits<std::int16_t>;
    if (whole < Whole::min() || whole > Whole::max()) return std::nullopt;
    const std::int64_t bits = (value & 63) << 10;
    const std::int64_t fraction = bits | bits >> 6 | bits >> 12;
    return static_cast<std::int32_t>(whole * 0x10000 + fraction);
}

std::optional<std::vector<std::byte>> nativePolygons(std::span<const OutlinePoint> points,
                                                     std::span<const std::size_t> contourEnds, bool flip) {
    ContourConverter converter(flip);
    std::size_t first = 0;
    for (const std::size_t last : contourEnds) {
        converter.add(points.subspan(first, last + 1 - first));
        first = last + 1;
    }
    return converter.take();
}

}  // namespace ovaline::platform
