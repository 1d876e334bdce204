#include "platform/posix/dialog_control.h"

#include <algorithm>

#include "platform/posix/letter_case.h"

namespace ovaline::platform {

namespace {

std::u16string_view beforeZero(std::u16string_view text) {
    return text.substr(0, text.find(u'\0'));
}

}  // namespace

std::u16string DialogControl::text() const {
    if (kind == ControlKind::DropList && hasItem(selected_)) return items_[static_cast<std::size_t>(selected_)];
    return text_;
}

void DialogControl::setText(std::u16string_view text) {
    text_ = beforeZero(text);
    caret_ = 0;
}

bool DialogControl::eraseBeforeCaret() {
    const std::size_t length = lengthBefore(text_, caret_);
    caret_ -= length;
    text_.erase(caret_, length);
    return length > 0;
}

bool DialogControl::type(std::u16string_view character) {
    if (character == u"\b") return eraseBeforeCaret();
    if (isControlCharacter(character[0])) return false;
    if (digitsOnly && (character[0] < u'0' || character[0] > u'9')) return false;
    if (text_.size() + character.size() > static_cast<std::size_t>(limit > 0 ? limit : kUsualLimit)) return false;
    text_.insert(caret_, character);
    caret_ += character.size();
    return true;
}

int DialogControl::addItem(std::u16string_view text) {
    text = beforeZero(text);
    const auto place = sorted ? std::ranges::upper_bound(items_, text, alphabetically) : items_.end();
    const auto item = static_cast<int>(place - items_.begin());
    items_.emplace(place, text);
    if (item <= selected_) ++selected_;
    return item;
}

void DialogControl::clearItems() {
    items_.clear();
    selected_ = -1;
}

int DialogControl::findPrefix(std::u16string_view prefix) const {
    const std::u16string wanted = lowerCase(beforeZero(prefix));
    const auto begins = [&](std::u16string_view item) { return lowerCase(item).starts_with(wanted); };
    const auto found = std::ranges::find_if(items_, begins);
    return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

ControlState DialogControl::state() const {
    ControlState state;
    state.visible = visible;
    state.enabled = true;
    if (hasText() || kind == ControlKind::DropList) state.text = text();
    if (isButton()) state.checked = checked;
    if (isList()) {
        state.selected = selected_;
        state.items = items_;
    }
    if (kind == ControlKind::Edit) {
        // Assigned, an empty limit would stand for no edit at all.
        state.limit.emplace(limit > 0 ? std::optional(limit) : std::nullopt);
        state.digitsOnly = digitsOnly;
    }
    if (kind == ControlKind::Spin) state.range = range;
    return state;
}

}  // namespace ovaline::platform
