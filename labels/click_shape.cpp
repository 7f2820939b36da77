#include "labels/click_shape.h"

namespace vorn {

TClickShape::TClickShape(TComponent* AOwner) : TShape(AOwner)
{
    Pen().SetStyle(TPenStyle::psClear);
    Brush().SetStyle(TBrushStyle::bsClear);
    SetCursor(crHandPoint);
}

void TClickShape::SetZona(StringView value)
{
    fzona = value;
    SetHint(value);
}

} // namespace vorn
