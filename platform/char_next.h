// Stepping through text by whole characters.
#pragma once

#include <cstddef>
#include <string_view>

namespace ovaline::platform {

/// Index of the character after the one at `position` (which is below the text's size): a surrogate pair or a single
/// code unit, together with the nonspacing and enclosing marks that follow it. A lone surrogate is a character.
std::size_t charNext(std::u16string_view text, std::size_t position);

}  // namespace ovaline::platform
