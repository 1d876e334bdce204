// Windows in memory, which remember what a control did with them.
#pragma once

#include <string>
#include <vector>

#include "platform/control_window.h"

namespace ovaline::platform {

class MemoryWindowSystem final : public WindowSystem {
public:
    bool refuses = false;                    ///< makes no windows
    std::vector<std::string> events;         ///< of all windows, in order
    int windows = 0;                         ///< that are open
    ControlWindowEvents* control = nullptr;  ///< of the last window

    std::unique_ptr<ControlWindow> create(HWND parent, const RECT& position, ControlWindowEvents& owner) override {
        if (refuses || !parent) return nullptr;
        control = &owner;
        events.push_back("create" + text(position));
        return std::make_unique<Window>(*this);
    }
    DWORD keyModifiers() const override { return 0; }

    static std::string text(const RECT& r) {
        std::string joined;
        for (const LONG edge : {r.left, r.top, r.right, r.bottom}) joined += ' ' + std::to_string(edge);
        return joined;
    }

private:
    class Window final : public ControlWindow {
    public:
        explicit Window(MemoryWindowSystem& system) : system_(system) { ++system_.windows; }
        ~Window() override { --system_.windows; }

        HWND handle() const override { return reinterpret_cast<HWND>(&system_); }
        void place(const RECT& position, const RECT& clip) override {
            system_.events.push_back("place" + text(position) + " in" + text(clip));
        }
        void setVisible(bool visible) override { system_.events.push_back(visible ? "show" : "hide"); }
        void invalidate() override { system_.events.push_back("invalidate"); }
        void takeFocus() override {
            system_.events.push_back("focus");
            system_.control->focusChanged(true);
        }

    private:
        MemoryWindowSystem& system_;
    };
};

}  // namespace ovaline::platform
