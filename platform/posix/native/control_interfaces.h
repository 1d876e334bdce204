// The published interfaces of controls: what a container sets, connects and asks. Included by native/com_types.h
// alone, through native/ole_interfaces.h.
#pragma once

using OLE_COLOR = DWORD;
using HPALETTE = struct HPALETTE__*;

struct CONTROLINFO;
struct POINTF;
struct IFont;
struct IOleUndoManager;
struct IBindHost;
struct IServiceProvider;

struct POINTL {
    LONG x, y;
};

constexpr DISPID DISPID_AMBIENT_USERMODE = -709;
constexpr DWORD GUIDKIND_DEFAULT_SOURCE_DISP_IID = 1;
constexpr HRESULT CONNECT_E_NOCONNECTION = statusCode(0x80040200);
constexpr HRESULT CONNECT_E_CANNOTCONNECT = statusCode(0x80040202);
constexpr HRESULT TYPE_E_CANTLOADLIBRARY = statusCode(0x80029C4A);

struct IOleControl : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* pCI) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnMnemonic(MSG* pMsg) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID dispID) = 0;
    virtual HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL bFreeze) = 0;
};

struct IOleControlSite : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE OnControlInfoChanged() = 0;
    virtual HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL fLock) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch** ppDisp) = 0;
    virtual HRESULT STDMETHODCALLTYPE TransformCoords(POINTL* pPtlHimetric, POINTF* pPtfContainer, DWORD dwFlags) = 0;
    virtual HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* pMsg, DWORD grfModifiers) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnFocus(BOOL fGotFocus) = 0;
    virtual HRESULT STDMETHODCALLTYPE ShowPropertyFrame() = 0;
};

struct CONNECTDATA {
    IUnknown* pUnk;
    DWORD dwCookie;
};

struct IConnectionPointContainer;

struct IEnumConnections : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Next(ULONG cConnections, CONNECTDATA* rgcd, ULONG* pcFetched) = 0;
    virtual HRESULT STDMETHODCALLTYPE Skip(ULONG cConnections) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reset() = 0;
    virtual HRESULT STDMETHODCALLTYPE Clone(IEnumConnections** ppEnum) = 0;
};

struct IConnectionPoint : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* pIID) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** ppCPC) = 0;
    virtual HRESULT STDMETHODCALLTYPE Advise(IUnknown* pUnkSink, DWORD* pdwCookie) = 0;
    virtual HRESULT STDMETHODCALLTYPE Unadvise(DWORD dwCookie) = 0;
    virtual HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** ppEnum) = 0;
};

struct IEnumConnectionPoints : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE Next(ULONG cConnections, IConnectionPoint** ppCP, ULONG* pcFetched) = 0;
    virtual HRESULT STDMETHODCALLTYPE Skip(ULONG cConnections) = 0;
    virtual HRESULT STDMETHODCALLTYPE Reset() = 0;
    virtual HRESULT STDMETHODCALLTYPE Clone(IEnumConnectionPoints** ppEnum) = 0;
};

struct IConnectionPointContainer : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** ppEnum) = 0;
    virtual HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID riid, IConnectionPoint** ppCP) = 0;
};

struct IPropertyNotifySink : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE OnChanged(DISPID dispID) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnRequestEdit(DISPID dispID) = 0;
};

struct IProvideClassInfo : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** ppTI) = 0;
};

struct IProvideClassInfo2 : IProvideClassInfo {
    virtual HRESULT STDMETHODCALLTYPE GetGUID(DWORD dwGuidKind, GUID* pGUID) = 0;
};

struct IAdviseSinkEx : IAdviseSink {
    virtual void STDMETHODCALLTYPE OnViewStatusChange(DWORD dwViewStatus) = 0;
};

struct QACONTAINER {
    ULONG cbSize;
    IOleClientSite* pClientSite;
    IAdviseSinkEx* pAdviseSink;
    IPropertyNotifySink* pPropertyNotifySink;
    IUnknown* pUnkEventSink;
    DWORD dwAmbientFlags;
    OLE_COLOR colorFore;
    OLE_COLOR colorBack;
    IFont* pFont;
    IOleUndoManager* pUndoMgr;
    DWORD dwAppearance;
    LONG lcid;
    HPALETTE hpal;
    IBindHost* pBindHost;
    IOleControlSite* pOleControlSite;
    IServiceProvider* pServiceProvider;
};

struct QACONTROL {
    ULONG cbSize;
    DWORD dwMiscStatus;
    DWORD dwViewStatus;
    DWORD dwEventCookie;
    DWORD dwPropNotifyCookie;
    DWORD dwPointerActivationPolicy;
};

struct IQuickActivate : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE QuickActivate(QACONTAINER* pQaContainer, QACONTROL* pQaControl) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetContentExtent(SIZEL* pSizel) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetContentExtent(SIZEL* pSizel) = 0;
};

inline constexpr IID IID_IProvideClassInfo{
    0xB196B283, 0xBAB4, 0x101A, {0xB6, 0x9C, 0x00, 0xAA, 0x00, 0x34, 0x1D, 0x07}};
inline constexpr IID IID_IConnectionPointContainer{
    0xB196B284, 0xBAB4, 0x101A, {0xB6, 0x9C, 0x00, 0xAA, 0x00, 0x34, 0x1D, 0x07}};
inline constexpr IID IID_IEnumConnectionPoints{
    0xB196B285, 0xBAB4, 0x101A, {0xB6, 0x9C, 0x00, 0xAA, 0x00, 0x34, 0x1D, 0x07}};
inline constexpr IID IID_IConnectionPoint{0xB196B286, 0xBAB4, 0x101A, {0xB6, 0x9C, 0x00, 0xAA, 0x00, 0x34, 0x1D, 0x07}};
inline constexpr IID IID_IEnumConnections{0xB196B287, 0xBAB4, 0x101A, {0xB6, 0x9C, 0x00, 0xAA, 0x00, 0x34, 0x1D, 0x07}};
inline constexpr IID IID_IOleControl{0xB196B288, 0xBAB4, 0x101A, {0xB6, 0x9C, 0x00, 0xAA, 0x00, 0x34, 0x1D, 0x07}};
inline constexpr IID IID_IOleControlSite{0xB196B289, 0xBAB4, 0x101A, {0xB6, 0x9C, 0x00, 0xAA, 0x00, 0x34, 0x1D, 0x07}};
inline constexpr IID IID_IPropertyNotifySink{
    0x9BFBBC02, 0xEFF1, 0x101A, {0x84, 0xED, 0x00, 0xAA, 0x00, 0x34, 0x1D, 0x07}};
inline constexpr IID IID_IProvideClassInfo2{
    0xA6BC3AC0, 0xDBAA, 0x11CE, {0x9D, 0xE3, 0x00, 0xAA, 0x00, 0x4B, 0xB8, 0x51}};
inline constexpr IID IID_IAdviseSinkEx{0x3AF24290, 0x0C96, 0x11CE, {0xA0, 0xCF, 0x00, 0xAA, 0x00, 0x60, 0x0A, 0xB8}};
inline constexpr IID IID_IQuickActivate{0xCF51ED10, 0x62FE, 0x11CF, {0xBF, 0x86, 0x00, 0xA0, 0xC9, 0x03, 0x48, 0x36}};
