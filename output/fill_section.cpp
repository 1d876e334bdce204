#include "output/fill_section.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "output/hatch_family.h"

namespace ovaline {

namespace {

// Lines that are worked on together: their crossings stay in the processor's cache.
constexpr std::size_t kBandLines = 128;

bool crossesBefore(PointF a, PointF b) {
    if (a.X != b.X) return a.X < b.X;
    if (a.Y != b.Y) return a.Y < b.Y;
    // Equal points may still differ in the sign of a zero; their order must not depend on the order of the edges.
    if (std::signbit(a.X) != std::signbit(b.X)) return std::signbit(a.X);
    return std::signbit(a.Y) && !std::signbit(b.Y);
}

/// Sorts crossings that arrive almost in order.
void sortCrossings(std::span<PointF> crossings) {
    std::size_t patience = 4 * crossings.size() + 16;
    for (std::size_t i = 1; i < crossings.size(); ++i) {
        const PointF moved = crossings[i];
        std::size_t at = i;
        for (; at > 0 && crossesBefore(moved, crossings[at - 1]); --at) crossings[at] = crossings[at - 1];
        crossings[at] = moved;
        if (i - at > patience) {
            std::ranges::sort(crossings, crossesBefore);
            return;
        }
        patience -= i - at;
    }
}

/// An edge, its position along the lines, and the lines of the family that it can cross.
struct Reach {
    float along;
    std::uint32_t edge;
    LineRange lines;
};

struct Sizes {
    double largest = 0;
    double longestEdge = 0;
};

Sizes measure(std::span<const Segment> edges, std::span<const Segment> hatch) {
    Sizes extent;
    const auto include = [&extent](const Segment& s) {
        for (const float value : {s.from.X, s.from.Y, s.to.X, s.to.Y})
            if (!(std::abs(value) <= extent.largest)) extent.largest = std::abs(value);
    };
    double squaredLongest = 0;
    for (const Segment& edge : edges) {
        include(edge);
        const double dx = static_cast<double>(edge.to.X) - edge.from.X;
        const double dy = static_cast<double>(edge.to.Y) - edge.from.Y;
        squaredLongest = std::max(squaredLongest, dx * dx + dy * dy);
    }
    extent.longestEdge = std::sqrt(squaredLongest);
    std::ranges::for_each(hatch, include);
    return extent;
}

/// The lines of a band, one array a coordinate, and where an edge crosses them.
struct BandLines {
    float fromX[kBandLines], fromY[kBandLines], deltaX[kBandLines], deltaY[kBandLines];
    float left[kBandLines], right[kBandLines], top[kBandLines], bottom[kBandLines];
    bool anyUpright = false;

    std::uint32_t found[kBandLines];  ///< 1 where the edge crosses the line
    float crossingX[kBandLines], crossingY[kBandLines];

    void prepare(std::span<const Segment> lines) {
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const PreparedSegment& line = lines_[i] = PreparedSegment(lines[i]);
            fromX[i] = line.from.X;
            fromY[i] = line.from.Y;
            deltaX[i] = line.delta.X;
            deltaY[i] = line.delta.Y;
            left[i] = line.left;
            right[i] = line.right;
            top[i] = line.top;
            bottom[i] = line.bottom;
            anyUpright |= line.upright();
        }
    }

    /// Crosses the lines from `begin` on with the edge. Where nothing is upright the rule has no branches, and the
    /// compiler carries it out on several lines at a time.
    void cross(const PreparedSegment& edge, std::uint32_t begin, std::uint32_t end) {
        if (anyUpright || edge.upright()) {
            for (std::uint32_t i = begin; i < end; ++i) {
                PointF point;
                found[i] = findCrossing(edge, lines_[i], point) ? 1 : 0;
                crossingX[i] = point.X;
                crossingY[i] = point.Y;
            }
            return;
        }
        for (std::uint32_t i = begin; i < end; ++i) {
            PreparedSegment line;
            line.from = {fromX[i], fromY[i]};
            line.delta = {deltaX[i], deltaY[i]};
            line.left = left[i];
            line.right = right[i];
            line.top = top[i];
            line.bottom = bottom[i];
            PointF point;
            found[i] = detail::findSlantedCrossing(edge, line, point) ? 1 : 0;
            crossingX[i] = point.X;
            crossingY[i] = point.Y;
        }
    }

private:
    PreparedSegment lines_[kBandLines];
};

class FillWriter {
public:
    FillWriter(std::span<const Segment> edges, RecordSink& sink) : edges_(edges), sink_(sink) {}

