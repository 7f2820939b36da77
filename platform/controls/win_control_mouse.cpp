#include "platform/controls/win_control_private.h"

#include <QtGui/QCursor>

namespace vorn {

namespace {

Qt::CursorShape ShapeOf(TCursor cursor)
{
    switch (cursor) {
    case crHandPoint:
        return Qt::PointingHandCursor;
    case crSizeAll:
        return Qt::SizeAllCursor;
    default:
        return Qt::ArrowCursor;
    }
}

} // namespace

TControl* TWinControl::MouseTarget(const TPoint& point)
{
    if (capture_ && capture_->Enabled())
        return capture_;
    TControl* control = TopmostAt(point, true);
    return control ? control : this;
}

namespace {

TMouseMessage ForTarget(const TMouseMessage& message, const TControl* target, const TControl* window)
{
    if (target == window)
        return message;
    return {{WrapSub(message.Pos.X, target->Left()), WrapSub(message.Pos.Y, target->Top())}, message.Shift};
}

} // namespace

void TWinControl::MousePress(TMouseButton button, const TMouseMessage& message, bool twice)
{
    if (button == TMouseButton::mbLeft)
        capture_ = nullptr; // its release went to a menu or a message box
    TControl* target = MouseTarget(message.Pos);
    const TMouseMessage own = ForTarget(message, target, this);
    if (button == TMouseButton::mbRight) {
        target->WMRButtonDown(own);
        return;
    }
    capture_ = target;
    if (twice)
        target->WMLButtonDblClk(own);
    else
        target->WMLButtonDown(own);
}

void TWinControl::MouseRelease(TMouseButton button, const TMouseMessage& message, const TPoint& screenPos)
{
    const TLifeWatch self(this);
    TControl* const target = MouseTarget(message.Pos);
    const TLifeWatch targetWatch(target);
    const TMouseMessage own = ForTarget(message, target, this);
    if (button == TMouseButton::mbRight) {
        target->WMRButtonUp(own);
        if (targetWatch.Alive())
            RequestContextMenu(target, screenPos);
    } else {
        capture_ = nullptr;
        target->WMLButtonUp(own);
    }
    if (self.Alive())
        Hover(MouseTarget(message.Pos));
}

void TWinControl::MouseMove(const TMouseMessage& message)
{
    const TLifeWatch self(this);
    if (!(message.Shift & ssLeft))
        capture_ = nullptr;
    TControl* target = MouseTarget(message.Pos);
    target->WMLMouseMove(ForTarget(message, target, this));
    if (self.Alive())
        Hover(MouseTarget(message.Pos));
}

void TWinControl::Hover(TControl* control)
{
    TControl* const now = control == this ? nullptr : control;
    if (TControl* const before = std::exchange(d_->Hovered, now); before != now) {
        if (before)
            before->MouseLeft();
        if (now)
            now->MouseEntered();
    }
    ShowCursor();
}

void TWinControl::RefreshCursor(const TControl* control)
{
    if (d_->Hovered == control)
        ShowCursor();
}

void TWinControl::ShowCursor()
{
    if (!d_->Surface)
        return;
    TCursor cursor = d_->Hovered ? d_->Hovered->Cursor() : crDefault;
    if (cursor == crDefault)
        cursor = Cursor();
    if (cursor == d_->ShownCursor)
        return;
    d_->ShownCursor = cursor;
    if (cursor == crDefault)
        d_->Surface->unsetCursor();
    else
        d_->Surface->setCursor(ShapeOf(cursor));
}

const String& TWinControl::HintAt(const TPoint& point) const
{
    static const String none;
    if (!ShowsHints())
        return none;
    const TControl* control = TopmostAt(point, false);
    return control && !control->Hint().empty() ? control->Hint() : Hint();
}

void RequestContextMenu(TControl* control, const TPoint& screenPos)
{
    while (control) {
        const TLifeWatch watch(control);
        if (control->WMContextMenu(screenPos) || !watch.Alive())
            return;
        control = control->Parent();
    }
}

} // namespace vorn
