// The dialog service: modeless dialogs of the platform's standard controls, made of the module's templates.
//
// A control is named by the id that its template gives it. An operation on an id that the dialog does not have, or on a
// control of another kind, does nothing and answers as an empty control would. Items of lists count from 0; -1 is no
// item. Texts are UTF-16 and end at their first zero.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/com.h"

namespace ovaline::platform {

/// What a dialog tells its owner, on the owner's thread, while the action that caused it is still under way: a report
/// may come out of an operation of `Dialog` that the owner itself has called.
class DialogEvents {
public:
    /// The text of an edit changed, by a person or by setText, also where it is the same text again.
    virtual void textChanged(int id) = 0;
    /// A person chose an item of a drop-down list, also the one that was selected. select() and clearItems() report
    /// nothing.
    virtual void selectionChanged(int id) = 0;
    /// A person clicked a check box or a radio button, which has changed its state before.
    virtual void clicked(int id) = 0;
    /// A person double-clicked the item of a list box, which is selected.
    virtual void doubleClicked(int id) = 0;
    /// A person clicked a spin button: 1 for a click up, -1 for one down. A button that is held down may count faster.
    virtual void spun(int id, int delta) = 0;
    /// A picture is to be painted whole into `area` of `dc`, in its pixels.
    virtual void paint(int id, HDC dc, const RECT& area) = 0;

protected:
    ~DialogEvents() = default;
};

class Dialog {
public:
    Dialog() = default;
    /// Closes the dialog and reports nothing. May come while the dialog reports something: what was under way then ends
    /// without touching it.
    virtual ~Dialog() = default;
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;

    virtual HWND window() const = 0;
    /// Places the dialog within its parent, in pixels.
    virtual void move(const RECT& rectangle) = 0;
    virtual void setVisible(bool visible) = 0;
    /// Lets a key that was meant for the dialog's window do what it does in dialogs (tab, arrows, mnemonics). Whether
    /// the message was taken.
    virtual bool translateMessage(MSG& message) = 0;

    virtual std::u16string text(int id) const = 0;
    /// Neither the text limit nor the digits-only style of an edit holds for this.
    virtual void setText(int id, std::u16string_view text) = 0;
    /// The text read as a signed decimal number: leading white space, a sign, digits up to any other character. 0 where
    /// there are no digits or the number does not fit 32 bits.
    virtual std::int32_t number(int id) const = 0;
    /// At most that many UTF-16 code units can be typed into an edit; 0 takes the limit away, when 32767 can. The text
    /// stays as it is.
    virtual void setTextLimit(int id, int most) = 0;
    /// Whether only the digits 0 to 9 can be typed into an edit.
    virtual void setDigitsOnly(int id, bool digitsOnly) = 0;

    virtual bool isChecked(int id) const = 0;
    /// Reports nothing. A radio button that is checked unchecks the others of its group.
    virtual void setChecked(int id, bool checked) = 0;

    /// Hiding or showing one that is so already does nothing.
    virtual void show(int id, bool visible) = 0;

    /// Appends an item, or puts it in alphabetical place in a sorted list; its place. The selection stays with its
    /// item.
    virtual int addItem(int id, std::u16string_view text) = 0;
    virtual void clearItems(int id) = 0;
    virtual std::u16string itemText(int id, int item) const = 0;
    virtual int selection(int id) const = 0;
    /// -1, or an item that there is not, leaves no item selected.
    virtual void select(int id, int item) = 0;
    /// Selects the first item that begins with `prefix`, without regard to case; -1 where there is none, and the
    /// selection stays.
    virtual int selectByPrefix(int id, std::u16string_view prefix) = 0;

    virtual void setSpinRange(int id, int least, int most) = 0;

    /// Has a picture painted again soon.
    virtual void redraw(int id) = 0;

    /// Shows a message box over the dialog until a person closes it.
    virtual void showMessage(std::u16string_view message) = 0;
};

/// The dialog of template `templateId` in language `languageId`, on `parent`, invisible at first. `events` outlives it.
/// `parent` is a window, where the platform has none that of a DialogFrame; it may go before the dialog, which then
/// takes part in nothing any more. Null where there is no such template in that language, `parent` is none, a dialog of
/// these or a DialogFrame's that holds a dialog already, or the platform can't make it.
std::unique_ptr<Dialog> makeDialog(std::uint32_t templateId, std::uint16_t languageId, HWND parent,
                                   DialogEvents& events);

/// The size in pixels of the dialog of that template in the language that the platform chooses for a process that asks
/// for none; {0, 0} where there is none.
SIZE dialogSize(std::uint32_t templateId);

}  // namespace ovaline::platform
