#include "platform/data/dataset.h"

#include "platform/data/rows_watch.h"
#include "platform/system/lists.h"
#include "platform/system/strings.h"

namespace vorn {

void TDataSet::CheckCanModify() const
{
    if (!CanModify())
        throw EDatabaseError(DisplayName() + u" is read-only");
}

/// Ends an edit in progress before something else is done with the rows. False if that has freed the dataset; raises
/// ERowsGone if it has closed or reopened it.
bool TDataSet::CheckBrowseMode()
{
    CheckActive();
    const TRowsWatch rows(this);
    SendEvent(TDataEvent::deCheckBrowseMode);
    if (rows.Check() && Editing())
        SendEvent(TDataEvent::deUpdateRecord);
    if (rows.Check() && Editing()) {
        if (modified_)
            Post();
        else
            Cancel();
    }
    return rows.Check();
}

/// Raises an event ahead of a change. False if its handler has freed the dataset; raises ERowsGone if it has closed or
/// reopened it.
bool TDataSet::RaiseBefore(const TDataSetNotifyEvent& event)
{
    const TRowsWatch rows(this);
    Raise(event, this);
    return rows.Check();
}

void TDataSet::Edit()
{
    CheckActive();
    if (Editing())
        return;
    if (IsEmpty())
        throw EDatabaseError(DisplayName() + u" has no row to edit");
    if (!CheckBrowseMode())
        return;
    CheckCanModify();
    if (!RaiseBefore(BeforeEdit))
        return;
    if (IsEmpty())
        throw EDatabaseError(DisplayName() + u" has no row to edit");
    editRow_ = rows_[static_cast<std::size_t>(current_)].Values;
    modified_ = false;
    const TRowsWatch rows(this);
    if (Tell(rows, TDataSetState::dsEdit) && Tell(rows, TDataEvent::deRecordChange))
        Raise(AfterEdit, this);
}

void TDataSet::Append()
{
    if (!CheckBrowseMode())
        return;
    CheckCanModify();
    if (!RaiseBefore(BeforeInsert) || !RaiseBefore(BeforeScroll))
        return;
    editRow_.assign(fields_.size(), TValue());
    insertId_ = nextRowId_++;
    const TRowsWatch rows(this);
    try {
        if (!Tell(rows, TDataSetState::dsInsert) || !Tell(rows, OnNewRecord))
            return;
    } catch (...) {
        if (rows.Open()) {
            EndEditing();
            SetState(TDataSetState::dsBrowse);
        }
        throw;
    }
    modified_ = false; // defaults alone are nothing to keep
    if (Tell(rows, TDataEvent::deDataSetChange) && Tell(rows, AfterInsert))
        Raise(AfterScroll, this);
}

void TDataSet::Post()
{
    CheckActive();
    if (!Editing())
        throw EDatabaseError(DisplayName() + u" is not in edit or insert state");
    const TRowsWatch rows(this);
    SendEvent(TDataEvent::deUpdateRecord);
    if (!rows.Check() || !RaiseBefore(BeforePost) || !Editing())
        return;
    CheckRequired();
    StoreEditRow();
    EndEditing();
    if (Tell(rows, TDataSetState::dsBrowse) && Tell(rows, TDataEvent::deDataSetChange))
        Raise(AfterPost, this);
}

/// Writes the edited row through. Nothing here has changed if that raises.
void TDataSet::StoreEditRow()
{
    Row row = editRow_;
    if (state_ == TDataSetState::dsEdit) {
        Row& stored = rows_[static_cast<std::size_t>(current_)].Values;
        InternalUpdate(stored, row);
        NoteStored(stored, row);
        stored = std::move(row);
        return;
    }
    if (rows_.size() == rows_.capacity())
        rows_.reserve(rows_.size() * 2 + 8);
    InternalInsert(row);
    rows_.push_back({insertId_, std::move(row)});
    SetCurrent(RecordCount() - 1);
    NoteStored({}, rows_.back().Values);
}

void TDataSet::CheckRequired() const
{
    for (const auto& field : fields_)
        if (field->Required() && IsNull(editRow_[static_cast<std::size_t>(field->Index())]))
            throw EDatabaseError(DisplayName() + u": column \"" + field->FieldName() + u"\" must have a value");
}

void TDataSet::Cancel()
{
    CheckActive();
    if (!Editing())
        return;
    const TRowsWatch rows(this);
    if (!Tell(rows, BeforeCancel) || !Editing())
        return; // the edit is gone
    EndEditing();
    if (Tell(rows, TDataSetState::dsBrowse) && Tell(rows, TDataEvent::deDataSetChange))
        Raise(AfterCancel, this);
}

void TDataSet::Delete()
{
    CheckActive();
    if (state_ == TDataSetState::dsInsert) {
        Cancel();
        return;
    }
    CheckCanModify();
    if (IsEmpty())
        throw EDatabaseError(DisplayName() + u" has no row to delete");
    const TRowsWatch rows(this);
    SendEvent(TDataEvent::deCheckBrowseMode);
    if (!rows.Check() || !RaiseBefore(BeforeDelete))
        return;
    if (IsEmpty() || state_ == TDataSetState::dsInsert)
        throw EDatabaseError(DisplayName() + u" has no row to delete");
    InternalDelete(rows_[static_cast<std::size_t>(current_)].Values);
    rows_.erase(rows_.begin() + current_);
    index_ = {};
    SetCurrent(current_);
    EndEditing();
    if (Tell(rows, TDataSetState::dsBrowse) && Tell(rows, TDataEvent::deDataSetChange) && Tell(rows, AfterDelete))
        Raise(AfterScroll, this);
}

void TDataSet::EndEditing()
{
    editRow_.clear();
    modified_ = false;
}

const TValue& TDataSet::StoredValue(int row, int column) const
{
    if (row < 0 || row >= RecordCount())
        RaiseListIndex(row, RecordCount());
    return rows_[static_cast<std::size_t>(row)].Values[static_cast<std::size_t>(column)];
}

const TValue& TDataSet::CurrentValue(int column) const
{
    static const TValue null;
    const auto at = static_cast<std::size_t>(column);
    const Row* row = nullptr;
    if (Editing())
        row = &editRow_;
    else if (current_ >= 0)
        row = &rows_[static_cast<std::size_t>(current_)].Values;
    return row && at < row->size() ? (*row)[at] : null;
}

void TDataSet::SetFieldValue(TField& field, TValue value)
{
    if (!Editing())
        throw EDatabaseError(
            DisplayName() + u": column \"" + field.FieldName() + u"\" can't be set outside edit and insert state");
    editRow_[static_cast<std::size_t>(field.Index())] = std::move(value);
    modified_ = true;
    SendEvent(TDataEvent::deFieldChange, reinterpret_cast<std::intptr_t>(&field));
}

} // namespace vorn
