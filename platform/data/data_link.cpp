#include "platform/data/data_link.h"

#include "platform/data/rows_watch.h"
#include "platform/system/guards.h"

#include <algorithm>

namespace vorn {

TDataLink::~TDataLink()
{
    if (source_)
        source_->RemoveLink(this);
}

void TDataLink::SetDataSource(TDataSource* source)
{
    if (source == source_)
        return;
    if (fixed_)
        throw EInvalidOperation(u"The data source of this link is fixed");
    const TLifeWatch self(this);
    const TLifeWatch next(source);
    if (source_) {
        source_->RemoveLink(this);
        source_ = nullptr;
        UpdateState();
        if (!self.Alive() || source_) // a handler has connected it elsewhere
            return;
    }
    if (next.Alive()) {
        source_ = source;
        source_->AddLink(this);
        UpdateState();
    }
}

void TDataLink::SetBufferCount(int count)
{
    bufferCount_ = std::max(count, 0);
    MoveWindow();
}

int TDataLink::ActiveRecord() const
{
    const TDataSet* const dataset = DataSet();
    return dataset && dataset->RowIndex() > 0 ? dataset->RowIndex() - WindowStart() : 0;
}

bool TDataLink::Edit()
{
    TDataSet* const dataset = DataSet();
    if (readOnly_ || !dataset || !dataset->Active())
        return false;
    const TRowsWatch rows(dataset);
    dataset->Edit();
    return rows.Open() && dataset->State() != TDataSetState::dsBrowse;
}

/// The source's way in.
void TDataLink::Receive(TDataEvent event, std::intptr_t info, const TRowsWatch& rows)
{
    const TLifeWatch self(this);
    const TRowsWatch* const outer = std::exchange(telling_, &rows);
    const ScopeExit done([&] {
        if (self.Alive())
            telling_ = outer;
    });
    DataEvent(event, info);
}

void TDataLink::DataEvent(TDataEvent event, std::intptr_t info)
{
    if (event == TDataEvent::deUpdateState) {
        UpdateState();
        return;
    }
    if (!Active() || (telling_ && !telling_->Open())) // an override may have taken the rows away first
        return;
    switch (event) {
    case TDataEvent::deFieldChange:
    case TDataEvent::deRecordChange:
        RecordChanged(reinterpret_cast<TField*>(info));
        break;
    case TDataEvent::deDataSetChange:
        opening_ = OpeningNow(); // told as a change if controls were disabled meanwhile
        MoveWindow();
        DataSetChanged();
        break;
    case TDataEvent::deDataSetScroll:
        DataSetScrolled(MoveWindow());
        break;
    case TDataEvent::deLayoutChange:
        opening_ = OpeningNow();
        MoveWindow();
        LayoutChanged();
        break;
    case TDataEvent::deUpdateRecord:
        UpdateData();
        break;
    default:
        break;
    }
}

std::uint64_t TDataLink::OpeningNow() const
{
    const TDataSet* const dataset = DataSet();
    return dataset && dataset->Active() ? dataset->Opening() : 0;
}

/// Looks up how things are now, so that it may be asked once too often.
void TDataLink::UpdateState()
{
    const TLifeWatch self(this);
    if (OpeningNow() != opening_) {
        opening_ = OpeningNow();
        firstRecord_ = 0;
        MoveWindow();
        ActiveChanged();
        if (!self.Alive())
            return;
    }
    const TDataSet* const dataset = DataSet();
    const bool editing = OpeningNow() != 0 && dataset->State() != TDataSetState::dsBrowse;
    if (editing != std::exchange(editing_, editing))
        EditingChanged();
}

/// Where the window stands once it holds the current row, with as little movement as possible.
int TDataLink::WindowStart() const
{
    const TDataSet* const dataset = DataSet();
    if (!dataset || !dataset->Active())
        return 0;
    const int row = std::max(dataset->RowIndex(), 0);
    const int rows = std::max(dataset->RecordCount(), row + 1); // a row being inserted stands behind the last
    const int size = std::max(bufferCount_, 1);
    if (size >= rows)
        return 0;
    return std::min(std::clamp(firstRecord_, std::max(row - size + 1, 0), row), rows - size);
}

int TDataLink::MoveWindow()
{
    const int before = std::exchange(firstRecord_, WindowStart());
    return firstRecord_ - before;
}

} // namespace vorn
