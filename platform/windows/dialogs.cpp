#include "platform/dialogs.h"

#include <commctrl.h>

#include <algorithm>
#include <cstring>
#include <initializer_list>
#include <span>
#include <vector>

#include "platform/dialog_number.h"
#include "platform/windows/dialog_labels.h"
#include "platform/windows/dialog_procedure.h"
#include "platform/windows/module_handle.h"
#include "platform/windows/text.h"

namespace ovaline::platform {

namespace {

constexpr auto kButtons = {ControlKind::Check, ControlKind::Radio};
constexpr auto kTexts = {ControlKind::Label, ControlKind::Group, ControlKind::Edit, ControlKind::Check,
                         ControlKind::Radio};

std::u16string beforeZero(std::u16string_view text) {
    return std::u16string(text.substr(0, text.find(u'\0')));
}

void limitText(HWND edit, int most) {
    SendMessageW(edit, EM_SETLIMITTEXT, static_cast<WPARAM>(most > 0 ? most : kUsualLimit), 0);
}

/// Without regard to case.
bool beginsWith(const std::u16string& text, const std::u16string& prefix) {
    const auto length = static_cast<int>(prefix.size());
    return text.size() >= prefix.size() &&
           CompareStringOrdinal(wide(text), length, wide(prefix), length, TRUE) == CSTR_EQUAL;
}

/// The bytes of a dialog template; none where there is no such one.
std::span<const std::byte> findTemplate(std::uint32_t id, std::uint16_t language) {
    const HINSTANCE module = moduleHandle();
    const HRSRC found = FindResourceExW(module, RT_DIALOG, MAKEINTRESOURCEW(id), language);
    const HGLOBAL loaded = found ? LoadResource(module, found) : nullptr;
    const void* bytes = loaded ? LockResource(loaded) : nullptr;
    if (!bytes) return {};
    return {static_cast<const std::byte*>(bytes), SizeofResource(module, found)};
}

const DLGTEMPLATE& headerOf(std::span<const std::byte> bytes) {
    return *reinterpret_cast<const DLGTEMPLATE*>(bytes.data());
}

class WindowDialog final : public Dialog {
public:
    explicit WindowDialog(DialogEvents& events) : procedure_(std::make_shared<DialogProcedure>(events)) {}
    ~WindowDialog() override { procedure_->leave(); }

    bool open(const DLGTEMPLATE& from, HWND parent) {
        if (!procedure_->open(from, parent)) return false;
        // What an edit takes at first is the system's choice.
        for (HWND control = GetWindow(window(), GW_CHILD); control; control = GetWindow(control, GW_HWNDNEXT))
            if (kindOf(control) == ControlKind::Edit) limitText(control, 0);
        widenLabels(window());
        return true;
    }

    HWND window() const override { return procedure_->window(); }

