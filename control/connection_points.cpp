#include "control/connection_points.h"

#include "control/interface/class_ids.h"

namespace ovaline {

using platform::ComPtr;

HRESULT ConnectionPoint::QueryInterface(REFIID riid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (!IsEqualIID(riid, IID_IUnknown) && !IsEqualIID(riid, IID_IConnectionPoint)) return E_NOINTERFACE;
    *object = static_cast<IConnectionPoint*>(this);
    AddRef();
    return S_OK;
}

HRESULT ConnectionPoint::GetConnectionInterface(IID* outgoing) {
    if (!outgoing) return E_POINTER;
    *outgoing = outgoing_;
    return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
    if (!container) return E_POINTER;
    *container = &container_;
    container_.AddRef();
    return S_OK;
}

HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
    if (cookie) *cookie = 0;
    if (!sink || !cookie) return E_POINTER;
    auto connected = platform::query<IUnknown>(sink, outgoing_);
    return connected ? connections_.add(std::move(connected), *cookie) : CONNECT_E_CANNOTCONNECT;
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie) {
    const auto alive = ComPtr<IConnectionPointContainer>::share(&container_);
    return connections_.remove(cookie) ? S_OK : CONNECT_E_NOCONNECTION;
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** made) {
    const auto give = [](const Connection<IUnknown>& connection) {
        connection.sink->AddRef();
        return CONNECTDATA{connection.sink.get(), connection.cookie};
    };
    return Enumerator<IEnumConnections, Connection<IUnknown>, CONNECTDATA>::make(IID_IEnumConnections,
                                                                                 connections_.all(), give, made);
}

ConnectionPoints::ConnectionPoints(IUnknown& whole)
    : Part(whole), propertyNotify_(*this, IID_IPropertyNotifySink), events_(*this, DIID__INorvel_OvalineCtrlEvents) {}

HRESULT ConnectionPoints::EnumConnectionPoints(IEnumConnectionPoints** made) {
    using Point = ComPtr<IConnectionPoint>;
    const auto give = [](const Point& point) {
        point->AddRef();
        return point.get();
    };
    try {
        return Enumerator<IEnumConnectionPoints, Point, IConnectionPoint*>::make(
            IID_IEnumConnectionPoints, {Point::share(&propertyNotify_), Point::share(&events_)}, give, made);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

HRESULT ConnectionPoints::FindConnectionPoint(REFIID outgoing, IConnectionPoint** point) {
    if (!point) return E_POINTER;
    *point = IsEqualIID(outgoing, IID_IPropertyNotifySink)           ? &propertyNotify_
             : IsEqualIID(outgoing, DIID__INorvel_OvalineCtrlEvents) ? &events_
                                                                     : nullptr;
    if (!*point) return CONNECT_E_NOCONNECTION;
    (*point)->AddRef();
    return S_OK;
}

}  // namespace ovaline
