#pragma once

#include "demo/dentition/tooth_shape.h"

class QPainter;

namespace vorn::demo {

/// Paints one tooth, whose shape is in the painter's coordinates. `milkiness` 0 is ivory, 1 a milk tooth's
/// white.
void PaintTooth(QPainter& painter, const ToothShape& shape, double milkiness);

} // namespace vorn::demo
