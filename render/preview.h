// The preview: what a control draws of itself.
#pragma once

#include <cstdint>

#include "geometry/enumerations.h"
#include "geometry/graphics_path.h"
#include "output/enumerations.h"
#include "platform/drawing.h"
#include "render/copies.h"

namespace ovaline {

/// How a preview looks.
struct PreviewStyle {
    bool lightInk = false;                 ///< white ink for a dark ground, else black
    std::uint32_t frameColour = 0;         ///< COLORREF
    std::uint32_t guideColour = 0;         ///< COLORREF
    std::int32_t showAxes = FullAxes;      ///< _axesstyle
    std::int32_t fontStyle = TrueType;     ///< _txtfontstyle
    std::int32_t fillStyle = Solid;        ///< _fillstyle
    std::int32_t outlineType = NoOutline;  ///< _outlinestyle
    bool invert = false;
    bool outlined = false;    ///< whether there is an outline at all, of whatever type
    float fillLineWidth = 0;  ///< dots
    float outlineWidth = 0;   ///< dots
};

/// What is drawn, and where. The paths are in dots and stay as they are.
struct PreviewJob {
    const GraphicsPath& text;
    const GraphicsPath& fill;
    const GraphicsPath& frame;
    const GraphicsPath& guide;
    CopyGrid kept = {};         ///< of a frame and a guide, where each copy of the text has been built; else one
    CopyGrid array = {};        ///< of the settings
    bool composed = false;      ///< the text holds every copy of the array already
    bool boxesOverlap = false;  ///< the boxes that the copies of an inverted text stand out of
    PreviewStyle style = {};
    float pixelsPerDot = 1;
    float left = 0;  ///< pixels, of the rectangle to draw into
    float top = 0;   ///< pixels
};

/// Draws the preview. The picture's top left corner, of the frame or of the text alone as `showAxes` says, comes to lie
/// on that of the rectangle.
void drawPreview(const PreviewJob& job, platform::Canvas& canvas);

}  // namespace ovaline
