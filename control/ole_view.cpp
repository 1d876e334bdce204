// The control's side of IViewObjectEx.
#include <memory>
#include <new>

#include "control/norvel_ovaline_ctrl.h"
#include "control/settings_slices.h"

namespace ovaline {

HRESULT CNorvel_OvalineCtrl::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC drawDc, LPCRECTL bounds,
                                  LPCRECTL, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    RECTL units{};
    if (bounds) {
        units = *bounds;
    } else if (const RECT* place = inPlace_.windowlessPosition()) {
        // A control that is active without a window is drawn in its place.
        units = {place->left, place->top, place->right, place->bottom};
    } else {
        return E_INVALIDARG;
    }
    OnDraw(drawDc, platform::devicePixels(drawDc, units));
    return S_OK;
}

void CNorvel_OvalineCtrl::OnDraw(HDC dc, const RECTL& bounds) {
    settings_.ScreenLeft = static_cast<float>(bounds.left);
    settings_.ScreenTop = static_cast<float>(bounds.top);
    settings_.ScreenWidth = static_cast<float>(bounds.right) - static_cast<float>(bounds.left);
    settings_.ScreenHeight = static_cast<float>(bounds.bottom) - static_cast<float>(bounds.top);
    try {
        const std::unique_ptr<platform::Canvas> canvas = platform::makeCanvas(dc);
        if (!canvas) return;
        PreviewJob job = previewJobOf(settings_, paths_, canvas->pixelsPerInch());
        job.left = settings_.ScreenLeft;
        job.top = settings_.ScreenTop;
        drawPreview(job, *canvas);
    } catch (const std::bad_alloc&) {
        // A picture that memory does not suffice for stays as far as it was drawn.
    }
}

HRESULT CNorvel_OvalineCtrl::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE**) {
    return E_NOTIMPL;
}
HRESULT CNorvel_OvalineCtrl::Freeze(DWORD, LONG, void*, DWORD*) {
    return E_NOTIMPL;
}
HRESULT CNorvel_OvalineCtrl::Unfreeze(DWORD) {
    return E_NOTIMPL;
}

HRESULT CNorvel_OvalineCtrl::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
    const auto alive = keepAlive();
    container_.setAdviseSink(aspects, flags, sink);
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
    if (aspects) *aspects = container_.adviseAspects();
    if (flags) *flags = container_.adviseFlags();
    if (sink) {
        *sink = container_.adviseSink().get();
        if (*sink) (*sink)->AddRef();
    }
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, SIZEL* size) {
    return GetExtent(aspect, size);
}

HRESULT CNorvel_OvalineCtrl::GetRect(DWORD aspect, RECTL* rectangle) {
    if (!rectangle) return E_POINTER;
    *rectangle = {};
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    *rectangle = {0, 0, extent_.cx, extent_.cy};
    return S_OK;
}

// No bit is set: the picture covers neither all of the rectangle nor any part of it with a solid ground.
HRESULT CNorvel_OvalineCtrl::GetViewStatus(DWORD* status) {
    if (!status) return E_POINTER;
    *status = 0;
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG, DWORD* hit) {
    if (!bounds || !hit) return E_POINTER;
    *hit = HITRESULT_OUTSIDE;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (point.x >= bounds->left && point.x < bounds->right && point.y >= bounds->top && point.y < bounds->bottom)
        *hit = HITRESULT_HIT;
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT rectangle, LONG, DWORD* hit) {
    if (!bounds || !rectangle || !hit) return E_POINTER;
    *hit = HITRESULT_OUTSIDE;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (rectangle->left < bounds->right && bounds->left < rectangle->right && rectangle->top < bounds->bottom &&
        bounds->top < rectangle->bottom)
        *hit = HITRESULT_HIT;
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::GetNaturalExtent(DWORD aspect, LONG, DVTARGETDEVICE*, HDC, DVEXTENTINFO* info,
                                              SIZEL* size) {
    if (!info || !size) return E_POINTER;
    *size = {};
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (info->dwExtentMode != DVEXTENT_CONTENT) return E_NOTIMPL;
    *size = kStartUpExtent;
    return S_OK;
}

}  // namespace ovaline
