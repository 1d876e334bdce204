// The published interfaces through which an object hands out its data and tells of its changes. Included by
// native/com_types.h alone, through native/ole_interfaces.h.
#pragma once

using CLIPFORMAT = WORD;
using HBITMAP = struct HBITMAP__*;
using HMETAFILEPICT = void*;
using HENHMETAFILE = struct HENHMETAFILE__*;
using HGLOBAL = void*;

struct DVTARGETDEVICE;
struct IStream;
struct IStorage;
struct IMoniker;

constexpr DWORD DVASPECT_CONTENT = 1;
constexpr CLIPFORMAT CF_ENHMETAFILE = 14;
constexpr DWORD TYMED_ENHMF = 64;
constexpr DWORD DATADIR_GET = 1;

constexpr HRESULT OLE_E_NOCONNECTION = statusCode(0x80040004);
constexpr HRESULT DV_E_FORMATETC = statusCode(0x80040064);
constexpr HRESULT DV_E_LINDEX = statusCode(0x80040068);
constexpr HRESULT DV_E_TYMED = statusCode(0x80040069);
constexpr HRESULT DATA_S_SAMEFORMATETC = 0x00040130;

struct FORMATETC {
    CLIPFORMAT cfFormat;
    DVTARGETDEVICE* ptd;
    DWORD dwAspect;
    LONG lindex;
    DWORD tymed;
};

struct STGMEDIUM {
    DWORD tymed;
    union {
        HBITMAP hBitmap;
        HMETAFILEPICT hMetaFilePict;
        HENHMETAFILE hEnhMetaFile;
        HGLOBAL hGlobal;
        LPOLESTR lpszFileName;
        IStream* pstm;
        IStorage* pstg;
    };
    IUnknown* pUnkForRelease;
};

struct IAdviseSink : IUnknown {
    virtual void STDMETHODCALLTYPE OnDataChange(FORMATETC* pFormatetc, STGMEDIUM* pStgmed) = 0;
    virtual void STDMETHODCALLTYPE OnViewChange(DWORD dwAspect, LONG lindex) = 0;
    virtual void STDMETHODCALLTYPE OnRename(IMoniker* pmk) = 0;
    virtual void STDMETHODCALLTYPE OnSave() = 0;
    virtual void STDMETHODCALLTYPE OnClose() = 0;
};

struct STATDATA {
    FORMATETC formatetc;
    DWORD advf;
    IAdviseSink* pAdvSink;
    DWORD dwConnection;
};

struct IEnumFORMATETC : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Next(ULONG celt, FORMATETC* rgelt, ULONG* pceltFetched) = 0;
    virtual HRESULT STDMETHODCALLTYPE Skip(ULONG celt) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reset() = 0;
    virtual HRESULT STDMETHODCALLTYPE Clone(IEnumFORMATETC** ppenum) = 0;
};

struct IEnumSTATDATA : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Next(ULONG celt, STATDATA* rgelt, ULONG* pceltFetched) = 0;
    virtual HRESULT STDMETHODCALLTYPE Skip(ULONG celt) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reset() = 0;
    virtual HRESULT STDMETHODCALLTYPE Clone(IEnumSTATDATA** ppenum) = 0;
};

struct IDataObject : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetData(FORMATETC* pformatetcIn, STGMEDIUM* pmedium) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC* pformatetc, STGMEDIUM* pmedium) = 0;
    virtual HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* pformatetc) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC* pformatectIn, FORMATETC* pformatetcOut) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetData(FORMATETC* pformatetc, STGMEDIUM* pmedium, BOOL fRelease) = 0;
    virtual HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD dwDirection, IEnumFORMATETC** ppenumFormatEtc) = 0;
    virtual HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC* pformatetc, DWORD advf, IAdviseSink* pAdvSink,
                                              DWORD* pdwConnection) = 0;
    virtual HRESULT STDMETHODCALLTYPE DUnadvise(DWORD dwConnection) = 0;
    virtual HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA** ppenumAdvise) = 0;
};

inline constexpr IID IID_IEnumFORMATETC{0x00000103, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IEnumSTATDATA{0x00000105, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IDataObject{0x0000010E, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IAdviseSink{0x0000010F, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
