#include "platform/controls/control_widget.h"

#include "platform/controls/application.h"
#include "platform/controls/event_scope.h"
#include "platform/controls/qt_convert.h"
#include "platform/controls/win_control_private.h"

#include <QtCore/QPointer>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QHelpEvent>
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

} // namespace

ControlWidget::ControlWidget(TWinControl& control, QWidget* parent) : QWidget(parent), control_(&control)
{
    control.d_->Surface = this;
    setMouseTracking(true);
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
    bool taken = true;
    if (event->type() == QEvent::ToolTip && control_) {
        const auto* help = static_cast<QHelpEvent*>(event);
        LastSurface() = this;
        Application().ActivateHint(FromQPoint(help->globalPos()));
    } else {
        taken = QWidget::event(event);
    }
    if (alive)
        --depth_;
    return taken;
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

} // namespace vorn
