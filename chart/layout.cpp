#include "chart/conventions.h"
#include "chart/vorndblabelIE.h"

#include "platform/controls/scroll_box.h"

#include <algorithm>

namespace vorn {

namespace {

constexpr int ZoomStep = 10;

/// A chart position as it is shown at a zoom: multiplied in 32 bits, then truncated towards 0.
int Percent(int zoom, int value)
{
    return static_cast<int>(WrapMul(zoom, value) / 100.0);
}

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
    SetOffsets(0, 0);
    MaxRect = image;
    for (const TVornRec* record : *FList)
        if (record->FLabel)
            MaxRect = UnionRect(MaxRect, record->FLabel->BoundsRect());
    for (int i = 1; i < FContainer->GetLayersCount(); ++i)
        if (IsSymbol(FContainer->GetLayer(i)))
            MaxRect = UnionRect(MaxRect, FContainer->GetLayer(i).ChartBox());
    if (FLabelDiagnosi->Visible())
        MaxRect = UnionRect(MaxRect, FLabelDiagnosi->BoundsRect());
    // Without a picture the union starts at the labels; the chart's origin belongs to it all the same.
    MaxRect.Left = std::min(MaxRect.Left, 0);
    MaxRect.Top = std::min(MaxRect.Top, 0);

    TRect area;
    if (MaxRect != image) {
        SetOffsets(MaxRect.Left, MaxRect.Top);
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

/// Both at once: each label is moved, and found its new place among its neighbours, only once.
void TVornIEDBTerList::SetOffsets(int x, int y)
{
    if (!FContainer || (x == FOffsetX && y == FOffsetY))
        return;
    const int dx = WrapSub(FOffsetX, x);
    const int dy = WrapSub(FOffsetY, y);
    // An external picture stays put, with the layers on it; labels and zones move over it.
    if (!FShowPictureContainer)
        MoveLayers({x, y});
    for (const TVornRec* record : *FList)
        if (TDRLabel* label = record->FLabel)
            label->SetBounds(WrapAdd(label->Left(), dx), WrapAdd(label->Top(), dy), label->Width(), label->Height());
    FZones->SetOffset({x, y});
    FOffsetX = x;
    FOffsetY = y;
}

/// All layers move together, so one origin tells for each of them which place in the image it stands for.
void TVornIEDBTerList::MoveLayers(const TPoint& origin)
{
    const int dx = WrapSub(FLayerOrigin.X, origin.X);
    const int dy = WrapSub(FLayerOrigin.Y, origin.Y);
    for (int i = 0; i < FContainer->GetLayersCount(); ++i) {
        TIELayer& layer = FContainer->GetLayer(i);
        layer.SetPosX(WrapAdd(layer.GetPosX(), dx));
        layer.SetPosY(WrapAdd(layer.GetPosY(), dy));
    }
    FLayerOrigin = origin;
}

/// The place to store for a layer's corner. With its counterpart the only way between the two.
TPoint TVornIEDBTerList::LayerToImage(const TPoint& place) const
{
    return {WrapAdd(place.X, FLayerOrigin.X), WrapAdd(place.Y, FLayerOrigin.Y)};
}

TPoint TVornIEDBTerList::ImageToLayer(const TPoint& place) const
{
    return {WrapSub(place.X, FLayerOrigin.X), WrapSub(place.Y, FLayerOrigin.Y)};
}

void TVornIEDBTerList::SetOffsetX(int Value)
{
    SetOffsets(Value, FOffsetY);
}

void TVornIEDBTerList::SetOffsetY(int Value)
{
    SetOffsets(FOffsetX, Value);
}

void TVornIEDBTerList::AdjustZoom()
{
    if (!FContainer)
        return;
    if (PaletteShown())
        ResetSimbPanel();
    const TUpdateLock lock(*FContainer);
    if (auto* box = dynamic_cast<TScrollBox*>(FContainer->Parent()))
        box->ScrollInView(FContainer);
    FContainer->ZoomAt(0, 0, FCurrentZoom, false);
    for (const TVornRec* record : *FList)
        if (TDRLabel* label = record->FLabel)
            label->SetBounds(Percent(FCurrentZoom, record->boundRect.Left),
                Percent(FCurrentZoom, record->boundRect.Top), label->Width(), label->Height());
    const TRect zoomed{
        MaxRect.Left, MaxRect.Top, Percent(FCurrentZoom, MaxRect.Right), Percent(FCurrentZoom, MaxRect.Bottom)};
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
