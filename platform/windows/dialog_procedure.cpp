#include "platform/windows/dialog_procedure.h"

#include <commctrl.h>

#include "platform/windows/module_handle.h"

namespace ovaline::platform {

namespace {

/// To a dialog that has left: nothing is at work with it any more.
constexpr UINT kClose = WM_APP;

void uncheckRadio(HWND control) {
    if (kindOf(control) == ControlKind::Radio) SendMessageW(control, BM_SETCHECK, BST_UNCHECKED, 0);
}

/// A group goes on to the next control that begins one. The platform's own buttons leave hidden ones of a group alone.
void uncheckOthers(HWND radio) {
    for (HWND control = radio; control && !hasStyle(control, WS_GROUP);) {
        control = GetWindow(control, GW_HWNDPREV);
        uncheckRadio(control);
    }
    HWND control = GetWindow(radio, GW_HWNDNEXT);
    for (; control && !hasStyle(control, WS_GROUP); control = GetWindow(control, GW_HWNDNEXT)) uncheckRadio(control);
}

}  // namespace

DialogProcedure::Busy::~Busy() {
    if (--dialog_->busy_ > 0 || dialog_->events_ || !dialog_->window_) return;
    PostMessageW(dialog_->window_, kClose, 0, 0);
}

bool DialogProcedure::open(const DLGTEMPLATE& from, HWND parent) {
    CreateDialogIndirectParamW(moduleHandle(), &from, parent, &procedure, reinterpret_cast<LPARAM>(this));
    return window_ != nullptr;
}

void DialogProcedure::leave() {
    events_ = nullptr;
    if (!window_) return;
    if (busy_ == 0) {
        DestroyWindow(window_);
        return;
    }
    ShowWindow(window_, SW_HIDE);
    SetParent(window_, HWND_MESSAGE);
}

bool DialogProcedure::isDialog(HWND window) {
    return isOfClass(window, kDialogClass) &&
           GetWindowLongPtrW(window, DWLP_DLGPROC) == reinterpret_cast<LONG_PTR>(&procedure);
}

void DialogProcedure::setChecked(HWND button, bool checked) {
    if (checked && kindOf(button) == ControlKind::Radio) uncheckOthers(button);
    SendMessageW(button, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

INT_PTR CALLBACK DialogProcedure::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        auto* const entering = reinterpret_cast<DialogProcedure*>(lParam);
        entering->window_ = window;
        entering->self_ = entering->shared_from_this();
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        return FALSE;  // the focus stays where it is
    }
    auto* const dialog = reinterpret_cast<DialogProcedure*>(GetWindowLongPtrW(window, DWLP_USER));
    if (!dialog) return FALSE;
    const auto alive = dialog->shared_from_this();
    return dialog->handle(message, wParam, lParam);
}

INT_PTR DialogProcedure::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            command(HIWORD(wParam), reinterpret_cast<HWND>(lParam));
            return TRUE;
        case WM_NOTIFY: {
            const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
            if (header.code != UDN_DELTAPOS) return FALSE;
            spin(header);
            // The button keeps its position, whatever its range: it counts nothing.
            if (window_) SetWindowLongPtrW(window_, DWLP_MSGRESULT, TRUE);
            return TRUE;
        }
        case WM_DRAWITEM: {
            const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
            if (item.CtlType != ODT_STATIC) return FALSE;
            report(&DialogEvents::paint, static_cast<int>(item.CtlID), item.hDC, item.rcItem);
            return TRUE;
        }
        case kFrameGone:
            leave();
            return TRUE;
        case kClose:
            DestroyWindow(window_);
            return TRUE;
        case WM_NCDESTROY:
            SetWindowLongPtrW(window_, DWLP_USER, 0);
            window_ = nullptr;
            self_.reset();
            return FALSE;
        default:
            return FALSE;
    }
}

void DialogProcedure::command(UINT notification, HWND control) {
    const auto kind = control ? kindOf(control) : std::nullopt;
    if (!kind) return;
    const int id = GetDlgCtrlID(control);
    switch (*kind) {
        case ControlKind::Edit:
            if (notification == EN_CHANGE) report(&DialogEvents::textChanged, id);
            break;
        case ControlKind::DropList:
            if (notification == CBN_SELCHANGE) report(&DialogEvents::selectionChanged, id);
            break;
        case ControlKind::ListBox:
            if (notification == LBN_DBLCLK) report(&DialogEvents::doubleClicked, id);
            break;
        case ControlKind::Radio:
        case ControlKind::Check:
            if (notification != BN_CLICKED) break;
            if (*kind == ControlKind::Radio) uncheckOthers(control);
            report(&DialogEvents::clicked, id);
            break;
        default:
            break;
    }
}

void DialogProcedure::spin(const NMHDR& header) {
    // A range that is upside down turns the numbers around, but not the arrows.
    int least = 0;
    int most = 0;
    SendMessageW(header.hwndFrom, UDM_GETRANGE32, reinterpret_cast<WPARAM>(&least), reinterpret_cast<LPARAM>(&most));
    const int delta = reinterpret_cast<const NMUPDOWN&>(header).iDelta;
    report(&DialogEvents::spun, static_cast<int>(header.idFrom), least <= most ? delta : -delta);
}

}  // namespace ovaline::platform
