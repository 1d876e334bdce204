// The published interfaces of activation in place, with a window of the control's own and without one. Included by
// native/com_types.h alone, through native/ole_interfaces.h.
#pragma once

using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using HRGN = struct HRGN__*;
using HMENU = struct HMENU__*;
using HACCEL = struct HACCEL__*;
using HOLEMENU = void*;

struct IDropTarget;
struct OLEMENUGROUPWIDTHS;

constexpr UINT WM_SETFOCUS = 0x0007;
constexpr UINT WM_KILLFOCUS = 0x0008;

constexpr DWORD ACTIVATE_WINDOWLESS = 1;
constexpr HRESULT INPLACE_E_NOTUNDOABLE = statusCode(0x800401A0);

struct OLEINPLACEFRAMEINFO {
    UINT cb;
    BOOL fMDIApp;
    HWND hwndFrame;
    HACCEL haccel;
    UINT cAccelEntries;
};

struct IOleWindow : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetWindow(HWND* phwnd) = 0;
    virtual HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL fEnterMode) = 0;
};

struct IOleInPlaceActiveObject;

struct IOleInPlaceUIWindow : IOleWindow {
    virtual HRESULT STDMETHODCALLTYPE GetBorder(RECT* lprectBorder) = 0;
    virtual HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCRECT pborderwidths) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCRECT pborderwidths) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject* pActiveObject, LPCOLESTR pszObjName) = 0;
};

struct IOleInPlaceFrame : IOleInPlaceUIWindow {
    virtual HRESULT STDMETHODCALLTYPE InsertMenus(HMENU hmenuShared, OLEMENUGROUPWIDTHS* lpMenuWidths) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetMenu(HMENU hmenuShared, HOLEMENU holemenu, HWND hwndActiveObject) = 0;
    virtual HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU hmenuShared) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR pszStatusText) = 0;
    virtual HRESULT STDMETHODCALLTYPE EnableModeless(BOOL fEnable) = 0;
    virtual HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* lpmsg, WORD wID) = 0;
};

struct IOleInPlaceActiveObject : IOleWindow {
    virtual HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* lpmsg) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(BOOL fActivate) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnDocWindowActivate(BOOL fActivate) = 0;
    virtual HRESULT STDMETHODCALLTYPE ResizeBorder(LPCRECT prcBorder, IOleInPlaceUIWindow* pUIWindow,
                                                   BOOL fFrameWindow) = 0;
    virtual HRESULT STDMETHODCALLTYPE EnableModeless(BOOL fEnable) = 0;
};

struct IOleInPlaceObject : IOleWindow {
    virtual HRESULT STDMETHODCALLTYPE InPlaceDeactivate() = 0;
    virtual HRESULT STDMETHODCALLTYPE UIDeactivate() = 0;
    virtual HRESULT STDMETHODCALLTYPE SetObjectRects(LPCRECT lprcPosRect, LPCRECT lprcClipRect) = 0;
    virtual HRESULT STDMETHODCALLTYPE ReactivateAndUndo() = 0;
};

struct IOleInPlaceObjectWindowless : IOleInPlaceObject {
    virtual HRESULT STDMETHODCALLTYPE OnWindowMessage(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT* plResult) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetDropTarget(IDropTarget** ppDropTarget) = 0;
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

struct IOleInPlaceSiteEx : IOleInPlaceSite {
    virtual HRESULT STDMETHODCALLTYPE OnInPlaceActivateEx(BOOL* pfNoRedraw, DWORD dwFlags) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnInPlaceDeactivateEx(BOOL fNoRedraw) = 0;
    virtual HRESULT STDMETHODCALLTYPE RequestUIActivate() = 0;
};

struct IOleInPlaceSiteWindowless : IOleInPlaceSiteEx {
    virtual HRESULT STDMETHODCALLTYPE CanWindowlessActivate() = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCapture() = 0;
    virtual HRESULT STDMETHODCALLTYPE SetCapture(BOOL fCapture) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetFocus() = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFocus(BOOL fFocus) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetDC(LPCRECT pRect, DWORD grfFlags, HDC* phDC) = 0;
    virtual HRESULT STDMETHODCALLTYPE ReleaseDC(HDC hDC) = 0;
    virtual HRESULT STDMETHODCALLTYPE InvalidateRect(LPCRECT pRect, BOOL fErase) = 0;
    virtual HRESULT STDMETHODCALLTYPE InvalidateRgn(HRGN hRGN, BOOL fErase) = 0;
    virtual HRESULT STDMETHODCALLTYPE ScrollRect(INT dx, INT dy, LPCRECT pRectScroll, LPCRECT pRectClip) = 0;
    virtual HRESULT STDMETHODCALLTYPE AdjustRect(RECT* prc) = 0;
    virtual HRESULT STDMETHODCALLTYPE OnDefWindowMessage(UINT msg, WPARAM wParam, LPARAM lParam, LRESULT* plResult) = 0;
};

inline constexpr IID IID_IOleInPlaceObject{0x00000113, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IOleWindow{0x00000114, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IOleInPlaceUIWindow{0x00000115, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IOleInPlaceFrame{0x00000116, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IOleInPlaceActiveObject{0x00000117, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IOleInPlaceSite{0x00000119, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IOleInPlaceObjectWindowless{
    0x1C2056CC, 0x5EF4, 0x101B, {0x8B, 0xC8, 0x00, 0xAA, 0x00, 0x3E, 0x3B, 0x29}};
inline constexpr IID IID_IOleInPlaceSiteEx{
    0x9C2CAD80, 0x3424, 0x11CF, {0xB6, 0x70, 0x00, 0xAA, 0x00, 0x4C, 0xD6, 0xD8}};
inline constexpr IID IID_IOleInPlaceSiteWindowless{
    0x922EADA0, 0x3424, 0x11CF, {0xB6, 0x70, 0x00, 0xAA, 0x00, 0x4C, 0xD6, 0xD8}};
