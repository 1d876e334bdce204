// One control of a dialog: what it holds, and what a person's hand makes of it.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/dialog_driver.h"
#include "platform/posix/dialog_templates.h"

namespace ovaline::platform {

class DialogControl {
public:
    /// `radioGroup` tells which radio buttons belong together.
    DialogControl(const ControlTemplate& from, int radioGroup)
        : kind(from.kind),
          id(from.id),
          group(radioGroup),
          readOnly(from.readOnly),
          sorted(from.sorted),
          size(from.size),
          visible(!from.hidden),
          digitsOnly(from.digitsOnly),
          text_(from.text) {}

    bool isList() const { return kind == ControlKind::DropList || kind == ControlKind::ListBox; }
    bool isButton() const { return kind == ControlKind::Check || kind == ControlKind::Radio; }
    bool hasText() const { return kind != ControlKind::Picture && kind != ControlKind::Spin && !isList(); }

    /// Of a drop-down list the selected item's.
    std::u16string text() const;
    /// Texts end at their first zero.
    void setText(std::u16string_view text);
    /// One keystroke into an edit, at the caret: a code unit or a surrogate pair. Whether the text has changed.
    bool type(std::u16string_view character);

    const std::vector<std::u16string>& items() const { return items_; }
    bool hasItem(int item) const { return item >= 0 && static_cast<std::size_t>(item) < items_.size(); }
    int addItem(std::u16string_view text);
    void clearItems();
    int selected() const { return selected_; }
    void select(int item) { selected_ = hasItem(item) ? item : -1; }
    /// The first item that begins with `prefix`; -1 where none does.
    int findPrefix(std::u16string_view prefix) const;

    ControlState state() const;

    const ControlKind kind;
    const int id;
    const int group;
    const bool readOnly;
    const bool sorted;
    const SIZE size;  ///< pixels
    bool visible;
    bool digitsOnly;
    bool checked = false;
    int limit = 0;  ///< code units, 0 without one
    /// A spin button's is upside down until somebody sets it.
    std::pair<int, int> range = {100, 0};

private:
    bool eraseBeforeCaret();

    std::u16string text_;
    std::size_t caret_ = 0;
    std::vector<std::u16string> items_;
    int selected_ = -1;
};

}  // namespace ovaline::platform
