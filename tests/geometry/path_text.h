// Paths as short strings: M start, L line point, C the three points of a cubic, Z a closed figure.
#pragma once

#include <sstream>
#include <string>

#include "geometry/path_writer.h"

namespace ovaline {

inline std::string describe(const GraphicsPath& path) {
    std::ostringstream text;
    for (std::size_t i = 0; i < path.size(); ++i) {
        const std::uint8_t type = path.types()[i];
        text << (i > 0 ? " " : "") << "ML?C????"[type & PathPointTypePathTypeMask];
        text << path.points()[i].X << ',' << path.points()[i].Y;
        if (type & PathPointTypeCloseSubpath) text << " Z";
    }
    return text.str();
}

/// The path that a string like "M0,0 L10,0 L10,10 Z M5,5 C1,1 C2,2 C3,3" describes.
inline GraphicsPath pathFrom(const std::string& text) {
    GraphicsPath path;
    PathWriter writer(path);
    std::istringstream stream(text);
    for (char kind = 0, comma = 0; stream >> kind;) {
        PointF point;
        stream >> point.X >> comma >> point.Y >> std::ws;
        const bool closed = stream.peek() == 'Z';
        if (closed) stream.get();
        const int type = kind == 'M' ? PathPointTypeStart : kind == 'L' ? PathPointTypeLine : PathPointTypeBezier;
        writer.add(point, static_cast<std::uint8_t>(type | (closed ? PathPointTypeCloseSubpath : 0)));
        writer.setFigureOpen(!closed);
    }
    return path;
}

inline RectF boundsOf(const GraphicsPath& path) {
    RectF bounds;
    GdipGetPathWorldBounds(path, bounds);
    return bounds;
}

}  // namespace ovaline
