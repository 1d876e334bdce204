// Enumerations of the interface that give the geometry its meaning.
#pragma once

#include <cstdint>

namespace ovaline {

/// Whether glyph outlines are areas or open strokes.
enum _txtfontstyle : std::int32_t { TrueType = 0, SingleStroke = 1 };

/// Direction in which the text runs along the ellipse.
enum _txtdirection : std::int32_t { Clockwise = 0, CounterClockwise = 1 };

/// Line of the band of text that the guide curve shows. It does not move the text.
enum _pathtype : std::int32_t { Center = 0, Baseline = 1, Descender = 2, Ascender = 3 };

enum _fillstyle : std::int32_t { NoFilling = 0, Solid = 1, Line = 2, Cross = 3 };

}  // namespace ovaline
