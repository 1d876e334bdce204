// What each consumer sees of the settings.
#pragma once

#include "control/kept_paths.h"
#include "control/text_settings.h"
#include "geometry/ellipse_layout.h"
#include "geometry/hatching.h"
#include "output/raster.h"
#include "output/units.h"
#include "output/vector_stream.h"
#include "render/preview.h"
#include "text/copy_texts.h"

namespace ovaline {

Units unitsOf(const TextSettings& settings);

/// The layout rectangle (0, 0, width, height) in dots.
RectF layoutBoxOf(const TextSettings& settings);

/// Dots per screen pixel as the font and the spacing use it.
float fontScaleOf(const TextSettings& settings);

/// The font to realise; its cell height is in dots.
platform::LogFont logFontOf(const TextSettings& settings);

/// Texts of the copies of composed text.
CopyTexts copyTextsOf(const TextSettings& settings);

/// Where the copies of composed text stand.
CopyGrid copyGridOf(const TextSettings& settings);

/// The layout, without its text.
LayoutInput layoutInputOf(const TextSettings& settings);

HatchInput hatchInputOf(const TextSettings& settings);

VectorJob vectorJobOf(const TextSettings& settings, const KeptPaths& paths);

RasterJob rasterJobOf(const TextSettings& settings, const KeptPaths& paths);

/// The preview on a device of that many pixels per inch, without its place.
PreviewJob previewJobOf(const TextSettings& settings, const KeptPaths& paths, float pixelsPerInch);

}  // namespace ovaline
