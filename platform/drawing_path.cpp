#include "platform/drawing_path.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace ovaline::platform {

namespace {

constexpr std::uint8_t kKind = 0x07;
constexpr std::uint8_t kStart = 0;
constexpr std::uint8_t kCubic = 3;
constexpr std::uint8_t kClosed = 0x80;

/// Lines are stroked in pieces of about so many points: the memory that an engine takes for one grows with it, and
/// lines of two pieces only blend where they meet in a pixel.
constexpr std::size_t kPointsAtOnce = std::size_t{1} << 11;

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
    const bool isNear = std::max({-left, right, -top, bottom}) <= static_cast<float>(kFarthest);
    return isNear ? Reach::Near : Reach::Far;
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

/// A figure that goes far outside as a polyline. Its curves are shown in chords: they span a million pixels.
std::vector<Place> polyline(const Figure& figure) {
    constexpr int kChords = 256;
    std::vector<Place> places;
    places.push_back(placeOf(figure.points[0]));
    for (std::size_t i = 1; i < figure.points.size(); ++i) {
        const DrawingPoint* p = &figure.points[i];
        if (!isCubic(figure, i)) {
            places.push_back(placeOf(*p));
            continue;
        }
        const Place from = places.back();
        for (int k = 1; k <= kChords; ++k) {
            const double t = static_cast<double>(k) / kChords, u = 1 - t;
            const auto at = [&](double a, double b, double c, double d) {
                return u * u * u * a + 3 * u * u * t * b + 3 * u * t * t * c + t * t * t * d;
            };
            places.push_back({at(from.x, p[0].X, p[1].X, p[2].X), at(from.y, p[0].Y, p[1].Y, p[2].Y)});
        }
        i += 2;
    }
    return places;
}

/// One side of the square of the engine's coordinates.
struct Side {
    double Place::*across;
    double Place::*along;
    double at;

    bool keeps(Place p) const { return at < 0 ? p.*across >= at : p.*across <= at; }
    /// Where the line from `a` to `b`, which are on different sides, meets this one.
    Place meets(Place a, Place b) const {
        Place p;
        p.*across = at;
        p.*along = a.*along + (b.*along - a.*along) * ((at - a.*across) / (b.*across - a.*across));
        return p;
    }
};
constexpr std::array<Side, 4> kSides = {{{&Place::x, &Place::y, -kFarthest},
                                         {&Place::x, &Place::y, kFarthest},
                                         {&Place::y, &Place::x, -kFarthest},
                                         {&Place::y, &Place::x, kFarthest}}};

/// Cuts one side after the other off the polygon.
void appendFarArea(FigureSink& sink, const Figure& figure) {
    std::vector<Place> polygon = polyline(figure);
    for (const Side& side : kSides) {
        std::vector<Place> kept;
        for (std::size_t i = 0; i < polygon.size(); ++i) {
            const Place from = polygon[i == 0 ? polygon.size() - 1 : i - 1];
            const Place to = polygon[i];
            if (side.keeps(from) != side.keeps(to)) kept.push_back(side.meets(from, to));
            if (side.keeps(to)) kept.push_back(to);
        }
        polygon = std::move(kept);
    }
    if (polygon.empty()) return;
    sink.moveTo(polygon.front());
    for (std::size_t i = 1; i < polygon.size(); ++i) sink.lineTo(polygon[i]);
    sink.close();
}

/// Leaves of a line what is within the engine's coordinates; false where that is nothing.
bool cutLine(Place& from, Place& to) {
    for (const Side& side : kSides) {
        if (!side.keeps(from) && !side.keeps(to)) return false;
        if (!side.keeps(from)) from = side.meets(from, to);
        if (!side.keeps(to)) to = side.meets(from, to);
    }
    return true;
}

void appendFarLines(FigureSink& sink, const Figure& figure) {
    std::vector<Place> places = polyline(figure);
    if (figure.closed()) places.push_back(places.front());
    for (std::size_t i = 1; i < places.size(); ++i) {
        Place from = places[i - 1], to = places[i];
        if (!cutLine(from, to)) continue;
        sink.moveTo(from);
        sink.lineTo(to);
    }
}

}  // namespace

void appendAreas(FigureSink& sink, const DrawingPath& path, const Sides& seen) {
    for (std::size_t first = 0; first < path.points.size();) {
        const Figure figure = figureAt(path, first);
        const Reach reach = reachOf(figure, seen);
        if (reach == Reach::Near) append(sink, figure);
        if (reach == Reach::Far) appendFarArea(sink, figure);
        first += figure.points.size();
    }
}

bool LineFeeder::appendSome(FigureSink& sink) {
    std::size_t appended = 0;
    while (next_ < path_.points.size() && appended < kPointsAtOnce) {
        const Figure figure = figureAt(path_, next_);
        next_ += figure.points.size();
        const Reach reach = reachOf(figure, seen_);
        if (reach == Reach::Nowhere) continue;
        appended += figure.points.size();
        if (reach == Reach::Near)
            append(sink, figure);
        else
            appendFarLines(sink, figure);
    }
    return appended > 0;
}

}  // namespace ovaline::platform
