// The control's links to its container.
#pragma once

#include "platform/com.h"

namespace ovaline {

/// The container's site and advise sink, and what the control asks of them. Every request is skipped where the
/// container gave nothing to ask.
class ContainerLink {
public:
    /// Null takes the site back. The in-place site is the client site's own, where it has one.
    void setClientSite(IOleClientSite* site);
    platform::ComPtr<IOleClientSite> clientSite() const { return clientSite_; }
    platform::ComPtr<IOleInPlaceSite> inPlaceSite() const { return inPlaceSite_; }
    /// The container's side for controls; empty where it has none.
    platform::ComPtr<IOleControlSite> controlSite() const;
    /// Whether the container says that its user is laying out a form, rather than working with it.
    bool designing() const;

    /// Sets the sink for changes of the view. ADVF_PRIMEFIRST tells it at once, ADVF_ONLYONCE lets it go after the
    /// first time.
    void setAdviseSink(DWORD aspects, DWORD flags, IAdviseSink* sink);
    DWORD adviseAspects() const { return adviseAspects_; }
    DWORD adviseFlags() const { return adviseFlags_; }
    platform::ComPtr<IAdviseSink> adviseSink() const { return adviseSink_; }

    /// Asks the container to move the control to this rectangle, in pixels.
    void requestPosition(const RECT& rectangle) const;
    /// Tells the advise sink that the content's view changed, on all pages.
    void reportViewChange();

private:
    platform::ComPtr<IOleClientSite> clientSite_;
    platform::ComPtr<IOleInPlaceSite> inPlaceSite_;
    platform::ComPtr<IAdviseSink> adviseSink_;
    DWORD adviseAspects_ = 0;
    DWORD adviseFlags_ = 0;
};

}  // namespace ovaline
