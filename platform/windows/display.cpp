#include "platform/display.h"

#include "platform/windows/fonts_gdi.h"

namespace ovaline::platform {

float displayDpi() {
    constexpr float kWithoutDisplay = 96;
    const ScreenDc screen;
    const int dpi = screen ? GetDeviceCaps(screen.get(), LOGPIXELSX) : 0;
    return dpi > 0 ? static_cast<float>(dpi) : kWithoutDisplay;
}

}  // namespace ovaline::platform
