#include "output/outline_section.h"

#include <cmath>

#include "platform/numbers.h"

namespace ovaline {

namespace {

// Slopes whose angles (radians) differ by less do not count as a turn.
constexpr double kTurn = 0.4;

bool closes(std::uint8_t type) {
    return type & PathPointTypeCloseSubpath;
}
bool starts(std::uint8_t type) {
    return (type & PathPointTypePathTypeMask) == PathPointTypeStart;
}

/// Whole dots of a segment's length.
std::int32_t wholeLength(PointF a, PointF b) {
    const double dx = static_cast<double>(b.X) - a.X;
    const double dy = static_cast<double>(b.Y) - a.Y;
    return truncateToInt32(std::sqrt(dx * dx + dy * dy));
}

/// Whether the path hardly turns at `b`. An upright segment on either side never counts as a turn.
bool hardlyTurns(PointF a, PointF b, PointF c) {
    const float dxIn = b.X - a.X, dyIn = b.Y - a.Y;
    const float dxOut = c.X - b.X, dyOut = c.Y - b.Y;
    if (dxIn == 0 || dxOut == 0) return true;
    // Taken in double precision and rounded: the single-precision arc tangents of two C libraries differ.
    const float in = static_cast<float>(std::atan(static_cast<double>(dyIn / dxIn)));
    const float out = static_cast<float>(std::atan(static_cast<double>(dyOut / dxOut)));
    return std::abs(out - in) < kTurn;
}

/// Whether the figure from `first` to `last` needs a segment back to its start.
bool needsClosing(const GraphicsPath& text, std::size_t first, std::size_t last) {
    return closes(text.types()[last]) && text.points()[last] != text.points()[first];
}

}  // namespace

void writeOutlineSection(const GraphicsPath& text, std::int32_t stepDistance, RecordSink& sink) {
    const std::span<const PointF> p = text.points();
    const std::span<const std::uint8_t> types = text.types();
    std::int64_t marked = 0;  // whole dots since the last counted "d", through all figures
    std::size_t first = 0;
    for (std::size_t i = 0; i < p.size(); ++i) {
        if (starts(types[i])) {
            first = i;
            sink.write({'u', p[i].X, p[i].Y});
            continue;
        }
        char code = 'd';
        if (!closes(types[i])) {
            marked += wholeLength(p[i - 1], p[i]);
            const bool last = i + 1 == p.size() || starts(types[i + 1]);
            if (marked >= stepDistance)
                marked = 0;
            else if (!last && hardlyTurns(p[i - 1], p[i], p[i + 1]))
                code = 'x';
        }
        sink.write({code, p[i].X, p[i].Y});
        if (needsClosing(text, first, i)) sink.write({'d', p[first].X, p[first].Y});
    }
}

std::vector<Segment> outlineEdges(const GraphicsPath& text) {
    const std::span<const PointF> p = text.points();
    const std::span<const std::uint8_t> types = text.types();
    std::vector<Segment> edges;
    edges.reserve(p.size());
    std::size_t first = 0;
    for (std::size_t i = 0; i < p.size(); ++i) {
        if (starts(types[i])) first = i;
        const bool closing = needsClosing(text, first, i);
        if (closing) edges.push_back({p[i], p[first]});
        if (!closes(types[i]) && i + 1 < p.size()) edges.push_back({p[i], p[i + 1]});
    }
    return edges;
}

}  // namespace ovaline
