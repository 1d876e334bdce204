#include "geometry/text_on_path.h"

#include <utility>

#include "geometry/char_next.h"
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
    // A text ends at its first zero, as a string does for the host.
    text = text.substr(0, text.find(u'\0'));
    float t = baseline_.ParameterAtLength(startLength);
    for (std::size_t i = 0; i < text.size() && t >= 0;) {
        const std::size_t following = charNext(text, i);
        const char16_t next = following < text.size() ? text[following] : u'\0';
        t = PlaceGlyph(text[i], next, target, t);
        i = following;
    }
}

float TextOnPath::PlaceGlyph(char16_t code, char16_t next, GraphicsPath& target, float t) {
    PointF pen;
    AppendGlyph(code, next, pen, nullptr);
    const float advance = pen.X + pen.Y;
    if (advance == 0) return -1;
    const float end = baseline_.AdvanceByChord(t, advance);
    if (!(end >= 0)) return -1;
    const PointF a = baseline_.PointAtParameter(t);
    const PointF b = baseline_.PointAtParameter(end);
    const float cosine = (b.X - a.X) / advance;
    const float sine = (b.Y - a.Y) / advance;
    appendTransformed(target, font_.glyph(code).outline, {cosine, sine, -sine, cosine, a.X, a.Y});
    return end + spacingStep_ / 10.0f;
}

void TextOnPath::AppendGlyph(char16_t code, char16_t next, PointF& pen, GraphicsPath* target) {
    const GlyphOutline& glyph = font_.glyph(code);
    if (target) appendTransformed(*target, glyph.outline, {1, 0, 0, 1, pen.X, pen.Y});
    pen.X += glyph.advanceX;
    pen.Y += glyph.advanceY;
    pen.X += font_.kerning(code, next);
}

}  // namespace ovaline
