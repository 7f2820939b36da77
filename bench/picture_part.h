#pragma once

#include <QRect>

namespace vorn::bench {

/// What is painted of a chart: all of it, up to a square around the middle of the drawing. Thousands of
/// labels in one stack reach farther than a picture can.
inline QRect PictureOf(const QRect& chart, const QRect& drawing)
{
    constexpr int longest = 4096;
    const QPoint corner = drawing.center() - QPoint(longest / 2, longest / 2);
    return chart.width() <= longest && chart.height() <= longest
        ? chart
        : chart.intersected(QRect(corner, QSize(longest, longest)));
}

} // namespace vorn::bench
