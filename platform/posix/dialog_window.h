// What a window handle is on this platform, which has no windows: the address of a record in a frame or a dialog.
//
// The frame is part of the host program and the dialog part of the module. Both are built from these sources, but each
// has its own copy of everything: they share no static data and no type information, only calls of the virtual
// functions below.
#pragma once

#include <cstdint>

#include "platform/dialog_driver.h"

namespace ovaline::platform {

/// The dialog as its frame sees it. The operations are those of DialogFrame, `choose` its select.
class DialogWindow {
public:
    virtual std::vector<int> controls() const = 0;
    virtual std::optional<ControlState> read(int id) const = 0;
    virtual DialogFrame::Refusal type(int id, std::u16string_view text) = 0;
    virtual DialogFrame::Refusal choose(int id, int item) = 0;
    virtual DialogFrame::Refusal click(int id) = 0;
    virtual DialogFrame::Refusal doubleClick(int id, int item) = 0;
    virtual DialogFrame::Refusal spin(int id, int clicks) = 0;
    virtual std::optional<SIZE> pictureSize(int id) const = 0;
    virtual DialogFrame::Refusal paint(int id, HDC dc) = 0;
    /// The frame is about to go.
    virtual void frameGone() = 0;

protected:
    ~DialogWindow() = default;
};

/// The frame as its dialog sees it.
class FrameWindow {
public:
    /// Whether the dialog has been taken: a frame holds one, which detaches itself before it goes.
    virtual bool attach(DialogWindow& dialog) = 0;
    virtual void detach() = 0;
    virtual void showMessage(std::u16string_view message) = 0;

protected:
    ~FrameWindow() = default;
};

/// What a window handle is the address of.
class WindowRecord {
public:
    /// The record of a window that can hold a dialog, or of one that can't.
    explicit WindowRecord(FrameWindow* frame) : check_(kCheck), frame_(frame) {}
    /// A handle of a window that has gone is refused for as long as nothing else takes the memory.
    ~WindowRecord() { check_ = 0; }
    WindowRecord(const WindowRecord&) = delete;
    WindowRecord& operator=(const WindowRecord&) = delete;

    HWND handle() const { return reinterpret_cast<HWND>(const_cast<WindowRecord*>(this)); }

    /// The frame that the handle is of; null where it is none or not one of these.
    static FrameWindow* frameOf(HWND window) {
        constexpr std::uintptr_t kNoAddress = 0x10000;  // handles of other systems are small numbers
        const auto address = reinterpret_cast<std::uintptr_t>(window);
        if (address < kNoAddress || address % alignof(WindowRecord) != 0) return nullptr;
        const auto* record = reinterpret_cast<const WindowRecord*>(window);
        return record->check_ == kCheck ? record->frame_ : nullptr;
    }

private:
    /// Another one whenever anything in this file changes: a program may meet the module of another version.
    static constexpr std::uint64_t kCheck = 0x4F76'616C'696E'0001;

    volatile std::uint64_t check_;
    FrameWindow* frame_;
};

}  // namespace ovaline::platform
