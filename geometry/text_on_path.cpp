#include "geometry/text_on_path.h"

#include <utility>

#include "geometry/cubic.h"
#include "geometry/path_writer.h"

namespace ovaline {

namespace {

BaselinePath flattened(GraphicsPath curve, float flatness) {
    GdipFlattenPath(curve, flatness);
    return BaselinePath(std::move(curve));
}

}  // namespace

TextOnPath::TextOnPath(GraphicsPath curve, float flatness, LayoutFont& font)
    : baseline_(flattened(std::move(curve), flatness)), font_(font) {}

void TextOnPath::LayoutString(GraphicsPath& target, std::u16string_view text, float startLength) {
    GdipSetPathFillMode(target, FillModeWinding);
    float t = start(startLength);
    forEachCharacter(text, [&](char16_t code, char16_t next) {
        if (!(t >= 0)) return false;
        t = PlaceGlyph(code, next, target, t);
        return true;
    });
}

float TextOnPath::advanceOf(char16_t code, char16_t next) {
    PointF pen;
    AppendGlyph(code, next, pen, nullptr);
    return pen.X + pen.Y;
}

TextOnPath::Placement TextOnPath::place(float advance, float t) const {
    if (advance == 0) return {};
    const float end = baseline_.AdvanceByChord(t, advance);
    if (!(end >= 0)) return {};
    const PointF a = baseline_.PointAtParameter(t);
    const PointF b = baseline_.PointAtParameter(end);
    const float cosine = (b.X - a.X) / advance;
    const float sine = (b.Y - a.Y) / advance;
    return {{cosine, sine, -sine, cosine, a.X, a.Y}, true, end + spacingStep_ / 10.0f};
}

float TextOnPath::PlaceGlyph(char16_t code, char16_t next, GraphicsPath& target, float t) {
    const Placement placement = place(advanceOf(code, next), t);
    if (placement.fits) appendTransformed(target, glyph(code).outline, placement.matrix);
    return placement.next;
}

void TextOnPath::AppendGlyph(char16_t code, char16_t next, PointF& pen, GraphicsPath* target) {
    const GlyphOutline& glyph = font_.glyph(code);
    if (target) appendTransformed(*target, glyph.outline, {1, 0, 0, 1, pen.X, pen.Y});
    pen.X += glyph.advanceX;
    pen.Y += glyph.advanceY;
    pen.X += font_.kerning(code, next);
}

}  // namespace ovaline
