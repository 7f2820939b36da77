#include "labels/click_shape.h"

namespace vorn {

TClickShape::TClickShape(TComponent* AOwner) : TGraphicControl(AOwner)
{
    SetBounds(Left(), Top(), 65, 65); // a shape's natural size
    SetCursor(crHandPoint);
}

void TClickShape::SetZona(StringView value)
{
    fzona = value;
    SetHint(value);
}

} // namespace vorn
