// Recorded drawings that other programs take over: enhanced metafiles.
#pragma once

#include <functional>

#include "platform/com.h"

namespace ovaline::platform {

/// Draws into the rectangle of the device context, in its pixels.
using DrawPicture = std::function<void(HDC dc, const RECTL& bounds)>;

/// Whether the platform has metafiles.
bool hasMetafiles();

/// Records what `draw` draws into a picture of `size` (HIMETRIC) and hands it out as the medium's metafile, the
/// receiver's to release. DV_E_FORMATETC where the platform has no metafiles, E_OUTOFMEMORY where it makes none.
HRESULT recordMetafile(const SIZEL& size, const DrawPicture& draw, STGMEDIUM& medium);

}  // namespace ovaline::platform
