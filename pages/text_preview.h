// The picture that the text settings page shows of its settings.
#pragma once

#include "geometry/layout_font.h"
#include "pages/text_page_settings.h"
#include "platform/com.h"
#include "platform/drawing.h"
#include "platform/fonts.h"

namespace ovaline {

/// Draws the text on its ellipse at the size that it has at the nominal screen resolution: one copy of the page's
/// text, whatever the control composes or mirrors.
class TextPreview {
public:
    /// Fills `area` with white and draws into its middle, never outside of it. Settings that give nothing of a size,
    /// or nothing finite, leave it white.
    void draw(const TextPageSettings& settings, platform::FontService& fonts, platform::Canvas& canvas,
              const RECT& area);

private:
    LayoutFont font_;  // keeps its glyphs from one picture to the next
};

}  // namespace ovaline
