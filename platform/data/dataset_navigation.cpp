#include "platform/data/dataset.h"

#include "platform/data/rows_watch.h"
#include "platform/system/strings.h"

#include <algorithm>

namespace vorn {

int TDataSet::RowIndex() const
{
    return state_ == TDataSetState::dsInsert ? RecordCount() : current_;
}

void TDataSet::First()
{
    if (CheckBrowseMode())
        MoveTo(0, true, false);
}

void TDataSet::Last()
{
    if (CheckBrowseMode())
        MoveTo(RecordCount() - 1, false, true);
}

void TDataSet::Next()
{
    MoveBy(1);
}

void TDataSet::Prior()
{
    MoveBy(-1);
}

int TDataSet::MoveBy(int distance)
{
    CheckActive();
    if (distance == 0)
        return 0;
    if (!CheckBrowseMode() || rows_.empty() || (distance > 0 ? eof_ : bof_))
        return 0;
    const std::int64_t wanted = std::int64_t{current_} + distance;
    const int last = RecordCount() - 1;
    const int before = current_;
    const bool bof = wanted < 0;
    const bool eof = wanted > last;
    const bool there = MoveTo(static_cast<int>(std::clamp<std::int64_t>(wanted, 0, last)), bof, eof);
    return there ? current_ - before : 0;
}

/// Moves with the events of a scroll. False if the rows are gone behind the move.
bool TDataSet::MoveTo(int index, bool bof, bool eof)
{
    if (!RaiseBefore(BeforeScroll))
        return false;
    SetCurrent(index);
    if (!rows_.empty()) {
        bof_ = bof;
        eof_ = eof;
    }
    const TRowsWatch rows(this);
    return Tell(rows, TDataEvent::deDataSetScroll) && Tell(rows, AfterScroll);
}

/// Makes a row current without any event; the nearest one if there is no such row.
void TDataSet::SetCurrent(int index)
{
    current_ = std::clamp(index, rows_.empty() ? -1 : 0, RecordCount() - 1);
    bof_ = rows_.empty();
    eof_ = rows_.empty();
}

TBookmark TDataSet::GetBookmark() const
{
    if (state_ == TDataSetState::dsInsert)
        return {insertId_, RecordCount()};
    return current_ < 0 ? TBookmark() : TBookmark{rows_[static_cast<std::size_t>(current_)].Id, current_};
}

bool TDataSet::BookmarkValid(const TBookmark& bookmark) const
{
    return FindRow(bookmark) >= 0;
}

void TDataSet::GotoBookmark(const TBookmark& bookmark)
{
    if (!CheckBrowseMode() || bookmark.Row == 0)
        return;
    const int row = FindRow(bookmark);
    if (row < 0)
        throw EDatabaseError(DisplayName() + u": the row of a bookmark is gone");
    MoveTo(row, false, false);
}

int TDataSet::FindRow(const TBookmark& bookmark) const
{
    if (bookmark.Row == 0 || rows_.empty())
        return -1;
    // Deleting other rows only moves a row towards the front.
    const int start = std::clamp(bookmark.Hint, 0, RecordCount() - 1);
    for (int i = start; i >= 0; --i)
        if (rows_[static_cast<std::size_t>(i)].Id == bookmark.Row)
            return i;
    for (int i = start + 1; i < RecordCount(); ++i)
        if (rows_[static_cast<std::size_t>(i)].Id == bookmark.Row)
            return i;
    return -1;
}

} // namespace vorn
