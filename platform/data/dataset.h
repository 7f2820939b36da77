#pragma once

#include "platform/data/field.h"
#include "platform/system/component.h"
#include "platform/system/exceptions.h"

#include <memory>
#include <span>
#include <unordered_map>
#include <vector>

namespace vorn {

class TDataSource;
class TRowsWatch;

enum class TDataSetState { dsInactive, dsBrowse, dsEdit, dsInsert };

/// What a dataset tells its links. The ordinals are fixed: applications see them in DataEvent.
enum class TDataEvent {
    deFieldChange = 0,
    deRecordChange = 1,
    deDataSetChange = 2,
    deDataSetScroll = 3,
    deLayoutChange = 4,
    deUpdateRecord = 5,
    deUpdateState = 6,
    deCheckBrowseMode = 7,
    deDisabledStateChange = 14,
};

using TDataSetNotifyEvent = std::function<void(class TDataSet* DataSet)>;

/// A place in a dataset that survives edits, posts and the deletion of other rows.
struct TBookmark {
    std::uint64_t Row = 0; ///< identity of the row; 0 is no place
    int Hint = 0;          ///< the row's ordinal when the bookmark was taken
};

/// One column as a descendant describes it when it opens.
struct TFieldDef {
    String Name;
    TFieldType Type = TFieldType::ftString;
    bool Required = false;
    int Size = 0; ///< longest text in characters, 0 for no limit
};

/// A table of rows with a current one: navigation, states, fields, bookmarks and the events of data-aware controls.
///
/// Rows are held in memory. Post and Delete write through to where a descendant keeps them; when that raises, the
/// dataset stays in the state it was in and holds what the user entered.
///
/// Handlers and links may close, reopen or free the dataset at any time. Of an operation that had its rows taken away
/// nothing more is done or told: behind the change it ends quietly; ahead of it it raises ERowsGone, unless there is no
/// dataset any more, or a handler has already done what was asked.
class TDataSet : public TComponent {
public:
    explicit TDataSet(TComponent* owner = nullptr);
    ~TDataSet() override;

    bool Active() const { return state_ != TDataSetState::dsInactive; }
    /// Opens or closes; no-op when it is so already.
    void SetActive(bool active);
    void Open() { SetActive(true); }
    void Close() { SetActive(false); }
    TDataSetState State() const { return state_; }
    /// Another number for each opening of any dataset, and for a refresh that finds other columns: tells whoever calls
    /// out to handlers that rows and fields are others by now.
    std::uint64_t Opening() const { return opening_; }

    int RecordCount() const { return static_cast<int>(rows_.size()); }
    bool IsEmpty() const { return rows_.empty(); }
    /// Ordinal of the current row from 0, -1 if there is none; RecordCount() while a row is being inserted.
    int RowIndex() const;
    bool Bof() const { return bof_; }
    bool Eof() const { return eof_; }
    void First();
    void Last();
    void Next();
    void Prior();
    /// Moves by a signed distance as far as there are rows; gives how far it went. 0 does nothing, and so does a move
    /// beyond an end that Bof or Eof tells of.
    int MoveBy(int distance);
    /// Makes the first row whose column equals `value` current and says whether there is one. Exact, regards case.
    /// Without one the dataset stays where it is.
    bool Locate(StringView fieldName, TValue value);

    int FieldCount() const { return static_cast<int>(fields_.size()); }
    TField& Fields(int index) const;
    /// Case aside. Raises EDatabaseError that names column and dataset.
    TField& FieldByName(StringView name) const;
    /// Case aside; none if there is no such column.
    TField* FindField(StringView name) const;

    TBookmark GetBookmark() const;
    bool BookmarkValid(const TBookmark& bookmark) const;
    /// Raises EDatabaseError if the row is gone. The bookmark of an empty dataset leads nowhere.
    void GotoBookmark(const TBookmark& bookmark);

    /// Starts an edit; no-op while one is in progress. Raises EDatabaseError on a read-only or empty dataset.
    void Edit();
    void Append();
    void Post();
    void Cancel();
    void Delete();
    /// Reads the rows anew and stays on the current row if it is still there. Bookmarks of rows that are found again
    /// stay good. If reading fails, the old rows stay. Links hear of a change, and of disabled controls before it if
    /// there are as many rows as before but other ones: other keys or another order or, where no key tells rows apart,
    /// any other value.
    void Refresh();
    virtual bool CanModify() const { return !readOnly_; }
    bool ReadOnly() const { return readOnly_; }
    void SetReadOnly(bool readOnly) { readOnly_ = readOnly; }
    bool Modified() const { return modified_; }

    /// Silences the links; calls nest. The outermost DisableControls and the outermost EnableControls each raise
    /// deDisabledStateChange, and the latter raises it before the one change that stands for all that happened.
    void DisableControls();
    void EnableControls();
    bool ControlsDisabled() const { return disableCount_ > 0; }

    /// The name used in messages: the component's name, or what the descendant reads.
    virtual String DisplayName() const;

    TDataSetNotifyEvent BeforeOpen, AfterOpen, BeforeClose, AfterClose;
    TDataSetNotifyEvent BeforeInsert, AfterInsert, BeforeEdit, AfterEdit, BeforePost, AfterPost;
    TDataSetNotifyEvent BeforeCancel, AfterCancel, BeforeDelete, AfterDelete, BeforeScroll, AfterScroll;
    TDataSetNotifyEvent OnNewRecord;

protected:
    using Row = std::vector<TValue>;

