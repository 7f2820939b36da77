#include "platform/controls/speed_button.h"

#include "platform/controls/win_control.h"

namespace vorn {

namespace {

constexpr int EdgeInset = 2; // the edge stays clear of the neighbours

} // namespace

TPngSpeedButton::TPngSpeedButton(TComponent* owner) : TGraphicControl(owner)
{
    SetBounds(0, 0, 25, 25);
    link_.OnChange = [this](TObject*) { ActionChanged(); };
}

TPngSpeedButton::~TPngSpeedButton()
{
    Destroying();
}

void TPngSpeedButton::SetAction(TAction* action)
{
    link_.SetAction(action);
    if (action)
        ActionChanged();
    Invalidate();
}

void TPngSpeedButton::ActionChanged()
{
    const TAction& action = *link_.Action();
    SetCaption(action.Caption());
    SetHint(action.Hint());
    SetEnabled(action.Enabled());
    Invalidate();
}

void TPngSpeedButton::SetFlat(bool flat)
{
    flat_ = flat;
    Invalidate();
}

void TPngSpeedButton::SetEnabled(bool enabled)
{
    if (!enabled)
        down_ = held_ = hot_ = false;
    TGraphicControl::SetEnabled(enabled);
}

void TPngSpeedButton::Click()
{
    if (TAction* action = link_.Action())
        action->Execute();
    else if (Enabled())
        TGraphicControl::Click();
}

void TPngSpeedButton::SetDown(bool down)
{
    if (down_ == down)
        return;
    down_ = down;
    Invalidate();
}

void TPngSpeedButton::WMLButtonDown(const TMouseMessage& message)
{
    held_ = true;
    SetDown(true);
    TGraphicControl::WMLButtonDown(message);
}

/// The second of two quick clicks is a click like the first.
void TPngSpeedButton::WMLButtonDblClk(const TMouseMessage& message)
{
    WMLButtonDown(message);
}

void TPngSpeedButton::WMLMouseMove(const TMouseMessage& message)
{
    held_ = held_ && (message.Shift & ssLeft) != 0;
    SetDown(held_ && PtInRect(ClientRect(), message.Pos));
    TGraphicControl::WMLMouseMove(message);
}

void TPngSpeedButton::WMLButtonUp(const TMouseMessage& message)
{
    held_ = false;
    SetDown(false);
    TGraphicControl::WMLButtonUp(message);
}

void TPngSpeedButton::MouseEntered()
{
    hot_ = true;
    Invalidate();
}

void TPngSpeedButton::MouseLeft()
{
    hot_ = false;
    SetDown(false);
    Invalidate();
}

void TPngSpeedButton::Paint()
{
    PaintEdge();
    const TAction* action = link_.Action();
    const TActionList* list = action ? action->ActionList() : nullptr;
    const TCustomImageList* images = list ? list->Images() : nullptr;
    if (!images)
        return;
    const int shift = down_ ? 1 : 0;
    const int x = (Width() - images->Width()) / 2 + shift;
    const int y = (Height() - images->Height()) / 2 + shift;
    if (Enabled())
        images->Draw(Canvas(), x, y, action->ImageIndex());
    else
        images->DrawDisabled(Canvas(), x, y, action->ImageIndex());
}

void TPngSpeedButton::PaintEdge()
{
    if (flat_ && !hot_ && !down_)
        return;
    TRect edge{EdgeInset, EdgeInset, Width() - EdgeInset, Height() - EdgeInset};
    if (edge.IsEmpty())
        return;
    Canvas().Brush.Color = down_ ? clBtnShadow : clWindow;
    if (down_ || hot_)
        Canvas().FillRect(edge);
    Frame3D(Canvas(), edge, down_ ? clGrayText : clBtnShadow, clBtnShadow, 1);
}

} // namespace vorn
