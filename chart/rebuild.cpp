#include "chart/vorndblabelIE.h"

#include "platform/controls/scroll_box.h"
#include "platform/system/strings.h"

namespace vorn {

namespace {

/// "stato" of a row that isn't on the chart.
constexpr int StatoNotOnChart = 4;

} // namespace

TVornRec::TVornRec(TVornIEDBTerList*) {}

TVornRec::~TVornRec()
{
    if (!FLabel)
        return;
    FLabel->SetHolder(nullptr);
    if (!FLabel->InState(csDestroying))
        delete FLabel;
}

void TVornIEDBTerList::CreaCollection()
{
    ClearSelection();
    if (FDSASpetto && FDSASpetto->DataSet())
        FDSASpetto->DataSet()->SetActive(true);
    ClearRecords();
    listDiagnosi->Clear();
    FLabelDiagnosi->SetVisible(false);
    SetDiagnosiPoint({0, 0});
    if (!FContainer)
        return;
    ResetSimbPanel();
    if (FKeyField.empty() || FParentField.empty())
        return;

    const TUpdateLock lock(*FContainer);
    FContainer->LayersClear();
    PutPictureBack();
    FContainer->SetClientWidth(FContainer->Bitmap().Width());
    FContainer->SetClientHeight(FContainer->Bitmap().Height());
    if (auto* box = dynamic_cast<TScrollBox*>(FContainer->Parent()))
        box->ScrollInView(FContainer);

    // No label or layer is left to move; the zones go back to where they are stored.
    FCurDib = nullptr;
    SetOffsetX(0);
    SetOffsetY(0);
    FContainer->GetLayer(0).SetPosX(0);
    FContainer->GetLayer(0).SetPosY(0);

    if (CanBuildLabels())
        BuildRecords(*FDataLink->DataSet());
    if (!InState(csDestroying))
        AdjustBounds();
}

bool TVornIEDBTerList::CanBuildLabels() const
{
    const TDataSet* dataset = FDataLink->DataSet();
    return FEnabledImg && dataset && dataset->Active() && FZoneList->Count() > 0 && dataset->RecordCount() > 0;
}

void TVornIEDBTerList::PutPictureBack()
{
    FContainer->SetLayersCurrent(0);
    if (FShowPictureContainer && !InternalPictureContainer->IsEmpty()) {
        FContainer->Bitmap().Assign(*InternalPictureContainer);
        FContainer->Bitmap().SetEnableAlphaChannel(true);
        FContainer->GetLayer(0).SetOpacity(FInitPictureOpacity);
    } else {
        FContainer->Bitmap().Assign(*wd); // also wipes the leader lines of the last rebuild
    }
}

void TVornIEDBTerList::BuildRecords(TDataSet& dataset)
{
    TDBVornDataLink::RebuildScope scope(*FDataLink);
    {
        // The rows end where they were and controls are enabled again, whatever a row raises.
        const TControlsDisabled disabled(dataset);
        const TBookmarkGuard bookmark(dataset);
        const int rootValue = StrToInt(FRootValue);
        for (dataset.First(); !dataset.Eof(); dataset.Next())
            BuildRow(dataset, rootValue);
    }
    FCurDib = FIndex.OfRow(dataset.RowIndex());
    scope.Finish();
    // A row's own record is current after a rebuild, whatever following the row has said meanwhile.
    FCurDib = FIndex.OfRow(dataset.RowIndex());
}

void TVornIEDBTerList::BuildRow(TDataSet& dataset, int rootValue)
{
    if (dataset.FieldByName(u"stato").AsInteger() == StatoNotOnChart) {
        FIndex.AddSkippedRow();
        return;
    }
    auto record = std::make_unique<TVornRec>(this);
    record->Row = FIndex.RowCount();
    const int parentKey = dataset.FieldByName(FParentField).AsInteger();
    if (parentKey != rootValue) {
        ShowParentGliph(parentKey);
        record->Zona = dataset.FieldByName(u"Dente").AsString();
    } else {
        record->FLabel = new TDRLabel(FContainer);
        record->FLabel->SetHolder(&record->FLabel);
        record->FLabel->AssignProperties(FLabel);
        record->FLabel->SetTag(dataset.FieldByName(FKeyField).AsInteger());
        ReadRecord(*record, false);
        if (record->FLabel) {
            record->FLabel->OnSelect = [this](TObject* Sender, bool select, TShiftState ShiftState) {
                SelectDRLabel(Sender, select, ShiftState);
            };
            record->FLabel->OnSavePosEvent = [this](TObject* Sender) { SaveXYDRLabel(Sender); };
        }
    }
    record->Index = FList->Count();
    FList->Add(record.get());
    FIndex.Add(*record.release());
}

bool TVornIEDBTerList::FindRecord(StringView zona, StringView prest) const
{
    for (const TVornRec* record : *FList)
        if (record->FLabel && SameText(record->Zona, zona) && record->FLabel->Caption() == prest)
            return true;
    return false;
}

} // namespace vorn
