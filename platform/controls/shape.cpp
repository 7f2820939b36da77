#include "platform/controls/shape.h"

#include <algorithm>

namespace vorn {

TShape::TShape(TComponent* owner) : TGraphicControl(owner)
{
    SetBounds(0, 0, 65, 65);
}

void TShape::SetShape(TShapeType shape)
{
    if (shape == shape_)
        return;
    shape_ = shape;
    Invalidate();
}

void TShape::Paint()
{
    TRect box = ClientRect();
    if (shape_ == TShapeType::stSquare || shape_ == TShapeType::stCircle) {
        const int side = std::min(box.Width(), box.Height());
        box = Bounds((box.Width() - side) / 2, (box.Height() - side) / 2, side, side);
    }
    Canvas().Pen = pen_.Value();
    Canvas().Brush = brush_.Value();
    if (shape_ == TShapeType::stEllipse || shape_ == TShapeType::stCircle)
        Canvas().Ellipse(box);
    else
        Canvas().Rectangle(box);
}

} // namespace vorn
