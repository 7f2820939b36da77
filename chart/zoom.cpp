#include "chart/vorndblabelIE.h"

namespace vorn {

namespace {

constexpr int ZoomStep = 10;

} // namespace

void TVornIEDBTerList::SetZoom(int percent)
{
    FSpace->SetZoom(percent);
    if (FSpace->View() && PaletteShown())
        ResetSimbPanel();
    FLayout->ShowZoom();
}

void TVornIEDBTerList::ZoomIn()
{
    SetZoom(WrapAdd(FSpace->Zoom(), ZoomStep));
}

void TVornIEDBTerList::ZoomOut()
{
    if (!FSpace->AtNaturalSize())
        SetZoom(FSpace->Zoom() - ZoomStep);
}

void TVornIEDBTerList::ZoomReset()
{
    if (!FSpace->AtNaturalSize())
        SetZoom(NaturalZoom);
}

} // namespace vorn
