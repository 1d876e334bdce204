// Paths as a drawing engine takes them. An engine's time and memory grow with the size of what it is given, be it seen
// or not, and its coordinates end somewhere: so figures that go far beyond the picture are cut to what is seen of them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/drawing.h"

namespace ovaline::platform {

/// Sides of a rectangle, in pixels.
struct Sides {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;

    Sides grownBy(double margin) const { return {left - margin, top - margin, right + margin, bottom + margin}; }
};

struct Place {
    double x = 0;
    double y = 0;

    bool operator==(const Place&) const = default;
};

/// Takes figures one after the other.
class FigureSink {
public:
    virtual void moveTo(Place start) = 0;
    virtual void lineTo(Place end) = 0;
    virtual void curveTo(Place control1, Place control2, Place end) = 0;
    virtual void close() = 0;

protected:
    ~FigureSink() = default;
};

/// A path of one closed figure that holds its own points.
template <std::size_t count>
struct Outline {
    std::array<DrawingPoint, count> points;
    std::array<std::uint8_t, count> types;

    operator DrawingPath() const { return {points, types}; }
};

Outline<4> boxOutline(const DrawingBox& box);
/// The ellipse inscribed in the box.
Outline<13> ellipseOutline(const DrawingBox& box);

/// Whether a shape that fills the box is small enough to be given to an engine as it is.
bool isNear(const DrawingBox& box, const Sides& visible);

/// Appends the figures that reach into what is visible as areas.
void appendAreas(FigureSink& sink, const DrawingPath& path, const Sides& visible);

/// Of corners, in pen widths: how far a line's ink reaches to both sides.
constexpr double kMiterLimit = 10;

/// A pen of positive width as lines are fed for it.
class PenForm {
public:
    explicit PenForm(const Pen& pen);

    /// Pixels; bounded, for a line through the picture that is still wider covers all of it.
    double width() const { return width_; }
    /// Of dashes and gaps in turn, in pixels; none for a solid line.
    std::span<const double> lengths() const { return std::span(lengths_).first(count_); }
    /// How much of the colour's opacity a line gets: dashes too short to be told apart become one that is solid and
    /// fainter.
    double ink() const { return ink_; }

private:
    double width_;
    double ink_ = 1;
    std::array<double, 6> lengths_{};
    std::size_t count_ = 0;
};

/// The figures of a path as lines, in pieces of bounded size.
class LineFeeder {
public:
    /// Figures whose ink doesn't reach into what is visible are left out.
    LineFeeder(const DrawingPath& path, const Sides& visible, const PenForm& pen);

    /// Appends figures until they have many points. False where there are none left.
    bool appendSome(FigureSink& sink);

private:
    DrawingPath path_;
    Sides reached_;
    const PenForm& pen_;
    std::size_t next_ = 0;
};

}  // namespace ovaline::platform
