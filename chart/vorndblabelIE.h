#pragma once

#include "chart/background.h"
#include "chart/chart_settings.h"
#include "chart/chart_space.h"
#include "chart/control_collection.h"
#include "chart/data_links.h"
#include "chart/diagnosis_box.h"
#include "chart/dib_rec.h"
#include "chart/external_picture.h"
#include "chart/font_text.h"
#include "chart/label_properties.h"
#include "chart/layout.h"
#include "chart/messages.h"
#include "chart/record_index.h"
#include "chart/selection.h"
#include "chart/symbol_images.h"
#include "chart/treatment_columns.h"
#include "chart/treatments.h"
#include "chart/veils.h"
#include "chart/visit.h"
#include "chart/vorn_record.h"
#include "chart/zone_map.h"
#include "labels/DrLabel.h"
#include "platform/imaging/image_view.h"
#include "platform/system/lists.h"
#include "platform/system/string_list.h"
#include "symbol_tools/symbol_editing.h"

#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

namespace vorn {

class TImage;
class TImageEnMView;
struct TViewHold;

using TZonaNotifyEvent = std::function<void(TObject* Sender, StringView zona)>;

/// The chart: turns the datasets of one patient into a picture on a view that the application gives it.
///
/// The background is the view's layer 0, each treatment is a marker label on the view, each missing tooth and each
/// symbol a layer. All state lies in the datasets: the chart reads them through its links, so the application just
/// opens, edits and scrolls them. Not visible itself.
class TVornIEDBTerList : public TComponent, public TChartFollowing, public TSymbolEditing {
public:
    explicit TVornIEDBTerList(TComponent* AOwner);
    ~TVornIEDBTerList() override;

    // --- data sources; the application's. A source that goes is forgotten, with what depends on it. ---
    TDataSource* DataSourceSfondi() const { return FSfondiDataLink->DataSource(); }
    void SetDataSourceSfondi(TDataSource* value);
    TDataSource* DataSourceSimboli() const { return FDBSimbDataLink->DataSource(); }
    void SetDataSourceSimb(TDataSource* value);
    /// Diagnosis table: the first column is the code, the second the description. Optional.
    TDataSource* DataSourceDiagnosi() const { return FSettings->Diagnoses; }
    void SetDataSourceDiagnosi(TDataSource* value) { Follow(FSettings->Diagnoses, value); }
    /// Treatment records.
    TDataSource* DataSource() const { return FDataLink->DataSource(); }
    void SetDataSource(TDataSource* value);
    /// The patient's chart row: missing teeth, place of the diagnosis box.
    TDataSource* DataSourceCartella() const { return FSettings->Record; }
    void SetDataSourceCartella(TDataSource* value) { Follow(FSettings->Record, value); }
    /// Appearance table; the rebuild opens it.
    TDataSource* DataSourceAspetto() const { return FSettings->Appearance; }
    void SetDataSourceAspetto(TDataSource* value) { Follow(FSettings->Appearance, value); }

    /// Keys of appearance rows for excluded, done and not accepted records.
    const String& IDEsclusa() const { return FSettings->IDEsclusa; }
    void SetIDEsclusa(StringView value) { FSettings->IDEsclusa = value; }
    const String& IDFatto() const { return FSettings->IDFatto; }
    void SetIDFatto(StringView value) { FSettings->IDFatto = value; }
    const String& IDNONAccettata() const { return FSettings->IDNONAccettata; }
    void SetIDNONAccettata(StringView value) { FSettings->IDNONAccettata = value; }