    void write(const HatchFamily& family, std::span<const Segment> lines, std::size_t firstIndex) {
        collect(family);
        for (std::size_t band = 0; band + 1 < bandStart_.size() && sink_.fits(); ++band) {
            const std::size_t begin = band * kBandLines;
            const std::size_t end = std::min(begin + kBandLines, lines.size());
            writeBand(std::span(reaches_).subspan(bandStart_[band], bandStart_[band + 1] - bandStart_[band]),
                      lines.subspan(begin, end - begin), static_cast<std::uint32_t>(begin), firstIndex + begin);
        }
    }

private:
    /// Lists, band by band, the edges that reach it.
    void collect(const HatchFamily& family) {
        std::vector<LineRange> ranges(edges_.size());
        bandStart_.assign((family.size() + kBandLines - 1) / kBandLines + 1, 0);
        for (std::size_t i = 0; i < edges_.size(); ++i) {
            ranges[i] = family.candidates(edges_[i]);
            for (std::size_t band = firstBand(ranges[i]); band < endBand(ranges[i]); ++band) ++bandStart_[band + 1];
        }
        for (std::size_t band = 1; band < bandStart_.size(); ++band) bandStart_[band] += bandStart_[band - 1];
        reaches_.resize(bandStart_.back());
        std::vector<std::size_t> next(bandStart_.begin(), bandStart_.end() - 1);
        for (std::size_t i = 0; i < edges_.size(); ++i) {
            if (ranges[i].begin >= ranges[i].end) continue;
            const Reach reach{family.along(edges_[i]), static_cast<std::uint32_t>(i), ranges[i]};
            for (std::size_t band = firstBand(ranges[i]); band < endBand(ranges[i]); ++band)
                reaches_[next[band]++] = reach;
        }
    }

    static std::size_t firstBand(LineRange range) { return range.begin / kBandLines; }
    static std::size_t endBand(LineRange range) {
        return range.begin < range.end ? (range.end - 1) / kBandLines + 1 : firstBand(range);
    }

    /// Brings the reaches into the order of their positions, but for those that lie close together: a distribution into
    /// equal intervals (Knuth, "The Art of Computer Programming", 5.2.5), in linear time.
    void order(std::span<Reach> reaches) {
        if (reaches.size() < 2) return;
        const auto [least, most] = std::ranges::minmax(reaches, {}, &Reach::along);
        const double extent = static_cast<double>(most.along) - least.along;
        if (!(extent > 0)) return;
        // Rounding may carry the last position one interval too far, never further.
        const double intervalsPerDot = static_cast<double>(reaches.size() - 1) / extent;
        const auto interval = [intervalsPerDot, start = static_cast<double>(least.along)](const Reach& reach) {
            return static_cast<std::uint32_t>((static_cast<double>(reach.along) - start) * intervalsPerDot);
        };
        intervalStart_.assign(reaches.size() + 2, 0);
        for (const Reach& reach : reaches) ++intervalStart_[interval(reach) + 1];
        for (std::size_t i = 1; i < intervalStart_.size(); ++i) intervalStart_[i] += intervalStart_[i - 1];
        unordered_.assign(reaches.begin(), reaches.end());
        for (const Reach& reach : unordered_) reaches[intervalStart_[interval(reach)]++] = reach;
    }

    void writeBand(std::span<Reach> reaches, std::span<const Segment> lines, std::uint32_t bandBegin,
                   std::size_t firstIndex) {
        const auto count = static_cast<std::uint32_t>(lines.size());
        const auto clamped = [&](std::uint32_t line) {
            return line <= bandBegin ? 0 : std::min(line - bandBegin, count);
        };
        // In this order each line's crossings arrive almost sorted.
        order(reaches);
        // Room for each line's candidates, then the crossings into it.
        std::size_t changes[kBandLines + 1] = {};
        for (const Reach& reach : reaches) {
            ++changes[clamped(reach.lines.begin)];
            --changes[clamped(reach.lines.end)];
        }
        std::size_t start[kBandLines + 1];
        std::size_t next[kBandLines];
        std::size_t total = 0, open = 0;
        for (std::uint32_t line = 0; line < count; ++line) {
            start[line] = next[line] = total;
            open += changes[line];
            total += open;
        }
        if (crossings_.size() < total) crossings_.resize(total);
        BandLines prepared;
        prepared.prepare(lines);
        for (const Reach& reach : reaches) {
            const PreparedSegment edge(edges_[reach.edge]);
            const std::uint32_t begin = clamped(reach.lines.begin), end = clamped(reach.lines.end);
            prepared.cross(edge, begin, end);
            for (std::uint32_t line = begin; line < end; ++line) {
                crossings_[next[line]] = {prepared.crossingX[line], prepared.crossingY[line]};
                next[line] += prepared.found[line];
            }
        }
        for (std::uint32_t line = 0; line < count; ++line)
            writeLine(std::span(crossings_).subspan(start[line], next[line] - start[line]), firstIndex + line);
    }

    void writeLine(std::span<PointF> crossings, std::size_t index) {
        sortCrossings(crossings);
        const std::size_t count = crossings.size();
        for (std::size_t i = 0; i < count; ++i) {
            const PointF point = index % 2 == 0 ? crossings[i] : crossings[count - 1 - i];
            sink_.write({i % 2 == 0 ? 'U' : 'D', point.X, point.Y});
        }
    }

    std::span<const Segment> edges_;
    RecordSink& sink_;
    std::vector<Reach> reaches_;
    std::vector<std::size_t> bandStart_;  // index of each band's first reach, and their number
    std::vector<PointF> crossings_;
    std::vector<std::uint32_t> intervalStart_;  // of `order`
    std::vector<Reach> unordered_;              // of `order`
};

}  // namespace

void writeFillSection(std::span<const Segment> edges, std::span<const Segment> hatch, RecordSink& sink) {
    const Sizes extent = measure(edges, hatch);
    FillWriter writer(edges, sink);
    for (std::size_t done = 0; done < hatch.size() && sink.fits();) {
        const HatchFamily family(hatch.subspan(done), extent.largest, extent.longestEdge);
        writer.write(family, hatch.subspan(done, family.size()), done);
        done += family.size();
    }
}

}  // namespace ovaline
