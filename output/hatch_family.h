// Which hatch lines of a family an outline edge can cross.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "output/hatch_crossing.h"

namespace ovaline {

/// Half-open range of hatch line indices.
struct LineRange {
    std::uint32_t begin = 0;
    std::uint32_t end = 0;
};

/// A run of nearly parallel hatch lines, indexed by their position along the common normal. Given an edge it names a
/// range of lines that holds every line for which `findCrossing` can report a crossing, single-precision rounding
/// included, and few others.
class HatchFamily {
public:
    /// The longest run of nearly parallel lines at the beginning of `lines`. `largest` is the largest absolute
    /// coordinate of any edge or line, `longestEdge` the longest diagonal of an edge's bounding box, both in dots.
    HatchFamily(std::span<const Segment> lines, double largest, double longestEdge);

    /// Number of lines in the run, at least 1.
    std::size_t size() const { return count_; }
    /// Candidates for `edge`, counted from the run's first line.
    LineRange candidates(const Segment& edge) const;
    /// Position of `edge` along the lines, in the direction in which their crossings ascend; finite for every edge.
    float along(const Segment& edge) const;

private:
    double position(PointF point) const { return point.X * normalX_ + point.Y * normalY_; }
    void index(std::span<const Segment> lines, double largest, double longestEdge);

    std::size_t count_ = 0;
    double normalX_ = 0, normalY_ = 0;
    double margin_ = 0;       ///< rounding of the crossing rule, in dots along the normal
    bool everyLine_ = false;  ///< coordinates too large for the margin to be known
    bool descending_ = false;
    double first_ = 0, linesPerDot_ = 0;  ///< where the lines would be if they were evenly spaced
    std::vector<double> lowest_;          ///< smallest position of this and all further lines, ascending
    std::vector<double> highest_;         ///< largest position of this and all earlier lines, ascending
};

}  // namespace ovaline