    /// Describes the columns and hands over the rows, in order, through AddLoadedRow.
    virtual std::vector<TFieldDef> InternalOpen() = 0;
    virtual void InternalClose() {}
    /// Stores a new row. May change it, such as by its generated key.
    virtual void InternalInsert(Row& row) = 0;
    /// Stores a changed row; `old` is the row as it was read.
    virtual void InternalUpdate(const Row& old, Row& row) = 0;
    virtual void InternalDelete(const Row& row) = 0;
    /// The column by which a row is found again after Refresh, or -1: then by ordinal.
    virtual int KeyColumn() const { return -1; }

    void AddLoadedRow(Row row) { loading_.push_back({nextRowId_++, std::move(row)}); }
    void ReserveRows(int count) { loading_.reserve(static_cast<std::size_t>(count)); }

private:
    friend class TField;
    friend class TDataSource;
    struct StoredRow {
        std::uint64_t Id;
        Row Values;
    };
    /// Lets a view be looked up without a copy.
    struct NameHash {
        using is_transparent = void;
        std::size_t operator()(StringView name) const { return std::hash<StringView>()(name); }
    };
    /// Rows by the value of one column, made once a column has been searched a few times.
    struct LocateIndex {
        int Column = -1;
        int Searches = 0;
        bool Built = false;
        std::unordered_multimap<std::size_t, int> Rows; // by a hash; of rows with the same value only the first
    };

    void DoOpen();
    void DoClose();
    std::vector<TFieldDef> LoadRows();
    void BuildFields(const std::vector<TFieldDef>& defs);
    bool SameFields(const std::vector<TFieldDef>& defs) const;
    bool OthersInPlace(const std::vector<StoredRow>& rows) const;
    void KeepRowIds(std::vector<StoredRow>& rows) const;
    void SetState(TDataSetState state);
    bool Editing() const { return state_ == TDataSetState::dsEdit || state_ == TDataSetState::dsInsert; }
    void EndEditing();
    void CheckActive() const;
    bool CheckBrowseMode();
    bool RaiseBefore(const TDataSetNotifyEvent& event);
    void CheckCanModify() const;
    void CheckRequired() const;
    void StoreEditRow();
    bool MoveTo(int index, bool bof, bool eof);
    void SetCurrent(int index);
    int FindRow(const TBookmark& bookmark) const;
    int FindValue(int column, const TValue& value);
    int FindIndexed(const TValue& value) const;
    void BuildLocateIndex();
    void AddToIndex(int row);
    void NoteStored(const Row& old, const Row& row);
    const TValue& CurrentValue(int column) const;
    const TValue& StoredValue(int row, int column) const;
    void SetFieldValue(TField& field, TValue value);
    void SendEvent(TDataEvent event, std::intptr_t info = 0);
    void SendChange();
    bool Tell(const TRowsWatch& rows, TDataSetState state);
    bool Tell(const TRowsWatch& rows, TDataEvent event);
    bool Tell(const TRowsWatch& rows, const TDataSetNotifyEvent& event);

    std::vector<std::unique_ptr<TField>> fields_;
    mutable std::unordered_map<String, TField*, NameHash, std::equal_to<>> fieldsByName_; // folded, and spellings met
    std::vector<StoredRow> rows_;
    std::vector<StoredRow> loading_; // what a descendant is handing over
    LocateIndex index_;
    std::vector<TDataSource*> dataSources_;
    Row editRow_;
    std::uint64_t nextRowId_ = 1;
    std::uint64_t opening_ = 0;
    std::uint64_t insertId_ = 0; // of the row being inserted
    int current_ = -1;
    int disableCount_ = 0;
    TDataSetState state_ = TDataSetState::dsInactive;
    TDataSetState stateWhenDisabled_ = TDataSetState::dsInactive;
    bool bof_ = true;
    bool eof_ = true;
    bool readOnly_ = false;
    bool modified_ = false;
    bool fieldsChanged_ = false; // while the links couldn't be told
};

/// DisableControls for the length of a scope. Errors of EnableControls pass through, unless an exception is on its way.
class [[nodiscard]] TControlsDisabled {
public:
    explicit TControlsDisabled(TDataSet& dataset);
    ~TControlsDisabled() noexcept(false);
    TControlsDisabled(const TControlsDisabled&) = delete;
    TControlsDisabled& operator=(const TControlsDisabled&) = delete;

private:
    TDataSet& dataset_;
    TLifeWatch watch_; // what runs in the scope may close the form that owns the dataset
    int exceptions_;
};

/// Puts the dataset back on its current row at the end of a scope, if that row still exists. Errors pass through,
/// unless an exception is on its way.
class [[nodiscard]] TBookmarkGuard {
public:
    explicit TBookmarkGuard(TDataSet& dataset);
    ~TBookmarkGuard() noexcept(false);
    TBookmarkGuard(const TBookmarkGuard&) = delete;
    TBookmarkGuard& operator=(const TBookmarkGuard&) = delete;

private:
    TDataSet& dataset_;
    TLifeWatch watch_;
    TBookmark bookmark_;
    int exceptions_;
};

} // namespace vorn
