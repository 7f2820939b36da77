#include "chart/data_links.h"

namespace vorn {

TChartDataLink::TChartDataLink(TChartFollowing& Source) : FPanel(Source)
{
    SetVisualControl(true);
}

// --- rows ---

void TRowsDataLink::ActiveChanged()
{
    if (FinOperation || !FPanel.Enabled())
        return;
    const TFlagScope operation = Operate();
    Rebuild();
    if (!operation.OwnerAlive())
        return;
    const TDataSet* dataset = DataSet();
    SetBufferCount(dataset && dataset->Active() ? dataset->RecordCount() : 1);
}

bool TRowsDataLink::Listens() const
{
    // An edit in progress is not looked at: its Post brings the next notification.
    const TDataSet* dataset = DataSet();
    return dataset && dataset->State() == TDataSetState::dsBrowse && FPanel.Enabled();
}

void TRowsDataLink::DataSetChanged()
{
    if (FinOperation || !Listens())
        return;
    const TFlagScope operation = Operate();
    const int rows = DataSet()->RecordCount();
    if (rows != BufferCount() || rows == 0)
        Rebuild();
    if (!operation.OwnerAlive() || !DataSet() || !DataSet()->Active())
        return;
    SetBufferCount(DataSet()->RecordCount());
    FollowCurrentRow();
}

bool TRowsDataLink::NoteScroll()
{
    // A move to another record is followed even on a disabled chart.
    if (ActiveRecord() == FCurRecord && !FPanel.Enabled())
        return false;
    FCurRecord = ActiveRecord();
    return true;
}

void TRowsDataLink::DataEvent(TDataEvent event, std::intptr_t info)
{
    TDataLink::DataEvent(event, info);
    // Whatever was done under disabled controls, the next change rebuilds the chart.
    if (event == TDataEvent::deDisabledStateChange)
        SetBufferCount(0);
}

TRowsDataLink::RebuildScope::RebuildScope(TRowsDataLink& link) : link_(link), watch_(&link), nested_(link.FinOperation)
{
    link_.FinOperation = true;
}

void TRowsDataLink::RebuildScope::Finish()
{
    // The rebuild that the window of 0 rows asks for has just been done.
    if (!watch_.Alive() || !link_.DataSet())
        return;
    link_.SetBufferCount(link_.DataSet()->RecordCount());
    link_.FRowsDrawn = true;
    if (!nested_ && link_.Listens())
        link_.FollowCurrentRow();
}

// --- treatments ---

void TDBVornDataLink::ActiveChanged()
{
    if (FinOperation || !FPanel.Enabled())
        return;
    FCurRecord = 0;
    FRowsDrawn = false;
    const TLifeWatch watch(this);
    TRowsDataLink::ActiveChanged();
    // Connected to rows that were open already, the chart has met another one than the first.
    if (watch.Alive() && FRowsDrawn)
        FCurRecord = ActiveRecord();
}

void TDBVornDataLink::Rebuild()
{
    FPanel.ActiveChanged();
}

void TDBVornDataLink::FollowCurrentRow()
{
    if (ActiveRecord() == FCurRecord) {
        FPanel.Reload();
    } else {
        FCurRecord = ActiveRecord();
        FPanel.ScrollByBegin(FCurRecord);
    }
}

void TDBVornDataLink::DataSetScrolled(int distance)
{
    if (NoteScroll() && distance == 0)
        FPanel.ScrollByBegin(FCurRecord);
}

// --- backgrounds ---

void TDBSfondiDataLink::ActiveChanged()
{
    // The labels are left alone: the treatments link rebuilds them.
    if (FinOperation || !FPanel.Enabled())
        return;
    const TFlagScope operation = Operate();
    FPanel.ActiveChangedSfondi();
}

void TDBSfondiDataLink::DataSetChanged()
{
    if (FinOperation || !DataSet() || !DataSet()->Active() || !FPanel.Enabled())
        return;
    const TFlagScope operation = Operate();
    FPanel.ActiveChangedSfondi();
    if (operation.OwnerAlive())
        FPanel.CreaCollection();
}

void TDBSfondiDataLink::DataSetScrolled(int)
{
    if (FinOperation || !FPanel.Enabled())
        return;
    const TLifeWatch watch(this);
    FPanel.ActiveChangedSfondi();
    if (watch.Alive())
        FPanel.CreaCollection();
}

// --- symbol placements ---

void TDBSimgDataLink::Rebuild()
{
    FPanel.ActiveChangedSimboli();
}

void TDBSimgDataLink::FollowCurrentRow()
{
    FCurRecord = ActiveRecord();
}

void TDBSimgDataLink::DataSetScrolled(int)
{
    NoteScroll();
}

} // namespace vorn
