// A person's side of a dialog.
#include <algorithm>
#include <cstdlib>

#include "platform/posix/headless_dialog.h"

namespace ovaline::platform {

using Refusal = DialogFrame::Refusal;

Refusal HeadlessDialog::whyNot(int id, std::initializer_list<ControlKind> kinds) const {
    const DialogControl* const control = find(id);
    if (!control) return refusal::noControl(id);
    if (std::ranges::find(kinds, control->kind) == kinds.end()) return refusal::wrongKind(id, control->kind, kinds);
    if (!canReach(*control)) return refusal::hidden(id);
    return std::nullopt;
}

Refusal HeadlessDialog::whyNoItem(int id, int item) const {
    const DialogControl* const list = find(id);
    if (list->hasItem(item)) return std::nullopt;
    return refusal::noItem(id, item, list->items().size());
}

std::vector<int> HeadlessDialog::controls() const {
    std::vector<int> ids;
    for (const DialogControl& control : controls_)
        if (control.id != kAnonymousControl) ids.push_back(control.id);
    return ids;
}

std::optional<ControlState> HeadlessDialog::read(int id) const {
    const DialogControl* const control = find(id);
    if (!control) return std::nullopt;
    ControlState state = control->state();
    state.visible = canReach(*control);
    return state;
}

Refusal HeadlessDialog::type(int id, std::u16string_view text) {
    if (Refusal refusal = whyNot(id, {ControlKind::Edit})) return refusal;
    DialogControl& edit = *find(id);
    if (edit.readOnly) return refusal::readOnly(id);
    edit.setText({});
    while (!text.empty() && canReach(edit)) {
        const std::u16string_view character = firstCharacter(text);
        text.remove_prefix(character.size());
        if (edit.type(character) && !report(&DialogEvents::textChanged, id)) break;
    }
    return std::nullopt;
}

Refusal HeadlessDialog::choose(int id, int item) {
    if (Refusal refusal = whyNot(id, {ControlKind::DropList, ControlKind::ListBox})) return refusal;
    if (Refusal refusal = whyNoItem(id, item)) return refusal;
    DialogControl& list = *find(id);
    list.select(item);
    if (list.kind == ControlKind::DropList) report(&DialogEvents::selectionChanged, id);
    return std::nullopt;
}

Refusal HeadlessDialog::click(int id) {
    if (Refusal refusal = whyNot(id, {ControlKind::Check, ControlKind::Radio})) return refusal;
    DialogControl& button = *find(id);
    setCheckMark(button, button.kind == ControlKind::Radio || !button.checked);
    report(&DialogEvents::clicked, id);
    return std::nullopt;
}

Refusal HeadlessDialog::doubleClick(int id, int item) {
    if (Refusal refusal = whyNot(id, {ControlKind::ListBox})) return refusal;
    if (Refusal refusal = whyNoItem(id, item)) return refusal;
    find(id)->select(item);
    report(&DialogEvents::doubleClicked, id);
    return std::nullopt;
}

Refusal HeadlessDialog::spin(int id, int clicks) {
    if (Refusal refusal = whyNot(id, {ControlKind::Spin})) return refusal;
    if (Refusal refusal = refusal::tooManyClicks(clicks)) return refusal;
    const DialogControl& button = *find(id);
    const int delta = clicks < 0 ? -1 : 1;
    for (int left = std::abs(clicks); left > 0 && canReach(button); --left)
        if (!report(&DialogEvents::spun, id, delta)) break;
    return std::nullopt;
}

std::optional<SIZE> HeadlessDialog::pictureSize(int id) const {
    const DialogControl* const picture = find(id);
    if (!picture || picture->kind != ControlKind::Picture) return std::nullopt;
    return picture->size;
}

Refusal HeadlessDialog::paint(int id, HDC dc) {
    if (Refusal refusal = whyNot(id, {ControlKind::Picture})) return refusal;
    const SIZE size = find(id)->size;
    report(&DialogEvents::paint, id, dc, RECT{0, 0, size.cx, size.cy});
    return std::nullopt;
}

}  // namespace ovaline::platform
