#pragma once

#include "demo/dentition/layout.h"
#include "demo/dentition/zones.h"

#include <QImage>

class QPainter;

namespace vorn::demo {

/// Paints the whole drawing at its natural scale, `PictureSize` from the painter's origin.
/// The edge of the drawing is plain background, so that a surround in that colour joins it without a seam.
void PaintDentition(QPainter& painter);

/// The drawing as a picture. `scale` multiplies its size in pixels.
QImage RenderDentition(double scale = 1.0);

} // namespace vorn::demo