    /// The diagnosis label's own font.
    TFont& DiagnosiFont() const { return FDiagnosis->Label().Font(); }
    void SetFontDiagnosi(const TFont& value) { DiagnosiFont().Assign(value); }
    TDiagnosiShow DiagnosiShow() const { return FSettings->DiagnosiShow; }
    void SetDiagnosiShow(TDiagnosiShow value) { FSettings->DiagnosiShow = value; }
    /// Left and top of the diagnosis label, in pixels of the view.
    TPoint DiagnosiPoint() const { return FDiagnosis->Place(); }
    void SetDiagnosiPoint(const TPoint& value) { FDiagnosis->SetPlace(value); }
    /// Whether the diagnosis box is shown. Setting it saves place and visibility in the patient's chart row; the box
    /// comes back only if there is something to show.
    bool DiagPazVisible() const { return FDiagnosis->Visible(); }
    void SetDiagPazVisible(bool Value);
    /// There are diagnosis lines, shown or not.
    bool DiagPazExists() const { return FDiagnosis->HasLines(); }

    // --- the view and the switches ---
    TImageEnView* Container() const override { return FSpace->View(); }
    /// Takes the view's layer, drag, mouse-move, view-change and mouse-up events. The layer handler that was there
    /// still runs at the end of the chart's, the mouse-up handler for a click outside all zones, the others not before
    /// the chart has another view, or none, or is gone. Nothing is hooked at design time.
    void SetContainer(TImageEnView* value);
    bool EnabledImg() const { return FSettings->EnabledImg; }
    void SetEnabledImg(bool value);
    bool EnabledDib() const { return FSettings->EnabledDib; }
    void SetEnabledDib(bool value);
    /// Symbol catalogue.
    TDataSource* MViewDibDS() const { return FSettings->Catalogue; }
    void SetMViewDibDS(TDataSource* value) { Follow(FSettings->Catalogue, value); }
    bool Enabled() const override { return FSettings->Enabled; }
    void SetEnabled(bool value) { FSettings->Enabled = value; }
    /// Template of all marker labels; its BTimer is the chart's blink timer.
    TDRLabel* DefaultLabel() const { return FSettings->DefaultLabel; }
    void SetDefaultLabel(TDRLabel* value) { Follow(FSettings->DefaultLabel, value); }

    // --- column names of the treatments dataset ---
    const String& ParentField() const { return FSettings->ParentField; }
    void SetParentField(StringView value) { FSettings->ParentField = value; }
    /// Parent key, as decimal text, of rows that stand on the chart by themselves.
    const String& RootValue() const { return FSettings->RootValue; }
    void SetRootValue(StringView value) { FSettings->RootValue = value; }
    const String& FieldFatto() const { return FSettings->FieldFatto; }
    void SetFieldFatto(StringView value) { FSettings->FieldFatto = value; }
    const String& KeyField() const { return FSettings->KeyField; }
    void SetKeyField(StringView value) { FSettings->KeyField = value; }

    // --- layout: image coordinates less the offsets are chart coordinates ---
    int OffsetX() const { return FSpace->Offset().X; }
    void SetOffsetX(int Value) { FLayout->SetOffset({Value, OffsetY()}); }
    int OffsetY() const { return FSpace->Offset().Y; }
    void SetOffsetY(int Value) { FLayout->SetOffset({OffsetX(), Value}); }

    TNotifyEvent OnZoneClick;      ///< `Sender` is the TZone
    TNotifyEvent OnMultipleSelect; ///< `Sender` is the TVornRec
    /// A dropped symbol that stands for a treatment asks for it. `Sender` is the TZone it fell on, or the first one;
    /// the catalogue stands on the symbol and the placement is posted.
    TNotifyEvent OnAddTerFromSimb;
    TNotifyEvent OnSingleSelect; ///< `Sender` is the TVornRec

