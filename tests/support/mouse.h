#pragma once

#include "platform/controls/control.h"

#include <QtCore/qnamespace.h>

class QWidget;

namespace vorn::test {

/// The state of a mouse that presses on controls: each call sends the events that a user's hand would. Points
/// are client coordinates of the control; for a graphic control they go to the window it lies on.
class Mouse {
public:
    explicit Mouse(Qt::KeyboardModifiers modifiers = Qt::NoModifier) : modifiers_(modifiers) {}

    void SetModifiers(Qt::KeyboardModifiers modifiers) { modifiers_ = modifiers; }

    void Move(TControl& control, const TPoint& at);
    void Press(TControl& control, const TPoint& at, Qt::MouseButton button = Qt::LeftButton);
    void Release(TControl& control, const TPoint& at, Qt::MouseButton button = Qt::LeftButton);
    /// To the window and the point of the last event: for a control that a handler has moved or freed.
    void ReleaseThere(Qt::MouseButton button = Qt::LeftButton);
    /// To where the last event was, moved by (dx, dy), whatever lies there now.
    void MoveBy(int dx, int dy);

    void Click(TControl& control, const TPoint& at, Qt::MouseButton button = Qt::LeftButton);
    /// The second of two quick presses, where the first was.
    void PressAgain();
    /// Press, release, double click, release.
    void DoubleClick(TControl& control, const TPoint& at);
    /// From one point of the control over a few steps to another, as it stood at the press.
    void Drag(TControl& control, const TPoint& from, const TPoint& to);
    /// The pointer rests: asks for the hint there.
    void Rest(TControl& control, const TPoint& at);
    /// The context-menu key on the window of a control.
    void ContextKey(TControl& control, const TPoint& at);
    void Leave(TControl& control);

private:
    Qt::KeyboardModifiers modifiers_;
    Qt::MouseButtons buttons_ = Qt::NoButton;
};

/// The window that gets a control's events.
QWidget* SurfaceOf(const TControl& control);
/// Runs what has been posted: paints, deferred frees.
void ProcessEvents();

} // namespace vorn::test
