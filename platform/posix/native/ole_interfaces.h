// The published OLE interfaces between a control and its container that this system uses so far. Included by
// native/com_types.h alone.
#pragma once

struct IMoniker;
struct IDataObject;
struct IEnumOLEVERB;
struct IEnumSTATDATA;
struct IOleInPlaceFrame;
struct IOleInPlaceUIWindow;
struct IOleContainer;
struct LOGPALETTE;
struct FORMATETC;
struct STGMEDIUM;
struct DVTARGETDEVICE;
struct OLEINPLACEFRAMEINFO;
using CLIPFORMAT = WORD;

constexpr DWORD DVASPECT_CONTENT = 1;

struct IAdviseSink : IUnknown {
    virtual void STDMETHODCALLTYPE OnDataChange(FORMATETC* pFormatetc, STGMEDIUM* pStgmed) = 0;
    virtual void STDMETHODCALLTYPE OnViewChange(DWORD dwAspect, LONG lindex) = 0;
    virtual void STDMETHODCALLTYPE OnRename(IMoniker* pmk) = 0;
    virtual void STDMETHODCALLTYPE OnSave() = 0;
    virtual void STDMETHODCALLTYPE OnClose() = 0;
};

struct IOleClientSite : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE SaveObject() = 0;
    virtual HRESULT STDMETHODCALLTYPE GetMoniker(DWORD dwAssign, DWORD dwWhichMoniker, IMoniker** ppmk) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** ppContainer) = 0;
    virtual HRESULT STDMETHODCALLTYPE ShowObject() = 0;
    virtual HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL fShow) = 0;
    virtual HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() = 0;
};

struct IOleWindow : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetWindow(HWND* phwnd) = 0;
    virtual HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL fEnterMode) = 0;
};

struct IOleInPlaceSite : IOleWindow {
    virtual HRESULT STDMETHODCALLTYPE CanInPlaceActivate() = 0;
    virtual HRESULT STDMETHODCALLTYPE OnInPlaceActivate() = 0;
    virtual HRESULT STDMETHODCALLTYPE OnUIActivate() = 0;
    virtual HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** ppFrame, IOleInPlaceUIWindow** ppDoc,
                                                       RECT* lprcPosRect, RECT* lprcClipRect,
                                                       OLEINPLACEFRAMEINFO* lpFrameInfo) = 0;
    virtual HRESULT STDMETHODCALLTYPE Scroll(SIZE scrollExtant) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL fUndoable) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() = 0;
    virtual HRESULT STDMETHODCALLTYPE DiscardUndoState() = 0;
    virtual HRESULT STDMETHODCALLTYPE DeactivateAndUndo() = 0;
    virtual HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT lprcPosRect) = 0;
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

inline constexpr IID IID_IViewObject{0x0000010D, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IAdviseSink{0x0000010F, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IOleObject{0x00000112, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IOleWindow{0x00000114, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IOleClientSite{0x00000118, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IOleInPlaceSite{0x00000119, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
