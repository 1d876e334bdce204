// Laying a string of glyphs along a curve.
#pragma once

#include <string_view>

#include "geometry/baseline_path.h"
#include "geometry/layout_font.h"
#include "platform/char_next.h"

namespace ovaline {

/// Calls `visit(code, next)` for each character with its first code unit and that of the following one, 0 after the
/// last, until `visit` answers false. A text ends at its first zero, as a string does for the host.
template <typename Visit>
void forEachCharacter(std::u16string_view text, Visit&& visit) {
    for (std::size_t i = 0; i < text.size() && text[i] != u'\0';) {
        const std::size_t following = platform::charNext(text, i);
        if (!visit(text[i], following < text.size() ? text[following] : u'\0')) return;
        i = following;
    }
}

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

    /// Parameter at which a text begins that starts `startLength` dots along the baseline; negative beyond its end.
    float start(float startLength) const { return baseline_.ParameterAtLength(startLength); }

    /// Where the glyph of a character goes.
    struct Placement {
        Matrix matrix;      ///< from the glyph's own coordinates to the baseline
        bool fits = false;  ///< whether the rest of the baseline is long enough
        float next = -1;    ///< parameter for the glyph after it; negative where the layout ends
    };
    /// The place at parameter `t` of a glyph whose pen moves by `advance` dots.
    Placement place(float advance, float t) const;
    /// How far the pen moves over a character: its advance and the kerning before `next`.
    float advanceOf(char16_t code, char16_t next);
    const GlyphOutline& glyph(char16_t code) { return font_.glyph(code); }

    /// Lays one glyph at parameter `t`, its origin and the end of its advance on the baseline, and returns the
    /// parameter for the next; negative where the layout ends, which is before this glyph where it does not fit.
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
