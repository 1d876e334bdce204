// Kerning pairs from a font's glyph positioning rules.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "platform/posix/fonts_kerning.h"

namespace ovaline::platform {

/// Most pairs taken from one font; a font for text has fewer.
inline constexpr std::size_t kMostGposPairs = std::size_t{1} << 18;

/// Pairs of a `GPOS` table (OpenType specification, GPOS): the pair adjustments, also in extension lookups, of all
/// `kern` features in the default language of the scripts `DFLT` and `latn`. The first subtable of a lookup that
/// applies to a pair decides, the horizontal advances of the first glyph add up over the lookups.
///
/// Taken are pairs of the characters of the Latin, Greek and Cyrillic scripts, their punctuation and currency signs,
/// ascending by first and then second code, totals of 0 left out, kMostGposPairs at most. A damaged table gives the
/// pairs of what is sound in it; a table that asks for far more work than any font of these scripts stops early.
std::vector<UnitKerningPair> gposKerningPairs(std::span<const std::byte> table, std::span<const char16_t> codes);

}  // namespace ovaline::platform
