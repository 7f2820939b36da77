#include "platform/data/data_link.h"

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
    if (source_) {
        source_->RemoveLink(this);
        source_ = nullptr;
        UpdateState();
    }
    if (source) {
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
    dataset->Edit();
    return dataset->State() == TDataSetState::dsEdit || dataset->State() == TDataSetState::dsInsert;
}

void TDataLink::DataEvent(TDataEvent event, std::intptr_t info)
{
    if (event == TDataEvent::deUpdateState) {
        UpdateState();
        return;
    }
    if (!active_)
        return;
    switch (event) {
    case TDataEvent::deFieldChange:
    case TDataEvent::deRecordChange:
        RecordChanged(reinterpret_cast<TField*>(info));
        break;
    case TDataEvent::deDataSetChange:
        MoveWindow();
        DataSetChanged();
        break;
    case TDataEvent::deDataSetScroll:
        DataSetScrolled(MoveWindow());
        break;
    case TDataEvent::deLayoutChange:
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

void TDataLink::UpdateState()
{
    const TDataSet* const dataset = DataSet();
    const bool active = dataset && dataset->Active();
    const bool editing = active && dataset->State() != TDataSetState::dsBrowse;
    const bool editingChanges = editing != editing_;
    editing_ = editing;
    if (active != active_) {
        active_ = active;
        firstRecord_ = 0;
        MoveWindow();
        ActiveChanged();
    }
    if (editingChanges)
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
