#pragma once

#include "platform/controls/action.h"
#include "platform/controls/control.h"

namespace vorn {

/// A flat button without a window that shows an image and never takes the keyboard.
///
/// Tied to an action it takes that action's hint, image and Enabled, and a click executes the action.
class TPngSpeedButton : public TGraphicControl {
public:
    explicit TPngSpeedButton(TComponent* owner);
    ~TPngSpeedButton() override;

    TAction* Action() const { return link_.Action(); }
    void SetAction(TAction* action);
    bool Flat() const { return flat_; }
    /// A flat one has an edge only under the mouse.
    void SetFlat(bool flat);

    /// Executes the action; without one raises OnClick.
    void Click() override;
    void WMLButtonDown(const TMouseMessage& message) override;
    void WMLButtonUp(const TMouseMessage& message) override;
    void WMLButtonDblClk(const TMouseMessage& message) override;
    void WMLMouseMove(const TMouseMessage& message) override;
    void SetEnabled(bool enabled) override;

protected:
    void MouseEntered() override;
    void MouseLeft() override;
    void Paint() override;

private:
    void ActionChanged();
    void SetDown(bool down);
    void PaintEdge();

    TActionLink link_;
    bool flat_ = true;
    bool hot_ = false;
    bool down_ = false; // drawn pressed
    bool held_ = false; // the left button went down on it
};

} // namespace vorn
