#include "bench/window.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

namespace vorn::bench {

void SendMouse(QWidget* window, QEvent::Type type, const QPoint& at, Qt::MouseButtons buttons)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, window->mapToGlobal(at), button, buttons, Qt::NoModifier);
    QApplication::sendEvent(window, &event);
}

void SendMouse(ChartSide& side, QEvent::Type type, const QPoint& at, Qt::MouseButtons buttons)
{
    SendMouse(side.Session().View().Widget(), type, at, buttons);
}

void Settle(ChartSide& side)
{
    QApplication::processEvents();
    side.Session().View().Update();
}

void ShowInWindow(ChartSide& side, int treatments, int percent)
{
    side.Show(treatments);
    demo::ChartSession& session = side.Session();
    session.ShowZoom(percent);
    session.BlinkTimer().SetInterval(0); // its ticks would fall into what is measured
    const TRect drawing = session.View().GetLayer(0).Box();
    session.Box()->SetScrollPosition({drawing.Left, drawing.Top});
    Settle(side);
}

} // namespace vorn::bench
