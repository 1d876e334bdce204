#include "platform/property_frame.h"

#include "platform/windows/text.h"

namespace ovaline::platform {

HRESULT showPropertyFrame(HWND parent, const RECT& position, const char16_t* caption, IUnknown& object,
                          std::span<const CLSID> pages) {
    IUnknown* shown = &object;
    // The published declaration takes the classes as ones that could be changed; they are only read.
    return OleCreatePropertyFrame(parent, static_cast<UINT>(position.left), static_cast<UINT>(position.top),
                                  wide(caption), 1, &shown, static_cast<ULONG>(pages.size()),
                                  const_cast<CLSID*>(pages.data()), GetUserDefaultLCID(), 0, nullptr);
}

}  // namespace ovaline::platform
