#include "chart/conventions.h"
#include "chart/vorndblabelIE.h"
#include "symbol_tools/vornSimbModify.h"

namespace vorn {

namespace {

/// Between a symbol and the palette at its right.
constexpr int PaletteGap = 10;

} // namespace

bool TVornIEDBTerList::OwnsPalette() const
{
    return vornSimbModifyFrm && vornSimbModifyFrm->VornIEDBTerList1 == this;
}

void TVornIEDBTerList::HidePalette()
{
    if (OwnsPalette())
        vornSimbModifyFrm->Hide();
}

bool TVornIEDBTerList::PaletteShown() const
{
    return OwnsPalette() && vornSimbModifyFrm->Visible();
}

/// Beside the current layer as the view shows it. At natural size that is measured from a corner of it, in chart
/// coordinates, by its width before it was turned.
void TVornIEDBTerList::MovePalette(const TPoint& corner)
{
    const TIELayer& layer = FSpace->View()->GetCurrentLayer();
    const TRect upright = vorn::Bounds(corner.X, corner.Y, layer.GetWidth(), layer.GetHeight());
    const TRect shown = FSpace->AtNaturalSize() ? FSpace->View()->ChartToView(upright) : layer.Box();
    vornSimbModifyFrm->SetBounds(
        shown.Right + PaletteGap, shown.Top, vornSimbModifyFrm->Width(), vornSimbModifyFrm->Height());
}

/// The palette is one for all charts: the chart whose symbol was selected last has it, and frees it unless another
/// chart takes it over.
void TVornIEDBTerList::TakePalette()
{
    if (!vornSimbModifyFrm) {
        vornSimbModifyFrm = new TvornSimbModifyFrm(this);
        vornSimbModifyFrm->SetAutoSize(true);
    } else if (!OwnsPalette()) {
        vornSimbModifyFrm->Hide();
        InsertComponent(vornSimbModifyFrm);
    }
    vornSimbModifyFrm->VornIEDBTerList1 = this;
}

void TVornIEDBTerList::ShowPalette()
{
    const TIELayer& layer = FSpace->View()->GetCurrentLayer();
    FCurLayerPt = {layer.GetPosX(), layer.GetPosY()};
    TakePalette();
    MovePalette(FCurLayerPt);
    if (vornSimbModifyFrm->Visible())
        return;
    vornSimbModifyFrm->SetParent(FSpace->View()); // first, so that it doesn't flash up as a window of its own
    vornSimbModifyFrm->Show();
}

void TVornIEDBTerList::ResetSimbPanel()
{
    HidePalette();
    if (FSpace->View())
        FSpace->View()->SetLayersCurrent(0);
}

void TVornIEDBTerList::ImageLayerNotify(TObject* Sender, int layer, TIELayerEvent event)
{
    // What the chart does to the rows for the user must not come back as the user's own doing.
    if (FOperations->Running())
        return;
    const TFlagScope operation = FOperations->Begin();
    if (FSpace->View() && event == TIELayerEvent::ielMoved && !SaveMove())
        return;
    if (!operation.OwnerAlive())
        return;
    if (FSpace->View() && event == TIELayerEvent::ielSelected) {
        if (layer > 0) {
            ShowPalette();
        } else if (layer == 0 && vornSimbModifyFrm) {
            FCurLayerPt = {};
            ResetSimbPanel();
        }
    }
    if (operation.OwnerAlive())
        Raise(FOnLayerNotify, Sender, layer, event);
}

/// Stores where the current layer was moved to. False if it stands where it stood: that was a click.
bool TVornIEDBTerList::SaveMove()
{
    const TIELayer& layer = FSpace->View()->GetCurrentLayer();
    const TPoint place{layer.GetPosX(), layer.GetPosY()};
    if (place == FCurLayerPt)
        return false;
    const TVisit visit(FSymbolDrawing);
    SalvaCurrentLayerDib(TIELayerEvent::ielMoved, false);
    if (!visit.SameDrawing() || !FSpace->View())
        return true; // the layer is another one by now, made from its row
    FCurLayerPt = place;
    if (OwnsPalette()) {
        const TRect box = FSpace->View()->GetCurrentLayer().ChartBox();
        MovePalette({box.Left, box.Top});
    }
    return true;
}

} // namespace vorn
