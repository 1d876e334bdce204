// The font of a layout: its glyphs as paths and its kerning.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "geometry/glyph_outline.h"

namespace ovaline {

/// Kerning amounts in dots by character pair, ordered by first and then by second code unit. Of a pair that the font
/// lists twice the first amount stays.
class KerningTable {
public:
    KerningTable() = default;
    explicit KerningTable(std::vector<platform::KerningPair> pairs);
    /// Amount for the pair, 0 where the font does not kern it.
    float amount(char16_t first, char16_t second) const;

private:
    std::vector<platform::KerningPair> pairs_;
};

/// Outlines by UTF-16 code unit; grows as characters are met.
using GlyphCache = std::map<char16_t, GlyphOutline>;

/// Glyphs, kerning and metrics of one realised font. It may serve any number of layouts one after another: as long as
/// they ask for the same font, nothing is opened, fetched or converted again.
class LayoutFont {
public:
    /// Makes the font current. An equal description keeps what is loaded; another one empties the kerning and glyphs
    /// and realises the font. Where the service has no font, the layout has neither glyphs nor kerning.
    void SetLayoutFont(platform::FontService& fonts, const platform::LogFont& description, bool flip);

    /// The glyph of `code`, converted at its first use; empty and without advance where there is no font.
    const GlyphOutline& glyph(char16_t code);
    float kerning(char16_t first, char16_t second) const { return kerning_.amount(first, second); }
    /// Cell metrics in dots; zero where there is no font.
    platform::TextMetrics metrics() const { return metrics_; }

private:
    std::optional<platform::LogFont> description_;
    bool flip_ = false;
    std::shared_ptr<const platform::Font> font_;
    platform::TextMetrics metrics_;
    KerningTable kerning_;
    GlyphCache glyphs_;
};

}  // namespace ovaline
