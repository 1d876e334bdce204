// Kerning pairs in design units, and those of the `kern` table.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace ovaline::platform {

/// `amount` design units are added to the advance of `first` where `second` follows.
struct UnitKerningPair {
    char16_t first = 0;
    char16_t second = 0;
    std::int32_t amount = 0;
    bool operator==(const UnitKerningPair&) const = default;
};

/// The lowest character code that each glyph of the font is mapped from; 0 for a glyph without one.
using CodesOfGlyphs = std::vector<char16_t>;

/// Code of `glyph`, 0 where it has none or the font does not have it.
inline char16_t codeOf(std::span<const char16_t> codes, std::uint16_t glyph) {
    return glyph < codes.size() ? codes[glyph] : char16_t{0};
}

/// Pairs of a `kern` table in its order (OpenType specification, kern, version 0): those of the horizontal subtables of
/// format 0 that hold kerning values. Pairs of value 0 and of glyphs without a code are left out. No value where the
/// table is of another version or too short to have one.
std::optional<std::vector<UnitKerningPair>> kernTablePairs(std::span<const std::byte> table,
                                                           std::span<const char16_t> codes);

}  // namespace ovaline::platform
