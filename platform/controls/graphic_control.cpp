#include "platform/controls/control.h"
#include "platform/controls/win_control.h"
#include "platform/system/guards.h"

#include <algorithm>

namespace vorn {

TGraphicControl::TGraphicControl(TComponent* owner) : TControl(owner) {}

TGraphicControl::~TGraphicControl()
{
    Destroying();
}

void TGraphicControl::SetBounds(int left, int top, int width, int height)
{
    width = std::max(width, 0);
    height = std::max(height, 0);
    if (left == Left() && top == Top() && width == Width() && height == Height())
        return;
    const TRect old = BoundsRect();
    TControl::SetBounds(left, top, width, height);
    if (TWinControl* parent = Parent())
        parent->ChildMoved(this, old);
}

void TGraphicControl::SetVisible(bool visible)
{
    if (visible == Visible())
        return;
    TControl::SetVisible(visible);
    if (TWinControl* parent = Parent())
        parent->ChildShown(this);
}

void TGraphicControl::Invalidate()
{
    if (Parent() && Visible())
        Parent()->InvalidateRect(BoundsRect());
}

void TGraphicControl::Update()
{
    if (Parent())
        Parent()->Update();
}

void TGraphicControl::PaintTo(TCanvas& canvas)
{
    canvas.Font.Assign(Font());
    canvas.Brush = {};
    canvas.Pen = {};
    canvas.Pen.Color = penColor_;
    const ScopedValue<TCanvas*> bound(canvas_, &canvas);
    Paint();
    penColor_ = canvas.Pen.Color;
}

} // namespace vorn
