#include "chart/operation_scope.h"
#include "platform/system/guards.h"
#include "platform/system/strings.h"

namespace vorn {

namespace {

/// The dataset's Tag while the chart writes for the user; put back to 0 on every way out.
constexpr std::intptr_t WritingTag = -1;

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
    const bool leftOut = Distance >= 0 && Distance < FIndex.RowCount() && !FIndex.OfRow(Distance);
    // A row without a label of its own: nothing stays selected.
    if (leftOut || dataset.FieldByName(u"Progressivo").AsInteger() != 0) {
        FCurDib = nullptr;
        ClearSelection();
        return;
    }
    TVornRec* const record = FIndex.OfRow(Distance);
    if (!record)
        return;
    FCurDib = record;
    // A click on a label moves the dataset, and that label holds the selection already.
    if (FIsOperation)
        return;
    const auto self = FSelf;
    const unsigned rebuilds = FRebuilds;
    ClearSelection();
    if (*self && rebuilds == FRebuilds && record->FLabel)
        record->FLabel->AddToList(false);
}

void TVornIEDBTerList::ResetSelection()
{
    ClearSelection();
}

void TVornIEDBTerList::AddToSelection(int autoId)
{
    if (const TVornRec* record = FIndex.OfKey(autoId))
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
    TVornRec* const record = FIndex.OfLabel(label);
    if (!record)
        return;

    const unsigned rebuilds = FRebuilds;
    const TDRLabelTimer* timer = label->BTimer();
    const bool alone = timer && timer->ComponentList().Count() == 1;
    const int distance = record->Row - dataset->RowIndex();
    if (!(ShiftState & ssShift)) {
        dataset->MoveBy(distance);
        if (operation.ChartAlive() && rebuilds == FRebuilds)
            Raise(OnSingleSelect ? OnSingleSelect : OnMultipleSelect, record);
    } else if (alone) {
        dataset->MoveBy(distance);
    } else {
        Raise(OnMultipleSelect, record);
    }
}

void TVornIEDBTerList::SaveXYDRLabel(TObject* Sender)
{
    TDataSet* dataset = FDataLink->DataSet();
    auto* label = dynamic_cast<TDRLabel*>(Sender);
    if (FIsOperation || !Ready(dataset) || !label || !label->BTimer())
        return;
    const OperationScope operation(*this);
    // The list is copied: a rebuild in the middle of the saves empties the selection and frees its labels.
    TComponentList moved(false);
    for (int i = 0; i < label->BTimer()->ComponentList().Count(); ++i)
        if (static_cast<TDRLabel*>(label->BTimer()->ComponentList().Items(i))->isMoved())
            moved.Add(label->BTimer()->ComponentList().Items(i));
    while (operation.ChartAlive() && moved.Count() > 0) {
        const auto& next = static_cast<const TDRLabel&>(*moved.Items(0));
        const auto key = static_cast<std::int64_t>(next.Tag());
        if (dataset->FieldByName(FKeyField).AsLargeInt() != key && !dataset->Locate(FKeyField, key))
            break;
        moved.Extract(moved.Items(0));
        SavePosition(*dataset, next);
    }
}

void TVornIEDBTerList::SavePosition(TDataSet& dataset, const TDRLabel& label)
{
    const int left = label.Left();
    const int top = label.Top();
    dataset.Edit();
    dataset.SetTag(WritingTag);
    const ScopeExit untag([&dataset] { dataset.SetTag(0); });
    dataset.FieldByName(u"X").SetAsInteger(WrapAdd(FOffsetX, left));
    dataset.FieldByName(u"Y").SetAsInteger(WrapAdd(FOffsetY, top));
    dataset.Post();
}

void TVornIEDBTerList::SetSelectionFatto()
{
    TDataSet* dataset = FDataLink->DataSet();
    TDRLabelTimer* timer = FLabel ? FLabel->BTimer() : nullptr;
    if (!timer || FIsOperation || FDataLink->ReadOnly() || !Ready(dataset))
        return;
    const OperationScope operation(*this);
    TComponentList selected(false); // drops a label that goes meanwhile
    for (int i = 0; i < timer->ComponentList().Count(); ++i)
        selected.Add(timer->ComponentList().Items(i));

    const ScopeExit selectAgain([&selected] {
        for (int i = 0; i < selected.Count(); ++i)
            static_cast<TDRLabel*>(selected.Items(i))->Add();
    });
    const TBookmarkGuard bookmark(*dataset);
    for (int i = 0; i < selected.Count(); ++i)
        if (TVornRec* record = FIndex.OfLabel(static_cast<TDRLabel*>(selected.Items(i))))
            SetRecordFatto(*record);
    timer->Clear();
}

void TVornIEDBTerList::SetRecordFatto(TVornRec& rec)
{
    TDataSet& dataset = *FDataLink->DataSet();
    const auto key = static_cast<std::int64_t>(rec.FLabel->Tag());
    if (!dataset.Locate(FKeyField, key) || !FDataLink->Edit())
        return;
    const bool done = dataset.FieldByName(u"Fatto").AsInteger() != 1;
    dataset.FieldByName(u"Fatto").SetAsInteger(done ? 1 : 0);
    if (done) // a row that goes back to not done keeps its date
        dataset.FieldByName(u"DataFatto").SetAsDateTime(Date());
    dataset.Post();

    const int state = dataset.FieldByName(u"Fatto").AsInteger();
    dataset.Next();
    // The child rows stand directly below their parent.
    while (!dataset.Eof() && dataset.FieldByName(FParentField).AsLargeInt() == key) {
        if (!FDataLink->Edit())
            return;
        dataset.FieldByName(u"Fatto").SetAsInteger(state);
        if (state == 1)
            dataset.FieldByName(u"DataFatto").SetAsDateTime(Date());
        dataset.Post();
        dataset.Next();
    }
}

void TVornIEDBTerList::ShowParentGliph(int parentKey)
{
    const TVornRec* parent = FIndex.OfKey(parentKey);
    if (!parent)
        return;
    parent->FLabel->SetImageIndex(0);
    const bool childDone = FDataLink->DataSet()->FieldByName(FFieldFatto).AsString() == u"1";
    if (childDone && parent->FLabel->Border() == TDRBorder::boNone)
        parent->FLabel->SetBorder(TDRBorder::boDotted);
}

} // namespace vorn
