// The windows of controls that are active in place: children of the container's window.
#pragma once

#include <memory>

#include "platform/com.h"

namespace ovaline::platform {

/// What a window tells its control, on the control's thread. It may be destroyed inside either report.
class ControlWindowEvents {
public:
    /// The client area is to be painted into `dc`; `client` is all of it, in pixels. Its ground has been erased.
    virtual void paint(HDC dc, const RECT& client) = 0;
    /// The window got the keyboard focus, or lost it.
    virtual void focusChanged(bool focused) = 0;

protected:
    ~ControlWindowEvents() = default;
};

class ControlWindow {
public:
    ControlWindow() = default;
    /// Closes the window and reports nothing.
    virtual ~ControlWindow() = default;
    ControlWindow(const ControlWindow&) = delete;
    ControlWindow& operator=(const ControlWindow&) = delete;

    /// Null once the container has destroyed the parent, and this window with it; no operation then does anything.
    virtual HWND handle() const = 0;
    /// Moves the window to `position` and shows no more of it than lies in `clip`, both in pixels of the parent.
    virtual void place(const RECT& position, const RECT& clip) = 0;
    virtual void setVisible(bool visible) = 0;
    /// Has the whole window painted anew, its ground erased first.
    virtual void invalidate() = 0;
    virtual void takeFocus() = 0;
};

class WindowSystem {
public:
    WindowSystem() = default;
    virtual ~WindowSystem() = default;
    WindowSystem(const WindowSystem&) = delete;
    WindowSystem& operator=(const WindowSystem&) = delete;

    /// A visible child of `parent` at `position`, in pixels of the parent. Null where there are no windows, or where
    /// the platform makes none. `events` outlives the window.
    virtual std::unique_ptr<ControlWindow> create(HWND parent, const RECT& position, ControlWindowEvents& events) = 0;
    /// The keys that are held down, in the published bits: 1 shift, 2 control, 4 alt.
    virtual DWORD keyModifiers() const = 0;
};

/// The platform's own. Elsewhere than on Windows there are no windows.
WindowSystem& systemWindows();

}  // namespace ovaline::platform
