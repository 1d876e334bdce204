#include "control/in_place.h"

#include <utility>

namespace ovaline {

using platform::ComPtr;
using platform::query;

// A container may deactivate, close or let go of the control inside any call that is made to it. So every operation
// keeps the control alive, calls what it holds a reference to, and looks at the state again afterwards.

HRESULT InPlace::activate() {
    const auto alive = keepAlive();
    if (state_ == State::Leaving) return OLEOBJ_S_CANNOT_DOVERB_NOW;
    if (state_ == State::Inactive) {
        HRESULT hr = enter();
        if (SUCCEEDED(hr)) hr = takePlace();
        if (FAILED(hr)) {
            InPlaceDeactivate();
            return hr;
        }
    } else if (window_) {
        window_->setVisible(true);
    }
    return state_ == State::Inactive ? OLEOBJ_S_CANNOT_DOVERB_NOW : S_OK;
}

HRESULT InPlace::activateUi() {
    const auto alive = keepAlive();
    const HRESULT hr = activate();
    return hr == S_OK ? takeUi() : hr;
}

HRESULT InPlace::enter() {
    Site site;
    site.plain = container_.inPlaceSite();
    if (!site.plain || site.plain->CanInPlaceActivate() != S_OK) return E_FAIL;
    site.extended = query<IOleInPlaceSiteEx>(site.plain.get(), IID_IOleInPlaceSiteEx);
    site.windowless = query<IOleInPlaceSiteWindowless>(site.plain.get(), IID_IOleInPlaceSiteWindowless);
    if (site.windowless && site.windowless->CanWindowlessActivate() != S_OK) site.windowless = {};
    // Both answers may have come late: the container has taken its site back, or has activated the control.
    if (container_.inPlaceSite().get() != site.plain.get()) return E_FAIL;
    if (state_ != State::Inactive) return S_OK;
    state_ = State::Active;
    site_ = site;
    BOOL noRedraw = 0;
    const HRESULT hr = site.extended
                           ? site.extended->OnInPlaceActivateEx(&noRedraw, site.windowless ? ACTIVATE_WINDOWLESS : 0)
                           : site.plain->OnInPlaceActivate();
    if (FAILED(hr)) {
        // There is no activation to take back.
        state_ = State::Inactive;
        site_ = {};
        return hr;
    }
    if (site.windowless && !noRedraw && state_ != State::Inactive) site.windowless->InvalidateRect(nullptr, 1);
    return S_OK;
}

/// Finds the control's rectangle and makes its window there, unless it goes without one.
HRESULT InPlace::takePlace() {
    if (state_ == State::Inactive || window_) return S_OK;
    const Site site = site_;
    Context context;
    if (const HRESULT hr = contextOf(site, context); FAILED(hr)) return hr;
    HWND parent = nullptr;
    if (!site.windowless)
        if (const HRESULT hr = site.plain->GetWindow(&parent); FAILED(hr)) return hr;
    if (state_ == State::Inactive || window_) return S_OK;
    position_ = context.position;
    if (!site.windowless) {
        window_ = windows_.create(parent, context.position, *this);
        if (!window_) return E_FAIL;
        window_->place(context.position, context.clip);
    }
    if (const auto client = container_.clientSite()) client->ShowObject();
    return S_OK;
}

HRESULT InPlace::contextOf(const Site& site, Context& context) {
    OLEINPLACEFRAMEINFO info{};
    info.cb = sizeof info;
    return site.plain->GetWindowContext(context.frame.put(), context.document.put(), &context.position, &context.clip,
                                        &info);
}

void InPlace::setActiveObject(const Context& context, IOleInPlaceActiveObject* object) {
    if (context.document) context.document->SetActiveObject(object, nullptr);
    if (context.frame) context.frame->SetActiveObject(object, nullptr);
}

HRESULT InPlace::takeUi() {
    if (state_ == State::UiActive) return S_OK;
    const Site site = site_;
    if (site.extended && site.extended->RequestUIActivate() != S_OK) return OLEOBJ_S_CANNOT_DOVERB_NOW;
    if (state_ != State::Active) return S_OK;
    state_ = State::UiActive;
    if (const HRESULT hr = site.plain->OnUIActivate(); FAILED(hr)) {
        if (state_ == State::UiActive) state_ = State::Active;
        return hr;
    }
    if (state_ != State::UiActive) return S_OK;
    Context context;
    if (SUCCEEDED(contextOf(site, context)) && state_ == State::UiActive) {
        setActiveObject(context, this);
        // The control has no tools of its own: it wants no room at the borders.
        if (context.document) context.document->SetBorderSpace(nullptr);
        if (context.frame) context.frame->SetBorderSpace(nullptr);
    }
    if (state_ != State::UiActive) return S_OK;
    if (window_)
        window_->takeFocus();
    else if (site.windowless)
        site.windowless->SetFocus(1);
    return S_OK;
}

void InPlace::hide() {
    const auto alive = keepAlive();
    UIDeactivate();
    if (window_) window_->setVisible(false);
}

bool InPlace::requestRepaint() {
    if (window_) {
        window_->invalidate();
        return true;
    }
    const auto site = site_.windowless;
    if (!site) return false;
    site->InvalidateRect(nullptr, 1);
    return true;
}

HRESULT InPlace::GetWindow(HWND* window) {
    if (!window) return E_POINTER;
    *window = window_ ? window_->handle() : nullptr;
    return *window ? S_OK : E_FAIL;
}

HRESULT InPlace::ContextSensitiveHelp(BOOL) {
    return E_NOTIMPL;
}

HRESULT InPlace::InPlaceDeactivate() {
    const auto alive = keepAlive();
    UIDeactivate();
    if (state_ == State::Inactive) return S_OK;
    state_ = State::Inactive;
    const Site site = std::exchange(site_, {});
    std::exchange(window_, nullptr).reset();
    if (site.extended)
        site.extended->OnInPlaceDeactivateEx(0);
    else
        site.plain->OnInPlaceDeactivate();
    return S_OK;
}

HRESULT InPlace::UIDeactivate() {
    const auto alive = keepAlive();
    if (state_ != State::UiActive) return S_OK;
    state_ = State::Leaving;
    const Site site = site_;
    Context context;
    if (SUCCEEDED(contextOf(site, context))) setActiveObject(context, nullptr);
    site.plain->OnUIDeactivate(0);
    if (state_ == State::Leaving) state_ = State::Active;
    return S_OK;
}

HRESULT InPlace::SetObjectRects(LPCRECT position, LPCRECT clip) {
    if (!position || !clip) return E_INVALIDARG;
    position_ = *position;
    if (window_) window_->place(*position, *clip);
    return S_OK;
}

HRESULT InPlace::ReactivateAndUndo() {
    return INPLACE_E_NOTUNDOABLE;
}

HRESULT InPlace::OnWindowMessage(UINT message, WPARAM, LPARAM, LRESULT* result) {
    if (message != WM_SETFOCUS && message != WM_KILLFOCUS) return S_FALSE;
    if (result) *result = 0;
    focusChanged(message == WM_SETFOCUS);
    return S_OK;
}

HRESULT InPlace::GetDropTarget(IDropTarget** target) {
    if (target) *target = nullptr;
    return E_NOTIMPL;
}

// The control has no keys of its own; a container may have some that are meant for its controls.
HRESULT InPlace::TranslateAccelerator(MSG* message) {
    if (!message) return E_POINTER;
    const auto alive = keepAlive();
    const auto site = container_.controlSite();
    return site && site->TranslateAccelerator(message, windows_.keyModifiers()) == S_OK ? S_OK : S_FALSE;
}

HRESULT InPlace::OnFrameWindowActivate(BOOL) {
    return S_OK;
}
HRESULT InPlace::OnDocWindowActivate(BOOL) {
    return S_OK;
}
HRESULT InPlace::ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) {
    return S_OK;
}
HRESULT InPlace::EnableModeless(BOOL) {
    return S_OK;
}

void InPlace::paint(HDC dc, const RECT& client) {
    const auto alive = keepAlive();
    draw_(dc, {client.left, client.top, client.right, client.bottom});
}

void InPlace::focusChanged(bool focused) {
    const auto alive = keepAlive();
    if (state_ == State::Inactive) return;
    if (const auto site = container_.controlSite()) site->OnFocus(focused);
    if (focused && state_ == State::Active) takeUi();
}

}  // namespace ovaline
