#include "platform/controls/mouse.h"

#include "platform/controls/event_scope.h"

#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>

namespace vorn {

const EventScope* EventScope::current_ = nullptr;

EventScope::EventScope(TShiftState shift, const TPoint& screenPos)
    : shift_(shift), screenPos_(screenPos), outer_(current_)
{
    current_ = this;
}

EventScope::~EventScope()
{
    current_ = outer_;
}

TShiftState ToShiftState(Qt::KeyboardModifiers modifiers, Qt::MouseButtons buttons)
{
    TShiftState shift = 0;
    const auto add = [&shift](bool down, TShiftStateBits bit) { shift |= down ? bit : 0u; };
    add(modifiers.testFlag(Qt::ShiftModifier), ssShift);
    add(modifiers.testFlag(Qt::AltModifier), ssAlt);
    add(modifiers.testFlag(Qt::ControlModifier), ssCtrl);
    add(buttons.testFlag(Qt::LeftButton), ssLeft);
    add(buttons.testFlag(Qt::RightButton), ssRight);
    add(buttons.testFlag(Qt::MiddleButton), ssMiddle);
    return shift;
}

TShiftState CurrentShiftState()
{
    if (const EventScope* scope = EventScope::Current())
        return scope->Shift();
    return ToShiftState(QGuiApplication::queryKeyboardModifiers(), QGuiApplication::mouseButtons());
}

TPoint GetCursorPos()
{
    if (const EventScope* scope = EventScope::Current())
        return scope->ScreenPos();
    const QPoint pos = QCursor::pos();
    return {pos.x(), pos.y()};
}

} // namespace vorn
