#include "output/hatch_family.h"

#include <cmath>

namespace ovaline {

namespace {

constexpr double kSingleRounding = 1.0 / (1 << 24);  // half a unit in the last place, relative

// The rule's rounding errors: a dozen roundings, each of products of coordinates divided by the line's length, moves
// the tested position by less than this many roundings of the largest coordinate.
constexpr double kRoundings = 32;

// Beyond this the rule's products overflow, and what it then reports follows no geometry.
constexpr double kLargestCoordinate = 1e17;

// Lines that differ by more than this angle (radians) belong to different families.
constexpr double kParallel = 1e-3;

double length(const Segment& s) {
    return std::hypot(static_cast<double>(s.to.X) - s.from.X, static_cast<double>(s.to.Y) - s.from.Y);
}

/// First index of [0, count) for which `after` holds, where it holds for all further ones too; found from `guess` in
/// steps that double, so that a good guess costs little and a bad one no more than a logarithm.
template <typename After>
std::size_t boundary(std::size_t count, std::size_t guess, After after) {
    std::size_t low = guess, high = guess;  // after(i) is false below low and true from high on
    for (std::size_t step = 1; low > 0 && after(low - 1); step *= 2) {
        high = low - 1;
        low = low > step ? low - step : 0;
    }
    for (std::size_t step = 1; high < count && !after(high); step *= 2) {
        low = high + 1;
        high = count - high > step ? high + step : count;
    }
    while (low < high) {
        const std::size_t half = low + (high - low) / 2;
        if (after(half))
            high = half;
        else
            low = half + 1;
    }
    return low;
}

}  // namespace

HatchFamily::HatchFamily(std::span<const Segment> lines, double largest, double longestEdge) {
    const bool overflowing = !(largest <= kLargestCoordinate);
    const double reference = length(lines[0]);
    everyLine_ = overflowing || reference == 0;
    if (everyLine_) {
        count_ = overflowing ? lines.size() : 1;
        return;
    }
    normalX_ = -(static_cast<double>(lines[0].to.Y) - lines[0].from.Y) / reference;
    normalY_ = (static_cast<double>(lines[0].to.X) - lines[0].from.X) / reference;
    const double noise = kRoundings * kSingleRounding * largest;
    double shortest = reference;
    for (count_ = 1; count_ < lines.size(); ++count_) {
        const Segment& line = lines[count_];
        const double lean = std::abs(position(line.from) - position(line.to));
        const double extent = length(line);
        if (lean > kParallel * extent + noise) break;
        if (extent > 0 && extent < shortest) shortest = extent;
    }
    // Where products underflow they lose up to 2^-149 each, whatever the coordinates.
    margin_ = noise + 0x1p-140 + 0x1p-140 / shortest;
    index(lines.first(count_), largest, longestEdge);
}

void HatchFamily::index(std::span<const Segment> lines, double largest, double longestEdge) {
    const auto middle = [this](const Segment& s) { return (position(s.from) + position(s.to)) / 2; };
    descending_ = middle(lines.back()) < middle(lines.front());
    if (descending_) {
        normalX_ = -normalX_;
        normalY_ = -normalY_;
    }
    lowest_.resize(count_);
    highest_.resize(count_);
    for (std::size_t i = 0; i < count_; ++i) {
        const double a = position(lines[i].from), b = position(lines[i].to);
        // A crossing lies within an edge's length of the line's box; out there a line that leans against the family's
        // direction has moved that much further. An upright line in a slanted family may even be crossed anywhere in
        // its box.
        const double extent = length(lines[i]);
        const bool upright = lines[i].from.X == lines[i].to.X && normalY_ != 0;
        const double lean = upright || extent == 0 ? 1 : std::abs(a - b) / extent;
        const double slack = lean * (longestEdge + extent) + margin_;
        lowest_[i] = std::min(a, b) - slack;
        highest_[i] = std::max(a, b) + slack;
    }
    first_ = middle(lines.front());
    const double extent = middle(lines.back()) - first_;
    linesPerDot_ = extent > kSingleRounding * largest ? static_cast<double>(count_ - 1) / extent : 0;
    for (std::size_t i = count_ - 1; i-- > 0;) lowest_[i] = std::min(lowest_[i], lowest_[i + 1]);
    for (std::size_t i = 1; i < count_; ++i) highest_[i] = std::max(highest_[i], highest_[i - 1]);
}

LineRange HatchFamily::candidates(const Segment& edge) const {
    if (everyLine_) return {0, static_cast<std::uint32_t>(count_)};
    const double a = position(edge.from), b = position(edge.to);
    const double low = std::min(a, b), high = std::max(a, b);
    // The line behind the position, if they are evenly spaced: where both boundaries most often are.
    const auto guess = [this](double at) {
        const double line = (at - first_) * linesPerDot_ + 1;
        return line > 0 ? static_cast<std::size_t>(std::min(line, static_cast<double>(count_))) : 0;
    };
    const std::size_t begin = boundary(count_, guess(low), [&](std::size_t i) { return highest_[i] >= low; });
    const std::size_t end = boundary(count_, guess(high), [&](std::size_t i) { return lowest_[i] > high; });
    return {static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(std::max(begin, end))};
}

float HatchFamily::along(const Segment& edge) const {
    if (everyLine_) return 0;
    const double x = (static_cast<double>(edge.from.X) + edge.to.X) / 2;
    const double y = (static_cast<double>(edge.from.Y) + edge.to.Y) / 2;
    // Crossings ascend in x, on upright lines in y; the lines' direction is the normal turned by a quarter.
    const double directionX = normalY_, directionY = -normalX_;
    const bool forward = directionX > 0 || (directionX == 0 && directionY > 0);
    const double along = x * directionX + y * directionY;
    return static_cast<float>(forward ? along : -along);
}

}  // namespace ovaline
