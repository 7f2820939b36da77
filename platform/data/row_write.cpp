#include "platform/data/row_write.h"

#include "platform/data/rows_watch.h"

namespace vorn {

namespace {

bool Editing(const TDataSet& dataset)
{
    return dataset.State() == TDataSetState::dsEdit || dataset.State() == TDataSetState::dsInsert;
}

/// The edit that a write runs in. Giving it up puts back what the write has changed, and nothing else.
class RowEdit {
public:
    explicit RowEdit(TDataSet& dataset)
        : dataset_(dataset), rows_(&dataset), joined_(Editing(dataset)), before_(dataset.GetBookmark())
    {
        for (int i = 0; joined_ && i < dataset.FieldCount(); ++i)
            values_.push_back(dataset.Fields(i).Value());
    }
    RowEdit(const RowEdit&) = delete;
    RowEdit& operator=(const RowEdit&) = delete;

    /// Whether the dataset is still where it was before the write.
    bool InPlace() const { return dataset_.GetBookmark().Row == before_.Row; }
    /// The row that is being written from here on.
    void Begin() { row_ = dataset_.GetBookmark(); }
    bool Open() const { return rows_.Open(); }
    bool Editable() const { return Open() && Editing(dataset_); }
    bool OnRow() const { return Editable() && dataset_.GetBookmark().Row == row_.Row; }
    /// Whether the row that was begun is stored; unknown, and taken for stored, once the rows have been read anew.
    bool Stored() const { return !Open() || dataset_.BookmarkValid(row_); }

    void GiveUp()
    {
        if (!Editable())
            return;
        if (joined_ && InPlace())
            PutBack();
        else
            dataset_.Cancel();
    }

private:
    void PutBack()
    {
        for (int i = 0; Open() && i < dataset_.FieldCount() && Editing(dataset_); ++i) {
            const TValue& before = values_[static_cast<std::size_t>(i)];
            if (dataset_.Fields(i).Value() != before)
                dataset_.Fields(i).SetValue(before);
        }
    }

    TDataSet& dataset_;
    TRowsWatch rows_;
    bool joined_;
    TBookmark before_;
    TBookmark row_;
    std::vector<TValue> values_;
};

/// False if a handler has taken the row away before the post.
bool FillAndPost(RowEdit& edit, TDataSet& dataset, const TRowWriter& write)
{
    edit.Begin();
    write(dataset);
    if (!edit.OnRow())
        return false;
    dataset.Post();
    return true;
}

} // namespace

bool WriteRow(TDataSet& dataset, const TRowWriter& write)
{
    RowEdit edit(dataset);
    try {
        dataset.Edit();
        if (!edit.Editable())
            return false;
        if (!edit.InPlace()) {
            edit.GiveUp(); // a handler has moved on: another row is not to get these values
            return false;
        }
        return FillAndPost(edit, dataset, write);
    } catch (...) {
        edit.GiveUp();
        throw;
    }
}

bool AppendRow(TDataSet& dataset, const TRowWriter& write)
{
    RowEdit edit(dataset);
    try {
        dataset.Append();
        if (!edit.Open() || dataset.State() != TDataSetState::dsInsert)
            return false;
        return FillAndPost(edit, dataset, write) && edit.Stored();
    } catch (...) {
        edit.GiveUp();
        throw;
    }
}

} // namespace vorn
