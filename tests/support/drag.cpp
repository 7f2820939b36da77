#include "tests/support/drag.h"

#include "platform/controls/drag_session.h"
#include "platform/system/guards.h"
#include "tests/support/mouse.h"

#include <QtCore/QMimeData>
#include <QtCore/QPointer>
#include <QtGui/QDragEnterEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <stdexcept>

namespace vorn::test {

namespace {

struct Spot {
    QPointer<QWidget> Surface;
    QPoint At;

    QWindow* Window() const { return Surface ? Surface->window()->windowHandle() : nullptr; }
    QPointF InWindow() const { return Surface->mapTo(Surface->window(), At); }
};

Spot SpotOf(const DragStop& stop)
{
    const Spot spot{SurfaceOf(*stop.Control), {stop.At.X, stop.At.Y}};
    if (!spot.Window())
        throw std::logic_error("a control on the way of a drag isn't shown");
    return spot;
}

/// Tells windows of a drag as the window system does.
class Drag {
public:
    explicit Drag(const QMimeData& data) : data_(data) {}

    void MoveTo(const Spot& spot)
    {
        QWindow* window = spot.Window();
        if (!window)
            return;
        if (window != window_) {
            Leave();
            window_ = window;
            QDragEnterEvent enter(spot.InWindow().toPoint(), Qt::CopyAction, &data_, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(window_, &enter);
        }
        at_ = spot.InWindow();
        QDragMoveEvent move(at_.toPoint(), Qt::CopyAction, &data_, Qt::LeftButton, Qt::NoModifier);
        move.ignore();
        if (window_)
            QApplication::sendEvent(window_, &move);
        accepted_ = move.isAccepted();
    }

    bool LetGo()
    {
        if (!window_ || !accepted_) {
            Leave();
            return false;
        }
        QDropEvent drop(at_, Qt::CopyAction, &data_, Qt::NoButton, Qt::NoModifier);
        drop.ignore();
        QApplication::sendEvent(window_, &drop);
        return drop.isAccepted();
    }

    void Leave()
    {
        if (!window_)
            return;
        QDragLeaveEvent leave;
        QApplication::sendEvent(window_, &leave);
        window_ = nullptr;
    }

private:
    const QMimeData& data_;
    QPointer<QWindow> window_;
    QPointF at_;
    bool accepted_ = false;
};

} // namespace

DragResult DragAlong(TControl& source, const TPoint& from, const std::vector<DragStop>& way, DragEnding ending)
{
    std::vector<Spot> spots;
    for (const DragStop& stop : way)
        spots.push_back(SpotOf(stop));
    DragResult result;
    DragCarrier before = SetDragCarrier([&](std::unique_ptr<QMimeData> data) {
        result.Began = true;
        Drag drag(*data);
        for (const Spot& spot : spots)
            drag.MoveTo(spot);
        if (ending == DragEnding::Drop)
            result.Taken = drag.LetGo();
        else
            drag.Leave();
    });
    const ScopeExit restore([&before] { SetDragCarrier(before); });
    Mouse mouse;
    mouse.Press(source, from);
    mouse.MoveBy(2, 1);
    if (!result.Began)
        mouse.ReleaseThere(); // the release of a drag goes to the drag
    return result;
}

DragResult DragFromTo(TControl& source, const TPoint& from, TWinControl& target, const TPoint& to)
{
    return DragAlong(source, from, {{&target, {to.X - 1, to.Y}}, {&target, to}});
}

bool DropForeignText(TWinControl& target, const TPoint& at)
{
    QMimeData data;
    data.setText(QStringLiteral("text"));
    Drag drag(data);
    drag.MoveTo(SpotOf({&target, at}));
    return drag.LetGo();
}

} // namespace vorn::test
