#pragma once

#include "chart/data_links.h"
#include "chart/font_text.h"
#include "chart/label_properties.h"
#include "chart/messages.h"
#include "chart/record_index.h"
#include "chart/treatment_columns.h"
#include "chart/vorn_record.h"
#include "chart/zone.h"
#include "labels/DrLabel.h"
#include "platform/imaging/image_view.h"
#include "platform/system/lists.h"
#include "platform/system/string_list.h"

#include <memory>
#include <unordered_map>
#include <vector>

namespace vorn {

/// What a line of the diagnosis box shows.
enum class TDiagnosiShow : std::uint8_t { diagNone, diagSigla, diagSiglaDescr, diagDescr };

using TZonaNotifyEvent = std::function<void(TObject* Sender, StringView zona)>;

/// `UserDataLen` of a layer that shows a symbol placement.
inline constexpr int SymbolLayerMark = 96;

/// The chart: turns the datasets of one patient into a picture on a view that the application gives it.
///
/// The background is the view's layer 0, each treatment is a marker label on the view. All state lies in the datasets:
/// the chart reads them through its links, so the application just opens, edits and scrolls them. Not visible itself.
class TVornIEDBTerList : public TComponent {
public:
    explicit TVornIEDBTerList(TComponent* AOwner);
    ~TVornIEDBTerList() override;

    // --- data sources; the application's. A source that goes is forgotten, with what depends on it. ---
    TDataSource* DataSourceSfondi() const { return FSfondiDataLink->DataSource(); }
    void SetDataSourceSfondi(TDataSource* value);
    TDataSource* DataSourceSimboli() const { return FDBSimbDataLink->DataSource(); }
    void SetDataSourceSimb(TDataSource* value);
    /// Treatment records.
    TDataSource* DataSource() const { return FDataLink->DataSource(); }
    void SetDataSource(TDataSource* value);
    /// Appearance table; the rebuild opens it.
    TDataSource* DataSourceAspetto() const { return FDSASpetto; }
    void SetDataSourceAspetto(TDataSource* value) { Follow(FDSASpetto, value); }

    /// Keys of appearance rows for excluded, done and not accepted records.
    const String& IDEsclusa() const { return FIDEsclusa; }
    void SetIDEsclusa(StringView value) { FIDEsclusa = value; }
    const String& IDFatto() const { return FIDFatto; }
    void SetIDFatto(StringView value) { FIDFatto = value; }
    const String& IDNONAccettata() const { return FIDNONAccettata; }
    void SetIDNONAccettata(StringView value) { FIDNONAccettata = value; }

    /// The diagnosis label's own font.
    TFont& DiagnosiFont() const { return FLabelDiagnosi->Font(); }
    void SetFontDiagnosi(const TFont& value) { FLabelDiagnosi->Font().Assign(value); }
    TDiagnosiShow DiagnosiShow() const { return FDiagnosiShow; }
    void SetDiagnosiShow(TDiagnosiShow value) { FDiagnosiShow = value; }
    /// Left and top of the diagnosis label, in pixels of the view.
    TPoint DiagnosiPoint() const { return {FLabelDiagnosi->Left(), FLabelDiagnosi->Top()}; }
    void SetDiagnosiPoint(const TPoint& value);
    bool DiagPazVisible() const { return FLabelDiagnosi->Visible(); }

    // --- the view and the switches ---
    TImageEnView* Container() const { return FContainer; }
    /// Takes the view's layer, mouse-move, view-change and mouse-up events. The layer handler that was there still runs at
    /// the end of the chart's, the mouse-up handler for a click outside all zones. Nothing is hooked at design time.
    void SetContainer(TImageEnView* value);
    bool EnabledImg() const { return FEnabledImg; }
    void SetEnabledImg(bool value);
    bool EnabledDib() const { return FEnabledDib; }
    void SetEnabledDib(bool value);
    bool Enabled() const { return FEnabled; }
    void SetEnabled(bool value) { FEnabled = value; }
    /// Template of all marker labels; its BTimer is the chart's blink timer.
    TDRLabel* DefaultLabel() const { return FLabel; }
    void SetDefaultLabel(TDRLabel* value) { Follow(FLabel, value); }

    // --- column names of the treatments dataset ---
    const String& ParentField() const { return FParentField; }
    void SetParentField(StringView value) { FParentField = value; }
    /// Parent key, as decimal text, of rows that stand on the chart by themselves.
    const String& RootValue() const { return FRootValue; }
    void SetRootValue(StringView value) { FRootValue = value; }
    const String& FieldFatto() const { return FFieldFatto; }
    void SetFieldFatto(StringView value) { FFieldFatto = value; }
    const String& KeyField() const { return FKeyField; }
    void SetKeyField(StringView value) { FKeyField = value; }

