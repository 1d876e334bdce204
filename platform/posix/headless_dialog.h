// A dialog without a window system: its controls behave as those of a desktop do, and a frame of the host program plays
// the person.
#pragma once

#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

#include "platform/dialogs.h"
#include "platform/posix/dialog_control.h"
#include "platform/posix/dialog_window.h"

namespace ovaline::platform {

/// Every report may be the dialog's last moment: what follows one has to ask first whether the dialog is still there.
class HeadlessDialog final : public Dialog, private DialogWindow {
public:
    HeadlessDialog(const DialogTemplate& from, DialogEvents& events);
    ~HeadlessDialog() override;

    /// Whether the frame had a place for it.
    bool enter(FrameWindow& frame);

    HWND window() const override { return record_.handle(); }
    // There is no screen on which the dialog would have a place.
    void move(const RECT&) override {}
    void setVisible(bool visible) override { visible_ = visible; }
    bool translateMessage(MSG&) override { return false; }

    std::u16string text(int id) const override;
    void setText(int id, std::u16string_view text) override;
    std::int32_t number(int id) const override;
    void setTextLimit(int id, int most) override;
    void setDigitsOnly(int id, bool digitsOnly) override;
    bool isChecked(int id) const override;
    void setChecked(int id, bool checked) override;
    void show(int id, bool visible) override;
    int addItem(int id, std::u16string_view text) override;
    void clearItems(int id) override;
    std::u16string itemText(int id, int item) const override;
    int selection(int id) const override;
    void select(int id, int item) override;
    int selectByPrefix(int id, std::u16string_view prefix) override;
    void setSpinRange(int id, int least, int most) override;
    // A picture is painted when the frame wants to see it, and never before.
    void redraw(int) override {}
    void showMessage(std::u16string_view message) override;

private:
    std::vector<int> controls() const override;
    std::optional<ControlState> read(int id) const override;
    DialogFrame::Refusal type(int id, std::u16string_view text) override;
    DialogFrame::Refusal choose(int id, int item) override;
    DialogFrame::Refusal click(int id) override;
    DialogFrame::Refusal doubleClick(int id, int item) override;
    DialogFrame::Refusal spin(int id, int clicks) override;
    std::optional<SIZE> pictureSize(int id) const override;
    DialogFrame::Refusal paint(int id, HDC dc) override;
    void frameGone() override { frame_ = nullptr; }

    /// Whether the dialog is still there afterwards.
    template <typename... Parameters, typename... Arguments>
    bool report(void (DialogEvents::*what)(Parameters...), const Arguments&... arguments) {
        const std::weak_ptr<const bool> alive = alive_;
        (events_.*what)(arguments...);
        return !alive.expired();
    }

    const DialogControl* find(int id) const;
    DialogControl* find(int id) { return const_cast<DialogControl*>(std::as_const(*this).find(id)); }
    /// Null too where the control is of none of these kinds.
    DialogControl* find(int id, std::initializer_list<ControlKind> kinds);
    void setCheckMark(DialogControl& button, bool checked);

    bool canReach(const DialogControl& control) const { return visible_ && control.visible; }
    /// Why a person can't work a control of one of these kinds by that id.
    DialogFrame::Refusal whyNot(int id, std::initializer_list<ControlKind> kinds) const;
    DialogFrame::Refusal whyNoItem(int id, int item) const;

    DialogEvents& events_;
    std::vector<DialogControl> controls_;
    WindowRecord record_{nullptr};
    FrameWindow* frame_ = nullptr;
    bool visible_ = false;
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

}  // namespace ovaline::platform
