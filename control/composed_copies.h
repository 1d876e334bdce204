// Copies that carry texts of their own.
#pragma once

#include "control/kept_paths.h"
#include "control/text_settings.h"
#include "geometry/copied_text.h"
#include "platform/clock.h"

namespace ovaline {

/// Most points that the text of all copies may have. They take 450 MB, and the stream's index as much again; beyond it
/// a 32-bit host would run out of addresses. 255 × 255 copies of seven letters need a third of it.
constexpr std::size_t kMostTextPoints = 50'000'000;

/// Where the copies of the settings' array stand, one copy alone at (0, 0).
CopyGrid copyGridOf(const TextSettings& settings);

/// Appends the text of every copy to `target` through `copies`. False where it would have more than `kMostTextPoints`
/// points; `target` is then undefined.
bool BuildComposedCopies(const TextSettings& settings, const platform::Clock& clock, CopiedText& copies,
                         GraphicsPath& target);

/// `SerNumStart` as it is after all copies of the array were marked.
std::u16string serialAfterRun(const TextSettings& settings);

}  // namespace ovaline
