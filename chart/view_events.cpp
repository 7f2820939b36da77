#include "chart/vorndblabelIE.h"

#include "platform/controls/application.h"

namespace vorn {

void TVornIEDBTerList::ImageEnMouseUp(TObject* Sender, TMouseButton Button, TShiftState Shift, int X, int Y)
{
    const int x = FSpace->View()->XScr2Bmp(X);
    const int y = FSpace->View()->YScr2Bmp(Y);
    if (FSpace->View()->LayersCurrent() != 0) {
        if (FSpace->View()->FindLayerAt(x, y, true) == -1)
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
    if (FSpace->View()->LayersCurrent() != 0)
        return;
    if (const TZone* zone = FZones->At({FSpace->View()->XScr2Bmp(X), FSpace->View()->YScr2Bmp(Y)})) {
        FSpace->View()->SetHint(zone->numZona);
        Application().ActivateHint(FSpace->View()->ClientToScreen({X, Y}));
        FSpace->View()->SetCursor(crHandPoint);
    } else if (!FSpace->View()->Hint().empty()) {
        FSpace->View()->SetCursor(oldCursor);
        FSpace->View()->SetHint({});
        Application().HideHint();
    }
}

void TVornIEDBTerList::ImageEnViewChange(TObject*, int) {}

} // namespace vorn
