#include "platform/imaging/bitmap.h"

#include "platform/graphics/painting.h"
#include "platform/system/exceptions.h"
#include "platform/system/strings.h"

#include <QtGui/QImage>

#include <utility>

namespace vorn {

namespace {

/// In the one of our two formats that fits. In place where that is possible and nobody else holds the pixels.
QImage Converted(QImage image)
{
    const auto format = image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
    if (image.isNull() || image.format() == format)
        return image;
    const QSize size = image.size();
    image = std::move(image).convertToFormat(format);
    if (image.isNull())
        throw EInvalidOperation(
            u"There is no memory for a picture of " + IntToStr(size.width()) + u" by " + IntToStr(size.height()));
    return image;
}

} // namespace

struct TIEBitmap::Private {
    QImage Pixels;
    std::unique_ptr<TCanvas> Canvas; // on Pixels
    QImage Opaque;                   // Pixels without alpha, made when first drawn
    std::int64_t OpaqueOf = 0;

    void EndDrawing()
    {
        if (Canvas)
            Canvas->End();
    }
};

TIEBitmap::TIEBitmap() : d_(std::make_unique<Private>()) {}

TIEBitmap::~TIEBitmap() = default;

bool TIEBitmap::IsEmpty() const
{
    return d_->Pixels.isNull();
}

int TIEBitmap::Width() const
{
    return d_->Pixels.width();
}

int TIEBitmap::Height() const
{
    return d_->Pixels.height();
}

void TIEBitmap::Allocate(int width, int height, TIEPixelFormat)
{
    if (width < 1 || height < 1) {
        FreeImage();
        return;
    }
    QImage image;
    if (static_cast<std::int64_t>(width) * height <= MostPixels)
        image = QImage(width, height, QImage::Format_RGB32);
    if (image.isNull())
        throw EInvalidOperation(u"A bitmap of " + IntToStr(width) + u" by " + IntToStr(height) + u" is too large");
    image.fill(Qt::white);
    SetImage(std::move(image));
}

void TIEBitmap::FreeImage()
{
    SetImage(QImage());
}

void TIEBitmap::Assign(const TPersistent& source)
{
    const auto* bitmap = dynamic_cast<const TIEBitmap*>(&source);
    if (!bitmap) {
        TPersistent::Assign(source);
        return;
    }
    if (bitmap == this)
        return;
    SetImage(bitmap->Image());
    alpha_ = bitmap->alpha_;
}

void TIEBitmap::Fill(TColor color)
{
    if (IsEmpty())
        return;
    QImage image(Width(), Height(), QImage::Format_RGB32);
    image.fill(ToQRgb(color));
    SetImage(std::move(image));
}

TRGB TIEBitmap::GetPixels_ie24RGB(int x, int y) const
{
    const QImage& image = Picture();
    if (!image.valid(x, y))
        return {};
    const QRgb pixel = image.pixel(x, y);
    return {static_cast<std::uint8_t>(qRed(pixel)), static_cast<std::uint8_t>(qGreen(pixel)),
        static_cast<std::uint8_t>(qBlue(pixel))};
}

TCanvas& TIEBitmap::GetCanvas()
{
    if (!d_->Canvas)
        d_->Canvas = std::make_unique<TCanvas>(d_->Pixels);
    return *d_->Canvas;
}

const QImage& TIEBitmap::Image() const
{
    d_->EndDrawing();
    return d_->Pixels;
}

void TIEBitmap::SetImage(QImage image)
{
    d_->EndDrawing();
    image = Converted(std::move(image));
    if (image.devicePixelRatio() != 1)
        image.setDevicePixelRatio(1);
    d_->Pixels = std::move(image);
    d_->Opaque = QImage();
}

const QImage& TIEBitmap::Picture() const
{
    const QImage& pixels = Image();
    if (alpha_ || !pixels.hasAlphaChannel())
        return pixels;
    if (d_->Opaque.isNull() || d_->OpaqueOf != pixels.cacheKey()) {
        QImage opaque = pixels.convertToFormat(QImage::Format_ARGB32);
        opaque.reinterpretAsFormat(QImage::Format_RGB32);
        d_->Opaque = opaque.convertToFormat(QImage::Format_RGB32);
        for (int y = 0; y < d_->Opaque.height(); ++y) {
            auto* line = reinterpret_cast<QRgb*>(d_->Opaque.scanLine(y));
            for (int x = 0; x < d_->Opaque.width(); ++x)
                line[x] |= 0xFF000000u;
        }
        d_->OpaqueOf = pixels.cacheKey();
    }
    return d_->Opaque;
}

} // namespace vorn
