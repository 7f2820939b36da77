#include "chart/layout.h"

#include "chart/conventions.h"
#include "platform/controls/scroll_box.h"

#include <algorithm>

namespace vorn {

namespace {

/// A scroll box shows no gap beside the view, and the view doesn't shrink in it.
TRect FilledOut(const TRect& r, const TImageEnView& view)
{
    const auto* box = dynamic_cast<const TScrollBox*>(view.Parent());
    return box ? UnionRect(UnionRect(r, box->ClientRect()), view.ClientRect()) : r;
}

/// Where the view goes if everything lies inside the image.
TRect ImageArea(const TRect& image, const TImageEnView& view)
{
    const TWinControl* parent = view.Parent();
    if (!parent)
        return {view.Left(), view.Top(), image.Width(), image.Height()};
    const TRect client = parent->ClientRect();
    const bool roomy = client.Width() > image.Width() && client.Height() > image.Height();
    return roomy ? IntersectRect(image, client) : UnionRect(image, client);
}

} // namespace

void TLayout::AdjustBounds()
{
    TImageEnView* view = space_.View();
    if (!view)
        return;
    const TIEBitmap& picture = view->GetLayer(0).Bitmap();
    const TRect image{0, 0, picture.Width(), picture.Height()};
    SetOffset({});
    Measure(image);
    TRect area; // its right and bottom are the view's size
    if (covered_ != image) {
        SetOffset({covered_.Left, covered_.Top});
        OffsetRect(covered_, WrapSub(0, covered_.Left), WrapSub(0, covered_.Top));
        area = FilledOut(covered_, *view);
    } else {
        area = ImageArea(image, *view);
    }
    view->SetBounds(area.Left, area.Top, area.Right, area.Bottom);
}

void TLayout::Measure(const TRect& image)
{
    const TImageEnView& view = *space_.View();
    covered_ = treatments_.Around(image);
    for (int i = 1; i < view.GetLayersCount(); ++i)
        if (IsSymbol(view.GetLayer(i)))
            covered_ = UnionRect(covered_, view.GetLayer(i).ChartBox());
    if (diagnosis_.Visible())
        covered_ = UnionRect(covered_, diagnosis_.Label().BoundsRect());
    // Without a picture the union starts at the labels; the chart's origin belongs to it all the same.
    covered_.Left = std::min(covered_.Left, 0);
    covered_.Top = std::min(covered_.Top, 0);
}

void TLayout::MakeRoomForDiagnosis()
{
    if (diagnosis_.Visible() && space_.AtNaturalSize())
        AdjustBounds();
}

/// Both ways at once: each label is moved, and found its new place among its neighbours, only once.
void TLayout::SetOffset(const TPoint& offset)
{
    const TPoint before = space_.Offset();
    if (!space_.View() || offset == before)
        return;
    // An external picture stays put, with the layers on it; labels and zones move over it.
    if (!settings_.ShowPictureContainer)
        MoveLayers(offset);
    treatments_.MoveLabels(WrapSub(before.X, offset.X), WrapSub(before.Y, offset.Y));
    zones_.SetOffset(offset);
    space_.SetOffset(offset);
}

/// All layers move together, so one origin tells for each of them which place in the image it stands for.
void TLayout::MoveLayers(const TPoint& origin)
{
    const int dx = WrapSub(space_.LayerOrigin().X, origin.X);
    const int dy = WrapSub(space_.LayerOrigin().Y, origin.Y);
    for (int i = 0; i < space_.View()->GetLayersCount(); ++i) {
        TIELayer& layer = space_.View()->GetLayer(i);
        layer.SetPosX(WrapAdd(layer.GetPosX(), dx));
        layer.SetPosY(WrapAdd(layer.GetPosY(), dy));
    }
    space_.SetLayerOrigin(origin);
}

void TLayout::ShowZoom() const
{
    TImageEnView* view = space_.View();
    if (!view)
        return;
    const TUpdateLock lock(*view);
    if (auto* box = dynamic_cast<TScrollBox*>(view->Parent()))
        box->ScrollInView(view);
    view->ZoomAt(0, 0, space_.Zoom(), false);
    treatments_.PlaceZoomed();
    const TRect zoomed{covered_.Left, covered_.Top, space_.Zoomed(covered_.Right), space_.Zoomed(covered_.Bottom)};
    const TRect area = FilledOut(zoomed, *view);
    view->SetBounds(area.Left, area.Top, area.Right, area.Bottom);
}

} // namespace vorn
