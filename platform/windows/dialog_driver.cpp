#include "platform/dialog_driver.h"

#include <commctrl.h>

#include <algorithm>
#include <cstdlib>
#include <initializer_list>

#include "platform/windows/dialog_controls.h"
#include "platform/windows/dialog_typing.h"
#include "platform/windows/module_handle.h"

namespace ovaline::platform {

namespace {

using Refusal = DialogFrame::Refusal;

/// A control that a person works. What the dialog's owner does meanwhile may end any of the three windows.
struct Target {
    HWND frame = nullptr;
    HWND dialog = nullptr;
    HWND control = nullptr;

    bool isThere() const { return dialog && GetWindow(frame, GW_CHILD) == dialog && GetParent(control) == dialog; }
    /// For a person; the frame itself is never seen.
    bool isVisible() const { return hasStyle(dialog, WS_VISIBLE) && hasStyle(control, WS_VISIBLE); }
    bool canReach() const { return isThere() && isVisible(); }

    void notify(UINT notification) const {
        const auto id = static_cast<WORD>(GetDlgCtrlID(control));
        SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, notification), reinterpret_cast<LPARAM>(control));
    }
};

/// What was sent to the thread's windows meanwhile. Its end is not a matter of luck: windows that keep sending
/// themselves messages get no more than that.
void handleMessages() {
    constexpr int kMostMessages = 1000;
    MSG message;
    for (int left = kMostMessages; left > 0 && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); --left) {
        if (message.message == WM_QUIT) {
            // Meant for the host's own loop.
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

/// A message box over `frame`; null where there is none.
HWND messageBoxOver(HWND frame) {
    struct Search {
        HWND frame;
        HWND found;
    } search = {frame, nullptr};
    const auto look = [](HWND window, LPARAM parameter) WINAPI -> BOOL {
        auto& sought = *reinterpret_cast<Search*>(parameter);
        const bool found = GetWindow(window, GW_OWNER) == sought.frame && hasStyle(window, WS_VISIBLE) &&
                           isOfClass(window, kDialogClass);
        if (found) sought.found = window;
        return !found;
    };
    EnumThreadWindows(GetCurrentThreadId(), look, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

/// Beside its text a message box has an icon at most, which has none.
std::u16string messageOf(HWND box) {
    std::u16string text;
    for (HWND child = GetWindow(box, GW_CHILD); child && text.empty(); child = GetWindow(child, GW_HWNDNEXT))
        if (kindOf(child) == ControlKind::Label) text = textOf(child);
    return text;
}

ControlState stateOf(HWND control, ControlKind kind) {
    ControlState state;
    state.enabled = !hasStyle(control, WS_DISABLED);
    if (kind == ControlKind::Check || kind == ControlKind::Radio)
        state.checked = SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED;
    if (const ListControl list(control); list) {
        state.selected = list.selection();
        state.items.emplace();
        for (int item = 0, count = list.count(); item < count; ++item) state.items->push_back(list.text(item));
    }
    if (kind == ControlKind::Edit) {
        const auto limit = static_cast<int>(SendMessageW(control, EM_GETLIMITTEXT, 0, 0));
        state.limit.emplace(limit != kUsualLimit ? std::optional(limit) : std::nullopt);
        state.digitsOnly = hasStyle(control, ES_NUMBER);
    }
    if (kind == ControlKind::Spin) {
        std::pair<int, int>& range = state.range.emplace();
        SendMessageW(control, UDM_GETRANGE32, reinterpret_cast<WPARAM>(&range.first),
                     reinterpret_cast<LPARAM>(&range.second));
    }
    if (kind != ControlKind::Spin && kind != ControlKind::ListBox && kind != ControlKind::Picture)
        state.text = textOf(control);
    return state;
}

class WindowFrame final : public DialogFrame {
public:
    explicit WindowFrame(std::function<void(std::u16string)> onMessage) : onMessage_(std::move(onMessage)) {}
    ~WindowFrame() override {
        if (HWND held = dialog()) SendMessageW(held, kFrameGone, 0, 0);
        if (window_) DestroyWindow(window_);
        handleMessages();
        // A class left behind would call into a program that may be gone; it stays as long as there are windows of it.
        UnregisterClassW(kFrameClass, moduleHandle());
    }

    bool open() {
        WNDCLASSEXW description{};
        description.cbSize = sizeof description;
        description.lpfnWndProc = &DefWindowProcW;
        description.hInstance = moduleHandle();
        description.lpszClassName = kFrameClass;
        if (!RegisterClassExW(&description) && GetLastError() != ERROR_CLASS_ALREADY_EXISTS) return false;
        window_ =
            CreateWindowExW(0, kFrameClass, nullptr, WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, moduleHandle(), nullptr);
        if (!window_) return false;
        SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        // A message box looks after the thread's timers while it waits.
        constexpr UINT kMilliseconds = 10;
        return SetTimer(window_, 1, kMilliseconds, &closeMessageBox) != 0;
    }

    HWND window() const override { return window_; }
    std::vector<int> controls() const override;
    std::optional<ControlState> read(int id) const override;
    Refusal type(int id, std::u16string_view text) override;
    Refusal select(int id, int item) override;
    Refusal click(int id) override;
    Refusal doubleClick(int id, int item) override;
    Refusal spin(int id, int clicks) override;
    std::optional<SIZE> pictureSize(int id) const override;
    Refusal paint(int id, HDC dc) override;

private:
    static void CALLBACK closeMessageBox(HWND window, UINT, UINT_PTR, DWORD) {
        const HWND box = messageBoxOver(window);
        const auto* const frame = reinterpret_cast<const WindowFrame*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (!box || !frame) return;
        // The frame may go while it is told.
        const auto tell = frame->onMessage_;
        const std::u16string message = messageOf(box);
        SendMessageW(box, WM_COMMAND, IDOK, 0);
        if (tell) tell(message);
    }

    HWND dialog() const { return window_ ? GetWindow(window_, GW_CHILD) : nullptr; }
    Target target(int id) const {
        const HWND held = dialog();
        return {window_, held, controlOf(held, id)};
    }
    /// Why a person can't work a control of one of these kinds by that id.
    static Refusal whyNot(const Target& target, int id, std::initializer_list<ControlKind> kinds);
    static Refusal whyNoItem(const Target& target, int id, int item);

    std::function<void(std::u16string)> onMessage_;
    HWND window_ = nullptr;
};

Refusal WindowFrame::whyNot(const Target& target, int id, std::initializer_list<ControlKind> kinds) {
    if (!target.dialog) return refusal::kNoDialog;
    const auto kind = target.control ? kindOf(target.control) : std::nullopt;
    if (!kind) return refusal::noControl(id);
    if (std::ranges::find(kinds, *kind) == kinds.end()) return refusal::wrongKind(id, *kind, kinds);
    if (!target.canReach()) return refusal::hidden(id);
    return std::nullopt;
}

Refusal WindowFrame::whyNoItem(const Target& target, int id, int item) {
    const ListControl list(target.control);
    if (list.has(item)) return std::nullopt;
    return refusal::noItem(id, item, static_cast<std::size_t>(list.count()));
}

std::vector<int> WindowFrame::controls() const {
    std::vector<int> ids;
    const HWND held = dialog();
    for (HWND control = held ? GetWindow(held, GW_CHILD) : nullptr; control; control = GetWindow(control, GW_HWNDNEXT))
        // A dialog keeps the ids of its controls in 16 bits.
        if (const int id = static_cast<WORD>(GetDlgCtrlID(control)); id != kAnonymousControl) ids.push_back(id);
    return ids;
}

std::optional<ControlState> WindowFrame::read(int id) const {
    const Target control = target(id);
    const auto kind = control.control ? kindOf(control.control) : std::nullopt;
    if (!kind) return std::nullopt;
    ControlState state = stateOf(control.control, *kind);
    state.visible = control.isVisible();
    return state;
}

// A report may take the frame with it: once a message has been sent, nothing of this object is touched.

Refusal WindowFrame::type(int id, std::u16string_view text) {
    const Target edit = target(id);
    if (Refusal refusal = whyNot(edit, id, {ControlKind::Edit})) return refusal;
    if (hasStyle(edit.control, ES_READONLY)) return refusal::readOnly(id);
    emptySilently(edit.dialog, edit.control);
    while (!text.empty() && edit.canReach()) {
        const std::u16string_view character = firstCharacter(text);
        text.remove_prefix(character.size());
        pressKey(edit.control, character);
    }
    handleMessages();
    return std::nullopt;
}

Refusal WindowFrame::select(int id, int item) {
    const Target list = target(id);
    if (Refusal refusal = whyNot(list, id, {ControlKind::DropList, ControlKind::ListBox})) return refusal;
    if (Refusal refusal = whyNoItem(list, id, item)) return refusal;
    ListControl(list.control).select(item);
    list.notify(kindOf(list.control) == ControlKind::DropList ? CBN_SELCHANGE : LBN_SELCHANGE);
    handleMessages();
    return std::nullopt;
}

Refusal WindowFrame::click(int id) {
    const Target button = target(id);
    if (Refusal refusal = whyNot(button, id, {ControlKind::Check, ControlKind::Radio})) return refusal;
    SendMessageW(button.control, BM_CLICK, 0, 0);
    handleMessages();
    return std::nullopt;
}

Refusal WindowFrame::doubleClick(int id, int item) {
    const Target list = target(id);
    if (Refusal refusal = whyNot(list, id, {ControlKind::ListBox})) return refusal;
    if (Refusal refusal = whyNoItem(list, id, item)) return refusal;
    ListControl(list.control).select(item);
    list.notify(LBN_DBLCLK);
    handleMessages();
    return std::nullopt;
}

Refusal WindowFrame::spin(int id, int clicks) {
    const Target button = target(id);
    if (Refusal refusal = whyNot(button, id, {ControlKind::Spin})) return refusal;
    if (Refusal refusal = refusal::tooManyClicks(clicks)) return refusal;
    RECT area{};
    GetClientRect(button.control, &area);
    // The middle of an arrow: the upper half counts up.
    const int y = clicks < 0 ? area.bottom - area.bottom / 4 - 1 : area.bottom / 4;
    const LPARAM point = MAKELPARAM(area.right / 2, y);
    for (int left = std::abs(clicks); left > 0 && button.canReach(); --left) {
        SendMessageW(button.control, WM_LBUTTONDOWN, MK_LBUTTON, point);
        if (button.isThere()) SendMessageW(button.control, WM_LBUTTONUP, 0, point);
    }
    handleMessages();
    return std::nullopt;
}

std::optional<SIZE> WindowFrame::pictureSize(int id) const {
    const HWND picture = target(id).control;
    if (!picture || kindOf(picture) != ControlKind::Picture) return std::nullopt;
    RECT area{};
    GetClientRect(picture, &area);
    return SIZE{area.right, area.bottom};
}

Refusal WindowFrame::paint(int id, HDC dc) {
    const Target picture = target(id);
    if (Refusal refusal = whyNot(picture, id, {ControlKind::Picture})) return refusal;
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_STATIC;
    item.CtlID = static_cast<UINT>(id);
    item.itemAction = ODA_DRAWENTIRE;
    item.hwndItem = picture.control;
    item.hDC = dc;
    GetClientRect(picture.control, &item.rcItem);
    SendMessageW(picture.dialog, WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
    handleMessages();
    return std::nullopt;
}

}  // namespace

std::unique_ptr<DialogFrame> makeDialogFrame(std::function<void(std::u16string)> onMessage) {
    auto frame = std::make_unique<WindowFrame>(std::move(onMessage));
    if (!frame->open()) return nullptr;
    return frame;
}

}  // namespace ovaline::platform
