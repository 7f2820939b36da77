#include "platform/graphics/painting.h"
#include "platform/imaging/image_view.h"
#include "platform/system/guards.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QTransform>

#include <algorithm>
#include <vector>

namespace vorn {

namespace {

int DrawnOpacity(const TIELayer& layer)
{
    return std::clamp(layer.Opacity(), 0, 255);
}

/// Copies pixels without looking at what lies below, where that gives the same picture.
void DrawPixels(QPainter& painter, const QPoint& at, const QImage& image, const QRect& source)
{
    const bool copy = !image.hasAlphaChannel() && painter.opacity() >= 1;
    painter.setCompositionMode(copy ? QPainter::CompositionMode_Source : QPainter::CompositionMode_SourceOver);
    painter.drawImage(at, image, source);
}

} // namespace

void TImageEnView::PaintBackground(TCanvas& canvas, const TRect& part)
{
    QPainter& painter = *canvas.Painter();
    const PainterState state(painter);
    FillBeside(painter, part);
    for (const auto& layer : layers_)
        layer->paintedPixels_ = layer->Bitmap().Image().cacheKey();
    PaintLayers(painter, part);
    for (std::size_t i = 1; i < layers_.size(); ++i) {
        if (layers_[i]->Selected() && layers_[i]->Visible())
            PaintOutline(painter, *layers_[i]);
    }
}

void TImageEnView::DrawLayersTo(TIEBitmap& target)
{
    if (target.IsEmpty())
        return;
    TIEBitmap drawing; // the target may be a picture of a layer
    drawing.Assign(target);
    {
        const ScopedValue zoom(zoom_, 100);
        const ScopedValue offset(offset_, TPoint{});
        PaintLayers(*drawing.GetCanvas().Painter(), {0, 0, drawing.Width(), drawing.Height()});
    }
    target.Assign(drawing);
}

void TImageEnView::PaintLayers(QPainter& painter, const TRect& part) const
{
    for (const auto& layer : layers_) {
        const bool seen = layer->Visible() && DrawnOpacity(*layer) > 0 && !layer->Bitmap().IsEmpty();
        if (seen && !IntersectRect(TouchedView(layer->ChartBox()), part).IsEmpty())
            PaintLayer(painter, *layer, part);
    }
    painter.setOpacity(1);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

/// The background colour, but for what an opaque picture covers anyway.
void TImageEnView::FillBeside(QPainter& painter, const TRect& part) const
{
    const TIELayer& picture = GetLayer(0);
    QRegion beside(ToQRect(part));
    const bool covers = zoom_ == 100 && picture.Visible() && picture.IsPlain() && picture.Opacity() >= 255
        && !picture.Bitmap().IsEmpty() && !picture.Bitmap().Picture().hasAlphaChannel();
    if (covers)
        beside -= ToQRect(IntersectRect(picture.Box(), part));
    const QColor color = QColor(ToQRgb(background_));
    for (const QRect& r : beside)
        painter.fillRect(r, color);
}

void TImageEnView::PaintLayer(QPainter& painter, const TIELayer& layer, const TRect& part) const
{
    painter.setOpacity(DrawnOpacity(layer) / 255.0);
    if (!layer.IsPlain()) {
        PaintTransformed(painter, layer);
        return;
    }
    if (zoom_ != 100) {
        if (filter_ == TResampleFilter::rfNone)
            PaintNearest(painter, layer, part);
        else
            PaintTransformed(painter, layer);
        return;
    }
    const TRect box = layer.Box();
    const TRect shown = IntersectRect(box, part);
    if (!shown.IsEmpty())
        DrawPixels(painter, {shown.Left, shown.Top}, layer.Bitmap().Picture(),
            QRect(shown.Left - box.Left, shown.Top - box.Top, shown.Width(), shown.Height()));
}

/// Every view pixel shows the layer's pixel at its own chart point, so clicks and pictures agree to the
/// pixel.
void TImageEnView::PaintNearest(QPainter& painter, const TIELayer& layer, const TRect& part) const
{
    const QImage& image = layer.Bitmap().Picture();
    const TRect shown = IntersectRect(TouchedView(layer.ChartBox()), part);
    const auto sources = [](int from, int to, auto toChart, int layerPos, int extent, int& first) {
        std::vector<int> found;
        for (int i = from; i < to; ++i) {
            const int source = WrapSub(toChart(i), layerPos);
            if (source < 0 || source >= extent)
                continue;
            if (found.empty())
                first = i;
            found.push_back(source);
        }
        return found;
    };
    TPoint at;
    const std::vector<int> columns = sources(
        shown.Left, shown.Right, [this](int x) { return XScr2Bmp(x); }, layer.GetPosX(), image.width(), at.X);
    const std::vector<int> rows = sources(
        shown.Top, shown.Bottom, [this](int y) { return YScr2Bmp(y); }, layer.GetPosY(), image.height(), at.Y);
    if (columns.empty() || rows.empty())
        return;
    QImage zoomed(static_cast<int>(columns.size()), static_cast<int>(rows.size()), image.format());
    for (int y = 0; y < zoomed.height(); ++y) {
        const int row = rows[static_cast<std::size_t>(y)];
        auto* to = reinterpret_cast<QRgb*>(zoomed.scanLine(y));
        if (y > 0 && row == rows[static_cast<std::size_t>(y) - 1]) {
            const auto* above = reinterpret_cast<const QRgb*>(zoomed.constScanLine(y - 1));
            std::copy_n(above, columns.size(), to);
            continue;
        }
        const auto* from = reinterpret_cast<const QRgb*>(image.constScanLine(row));
        for (const int column : columns)
            *to++ = from[column];
    }
    DrawPixels(painter, {at.X, at.Y}, zoomed, zoomed.rect());
}

void TImageEnView::PaintTransformed(QPainter& painter, const TIELayer& layer) const
{
    if (layer.GetWidth() == 0 || layer.GetHeight() == 0)
        return;
    const QImage& image = layer.Bitmap().Picture();
    const QTransform outer = painter.transform();
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.translate(-offset_.X, -offset_.Y);
    painter.scale(zoom_ / 100.0, zoom_ / 100.0);
    painter.setTransform(layer.ToChart(), true);
    painter.drawImage(QRectF(0, 0, layer.GetWidth(), layer.GetHeight()), image);
    painter.setTransform(outer);
}

void TImageEnView::PaintOutline(QPainter& painter, const TIELayer& layer) const
{
    QTransform toView;
    toView.translate(-offset_.X, -offset_.Y);
    toView.scale(zoom_ / 100.0, zoom_ / 100.0);
    const QTransform all = layer.ToChart() * toView;
    // Through the middle of the outermost pixels.
    QPolygonF outline = all.map(QPolygonF(QRectF(0, 0, layer.GetWidth(), layer.GetHeight())));
    const QPointF middle = outline.boundingRect().center();
    for (QPointF& corner : outline) {
        corner.rx() += corner.x() > middle.x() ? -0.5 : 0.5;
        corner.ry() += corner.y() > middle.y() ? -0.5 : 0.5;
    }
    painter.setBrush(Qt::NoBrush);
    QPen pen(Qt::white, 1);
    pen.setCosmetic(true);
    painter.setPen(pen);
    painter.drawPolygon(outline);
    pen.setColor(Qt::black);
    pen.setDashPattern({3, 3});
    painter.setPen(pen);
    painter.drawPolygon(outline);
}

} // namespace vorn
