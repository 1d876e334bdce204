#include "host/container_site.h"

namespace ovaline::host {

HRESULT ContainerSite::QueryInterface(REFIID iid, void** object) {
    if (!object) return E_POINTER;
    if (iid == IID_IUnknown || iid == IID_IOleClientSite)
        *object = static_cast<IOleClientSite*>(this);
    else if (iid == IID_IOleWindow || iid == IID_IOleInPlaceSite)
        *object = static_cast<IOleInPlaceSite*>(this);
    else if (iid == IID_IAdviseSink)
        *object = static_cast<IAdviseSink*>(this);
    else
        *object = nullptr;
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG ContainerSite::AddRef() {
    return ++references_;
}

ULONG ContainerSite::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT ContainerSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
    *moniker = nullptr;
    return E_NOTIMPL;
}

HRESULT ContainerSite::GetContainer(IOleContainer** container) {
    *container = nullptr;
    return E_NOINTERFACE;
}

HRESULT ContainerSite::GetWindow(HWND* window) {
    *window = nullptr;
    return E_FAIL;
}

HRESULT ContainerSite::OnPosRectChange(LPCRECT rectangle) {
    if (!rectangle) return E_POINTER;
    return events_->add(ResizeRequest{*rectangle});
}

void ContainerSite::OnViewChange(DWORD aspect, LONG) {
    if (aspect == DVASPECT_CONTENT) events_->add(RepaintRequest{});
}

}  // namespace ovaline::host
