// How many glyphs are marked.
#pragma once

#include <cstddef>
#include <string_view>

#include "platform/fonts.h"

namespace ovaline::host {

/// Glyphs of `text` that mark something, where the layout of the text in `font` has `figures` outline figures: the
/// glyphs follow each other in the text's order, a figure each contour, and the last ones may be left out.
std::size_t markedGlyphs(const platform::Font& font, std::u16string_view text, std::size_t figures);

}  // namespace ovaline::host
