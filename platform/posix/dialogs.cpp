// The owner's side of a dialog.
#include "platform/dialogs.h"

#include <algorithm>

#include "platform/dialog_number.h"
#include "platform/posix/headless_dialog.h"
#include "platform/posix/resource_languages.h"

namespace ovaline::platform {

namespace {

constexpr auto kLists = {ControlKind::DropList, ControlKind::ListBox};
constexpr auto kButtons = {ControlKind::Check, ControlKind::Radio};

}  // namespace

HeadlessDialog::HeadlessDialog(const DialogTemplate& from, DialogEvents& events) : events_(events) {
    int group = 0;
    controls_.reserve(from.controls.size());
    for (const ControlTemplate& control : from.controls) {
        if (control.beginsGroup) ++group;
        controls_.emplace_back(control, group);
    }
}

HeadlessDialog::~HeadlessDialog() {
    if (frame_) frame_->detach();
}

bool HeadlessDialog::enter(FrameWindow& frame) {
    if (!frame.attach(*this)) return false;
    frame_ = &frame;
    return true;
}

const DialogControl* HeadlessDialog::find(int id) const {
    if (id == kAnonymousControl) return nullptr;
    const auto found = std::ranges::find(controls_, id, &DialogControl::id);
    return found == controls_.end() ? nullptr : &*found;
}

DialogControl* HeadlessDialog::find(int id, std::initializer_list<ControlKind> kinds) {
    DialogControl* const control = find(id);
    return control && std::ranges::find(kinds, control->kind) != kinds.end() ? control : nullptr;
}

std::u16string HeadlessDialog::text(int id) const {
    const DialogControl* const control = find(id);
    return control ? control->text() : std::u16string();
}

void HeadlessDialog::setText(int id, std::u16string_view text) {
    DialogControl* const control = find(id);
    if (!control || !control->hasText()) return;
    control->setText(text);
    if (control->kind == ControlKind::Edit) report(&DialogEvents::textChanged, id);
}

std::int32_t HeadlessDialog::number(int id) const {
    return leadingNumber(text(id));
}

void HeadlessDialog::setTextLimit(int id, int most) {
    if (DialogControl* const edit = find(id, {ControlKind::Edit})) edit->limit = std::max(most, 0);
}

void HeadlessDialog::setDigitsOnly(int id, bool digitsOnly) {
    if (DialogControl* const edit = find(id, {ControlKind::Edit})) edit->digitsOnly = digitsOnly;
}

bool HeadlessDialog::isChecked(int id) const {
    const DialogControl* const control = find(id);
    return control && control->checked;
}

void HeadlessDialog::setChecked(int id, bool checked) {
    if (DialogControl* const button = find(id, kButtons)) setCheckMark(*button, checked);
}

void HeadlessDialog::setCheckMark(DialogControl& button, bool checked) {
    if (checked && button.kind == ControlKind::Radio)
        for (DialogControl& other : controls_)
            if (other.kind == ControlKind::Radio && other.group == button.group) other.checked = false;
    button.checked = checked;
}

void HeadlessDialog::show(int id, bool visible) {
    if (DialogControl* const control = find(id)) control->visible = visible;
}

int HeadlessDialog::addItem(int id, std::u16string_view text) {
    DialogControl* const list = find(id, kLists);
    return list ? list->addItem(text) : -1;
}

void HeadlessDialog::clearItems(int id) {
    if (DialogControl* const list = find(id, kLists)) list->clearItems();
}

std::u16string HeadlessDialog::itemText(int id, int item) const {
    const DialogControl* const list = find(id);
    return list && list->hasItem(item) ? list->items()[static_cast<std::size_t>(item)] : std::u16string();
}

int HeadlessDialog::selection(int id) const {
    const DialogControl* const list = find(id);
    return list ? list->selected() : -1;
}

void HeadlessDialog::select(int id, int item) {
    if (DialogControl* const list = find(id, kLists)) list->select(item);
}

int HeadlessDialog::selectByPrefix(int id, std::u16string_view prefix) {
    DialogControl* const list = find(id, kLists);
    const int item = list ? list->findPrefix(prefix) : -1;
    if (item >= 0) list->select(item);
    return item;
}

void HeadlessDialog::setSpinRange(int id, int least, int most) {
    if (DialogControl* const button = find(id, {ControlKind::Spin})) button->range = {least, most};
}

void HeadlessDialog::showMessage(std::u16string_view message) {
    if (frame_) frame_->showMessage(message);
}

std::unique_ptr<Dialog> makeDialog(std::uint32_t templateId, std::uint16_t languageId, HWND parent,
                                   DialogEvents& events) {
    FrameWindow* const frame = WindowRecord::frameOf(parent);
    const auto from = findDialogTemplate(templateId, languageId);
    if (!frame || !from) return nullptr;
    auto dialog = std::make_unique<HeadlessDialog>(*from, events);
    if (!dialog->enter(*frame)) return nullptr;
    return dialog;
}

SIZE dialogSize(std::uint32_t templateId) {
    const auto found = findDialogTemplate(templateId, kDefaultLanguage);
    return found ? found->size : SIZE{0, 0};
}

}  // namespace ovaline::platform
