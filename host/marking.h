// What the beam does: the vector stream as strokes in millimetres, with the copies that the host repeats.
#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <span>
#include <vector>

namespace ovaline::host {

/// Millimetres, x to the right and y downwards, from the stream's origin.
struct Point {
    double x = 0;
    double y = 0;

    bool operator==(const Point&) const = default;
};

struct Box {
    double left = std::numeric_limits<double>::infinity();
    double top = std::numeric_limits<double>::infinity();
    double right = -std::numeric_limits<double>::infinity();
    double bottom = -std::numeric_limits<double>::infinity();

    void include(Point point) {
        left = std::min(left, point.x);
        top = std::min(top, point.y);
        right = std::max(right, point.x);
        bottom = std::max(bottom, point.y);
    }
    double width() const { return right - left; }
    double height() const { return bottom - top; }
};

enum class Section { Outline, Hatch };

/// One move of the beam without marking, to the first point, and the marked lines from there. A stroke of one point
/// marks nothing.
struct Stroke {
    Section section;
    std::size_t first;  ///< index of its first point
    std::size_t count;
};

/// How the copies of a static text stand; one copy where the stream holds them all.
struct Array {
    int columns = 1;
    int rows = 1;
    double columnOffset = 0;  ///< millimetres
    double rowOffset = 0;     ///< millimetres
};

/// What the control says of a result besides its vector stream.
struct Placement {
    double dotsPerMillimetre = 1;
    Array array;
    double width = 0;   ///< of one copy's result rectangle, in millimetres
    double height = 0;  ///< of one copy's result rectangle, in millimetres
};

/// What is marked: the strokes of one copy, in the order of the stream, and where the copies stand.
struct Marking {
    std::vector<Point> points;
    std::vector<Stroke> strokes;
    std::vector<Point> copies;  ///< displacement of each copy, row by row, left to right; never empty
    Box box;                    ///< holds every copy's result rectangle and every point

    std::span<const Point> pointsOf(const Stroke& stroke) const {
        return std::span(points).subspan(stroke.first, stroke.count);
    }

    /// A point of one copy in a machine's frame: y upwards, origin at the lower left corner of the box.
    Point upright(Point point, Point copy) const {
        return {point.x + copy.x - box.left, box.bottom - (point.y + copy.y)};
    }
};

/// Whether a figure ends where it began, so that it may be drawn as a closed one.
inline bool isClosed(std::span<const Point> figure) {
    return figure.size() > 3 && figure.front() == figure.back();
}

/// Reads a vector stream up to its end record. Throws Failure where it is not one, or where something lies further than
/// a kilometre away or nowhere (NaN): no machine can mark that.
Marking readMarking(std::span<const std::byte> stream, const Placement& placement);

/// Sums over all copies.
struct Totals {
    std::size_t figures = 0;     ///< outline figures
    std::size_t hatchLines = 0;  ///< hatch lines
    double marked = 0;           ///< millimetres with the beam on
    double travelled = 0;        ///< millimetres between strokes, from the first stroke's start on
};

Totals totalsOf(const Marking& marking);

}  // namespace ovaline::host
