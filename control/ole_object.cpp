// The control's side of IOleObject.
#include <cstring>

#include "control/interface/class_ids.h"
#include "control/norvel_ovaline_ctrl.h"
#include "platform/property_frame.h"

namespace ovaline {

HRESULT CNorvel_OvalineCtrl::SetClientSite(IOleClientSite* site) {
    const auto alive = keepAlive();
    // The activation belongs to the site that it was made with.
    if (site != container_.clientSite().get()) inPlace_.InPlaceDeactivate();
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

// There is nobody to ask whether to save, so the option to ask saves what changed.
HRESULT CNorvel_OvalineCtrl::Close(DWORD saveOption) {
    const auto alive = keepAlive();
    inPlace_.InPlaceDeactivate();
    if (saveOption != OLECLOSE_NOSAVE && IsDirty() == S_OK) {
        const auto site = container_.clientSite();
        if (site && SUCCEEDED(site->SaveObject())) adviseHolder_.sendSave();
    }
    adviseHolder_.sendClose();
    container_.setAdviseSink(0, 0, nullptr);
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::SetMoniker(DWORD, IMoniker*) {
    return E_NOTIMPL;
}

HRESULT CNorvel_OvalineCtrl::GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) {
    if (!moniker) return E_POINTER;
    *moniker = nullptr;
    const auto site = container_.clientSite();
    return site ? site->GetMoniker(assign, which, moniker) : E_UNEXPECTED;
}

HRESULT CNorvel_OvalineCtrl::InitFromData(IDataObject*, BOOL, DWORD) {
    return E_NOTIMPL;
}

HRESULT CNorvel_OvalineCtrl::GetClipboardData(DWORD, IDataObject** data) {
    if (data) *data = nullptr;
    return E_NOTIMPL;
}

HRESULT CNorvel_OvalineCtrl::DoVerb(LONG verb, MSG* message, IOleClientSite* site, LONG index, HWND parent,
                                    LPCRECT position) {
    switch (verb) {
        case OLEIVERB_PRIMARY:
            return container_.designing() ? showProperties(parent, position) : inPlace_.activateUi();
        case OLEIVERB_SHOW:
        case OLEIVERB_INPLACEACTIVATE:
            return inPlace_.activate();
        case OLEIVERB_UIACTIVATE:
            return inPlace_.activateUi();
        case OLEIVERB_HIDE:
            inPlace_.hide();
            return S_OK;
        case OLEIVERB_DISCARDUNDOSTATE:
            return S_OK;
        case OLEIVERB_PROPERTIES:
            return showProperties(parent, position);
        default:
            break;
    }
    if (verb < 0) return E_NOTIMPL;
    // Of the verbs that a class may define the control has none; the primary one stands in for them.
    const HRESULT hr = DoVerb(OLEIVERB_PRIMARY, message, site, index, parent, position);
    return SUCCEEDED(hr) ? OLEOBJ_S_INVALIDVERB : hr;
}

HRESULT CNorvel_OvalineCtrl::showProperties(HWND parent, LPCRECT position) {
    const auto alive = keepAlive();
    const auto site = container_.controlSite();
    if (site && site->ShowPropertyFrame() == S_OK) return S_OK;
    return platform::showPropertyFrame(parent, position ? *position : RECT{}, kControlDescription.data(), whole(),
                                       kPropertyPages);
}

HRESULT CNorvel_OvalineCtrl::EnumVerbs(IEnumOLEVERB** verbs) {
    if (verbs) *verbs = nullptr;
    return OLEOBJ_E_NOVERBS;
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

// The class has one name, for every form of it.
HRESULT CNorvel_OvalineCtrl::GetUserType(DWORD, LPOLESTR* type) {
    if (!type) return E_POINTER;
    constexpr std::size_t kSize = (kControlDescription.size() + 1) * sizeof(OLECHAR);
    *type = static_cast<LPOLESTR>(CoTaskMemAlloc(kSize));
    if (!*type) return E_OUTOFMEMORY;
    std::memcpy(*type, kControlDescription.data(), kSize);
    return S_OK;
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

HRESULT CNorvel_OvalineCtrl::Advise(IAdviseSink* sink, DWORD* connection) {
    return adviseHolder_.advise(sink, connection);
}

HRESULT CNorvel_OvalineCtrl::Unadvise(DWORD connection) {
    const auto alive = keepAlive();
    return adviseHolder_.unadvise(connection);
}

HRESULT CNorvel_OvalineCtrl::EnumAdvise(IEnumSTATDATA** made) {
    return adviseHolder_.enumerate(made);
}

HRESULT CNorvel_OvalineCtrl::GetMiscStatus(DWORD aspect, DWORD* status) {
    if (!status) return E_POINTER;
    *status = aspect == DVASPECT_CONTENT ? kControlMiscStatus : 0;
    return S_OK;
}

HRESULT CNorvel_OvalineCtrl::SetColorScheme(LOGPALETTE*) {
    return E_NOTIMPL;
}

}  // namespace ovaline