    /// Rules for colour and font by operator and by type.
    TDRLabelProperties& LabelProp() const { return *FLabelProp; }
    TStrings& NomiZoneList() const { return FZones->Names(); }
    /// Opacity of the veil over missing teeth, 0 transparent to 255 opaque; the veils that are there show it at once.
    int Opacity() const { return FVeils->Opacity(); }
    void SetOpacity(int Value) { FVeils->SetOpacity(Value, FSpace->View()); }
    /// Shows the external picture in place of the background, once one is loaded. What is to have the background's size
    /// waits for a background.
    bool ShowPictureContainer() const { return FSettings->ShowPictureContainer; }
    void SetShowPictureContainer(bool value);
    bool ShowDragPrestazioni() const { return FSettings->ShowDragPrestazioni; }
    void SetShowDragPrestazioni(bool value) { FSettings->ShowDragPrestazioni = value; }
    bool RiposizionaPrestazioni() const { return FSettings->RiposizionaPrestazioni; }
    void SetRiposizionaPrestazioni(bool value) { FSettings->RiposizionaPrestazioni = value; }

    /// File of the external picture; a "," and a width in pixels may follow, which loading takes off. Raises Exception
    /// for a list of files (";") and EConvertError for a width that is no integer.
    const String& PictureContainer() const { return FPicture->File(); }
    void SetPictureContainer(StringView value);
    /// Opacity of the picture behind the chart, 0 transparent to 255 opaque.
    std::int16_t InitPictureOpacity() const { return FPicture->Opacity(); }
    void SetInitPictureOpacity(std::int16_t value) { FPicture->SetOpacity(value, FSpace->View()); }
    int InitPictureId = 0;  ///< the application's mark for the external picture
    TPoint InitPictureSize; ///< target size in pixels of the external picture; X 0 stands for the background's size

    const TObjectList<TZone>& ZoneList() const { return FZones->Zones(); }
    const TObjectList<TVornRec>& ListVornRec() const { return FTreatments->Records(); }
    /// Records older than this date are shown greyed; 0 switches that off.
    TDate DataPrev() const { return FSettings->DataPrev; }
    void SetDataPrev(TDate value) { FSettings->DataPrev = value; }
    /// The record of the dataset's current row; none if that row has no record.
    TVornRec* CurDib() const { return FTreatments->Current(); }
    /// In percent.
    int CurrentZoom() const { return FSpace->Zoom(); }

    /// After AdjustBounds, the area that image, labels and symbols cover, from (0, 0); chart coordinates.
    TRect MaxRect;

