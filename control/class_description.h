// What the control tells of its class: its property pages, its type information and its event interface.
#pragma once

#include "control/part.h"

namespace ovaline {

class ClassDescription final : public Part<ISpecifyPropertyPages, IProvideClassInfo2> {
public:
    using Part::Part;

    /// The text settings page, then the serial number and AutoDate page.
    HRESULT STDMETHODCALLTYPE GetPages(CAUUID* pages) override;

    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* id) override;
};

}  // namespace ovaline
