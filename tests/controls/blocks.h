#pragma once

#include "platform/controls/win_control.h"

#include "tests/support/pixels.h"

namespace vorn::test {

/// A graphic control that fills itself, and more than itself, with one colour.
class Block : public TGraphicControl {
public:
    Block(TWinControl& parent, const TRect& bounds, TColor color) : Block(nullptr, parent, bounds, color) {}
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

} // namespace vorn::test
