// IQuickActivate: a container's whole set-up of a control in one call.
#pragma once

#include "control/connection_points.h"
#include "control/part.h"

namespace ovaline {

class QuickSetUp final : public Part<IQuickActivate> {
public:
    QuickSetUp(IUnknown& whole, IOleObject& object, IViewObjectEx& view, ConnectionPoints& points)
        : Part(whole), object_(object), view_(view), points_(points) {}

    /// Takes the container's site and sinks and gives the cookies of the connections, 0 for a sink that the container
    /// left out or that does not connect.
    HRESULT STDMETHODCALLTYPE QuickActivate(QACONTAINER* container, QACONTROL* control) override;
    HRESULT STDMETHODCALLTYPE SetContentExtent(SIZEL* size) override;
    HRESULT STDMETHODCALLTYPE GetContentExtent(SIZEL* size) override;

private:
    IOleObject& object_;
    IViewObjectEx& view_;
    ConnectionPoints& points_;
};

}  // namespace ovaline
