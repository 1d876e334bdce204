// Pictures as device contexts.
#pragma once

#include <memory>

#include "platform/drawing.h"

namespace ovaline::platform {

/// A canvas on a picture's pixels, of the picture's resolution. Null for a device context that is not a picture's.
std::unique_ptr<Canvas> makePictureCanvas(HDC dc);

}  // namespace ovaline::platform
