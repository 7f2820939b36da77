#pragma once

#include "platform/controls/win_control.h"

namespace vorn {

enum class TBevelCut : std::uint8_t { bvNone, bvLowered, bvRaised };

/// Lays its visible child controls out from left to right in the order in which they were added, in rows that wrap at
/// its width. A row is as high as its highest control. What doesn't fit in height is cut off.
class TFlowPanel : public TWinControl {
public:
    explicit TFlowPanel(TComponent* owner);
    ~TFlowPanel() override;

    TBevelCut BevelOuter() const { return bevelOuter_; }
    /// A bevel is one pixel wide and lies around the controls.
    void SetBevelOuter(TBevelCut bevel);

protected:
    void PaintBackground(TCanvas& canvas, const TRect& part) override;
    void Resized() override { Arrange(); }
    void ChildrenChanged() override { Arrange(); }

private:
    void Arrange();

    TBevelCut bevelOuter_ = TBevelCut::bvRaised;
    bool arranging_ = false;
};

} // namespace vorn
