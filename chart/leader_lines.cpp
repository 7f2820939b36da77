#include "chart/chart_painting.h"
#include "chart/vorndblabelIE.h"

namespace vorn {

void TVornIEDBTerList::DrawLineOnPicture(StringView zones)
{
    TImageEnView* view = FSpace->View();
    if (!view)
        return;
    view->SetLayersCurrent(0);
    DrawLeaderLine(*FZones, zones, view->Bitmap().GetCanvas(), {});
    view->Invalidate();
}

/// The lines of all labels that stand on their zones, onto layer 0.
void TVornIEDBTerList::DrawLinesOnPicture()
{
    FSpace->View()->SetLayersCurrent(0);
    for (const TVornRec* record : FTreatments->Records())
        if (record->FLabel && NamesSeveralZones(record->Zona))
            DrawLeaderLine(*FZones, record->Zona, FSpace->View()->Bitmap().GetCanvas(), {});
}

void TVornIEDBTerList::FListPaintTo(TCanvas& Canvas, int X, int Y) const
{
    for (const TVornRec* record : FTreatments->Records()) {
        if (!FSettings->EnabledImg || !record->FLabel)
            continue;
        if (NamesSeveralZones(record->Zona)) {
            Canvas.Brush.Style = TBrushStyle::bsSolid; // a transparent label before it leaves it clear
            DrawLeaderLine(
                *FZones, record->Zona, Canvas, {WrapSub(0, FSpace->Offset().X), WrapSub(0, FSpace->Offset().Y)});
        }
        PaintLabel(*record->FLabel, Canvas, {X, Y});
    }
    if (FDiagnosis->Painted())
        PaintLabel(FDiagnosis->Label(), Canvas, {X, Y});
}

} // namespace vorn
