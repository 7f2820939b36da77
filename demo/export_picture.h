#pragma once

#include "demo/chart_session.h"

#include <QImage>

namespace vorn::demo {

/// The view as it stands on the screen, whole.
QImage ChartPicture(ChartSession& session);

/// Writes it as a PNG. Throws std::runtime_error that names the file; no half-written file is left.
void ExportChart(ChartSession& session, const QString& file);

} // namespace vorn::demo
