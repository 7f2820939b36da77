#pragma once

#include <QColor>

class QPainter;

namespace vorn::demo {

/// Everything of the drawing that isn't a tooth.

QColor BackgroundColor();

/// Plain ground, gums, and the thin cross between the quadrants.
void PaintBackground(QPainter& painter);

/// The tooth numbers.
void PaintCaptions(QPainter& painter);

/// The emblems of the areas "GL", "AS" and "AI".
void PaintAreas(QPainter& painter);

} // namespace vorn::demo
