#include "host/glyph_count.h"

#include "platform/char_next.h"

namespace ovaline::host {

namespace {

/// Contours of a native outline: its records begin with their own size, 32 bits little-endian.
std::size_t contours(const platform::NativeOutline& outline) {
    std::size_t count = 0;
    for (std::size_t at = 0; at + 4 <= outline.polygons.size(); ++count) {
        std::size_t size = 0;
        for (std::size_t i = 4; i-- > 0;) size = size << 8 | std::to_integer<std::size_t>(outline.polygons[at + i]);
        if (size == 0) break;
        at += size;
    }
    return count;
}

}  // namespace

std::size_t markedGlyphs(const platform::Font& font, std::u16string_view text, std::size_t figures) {
    text = text.substr(0, text.find(u'\0'));
    std::size_t glyphs = 0;
    for (std::size_t i = 0; i < text.size() && figures > 0; i = platform::charNext(text, i)) {
        const auto outline = font.glyphOutline(text[i], true);
        const std::size_t own = outline ? contours(*outline) : 0;
        if (own == 0) continue;
        if (own > figures) break;
        figures -= own;
        ++glyphs;
    }
    return glyphs;
}

}  // namespace ovaline::host
