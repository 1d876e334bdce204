// Copies that carry texts of their own.
#pragma once

#include "control/kept_paths.h"
#include "geometry/copied_text.h"
#include "platform/clock.h"
#include "text/copy_texts.h"

namespace ovaline {

/// Most points that the text of all copies may have. They take 900 MB, and an export some five times that for its
/// index: more would drive an ordinary machine to its disk. 255 × 255 copies of the start-up texts need 57 million.
constexpr std::size_t kMostTextPoints = 100'000'000;

/// Appends the text of every copy to `target` through `copies`, each at its place in `grid`. False where they would
/// have more than `kMostTextPoints` points; `target` is then undefined.
bool BuildComposedCopies(const CopyTexts& texts, const platform::Clock& clock, const CopyGrid& grid, CopiedText& copies,
                         GraphicsPath& target);

}  // namespace ovaline
