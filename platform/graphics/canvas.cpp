#include "platform/graphics/canvas.h"

#include "platform/graphics/painting.h"
#include "platform/system/guards.h"

#include <QImage>
#include <QPaintEngine>

#include <cmath>
#include <vector>

namespace vorn {

namespace {

constexpr int maxPlottedLength = 1 << 15;

void Fill(QPainter& painter, const TRect& r, TColor color)
{
    const TRect area = Reachable(r);
    if (!area.IsEmpty() && color != clNone)
        painter.fillRect(ToQRect(area), QColor(ToQRgb(color)));
}

/// Every other pixel, beginning with the one at `start`.
void FillDotted(QPainter& painter, const TRect& r, const TPoint& start, TColor color)
{
    if (r.IsEmpty())
        return;
    QBrush dots(QColor(ToQRgb(color)), Qt::Dense4Pattern);
    if (((start.X + start.Y) & 1) == 0) // the pattern begins with a gap
        dots.setTransform(QTransform::fromTranslate(1, 0));
    painter.fillRect(ToQRect(r), dots);
}

bool IsVisible(const TPen& pen)
{
    return pen.Style != TPenStyle::psClear && pen.Color != clNone;
}

QPen ToQPen(const TPen& pen)
{
    QPen result(QColor(ToQRgb(pen.Color)), std::max(1, Reachable(pen.Width)));
    result.setCosmetic(pen.Width <= 1);
    result.setCapStyle(pen.Width <= 1 ? Qt::SquareCap : Qt::RoundCap);
    if (pen.Style == TPenStyle::psDot) {
        result.setCapStyle(Qt::FlatCap);
        result.setDashPattern({1, 1});
    }
    return result;
}

/// The pixels of a line, without its end.
std::vector<QPoint> Plot(const TPoint& from, const TPoint& to, int step)
{
    const int dx = to.X - from.X;
    const int dy = to.Y - from.Y;
    const int length = std::max(std::abs(dx), std::abs(dy));
    std::vector<QPoint> points;
    points.reserve(static_cast<std::size_t>(length / step) + 2);
    for (int i = 0; i < length; i += step) {
        const double part = static_cast<double>(i) / length;
        points.emplace_back(
            from.X + static_cast<int>(std::lround(dx * part)), from.Y + static_cast<int>(std::lround(dy * part)));
    }
    return points;
}

/// The box of a line along an axis, one pixel wide.
TRect AxisBox(const TPoint& from, const TPoint& to, bool withEnd)
{
    const int sx = (to.X > from.X) - (to.X < from.X);
    const int sy = (to.Y > from.Y) - (to.Y < from.Y);
    const TPoint last = withEnd ? to : TPoint{to.X - sx, to.Y - sy};
    return {
        std::min(from.X, last.X), std::min(from.Y, last.Y), std::max(from.X, last.X) + 1, std::max(from.Y, last.Y) + 1};
}

} // namespace

bool IsPixelExact(const QPainter& painter)
{
    const QPaintEngine* engine = painter.paintEngine();
    const QTransform& transform = painter.deviceTransform();
    return engine && engine->type() == QPaintEngine::Raster && transform.type() <= QTransform::TxTranslate
        && transform.dx() == std::floor(transform.dx()) && transform.dy() == std::floor(transform.dy());
}

TCanvas::TCanvas() = default;

TCanvas::TCanvas(QImage& image) : image_(&image) {}

TCanvas::TCanvas(QPainter& painter)
{
    Bind(&painter);
}

TCanvas::~TCanvas() = default;

QPainter* TCanvas::Painter()
{
    if (!painter_ && image_ && !image_->isNull()) {
        own_ = std::make_unique<QPainter>();
        if (own_->begin(image_))
            painter_ = own_.get();
        else
            own_.reset();
    }
    return painter_;
}

void TCanvas::End()
{
    if (!own_)
        return;
    own_.reset();
    painter_ = nullptr;
}

void TCanvas::Bind(QPainter* painter)
{
    own_.reset();
    image_ = nullptr;
    painter_ = painter;
    if (painter_ && painter_->testRenderHint(QPainter::Antialiasing))
        painter_->setRenderHint(QPainter::Antialiasing, false);
}

void TCanvas::FillRect(const TRect& r)
{
    if (Brush.Style == TBrushStyle::bsSolid)
        if (QPainter* painter = Painter())
            Fill(*painter, r, Brush.Color);
}

void TCanvas::Rectangle(const TRect& r)
{
    FillRect(r);
    Outline(r);
}

void TCanvas::Ellipse(const TRect& rect)
{
    QPainter* painter = Painter();
    const TRect r = Reachable(rect);
    if (!painter || r.IsEmpty())
        return;
    const bool outlined = IsVisible(Pen);
    const bool filled = Brush.Style == TBrushStyle::bsSolid && Brush.Color != clNone;
    painter->setPen(outlined ? ToQPen(Pen) : QPen(Qt::NoPen));
    painter->setBrush(filled ? QBrush(QColor(ToQRgb(Brush.Color))) : QBrush(Qt::NoBrush));
    const double inset = outlined ? std::clamp(Pen.Width, 1, std::min(r.Width(), r.Height())) / 2.0 : 0;
    painter->drawEllipse(QRectF(ToQRect(r)).adjusted(inset, inset, -inset, -inset));
    painter->setBrush(Qt::NoBrush);
}

void TCanvas::Outline(const TRect& rect)
{
    QPainter* painter = Painter();
    const TRect r = Reachable(rect);
    if (!painter || !IsVisible(Pen) || r.IsEmpty())
        return;
    const int width = std::clamp(Pen.Width, 1, (std::min(r.Width(), r.Height()) + 1) / 2);
    const int innerBottom = std::max(r.Top + width, r.Bottom - width);
    const TRect sides[] = {{r.Left, r.Top, r.Right, r.Top + width}, {r.Left, innerBottom, r.Right, r.Bottom},
        {r.Left, r.Top + width, r.Left + width, innerBottom},
        {std::max(r.Left + width, r.Right - width), r.Top + width, r.Right, innerBottom}};
    for (const TRect& side : sides) {
        if (Pen.Style == TPenStyle::psDot)
            FillDotted(*painter, side, {r.Left, r.Top}, Pen.Color);
        else
            Fill(*painter, side, Pen.Color);
    }
}

void TCanvas::FrameRect(const TRect& r)
{
    const ScopedValue<TPen> pen(Pen, TPen{Brush.Color, TPenStyle::psSolid, 1});
    Outline(r);
}

void TCanvas::Polyline(std::span<const TPoint> points)
{
    for (std::size_t i = 1; i < points.size(); ++i)
        Line(points[i - 1], points[i], i + 1 == points.size());
}

void TCanvas::MoveTo(int x, int y)
{
    penPos_ = {x, y};
}

void TCanvas::LineTo(int x, int y)
{
    Line(penPos_, {x, y}, false);
    penPos_ = {x, y};
}

void TCanvas::Line(const TPoint& from, const TPoint& to, bool withEnd)
{
    QPainter* painter = Painter();
    if (!painter || !IsVisible(Pen) || (from == to && !withEnd))
        return;
    const TPoint a{Reachable(from.X), Reachable(from.Y)};
    const TPoint b{Reachable(to.X), Reachable(to.Y)};
    const bool dotted = Pen.Style == TPenStyle::psDot;
    if (Pen.Width <= 1 && (a.X == b.X || a.Y == b.Y)) {
        const TRect box = AxisBox(a, b, withEnd);
        if (dotted)
            FillDotted(*painter, box, a, Pen.Color);
        else
            Fill(*painter, box, Pen.Color);
        return;
    }
    painter->setPen(ToQPen(Pen));
    const int length = std::max(std::abs(b.X - a.X), std::abs(b.Y - a.Y));
    if (Pen.Width > 1 || length > maxPlottedLength || !IsPixelExact(*painter)) {
        painter->drawLine(QPointF(a.X + 0.5, a.Y + 0.5), QPointF(b.X + 0.5, b.Y + 0.5));
        return;
    }
    const int step = dotted ? 2 : 1;
    std::vector<QPoint> points = Plot(a, b, step);
    if (withEnd && length % step == 0)
        points.emplace_back(b.X, b.Y);
    painter->drawPoints(points.data(), static_cast<int>(points.size()));
}

void TCanvas::InvertRect(const TRect& r)
{
    QPainter* painter = Painter();
    const TRect area = Reachable(r);
    if (!painter || area.IsEmpty())
        return;
    const QPainter::CompositionMode mode = painter->compositionMode();
    painter->setCompositionMode(QPainter::RasterOp_NotDestination);
    painter->fillRect(ToQRect(area), Qt::black);
    painter->setCompositionMode(mode);
}

void TCanvas::DrawImage(int x, int y, const QImage& image)
{
    if (QPainter* painter = Painter())
        painter->drawImage(QPoint(Reachable(x), Reachable(y)), image);
}

void Frame3D(TCanvas& canvas, TRect& r, TColor topColor, TColor bottomColor, int width)
{
    const ScopedValue<TBrush> brush(canvas.Brush, canvas.Brush);
    canvas.Brush.Style = TBrushStyle::bsSolid;
    for (; width > 0 && !r.IsEmpty(); --width) {
        canvas.Brush.Color = topColor;
        canvas.FillRect({r.Left, r.Top, r.Right, r.Top + 1});
        canvas.FillRect({r.Left, r.Top, r.Left + 1, r.Bottom});
        canvas.Brush.Color = bottomColor;
        canvas.FillRect({r.Right - 1, r.Top, r.Right, r.Bottom});
        canvas.FillRect({r.Left, r.Bottom - 1, r.Right, r.Bottom});
        r = {r.Left + 1, r.Top + 1, r.Right - 1, r.Bottom - 1};
    }
}

} // namespace vorn
