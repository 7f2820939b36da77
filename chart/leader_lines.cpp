#include "chart/chart_painting.h"
#include "chart/vorndblabelIE.h"

namespace vorn {

/// The lines of all labels that stand on their zones, onto layer 0.
void TVornIEDBTerList::DrawLinesOnPicture()
{
    FContainer->SetLayersCurrent(0);
    for (const TVornRec* record : *FList)
        if (record->FLabel && NamesSeveralZones(record->Zona))
            DrawLeaderLine(*FZones, record->Zona, FContainer->Bitmap().GetCanvas(), {});
}

void TVornIEDBTerList::FListPaintTo(TCanvas& Canvas, int X, int Y) const
{
    for (const TVornRec* record : *FList) {
        if (!FEnabledImg || !record->FLabel)
            continue;
        if (NamesSeveralZones(record->Zona)) {
            Canvas.Brush.Style = TBrushStyle::bsSolid; // a transparent label before it leaves it clear
            DrawLeaderLine(*FZones, record->Zona, Canvas, {WrapSub(0, FOffsetX), WrapSub(0, FOffsetY)});
        }
        PaintLabel(*record->FLabel, Canvas, {X, Y});
    }
    if (FDiagnosiShow != TDiagnosiShow::diagNone && FLabelDiagnosi->Visible())
        PaintLabel(*FLabelDiagnosi, Canvas, {X, Y});
}

} // namespace vorn
