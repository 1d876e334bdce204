#include "platform/control_window.h"

#include <new>

#include "platform/windows/module_handle.h"

namespace ovaline::platform {

namespace {

constexpr wchar_t kClassName[] = L"Norvel_OvalineCtrl";

class Window final : public ControlWindow {
public:
    explicit Window(ControlWindowEvents& events) : events_(events) {}
    ~Window() override {
        if (window_) {
            // What the window is sent while it closes finds nobody to tell.
            SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
            DestroyWindow(window_);
        }
        // A class left behind would call into a module that may be gone; it stays as long as there are windows of it.
        UnregisterClassW(kClassName, moduleHandle());
    }

    bool open(HWND parent, const RECT& position) {
        WNDCLASSEXW description{};
        description.cbSize = sizeof description;
        description.style = CS_HREDRAW | CS_VREDRAW;
        description.lpfnWndProc = &procedure;
        description.hInstance = moduleHandle();
        description.hCursor = LoadCursor(nullptr, IDC_ARROW);
        description.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
        description.lpszClassName = kClassName;
        if (!RegisterClassExW(&description) && GetLastError() != ERROR_CLASS_ALREADY_EXISTS) return false;
        window_ = CreateWindowExW(0, kClassName, nullptr, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, position.left,
                                  position.top, position.right - position.left, position.bottom - position.top, parent,
                                  nullptr, moduleHandle(), this);
        return window_ != nullptr;
    }

    HWND handle() const override { return window_; }

    void place(const RECT& position, const RECT& clip) override {
        RECT shown{};
        IntersectRect(&shown, &position, &clip);
        HRGN region = nullptr;  // none: all of the window
        if (!EqualRect(&shown, &position)) {
            OffsetRect(&shown, -position.left, -position.top);
            region = CreateRectRgnIndirect(&shown);
        }
        // The window owns the region from then on.
        if (!SetWindowRgn(window_, region, TRUE) && region) DeleteObject(region);
        SetWindowPos(window_, nullptr, position.left, position.top, position.right - position.left,
                     position.bottom - position.top, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    void setVisible(bool visible) override { ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE); }
    void invalidate() override {
        // Without a window this would mean every window there is.
        if (window_) InvalidateRect(window_, nullptr, TRUE);
    }
    void takeFocus() override {
        if (window_ && GetFocus() != window_) SetFocus(window_);
    }

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_NCCREATE) {
            auto* self = static_cast<Window*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
            SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
        }
        // A report may end with this object gone: nothing of it is touched afterwards.
        auto* self = reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (!self) return DefWindowProcW(window, message, wParam, lParam);
        switch (message) {
            case WM_PAINT: {
                PAINTSTRUCT paint{};
                RECT client{};
                GetClientRect(window, &client);
                self->events_.paint(BeginPaint(window, &paint), client);
                EndPaint(window, &paint);
                return 0;
            }
            case WM_SETFOCUS:
            case WM_KILLFOCUS:
                self->events_.focusChanged(message == WM_SETFOCUS);
                return 0;
            case WM_LBUTTONDOWN:
                self->takeFocus();
                return 0;
            case WM_NCDESTROY:
                self->window_ = nullptr;
                SetWindowLongPtrW(window, GWLP_USERDATA, 0);
                break;
            default:
                break;
        }
        return DefWindowProcW(window, message, wParam, lParam);
    }

    ControlWindowEvents& events_;
    HWND window_ = nullptr;
};

class Windows final : public WindowSystem {
public:
    std::unique_ptr<ControlWindow> create(HWND parent, const RECT& position, ControlWindowEvents& events) override {
        std::unique_ptr<Window> window(new (std::nothrow) Window(events));
        if (!parent || !window || !window->open(parent, position)) return nullptr;
        return window;
    }
    DWORD keyModifiers() const override {
        const auto held = [](int key, DWORD bit) { return GetKeyState(key) < 0 ? bit : 0; };
        return held(VK_SHIFT, 1) | held(VK_CONTROL, 2) | held(VK_MENU, 4);
    }
};

}  // namespace

WindowSystem& systemWindows() {
    static Windows windows;
    return windows;
}

}  // namespace ovaline::platform
