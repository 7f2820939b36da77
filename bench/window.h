#pragma once

#include "bench/chart_side.h"

#include <QEvent>
#include <QPoint>
#include <QSize>

class QWidget;

namespace vorn::bench {

inline constexpr QSize WindowSize(1200, 900);

/// Sends a mouse event at a point of a window, as the window system would.
void SendMouse(QWidget* window, QEvent::Type type, const QPoint& at, Qt::MouseButtons buttons);
/// The same at a point of the chart's view.
void SendMouse(ChartSide& side, QEvent::Type type, const QPoint& at, Qt::MouseButtons buttons);
/// Handles what is waiting and paints what was asked for.
void Settle(ChartSide& side);
/// The patient's chart in its window, scrolled to the drawing, with nothing left to paint.
void ShowInWindow(ChartSide& side, int treatments, int percent = 100);

} // namespace vorn::bench
