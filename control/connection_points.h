// IConnectionPointContainer: where a container connects its sinks for property changes and events.
#pragma once

#include "control/connection_list.h"
#include "control/part.h"

namespace ovaline {

/// One outgoing interface and its sinks. An identity of its own, which lives as long as the control.
class ConnectionPoint final : public IConnectionPoint {
public:
    ConnectionPoint(IConnectionPointContainer& container, REFIID outgoing)
        : container_(container), outgoing_(outgoing) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return container_.AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return container_.Release(); }

    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* outgoing) override;
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override;
    /// Takes sinks that have the outgoing interface, else answers CONNECT_E_CANNOTCONNECT.
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** made) override;

private:
    IConnectionPointContainer& container_;
    IID outgoing_;
    ConnectionList<IUnknown> connections_;
};

/// The control's two connection points. It fires no events and, since no put reports a change, no notifications; both
/// are there for the containers that connect to every control.
class ConnectionPoints final : public Part<IConnectionPointContainer> {
public:
    explicit ConnectionPoints(IUnknown& whole);

    IConnectionPoint& propertyNotify() { return propertyNotify_; }
    IConnectionPoint& events() { return events_; }

    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** made) override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID outgoing, IConnectionPoint** point) override;

private:
    ConnectionPoint propertyNotify_;
    ConnectionPoint events_;
};

}  // namespace ovaline
