// The other side of the dialog service: a window for a host to show a dialog in, and what a person does to its
// controls. For hosts that drive pages without a person.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/com.h"

namespace ovaline::platform {

/// What can be seen of a control; a member that its kind does not have is empty.
struct ControlState {
    std::optional<std::u16string> text;  ///< of edits, labels, groups, check boxes and radio buttons, and of a
                                         ///< drop-down list the selected item's
    bool visible = false;
    bool enabled = false;
    std::optional<bool> checked;                       ///< of check boxes and radio buttons
    std::optional<int> selected;                       ///< of lists; -1 without a selection
    std::optional<std::vector<std::u16string>> items;  ///< of lists, in the order that a person sees
    std::optional<std::optional<int>> limit;           ///< of edits: most code units, none without a limit; to be set
                                                       ///< with emplace(), as an empty limit assigned is no edit
    std::optional<bool> digitsOnly;                    ///< of edits
    std::optional<std::pair<int, int>> range;          ///< of spin buttons
};

/// A window of a host with at most one dialog in it. What a person could not do is refused: the answer is then the
/// reason, in one line, and nothing has changed.
class DialogFrame {
public:
    using Refusal = std::optional<std::string>;

    DialogFrame() = default;
    virtual ~DialogFrame() = default;
    DialogFrame(const DialogFrame&) = delete;
    DialogFrame& operator=(const DialogFrame&) = delete;

    /// The parent for a dialog.
    virtual HWND window() const = 0;

    /// Ids of the dialog's controls in the order of its template; a control without an id of its own (65535) is left
    /// out.
    virtual std::vector<int> controls() const = 0;
    /// No value where the dialog has no such control.
    virtual std::optional<ControlState> read(int id) const = 0;

    /// Types over what an edit holds: it is emptied without a report, then each character arrives as a keystroke does,
    /// a surrogate pair as one. Backspace (U+0008) takes away the character before the caret; other control characters
    /// and whatever the edit refuses are left out. A text that the owner sets meanwhile has the caret before it.
    virtual Refusal type(int id, std::u16string_view text) = 0;
    /// Chooses the item of a drop-down list, or selects it in a list box.
    virtual Refusal select(int id, int item) = 0;
    virtual Refusal click(int id) = 0;
    virtual Refusal doubleClick(int id, int item) = 0;
    /// Clicks up that many times, or down where negative. At most 10,000 times. What the owner hides meanwhile takes no
    /// more clicks or keystrokes.
    virtual Refusal spin(int id, int clicks) = 0;

    /// Size of a picture in pixels; no value where the dialog has no such picture.
    virtual std::optional<SIZE> pictureSize(int id) const = 0;
    /// Has a picture painted into `dc` at (0, 0).
    virtual Refusal paint(int id, HDC dc) = 0;
};

/// A frame for dialogs. Message boxes over them are closed at once, and `onMessage` is told their text. Null where the
/// platform can't make a window.
std::unique_ptr<DialogFrame> makeDialogFrame(std::function<void(std::u16string)> onMessage);

}  // namespace ovaline::platform
