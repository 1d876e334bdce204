#include "render/copies.h"

#include <cmath>

namespace ovaline {

namespace {

constexpr float kQuarterPixel = 0.25f;

bool touches(const Extent& a, const Extent& b) {
    return a.left <= b.right && a.right >= b.left && a.top <= b.bottom && a.bottom >= b.top;
}

bool holds(const Extent& outer, const Extent& inner) {
    return inner.left >= outer.left && inner.right <= outer.right && inner.top >= outer.top &&
           inner.bottom <= outer.bottom;
}

Extent moved(const Extent& extent, PointF offset) {
    Extent result;
    result.include(extent, offset);
    return result;
}

/// One figure of a path.
struct Figure {
    std::size_t first = 0;
    std::size_t count = 0;
    Extent extent;  ///< control points included
};

/// Points and types cut into figures.
struct Figures {
    std::vector<PointF> points;
    std::vector<std::uint8_t> types;
    std::vector<Figure> figures;

    void add(PointF point, std::uint8_t type) {
        if (type == PathPointTypeStart) figures.push_back({points.size(), 0, {}});
        ++figures.back().count;
        figures.back().extent.include(point);
        points.push_back(point);
        types.push_back(type);
    }
};

Figures figuresOf(const GraphicsPath& path) {
    Figures all;
    for (std::size_t i = 0; i < path.size(); ++i) all.add(path.points()[i], path.types()[i]);
    return all;
}

/// Without the ends of lines that are nearer than `apart` to the point before, but for the last of a figure.
Figures thinned(const Figures& all, float apart) {
    Figures thin;
    for (const Figure& figure : all.figures) {
        for (std::size_t i = figure.first; i < figure.first + figure.count; ++i) {
            const PointF point = all.points[i];
            const bool needed = all.types[i] != PathPointTypeLine || i + 1 == figure.first + figure.count;
            const PointF kept = thin.points.empty() ? PointF() : thin.points.back();
            if (needed || std::hypot(point.X - kept.X, point.Y - kept.Y) >= apart) thin.add(point, all.types[i]);
        }
    }
    return thin;
}

/// The copies of a path that reach into what is seen.
class SeenCopies {
public:
    SeenCopies(const CopyGrid& copies, const ToPixels& toPixels, const Extent& seen, const Extent& one)
        : toPixels_(toPixels), seen_(seen), one_(one) {
        for (std::int32_t j = 0; j < copies.rows; ++j)
            for (std::int32_t i = 0; i < copies.columns; ++i)
                if (touches(pixels(one, copies.offset(i, j)), seen)) offsets_.push_back(copies.offset(i, j));
    }

    std::size_t countPoints(const Figures& all) const {
        std::size_t count = 0;
        for (const PointF offset : offsets_) {
            if (holds(seen_, pixels(one_, offset)))
                count += all.points.size();
            else
                for (const Figure& figure : all.figures)
                    if (touches(pixels(figure.extent, offset), seen_)) count += figure.count;
        }
        return count;
    }

    template <typename Visit>
    void forEach(const Figures& all, Visit&& visit) const {
        for (const PointF offset : offsets_)
            for (const Figure& figure : all.figures)
                if (touches(pixels(figure.extent, offset), seen_)) visit(figure, offset);
    }

private:
    Extent pixels(const Extent& extent, PointF offset) const { return toPixels_.mapExtent(moved(extent, offset)); }

    const ToPixels& toPixels_;
    const Extent& seen_;
    const Extent& one_;
    std::vector<PointF> offsets_;
};

}  // namespace

Extent ToPixels::mapExtent(const Extent& extent) const {
    Extent result;
    if (extent.empty()) return result;
    result.include(map(PointF{extent.left, extent.top}));
    result.include(map(PointF{extent.right, extent.bottom}));
    return result;
}

DrawnPath::DrawnPath(const GraphicsPath& path, const CopyGrid& copies, const ToPixels& toPixels, const Extent& seen) {
    Figures all = figuresOf(path);
    Extent one;
    for (const Figure& figure : all.figures) one.include(figure.extent, {});
    const SeenCopies seenCopies(copies, toPixels, seen, one);
    std::size_t count = seenCopies.countPoints(all);
    if (count > kMostDrawnPoints) {
        all = thinned(all, kQuarterPixel / std::abs(toPixels.scale));
        count = seenCopies.countPoints(all);
    }
    const std::size_t every = 1 + count / (kMostDrawnPoints + 1);
    points_.reserve(count / every);
    types_.reserve(count / every);
    std::size_t number = 0;
    seenCopies.forEach(all, [&](const Figure& figure, PointF offset) {
        if (number++ % every != 0) return;
        for (std::size_t i = figure.first; i < figure.first + figure.count; ++i) {
            const PointF at = toPixels.map({all.points[i].X + offset.X, all.points[i].Y + offset.Y});
            points_.push_back({at.X, at.Y});
            types_.push_back(all.types[i]);
        }
    });
}

}  // namespace ovaline
