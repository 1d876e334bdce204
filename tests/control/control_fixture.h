// A control on the memory font, with a container that records what it is asked.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "control/norvel_ovaline_ctrl.h"
#include "platform/memory/clock.h"
#include "platform/memory/fonts.h"

namespace ovaline {

/// Client site, in-place site and advise sink in one; counts its references and writes down the calls.
class RecordingContainer final : public IOleClientSite, public IOleInPlaceSite, public IAdviseSink {
public:
    std::vector<std::string> events;
    ULONG references = 1;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
        *object = nullptr;
        if (IsEqualIID(riid, IID_IOleClientSite)) *object = static_cast<IOleClientSite*>(this);
        if (IsEqualIID(riid, IID_IOleInPlaceSite)) *object = static_cast<IOleInPlaceSite*>(this);
        if (!*object) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }

    HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT r) override {
        std::ostringstream text;
        text << "posRect " << r->left << ' ' << r->top << ' ' << r->right << ' ' << r->bottom;
        events.push_back(text.str());
        return S_OK;
    }
    void STDMETHODCALLTYPE OnViewChange(DWORD aspect, LONG index) override {
        events.push_back("viewChange " + std::to_string(aspect) + ' ' + std::to_string(index));
    }

    HRESULT STDMETHODCALLTYPE SaveObject() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer**) override { return E_NOINTERFACE; }
    HRESULT STDMETHODCALLTYPE ShowObject() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetWindow(HWND*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnUIActivate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame**, IOleInPlaceUIWindow**, RECT*, RECT*,
                                               OLEINPLACEFRAMEINFO*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return E_NOTIMPL; }
    void STDMETHODCALLTYPE OnDataChange(FORMATETC*, STGMEDIUM*) override {}
    void STDMETHODCALLTYPE OnRename(IMoniker*) override {}
    void STDMETHODCALLTYPE OnSave() override {}
    void STDMETHODCALLTYPE OnClose() override {}
};

/// A BSTR for the length of a full expression or a scope.
class Text {
public:
    explicit Text(std::u16string_view text) : text_(platform::makeBstr(text)) {}
    ~Text() { SysFreeString(text_); }
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    operator BSTR() const { return text_; }

private:
    BSTR text_;
};

class ControlTest : public testing::Test {
protected:
    using Control = CNorvel_OvalineCtrl;

    template <typename Value>
    Value get(HRESULT (STDMETHODCALLTYPE Control::*getter)(Value*)) {
        Value value{};
        EXPECT_EQ((control.get()->*getter)(&value), S_OK);
        return value;
    }
    std::u16string text(HRESULT (STDMETHODCALLTYPE Control::*getter)(BSTR*)) {
        BSTR value = get(getter);
        std::u16string copy = platform::textOf(value);
        SysFreeString(value);
        return copy;
    }
    const TextSettings& settings() const { return control->settings(); }
    const KeptPaths& paths() const { return control->paths(); }

    platform::MemoryFontService fonts;
    platform::MemoryClock clock{{{2026, 11, 17, 19, 33, 24}}};
    platform::ComPtr<Control> control = platform::ComPtr<Control>::adopt(Control::create(fonts, clock, 96));
};

}  // namespace ovaline
