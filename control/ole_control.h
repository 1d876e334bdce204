// IOleControl: the control has no mnemonics, follows no ambient property and fires no events.
#pragma once

#include "control/part.h"

namespace ovaline {

class OleControl final : public Part<IOleControl> {
public:
    using Part::Part;

    HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnMnemonic(MSG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL) override { return S_OK; }
};

}  // namespace ovaline
