#include "chart/conventions.h"
#include "chart/vorndblabelIE.h"

#include "platform/controls/scroll_box.h"

#include <algorithm>

namespace vorn {

namespace {

constexpr int ZoomStep = 10;

TRect SizeOf(const TIEBitmap& bitmap)
{
    return {0, 0, bitmap.Width(), bitmap.Height()};
}

/// A scroll box shows no gap beside the view, and the view doesn't shrink in it.
TRect FilledOut(const TRect& r, const TImageEnView& view)
{
    const auto* box = dynamic_cast<const TScrollBox*>(view.Parent());
    return box ? UnionRect(UnionRect(r, box->ClientRect()), view.ClientRect()) : r;
}

} // namespace

void TVornIEDBTerList::AdjustBounds()
{
    if (!FSpace->View())
        return;
    const TRect image = SizeOf(FSpace->View()->GetLayer(0).Bitmap());
    SetOffsets(0, 0);
    MaxRect = FTreatments->Around(image);
    for (int i = 1; i < FSpace->View()->GetLayersCount(); ++i)
        if (IsSymbol(FSpace->View()->GetLayer(i)))
            MaxRect = UnionRect(MaxRect, FSpace->View()->GetLayer(i).ChartBox());
    if (FDiagnosis->Visible())
        MaxRect = UnionRect(MaxRect, FDiagnosis->Label().BoundsRect());
    // Without a picture the union starts at the labels; the chart's origin belongs to it all the same.
    MaxRect.Left = std::min(MaxRect.Left, 0);
    MaxRect.Top = std::min(MaxRect.Top, 0);

    TRect area;
    if (MaxRect != image) {
        SetOffsets(MaxRect.Left, MaxRect.Top);
        OffsetRect(MaxRect, WrapSub(0, MaxRect.Left), WrapSub(0, MaxRect.Top));
        area = FilledOut(MaxRect, *FSpace->View());
    } else if (const TWinControl* parent = FSpace->View()->Parent()) {
        const TRect client = parent->ClientRect();
        const bool roomy = client.Width() > image.Width() && client.Height() > image.Height();
        area = roomy ? IntersectRect(image, client) : UnionRect(image, client);
    } else {
        area = vorn::Bounds(FSpace->View()->Left(), FSpace->View()->Top(), image.Width(), image.Height());
        FSpace->View()->SetBounds(area.Left, area.Top, area.Width(), area.Height());
        return;
    }
    FSpace->View()->SetBounds(area.Left, area.Top, area.Right, area.Bottom);
}

/// Makes room for a diagnosis box that wasn't there before. While the chart is zoomed its bounds stay as they are: they
/// are measured at natural size.
void TVornIEDBTerList::MakeRoomForDiagnosi(bool before)
{
    if (!before && FDiagnosis->Visible() && FSpace->AtNaturalSize())
        AdjustBounds();
}

void TVornIEDBTerList::SetDiagPazVisible(bool Value)
{
    if (!FSpace->View() || FDiagnosis->Visible() == Value)
        return;
    if (Value) {
        FDiagnosis->Ask();
        MakeRoomForDiagnosi(false);
    } else {
        FDiagnosis->Hide();
    }
    FDiagnosis->Save();
}

/// Both at once: each label is moved, and found its new place among its neighbours, only once.
void TVornIEDBTerList::SetOffsets(int x, int y)
{
    if (!FSpace->View() || (x == FSpace->Offset().X && y == FSpace->Offset().Y))
        return;
    const int dx = WrapSub(FSpace->Offset().X, x);
    const int dy = WrapSub(FSpace->Offset().Y, y);
    // An external picture stays put, with the layers on it; labels and zones move over it.
    if (!FSettings->ShowPictureContainer)
        MoveLayers({x, y});
    FTreatments->MoveLabels(dx, dy);
    FZones->SetOffset({x, y});
    FSpace->SetOffset({x, y});
}

/// All layers move together, so one origin tells for each of them which place in the image it stands for.
void TVornIEDBTerList::MoveLayers(const TPoint& origin)
{
    const int dx = WrapSub(FSpace->LayerOrigin().X, origin.X);
    const int dy = WrapSub(FSpace->LayerOrigin().Y, origin.Y);
    for (int i = 0; i < FSpace->View()->GetLayersCount(); ++i) {
        TIELayer& layer = FSpace->View()->GetLayer(i);
        layer.SetPosX(WrapAdd(layer.GetPosX(), dx));
        layer.SetPosY(WrapAdd(layer.GetPosY(), dy));
    }
    FSpace->SetLayerOrigin(origin);
}

void TVornIEDBTerList::SetOffsetX(int Value)
{
    SetOffsets(Value, FSpace->Offset().Y);
}

void TVornIEDBTerList::SetOffsetY(int Value)
{
    SetOffsets(FSpace->Offset().X, Value);
}

void TVornIEDBTerList::AdjustZoom()
{
    if (!FSpace->View())
        return;
    if (PaletteShown())
        ResetSimbPanel();
    const TUpdateLock lock(*FSpace->View());
    if (auto* box = dynamic_cast<TScrollBox*>(FSpace->View()->Parent()))
        box->ScrollInView(FSpace->View());
    FSpace->View()->ZoomAt(0, 0, FSpace->Zoom(), false);
    FTreatments->PlaceZoomed();
    const TRect zoomed{MaxRect.Left, MaxRect.Top, FSpace->Zoomed(MaxRect.Right), FSpace->Zoomed(MaxRect.Bottom)};
    const TRect area = FilledOut(zoomed, *FSpace->View());
    FSpace->View()->SetBounds(area.Left, area.Top, area.Right, area.Bottom);
}

void TVornIEDBTerList::ZoomIn()
{
    FSpace->SetZoom(WrapAdd(FSpace->Zoom(), ZoomStep));
    AdjustZoom();
}

void TVornIEDBTerList::ZoomOut()
{
    if (FSpace->AtNaturalSize())
        return;
    FSpace->SetZoom(FSpace->Zoom() - ZoomStep);
    AdjustZoom();
}

void TVornIEDBTerList::ZoomReset()
{
    if (FSpace->AtNaturalSize())
        return;
    FSpace->SetZoom(NaturalZoom);
    AdjustZoom();
}

} // namespace vorn
