// The container that a control sits in: it takes the control's requests and remembers them in their order.
#pragma once

#include <atomic>
#include <memory>
#include <utility>

#include "host/events.h"
#include "platform/com.h"

namespace ovaline::host {

/// A container that shows nothing and never activates a control in place. One object is the client site, the in-place
/// site and the advise sink.
class ContainerSite final : public IOleClientSite, public IOleInPlaceSite, public IAdviseSink {
public:
    /// The caller owns the reference.
    static ContainerSite* create(std::shared_ptr<EventLog> events) { return new ContainerSite(std::move(events)); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE SaveObject() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker** moniker) override;
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) override;
    HRESULT STDMETHODCALLTYPE ShowObject() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override { return E_UNEXPECTED; }
    HRESULT STDMETHODCALLTYPE OnUIActivate() override { return E_UNEXPECTED; }
    HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame**, IOleInPlaceUIWindow**, RECT*, RECT*,
                                               OLEINPLACEFRAMEINFO*) override {
        return E_UNEXPECTED;
    }
    HRESULT STDMETHODCALLTYPE Scroll(SIZE) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE DiscardUndoState() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT rectangle) override;

    void STDMETHODCALLTYPE OnDataChange(FORMATETC*, STGMEDIUM*) override {}
    void STDMETHODCALLTYPE OnViewChange(DWORD aspect, LONG index) override;
    void STDMETHODCALLTYPE OnRename(IMoniker*) override {}
    void STDMETHODCALLTYPE OnSave() override {}
    void STDMETHODCALLTYPE OnClose() override {}

private:
    explicit ContainerSite(std::shared_ptr<EventLog> events) : events_(std::move(events)) {}
    ~ContainerSite() = default;

    std::atomic<ULONG> references_ = 1;
    std::shared_ptr<EventLog> events_;
};

}  // namespace ovaline::host
