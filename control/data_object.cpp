#include "control/data_object.h"

#include <new>
#include <vector>

#include "control/enumerator.h"

namespace ovaline {

namespace {

constexpr LONG kAllPages = -1;

FORMATETC metafileFormat() {
    return {CF_ENHMETAFILE, nullptr, DVASPECT_CONTENT, kAllPages, TYMED_ENHMF};
}

}  // namespace

HRESULT DataObject::GetData(FORMATETC* format, STGMEDIUM* medium) {
    if (!medium) return E_POINTER;
    *medium = {};
    if (const HRESULT hr = QueryGetData(format); FAILED(hr)) return hr;
    const auto alive = keepAlive();
    try {
        return platform::recordMetafile(extent_, draw_, *medium);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

HRESULT DataObject::GetDataHere(FORMATETC*, STGMEDIUM*) {
    return E_NOTIMPL;
}

// The target device is not looked at: the picture is the same for all of them.
HRESULT DataObject::QueryGetData(FORMATETC* format) {
    if (!format) return E_POINTER;
    if (format->cfFormat != CF_ENHMETAFILE || !platform::hasMetafiles()) return DV_E_FORMATETC;
    if (format->dwAspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (format->lindex != kAllPages) return DV_E_LINDEX;
    return format->tymed & TYMED_ENHMF ? S_OK : DV_E_TYMED;
}

HRESULT DataObject::GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* canonical) {
    if (!format || !canonical) return E_POINTER;
    *canonical = *format;
    canonical->ptd = nullptr;
    return DATA_S_SAMEFORMATETC;
}

HRESULT DataObject::SetData(FORMATETC*, STGMEDIUM*, BOOL) {
    return E_NOTIMPL;
}

HRESULT DataObject::EnumFormatEtc(DWORD direction, IEnumFORMATETC** made) {
    if (!made) return E_POINTER;
    *made = nullptr;
    if (direction != DATADIR_GET) return E_NOTIMPL;
    const auto give = [](const FORMATETC& format) { return format; };
    try {
        const std::vector<FORMATETC> formats(platform::hasMetafiles() ? 1 : 0, metafileFormat());
        return Enumerator<IEnumFORMATETC, FORMATETC, FORMATETC>::make(IID_IEnumFORMATETC, formats, give, made);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

HRESULT DataObject::DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD* connection) {
    if (connection) *connection = 0;
    return OLE_E_ADVISENOTSUPPORTED;
}

HRESULT DataObject::DUnadvise(DWORD) {
    return OLE_E_ADVISENOTSUPPORTED;
}

HRESULT DataObject::EnumDAdvise(IEnumSTATDATA** made) {
    if (made) *made = nullptr;
    return OLE_E_ADVISENOTSUPPORTED;
}

}  // namespace ovaline
