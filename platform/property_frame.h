// The platform's frame that shows an object's property pages.
#pragma once

#include <span>

#include "platform/com.h"

namespace ovaline::platform {

/// Shows the pages, in their order, in a modal frame with the given caption, at `position` (pixels of `parent`), and
/// returns when it is closed. E_NOTIMPL where the platform has no frame.
HRESULT showPropertyFrame(HWND parent, const RECT& position, const char16_t* caption, IUnknown& object,
                          std::span<const CLSID> pages);

}  // namespace ovaline::platform
