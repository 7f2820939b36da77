#pragma once

#include <QPoint>
#include <QRect>
#include <QString>

#include <vector>

namespace vorn::demo {

/// A sensitive area of the drawing, in picture pixels. It is computed from the shapes that are painted.
struct ZoneShape {
    QString name; ///< FDI tooth number, or "GL", "AS", "AI"
    QRect rect;
    int direction = 0; ///< where further labels go: 0 left, 1 up, 2 right, 3 down
    QPoint anchor;     ///< near corner of the first label: bottom left for 1, top right for 0, else top left
};

/// "GL" first, since a treatment with an unknown tooth goes to the first zone; then the two arches and the
/// teeth.
std::vector<ZoneShape> Zones();

/// The zones as text, one per line: left, top, right, bottom, direction, anchor x and y, name.
QString ZoneText();

/// The zone names in five rows: upper and lower permanent teeth, areas, upper and lower deciduous teeth.
QString ZoneNameText();

} // namespace vorn::demo
