// The published interfaces of property pages and of the frame that shows them. Included by native/com_types.h alone.
#pragma once

struct MSG {
    HWND hwnd;
    UINT message;
    std::uintptr_t wParam;
    std::intptr_t lParam;
    DWORD time;
    struct {
        LONG x, y;
    } pt;
};

/// What a page tells of itself. The texts are allocated with CoTaskMemAlloc; the receiver frees them.
struct PROPPAGEINFO {
    ULONG cb;
    LPOLESTR pszTitle;
    SIZE size;
    LPOLESTR pszDocString;
    LPOLESTR pszHelpFile;
    DWORD dwHelpContext;
};

/// A counted array of GUIDs, allocated with CoTaskMemAlloc; the receiver frees it.
struct CAUUID {
    ULONG cElems;
    GUID* pElems;
};

enum PROPPAGESTATUS : DWORD { PROPPAGESTATUS_DIRTY = 1, PROPPAGESTATUS_VALIDATE = 2, PROPPAGESTATUS_CLEAN = 4 };

struct IPropertyPageSite : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE OnStatusChange(DWORD dwFlags) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetLocaleID(LCID* pLocaleID) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetPageContainer(IUnknown** ppUnk) = 0;
    virtual HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* pMsg) = 0;
};

struct IPropertyPage : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE SetPageSite(IPropertyPageSite* pPageSite) = 0;
    virtual HRESULT STDMETHODCALLTYPE Activate(HWND hWndParent, LPCRECT pRect, BOOL bModal) = 0;
    virtual HRESULT STDMETHODCALLTYPE Deactivate() = 0;
    virtual HRESULT STDMETHODCALLTYPE GetPageInfo(PROPPAGEINFO* pPageInfo) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetObjects(ULONG cObjects, IUnknown** ppUnk) = 0;
    virtual HRESULT STDMETHODCALLTYPE Show(UINT nCmdShow) = 0;
    virtual HRESULT STDMETHODCALLTYPE Move(LPCRECT pRect) = 0;
    virtual HRESULT STDMETHODCALLTYPE IsPageDirty() = 0;
    virtual HRESULT STDMETHODCALLTYPE Apply() = 0;
    virtual HRESULT STDMETHODCALLTYPE Help(LPCOLESTR pszHelpDir) = 0;
    virtual HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* pMsg) = 0;
};

struct ISpecifyPropertyPages : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetPages(CAUUID* pPages) = 0;
};

constexpr UINT SW_HIDE = 0;
constexpr UINT SW_SHOWNORMAL = 1;
constexpr UINT SW_SHOW = 5;

inline constexpr IID IID_ISpecifyPropertyPages{
    0xB196B28B, 0xBAB4, 0x101A, {0xB6, 0x9C, 0x00, 0xAA, 0x00, 0x34, 0x1D, 0x07}};
inline constexpr IID IID_IPropertyPageSite{
    0xB196B28C, 0xBAB4, 0x101A, {0xB6, 0x9C, 0x00, 0xAA, 0x00, 0x34, 0x1D, 0x07}};
inline constexpr IID IID_IPropertyPage{0xB196B28D, 0xBAB4, 0x101A, {0xB6, 0x9C, 0x00, 0xAA, 0x00, 0x34, 0x1D, 0x07}};