    // --- operations ---
    /// Builds the whole picture anew. Raises what the datasets raise for a missing column, and EConvertError for a
    /// RootValue that is no integer; the view, the dataset's place and its controls are restored then too.
    void CreaCollection() override;
    /// Veils the teeth that the patient's chart row calls missing. The rebuild does this.
    void ZoneMancanti();
    /// True if a label stands on `zona` (case aside) with exactly the caption `prest`.
    bool FindRecord(StringView zona, StringView prest) const;
    void ActiveChanged() override;
    /// Makes the record of the row with this ordinal current and selects its label.
    void ScrollByBegin(int Distance) override { FSelection->FollowRow(Distance); }
    /// Reads the current record's row anew.
    void Reload() override;
    /// Measures everything on the chart, shifts it if something lies left of or above the image, and sizes the view.
    void AdjustBounds() { FLayout->AdjustBounds(); }
    /// Loads picture, zones and zone names from the current row of the backgrounds dataset.
    void ActiveChangedSfondi() override;
    /// Shows "Scroll " and the number. Nothing in the library calls it.
    void ScrollByBeginSfondi(int Distance);
    void ResetSelection() { FSelection->Clear(); }
    /// Drops the symbol layers and makes them anew from the placements. An image that can't be read costs its placement
    /// the layer. Raises what the datasets raise for a missing column.
    void ActiveChangedSimboli() override;
    /// Makes the topmost layer current and shows the palette beside it, as if the user had selected it.
    void SelectLastDib();
    /// Ends symbol editing: hides the palette and makes the picture the view's current layer.
    void ResetSimbPanel();
    void SalvaCurrentLayerDib(TIELayerEvent event, bool fordelete) override;
    void SalvaCurrentDibReset() override;
    /// Fills a panel with the symbol catalogue and connects it, so that symbols can be dragged from it. Call it once,
    /// after MViewDibDS is set; the panel isn't emptied first. The panel may go before the chart and the other way
    /// round.
    void CreaMViewPanel(TImageEnMView* FMViewDib);
    /// Adds a placement of a symbol of the catalogue beside the label of a treatment, or at its zone, or, if
    /// `ptinsert.X` isn't 0 or the zone's name is empty, at that point of the view. An unknown symbol adds nothing.
    void AddSimbolo(int simb_id, StringView nomeZona, StringView nomePrest, int idvornal, const TPoint& ptinsert);
    /// Lets the user choose among the symbols of a dataset with the columns of the catalogue, in a dialog that `parent`
    /// owns. `simb_id` is preselected if above 0, and is the chosen one after OK. Gives whether the user chose OK.
    static bool SelezionaSimbolo(int& simb_id, TDataSet* ds, TWinControl* parent);
    /// Flips the done state of the selected records; their child rows take the new state. Selection and row stay.
    void SetSelectionFatto() { FSelection->MarkDone(); }
    /// Toggles the label of the record with this key, with no event of its own. Unless Shift is down, a label that
    /// joins takes the place of the others.
    void AddToSelection(int autoId) { FSelection->Toggle(autoId); }
    void ZoomIn();
    void ZoomOut();
    void ZoomReset();
    /// Paints labels, leader lines and the diagnosis box; (X, Y) is where the chart's origin lies on the canvas.
    void FListPaintTo(TCanvas& Canvas, int X, int Y) const;
    /// Renders the chart, layers and labels together. The layers come at 100 percent and the labels where they stand,
    /// so it is for a chart that isn't zoomed.
    void CreaPicture(TImage* image) const;
    /// Leaves picture mode and forgets the picture; nothing if none is held.
    void ResetPictureContainer();
    /// Steps the external picture's size by a tenth. Does nothing without a file.
    void ResizePictureContainer(bool aumenta);
    /// Size of the bitmap of the view's current layer, in pixels.
    TPoint GetSizePictureContainer() const;

    void Loaded() override;
    void Notification(TComponent* AComponent, TOperation Operation) override;

private:
    // lifecycle
    template <typename T>
    void Follow(T*& field, T* value)
    {
        field = value;
        if (value)
            value->FreeNotification(this);
    }
    void Forget(const TComponent* component);

    // view_hooks
    template <typename F>
    void EachViewEvent(F visit);
    void HookView();
    void LetGoOfView();
    void UnhookView();

    // rebuild
    bool CanBuildLabels() const;
    void PutPictureBack();
    bool BuildRecords(TDataSet& dataset);
    void WalkRows(TDataSet& dataset, const TVisit& visit);
    void BuildRow(TTreatmentColumns& row, int rootValue);
    void RebuildRows();
    /// Watches the chart, what is drawn of the treatments, and their rows.
    TVisit VisitRows() const { return {FTreatments->Drawing(), FDataLink->DataSet()}; }
    TTreatmentColumns Columns() const
    {
        return {*FDataLink->DataSet(), FSettings->KeyField, FSettings->ParentField, FSettings->FieldFatto};
    }

    // record_reading
    void ReadRecord(TVornRec& rec, bool refresh);
    void ReadRecord(TVornRec& rec, TTreatmentColumns& row, bool refresh);
    void TellUnplaced(TVornRec& rec);

    // leader_lines
    void DrawLineOnPicture(StringView zones);
    void DrawLinesOnPicture();

    // symbol_layers
    void RemoveSymbolLayers();
    bool CanBuildSymbols() const;
    bool BuildSymbolLayers(TDataSet& placements);
    void WalkPlacements(TDataSet& placements, const TVisit& visit);
    void AddSymbolLayer(const TIEBitmap& picture);
    void CreaDib();
    void SelectLayer(int index);

    // symbol_saving
    TDataSet* GoToPlacement(const TDibRec& record) const;
    bool WriteSymbolRow(const TDibRec& record, const std::function<void(TDataSet&)>& write);

