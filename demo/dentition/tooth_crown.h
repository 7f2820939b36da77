#pragma once

#include "demo/dentition/tooth_shape.h"

namespace vorn::demo {

/// Fills in the crown, its grooves and far cusps. Same coordinates as `ShapeOf`.
void AddCrown(ToothShape& shape, const ToothMeasures& measures, bool deciduous);

/// Height above the biting edge at which the neck meets the sides of the crown, in millimetres.
double NeckSideHeight(const ToothMeasures& measures);

} // namespace vorn::demo
