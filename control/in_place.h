// Activation in place: the control in its container's window, without a window of its own where the container can
// do with that, else with one.
#pragma once

#include <memory>

#include "control/container_link.h"
#include "control/part.h"
#include "platform/control_window.h"
#include "platform/metafile.h"

namespace ovaline {

class InPlace final : public Part<IOleInPlaceObjectWindowless, IOleInPlaceActiveObject>,
                      private platform::ControlWindowEvents {
public:
    /// `draw` draws the control into a rectangle of a device context.
    InPlace(IUnknown& whole, const ContainerLink& container, platform::WindowSystem& windows,
            platform::DrawPicture draw)
        : Part(whole), container_(container), windows_(windows), draw_(std::move(draw)) {}

    /// Activates in place what is not active, and shows what was hidden. E_FAIL where the container has no in-place
    /// site, does not want it or there is no window to be had; the control is then inactive again.
    HRESULT activate();
    /// The same, then takes the container's user interface and the focus. OLEOBJ_S_CANNOT_DOVERB_NOW where the
    /// container keeps it.
    HRESULT activateUi();
    /// Gives the user interface back and takes the window out of sight. The control stays active.
    void hide();
    /// Asks for a repaint of the whole control with its ground erased. False where the control is not active: then
    /// its picture is the container's.
    bool requestRepaint();
    /// The control's rectangle in the container's window, in pixels; null while it is not active without a window.
    const RECT* windowlessPosition() const { return site_.windowless ? &position_ : nullptr; }

    // IOleWindow, of both interfaces.
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL enter) override;

    HRESULT STDMETHODCALLTYPE InPlaceDeactivate() override;
    HRESULT STDMETHODCALLTYPE UIDeactivate() override;
    HRESULT STDMETHODCALLTYPE SetObjectRects(LPCRECT position, LPCRECT clip) override;
    HRESULT STDMETHODCALLTYPE ReactivateAndUndo() override;
    HRESULT STDMETHODCALLTYPE OnWindowMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    HRESULT STDMETHODCALLTYPE GetDropTarget(IDropTarget** target) override;

    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message) override;
    HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(BOOL active) override;
    HRESULT STDMETHODCALLTYPE OnDocWindowActivate(BOOL active) override;
    HRESULT STDMETHODCALLTYPE ResizeBorder(LPCRECT border, IOleInPlaceUIWindow* window, BOOL frameWindow) override;
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL enable) override;

private:
    /// The container's side of one activation, at the level that it has.
    struct Site {
        platform::ComPtr<IOleInPlaceSite> plain;
        platform::ComPtr<IOleInPlaceSiteEx> extended;
        platform::ComPtr<IOleInPlaceSiteWindowless> windowless;  ///< only where the control goes without a window
    };
    /// Where the control stands in the container.
    struct Context {
        platform::ComPtr<IOleInPlaceFrame> frame;
        platform::ComPtr<IOleInPlaceUIWindow> document;
        RECT position{};
        RECT clip{};
    };
    /// Leaving: the user interface is being given back, and nothing is activated meanwhile.
    enum class State { Inactive, Active, UiActive, Leaving };

    static HRESULT contextOf(const Site& site, Context& context);
    static void setActiveObject(const Context& context, IOleInPlaceActiveObject* object);
    HRESULT enter();
    HRESULT takePlace();
    HRESULT takeUi();

    void paint(HDC dc, const RECT& client) override;
    void focusChanged(bool focused) override;

    const ContainerLink& container_;
    platform::WindowSystem& windows_;
    platform::DrawPicture draw_;
    State state_ = State::Inactive;
    Site site_;                                        // empty while inactive
    RECT position_{};                                  // of the last activation, in pixels of the container's window
    std::unique_ptr<platform::ControlWindow> window_;  // only while active, and not without a window
};

}  // namespace ovaline
