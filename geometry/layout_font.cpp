#include "geometry/layout_font.h"

#include <algorithm>
#include <utility>

namespace ovaline {

namespace {

std::pair<char16_t, char16_t> key(const platform::KerningPair& pair) {
    return {pair.wFirst, pair.wSecond};
}

}  // namespace

KerningTable::KerningTable(std::vector<platform::KerningPair> pairs) : pairs_(std::move(pairs)) {
    // Stable, so that the first listing of a pair comes first and the search below finds it.
    std::ranges::stable_sort(pairs_, {}, key);
}

float KerningTable::amount(char16_t first, char16_t second) const {
    const auto found = std::ranges::lower_bound(pairs_, std::pair(first, second), {}, key);
    const bool kerned = found != pairs_.end() && found->wFirst == first && found->wSecond == second;
    return kerned ? static_cast<float>(found->iKernAmount) : 0.0f;
}

void LayoutFont::SetLayoutFont(platform::FontService& fonts, const platform::LogFont& description, bool flip) {
    if (description_ == description && flip_ == flip) return;
    *this = LayoutFont();
    font_ = fonts.createFont(description);
    if (font_) {
        metrics_ = font_->textMetrics();
        kerning_ = KerningTable(font_->kerningPairs());
    }
    description_ = description;
    flip_ = flip;
}

const GlyphOutline& LayoutFont::glyph(char16_t code) {
    const auto found = glyphs_.find(code);
    if (found != glyphs_.end()) return found->second;
    return glyphs_.emplace(code, font_ ? BuildGlyphOutline(*font_, code, flip_) : GlyphOutline()).first->second;
}

}  // namespace ovaline
