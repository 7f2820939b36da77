#include "platform/controls/control_widget.h"

#include "platform/controls/application.h"
#include "platform/controls/event_scope.h"
#include "platform/controls/keyboard.h"
#include "platform/controls/win_control_private.h"
#include "platform/system/guards.h"
#include "platform/system/qt_convert.h"

#include <QtCore/QPointer>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QCursor>
#include <QtGui/QHelpEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>

#include <optional>

namespace vorn {

namespace {

QPointer<ControlWidget>& LastSurface()
{
    static QPointer<ControlWidget> last;
    return last;
}

TMouseMessage MessageOf(const QMouseEvent& event)
{
    return {FromQPoint(event.position().toPoint()), ToShiftState(event.modifiers(), event.buttons())};
}

EventScope ScopeOf(const QMouseEvent& event)
{
    return {ToShiftState(event.modifiers(), event.buttons()), FromQPoint(event.globalPosition().toPoint())};
}

std::optional<TMouseButton> ButtonOf(const QMouseEvent& event)
{
    switch (event.button()) {
    case Qt::LeftButton:
        return TMouseButton::mbLeft;
    case Qt::RightButton:
        return TMouseButton::mbRight;
    default:
        return std::nullopt;
    }
}

/// The code of keyboard.h for a key; 0 for one that controls aren't told.
unsigned VirtualKey(int key)
{
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return VK_RETURN;
    case Qt::Key_Escape:
        return VK_ESCAPE;
    case Qt::Key_Space:
        return VK_SPACE;
    case Qt::Key_PageUp:
        return VK_PRIOR;
    case Qt::Key_PageDown:
        return VK_NEXT;
    case Qt::Key_End:
        return VK_END;
    case Qt::Key_Home:
        return VK_HOME;
    case Qt::Key_Left:
        return VK_LEFT;
    case Qt::Key_Up:
        return VK_UP;
    case Qt::Key_Right:
        return VK_RIGHT;
    case Qt::Key_Down:
        return VK_DOWN;
    default:
        return 0;
    }
}

} // namespace

int ControlWidget::running_ = 0;

ControlWidget::ControlWidget(TWinControl& control, QWidget* parent) : QWidget(parent), control_(&control)
{
    control.d_->Surface = this;
    setMouseTracking(true);
    setAcceptDrops(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

ControlWidget::~ControlWidget()
{
    if (!control_)
        return;
    control_->capture_ = nullptr;
    control_->d_->Hovered = nullptr;
}

ControlWidget* ControlWidget::LastUnderMouse()
{
    return LastSurface();
}

const String& ControlWidget::HintAt(const QPoint& point) const
{
    static const String none;
    return control_ ? control_->HintAt(FromQPoint(point)) : none;
}

QSize ControlWidget::sizeHint() const
{
    return control_ ? QSize(control_->TControl::Width(), control_->TControl::Height()) : QSize();
}

bool ControlWidget::event(QEvent* event)
{
    // A handler may free the control, and a layout's parent this window too.
    const QPointer<ControlWidget> alive(this);
    ++depth_;
    const ScopedValue<int> running(running_, running_ + 1);
    bool taken = true;
    try {
        taken = Handle(event);
    } catch (...) {
        Application().HandleException(std::current_exception());
    }
    if (alive)
        --depth_;
    return taken;
}

bool ControlWidget::Handle(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || !control_)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    LastSurface() = this;
    Application().ActivateHint(FromQPoint(help->globalPos()));
    return true;
}

void ControlWidget::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    if (control_)
        control_->PaintRegion(painter, event->region());
}

void ControlWidget::resizeEvent(QResizeEvent*)
{
    if (control_)
        control_->SizeChanged();
}

void ControlWidget::leaveEvent(QEvent*)
{
    Application().HideHint();
    if (!control_)
        return;
    control_->Hover(nullptr);
    control_->MouseLeave();
}

void ControlWidget::Press(QMouseEvent* event, bool twice)
{
    const auto button = ButtonOf(*event);
    if (!control_ || !button) {
        event->ignore();
        return;
    }
    LastSurface() = this;
    Application().HideHint();
    const EventScope scope = ScopeOf(*event);
    control_->MousePress(*button, MessageOf(*event), twice && button == TMouseButton::mbLeft);
}

void ControlWidget::mousePressEvent(QMouseEvent* event)
{
    Press(event, false);
}

void ControlWidget::mouseDoubleClickEvent(QMouseEvent* event)
{
    Press(event, true);
}

void ControlWidget::mouseReleaseEvent(QMouseEvent* event)
{
    const auto button = ButtonOf(*event);
    if (!control_ || !button) {
        event->ignore();
        return;
    }
    LastSurface() = this;
    const EventScope scope = ScopeOf(*event);
    control_->MouseRelease(*button, MessageOf(*event), scope.ScreenPos());
    Application().KeepHint(); // the one that the press has brought
}

void ControlWidget::mouseMoveEvent(QMouseEvent* event)
{
    if (!control_)
        return;
    LastSurface() = this;
    const EventScope scope = ScopeOf(*event);
    control_->MouseMove(MessageOf(*event));
}

void ControlWidget::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    // The mouse's request comes with the right button's release, on every platform alike.
    if (!control_ || event->reason() == QContextMenuEvent::Mouse)
        return;
    const TPoint screenPos = FromQPoint(event->globalPos());
    const EventScope scope(ToShiftState(event->modifiers(), QGuiApplication::mouseButtons()), screenPos);
    RequestContextMenu(control_, screenPos);
}

void ControlWidget::keyPressEvent(QKeyEvent* event)
{
    const unsigned key = VirtualKey(event->key());
    if (!control_ || key == 0) {
        event->ignore();
        return;
    }
    const bool presses = key == VK_RETURN || key == VK_ESCAPE || key == VK_SPACE;
    if (presses && event->isAutoRepeat())
        return;
    const EventScope scope(
        ToShiftState(event->modifiers(), QGuiApplication::mouseButtons()), FromQPoint(QCursor::pos()));
    const TLifeWatch watch(control_);
    const bool used = control_->KeyDown(key, scope.Shift());
    event->setAccepted(used || !watch.Alive());
}

void ControlWidget::focusInEvent(QFocusEvent*)
{
    if (control_)
        control_->FocusChanged();
}

void ControlWidget::focusOutEvent(QFocusEvent*)
{
    if (control_)
        control_->FocusChanged();
}

} // namespace vorn
