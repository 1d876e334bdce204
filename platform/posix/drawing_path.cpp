#include "platform/posix/drawing_path.h"

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

/// Lines are stroked in pieces of about so many points: the memory that Cairo takes for one grows with it, and lines of
/// two pieces only blend where they meet in a pixel.
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
    if (!std::isfinite(sum)) return Reach::Nowhere;
    if (right < seen.left || left > seen.right || bottom < seen.top || top > seen.bottom) return Reach::Nowhere;
    const bool near = std::max({-left, right, -top, bottom}) <= static_cast<float>(kFarthest);
    return near ? Reach::Near : Reach::Far;
}

bool isCubic(const Figure& figure, std::size_t i) {
    return (figure.types[i] & kKind) == kCubic && i + 2 < figure.points.size();
}

void append(cairo_t* context, const Figure& figure) {
    cairo_move_to(context, figure.points[0].X, figure.points[0].Y);
    for (std::size_t i = 1; i < figure.points.size(); ++i) {
        const DrawingPoint* p = &figure.points[i];
        if (isCubic(figure, i)) {
            cairo_curve_to(context, p[0].X, p[0].Y, p[1].X, p[1].Y, p[2].X, p[2].Y);
            i += 2;
        } else {
            cairo_line_to(context, p->X, p->Y);
        }
    }
    if (figure.closed()) cairo_close_path(context);
}

struct Place {
    double x = 0;
    double y = 0;
};

/// A figure that goes far outside as a polyline. Its curves are shown in chords: they span a million pixels.
std::vector<Place> polyline(const Figure& figure) {
    constexpr int kChords = 256;
    std::vector<Place> places;
    places.push_back({figure.points[0].X, figure.points[0].Y});
    for (std::size_t i = 1; i < figure.points.size(); ++i) {
        const DrawingPoint* p = &figure.points[i];
        if (!isCubic(figure, i)) {
            places.push_back({p->X, p->Y});
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

/// One side of the square of Cairo's coordinates.
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
void appendFarArea(cairo_t* context, const Figure& figure) {
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
    cairo_new_sub_path(context);
    for (const Place place : polygon) cairo_line_to(context, place.x, place.y);
    cairo_close_path(context);
}

/// Leaves of a line what is within Cairo's coordinates; false where that is nothing.
bool cutLine(Place& from, Place& to) {
    for (const Side& side : kSides) {
        if (!side.keeps(from) && !side.keeps(to)) return false;
        if (!side.keeps(from)) from = side.meets(from, to);
        if (!side.keeps(to)) to = side.meets(from, to);
    }
    return true;
}

void appendFarLines(cairo_t* context, const Figure& figure) {
    std::vector<Place> places = polyline(figure);
    if (figure.closed()) places.push_back(places.front());
    for (std::size_t i = 1; i < places.size(); ++i) {
        Place from = places[i - 1], to = places[i];
        if (!cutLine(from, to)) continue;
        cairo_move_to(context, from.x, from.y);
        cairo_line_to(context, to.x, to.y);
    }
}

}  // namespace

void appendAreas(cairo_t* context, const DrawingPath& path, const Sides& seen) {
    for (std::size_t first = 0; first < path.points.size();) {
        const Figure figure = figureAt(path, first);
        const Reach reach = reachOf(figure, seen);
        if (reach == Reach::Near) append(context, figure);
        if (reach == Reach::Far) appendFarArea(context, figure);
        first += figure.points.size();
    }
}

bool LineFeeder::appendSome(cairo_t* context) {
    std::size_t appended = 0;
    while (next_ < path_.points.size() && appended < kPointsAtOnce) {
        const Figure figure = figureAt(path_, next_);
        next_ += figure.points.size();
        const Reach reach = reachOf(figure, seen_);
        if (reach == Reach::Nowhere) continue;
        appended += figure.points.size();
        if (reach == Reach::Near)
            append(context, figure);
        else
            appendFarLines(context, figure);
    }
    return appended > 0;
}

}  // namespace ovaline::platform
