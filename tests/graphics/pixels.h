#pragma once

#include <QImage>
#include <QRect>

#include <string>

namespace vorn::test {

/// A white picture.
inline QImage Paper(int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    return image;
}

/// The picture as rows of characters: "." white, "#" black, "r", "g", "b" pure colours, "?" anything else.
inline std::string Rows(const QImage& image)
{
    std::string rows;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y) & 0xFFFFFF;
            rows += pixel == 0xFFFFFF ? '.'
                    : pixel == 0      ? '#'
                    : pixel == 0xFF0000 ? 'r'
                    : pixel == 0x00FF00 ? 'g'
                    : pixel == 0x0000FF ? 'b'
                                        : '?';
        }
        rows += '\n';
    }
    return rows;
}

/// The smallest rectangle around everything that isn't white.
inline QRect InkBox(const QImage& image)
{
    QRect box;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if ((image.pixel(x, y) & 0xFFFFFF) != 0xFFFFFF)
                box |= QRect(x, y, 1, 1);
    return box;
}

} // namespace vorn::test
