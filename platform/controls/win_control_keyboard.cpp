#include "platform/controls/win_control_private.h"

namespace vorn {

bool TWinControl::TabStop() const
{
    return d_->TabStop;
}

void TWinControl::SetTabStop(bool tabStop)
{
    d_->TabStop = tabStop;
    if (d_->Surface)
        d_->Surface->setFocusPolicy(tabStop ? Qt::StrongFocus : Qt::NoFocus);
}

int TWinControl::TabOrder() const
{
    return d_->TabOrder;
}

void TWinControl::SetTabOrder(int order)
{
    d_->TabOrder = order;
}

bool TWinControl::Focused() const
{
    return d_->Surface && d_->Surface->hasFocus();
}

void TWinControl::SetFocus()
{
    Widget();
    if (d_->Surface)
        d_->Surface->setFocus(Qt::OtherFocusReason);
}

bool TWinControl::KeyDown(unsigned, TShiftState)
{
    return false;
}

void TWinControl::FocusChanged()
{
    if (d_->TabStop)
        Invalidate();
}

bool TWinControl::ShowsHints() const
{
    return !Parent() || Parent()->ShowsHints();
}

} // namespace vorn
