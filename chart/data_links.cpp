#include "chart/data_links.h"

#include "chart/vorndblabelIE.h"

namespace vorn {

TChartDataLink::TChartDataLink(TVornIEDBTerList* Source) : FPanel(Source)
{
    SetVisualControl(true);
}

// --- treatments ---

void TDBVornDataLink::ActiveChanged()
{
    if (FinOperation || !FPanel->Enabled())
        return;
    FCurRecord = 0;
    const OperationScope operation(*this);
    FPanel->ActiveChanged();
    if (!operation.LinkAlive())
        return;
    const TDataSet* dataset = DataSet();
    SetBufferCount(dataset && dataset->Active() ? dataset->RecordCount() : 1);
}

bool TDBVornDataLink::Listens() const
{
    // An edit in progress is not looked at: its Post brings the next notification.
    const TDataSet* dataset = DataSet();
    return dataset && dataset->State() == TDataSetState::dsBrowse && FPanel->Enabled();
}

void TDBVornDataLink::DataSetChanged()
{
    if (FinOperation || !Listens())
        return;
    const OperationScope operation(*this);
    const int rows = DataSet()->RecordCount();
    if (rows != BufferCount() || rows == 0)
        FPanel->ActiveChanged();
    if (operation.LinkAlive() && DataSet() && DataSet()->Active())
        FollowCurrentRow();
}

void TDBVornDataLink::FollowCurrentRow()
{
    SetBufferCount(DataSet()->RecordCount());
    if (ActiveRecord() == FCurRecord) {
        FPanel->Reload();
    } else {
        FCurRecord = ActiveRecord();
        FPanel->ScrollByBegin(FCurRecord);
    }
}

void TDBVornDataLink::DataSetScrolled(int distance)
{
    // A move to another record is followed even on a disabled chart.
    if (ActiveRecord() == FCurRecord && !FPanel->Enabled())
        return;
    FCurRecord = ActiveRecord();
    if (distance == 0)
        FPanel->ScrollByBegin(FCurRecord);
}

void TDBVornDataLink::DataEvent(TDataEvent event, std::intptr_t info)
{
    TDataLink::DataEvent(event, info);
    // Whatever was done under disabled controls, the next change rebuilds the chart.
    if (event == TDataEvent::deDisabledStateChange)
        SetBufferCount(0);
}

TDBVornDataLink::RebuildScope::RebuildScope(TDBVornDataLink& link) : link_(link), watch_(&link), nested_(link.FinOperation)
{
    link_.FinOperation = true;
}

void TDBVornDataLink::RebuildScope::Finish()
{
    // The rebuild that the window of 0 rows asks for has just been done.
    if (!watch_.Alive() || !link_.DataSet())
        return;
    link_.SetBufferCount(link_.DataSet()->RecordCount());
    if (!nested_ && link_.Listens())
        link_.FollowCurrentRow();
}

// --- backgrounds ---

void TDBSfondiDataLink::ActiveChanged()
{
    // The labels are left alone: the treatments link rebuilds them.
    if (FinOperation || !FPanel->Enabled())
        return;
    const OperationScope operation(*this);
    FPanel->ActiveChangedSfondi();
}

void TDBSfondiDataLink::DataSetChanged()
{
    if (FinOperation || !DataSet() || !DataSet()->Active() || !FPanel->Enabled())
        return;
    const OperationScope operation(*this);
    FPanel->ActiveChangedSfondi();
    FPanel->CreaCollection();
}

void TDBSfondiDataLink::DataSetScrolled(int)
{
    if (FinOperation || !FPanel->Enabled())
        return;
    FPanel->ActiveChangedSfondi();
    FPanel->CreaCollection();
}

// --- symbol placements ---

void TDBSimgDataLink::ActiveChanged()
{
    if (FinOperation || !FPanel->Enabled())
        return;
    const OperationScope operation(*this);
    const TDataSet* dataset = DataSet();
    SetBufferCount(dataset && dataset->Active() ? dataset->RecordCount() : 1);
}

void TDBSimgDataLink::DataSetChanged()
{
    const TDataSet* dataset = DataSet();
    if (FinOperation || !dataset || dataset->State() != TDataSetState::dsBrowse || !FPanel->Enabled())
        return;
    const OperationScope operation(*this);
    SetBufferCount(dataset->RecordCount());
    FCurRecord = ActiveRecord();
}

void TDBSimgDataLink::DataSetScrolled(int)
{
    if (ActiveRecord() == FCurRecord && !FPanel->Enabled())
        return;
    FCurRecord = ActiveRecord();
}

void TDBSimgDataLink::DataEvent(TDataEvent event, std::intptr_t info)
{
    TDataLink::DataEvent(event, info);
    if (event == TDataEvent::deDisabledStateChange)
        SetBufferCount(0);
}

} // namespace vorn
