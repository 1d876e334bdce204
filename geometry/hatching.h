// Hatch lines of the fill.
#pragma once

#include "geometry/enumerations.h"
#include "geometry/graphics_path.h"

namespace ovaline {

/// Most lines that one hatch family may have. At the finest pitch, 1 µm, they cover a metre, more than a marking field;
/// a family that needs more comes from a mistaken unit, and is left out whole: half a fill would be scrap as well, and
/// not show it.
constexpr std::size_t kMostHatchLines = 1'000'000;

/// What the fill needs. Angles are in degrees counter-clockwise on the screen.
struct HatchInput {
    std::int32_t fontStyle = TrueType;   ///< `_txtfontstyle`; anything but `TrueType` is not filled
    std::int32_t fillStyle = NoFilling;  ///< `_fillstyle`; other values fill nothing
    float spacing = 0;                   ///< distance of the lines of `Line` and `Cross`, dots
    float solidSpacing = 0;              ///< distance of the lines of `Solid`, dots
    float lineAngle = 0;                 ///< of the main family, relative to the text
    float crossAngle = 0;                ///< of the crossing family, relative to the main family
    float angle = 0;                     ///< rotation of the text
};

/// Appends the hatch lines over the bounds of `text`, which holds straight segments, enlarged by half a dot to the
/// right and downwards. `Cross` appends the crossing family first.
void BuildFill(const HatchInput& input, const GraphicsPath& text, GraphicsPath& fill);

/// Appends one family of parallel lines over `area`, each a figure of two points, all in one direction: the first one
/// spacing inside the starting corner or edge. A spacing or an area that is not finite, or a spacing not above 0, has
/// no lines; a family beyond `kMostHatchLines`, or whose step is lost in single precision, is left out and fails the
/// path with `ValueOverflow`.
void HatchRectangle(GraphicsPath& target, float angle, float spacing, const RectF& area);

}  // namespace ovaline
