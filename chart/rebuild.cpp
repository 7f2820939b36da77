#include "chart/vorndblabelIE.h"

#include "platform/controls/application.h"
#include "platform/controls/scroll_box.h"
#include "platform/system/strings.h"

namespace vorn {

void TVornIEDBTerList::CreaCollection()
{
    const TVisit visit(FTreatments->Drawing());
    FSelection->Clear(); // a handler of a label that shares the timer may free the chart
    if (visit.Alive() && FSettings->Appearance && FSettings->Appearance->DataSet())
        FSettings->Appearance->DataSet()->SetActive(true);
    if (!visit.Alive())
        return;
    FTreatments->Clear();
    FVeils->Forget();
    FDiagnosis->Clear();
    if (!FSpace->View())
        return;
    ResetSimbPanel();
    if (FSettings->KeyField.empty() || FSettings->ParentField.empty())
        return;

    const TUpdateLock lock(*FSpace->View());
    FSpace->View()->LayersClear();
    FSpace->SetLayerOrigin({});
    PutPictureBack();
    FSpace->View()->SetClientWidth(FSpace->View()->Bitmap().Width());
    FSpace->View()->SetClientHeight(FSpace->View()->Bitmap().Height());
    if (auto* box = dynamic_cast<TScrollBox*>(FSpace->View()->Parent()))
        box->ScrollInView(FSpace->View());

    // No label or layer is left to move; the zones go back to where they are stored.
    FTreatments->SetCurrent(nullptr);
    FLayout->SetOffset({});

    ZoneMancanti(); // below the symbols
    const bool labels = CanBuildLabels();
    if (labels)
        RebuildRows();
    if (visit.Alive())
        ActiveChangedSimboli();
    if (visit.Alive() && labels)
        FDiagnosis->Refresh();
    if (visit.Alive() && !InState(csDestroying))
        AdjustBounds();
}

/// Draws the rows, and once more if a handler has closed and reopened them meanwhile. One that does so each time is
/// left without labels.
void TVornIEDBTerList::RebuildRows()
{
    const TVisit visit(FTreatments->Drawing());
    if (!BuildRecords(*FDataLink->DataSet()) && visit.Alive() && CanBuildLabels())
        BuildRecords(*FDataLink->DataSet());
}

bool TVornIEDBTerList::CanBuildLabels() const
{
    const TDataSet* dataset = FDataLink->DataSet();
    return FSettings->EnabledImg && dataset && dataset->Active() && !FZones->Empty() && dataset->RecordCount() > 0;
}

/// The external picture or the drawing onto layer 0, without the leader lines of the last rebuild.
void TVornIEDBTerList::PutPictureBack()
{
    TImageEnView& view = *FSpace->View();
    view.SetLayersCurrent(0);
    if (FSettings->ShowPictureContainer && FPicture->Held()) {
        ResetSimbPanel();
        FPicture->Show(view);
    } else {
        FBackground->PutBack(view);
    }
}

/// False if a handler has taken the rows away or opened them anew: nothing is drawn of them then.
bool TVornIEDBTerList::BuildRecords(TDataSet& dataset)
{
    const TVisit visit(FTreatments->Drawing(), &dataset);
    TDBVornDataLink::RebuildScope scope(*FDataLink);
    try {
        const TControlsDisabled disabled(dataset);
        WalkRows(dataset, visit);
    } catch (const ERowsGone&) {
        if (visit.RowsOpen()) // of another dataset
            throw;
    }
    if (!visit.Alive())
        return true;
    if (!visit.RowsOpen() || FDataLink->DataSet() != &dataset) {
        FTreatments->Clear();
        FDiagnosis->Clear();
        if (FSpace->View())
            PutPictureBack(); // without the lines to labels that are gone
        return false;
    }
    FTreatments->SetCurrent(FTreatments->Index().OfRow(dataset.RowIndex()));
    scope.Finish();
    // A row's own record is current after a rebuild, whatever following the row has said meanwhile.
    if (visit.Alive() && FDataLink->DataSet() == &dataset)
        FTreatments->SetCurrent(FTreatments->Index().OfRow(dataset.RowIndex()));
    return true;
}

/// The dataset ends where it was, whatever a row raises.
void TVornIEDBTerList::WalkRows(TDataSet& dataset, const TVisit& visit)
{
    // The dataset's own scroll events go on; a handler that has the chart rebuilt has done this loop's work.
    const auto current = [&] { return visit.Current() && FDataLink->DataSet() == &dataset; };
    if (!current())
        return;
    const TBookmarkGuard bookmark(dataset);
    const int rootValue = StrToInt(FSettings->RootValue);
    TTreatmentColumns row = Columns();
    dataset.First();
    while (current() && !dataset.Eof()) {
        BuildRow(row, rootValue);
        if (current())
            dataset.Next();
    }
}

void TVornIEDBTerList::ScrollByBeginSfondi(int Distance)
{
    ShowMessage(u"Scroll " + IntToStr(Distance));
}

void TVornIEDBTerList::ZoneMancanti()
{
    const TDataSet* record = FSettings->Record ? FSettings->Record->DataSet() : nullptr;
    if (!FSpace->View() || FSettings->ShowPictureContainer || !record || !record->Active())
        return;
    ResetSimbPanel(); // the new layers take the selection away
    FVeils->Build(*FSpace->View(), *record);
}

void TVornIEDBTerList::BuildRow(TTreatmentColumns& row, int rootValue)
{
    if (row[TTreatmentColumn::Stato].AsInteger() == StatoNotOnChart) {
        FTreatments->AddSkippedRow();
        return;
    }
    auto record = FTreatments->NewRecord();
    const int parentKey = row[TTreatmentColumn::Parent].AsInteger();
    if (parentKey != rootValue) {
        ShowParentGliph(parentKey);
        record->Zona = row[TTreatmentColumn::Dente].AsString();
    } else {
        FTreatments->GiveLabel(*record, row[TTreatmentColumn::Key].AsInteger());
        const TVisit visit = VisitRows();
        ReadRecord(*record, row, false);
        if (!visit.Current())
            return;
        if (record->FLabel)
            FSelection->Follow(*record->FLabel);
    }
    FTreatments->Add(std::move(record));
}

bool TVornIEDBTerList::FindRecord(StringView zona, StringView prest) const
{
    return FTreatments->Find(zona, prest);
}

} // namespace vorn
