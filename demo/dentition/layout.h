#pragma once

#include "demo/dentition/tooth_shape.h"

#include <QPointF>
#include <QRect>
#include <QSize>

#include <vector>

namespace vorn::demo {

/// Pixels per millimetre of the permanent teeth.
inline constexpr double PermanentScale = 5.4;

/// A tooth at its place; all coordinates in picture pixels.
struct PlacedTooth {
    ToothNumber number;
    ToothShape shape;
    QRect rect;            ///< smallest whole-pixel rectangle around crown and roots as painted
    QPointF captionMiddle; ///< middle of the printed tooth number
};

/// Size of the drawing at its natural scale.
QSize PictureSize();

/// x of the line between the patient's right and left, y of the line between the arches.
QPointF PictureMiddle();

/// The 52 teeth in the order of `AllTeeth`.
const std::vector<PlacedTooth>& PlacedTeeth();

/// Places of the three areas that aren't teeth.
QRect GeneralArea();
QRect UpperArchArea();
QRect LowerArchArea();

} // namespace vorn::demo
