#include "platform/windows/dialog_typing.h"

#include "platform/windows/dialog_controls.h"
#include "platform/windows/text.h"

namespace ovaline::platform {

namespace {

constexpr wchar_t kProcedureProperty[] = L"Ovaline.Procedure";

/// Stands before a dialog's own procedure, which hears nothing of changed texts meanwhile.
LRESULT CALLBACK deaf(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND && HIWORD(wParam) == EN_CHANGE) return 0;
    const auto own = reinterpret_cast<WNDPROC>(GetPropW(dialog, kProcedureProperty));
    return CallWindowProcW(own, dialog, message, wParam, lParam);
}

void pressBackspace(HWND edit) {
    // The edit would take away half a surrogate pair.
    DWORD caret = 0;
    SendMessageW(edit, EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
    const std::u16string text = textOf(edit);
    if (const std::size_t length = caret <= text.size() ? lengthBefore(text, caret) : 0)
        SendMessageW(edit, EM_SETSEL, caret - length, static_cast<LPARAM>(caret));
    SendMessageW(edit, WM_CHAR, u'\b', 0);
}

/// Whether the edit has room for so many code units more. It would report those that it refuses on some systems.
bool hasRoom(HWND edit, std::size_t more) {
    const auto length = GetWindowTextLengthW(edit) + static_cast<LRESULT>(more);
    return length <= SendMessageW(edit, EM_GETLIMITTEXT, 0, 0);
}

}  // namespace

void emptySilently(HWND dialog, HWND edit) {
    const LONG_PTR own = GetWindowLongPtrW(dialog, GWLP_WNDPROC);
    SetPropW(dialog, kProcedureProperty, reinterpret_cast<HANDLE>(own));
    SetWindowLongPtrW(dialog, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&deaf));
    SetWindowTextW(edit, L"");
    SetWindowLongPtrW(dialog, GWLP_WNDPROC, own);
    RemovePropW(dialog, kProcedureProperty);
}

void pressKey(HWND edit, std::u16string_view character) {
    if (character == u"\b") return pressBackspace(edit);
    if (isControlCharacter(character[0]) || !hasRoom(edit, character.size())) return;
    if (character.size() == 1)
        SendMessageW(edit, WM_CHAR, character[0], 0);
    else if (!hasStyle(edit, ES_NUMBER))
        SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(wide(std::u16string(character))));
}

}  // namespace ovaline::platform
