// What a desktop does for controls. There is none here: no windows, property frames, type libraries or metafiles.
#include "platform/control_window.h"
#include "platform/metafile.h"
#include "platform/property_frame.h"
#include "platform/type_info.h"

namespace ovaline::platform {

namespace {

class NoWindows final : public WindowSystem {
public:
    std::unique_ptr<ControlWindow> create(HWND, const RECT&, ControlWindowEvents&) override { return nullptr; }
    DWORD keyModifiers() const override { return 0; }
};

}  // namespace

WindowSystem& systemWindows() {
    static NoWindows windows;
    return windows;
}

bool hasTypeLibrary() {
    return false;
}

HRESULT loadTypeInfo(REFGUID, ITypeInfo** info) {
    if (!info) return E_POINTER;
    *info = nullptr;
    return TYPE_E_CANTLOADLIBRARY;
}

HRESULT showPropertyFrame(HWND, const RECT&, const char16_t*, IUnknown&, std::span<const CLSID>) {
    return E_NOTIMPL;
}

bool hasMetafiles() {
    return false;
}

HRESULT recordMetafile(const SIZEL&, const DrawPicture&, STGMEDIUM&) {
    return DV_E_FORMATETC;
}

}  // namespace ovaline::platform
