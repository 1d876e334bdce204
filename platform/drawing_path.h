// Paths as a drawing engine takes them: whatever could overflow its coordinates is cut off far outside the picture.
#pragma once

#include <cstddef>

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

/// The engines' coordinates end at 2^23 or beyond; widths and joins of lines need some of that.
constexpr double kFarthest = 1e6;

struct Place {
    double x = 0;
    double y = 0;
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

/// Appends the figures that reach into `seen` as areas. An area that goes beyond `kFarthest` is cut there.
void appendAreas(FigureSink& sink, const DrawingPath& path, const Sides& seen);

/// The figures of a path as lines, in pieces of bounded size.
class LineFeeder {
public:
    /// Figures that don't reach into `seen`, the picture grown by half the lines' width, are left out.
    LineFeeder(const DrawingPath& path, const Sides& seen) : path_(path), seen_(seen) {}

    /// Appends figures until they have many points. False where there are none left.
    bool appendSome(FigureSink& sink);

private:
    DrawingPath path_;
    Sides seen_;
    std::size_t next_ = 0;
};

}  // namespace ovaline::platform
