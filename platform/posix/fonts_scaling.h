// The rules by which sizes and design units become dots: the rounding of the Windows font engine, one function a rule.
#pragma once

#include <cstdint>
#include <optional>

namespace ovaline::platform {

/// The font's vertical measures in design units. `unitsPerEm` is positive, `ascent + descent` too.
struct CellUnits {
    std::int32_t unitsPerEm = 0;
    std::int32_t ascent = 0;
    std::int32_t descent = 0;
};

/// a * b / c, rounded to the nearest, halves away from zero. `c` positive, |a * b| below 2^62.
std::int64_t mulDiv(std::int64_t a, std::int64_t b, std::int64_t c);

/// Dots per em for LOGFONT's `lfHeight`: a cell height if positive, never exceeded by the font's ascent plus descent;
/// an em height if negative. At least 1. No value for 0 and beyond what the font engine scales to.
std::optional<std::int32_t> dotsPerEm(std::int32_t lfHeight, const CellUnits& cell);

/// tmAscent and tmDescent: design units in whole dots, at a scale that is rounded to 16.16. `units` not negative.
std::int32_t cellDots(std::int32_t units, std::int32_t ppem, std::int32_t unitsPerEm);

/// gmCellIncX of an advance in 1/64 dots: rounded up.
std::int32_t advanceDots(std::int64_t advance);

/// iKernAmount of a kerning value in design units.
std::int32_t kerningDots(std::int32_t units, std::int32_t ppem, std::int32_t unitsPerEm);

/// By how many 1/64 dots a made-up bold face is wider and higher than the face it is made of.
std::int32_t emboldeningStrength(std::int32_t ppem);

/// By how many 1/64 dots a made-up italic face moves a point at height `y` (1/64 dots, upward) to the right: a
/// quarter of it, rounded to the nearest.
std::int64_t slantShift(std::int64_t y);

}  // namespace ovaline::platform
