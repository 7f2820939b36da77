#include "demo/dentition/tooth_painter.h"

#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>

#include <algorithm>

namespace vorn::demo {

namespace {

const QColor RootNeck(242, 227, 198);
const QColor RootTip(229, 209, 172);
const QColor RootShade(128, 97, 57);
const QColor RootEdge(154, 130, 94);
const QColor RootLight(255, 251, 240);
const QColor FarShadow(190, 160, 116);
const QColor EnamelShade(140, 118, 80);
const QColor EnamelEdge(150, 134, 104);

class PainterState {
public:
    explicit PainterState(QPainter& painter) : painter_(painter) { painter_.save(); }
    ~PainterState() { painter_.restore(); }
    PainterState(const PainterState&) = delete;
    PainterState& operator=(const PainterState&) = delete;

private:
    QPainter& painter_;
};

QColor WithAlpha(QColor color, double alpha)
{
    color.setAlphaF(static_cast<float>(alpha));
    return color;
}

QColor Mix(const QColor& a, const QColor& b, double share)
{
    auto mix = [share](int x, int y) { return qRound(x + (y - x) * share); };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

/// Lays ever narrower strokes over each other, so that colour gathers softly along the path.
void SoftStroke(QPainter& painter, const QPainterPath& path, const QBrush& ink, double width, int steps)
{
    for (int step = 0; step < steps; ++step) {
        const double share = 1.0 - static_cast<double>(step) / steps;
        painter.strokePath(path, QPen(ink, width * share, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
}

/// A brush for an open path: nothing at its start (unless `fromStart`), full colour in the middle, nothing at
/// its end.
QBrush FadingInk(const QPainterPath& path, const QColor& color, double alpha, bool fromStart)
{
    QLinearGradient ink(path.pointAtPercent(0), path.pointAtPercent(1));
    ink.setColorAt(0.0, WithAlpha(color, fromStart ? alpha : 0));
    ink.setColorAt(0.35, WithAlpha(color, alpha));
    ink.setColorAt(1.0, WithAlpha(color, 0));
    return ink;
}

/// Darkens the inside of a path towards its edge, which makes it look round.
void ShadeInside(QPainter& painter, const QPainterPath& path, const QColor& color, double width, double alpha)
{
    const PainterState state(painter);
    painter.setClipPath(path, Qt::IntersectClip);
    SoftStroke(painter, path, WithAlpha(color, alpha), width, 10);
}

void PaintRoot(QPainter& painter, const ToothShape& shape, const QPainterPath& path, double dim)
{
    if (path.isEmpty())
        return;
    const QRectF box = path.boundingRect();
    const bool rootsUp = shape.neckMiddle.y() < shape.biteMiddle.y();
    QLinearGradient fill(box.center().x(), shape.neckMiddle.y(), box.center().x(), rootsUp ? box.top() : box.bottom());
    fill.setColorAt(0, Mix(RootNeck, FarShadow, dim));
    fill.setColorAt(1, Mix(RootTip, FarShadow, dim));
    painter.fillPath(path, fill);
    const double width = std::min(16.0, box.width() * 0.5);
    ShadeInside(painter, path, RootShade, width, 0.036);
    painter.strokePath(path, QPen(WithAlpha(RootEdge, 0.9), 0.9));
}

void PaintRoots(QPainter& painter, const ToothShape& shape)
{
    PaintRoot(painter, shape, shape.farRoot, 0.45);
    PaintRoot(painter, shape, shape.root, 0);
    const PainterState state(painter);
    painter.setClipPath(shape.root, Qt::IntersectClip);
    const double span = shape.crown.boundingRect().width();
    for (const QPainterPath& ridge : shape.rootRidges)
        SoftStroke(painter, ridge, FadingInk(ridge, RootLight, 0.13, true), std::min(9.0, span * 0.24), 7);
    // The neck's shadow on the root.
    SoftStroke(painter, shape.crown, WithAlpha(RootShade, 0.06), 8, 6);
}

void PaintEnamel(QPainter& painter, const ToothShape& shape, double milkiness)
{
    const QColor white(252, 253, 253);
    QLinearGradient fill(shape.biteMiddle, shape.neckMiddle);
    fill.setColorAt(0.00, Mix(QColor(240, 243, 242), white, milkiness * 0.6));
    fill.setColorAt(0.16, Mix(QColor(250, 249, 244), white, milkiness));
    fill.setColorAt(0.60, Mix(QColor(250, 244, 229), white, milkiness * 0.8));
    fill.setColorAt(1.00, Mix(QColor(234, 218, 184), white, milkiness * 0.45));
    painter.fillPath(shape.crown, fill);
}

void PaintShine(QPainter& painter, const ToothShape& shape)
{
    const QRectF box = shape.crown.boundingRect();
    const PainterState state(painter);
    painter.setClipPath(shape.crown, Qt::IntersectClip);
    painter.translate(shape.shine);
    painter.scale(box.width() * 0.30, box.height() * 0.40);
    QRadialGradient light(QPointF(0, 0), 1.0);
    light.setColorAt(0.0, QColor(255, 255, 255, 235));
    light.setColorAt(0.45, QColor(255, 255, 255, 120));
    light.setColorAt(1.0, QColor(255, 255, 255, 0));
    painter.setPen(Qt::NoPen);
    painter.setBrush(light);
    painter.drawEllipse(QPointF(0, 0), 1.0, 1.0);
}

void PaintGrooves(QPainter& painter, const ToothShape& shape)
{
    const PainterState state(painter);
    painter.setClipPath(shape.crown, Qt::IntersectClip);
    for (const QPainterPath& hollow : shape.hollows)
        SoftStroke(painter, hollow, FadingInk(hollow, EnamelShade, 0.055, false), 6.5, 3);
    for (const QPainterPath& fissure : shape.fissures) {
        SoftStroke(painter, fissure, FadingInk(fissure, EnamelShade, 0.08, true), 7, 4);
        painter.strokePath(fissure, QPen(FadingInk(fissure, EnamelEdge, 0.7, true), 0.9, Qt::SolidLine, Qt::RoundCap));
    }
}

void PaintCrown(QPainter& painter, const ToothShape& shape, double milkiness)
{
    const double width = shape.crown.boundingRect().width();
    if (!shape.lingualCusps.isEmpty()) {
        painter.fillPath(shape.lingualCusps, QColor(222, 210, 184));
        painter.strokePath(shape.lingualCusps, QPen(WithAlpha(EnamelEdge, 0.85), 0.9));
    }
    PaintEnamel(painter, shape, milkiness);
    ShadeInside(painter, shape.crown, EnamelShade, std::min(20.0, width * 0.42), 0.026);
    PaintShine(painter, shape);
    PaintGrooves(painter, shape);
    painter.strokePath(shape.crown, QPen(WithAlpha(EnamelEdge, 0.95), 0.95));
}

} // namespace

void PaintTooth(QPainter& painter, const ToothShape& shape, double milkiness)
{
    PaintRoots(painter, shape);
    PaintCrown(painter, shape, milkiness);
}

} // namespace vorn::demo
