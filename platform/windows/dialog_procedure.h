// A dialog's window, which may outlive its Dialog for a while.
#pragma once

#include <memory>

#include "platform/dialogs.h"
#include "platform/module_lock.h"
#include "platform/windows/dialog_controls.h"

namespace ovaline::platform {

/// Hands the reports of a dialog's controls on. A control goes on working after its report, so its window has to stay
/// until then: a dialog that ends within a report is taken out of its parent, and its window goes when the thread next
/// looks for messages. The window owns this object, and so does whoever is at work with it.
class DialogProcedure : public std::enable_shared_from_this<DialogProcedure> {
public:
    /// While one lives, the window of the dialog stays.
    class Busy {
    public:
        explicit Busy(std::shared_ptr<DialogProcedure> dialog) : dialog_(std::move(dialog)) { ++dialog_->busy_; }
        ~Busy();
        Busy(const Busy&) = delete;
        Busy& operator=(const Busy&) = delete;

    private:
        std::shared_ptr<DialogProcedure> dialog_;
    };

    explicit DialogProcedure(DialogEvents& events) : events_(&events) {}

    /// Makes the window, invisible. Whether it was made.
    bool open(const DLGTEMPLATE& from, HWND parent);
    /// Null before open() and when the dialog has left or its parent has gone.
    HWND window() const { return events_ ? window_ : nullptr; }
    /// Ends the dialog. It reports nothing any more.
    void leave();

    /// Whether the window is one of these dialogs of this module.
    static bool isDialog(HWND window);
    /// Checks or unchecks a box or a radio button; of a group of radio buttons at most one is checked, whether or not
    /// the others can be seen.
    static void setChecked(HWND button, bool checked);

private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR handle(UINT message, WPARAM wParam, LPARAM lParam);
    void command(UINT notification, HWND control);
    void spin(const NMHDR& header);

    template <typename... Parameters, typename... Arguments>
    void report(void (DialogEvents::*what)(Parameters...), const Arguments&... arguments) {
        if (!events_) return;
        const Busy busy(shared_from_this());
        (events_->*what)(arguments...);
    }

    DialogEvents* events_;  ///< none from leave() on
    HWND window_ = nullptr;
    int busy_ = 0;
    std::shared_ptr<DialogProcedure> self_;  ///< the window's
    ModuleLock moduleLock_;                  ///< the window's procedure is this module's
};

}  // namespace ovaline::platform
