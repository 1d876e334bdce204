// IDataObject: the preview as a metafile, where the platform has them.
#pragma once

#include "control/part.h"
#include "platform/metafile.h"

namespace ovaline {

/// Sends no notices of changed data: a change of the control is a change of its view, and the view's sink is told.
class DataObject final : public Part<IDataObject> {
public:
    /// `extent`, in HIMETRIC, is that of the object when a picture is asked for.
    DataObject(IUnknown& whole, const SIZEL& extent, platform::DrawPicture draw)
        : Part(whole), extent_(extent), draw_(std::move(draw)) {}

    HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) override;
    HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC* format, STGMEDIUM* medium) override;
    HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* format) override;
    HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* canonical) override;
    HRESULT STDMETHODCALLTYPE SetData(FORMATETC* format, STGMEDIUM* medium, BOOL release) override;
    HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD direction, IEnumFORMATETC** made) override;
    HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink, DWORD* connection) override;
    HRESULT STDMETHODCALLTYPE DUnadvise(DWORD connection) override;
    HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA** made) override;

private:
    const SIZEL& extent_;
    platform::DrawPicture draw_;
};

}  // namespace ovaline
