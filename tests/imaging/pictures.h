#pragma once

#include "platform/imaging/image_view.h"
#include "tests/support/pixels.h"

#include <QtCore/QBuffer>
#include <QtGui/QImage>

#include <span>

namespace vorn::test {

inline QImage Numbered(int width, int height, QImage::Format format = QImage::Format_RGB32)
{
    // No two pixels alike.
    QImage image(width, height, format);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb(10 + x * 20, 10 + y * 20, 100 + x + y * width));
    }
    return image;
}

inline QImage Plain(int width, int height, QRgb color)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

inline TIEBitmap& SetPicture(TIEBitmap& bitmap, const QImage& image)
{
    bitmap.SetImage(image);
    return bitmap;
}

inline QByteArray Encoded(const QImage& image, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

inline void Fill(TMemoryStream& stream, const QByteArray& bytes)
{
    stream.Clear();
    stream.Write(std::as_bytes(std::span(bytes.data(), static_cast<std::size_t>(bytes.size()))));
    stream.SetPosition(0);
}

} // namespace vorn::test
