#include "platform/controls/control_widget.h"
#include "platform/controls/drag_session.h"
#include "platform/controls/event_scope.h"
#include "platform/system/qt_convert.h"

#include <QtCore/QPointer>
#include <QtGui/QDragEnterEvent>

namespace vorn {

namespace {

/// The drag that an event tells of, if it is one of this program's and the control listens to drags.
DragSession* SessionFor(TWinControl* control, const QDropEvent& event)
{
    const bool listens = control && control->HasEvents() && control->Events().OnDragOver;
    return listens ? DragSession::Of(event.mimeData()) : nullptr;
}

EventScope ScopeOf(const QWidget& window, const QDropEvent& event)
{
    return {
        ToShiftState(event.modifiers(), event.buttons()), FromQPoint(window.mapToGlobal(event.position().toPoint()))};
}

} // namespace

void ControlWidget::dragEnterEvent(QDragEnterEvent* event)
{
    DragSession* session = SessionFor(control_, *event);
    if (!session) {
        event->ignore(); // the windows behind may want it
        return;
    }
    // Taken whatever the answer: a window that refuses here hears of no moves, and those may find a better place.
    event->acceptProposedAction();
    const EventScope scope = ScopeOf(*this, *event);
    session->Over(*control_, FromQPoint(event->position().toPoint()));
}

void ControlWidget::dragMoveEvent(QDragMoveEvent* event)
{
    event->ignore();
    if (DragSession* session = SessionFor(control_, *event)) {
        const QPointer<ControlWidget> alive(this);
        const EventScope scope = ScopeOf(*this, *event);
        session->Over(*control_, FromQPoint(event->position().toPoint()));
        if (alive && session->AcceptedBy(control_))
            event->acceptProposedAction();
    }
}

void ControlWidget::dragLeaveEvent(QDragLeaveEvent*)
{
    if (DragSession* session = DragSession::Current(); session && control_)
        session->Leave(*control_);
}

void ControlWidget::dropEvent(QDropEvent* event)
{
    event->ignore();
    if (DragSession* session = SessionFor(control_, *event)) {
        const EventScope scope = ScopeOf(*this, *event);
        if (session->Drop(*control_, FromQPoint(event->position().toPoint())))
            event->acceptProposedAction();
    }
}

} // namespace vorn
