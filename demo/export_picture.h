#pragma once

#include "demo/chart_session.h"

#include <QImage>

namespace vorn::demo {

/// The view as it stands on the screen, whole.
QImage ChartPicture(ChartSession& session);

/// Layers, labels and diagnosis box at 100 percent on white, whatever the screen shows.
QImage FinishedChart(ChartSession& session);

/// Writes one page with the finished chart for a name that ends in ".pdf", else the view as a PNG. Throws
/// std::runtime_error that names the file; no half-written file is left.
void ExportChart(ChartSession& session, const QString& file);

/// The same, but a PNG holds the finished chart.
void ExportFinishedChart(ChartSession& session, const QString& file);

} // namespace vorn::demo
