// Controls of a dialog as their messages show them, to the dialog's owner and to a driver alike. They may be in two
// modules, which share nothing but the windows.
#pragma once

#include <optional>
#include <string>

#include "platform/com.h"
#include "platform/dialog_actions.h"

namespace ovaline::platform {

/// The class of the window that a DialogFrame is. It holds one dialog.
inline constexpr wchar_t kFrameClass[] = L"Ovaline.DialogFrame";
/// The platform's own class of dialogs and message boxes.
inline constexpr wchar_t kDialogClass[] = L"#32770";
/// To the dialog in a frame: the frame is about to go.
inline constexpr UINT kFrameGone = WM_APP + 1;

/// Null where the dialog has no such control, or is none.
HWND controlOf(HWND dialog, int id);

/// No value for a window that is no control of the kinds that dialogs have.
std::optional<ControlKind> kindOf(HWND control);

bool hasStyle(HWND window, LONG_PTR style);
bool isOfClass(HWND window, const wchar_t* name);

/// The text up to its first zero.
std::u16string textOf(HWND window);

/// The messages that the two kinds of lists name differently.
struct ListMessages {
    UINT count, textLength, text, selection, select, add, clear;
};
/// Null for a kind that is no list.
const ListMessages* listMessages(ControlKind kind);

/// A control that is a list: count, texts and selection, -1 without one.
class ListControl {
public:
    /// Of any kind; a list without items where it is no list.
    explicit ListControl(HWND control);

    explicit operator bool() const { return messages_ != nullptr; }
    const ListMessages& messages() const { return *messages_; }
    int count() const;
    bool has(int item) const { return item >= 0 && item < count(); }
    /// Empty where there is no such item.
    std::u16string text(int item) const;
    int selection() const;
    /// An item that there is not leaves none selected.
    void select(int item) const;

private:
    int ask(UINT message, WPARAM wParam = 0) const;

    HWND control_;
    const ListMessages* messages_;
};

}  // namespace ovaline::platform
