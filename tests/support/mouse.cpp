#include "tests/support/mouse.h"

#include "platform/controls/control_widget.h"

#include <QtCore/QPointer>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QHelpEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>

#include <stdexcept>

namespace vorn::test {

namespace {

struct Spot {
    QPointer<QWidget> Window;
    QPoint At;
};

Spot& LastSpot()
{
    static Spot last;
    return last;
}

Spot SpotOf(const TControl& control, const TPoint& at)
{
    QWidget* window = SurfaceOf(control);
    if (!window)
        throw std::logic_error("the control has no window to get events");
    if (dynamic_cast<const TWinControl*>(&control))
        return {window, {at.X, at.Y}};
    return {window, {control.Left() + at.X, control.Top() + at.Y}};
}

void Send(const Spot& spot, QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons buttons,
    Qt::KeyboardModifiers modifiers)
{
    LastSpot() = spot;
    if (!spot.Window)
        return;
    QMouseEvent event(type, spot.At, spot.Window->mapToGlobal(spot.At), button, buttons, modifiers);
    QApplication::sendEvent(spot.Window, &event);
}

} // namespace

QWidget* SurfaceOf(const TControl& control)
{
    const auto* window = dynamic_cast<const TWinControl*>(&control);
    if (!window)
        return control.Parent() ? SurfaceOf(*control.Parent()) : nullptr;
    QWidget* widget = window->Widget();
    if (!widget || dynamic_cast<ControlWidget*>(widget))
        return widget;
    for (QWidget* inner : widget->findChildren<QWidget*>()) {
        const auto* surface = dynamic_cast<ControlWidget*>(inner);
        if (surface && surface->Control() == window)
            return inner;
    }
    return nullptr;
}

void ProcessEvents()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Mouse::Move(TControl& control, const TPoint& at)
{
    Send(SpotOf(control, at), QEvent::MouseMove, Qt::NoButton, buttons_, modifiers_);
}

void Mouse::MoveBy(int dx, int dy)
{
    Spot spot = LastSpot();
    spot.At += QPoint(dx, dy);
    Send(spot, QEvent::MouseMove, Qt::NoButton, buttons_, modifiers_);
}

void Mouse::Press(TControl& control, const TPoint& at, Qt::MouseButton button)
{
    buttons_ |= button;
    Send(SpotOf(control, at), QEvent::MouseButtonPress, button, buttons_, modifiers_);
}

void Mouse::Release(TControl& control, const TPoint& at, Qt::MouseButton button)
{
    buttons_ &= ~Qt::MouseButtons(button);
    Send(SpotOf(control, at), QEvent::MouseButtonRelease, button, buttons_, modifiers_);
}

void Mouse::ReleaseThere(Qt::MouseButton button)
{
    buttons_ &= ~Qt::MouseButtons(button);
    Send(LastSpot(), QEvent::MouseButtonRelease, button, buttons_, modifiers_);
}

void Mouse::Click(TControl& control, const TPoint& at, Qt::MouseButton button)
{
    Press(control, at, button);
    ReleaseThere(button);
}

void Mouse::PressAgain()
{
    buttons_ |= Qt::LeftButton;
    Send(LastSpot(), QEvent::MouseButtonDblClick, Qt::LeftButton, buttons_, modifiers_);
}

void Mouse::DoubleClick(TControl& control, const TPoint& at)
{
    Click(control, at);
    PressAgain();
    ReleaseThere();
}

void Mouse::Drag(TControl& control, const TPoint& from, const TPoint& to)
{
    Move(control, from);
    Press(control, from);
    constexpr int steps = 4;
    const int dx = to.X - from.X;
    const int dy = to.Y - from.Y;
    for (int i = 0; i < steps; ++i)
        MoveBy(dx * (i + 1) / steps - dx * i / steps, dy * (i + 1) / steps - dy * i / steps);
    ReleaseThere();
}

void Mouse::Rest(TControl& control, const TPoint& at)
{
    const Spot spot = SpotOf(control, at);
    QHelpEvent event(QEvent::ToolTip, spot.At, spot.Window->mapToGlobal(spot.At));
    QApplication::sendEvent(spot.Window, &event);
}

void Mouse::ContextKey(TControl& control, const TPoint& at)
{
    const Spot spot = SpotOf(control, at);
    QContextMenuEvent event(QContextMenuEvent::Keyboard, spot.At, spot.Window->mapToGlobal(spot.At), modifiers_);
    QApplication::sendEvent(spot.Window, &event);
}

void Mouse::Leave(TControl& control)
{
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(SurfaceOf(control), &event);
}

} // namespace vorn::test
