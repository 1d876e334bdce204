// The published OLE interfaces between a control and its container. Included by native/com_types.h alone.
#pragma once

#include "native/data_interfaces.h"
#include "native/in_place_interfaces.h"

struct IEnumOLEVERB;
struct IOleContainer;
struct LOGPALETTE;

constexpr LONG OLEIVERB_PRIMARY = 0;
constexpr LONG OLEIVERB_SHOW = -1;
constexpr LONG OLEIVERB_HIDE = -3;
constexpr LONG OLEIVERB_UIACTIVATE = -4;
constexpr LONG OLEIVERB_INPLACEACTIVATE = -5;
constexpr LONG OLEIVERB_DISCARDUNDOSTATE = -6;
constexpr LONG OLEIVERB_PROPERTIES = -7;

constexpr DWORD OLECLOSE_NOSAVE = 1;

constexpr DWORD OLEMISC_RECOMPOSEONRESIZE = 0x1;
constexpr DWORD OLEMISC_CANTLINKINSIDE = 0x10;
constexpr DWORD OLEMISC_INSIDEOUT = 0x80;
constexpr DWORD OLEMISC_ACTIVATEWHENVISIBLE = 0x100;
constexpr DWORD OLEMISC_SETCLIENTSITEFIRST = 0x20000;

constexpr DWORD ADVF_PRIMEFIRST = 2;
constexpr DWORD ADVF_ONLYONCE = 4;

constexpr DWORD HITRESULT_OUTSIDE = 0;
constexpr DWORD HITRESULT_HIT = 3;

constexpr HRESULT OLEOBJ_S_INVALIDVERB = 0x00040180;
constexpr HRESULT OLEOBJ_S_CANNOT_DOVERB_NOW = 0x00040181;
constexpr HRESULT OLEOBJ_E_NOVERBS = statusCode(0x80040180);

struct POINT {
    LONG x, y;
};

constexpr DWORD DVEXTENT_CONTENT = 0;
struct DVEXTENTINFO {
    ULONG cb;
    DWORD dwExtentMode;
    SIZEL sizelProposed;
};

struct IOleClientSite : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE SaveObject() = 0;
    virtual HRESULT STDMETHODCALLTYPE GetMoniker(DWORD dwAssign, DWORD dwWhichMoniker, IMoniker** ppmk) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** ppContainer) = 0;
    virtual HRESULT STDMETHODCALLTYPE ShowObject() = 0;
    virtual HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL fShow) = 0;
    virtual HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() = 0;
};

struct IOleObject : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* pClientSite) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite** ppClientSite) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR szContainerApp, LPCOLESTR szContainerObj) = 0;
    virtual HRESULT STDMETHODCALLTYPE Close(DWORD dwSaveOption) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetMoniker(DWORD dwWhichMoniker, IMoniker* pmk) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetMoniker(DWORD dwAssign, DWORD dwWhichMoniker, IMoniker** ppmk) = 0;
    virtual HRESULT STDMETHODCALLTYPE InitFromData(IDataObject* pDataObject, BOOL fCreation, DWORD dwReserved) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD dwReserved, IDataObject** ppDataObject) = 0;
    virtual HRESULT STDMETHODCALLTYPE DoVerb(LONG iVerb, MSG* lpmsg, IOleClientSite* pActiveSite, LONG lindex,
                                             HWND hwndParent, LPCRECT lprcPosRect) = 0;
    virtual HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB** ppEnumOleVerb) = 0;
    virtual HRESULT STDMETHODCALLTYPE Update() = 0;
    virtual HRESULT STDMETHODCALLTYPE IsUpToDate() = 0;
    virtual HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID* pClsid) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetUserType(DWORD dwFormOfType, LPOLESTR* pszUserType) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetExtent(DWORD dwDrawAspect, SIZEL* psizel) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetExtent(DWORD dwDrawAspect, SIZEL* psizel) = 0;
    virtual HRESULT STDMETHODCALLTYPE Advise(IAdviseSink* pAdvSink, DWORD* pdwConnection) = 0;
    virtual HRESULT STDMETHODCALLTYPE Unadvise(DWORD dwConnection) = 0;
    virtual HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA** ppenumAdvise) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD dwAspect, DWORD* pdwStatus) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE* pLogpal) = 0;
};

struct IViewObject : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Draw(DWORD dwDrawAspect, LONG lindex, void* pvAspect, DVTARGETDEVICE* ptd,
                                           HDC hdcTargetDev, HDC hdcDraw, LPCRECTL lprcBounds, LPCRECTL lprcWBounds,
                                           BOOL(STDMETHODCALLTYPE* pfnContinue)(ULONG_PTR), ULONG_PTR dwContinue) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetColorSet(DWORD dwDrawAspect, LONG lindex, void* pvAspect, DVTARGETDEVICE* ptd,
                                                  HDC hicTargetDev, LOGPALETTE** ppColorSet) = 0;
    virtual HRESULT STDMETHODCALLTYPE Freeze(DWORD dwDrawAspect, LONG lindex, void* pvAspect, DWORD* pdwFreeze) = 0;
    virtual HRESULT STDMETHODCALLTYPE Unfreeze(DWORD dwFreeze) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspects, DWORD advf, IAdviseSink* pAdvSink) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetAdvise(DWORD* pAspects, DWORD* pAdvf, IAdviseSink** ppAdvSink) = 0;
};

struct IViewObject2 : IViewObject {
    virtual HRESULT STDMETHODCALLTYPE GetExtent(DWORD dwDrawAspect, LONG lindex, DVTARGETDEVICE* ptd,
                                                SIZEL* lpsizel) = 0;
};

struct IViewObjectEx : IViewObject2 {
    virtual HRESULT STDMETHODCALLTYPE GetRect(DWORD dwAspect, RECTL* pRect) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetViewStatus(DWORD* pdwStatus) = 0;
    virtual HRESULT STDMETHODCALLTYPE QueryHitPoint(DWORD dwAspect, LPCRECT pRectBounds, POINT ptlLoc, LONG lCloseHint,
                                                    DWORD* pHitResult) = 0;
    virtual HRESULT STDMETHODCALLTYPE QueryHitRect(DWORD dwAspect, LPCRECT pRectBounds, LPCRECT pRectLoc,
                                                   LONG lCloseHint, DWORD* pHitResult) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetNaturalExtent(DWORD dwAspect, LONG lindex, DVTARGETDEVICE* ptd,
                                                       HDC hicTargetDev, DVEXTENTINFO* pExtentInfo, SIZEL* pSizel) = 0;
};

inline constexpr IID IID_IViewObject{0x0000010D, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IOleObject{0x00000112, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IOleClientSite{0x00000118, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IViewObject2{0x00000127, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IViewObjectEx{0x3AF24292, 0x0C96, 0x11CE, {0xA0, 0xCF, 0x00, 0xAA, 0x00, 0x60, 0x0A, 0xB8}};

#include "native/control_interfaces.h"
