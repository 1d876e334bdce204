#include "control/quick_activate.h"

namespace ovaline {

HRESULT QuickSetUp::QuickActivate(QACONTAINER* container, QACONTROL* control) {
    if (!container || !control) return E_POINTER;
    const auto alive = keepAlive();
    const ULONG size = control->cbSize;
    *control = {};
    control->cbSize = size;
    if (const HRESULT hr = object_.SetClientSite(container->pClientSite); FAILED(hr)) return hr;
    if (container->pAdviseSink) view_.SetAdvise(DVASPECT_CONTENT, 0, container->pAdviseSink);
    if (container->pPropertyNotifySink)
        points_.propertyNotify().Advise(container->pPropertyNotifySink, &control->dwPropNotifyCookie);
    if (container->pUnkEventSink) points_.events().Advise(container->pUnkEventSink, &control->dwEventCookie);
    object_.GetMiscStatus(DVASPECT_CONTENT, &control->dwMiscStatus);
    return view_.GetViewStatus(&control->dwViewStatus);
}

HRESULT QuickSetUp::SetContentExtent(SIZEL* size) {
    return object_.SetExtent(DVASPECT_CONTENT, size);
}

HRESULT QuickSetUp::GetContentExtent(SIZEL* size) {
    return object_.GetExtent(DVASPECT_CONTENT, size);
}

}  // namespace ovaline
