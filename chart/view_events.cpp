#include "chart/vorndblabelIE.h"

#include "platform/controls/application.h"

namespace vorn {

void TVornIEDBTerList::ImageEnMouseUp(TObject* Sender, TMouseButton Button, TShiftState Shift, int X, int Y)
{
    const int x = FContainer->XScr2Bmp(X);
    const int y = FContainer->YScr2Bmp(Y);
    if (FContainer->LayersCurrent() != 0) {
        if (FContainer->FindLayerAt(x, y, true) == -1)
            ResetSimbPanel();
        return;
    }
    if (TZone* zone = FZones->At({x, y})) {
        if (Button != TMouseButton::mbRight)
            Raise(OnZoneClick, zone);
        return;
    }
    Raise(fOldMouseUp, Sender, Button, Shift, X, Y);
}

void TVornIEDBTerList::ImageEnMouseMove(TObject*, TShiftState, int X, int Y)
{
    if (FContainer->LayersCurrent() != 0)
        return;
    if (const TZone* zone = FZones->At({FContainer->XScr2Bmp(X), FContainer->YScr2Bmp(Y)})) {
        FContainer->SetHint(zone->numZona);
        Application().ActivateHint(FContainer->ClientToScreen({X, Y}));
        FContainer->SetCursor(crHandPoint);
    } else if (!FContainer->Hint().empty()) {
        FContainer->SetCursor(oldCursor);
        FContainer->SetHint({});
        Application().HideHint();
    }
}

void TVornIEDBTerList::ImageEnViewChange(TObject*, int) {}

} // namespace vorn
