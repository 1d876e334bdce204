#include "platform/display.h"

namespace ovaline::platform {

// The module draws into surfaces, not on a display of its own; 96 is what a display without scaling reports.
float displayDpi() {
    return 96.0f;
}

}  // namespace ovaline::platform
