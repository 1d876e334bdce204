// The sinks of IOleObject::Advise.
#pragma once

#include "control/connection_list.h"

namespace ovaline {

/// Keeps the sinks and passes an object's notices on to them. The same on every platform, also where there is no
/// holder to be had.
class AdviseHolder {
public:
    HRESULT advise(IAdviseSink* sink, DWORD* connection);
    HRESULT unadvise(DWORD connection);
    HRESULT enumerate(IEnumSTATDATA** made) const;

    void sendSave() const { send(&IAdviseSink::OnSave); }
    void sendClose() const { send(&IAdviseSink::OnClose); }

private:
    void send(void (STDMETHODCALLTYPE IAdviseSink::*notice)()) const;

    ConnectionList<IAdviseSink> sinks_;
};

}  // namespace ovaline
