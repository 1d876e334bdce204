// Paths as short strings: M start, L line point, C the three points of a cubic, Z a closed figure.
#pragma once

#include <cstdlib>
#include <sstream>
#include <string>

#include "geometry/graphics_path.h"

namespace ovaline {

inline std::string describe(const GraphicsPath& path) {
    std::ostringstream text;
    const auto point = [&](std::size_t i) { text << path.points()[i].X << ',' << path.points()[i].Y; };
    for (std::size_t i = 0; i < path.size(); ++i) {
        const std::uint8_t type = path.types()[i];
        if (i > 0) text << ' ';
        switch (type & PathPointTypePathTypeMask) {
            case PathPointTypeStart:
                text << 'M';
                break;
            case PathPointTypeLine:
                text << 'L';
                break;
            default:
                text << 'C';
        }
        point(i);
        if (type & PathPointTypeCloseSubpath) text << " Z";
    }
    return text.str();
}

/// The path that a string like "M0,0 L10,0 L10,10 Z M5,5 C1,1 C2,2 C3,3" describes.
inline GraphicsPath pathFrom(const std::string& text) {
    GraphicsPath path;
    std::istringstream stream(text);
    std::vector<PointF> points;
    std::vector<std::uint8_t> types;
    const auto flush = [&](bool close) {
        if (points.empty()) return;
        GdipStartPathFigure(path);
        for (std::size_t i = 1; i < points.size(); ++i) {
            const PointF a = points[i - 1], b = points[i];
            if (types[i] == PathPointTypeBezier) {
                GdipAddPathBezier(path, a.X, a.Y, b.X, b.Y, points[i + 1].X, points[i + 1].Y, points[i + 2].X,
                                  points[i + 2].Y);
                i += 2;
            } else {
                GdipAddPathLine(path, a.X, a.Y, b.X, b.Y);
            }
        }
        if (close) GdipClosePathFigure(path);
        points.clear();
        types.clear();
    };
    for (std::string word; stream >> word;) {
        if (word == "Z") {
            flush(true);
            continue;
        }
        if (word[0] == 'M') flush(false);
        char* end = nullptr;
        const float x = std::strtof(word.c_str() + 1, &end);
        const float y = std::strtof(end + 1, nullptr);
        points.push_back({x, y});
        types.push_back(word[0] == 'C' ? PathPointTypeBezier : PathPointTypeLine);
    }
    flush(false);
    return path;
}

inline RectF boundsOf(const GraphicsPath& path) {
    RectF bounds;
    GdipGetPathWorldBounds(path, bounds);
    return bounds;
}

}  // namespace ovaline
