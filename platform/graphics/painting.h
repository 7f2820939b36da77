#pragma once

#include "platform/graphics/canvas.h"
#include "platform/system/qt_convert.h"

#include <QColor>
#include <QPainter>

#include <algorithm>

namespace vorn {

inline QRgb ToQRgb(TColor color)
{
    const TColor rgb = ColorToRGB(color);
    return 0xFF000000u | (rgb & 0xFF) << 16 | (rgb & 0xFF00) | (rgb >> 16 & 0xFF);
}

/// Coordinates beyond any surface are brought near enough for the painter's arithmetic.
inline int Reachable(int coordinate)
{
    constexpr int limit = 1 << 24;
    return std::clamp(coordinate, -limit, limit);
}

inline TRect Reachable(const TRect& r)
{
    return {Reachable(r.Left), Reachable(r.Top), Reachable(r.Right), Reachable(r.Bottom)};
}

/// Puts a painter back as it was on every way out of a scope.
class [[nodiscard]] PainterState {
public:
    explicit PainterState(QPainter& painter) : painter_(painter) { painter.save(); }
    ~PainterState() { painter_.restore(); }
    PainterState(const PainterState&) = delete;
    PainterState& operator=(const PainterState&) = delete;

private:
    QPainter& painter_;
};

/// One unit of the painter is one pixel of an image.
bool IsPixelExact(const QPainter& painter);

} // namespace vorn
