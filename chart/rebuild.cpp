#include "chart/vorndblabelIE.h"

#include "platform/controls/scroll_box.h"
#include "platform/system/strings.h"

namespace vorn {

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
    const auto self = FSelf;
    ClearSelection();
    if (!*self) // a handler of a label that shares the timer has freed the chart
        return;
    if (FDSASpetto && FDSASpetto->DataSet())
        FDSASpetto->DataSet()->SetActive(true);
    ClearRecords();
    FListZoneMancanti.clear();
    listDiagnosi->Clear();
    FDiagnosiLines.clear();
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
    SetOffsets(0, 0);
    FContainer->GetLayer(0).SetPosX(0);
    FContainer->GetLayer(0).SetPosY(0);

    ZoneMancanti(); // below the symbols
    const bool labels = CanBuildLabels();
    if (labels)
        BuildRecords(*FDataLink->DataSet());
    if (*self)
        ActiveChangedSimboli();
    if (*self && labels)
        ActiveDiagnosi();
    if (*self && !InState(csDestroying))
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
        ShowPicture();
    } else {
        FContainer->Bitmap().Assign(*wd); // also wipes the leader lines of the last rebuild
    }
}

void TVornIEDBTerList::BuildRecords(TDataSet& dataset)
{
    const auto self = FSelf;
    TDBVornDataLink::RebuildScope scope(*FDataLink);
    {
        // The rows end where they were and controls are enabled again, whatever a row raises.
        const TControlsDisabled disabled(dataset);
        const TBookmarkGuard bookmark(dataset);
        const int rootValue = StrToInt(FRootValue);
        TTreatmentColumns row = Columns();
        // The dataset's own scroll events go on; a handler that has the chart rebuilt has done this loop's work.
        const unsigned rebuilds = FRebuilds;
        const auto current = [&] { return *self && !RowsGone(rebuilds) && FDataLink->DataSet() == &dataset; };
        dataset.First();
        while (current() && !dataset.Eof()) {
            BuildRow(row, rootValue);
            if (current())
                dataset.Next();
        }
    }
    if (!*self)
        return;
    if (FDataLink->DataSet() != &dataset || !dataset.Active()) {
        ClearRecords(); // somebody who follows the dataset too has taken it away
        return;
    }
    FCurDib = FIndex.OfRow(dataset.RowIndex());
    scope.Finish();
    // A row's own record is current after a rebuild, whatever following the row has said meanwhile.
    if (*self && FDataLink->DataSet() == &dataset)
        FCurDib = FIndex.OfRow(dataset.RowIndex());
}

/// Whether a handler has rebuilt the chart since that count, or taken the rows away that are being read.
bool TVornIEDBTerList::RowsGone(unsigned rebuilds) const
{
    const TDataSet* dataset = FDataLink->DataSet();
    return rebuilds != FRebuilds || !dataset || !dataset->Active();
}

void TVornIEDBTerList::BuildRow(TTreatmentColumns& row, int rootValue)
{
    if (row[TTreatmentColumn::Stato].AsInteger() == StatoNotOnChart) {
        FIndex.AddSkippedRow();
        return;
    }
    auto record = std::make_unique<TVornRec>(this);
    record->Row = FIndex.RowCount();
    const int parentKey = row[TTreatmentColumn::Parent].AsInteger();
    if (parentKey != rootValue) {
        ShowParentGliph(parentKey);
        record->Zona = row[TTreatmentColumn::Dente].AsString();
    } else {
        record->FLabel = new TDRLabel(FContainer);
        record->FLabel->SetHolder(&record->FLabel);
        record->FLabel->AssignProperties(FLabel);
        record->FLabel->SetTag(row[TTreatmentColumn::Key].AsInteger());
        const auto self = FSelf;
        const unsigned rebuilds = FRebuilds;
        ReadRecord(*record, row, false);
        if (!*self || RowsGone(rebuilds))
            return;
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
