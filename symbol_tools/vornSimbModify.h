#pragma once

#include "platform/controls/action.h"
#include "platform/controls/flow_panel.h"
#include "platform/controls/form.h"
#include "platform/controls/speed_button.h"
#include "platform/graphics/png_image_list.h"
#include "symbol_tools/symbol_editing.h"

namespace vorn {

/// The tool palette: nine buttons that turn, scale, fade, reset or delete the symbol that is the current layer of the
/// chart's view. Each changes the layer at once and writes it to its row through the chart. While layer 0, the
/// background, is current they do nothing.
///
/// The chart makes it, places it and shows and hides it inside its view.
class TvornSimbModifyFrm : public TForm {
public:
    explicit TvornSimbModifyFrm(TComponent* AOwner);
    /// Clears the global that points to it.
    ~TvornSimbModifyFrm() override;

    TPngImageList* PngImageList1;
    TActionList* ActionList1;
    TAction* Action1;
    TAction* Action2;
    TAction* Action3;
    TAction* Action4;
    TAction* Action5;
    TAction* Action6;
    TFlowPanel* FlowPanel1;
    TPngSpeedButton* PngSpeedButton2;
    TPngSpeedButton* PngSpeedButton1;
    TPngSpeedButton* PngSpeedButton3;
    TPngSpeedButton* PngSpeedButton4;
    TPngSpeedButton* PngSpeedButton5;
    TPngSpeedButton* PngSpeedButton6;
    TAction* Action7;
    TAction* Action8;
    TAction* Action9;
    TPngSpeedButton* PngSpeedButton7;
    TPngSpeedButton* PngSpeedButton8;
    TPngSpeedButton* PngSpeedButton9;

    /// The chart on which the palette works, and normally its owner; none makes the buttons do nothing.
    TSymbolEditing* VornIEDBTerList1 = nullptr;

    /// One degree: Action1 adds it to the layer's rotation, any other sender takes it away.
    void Action1Execute(TObject* Sender);
    /// The next lower multiple of 45 degrees, from 0 to 315.
    void Action3Execute(TObject* Sender);
    /// Action4 makes the layer a tenth larger, any other sender a tenth smaller.
    void Action4Execute(TObject* Sender);
    /// Deletes the placement's row.
    void Action6Execute(TObject* Sender);
    /// Action7 takes 10 from the layer's opacity, any other sender adds 10; not held inside 0 to 255.
    void Action7Execute(TObject* Sender);
    /// Natural size, no rotation, full opacity.
    void Action9Execute(TObject* Sender);

protected:
    void Notification(TComponent* component, TOperation operation) override;

private:
    void MakeComponents();
    void LoadImages();
    void SetUpActions();
    void SetUpButtons();
    /// The view while a symbol is current on it, else none.
    TImageEnView* ViewWithSymbol() const;
    // Both look whether chart and view are still there after the first of their two steps.
    void SaveAndUpdate(TImageEnView* view, TIELayerEvent event);
    void UpdateAndSave(TImageEnView* view, TIELayerEvent event);
};

/// The one palette of the process; none until a chart makes it.
extern TvornSimbModifyFrm* vornSimbModifyFrm;

} // namespace vorn
