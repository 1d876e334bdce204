#include "platform/windows/dialog_controls.h"

#include <commctrl.h>

#include <array>

#include "platform/windows/text.h"

namespace ovaline::platform {

namespace {

std::optional<ControlKind> kindOfButton(HWND button) {
    switch (GetWindowLongPtrW(button, GWL_STYLE) & BS_TYPEMASK) {
        case BS_GROUPBOX:
            return ControlKind::Group;
        case BS_AUTOCHECKBOX:
            return ControlKind::Check;
        case BS_AUTORADIOBUTTON:
            return ControlKind::Radio;
        default:
            return std::nullopt;
    }
}

}  // namespace

HWND controlOf(HWND dialog, int id) {
    return dialog && id != kAnonymousControl ? GetDlgItem(dialog, id) : nullptr;
}

std::optional<ControlKind> kindOf(HWND control) {
    if (isOfClass(control, WC_EDITW)) return ControlKind::Edit;
    if (isOfClass(control, WC_BUTTONW)) return kindOfButton(control);
    if (isOfClass(control, WC_STATICW)) {
        const LONG_PTR type = GetWindowLongPtrW(control, GWL_STYLE) & SS_TYPEMASK;
        return type == SS_OWNERDRAW ? ControlKind::Picture : ControlKind::Label;
    }
    if (isOfClass(control, UPDOWN_CLASSW)) return ControlKind::Spin;
    if (isOfClass(control, WC_COMBOBOXW)) return ControlKind::DropList;
    if (isOfClass(control, WC_LISTBOXW)) return ControlKind::ListBox;
    return std::nullopt;
}

bool hasStyle(HWND window, LONG_PTR style) {
    return (GetWindowLongPtrW(window, GWL_STYLE) & style) == style;
}

bool isOfClass(HWND window, const wchar_t* name) {
    constexpr int kLongestName = 64;  // a longer one is none of those that are asked for
    std::array<wchar_t, kLongestName> held{};
    return GetClassNameW(window, held.data(), kLongestName) > 0 && lstrcmpiW(held.data(), name) == 0;
}

std::u16string textOf(HWND window) {
    std::u16string text(static_cast<std::size_t>(GetWindowTextLengthW(window)), u'\0');
    // The text ends where the string does, which has a place for a zero.
    const int length = GetWindowTextW(window, wide(text.data()), static_cast<int>(text.size()) + 1);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

const ListMessages* listMessages(ControlKind kind) {
    static constexpr ListMessages kDropList = {CB_GETCOUNT,  CB_GETLBTEXTLEN, CB_GETLBTEXT,   CB_GETCURSEL,
                                               CB_SETCURSEL, CB_ADDSTRING,    CB_RESETCONTENT};
    static constexpr ListMessages kListBox = {LB_GETCOUNT,  LB_GETTEXTLEN, LB_GETTEXT,     LB_GETCURSEL,
                                              LB_SETCURSEL, LB_ADDSTRING,  LB_RESETCONTENT};
    if (kind == ControlKind::DropList) return &kDropList;
    return kind == ControlKind::ListBox ? &kListBox : nullptr;
}

ListControl::ListControl(HWND control) : control_(control), messages_(nullptr) {
    if (const auto kind = kindOf(control)) messages_ = listMessages(*kind);
}

int ListControl::ask(UINT message, WPARAM wParam) const {
    return static_cast<int>(SendMessageW(control_, message, wParam, 0));
}

int ListControl::count() const {
    return messages_ ? ask(messages_->count) : 0;
}

std::u16string ListControl::text(int item) const {
    if (!has(item)) return {};
    const auto place = static_cast<WPARAM>(item);
    const int length = ask(messages_->textLength, place);
    if (length <= 0) return {};
    std::u16string text(static_cast<std::size_t>(length), u'\0');
    SendMessageW(control_, messages_->text, place, reinterpret_cast<LPARAM>(text.data()));
    return text;
}

int ListControl::selection() const {
    return messages_ ? ask(messages_->selection) : -1;
}

void ListControl::select(int item) const {
    if (messages_) ask(messages_->select, static_cast<WPARAM>(has(item) ? item : -1));
}

}  // namespace ovaline::platform
