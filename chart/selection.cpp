#include "chart/conventions.h"
#include "chart/operation_scope.h"
#include "platform/data/row_write.h"
#include "platform/system/guards.h"
#include "platform/system/strings.h"

#include <vector>

namespace vorn {

namespace {

// "Fatto" of a row.
constexpr int NotDone = 0;
constexpr int Done = 1;

bool Ready(const TDataSet* dataset)
{
    return dataset && dataset->Active();
}

} // namespace

void TVornIEDBTerList::ScrollByBegin(int Distance)
{
    if (!FDataLink->DataSet())
        return;
    const TDataSet& dataset = *FDataLink->DataSet();
    const bool leftOut
        = Distance >= 0 && Distance < FTreatments->Index().RowCount() && !FTreatments->Index().OfRow(Distance);
    // A row without a label of its own: nothing stays selected.
    if (leftOut || dataset.FieldByName(u"Progressivo").AsInteger() != 0) {
        FTreatments->SetCurrent(nullptr);
        ClearSelection();
        return;
    }
    TVornRec* const record = FTreatments->Index().OfRow(Distance);
    if (!record)
        return;
    FTreatments->SetCurrent(record);
    // A click on a label moves the dataset, and that label holds the selection already.
    if (FIsOperation)
        return;
    const TVisit visit(FTreatments->Drawing());
    ClearSelection();
    if (visit.SameDrawing() && record->FLabel)
        record->FLabel->AddToList(false);
}

void TVornIEDBTerList::ResetSelection()
{
    ClearSelection();
}

void TVornIEDBTerList::AddToSelection(int autoId)
{
    if (const TVornRec* record = FTreatments->Index().OfKey(autoId))
        record->FLabel->AddToList(false);
}

void TVornIEDBTerList::SelectDRLabel(TObject* Sender, bool select, TShiftState ShiftState)
{
    TDataSet* dataset = FDataLink->DataSet();
    auto* label = dynamic_cast<TDRLabel*>(Sender);
    if (FIsOperation || !select || !Ready(dataset) || !label)
        return;
    const OperationScope operation(*this);
    ResetSimbPanel();
    const bool shift = (ShiftState & ssShift) != 0;
    const TDRLabelTimer* timer = label->BTimer();
    const bool alone = timer && timer->ComponentList().Count() == 1;
    TVornRec* record = FTreatments->Index().OfLabel(label);
    if (record && (!shift || alone)) {
        record = EndEdit(*dataset, *record);
        if (!operation.ChartAlive())
            return;
        const TVisit visit(FTreatments->Drawing(), dataset);
        if (record)
            dataset->MoveBy(record->Row - dataset->RowIndex());
        if (!visit.SameDrawing())
            return;
    }
    if (!record || (shift && alone))
        return;
    Raise(!shift && OnSingleSelect ? OnSingleSelect : OnMultipleSelect, record);
}

/// Ends an edit before a move, as the move itself would, and gives the record that stands for the same row afterwards:
/// a new row that is posted has the chart rebuilt. None if there is none, or no chart any more.
TVornRec* TVornIEDBTerList::EndEdit(TDataSet& dataset, TVornRec& record)
{
    if (dataset.State() == TDataSetState::dsBrowse)
        return &record;
    const TVisit visit(FTreatments->Drawing(), &dataset);
    const std::intptr_t key = record.FLabel->Tag();
    if (dataset.Modified())
        dataset.Post();
    else
        dataset.Cancel();
    if (visit.SameDrawing())
        return visit.RowsOpen() ? &record : nullptr;
    if (!visit.Alive() || FDataLink->DataSet() != &dataset)
        return nullptr;
    TVornRec* again = FTreatments->Index().OfKey(key);
    if (again)
        again->FLabel->Add();
    return again;
}

namespace {

/// A dragged label's row and the place to store in it, in image coordinates.
struct DraggedPlace {
    std::int64_t key;
    int x;
    int y;
};

void SavePosition(TDataSet& dataset, const DraggedPlace& place)
{
    const TLifeWatch watch(&dataset);
    const ScopeExit untag([&] {
        if (watch.Alive())
            dataset.SetTag(0);
    });
    WriteRow(dataset, [&](TDataSet& row) {
        row.SetTag(WritingTag);
        row.FieldByName(u"X").SetAsInteger(place.x);
        row.FieldByName(u"Y").SetAsInteger(place.y);
    });
}

/// Ends at a row that is gone, and once `alive` says that nobody wants the places any more.
void SavePositions(TDataSet& dataset, const String& keyField, const std::vector<DraggedPlace>& places,
    const std::function<bool()>& alive)
{
    for (const DraggedPlace& place : places) {
        if (!alive())
            return;
        const bool current = dataset.FieldByName(keyField).AsLargeInt() == place.key;
        if (!current && !dataset.Locate(keyField, place.key))
            return;
        if (alive())
            SavePosition(dataset, place);
    }
}

} // namespace

/// What was dragged together is saved together, labels and diagnosis box, whichever of them `Sender` is and whichever
/// can't be saved.
void TVornIEDBTerList::SaveXYDRLabel(TObject* Sender)
{
    TDataSet* dataset = FDataLink->DataSet();
    const auto* label = dynamic_cast<TDRLabel*>(Sender);
    bool box = label && label == &FDiagnosis->Label();
    // The places are taken first: a rebuild in the middle of the saves frees the labels.
    std::vector<DraggedPlace> places;
    const bool follows = !FIsOperation && Ready(dataset) && label && label->BTimer();
    for (int i = 0; follows && i < label->BTimer()->ComponentList().Count(); ++i) {
        const auto& moved = static_cast<const TDRLabel&>(*label->BTimer()->ComponentList().Items(i));
        if (&moved == &FDiagnosis->Label())
            box = box || moved.isMoved();
        else if (moved.isMoved())
            places.push_back(
                {moved.Tag(), WrapAdd(FSpace->Offset().X, moved.Left()), WrapAdd(FSpace->Offset().Y, moved.Top())});
    }
    const OperationScope operation(*this);
    const TLifeWatch data(dataset);
    const auto saveLabels = [&, keyField = FSettings->KeyField] {
        const auto alive = [&] { return operation.ChartAlive() && data.Alive() && dataset->Active(); };
        if (!places.empty())
            SavePositions(*dataset, keyField, places, alive);
    };
    // First the box: a label's post has it put back where it is stored.
    try {
        if (box)
            FDiagnosis->Save();
    } catch (...) {
        try {
            saveLabels();
        } catch (...) { // the first error is the one to report
        }
        throw;
    }
    saveLabels();
}

void TVornIEDBTerList::SetSelectionFatto()
{
    TDataSet* dataset = FDataLink->DataSet();
    const TDRLabelTimer* timer = FSettings->Timer();
    if (!timer || FIsOperation || FDataLink->ReadOnly() || !Ready(dataset))
        return;
    const OperationScope operation(*this);
    TComponentList selected(false); // drops a label that goes meanwhile
    std::vector<std::int64_t> keys;
    for (int i = 0; i < timer->ComponentList().Count(); ++i) {
        auto* label = static_cast<TDRLabel*>(timer->ComponentList().Items(i));
        selected.Add(label);
        if (FTreatments->Index().OfLabel(label))
            keys.push_back(label->Tag());
    }

    const ScopeExit selectAgain([&] {
        for (int i = 0; i < selected.Count(); ++i)
            static_cast<TDRLabel*>(selected.Items(i))->Add();
        for (const std::int64_t key : keys) // labels that a rebuild has made anew
            if (const TVornRec* record = operation.ChartAlive() ? FTreatments->Index().OfKey(key) : nullptr)
                record->FLabel->Add();
    });
    const TBookmarkGuard bookmark(*dataset);
    for (const std::int64_t key : keys)
        if (operation.ChartAlive() && Ready(FDataLink->DataSet()))
            SetRecordFatto(key);
    if (operation.ChartAlive())
        ClearSelection();
}

void TVornIEDBTerList::SetRecordFatto(std::int64_t key)
{
    TDataSet& dataset = *FDataLink->DataSet();
    const TLifeWatch chart(this);
    const TRowsWatch rows(&dataset);
    const auto current = [&] { return chart.Alive() && rows.Open() && FDataLink->DataSet() == &dataset; };
    const auto mark = [&](int fatto) {
        if (FDataLink->ReadOnly())
            return false;
        const bool posted = WriteRow(dataset, [&](TDataSet& row) {
            row.FieldByName(u"Fatto").SetAsInteger(fatto);
            if (fatto == Done) // a row that goes back to not done keeps its date
                row.FieldByName(u"DataFatto").SetAsDateTime(Date());
        });
        return posted && current();
    };
    if (!dataset.Locate(FSettings->KeyField, key) || !current())
        return;
    if (!mark(dataset.FieldByName(u"Fatto").AsInteger() == Done ? NotDone : Done))
        return;
    const int fatto = dataset.FieldByName(u"Fatto").AsInteger(); // as the post has left it
    dataset.Next();
    // The child rows stand directly below their parent, and take its new state.
    while (current() && !dataset.Eof() && dataset.FieldByName(FSettings->ParentField).AsLargeInt() == key) {
        if (!mark(fatto))
            return;
        dataset.Next();
    }
}

} // namespace vorn