    void move(const RECT& rectangle) override {
        if (HWND dialog = window())
            SetWindowPos(dialog, nullptr, rectangle.left, rectangle.top, rectangle.right - rectangle.left,
                         rectangle.bottom - rectangle.top, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    void setVisible(bool visible) override {
        if (HWND dialog = window()) ShowWindow(dialog, visible ? SW_SHOWNA : SW_HIDE);
    }
    bool translateMessage(MSG& message) override {
        const HWND dialog = window();
        const bool key = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
        if (!dialog || !key || (message.hwnd != dialog && !IsChild(dialog, message.hwnd))) return false;
        return IsDialogMessageW(dialog, &message) != FALSE;
    }

    std::u16string text(int id) const override {
        const HWND control = find(id);
        return control ? textOf(control) : std::u16string();
    }
    void setText(int id, std::u16string_view text) override {
        const HWND control = find(id, kTexts);
        if (!control) return;
        const DialogProcedure::Busy busy(procedure_);
        SetWindowTextW(control, wide(beforeZero(text)));
    }
    std::int32_t number(int id) const override { return leadingNumber(text(id)); }
    void setTextLimit(int id, int most) override {
        if (HWND edit = find(id, {ControlKind::Edit})) limitText(edit, most);
    }
    void setDigitsOnly(int id, bool digitsOnly) override {
        const HWND edit = find(id, {ControlKind::Edit});
        if (!edit) return;
        const LONG_PTR others = GetWindowLongPtrW(edit, GWL_STYLE) & ~static_cast<LONG_PTR>(ES_NUMBER);
        SetWindowLongPtrW(edit, GWL_STYLE, others | (digitsOnly ? ES_NUMBER : 0));
    }

    bool isChecked(int id) const override {
        const HWND button = find(id, kButtons);
        return button && SendMessageW(button, BM_GETCHECK, 0, 0) == BST_CHECKED;
    }
    void setChecked(int id, bool checked) override {
        if (HWND button = find(id, kButtons)) DialogProcedure::setChecked(button, checked);
    }

    void show(int id, bool visible) override {
        if (HWND control = find(id)) ShowWindow(control, visible ? SW_SHOWNA : SW_HIDE);
    }

    int addItem(int id, std::u16string_view text) override {
        const HWND control = find(id);
        const ListControl list(control);
        if (!list) return -1;
        const std::u16string ended = beforeZero(text);
        const int selected = list.selection();
        const auto item =
            static_cast<int>(SendMessageW(control, list.messages().add, 0, reinterpret_cast<LPARAM>(ended.c_str())));
        if (item >= 0 && item <= selected) list.select(selected + 1);
        return item;
    }
    void clearItems(int id) override {
        const HWND control = find(id);
        if (const ListControl list(control); list) SendMessageW(control, list.messages().clear, 0, 0);
    }
    std::u16string itemText(int id, int item) const override { return ListControl(find(id)).text(item); }
    int selection(int id) const override { return ListControl(find(id)).selection(); }
    void select(int id, int item) override { ListControl(find(id)).select(item); }
    int selectByPrefix(int id, std::u16string_view prefix) override {
        const ListControl list(find(id));
        const std::u16string wanted = beforeZero(prefix);
        // The list's own search differs from system to system in what is the same letter.
        for (int item = 0, count = list.count(); item < count; ++item) {
            if (!beginsWith(list.text(item), wanted)) continue;
            list.select(item);
            return item;
        }
        return -1;
    }

    void setSpinRange(int id, int least, int most) override {
        if (HWND button = find(id, {ControlKind::Spin}))
            SendMessageW(button, UDM_SETRANGE32, static_cast<WPARAM>(least), static_cast<LPARAM>(most));
    }

    void redraw(int id) override {
        if (HWND picture = find(id, {ControlKind::Picture})) InvalidateRect(picture, nullptr, FALSE);
    }

    void showMessage(std::u16string_view message) override {
        const HWND dialog = window();
        if (!dialog) return;
        const DialogProcedure::Busy busy(procedure_);
        MessageBoxW(dialog, wide(beforeZero(message)), wide(textOf(GetAncestor(dialog, GA_ROOT))), MB_OK);
    }

private:
    HWND find(int id) const { return controlOf(window(), id); }
    /// Null too where the control is of none of these kinds.
    HWND find(int id, std::initializer_list<ControlKind> kinds) const {
        const HWND control = find(id);
        const auto kind = control ? kindOf(control) : std::nullopt;
        return kind && std::ranges::find(kinds, *kind) != kinds.end() ? control : nullptr;
    }

    std::shared_ptr<DialogProcedure> procedure_;
};

/// A frame of a driver takes one dialog, and a dialog none. Others' frames may keep several pages in one window.
bool hasRoom(HWND parent) {
    if (!IsWindow(parent) || DialogProcedure::isDialog(parent)) return false;
    return !isOfClass(parent, kFrameClass) || !GetWindow(parent, GW_CHILD);
}

}  // namespace

std::unique_ptr<Dialog> makeDialog(std::uint32_t templateId, std::uint16_t languageId, HWND parent,
                                   DialogEvents& events) {
    const auto found = findTemplate(templateId, languageId);
    constexpr INITCOMMONCONTROLSEX kSpinButtons = {sizeof kSpinButtons, ICC_UPDOWN_CLASS};
    if (found.empty() || !hasRoom(parent) || !InitCommonControlsEx(&kSpinButtons)) return nullptr;
    auto dialog = std::make_unique<WindowDialog>(events);
    if (!dialog->open(headerOf(found), parent)) return nullptr;
    return dialog;
}

SIZE dialogSize(std::uint32_t templateId) {
    const auto found = findTemplate(templateId, MAKELANGID(LANG_NEUTRAL, SUBLANG_NEUTRAL));
    if (found.empty()) return {0, 0};
    // The dialog without its controls, for only the platform knows how large its font makes it.
    std::vector<std::byte> copy(found.begin(), found.end());
    DLGTEMPLATE header = headerOf(copy);
    header.cdit = 0;
    std::memcpy(copy.data(), &header, sizeof header);
    RECT area{};
    const auto ignore = [](HWND, UINT, WPARAM, LPARAM) WINAPI -> INT_PTR { return FALSE; };
    if (HWND empty = CreateDialogIndirectParamW(moduleHandle(), &headerOf(copy), HWND_MESSAGE, ignore, 0)) {
        GetClientRect(empty, &area);
        DestroyWindow(empty);
    }
    return {area.right, area.bottom};
}

}  // namespace ovaline::platform
