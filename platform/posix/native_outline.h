// Conversion of the font engine's outlines into the published native form.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/native_outline_writer.h"

namespace ovaline::platform {

/// A point of a TrueType contour, in 1/64 dots, y upward; off the curve it is a control point of a quadratic spline.
struct OutlinePoint {
    std::int64_t x = 0;
    std::int64_t y = 0;
    bool isOnCurve = true;
};

/// FIXED coordinate of `value` 1/64 dots. The six fraction bits are repeated to fill the sixteen, so 63/64 becomes
/// 0xFFFF/0x10000. No value where the integer part does not fit 16 bits.
std::optional<std::int32_t> fixedOf(std::int64_t value);

/// TTPOLYGONHEADER and TTPOLYCURVE records of the contours; contour i ends with the point contourEnds[i], the ends
/// ascend and lie within `points`. With `flip` every y is negated. Contours of one point draw nothing and are dropped.
/// A contour closes with an implied straight segment to its start. No value where a coordinate does not fit a FIXED
/// or a spline has more points than one record holds.
std::optional<std::vector<std::byte>> nativePolygons(std::span<const OutlinePoint> points,
                                                     std::span<const std::size_t> contourEnds, bool flip);

}  // namespace ovaline::platform
