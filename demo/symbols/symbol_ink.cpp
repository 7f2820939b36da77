#include "demo/symbols/symbol_ink.h"

#include <QLinearGradient>

#include <cmath>

namespace vorn::demo::ink {

namespace {

/// Fits a path that was drawn in a unit square into `box`.
QPainterPath Fitted(const QPainterPath& path, const QRectF& box)
{
    QTransform fit;
    fit.translate(box.left(), box.top());
    fit.scale(box.width(), box.height());
    const QRectF bounds = path.boundingRect();
    fit.scale(1 / bounds.width(), 1 / bounds.height());
    fit.translate(-bounds.left(), -bounds.top());
    return fit.map(path);
}

} // namespace

QColor WithAlpha(QColor color, double alpha)
{
    color.setAlphaF(static_cast<float>(alpha));
    return color;
}

QPen Pen(const QColor& color, double width)
{
    return {color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

QPen DashedPen(const QColor& color, double width)
{
    QPen pen = Pen(color, width);
    pen.setDashPattern({1.6, 2.0});
    return pen;
}

void Stroke(QPainter& painter, const QPainterPath& path, const QColor& color, double width)
{
    painter.strokePath(path, Pen(color, width));
}

void Shape(QPainter& painter, const QPainterPath& path, const QBrush& fill, const QColor& edge, double width)
{
    painter.fillPath(path, fill);
    Stroke(painter, path, edge, width);
}

void ArrowHead(QPainter& painter, QPointF tip, double degrees, const QColor& color, double size)
{
    QPainterPath head(QPointF(0, 0));
    head.lineTo(-size, -size * 0.58);
    head.lineTo(-size * 0.78, 0);
    head.lineTo(-size, size * 0.58);
    head.closeSubpath();
    QTransform place;
    place.translate(tip.x(), tip.y());
    place.rotate(degrees);
    Shape(painter, place.map(head), color, color, 0.8);
}

void Arrow(QPainter& painter, QPointF from, QPointF to, const QColor& color, double width, double head)
{
    const QPointF way = to - from;
    const double length = std::hypot(way.x(), way.y());
    QPen pen = Pen(color, width);
    pen.setCapStyle(Qt::FlatCap);
    QPainterPath shaft(from);
    shaft.lineTo(to - way * (head * 0.7 / length));
    painter.strokePath(shaft, pen);
    ArrowHead(painter, to, std::atan2(way.y(), way.x()) * 180 / M_PI, color, head);
}

QBrush Steel(double left, double right)
{
    QLinearGradient steel(left, 0, right, 0);
    steel.setColorAt(0.00, MetalDark);
    steel.setColorAt(0.30, MetalLight);
    steel.setColorAt(0.65, QColor(0xC3, 0xCD, 0xD6));
    steel.setColorAt(1.00, QColor(0x74, 0x84, 0x94));
    return steel;
}

QBrush Lit(const QRectF& box, const QColor& light, const QColor& dark)
{
    QLinearGradient lit(box.topLeft(), box.bottomRight());
    lit.setColorAt(0.1, light);
    lit.setColorAt(1.0, dark);
    return lit;
}

QPainterPath Polyline(std::initializer_list<QPointF> points)
{
    QPainterPath path;
    for (const QPointF& point : points) {
        if (path.elementCount() == 0)
            path.moveTo(point);
        else
            path.lineTo(point);
    }
    return path;
}

QPainterPath MolarCrown(const QRectF& box)
{
    static const QPainterPath crown = SmoothClosed({{2, 14}, {7, 4}, {14, 2}, {22, 8, true}, {30, 2}, {37, 4}, {42, 14},
        {42, 24}, {37, 34}, {30, 37}, {22, 35}, {14, 37}, {7, 34}, {2, 24}});
    return Fitted(crown, box);
}

QPainterPath LittleTooth(const QRectF& box)
{
    static const QPainterPath tooth = SmoothClosed({{2, 10}, {5, 2}, {10, 1}, {15, 4}, {20, 1}, {25, 2}, {28, 10},
        {26, 19}, {25, 28}, {22, 41}, {19, 41}, {17, 30}, {15, 26}, {13, 30}, {11, 41}, {8, 41}, {5, 28}, {4, 19}});
    return Fitted(tooth, box);
}

} // namespace vorn::demo::ink
