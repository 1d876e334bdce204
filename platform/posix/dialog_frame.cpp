#include <utility>

#include "platform/dialog_actions.h"
#include "platform/dialog_driver.h"
#include "platform/posix/dialog_window.h"

namespace ovaline::platform {

namespace {

using refusal::kNoDialog;

/// A report may take the frame with it too: once the dialog has been called, nothing here is touched.
class HeadlessFrame final : public DialogFrame, private FrameWindow {
public:
    explicit HeadlessFrame(std::function<void(std::u16string)> onMessage) : onMessage_(std::move(onMessage)) {}
    ~HeadlessFrame() override {
        if (dialog_) dialog_->frameGone();
    }

    HWND window() const override { return record_.handle(); }

    std::vector<int> controls() const override { return dialog_ ? dialog_->controls() : std::vector<int>(); }
    std::optional<ControlState> read(int id) const override {
        return dialog_ ? dialog_->read(id) : std::optional<ControlState>();
    }
    Refusal type(int id, std::u16string_view text) override { return dialog_ ? dialog_->type(id, text) : kNoDialog; }
    Refusal select(int id, int item) override { return dialog_ ? dialog_->choose(id, item) : kNoDialog; }
    Refusal click(int id) override { return dialog_ ? dialog_->click(id) : kNoDialog; }
    Refusal doubleClick(int id, int item) override { return dialog_ ? dialog_->doubleClick(id, item) : kNoDialog; }
    Refusal spin(int id, int clicks) override { return dialog_ ? dialog_->spin(id, clicks) : kNoDialog; }
    std::optional<SIZE> pictureSize(int id) const override {
        return dialog_ ? dialog_->pictureSize(id) : std::optional<SIZE>();
    }
    Refusal paint(int id, HDC dc) override { return dialog_ ? dialog_->paint(id, dc) : kNoDialog; }

private:
    bool attach(DialogWindow& dialog) override {
        if (dialog_) return false;
        dialog_ = &dialog;
        return true;
    }
    void detach() override { dialog_ = nullptr; }
    void showMessage(std::u16string_view message) override {
        // A copy, for the frame may go while it is told.
        if (const auto tell = onMessage_) tell(std::u16string(message));
    }

    std::function<void(std::u16string)> onMessage_;
    DialogWindow* dialog_ = nullptr;
    WindowRecord record_{this};
};

}  // namespace

std::unique_ptr<DialogFrame> makeDialogFrame(std::function<void(std::u16string)> onMessage) {
    return std::make_unique<HeadlessFrame>(std::move(onMessage));
}

}  // namespace ovaline::platform
