#include "control/container_link.h"

#include <utility>

namespace ovaline {

using platform::ComPtr;
using platform::query;

// What is replaced is released last: a container may come back here while one of its objects is let go of.

void ContainerLink::setClientSite(IOleClientSite* site) {
    auto inPlaceSite = query<IOleInPlaceSite>(site, IID_IOleInPlaceSite);
    const auto oldSite = std::exchange(clientSite_, ComPtr<IOleClientSite>::share(site));
    const auto oldInPlaceSite = std::exchange(inPlaceSite_, std::move(inPlaceSite));
}

void ContainerLink::setAdviseSink(DWORD aspects, DWORD flags, IAdviseSink* sink) {
    adviseAspects_ = aspects;
    adviseFlags_ = flags;
    const auto oldSink = std::exchange(adviseSink_, ComPtr<IAdviseSink>::share(sink));
    if (flags & ADVF_PRIMEFIRST) reportViewChange();
}

ComPtr<IOleControlSite> ContainerLink::controlSite() const {
    return query<IOleControlSite>(clientSite_.get(), IID_IOleControlSite);
}

bool ContainerLink::designing() const {
    const auto ambient = query<IDispatch>(clientSite_.get(), IID_IDispatch);
    if (!ambient) return false;
    VARIANT userMode{};
    DISPPARAMS none{};
    const HRESULT hr =
        ambient->Invoke(DISPID_AMBIENT_USERMODE, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &userMode, nullptr, nullptr);
    const bool designing = SUCCEEDED(hr) && userMode.vt == VT_BOOL && userMode.boolVal == VARIANT_FALSE;
    VariantClear(&userMode);
    return designing;
}

// Either call may make the container change its links; the copy keeps the callee alive until it returns.

void ContainerLink::requestPosition(const RECT& rectangle) const {
    const ComPtr<IOleInPlaceSite> site = inPlaceSite_;
    if (site) site->OnPosRectChange(&rectangle);
}

void ContainerLink::reportViewChange() {
    constexpr LONG kAllPages = -1;
    const ComPtr<IAdviseSink> sink = adviseSink_;
    if (!sink || !(adviseAspects_ & DVASPECT_CONTENT)) return;
    if (adviseFlags_ & ADVF_ONLYONCE) adviseSink_ = {};
    sink->OnViewChange(DVASPECT_CONTENT, kAllPages);
}

}  // namespace ovaline
