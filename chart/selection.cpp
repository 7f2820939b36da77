#include "chart/selection.h"

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

TSelection::TSelection(const TChartSettings& settings, const TChartSpace& space, TTreatments& treatments,
    const TDiagnosisBox& diagnosis, TDataLink& link, TOperations& operations, TSelectionEvents events)
    : settings_(settings), space_(space), treatments_(treatments), diagnosis_(diagnosis), link_(link),
      operations_(operations), events_(std::move(events))
{
}

void TSelection::Clear() const
{
    if (TDRLabelTimer* timer = settings_.Timer())
        timer->Clear();
}

void TSelection::Toggle(int key) const
{
    if (const TVornRec* record = treatments_.Index().OfKey(key))
        record->FLabel->AddToList(false);
}

void TSelection::Follow(TDRLabel& label)
{
    label.OnSelect = [this](TObject* Sender, bool select, TShiftState shift) { LabelSelected(Sender, select, shift); };
    label.OnSavePosEvent = [this](TObject* Sender) { SavePlaces(Sender); };
}

void TSelection::FollowRow(int ordinal)
{
    const TDataSet* dataset = link_.DataSet();
    if (!dataset)
        return;
    const TRecordIndex& index = treatments_.Index();
    const bool leftOut = ordinal >= 0 && ordinal < index.RowCount() && !index.OfRow(ordinal);
    // A row without a label of its own: nothing stays selected.
    if (leftOut || dataset->FieldByName(u"Progressivo").AsInteger() != 0) {
        treatments_.SetCurrent(nullptr);
        Clear();
        return;
    }
    TVornRec* const record = index.OfRow(ordinal);
    if (!record)
        return;
    treatments_.SetCurrent(record);
    // A click on a label moves the dataset, and that label holds the selection already.
    if (operations_.Running())
        return;
    const TVisit visit(treatments_.Drawing());
    Clear();
    if (visit.SameDrawing() && record->FLabel)
        record->FLabel->AddToList(false);
}

void TSelection::LabelSelected(TObject* Sender, bool select, TShiftState ShiftState)
{
    TDataSet* dataset = link_.DataSet();
    auto* label = dynamic_cast<TDRLabel*>(Sender);
    if (operations_.Running() || !select || !Ready(dataset) || !label)
        return;
    const TFlagScope operation = operations_.Begin();
    events_.EndSymbolEditing();
    const bool shift = (ShiftState & ssShift) != 0;
    const TDRLabelTimer* timer = label->BTimer();
    const bool alone = timer && timer->ComponentList().Count() == 1;
    TVornRec* record = treatments_.Index().OfLabel(label);
    if (record && (!shift || alone)) {
        record = EndEdit(*dataset, *record);
        if (!operation.OwnerAlive())
            return;
        const TVisit visit(treatments_.Drawing(), dataset);
        if (record)
            dataset->MoveBy(record->Row - dataset->RowIndex());
        if (!visit.SameDrawing())
            return;
    }
    if (!record || (shift && alone))
        return;
    Raise(!shift && events_.Single ? events_.Single : events_.Multiple, record);
}

