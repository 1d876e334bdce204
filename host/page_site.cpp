#include "host/page_site.h"

namespace ovaline::host {

HRESULT PageSite::QueryInterface(REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IPropertyPageSite)) return E_NOINTERFACE;
    *object = static_cast<IPropertyPageSite*>(this);
    AddRef();
    return S_OK;
}

ULONG PageSite::AddRef() {
    return ++references_;
}

ULONG PageSite::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT PageSite::GetLocaleID(LCID* locale) {
    if (!locale) return E_POINTER;
    constexpr LCID kUserDefault = 0x400;
    *locale = kUserDefault;
    return S_OK;
}

HRESULT PageSite::GetPageContainer(IUnknown** container) {
    if (!container) return E_POINTER;
    *container = nullptr;
    return E_NOTIMPL;
}

}  // namespace ovaline::host
