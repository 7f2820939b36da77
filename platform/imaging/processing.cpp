#include "platform/imaging/processing.h"

#include "platform/graphics/painting.h"
#include "platform/imaging/image_view.h"
#include "platform/system/exceptions.h"
#include "platform/system/strings.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QTransform>

#include <algorithm>
#include <cmath>
#include <limits>

namespace vorn {

namespace {

constexpr TColor NoBackground = static_cast<TColor>(-1);
constexpr double LongestSide = 32000; // as far as the painter's coordinates go

/// The size that is asked for: -1 follows in proportion, others are at least 1.
TPoint AskedSize(const QImage& image, int width, int height)
{
    if (width == -1 && height == -1)
        return {image.width(), image.height()};
    const auto follow = [](int own, int other, int otherOwn) {
        const double size = std::round(static_cast<double>(own) * other / otherOwn);
        return static_cast<int>(std::clamp(size, 1.0, double{std::numeric_limits<int>::max()}));
    };
    if (height == -1) {
        width = std::max(width, 1);
        return {width, follow(image.height(), width, image.width())};
    }
    height = std::max(height, 1);
    return {width == -1 ? follow(image.width(), height, image.height()) : std::max(width, 1), height};
}

/// A side of the turned picture, without what arithmetic alone adds.
double Side(double extent)
{
    constexpr double nothing = 1e-6;
    return std::max(std::ceil(extent - nothing), 1.0);
}

QImage Turned(const QImage& image, double angle, bool smooth)
{
    QTransform turn;
    turn.rotate(angle);
    if (std::fmod(angle, 90) == 0)
        return image.transformed(turn); // pixel by pixel
    const QRectF box = turn.mapRect(QRectF(image.rect()));
    const double width = Side(box.width());
    const double height = Side(box.height());
    QImage result;
    if (std::max(width, height) <= LongestSide && width * height <= TIEBitmap::MostPixels)
        result = QImage(static_cast<int>(width), static_cast<int>(height), QImage::Format_ARGB32_Premultiplied);
    if (result.isNull())
        throw EInvalidOperation(u"A picture of " + IntToStr(image.width()) + u" by " + IntToStr(image.height())
            + u" is too large to be turned");
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, smooth);
    painter.setRenderHint(QPainter::Antialiasing, smooth);
    painter.translate(width / 2, height / 2);
    painter.setTransform(turn, true);
    painter.drawImage(QPointF(-image.width() / 2.0, -image.height() / 2.0), image);
    return result;
}

QImage OnColor(const QImage& image, TColor color)
{
    QImage result(image.size(), QImage::Format_RGB32);
    result.fill(ToQRgb(color));
    QPainter(&result).drawImage(0, 0, image);
    return result;
}

} // namespace

void TImageEnProc::Replace(const QImage& image)
{
    TIELayer& layer = view_.GetCurrentLayer();
    const TRect before = layer.Box();
    layer.Bitmap().SetImage(image);
    view_.InvalidateRect(before);
    view_.InvalidateRect(layer.Box());
}

void TImageEnProc::Resample(int width, int height, TResampleFilter filter, bool)
{
    const QImage image = view_.Bitmap().Image();
    if (image.isNull())
        return;
    const TPoint size = AskedSize(image, width, height);
    Replace(Resampled(image, size.X, size.Y, filter));
}

void TImageEnProc::Rotate(double angle, bool antiAlias, TIEAntialiasMode mode, TColor background)
{
    const QImage image = view_.Bitmap().Image();
    if (image.isNull() || !std::isfinite(angle))
        return;
    const double turn = std::fmod(angle, 360);
    QImage turned = turn == 0 ? image : Turned(image, turn, antiAlias && mode != TIEAntialiasMode::ierFast);
    if (background != NoBackground && turned.hasAlphaChannel())
        turned = OnColor(turned, background);
    Replace(turned);
}

void TImageEnProc::ResampleTo(
    TIEBitmap& target, int width, int height, TResampleFilter filter, bool keepProportions) const
{
    const TIEBitmap& bitmap = view_.Bitmap();
    const QImage image = bitmap.Image();
    if (image.isNull()) {
        target.FreeImage();
        return;
    }
    TPoint size = AskedSize(image, width, height);
    if (keepProportions)
        size = FittingSize({image.width(), image.height()}, size);
    target.SetImage(Resampled(image, size.X, size.Y, filter));
    target.SetEnableAlphaChannel(bitmap.EnableAlphaChannel());
}

} // namespace vorn
