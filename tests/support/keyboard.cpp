#include "tests/support/keyboard.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <stdexcept>

namespace vorn::test {

namespace {

void Send(QEvent::Type type, Qt::Key key, Qt::KeyboardModifiers modifiers, bool repeated)
{
    QWidget* target = QApplication::focusWidget();
    if (!target)
        target = QApplication::activeWindow();
    if (!target)
        throw std::logic_error("no window has the keyboard");
    const QString text = key == Qt::Key_Space ? QStringLiteral(" ") : QString();
    QKeyEvent event(type, key, modifiers, text, repeated);
    QApplication::sendEvent(target, &event);
}

} // namespace

void Type(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    Send(QEvent::KeyPress, key, modifiers, false);
    if (QApplication::activeWindow())
        Send(QEvent::KeyRelease, key, modifiers, false);
}

void Repeat(Qt::Key key)
{
    Send(QEvent::KeyPress, key, Qt::NoModifier, true);
}

} // namespace vorn::test
