#include "control/advise_holder.h"

namespace ovaline {

using platform::ComPtr;

HRESULT AdviseHolder::advise(IAdviseSink* sink, DWORD* connection) {
    if (connection) *connection = 0;
    if (!sink || !connection) return E_POINTER;
    return sinks_.add(ComPtr<IAdviseSink>::share(sink), *connection);
}

HRESULT AdviseHolder::unadvise(DWORD connection) {
    return sinks_.remove(connection) ? S_OK : OLE_E_NOCONNECTION;
}

HRESULT AdviseHolder::enumerate(IEnumSTATDATA** made) const {
    const auto give = [](const Connection<IAdviseSink>& connection) {
        connection.sink->AddRef();
        return STATDATA{FORMATETC{}, 0, connection.sink.get(), connection.cookie};
    };
    return Enumerator<IEnumSTATDATA, Connection<IAdviseSink>, STATDATA>::make(IID_IEnumSTATDATA, sinks_.all(), give,
                                                                              made);
}

void AdviseHolder::send(void (STDMETHODCALLTYPE IAdviseSink::*notice)()) const {
    // A sink may connect and disconnect sinks while it is told: the next one is found by its cookie, which only grows,
    // and the ones that come now are not told.
    const auto& sinks = sinks_.all();
    const DWORD last = sinks.empty() ? 0 : sinks.back().cookie;
    DWORD told = 0;
    const auto isNext = [&](const Connection<IAdviseSink>& each) { return each.cookie > told && each.cookie <= last; };
    for (auto next = std::ranges::find_if(sinks, isNext); next != sinks.end();
         next = std::ranges::find_if(sinks, isNext)) {
        told = next->cookie;
        const ComPtr<IAdviseSink> sink = next->sink;
        (sink.get()->*notice)();
    }
}

}  // namespace ovaline
