// The control's side of IOleObject and IViewObject.
#include <memory>
#include <new>

#include "control/norvel_ovaline_ctrl.h"
#include "control/settings_slices.h"

namespace ovaline {

HRESULT CNorvel_OvalineCtrl::SetClientSite(IOleClientSite* site) {
    container_.setClientSite(site);
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::GetClientSite(IOleClientSite** site) {
    if (!site) return E_POINTER;
    *site = container_.clientSite().get();
    if (*site) (*site)->AddRef();
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::SetHostNames(LPCOLESTR, LPCOLESTR) {
    return S_OK;
}

// The host keeps the settings; there is nothing to save and no view to take down.
HRESULT CNorvel_OvalineCtrl::Close(DWORD) {
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::SetMoniker(DWORD, IMoniker*) {
    return E_NOTIMPL;
}
HRESULT CNorvel_OvalineCtrl::GetMoniker(DWORD, DWORD, IMoniker**) {
    return E_NOTIMPL;
}
HRESULT CNorvel_OvalineCtrl::InitFromData(IDataObject*, BOOL, DWORD) {
    return E_NOTIMPL;
}
HRESULT CNorvel_OvalineCtrl::GetClipboardData(DWORD, IDataObject**) {
    return E_NOTIMPL;
}
HRESULT CNorvel_OvalineCtrl::DoVerb(LONG, MSG*, IOleClientSite*, LONG, HWND, LPCRECT) {
    return E_NOTIMPL;
}
HRESULT CNorvel_OvalineCtrl::EnumVerbs(IEnumOLEVERB**) {
    return OLE_S_USEREG;
}
HRESULT CNorvel_OvalineCtrl::Update() {
    return S_OK;
}
HRESULT CNorvel_OvalineCtrl::IsUpToDate() {
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::GetUserClassID(CLSID* id) {
    if (!id) return E_POINTER;
    *id = CLSID_Norvel_OvalineCtrl;
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::GetUserType(DWORD, LPOLESTR*) {
    return OLE_S_USEREG;
}

HRESULT CNorvel_OvalineCtrl::SetExtent(DWORD aspect, SIZEL* size) {
    if (!size) return E_POINTER;
    if (aspect != DVASPECT_CONTENT) return E_FAIL;
    extent_ = *size;
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::GetExtent(DWORD aspect, SIZEL* size) {
    if (!size) return E_POINTER;
    if (aspect != DVASPECT_CONTENT) return E_FAIL;
    *size = extent_;
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::Advise(IAdviseSink*, DWORD*) {
    return OLE_E_ADVISENOTSUPPORTED;
}
HRESULT CNorvel_OvalineCtrl::Unadvise(DWORD) {
    return OLE_E_ADVISENOTSUPPORTED;
}
HRESULT CNorvel_OvalineCtrl::EnumAdvise(IEnumSTATDATA**) {
    return OLE_E_ADVISENOTSUPPORTED;
}
HRESULT CNorvel_OvalineCtrl::GetMiscStatus(DWORD, DWORD*) {
    return OLE_S_USEREG;
}
HRESULT CNorvel_OvalineCtrl::SetColorScheme(LOGPALETTE*) {
    return E_NOTIMPL;
}

HRESULT CNorvel_OvalineCtrl::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC drawDc, LPCRECTL bounds,
                                  LPCRECTL, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (!bounds) return E_INVALIDARG;
    OnDraw(drawDc, *bounds);
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

}  // namespace ovaline
