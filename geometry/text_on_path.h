// Laying a string of glyphs along a curve.
#pragma once

#include <string_view>

#include "geometry/baseline_path.h"
#include "geometry/layout_font.h"

namespace ovaline {

/// One layout run: a baseline, the font and the character spacing.
class TextOnPath {
public:
    /// The baseline is a copy of `curve`, flattened to within `flatness` dots. `font` has its font set already and
    /// outlives the run.
    TextOnPath(GraphicsPath curve, float flatness, LayoutFont& font);

    /// Path parameter added after each glyph, in tenths of a segment; 0 until set.
    void setSpacingStep(float step) { spacingStep_ = step; }

    /// Lays the text on the baseline, beginning `startLength` dots from its start, until a character does not fit on
    /// the rest or has no advance. Of each character the first code unit is laid. The target's fill mode becomes
    /// winding.
    void LayoutString(GraphicsPath& target, std::u16string_view text, float startLength);

    /// Lays one glyph at parameter `t`, its origin and the end of its advance on the baseline, and returns the
    /// parameter for the next; negative where the layout ends, and then nothing was placed.
    float PlaceGlyph(char16_t code, char16_t next, GraphicsPath& target, float t);

    /// Appends the glyph of `code` at the pen to `target`, if there is one, and moves the pen by the advance and by the
    /// kerning before `next` (0 after the last character).
    void AppendGlyph(char16_t code, char16_t next, PointF& pen, GraphicsPath* target);

private:
    BaselinePath baseline_;
    LayoutFont& font_;
    float spacingStep_ = 0;
};

}  // namespace ovaline
