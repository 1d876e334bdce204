#include "platform/drawing_path.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

#include "platform/drawing_cut.h"

namespace ovaline::platform {

namespace {

constexpr std::uint8_t kKind = 0x07;
constexpr std::uint8_t kStart = 0;
constexpr std::uint8_t kLine = 1;
constexpr std::uint8_t kCubic = 3;
constexpr std::uint8_t kClosed = 0x80;

/// Lines are stroked in pieces of about so many points: the memory that an engine takes for one grows with it, and
/// lines of two pieces only blend where they meet in a pixel.
constexpr std::size_t kPointsAtOnce = std::size_t{1} << 11;

/// Figures that reach farther beyond what is seen are cut, in pixels. All others stay as they are: an engine's own
/// curves and dashes are finer.
constexpr double kNear = 2048;
/// How far beyond what is seen they are cut, in pixels, so that no edge of the cut shows.
constexpr double kCutAway = 16;

constexpr double kWidest = 25'000;     // of lines, in pixels
constexpr double kThinnest = 1;        // that an engine draws, in pixels
constexpr double kShortestPeriod = 1;  // of dashes, in pixels

struct Figure {
    std::span<const DrawingPoint> points;
    std::span<const std::uint8_t> types;

    bool closed() const { return (types.back() & kClosed) != 0; }
};

/// The figure that begins at `first`.
Figure figureAt(const DrawingPath& path, std::size_t first) {
    std::size_t end = first + 1;
    while (end < path.types.size() && (path.types[end] & kKind) != kStart) ++end;
    return {path.points.subspan(first, end - first), path.types.subspan(first, end - first)};
}

enum class Reach { Nowhere, Near, Far };

/// Where a figure lies, its control points included.
Reach reachOf(const Figure& figure, const Sides& seen) {
    float left = figure.points[0].X, right = left, top = figure.points[0].Y, bottom = top;
    // A sum is finite only where all its terms are; beyond single precision's range nothing is drawn either.
    float sum = 0;
    for (const DrawingPoint point : figure.points) {
        sum += (point.X - point.X) + (point.Y - point.Y);
        left = std::min(left, point.X);
        right = std::max(right, point.X);
        top = std::min(top, point.Y);
        bottom = std::max(bottom, point.Y);
    }
    if (!std::isfinite(sum) || (left == right && top == bottom)) return Reach::Nowhere;
    if (right < seen.left || left > seen.right || bottom < seen.top || top > seen.bottom) return Reach::Nowhere;
    const Sides kept = seen.grownBy(kNear);
    const bool within = left >= kept.left && right <= kept.right && top >= kept.top && bottom <= kept.bottom;
    return within ? Reach::Near : Reach::Far;
}

bool isCubic(const Figure& figure, std::size_t i) {
    return (figure.types[i] & kKind) == kCubic && i + 2 < figure.points.size();
}

Place placeOf(DrawingPoint point) {
    return {point.X, point.Y};
}

void append(FigureSink& sink, const Figure& figure) {
    sink.moveTo(placeOf(figure.points[0]));
    for (std::size_t i = 1; i < figure.points.size(); ++i) {
        const DrawingPoint* p = &figure.points[i];
        if (isCubic(figure, i)) {
            sink.curveTo(placeOf(p[0]), placeOf(p[1]), placeOf(p[2]));
            i += 2;
        } else {
            sink.lineTo(placeOf(*p));
        }
    }
    if (figure.closed()) sink.close();
}

/// Lengths of dashes and gaps in turn, in pen widths; none for a solid line.
std::span<const double> patternOf(DashStyle style) {
    static constexpr std::array<double, 2> kDash = {3, 1};
    static constexpr std::array<double, 2> kDot = {1, 1};
    static constexpr std::array<double, 4> kDashDot = {3, 1, 1, 1};
    static constexpr std::array<double, 6> kDashDotDot = {3, 1, 1, 1, 1, 1};
    switch (style) {
        case DashStyle::Dash:
            return kDash;
        case DashStyle::Dot:
            return kDot;
        case DashStyle::DashDot:
            return kDashDot;
        case DashStyle::DashDotDot:
            return kDashDotDot;
        case DashStyle::Solid:
            break;
    }
    return {};
}

}  // namespace

Outline<4> boxOutline(const DrawingBox& box) {
    const float right = box.X + box.Width, bottom = box.Y + box.Height;
    return {{{{box.X, box.Y}, {right, box.Y}, {right, bottom}, {box.X, bottom}}},
            {kStart, kLine, kLine, kLine | kClosed}};
}

Outline<13> ellipseOutline(const DrawingBox& box) {
    constexpr float kHandle = 0.55228475f;  // of a quarter of a circle, in radii
    const auto at = [&](float across, float down) -> DrawingPoint {
        return {box.X + (1 + across) / 2 * box.Width, box.Y + (1 + down) / 2 * box.Height};
    };
    return {{at(1, 0), at(1, kHandle), at(kHandle, 1), at(0, 1), at(-kHandle, 1), at(-1, kHandle), at(-1, 0),
             at(-1, -kHandle), at(-kHandle, -1), at(0, -1), at(kHandle, -1), at(1, -kHandle), at(1, 0)},
            {kStart, kCubic, kCubic, kCubic, kCubic, kCubic, kCubic, kCubic, kCubic, kCubic, kCubic, kCubic,
             kCubic | kClosed}};
}

bool isNear(const DrawingBox& box, const Sides& visible) {
    const Sides kept = visible.grownBy(kNear);
    return box.X >= kept.left && box.Y >= kept.top && double{box.X} + double{box.Width} <= kept.right &&
           double{box.Y} + double{box.Height} <= kept.bottom;
}

void appendAreas(FigureSink& sink, const DrawingPath& path, const Sides& visible) {
    AreaCutter cutter(sink, visible.grownBy(kCutAway));
    for (std::size_t first = 0; first < path.points.size();) {
        const Figure figure = figureAt(path, first);
        const Reach reach = reachOf(figure, visible);
        if (reach == Reach::Near) append(sink, figure);
        if (reach == Reach::Far) append(cutter, figure);
        cutter.finish();
        first += figure.points.size();
    }
}

PenForm::PenForm(const Pen& pen) : width_(std::min<double>(pen.width, kWidest)) {
    const std::span<const double> pattern = patternOf(pen.dash);
    const double period = std::accumulate(pattern.begin(), pattern.end(), 0.0);
    if (pattern.empty()) return;
    if (period * width_ < kShortestPeriod) {
        double drawn = 0;
        for (std::size_t i = 0; i < pattern.size(); i += 2) drawn += pattern[i];
        ink_ = drawn / period;
        return;
    }
    count_ = pattern.size();
    std::ranges::transform(pattern, lengths_.begin(), [this](double length) { return length * width_; });
}

LineFeeder::LineFeeder(const DrawingPath& path, const Sides& visible, const PenForm& pen)
    : path_(path), reached_(visible.grownBy(std::max(pen.width(), kThinnest) / 2 * kMiterLimit)), pen_(pen) {}

bool LineFeeder::appendSome(FigureSink& sink) {
    const std::span<const double> lengths = pen_.lengths();
    LineCutter cutter(sink, reached_.grownBy(kCutAway), std::accumulate(lengths.begin(), lengths.end(), 0.0));
    std::size_t appended = 0;
    while (next_ < path_.points.size() && appended < kPointsAtOnce) {
        const Figure figure = figureAt(path_, next_);
        next_ += figure.points.size();
        const Reach reach = reachOf(figure, reached_);
        if (reach == Reach::Nowhere) continue;
        appended += figure.points.size();
        if (reach == Reach::Near) append(sink, figure);
        if (reach == Reach::Far) append(cutter, figure);
        cutter.finish();
    }
    return appended > 0;
}

}  // namespace ovaline::platform
