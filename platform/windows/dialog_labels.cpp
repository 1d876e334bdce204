#include "platform/windows/dialog_labels.h"

#include <algorithm>

#include "platform/windows/dialog_controls.h"
#include "platform/windows/text.h"

namespace ovaline::platform {

namespace {

RECT areaOf(HWND dialog, HWND control) {
    RECT area{};
    GetWindowRect(control, &area);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&area), 2);
    return area;
}

/// Pixels, without the mark of a box or a button; '&' stands for what it does in labels.
LONG textWidth(HWND control) {
    RECT area{};
    HDC dc = GetDC(control);
    const HGDIOBJ before = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
    DrawTextW(dc, wide(textOf(control)), -1, &area, DT_CALCRECT | DT_SINGLELINE);
    SelectObject(dc, before);
    ReleaseDC(control, dc);
    return area.right;
}

/// The left edge of what stands to the right of an area, else the dialog's right edge.
LONG roomFor(HWND dialog, const RECT& area) {
    RECT all{};
    GetClientRect(dialog, &all);
    LONG right = all.right;
    for (HWND other = GetWindow(dialog, GW_CHILD); other; other = GetWindow(other, GW_HWNDNEXT)) {
        const RECT taken = areaOf(dialog, other);
        const bool beside = taken.left >= area.right && taken.top < area.bottom && taken.bottom > area.top;
        if (beside) right = std::min(right, taken.left);
    }
    return right;
}

}  // namespace

void widenLabels(HWND dialog) {
    for (HWND control = GetWindow(dialog, GW_CHILD); control; control = GetWindow(control, GW_HWNDNEXT)) {
        const auto kind = kindOf(control);
        const bool marked = kind == ControlKind::Check || kind == ControlKind::Radio;
        if (!marked && kind != ControlKind::Label) continue;
        constexpr LONG kGap = 6;  // between the mark and the text, and the frame of one that has the focus
        const LONG needed = textWidth(control) + (marked ? GetSystemMetrics(SM_CXMENUCHECK) + kGap : 0);
        const RECT area = areaOf(dialog, control);
        if (area.right - area.left >= needed) continue;
        const LONG width = std::min(needed, roomFor(dialog, area) - area.left);
        SetWindowPos(control, nullptr, 0, 0, width, area.bottom - area.top, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

}  // namespace ovaline::platform
