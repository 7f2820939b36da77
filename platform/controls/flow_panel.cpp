#include "platform/controls/flow_panel.h"

#include "platform/system/guards.h"

#include <algorithm>

namespace vorn {

TFlowPanel::TFlowPanel(TComponent* owner) : TWinControl(owner) {}

TFlowPanel::~TFlowPanel()
{
    Destroying();
}

void TFlowPanel::SetBevelOuter(TBevelCut bevel)
{
    if (bevelOuter_ == bevel)
        return;
    bevelOuter_ = bevel;
    Arrange();
    Invalidate();
}

void TFlowPanel::Arrange()
{
    if (arranging_)
        return;
    const ScopedValue<bool> arranging(arranging_, true); // moving a child tells the panel
    const int edge = bevelOuter_ == TBevelCut::bvNone ? 0 : 1;
    const int right = Width() - edge;
    int x = edge;
    int y = edge;
    int rowHeight = 0;
    for (int i = 0; i < ControlCount(); ++i) {
        TControl* child = Controls(i);
        if (!child->Visible())
            continue;
        if (x > edge && child->Width() > WrapSub(right, x)) {
            x = edge;
            y = WrapAdd(y, rowHeight);
            rowHeight = 0;
        }
        child->SetBounds(x, y, child->Width(), child->Height());
        x = WrapAdd(x, child->Width());
        rowHeight = std::max(rowHeight, child->Height());
    }
}

void TFlowPanel::PaintBackground(TCanvas& canvas, const TRect& part)
{
    TWinControl::PaintBackground(canvas, part);
    if (bevelOuter_ == TBevelCut::bvNone)
        return;
    const bool raised = bevelOuter_ == TBevelCut::bvRaised;
    TRect edge = ClientRect();
    Frame3D(canvas, edge, raised ? clBtnHighlight : clBtnShadow, raised ? clBtnShadow : clBtnHighlight, 1);
}

} // namespace vorn
