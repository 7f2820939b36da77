#include "chart/coordinates.h"
#include "chart/vorndblabelIE.h"

#include "platform/controls/scroll_box.h"

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
    if (!FContainer)
        return;
    const TRect image = SizeOf(FContainer->GetLayer(0).Bitmap());
    SetOffsetX(0);
    SetOffsetY(0);
    MaxRect = image;
    for (const TVornRec* record : *FList)
        if (record->FLabel)
            MaxRect = UnionRect(MaxRect, record->FLabel->BoundsRect());
    for (int i = 1; i < FContainer->GetLayersCount(); ++i)
        if (FContainer->GetLayer(i).UserDataLen == SymbolLayerMark)
            MaxRect = UnionRect(MaxRect, FContainer->GetLayer(i).ChartBox());
    if (FLabelDiagnosi->Visible())
        MaxRect = UnionRect(MaxRect, FLabelDiagnosi->BoundsRect());

    TRect area;
    if (MaxRect != image) {
        SetOffsetX(MaxRect.Left);
        SetOffsetY(MaxRect.Top);
        OffsetRect(MaxRect, WrapSub(0, MaxRect.Left), WrapSub(0, MaxRect.Top));
        area = FilledOut(MaxRect, *FContainer);
    } else if (const TWinControl* parent = FContainer->Parent()) {
        const TRect client = parent->ClientRect();
        const bool roomy = client.Width() > image.Width() && client.Height() > image.Height();
        area = roomy ? IntersectRect(image, client) : UnionRect(image, client);
    } else {
        area = vorn::Bounds(FContainer->Left(), FContainer->Top(), image.Width(), image.Height());
        FContainer->SetBounds(area.Left, area.Top, area.Width(), area.Height());
        return;
    }
    FContainer->SetBounds(area.Left, area.Top, area.Right, area.Bottom);
}

void TVornIEDBTerList::MoveLabels(int dx, int dy)
{
    for (const TVornRec* record : *FList)
        if (TDRLabel* label = record->FLabel)
            label->SetBounds(
                WrapAdd(label->Left(), dx), WrapAdd(label->Top(), dy), label->Width(), label->Height());
    for (TZone* zone : *FZoneList)
        OffsetRect(zone->rectOffeset, dx, dy);
}

void TVornIEDBTerList::SetOffsetX(int Value)
{
    if (Value == FOffsetX || !FContainer)
        return;
    const int delta = WrapSub(FOffsetX, Value);
    // An external picture stays put; labels and zones move over it.
    if (!FShowPictureContainer)
        for (int i = 0; i < FContainer->GetLayersCount(); ++i) {
            TIELayer& layer = FContainer->GetLayer(i);
            layer.SetPosX(WrapAdd(layer.GetPosX(), delta));
        }
    MoveLabels(delta, 0);
    FOffsetX = Value;
}

void TVornIEDBTerList::SetOffsetY(int Value)
{
    if (Value == FOffsetY || !FContainer)
        return;
    const int delta = WrapSub(FOffsetY, Value);
    if (!FShowPictureContainer)
        for (int i = 0; i < FContainer->GetLayersCount(); ++i) {
            TIELayer& layer = FContainer->GetLayer(i);
            layer.SetPosY(WrapAdd(layer.GetPosY(), delta));
        }
    MoveLabels(0, delta);
    FOffsetY = Value;
}

void TVornIEDBTerList::AdjustZoom()
{
    if (!FContainer)
        return;
    const TUpdateLock lock(*FContainer);
    if (auto* box = dynamic_cast<TScrollBox*>(FContainer->Parent()))
        box->ScrollInView(FContainer);
    FContainer->ZoomAt(0, 0, FCurrentZoom, false);
    for (const TVornRec* record : *FList)
        if (TDRLabel* label = record->FLabel)
            label->SetBounds(Percent(FCurrentZoom, record->boundRect.Left),
                Percent(FCurrentZoom, record->boundRect.Top), label->Width(), label->Height());
    const TRect zoomed {MaxRect.Left, MaxRect.Top, Percent(FCurrentZoom, MaxRect.Right),
        Percent(FCurrentZoom, MaxRect.Bottom)};
    const TRect area = FilledOut(zoomed, *FContainer);
    FContainer->SetBounds(area.Left, area.Top, area.Right, area.Bottom);
}

void TVornIEDBTerList::ZoomIn()
{
    FCurrentZoom = WrapAdd(FCurrentZoom, ZoomStep);
    AdjustZoom();
}

void TVornIEDBTerList::ZoomOut()
{
    if (FCurrentZoom == NaturalZoom)
        return;
    FCurrentZoom -= ZoomStep;
    AdjustZoom();
}

void TVornIEDBTerList::ZoomReset()
{
    if (FCurrentZoom == NaturalZoom)
        return;
    FCurrentZoom = NaturalZoom;
    AdjustZoom();
}

} // namespace vorn
