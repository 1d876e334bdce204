// Writing of glyph outlines in the published native form.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace ovaline::platform {

/// POINTFX: a point in 16.16 FIXED. A FIXED's two halves, fraction first, are the little-endian bytes of the number.
struct FixedPoint {
    std::int32_t x = 0;
    std::int32_t y = 0;
    bool operator==(const FixedPoint&) const = default;
};

/// Most points that one TTPOLYCURVE holds: its count `cpfx` has 16 bits.
inline constexpr std::size_t kMostPointsOfRecord = 0xFFFF;

/// Writes TTPOLYGONHEADER and TTPOLYCURVE records, each field by itself and little-endian on every platform.
/// Published layout: Windows SDK, wingdi.h, GetGlyphOutline with GGO_NATIVE.
class NativeOutlineWriter {
public:
    /// Starts a contour; the one before must have been ended.
    void beginContour(FixedPoint start);

    /// Straight segments to each of `points` (TT_PRIM_LINE), in as many records as their number needs.
    void line(std::span<const FixedPoint> points);

    /// Quadratic spline (TT_PRIM_QSPLINE): control points, then the point it ends in; consecutive control points imply
    /// the point midway. 2 to kMostPointsOfRecord points.
    void qspline(std::span<const FixedPoint> points);

    /// Ends the contour: its header takes the size of what was written since.
    void endContour();

    /// Hands over what was written and starts afresh.
    std::vector<std::byte> take();

private:
    void curve(std::uint16_t type, std::span<const FixedPoint> points);
    void put16(std::uint32_t value);
    void put32(std::uint32_t value);
    void putPoint(FixedPoint point);

    std::vector<std::byte> bytes_;
    std::size_t header_ = 0;
};

}  // namespace ovaline::platform
