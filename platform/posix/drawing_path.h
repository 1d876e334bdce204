// Paths as Cairo takes them: whatever could overflow its fixed-point coordinates is cut off far outside the picture.
#pragma once

#include <cairo.h>

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

/// Cairo's coordinates end at 2^23; widths and joins of lines need some of that.
constexpr double kFarthest = 1e6;

/// Appends the figures that reach into `seen` as areas. An area that goes beyond `kFarthest` is cut there.
void appendAreas(cairo_t* context, const DrawingPath& path, const Sides& seen);

/// The figures of a path as lines, in pieces of bounded size.
class LineFeeder {
public:
    /// Figures that don't reach into `seen`, the picture grown by half the lines' width, are left out.
    LineFeeder(const DrawingPath& path, const Sides& seen) : path_(path), seen_(seen) {}

    /// Appends figures until they have many points. False where there are none left.
    bool appendSome(cairo_t* context);

private:
    DrawingPath path_;
    Sides seen_;
    std::size_t next_ = 0;
};

}  // namespace ovaline::platform
