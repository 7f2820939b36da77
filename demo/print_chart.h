#pragma once

#include "demo/chart_session.h"

class QImage;
class QIODevice;
class QPainter;
class QPrintPreviewDialog;
class QPrinter;
class QRect;
class QWidget;

namespace vorn::demo {

/// Fills a page, in device pixels: the heading, a rule, and below them the picture as large as fits.
void PaintChartPage(QPainter& painter, const QRect& page, const QString& heading, const QImage& picture);

/// The patient's name and today's date.
QString PageHeading(ChartSession& session);

/// Writes one A4 page, landscape. False if the device takes nothing.
bool WriteChartPdf(ChartSession& session, QIODevice& target);

/// A printer set to one A4 page, landscape.
std::unique_ptr<QPrinter> MakePrinter();

/// The chart as it is now on the printer's page. The dialog belongs to `parent`; the printer outlives it.
QPrintPreviewDialog* MakePreview(ChartSession& session, QPrinter& printer, QWidget* parent);

} // namespace vorn::demo
