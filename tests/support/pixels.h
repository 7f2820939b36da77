#pragma once

#include "platform/controls/win_control.h"

#include <gtest/gtest.h>

#include <QEvent>
#include <QImage>
#include <QPaintEvent>
#include <QRect>
#include <QWidget>

#include <string>

namespace vorn::test {

inline QRgb Rgb(TColor color)
{
    const int c = static_cast<int>(ColorToRGB(color));
    return qRgb(c & 0xFF, c >> 8 & 0xFF, c >> 16 & 0xFF);
}

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
    constexpr std::pair<QRgb, char> letters[]
        = {{0xFFFFFF, '.'}, {0, '#'}, {0xFF0000, 'r'}, {0x00FF00, 'g'}, {0x0000FF, 'b'}};
    std::string rows;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            rows += '?';
            for (const auto& [color, letter] : letters)
                if ((image.pixel(x, y) & 0xFFFFFF) == color)
                    rows.back() = letter;
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

inline int CountPixels(const QImage& image, QRgb color)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixel(x, y) == color;
    return count;
}

/// Each pixel is what `expected(x, y)` says; stops at the first that isn't.
template <typename F>
void ExpectPixels(const QImage& image, F expected)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ASSERT_EQ(image.pixel(x, y), expected(x, y)) << x << ", " << y;
}

/// The client area of a window, drawn through the same code as on screen.
inline QImage PictureOf(TWinControl& control)
{
    QImage image(control.ClientWidth(), control.ClientHeight(), QImage::Format_RGB32);
    image.fill(Qt::magenta);
    TCanvas canvas(image);
    control.PaintTo(canvas);
    canvas.End();
    return image;
}

/// Collects what a window is asked to paint.
class PaintSpy : public QObject {
public:
    explicit PaintSpy(QWidget* window) { window->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            painted_ += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
    /// Since the last call.
    QRegion Taken() { return std::exchange(painted_, {}); }

private:
    QRegion painted_;
};

} // namespace vorn::test