/// Ends an edit before a move, as the move itself would, and gives the record that stands for the same row afterwards:
/// a new row that is posted has the chart rebuilt. None if there is none, or no chart any more.
TVornRec* TSelection::EndEdit(TDataSet& dataset, TVornRec& record)
{
    if (dataset.State() == TDataSetState::dsBrowse)
        return &record;
    const TVisit visit(treatments_.Drawing(), &dataset);
    const std::intptr_t key = record.FLabel->Tag();
    if (dataset.Modified())
        dataset.Post();
    else
        dataset.Cancel();
    if (visit.SameDrawing())
        return visit.RowsOpen() ? &record : nullptr;
    if (!visit.Alive() || link_.DataSet() != &dataset)
        return nullptr;
    TVornRec* again = treatments_.Index().OfKey(key);
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

void TSelection::SavePlaces(TObject* Sender)
{
    TDataSet* dataset = link_.DataSet();
    const auto* label = dynamic_cast<TDRLabel*>(Sender);
    bool box = label && label == &diagnosis_.Label();
    // The places are taken first: a rebuild in the middle of the saves frees the labels.
    std::vector<DraggedPlace> places;
    const bool follows = !operations_.Running() && Ready(dataset) && label && label->BTimer();
    for (int i = 0; follows && i < label->BTimer()->ComponentList().Count(); ++i) {
        const auto& moved = static_cast<const TDRLabel&>(*label->BTimer()->ComponentList().Items(i));
        if (&moved == &diagnosis_.Label())
            box = box || moved.isMoved();
        else if (moved.isMoved())
            places.push_back(
                {moved.Tag(), WrapAdd(space_.Offset().X, moved.Left()), WrapAdd(space_.Offset().Y, moved.Top())});
    }
    const TFlagScope operation = operations_.Begin();
    const TLifeWatch data(dataset);
    const auto saveLabels = [&, keyField = settings_.KeyField] {
        const auto alive = [&] { return operation.OwnerAlive() && data.Alive() && dataset->Active(); };
        if (!places.empty())
            SavePositions(*dataset, keyField, places, alive);
    };
    // First the box: a label's post has it put back where it is stored.
    try {
        if (box)
            diagnosis_.Save();
    } catch (...) {
        try {
            saveLabels();
        } catch (...) { // the first error is the one to report
        }
        throw;
    }
    saveLabels();
}

void TSelection::MarkDone()
{
    TDataSet* dataset = link_.DataSet();
    const TDRLabelTimer* timer = settings_.Timer();
    if (!timer || operations_.Running() || link_.ReadOnly() || !Ready(dataset))
        return;
    const TFlagScope operation = operations_.Begin();
    TComponentList selected(false); // drops a label that goes meanwhile
    std::vector<std::int64_t> keys;
    for (int i = 0; i < timer->ComponentList().Count(); ++i) {
        auto* label = static_cast<TDRLabel*>(timer->ComponentList().Items(i));
        selected.Add(label);
        if (treatments_.Index().OfLabel(label))
            keys.push_back(label->Tag());
    }

    const ScopeExit selectAgain([&] {
        for (int i = 0; i < selected.Count(); ++i)
            static_cast<TDRLabel*>(selected.Items(i))->Add();
        for (const std::int64_t key : keys) // labels that a rebuild has made anew
            if (const TVornRec* record = operation.OwnerAlive() ? treatments_.Index().OfKey(key) : nullptr)
                record->FLabel->Add();
    });
    const TBookmarkGuard bookmark(*dataset);
    for (const std::int64_t key : keys)
        if (operation.OwnerAlive() && Ready(link_.DataSet()))
            MarkRecord(key);
    if (operation.OwnerAlive())
        Clear();
}

void TSelection::MarkRecord(std::int64_t key)
{
    TDataSet& dataset = *link_.DataSet();
    const TLifeWatch chart(this);
    const TRowsWatch rows(&dataset);
    const auto current = [&] { return chart.Alive() && rows.Open() && link_.DataSet() == &dataset; };
    const auto mark = [&](int fatto) {
        if (link_.ReadOnly())
            return false;
        const bool posted = WriteRow(dataset, [&](TDataSet& row) {
            row.FieldByName(u"Fatto").SetAsInteger(fatto);
            if (fatto == Done) // a row that goes back to not done keeps its date
                row.FieldByName(u"DataFatto").SetAsDateTime(Date());
        });
        return posted && current();
    };
    if (!dataset.Locate(settings_.KeyField, key) || !current())
        return;
    if (!mark(dataset.FieldByName(u"Fatto").AsInteger() == Done ? NotDone : Done))
        return;
    const int fatto = dataset.FieldByName(u"Fatto").AsInteger(); // as the post has left it
    dataset.Next();
    // The child rows stand directly below their parent, and take its new state.
    while (current() && !dataset.Eof() && dataset.FieldByName(settings_.ParentField).AsLargeInt() == key) {
        if (!mark(fatto))
            return;
        dataset.Next();
    }
}

} // namespace vorn
