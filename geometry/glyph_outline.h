// Glyph outlines as paths.
#pragma once

#include "geometry/graphics_path.h"
#include "platform/fonts.h"

namespace ovaline {

/// The outline of one character and its advance, in dots, origin at the character origin on the baseline: one closed
/// figure a contour, curves as cubics.
struct GlyphOutline {
    GraphicsPath outline;
    float advanceX = 0;
    float advanceY = 0;
};

/// The outline of the character code `code`; with `flip` the y axis points down. The font engine's quadratic B-splines
/// are raised to cubics. A character for which the engine reports an error has neither outline nor advance; a record
/// that is not a polygon, or that its buffer cuts off, ends the conversion with what was converted so far.
GlyphOutline BuildGlyphOutline(const platform::Font& font, char16_t code, bool flip);

/// Appends the single-stroke form of `source` to `target`: every figure open, coordinates truncated to whole dots.
/// Paths of fewer than two points add nothing.
void ConvertToSingleStroke(const GraphicsPath& source, GraphicsPath& target);

}  // namespace ovaline