    // symbol_palette
    void ShowPalette();
    void TakePalette();
    void MovePalette(const TPoint& corner);
    bool OwnsPalette() const;
    bool PaletteShown() const;
    void HidePalette();
    bool SaveMove();

    // symbol_panel and symbol_drop
    struct PanelHook;
    void ImageEnSimbMouseMove(TObject* Sender, TShiftState Shift, int X, int Y);
    static void ImageEnSimbEndDrag(TObject* Sender, TObject* Target, int X, int Y);
    void ImageEnSimbImageSelect(TObject* Sender, int idx);
    void ImageEnDragOver(TObject* Sender, TObject* Source, int X, int Y, TDragState State, bool& Accept);
    void ImageEnDragDrop(TObject* Sender, TObject* Source, int X, int Y);
    void RaiseAddTerFromSimb(int id, const TPoint& chartPoint);
    bool AppendSymbol(int id, const TPoint& place, int idvornal = 0);
    bool ShowsSymbol(int id) const;
    TPoint PlaceBeside(StringView nomeZona, StringView nomePrest);

    // picture_container
    void CaricaImmagineEsterna();
    void LoadPendingPicture();

    // zoom
    void SetZoom(int percent);

    void ShowParentGliph(int parentKey);

    // view_events
    void ImageLayerNotify(TObject* Sender, int layer, TIELayerEvent event);
    void ImageEnMouseMove(TObject* Sender, TShiftState Shift, int X, int Y);
    void ImageEnMouseUp(TObject* Sender, TMouseButton Button, TShiftState Shift, int X, int Y);
    void ImageEnViewChange(TObject* Sender, int change);

    const std::unique_ptr<TChartSettings> FSettings = std::make_unique<TChartSettings>();
    const std::unique_ptr<TChartSpace> FSpace = std::make_unique<TChartSpace>();
    const std::unique_ptr<TZoneMap> FZones = std::make_unique<TZoneMap>();
    const std::unique_ptr<TBackground> FBackground = std::make_unique<TBackground>(*FZones);
    const std::unique_ptr<TExternalPicture> FPicture = std::make_unique<TExternalPicture>();
    const std::unique_ptr<TDiagnosisBox> FDiagnosis = std::make_unique<TDiagnosisBox>(*FSettings, *FSpace);
    const std::unique_ptr<TTreatments> FTreatments = std::make_unique<TTreatments>(*FSettings, *FSpace, *FZones);
    const std::unique_ptr<TLayout> FLayout
        = std::make_unique<TLayout>(*FSettings, *FSpace, *FZones, *FTreatments, *FDiagnosis, MaxRect);
    const std::unique_ptr<TOperations> FOperations = std::make_unique<TOperations>();
    std::unique_ptr<TDBSfondiDataLink> FSfondiDataLink;
    std::unique_ptr<TDBVornDataLink> FDataLink;
    std::unique_ptr<TDBSimgDataLink> FDBSimbDataLink;
    const std::unique_ptr<TSelection> FSelection;
    std::shared_ptr<TViewHold> FHold; // none without a view, and at design time
    TMouseEvent fOldMouseUp;
    std::unique_ptr<TDRLabelProperties> FLabelProp;
    std::unique_ptr<TRowReader> FReader;
    const std::unique_ptr<TVeils> FVeils = std::make_unique<TVeils>(*FZones);
    TIELayerNotify FOnLayerNotify;
    TPoint FCurLayerPt; // where the current symbol was last seen, in chart coordinates: tells a move from a click
    TCursor oldCursor = crDefault;

    TGeneration FSymbolDrawing; // of the placements
    std::shared_ptr<TSymbolImages> FSymbolImages = std::make_shared<TSymbolImages>();
    std::shared_ptr<TVornIEDBTerList*> FSelf; // reads as none once the chart is gone
};

} // namespace vorn
