#include "platform/windows/drawing_gdiplus.h"

namespace ovaline::platform {

namespace {

bool start() {
    Gdiplus::GdiplusStartupInput input;
    ULONG_PTR token = 0;
    if (Gdiplus::GdiplusStartup(&token, &input, nullptr) != Gdiplus::Ok) return false;
    // GDI+ runs a thread of its own, whose code has to stay even if the host unloads this module.
    HMODULE pinned = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN, L"gdiplus.dll", &pinned);
    return true;
}

}  // namespace

bool startGdiplus() {
    static const bool started = start();
    return started;
}

}  // namespace ovaline::platform
