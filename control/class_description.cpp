#include "control/class_description.h"

#include <algorithm>
#include <iterator>

#include "control/interface/class_ids.h"
#include "platform/type_info.h"

namespace ovaline {

HRESULT ClassDescription::GetPages(CAUUID* pages) {
    if (!pages) return E_POINTER;
    *pages = {};
    auto* ids = static_cast<GUID*>(CoTaskMemAlloc(sizeof kPropertyPages));
    if (!ids) return E_OUTOFMEMORY;
    std::ranges::copy(kPropertyPages, ids);
    *pages = {static_cast<ULONG>(std::size(kPropertyPages)), ids};
    return S_OK;
}

HRESULT ClassDescription::GetClassInfo(ITypeInfo** info) {
    if (!info) return E_POINTER;
    return platform::loadTypeInfo(CLSID_Norvel_OvalineCtrl, info);
}

HRESULT ClassDescription::GetGUID(DWORD kind, GUID* id) {
    if (!id) return E_POINTER;
    const bool known = kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID;
    *id = known ? DIID__INorvel_OvalineCtrlEvents : GUID_NULL;
    return known ? S_OK : E_INVALIDARG;
}

}  // namespace ovaline
