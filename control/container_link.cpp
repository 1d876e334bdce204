#include "control/container_link.h"

namespace ovaline {

using platform::ComPtr;

void ContainerLink::setClientSite(IOleClientSite* site) {
    clientSite_ = ComPtr<IOleClientSite>::share(site);
    inPlaceSite_ = platform::query<IOleInPlaceSite>(site, IID_IOleInPlaceSite);
}

void ContainerLink::setAdviseSink(DWORD aspects, DWORD flags, IAdviseSink* sink) {
    adviseAspects_ = aspects;
    adviseFlags_ = flags;
    adviseSink_ = ComPtr<IAdviseSink>::share(sink);
}

// Either call may make the container change its links; the copy keeps the callee alive until it returns.

void ContainerLink::requestPosition(const RECT& rectangle) const {
    const ComPtr<IOleInPlaceSite> site = inPlaceSite_;
    if (site) site->OnPosRectChange(&rectangle);
}

void ContainerLink::requestRepaint() const {
    constexpr LONG kAllPages = -1;
    const ComPtr<IAdviseSink> sink = adviseSink_;
    if (sink && (adviseAspects_ & DVASPECT_CONTENT)) sink->OnViewChange(DVASPECT_CONTENT, kAllPages);
}

}  // namespace ovaline