    // --- layout: image coordinates less the offsets are chart coordinates ---
    int OffsetX() const { return FOffsetX; }
    void SetOffsetX(int Value);
    int OffsetY() const { return FOffsetY; }
    void SetOffsetY(int Value);

    TNotifyEvent OnZoneClick;      ///< `Sender` is the TZone
    TNotifyEvent OnMultipleSelect; ///< `Sender` is the TVornRec
    TNotifyEvent OnSingleSelect;   ///< `Sender` is the TVornRec

    /// Rules for colour and font by operator and by type.
    TDRLabelProperties& LabelProp() const { return *FLabelProp; }
    TStrings& NomiZoneList() const { return *FNomiZoneList; }
    bool ShowPictureContainer() const { return FShowPictureContainer; }
    bool ShowDragPrestazioni() const { return FShowDragPrestazioni; }
    void SetShowDragPrestazioni(bool value) { FShowDragPrestazioni = value; }
    bool RiposizionaPrestazioni() const { return FRiposizionaPrestazioni; }
    void SetRiposizionaPrestazioni(bool value) { FRiposizionaPrestazioni = value; }

    const TObjectList<TZone>& ZoneList() const { return *FZoneList; }
    const TObjectList<TVornRec>& ListVornRec() const { return *FList; }
    /// Records older than this date are shown greyed; 0 switches that off.
    TDate DataPrev() const { return FDataPrev; }
    void SetDataPrev(TDate value) { FDataPrev = value; }
    /// The record of the dataset's current row; none if that row has no record.
    TVornRec* CurDib() const { return FCurDib; }
    /// In percent.
    int CurrentZoom() const { return FCurrentZoom; }

    /// After AdjustBounds, the area that image, labels and symbols cover, from (0, 0); chart coordinates.
    TRect MaxRect;

    // --- operations ---
    /// Builds the whole picture anew. Raises what the datasets raise for a missing column, and EConvertError for a
    /// RootValue that is no integer; the view, the dataset's place and its controls are restored then too.
    void CreaCollection();
    /// True if a label stands on `zona` (case aside) with exactly the caption `prest`.
    bool FindRecord(StringView zona, StringView prest) const;
    void ActiveChanged();
    /// Makes the record of the row with this ordinal current and selects its label.
    void ScrollByBegin(int Distance);
    /// Reads the current record's row anew.
    void Reload();
    /// Measures everything on the chart, shifts it if something lies left of or above the image, and sizes the view.
    void AdjustBounds();
    /// Loads picture, zones and zone names from the current row of the backgrounds dataset.
    void ActiveChangedSfondi();
    /// Shows "Scroll " and the number. Nothing in the library calls it.
    void ScrollByBeginSfondi(int Distance);
    void ResetSelection();
    /// Makes the picture the view's current layer.
    void ResetSimbPanel();
    /// Flips the done state of the selected records; their child rows take the new state. Selection and row stay.
    void SetSelectionFatto();
    /// Toggles the label of the record with this key, with no event of its own. Unless Shift is down, a label that joins
    /// takes the place of the others.
    void AddToSelection(int autoId);
    void ZoomIn();
    void ZoomOut();
    void ZoomReset();

    void Loaded() override;
    void Notification(TComponent* AComponent, TOperation Operation) override;

private:
    struct ViewHook;
    class OperationScope;

    // lifecycle
    template <typename T>
    void Follow(T*& field, T* value)
    {
        field = value;
        if (value)
            value->FreeNotification(this);
    }
    void Forget(const TComponent* component);
    void ClearRecords();
    void ClearSelection();
    void HookView();
    void UnhookView();

    // background
    void LoadBackground(TDataSet& dataset);
    void LoadZones(TDataSet& dataset);
    void ClearZones();
    void ProcessaLineaZone(StringView line);
    void ProcessaNomiZone(StringView line);
    TZone* FindZonaSensibile(int X, int Y) const;

    // rebuild
    bool CanBuildLabels() const;
    void PutPictureBack();
    void BuildRecords(TDataSet& dataset);
    void BuildRow(TTreatmentColumns& row, int rootValue);
    TTreatmentColumns Columns() const { return {*FDataLink->DataSet(), FKeyField, FParentField, FFieldFatto}; }

