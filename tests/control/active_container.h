// A container in which controls become active: it writes down what it is asked and can act inside any of the calls.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/memory/control_window.h"

namespace ovaline {

/// How much of in-place activation the container knows.
enum class SiteLevel { None, Plain, Extended, Windowless };

/// Client site, control site, in-place site of the given level and the frame of the active object in one.
class ActiveContainer final : public IOleClientSite,
                              public IOleInPlaceSiteWindowless,
                              public IOleControlSite,
                              public IAdviseSinkEx {
public:
    explicit ActiveContainer(SiteLevel siteLevel, std::vector<std::string>& log)
        : level(siteLevel), events(log), frame_(*this) {}

    SiteLevel level;
    std::vector<std::string>& events;
    std::map<std::string, std::function<void()>> reactions;  ///< to an event, by its first word
    std::map<std::string, HRESULT> answers;                  ///< other than S_OK, by the event's first word
    HWND parent = reinterpret_cast<HWND>(this);              ///< some window, for the windows in memory
    RECT place{1, 2, 31, 42};                                ///< of the control, in the window
    RECT seen{0, 0, 20, 20};                                 ///< nothing is shown outside of it
    ULONG references = 1;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
        *object = nullptr;
        if (IsEqualIID(riid, IID_IUnknown) || IsEqualIID(riid, IID_IOleClientSite))
            *object = static_cast<IOleClientSite*>(this);
        if (IsEqualIID(riid, IID_IOleControlSite)) *object = static_cast<IOleControlSite*>(this);
        if ((IsEqualIID(riid, IID_IOleInPlaceSite) && level >= SiteLevel::Plain) ||
            (IsEqualIID(riid, IID_IOleInPlaceSiteEx) && level >= SiteLevel::Extended) ||
            (IsEqualIID(riid, IID_IOleInPlaceSiteWindowless) && level >= SiteLevel::Windowless))
            *object = static_cast<IOleInPlaceSiteWindowless*>(this);
        if (!*object) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }

    HRESULT STDMETHODCALLTYPE SaveObject() override { return note("save"); }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) override { return note("moniker"); }
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer**) override { return E_NOINTERFACE; }
    HRESULT STDMETHODCALLTYPE ShowObject() override { return note("showObject"); }
    HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return note("showWindow"); }
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override {
        *window = parent;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return answer("canActivate"); }
    HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return note("active"); }
    HRESULT STDMETHODCALLTYPE OnUIActivate() override { return note("uiActive"); }
    HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, RECT* position,
                                               RECT* clip, OLEINPLACEFRAMEINFO*) override {
        *frame = nullptr;
        *document = nullptr;
        if (const HRESULT hr = answer("context"); hr != S_OK) return hr;
        *frame = &frame_;
        AddRef();
        *position = place;
        *clip = seen;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return note("uiInactive"); }
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return note("inactive"); }
    HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT) override { return note("posRect"); }
    HRESULT STDMETHODCALLTYPE OnInPlaceActivateEx(BOOL* noRedraw, DWORD flags) override {
        *noRedraw = 1;
        return note("active " + std::to_string(flags));
    }
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivateEx(BOOL) override { return note("inactive"); }
    HRESULT STDMETHODCALLTYPE RequestUIActivate() override { return answer("requestUi"); }

    HRESULT STDMETHODCALLTYPE CanWindowlessActivate() override { return answer("canGoWindowless"); }
    HRESULT STDMETHODCALLTYPE GetCapture() override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE SetCapture(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetFocus() override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE SetFocus(BOOL) override { return note("siteFocus"); }
    HRESULT STDMETHODCALLTYPE GetDC(LPCRECT, DWORD, HDC*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ReleaseDC(HDC) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE InvalidateRect(LPCRECT area, BOOL erase) override {
        return note(std::string("siteInvalidate") + (area ? " part" : " all") + (erase ? " erased" : ""));
    }
    HRESULT STDMETHODCALLTYPE InvalidateRgn(HRGN, BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ScrollRect(INT, INT, LPCRECT, LPCRECT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE AdjustRect(RECT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnDefWindowMessage(UINT, WPARAM, LPARAM, LRESULT*) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE OnControlInfoChanged() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*, DWORD) override { return answer("translate"); }
    HRESULT STDMETHODCALLTYPE OnFocus(BOOL focused) override { return note(focused ? "focused" : "unfocused"); }
    HRESULT STDMETHODCALLTYPE ShowPropertyFrame() override { return note("propertyFrame"); }

    void STDMETHODCALLTYPE OnDataChange(FORMATETC*, STGMEDIUM*) override {}
    void STDMETHODCALLTYPE OnViewChange(DWORD, LONG) override { note("viewChange"); }
    void STDMETHODCALLTYPE OnRename(IMoniker*) override {}
    void STDMETHODCALLTYPE OnSave() override { note("onSave"); }
    void STDMETHODCALLTYPE OnClose() override { note("onClose"); }
    void STDMETHODCALLTYPE OnViewStatusChange(DWORD) override {}

private:
    class Frame final : public IOleInPlaceFrame {
    public:
        explicit Frame(ActiveContainer& container) : container_(container) {}
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
        ULONG STDMETHODCALLTYPE AddRef() override { return container_.AddRef(); }
        ULONG STDMETHODCALLTYPE Release() override { return container_.Release(); }
        HRESULT STDMETHODCALLTYPE GetWindow(HWND*) override { return E_NOTIMPL; }
        HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
        HRESULT STDMETHODCALLTYPE GetBorder(RECT*) override { return E_NOTIMPL; }
        HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCRECT) override { return E_NOTIMPL; }
        HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCRECT space) override {
            return container_.note(space ? "border" : "noBorder");
        }
        HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) override {
            return container_.note(object ? "frameTakes" : "frameLeaves");
        }
        HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, OLEMENUGROUPWIDTHS*) override { return E_NOTIMPL; }
        HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) override { return E_NOTIMPL; }
        HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) override { return E_NOTIMPL; }
        HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) override { return E_NOTIMPL; }
        HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) override { return E_NOTIMPL; }
        HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG*, WORD) override { return E_NOTIMPL; }

    private:
        ActiveContainer& container_;
    };

    HRESULT note(const std::string& event) {
        events.push_back(event);
        return answer(event.substr(0, event.find(' ')));
    }
    /// Answers a call that is not written down.
    HRESULT answer(const std::string& name) {
        // Each reacts once, so that what it does can't lead back to it.
        if (auto reaction = reactions.extract(name)) reaction.mapped()();
        const auto found = answers.find(name);
        return found == answers.end() ? S_OK : found->second;
    }

    Frame frame_;
};

}  // namespace ovaline
