// Text along an ellipse, with the curves that go with it.
#pragma once

#include <string_view>

#include "geometry/enumerations.h"
#include "geometry/layout_font.h"
#include "geometry/text_on_path.h"

namespace ovaline {

/// What a layout needs. Lengths are in dots, x to the right and y downwards.
struct LayoutInput {
    std::u16string_view text;
    platform::LogFont font;
    RectF box;                           ///< bounding box of the ellipse
    float startAngle = 0;                ///< degrees counter-clockwise on the screen from three o'clock
    std::int32_t direction = Clockwise;  ///< `_txtdirection`; other values run clockwise
    std::int32_t pathType = Baseline;    ///< `_pathtype`; other values guide along the outer curve
    float spacing = 0;                   ///< character spacing in millimetres
    float dotsPerPixel = 0;
    bool flattenText = false;  ///< whether the text path is flattened to a quarter dot at the end
};

/// The result: glyph outlines; the two axes and the two ellipses that bound the band of text; the selected guide curve.
struct LayoutPaths {
    GraphicsPath text;
    GraphicsPath frame;
    GraphicsPath guide;
};

/// What all texts of one font, box and direction share: the companion curves and the run that they are laid on.
struct EllipseLayout {
    GraphicsPath frame;  ///< horizontal axis, vertical axis, inner ellipse, outer ellipse
    GraphicsPath guide;
    TextOnPath run;
};

/// The layout without its text. `font` is set to `input.font`, keeps its glyphs for the next layout and outlives this
/// one.
EllipseLayout ellipseLayout(const LayoutInput& input, platform::FontService& fonts, LayoutFont& font);

/// Lays the text along the ellipse: baseline on the ellipse itself for clockwise text, on the ellipse grown by ascent
/// minus descent for counter-clockwise text. What does not fit on one turn is left out.
LayoutPaths LayoutTextOnEllipse(const LayoutInput& input, platform::FontService& fonts, LayoutFont& font);

/// Makes `path` a polyline within a quarter dot and scales it so that its bounds grow by `distance` on every side,
/// about their centre. A side without extent keeps it.
void OffsetEllipse(GraphicsPath& path, float distance);

}  // namespace ovaline