    // record_reading
    void ReadRecord(TVornRec& rec, bool refresh);
    void ReadRecord(TVornRec& rec, TTreatmentColumns& row, bool refresh);
    void SetLabelHint(TVornRec& rec, TTreatmentColumns& row);
    void ReadStoredPosition(TVornRec& rec, TTreatmentColumns& row);
    bool PlaceLabel(TVornRec& rec, TTreatmentColumns& row);
    void PlaceOnZone(TVornRec& rec, const TZone& zone);
    void SetZona(TVornRec& rec, StringView value);
    void SetFrame(TDRLabel& label, TTreatmentColumns& row);
    const TZone* ZoneByName(StringView name) const;

    // appearance
    String AssegnaProprieta(TDRLabel& lbl, TTreatmentColumns& row);
    bool ApplyState(TDRLabel& lbl, TTreatmentColumns& row, String& description);
    void ApplyClosedState(TDRLabel& lbl, StringView id);
    void ApplyColorRule(TDRLabel& lbl, TTreatmentColumns& row);
    void ApplyFontRule(TDRLabel& lbl, TTreatmentColumns& row);
    bool OlderThanDataPrev(TTreatmentColumns& row) const;
    struct Abandoned;
    bool LookUp(TDataSet& table, StringView column, const String& key) const;
    TDataSet* FindAppearance(StringView id) const;
    TDataSet* FindRuleRow(TXSetProp rule, TTreatmentColumns& row) const;

    // leader_lines
    void DisegnaLnk(StringView Zone, TCanvas& Canvas, int DX, int DY) const;

    // layout
    void AdjustZoom();
    void SetOffsets(int x, int y);

    // selection
    void SelectDRLabel(TObject* Sender, bool select, TShiftState ShiftState);
    void SaveXYDRLabel(TObject* Sender);
    TVornRec* EndEdit(TDataSet& dataset, TVornRec& record);
    void SetRecordFatto(std::int64_t key);
    void ShowParentGliph(int parentKey);

    // view_events
    void ImageLayerNotify(TObject* Sender, int layer, TIELayerEvent event);
    void ImageEnMouseMove(TObject* Sender, TShiftState Shift, int X, int Y);
    void ImageEnMouseUp(TObject* Sender, TMouseButton Button, TShiftState Shift, int X, int Y);
    void ImageEnViewChange(TObject* Sender, int change);

    bool FIsOperation = false; // the chart itself moves or writes the treatments dataset for the user
    bool FShowPictureContainer = false;
    bool FShowDragPrestazioni = false;
    bool FRiposizionaPrestazioni = false;
    std::unique_ptr<TDBSfondiDataLink> FSfondiDataLink;
    std::unique_ptr<TDBVornDataLink> FDataLink;
    std::unique_ptr<TDBSimgDataLink> FDBSimbDataLink;
    std::unique_ptr<TObjectList<TVornRec>> FList; // in dataset order; rows with "stato" 4 have no record
    std::unique_ptr<TObjectList<TZone>> FZoneList;
    std::unique_ptr<TStrings> FNomiZoneList;
    TImageEnView* FContainer = nullptr;
    bool FEnabledImg = true;
    bool FEnabledDib = true;
    TVornRec* FCurDib = nullptr; // an item of FList
    TDRLabel* FLabel = nullptr;
    int FOffsetX = 0;
    int FOffsetY = 0;
    String FParentField;
    String FRootValue = u"0";
    String FKeyField;
    String FFieldFatto;
    String FIDEsclusa;
    String FIDFatto;
    String FIDNONAccettata;
    TMouseEvent fOldMouseUp;
    std::unique_ptr<TDRLabelProperties> FLabelProp;
    std::unique_ptr<TDRLabel> FLabelDiagnosi; // a child of the view, but freed by the chart alone
    bool FEnabled = true;
    std::unique_ptr<TIEBitmap> wd; // the background as it was loaded
    std::unique_ptr<TIEBitmap> InternalPictureContainer;
    TDataSource* FDSASpetto = nullptr;
    std::int16_t FInitPictureOpacity = 250;
    TDate FDataPrev = 0;
    TIELayerNotify FOnLayerNotify;
    TCursor oldCursor = crDefault;
    int FCurrentZoom = 100;
    std::unique_ptr<TStringList> listDiagnosi;
    TDiagnosiShow FDiagnosiShow = TDiagnosiShow::diagSigla;

    TRecordIndex FIndex;
    std::unordered_map<String, const TZone*> FZoneByName; // the first zone of each folded name
    unsigned FRebuilds = 0; // counts rebuilds, so that a walk knows when its records have gone
    std::shared_ptr<TVornIEDBTerList*> FSelf; // what the view's handlers hold; reads as none once the chart is gone
};

} // namespace vorn
