// The display service.
#pragma once

namespace ovaline::platform {

/// Horizontal logical pixels per inch of the display; 96 where there is none.
float displayDpi();

}  // namespace ovaline::platform
