#pragma once

#include "platform/controls/win_control.h"

#include <QtGui/QImage>

namespace vorn::test {

/// A graphic control that fills itself, and more than itself, with one colour.
class Block : public TGraphicControl {
public:
    Block(TWinControl& parent, const TRect& bounds, TColor color) : Block(nullptr, parent, bounds, color) { }
    Block(TComponent* owner, TWinControl& parent, const TRect& bounds, TColor color) : TGraphicControl(owner)
    {
        SetColor(color);
        SetBounds(bounds.Left, bounds.Top, bounds.Width(), bounds.Height());
        SetParent(&parent);
    }
    ~Block() override
    {
        Destroying();
        if (OnFree)
            OnFree();
    }

    int Paints = 0;
    std::function<void()> OnFree;

protected:
    void Paint() override
    {
        ++Paints;
        Canvas().Brush.Color = Color();
        Canvas().FillRect({-50, -50, 5000, 5000}); // the parent must clip
    }
};

/// A control as a picture, drawn through the same code as on screen.
inline QImage PictureOf(TWinControl& control, int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    TCanvas canvas(image);
    control.PaintTo(canvas);
    canvas.End();
    return image;
}

} // namespace vorn::test
