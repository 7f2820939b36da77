#pragma once

#include "platform/controls/form.h"

namespace vorn {

/// A push button. Space presses it while it has the keyboard, and so does Enter.
class TButton : public TWinControl {
public:
    explicit TButton(TComponent* owner);
    ~TButton() override;

    bool Default() const { return default_; }
    /// Enter anywhere on the form presses it, unless another control uses the key.
    void SetDefault(bool isDefault);
    bool Cancel() const { return cancel_; }
    /// Escape anywhere on the form presses it.
    void SetCancel(bool cancel) { cancel_ = cancel; }
    TModalResult ModalResult() const { return modalResult_; }
    /// A click gives this to the form, unless it is mrNone.
    void SetModalResult(TModalResult result) { modalResult_ = result; }

    /// Sets the form's ModalResult, then raises OnClick, which may set it otherwise.
    void Click() override;
    bool KeyDown(unsigned key, TShiftState shift) override;
    void WMLButtonDown(const TMouseMessage& message) override;
    void WMLButtonUp(const TMouseMessage& message) override;
    void WMLButtonDblClk(const TMouseMessage& message) override;
    void WMLMouseMove(const TMouseMessage& message) override;

protected:
    void PaintBackground(TCanvas& canvas, const TRect& part) override;
    void MouseLeave() override;

private:
    void SetLook(bool down, bool hot);

    TModalResult modalResult_ = mrNone;
    bool default_ = false;
    bool cancel_ = false;
    bool down_ = false;
    bool hot_ = false;
};

} // namespace vorn
