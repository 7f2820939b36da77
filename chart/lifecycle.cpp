#include "chart/conventions.h"
#include "chart/vorndblabelIE.h"

namespace vorn {

TVornIEDBTerList::TVornIEDBTerList(TComponent* AOwner)
    : TComponent(AOwner), FSfondiDataLink(std::make_unique<TDBSfondiDataLink>(*this)),
      FDataLink(std::make_unique<TDBVornDataLink>(*this)), FDBSimbDataLink(std::make_unique<TDBSimgDataLink>(*this)),
      FSelection(std::make_unique<TSelection>(*FSettings, *FSpace, *FTreatments, *FDiagnosis, *FDataLink, *FOperations,
          TSelectionEvents{OnSingleSelect, OnMultipleSelect, [this] { ResetSimbPanel(); }})),
      FLabelProp(std::make_unique<TDRLabelProperties>(*this)),
      FReader(std::make_unique<TRowReader>(*FSettings, *FLabelProp, *FDiagnosis)),
      FSelf(std::make_shared<TVornIEDBTerList*>(this))
{
}

TVornIEDBTerList::~TVornIEDBTerList()
{
    Destroying();
    UnhookView();
    *FSelf = nullptr;
    FDataLink.reset();
    FSfondiDataLink.reset();
    FDBSimbDataLink.reset();
    // Whichever goes first, chart or view: a label that the view has freed reads as none by now.
    FTreatments->Clear();
}

namespace {

void Connect(TDataLink& link, TDataSource* value, TComponent& chart)
{
    if (!(link.DataSourceFixed() && chart.InState(csLoading)))
        link.SetDataSource(value);
    if (value)
        value->FreeNotification(&chart);
}

} // namespace

void TVornIEDBTerList::SetDataSource(TDataSource* value)
{
    Connect(*FDataLink, value, *this);
}

void TVornIEDBTerList::SetDataSourceSfondi(TDataSource* value)
{
    Connect(*FSfondiDataLink, value, *this);
}

void TVornIEDBTerList::SetDataSourceSimb(TDataSource* value)
{
    Connect(*FDBSimbDataLink, value, *this);
}

void TVornIEDBTerList::ActiveChanged()
{
    if (InState(csDestroying))
        return;
    FTreatments->Clear();
    FLayout->SetOffset({});
    if (FDataLink->DataSet())
        CreaCollection();
    else if (DataSource()) // nothing is left to draw, and a dataset that goes can't bear an error
        FDiagnosis->Clear();
}

void TVornIEDBTerList::Reload()
{
    if (!FDataLink->DataSet())
        return;
    TDataSet& dataset = *FDataLink->DataSet();
    if (FTreatments->Current()) {
        if (FTreatments->Current()->FLabel)
            ReadRecord(*FTreatments->Current(), true);
        return;
    }
    // A row that the chart left out and that has come back needs a record of its own.
    const int row = dataset.RowIndex();
    const bool leftOut = row >= 0 && row < FTreatments->Index().RowCount() && !FTreatments->Index().OfRow(row);
    if (leftOut && dataset.FieldByName(u"stato").AsInteger() != StatoNotOnChart)
        CreaCollection();
    else if (!leftOut && !FSettings->ParentField.empty())
        ShowParentGliph(dataset.FieldByName(FSettings->ParentField).AsInteger());
}

void TVornIEDBTerList::Loaded()
{
    TComponent::Loaded();
    const TDataSource* source = DataSourceSfondi();
    if (!source || !source->DataSet() || !source->DataSet()->Active())
        return;
    const TLifeWatch chart(this);
    ActiveChangedSfondi();
    if (!chart.Alive())
        return;
    FLayout->SetOffset({});
    if (FSettings->Enabled)
        CreaCollection();
}

void TVornIEDBTerList::Notification(TComponent* AComponent, TOperation Operation)
{
    TComponent::Notification(AComponent, Operation);
    if (AComponent == this || Operation != TOperation::opRemove)
        return;
    if (InState(csDestroying)) {
        Forget(AComponent);
        return;
    }
    if (AComponent == FSpace->View()) {
        FTreatments->Clear();
        SetContainer(nullptr);
    }
    if (AComponent == DataSource()) {
        FTreatments->Clear();
        SetDataSource(nullptr);
    }
    if (AComponent == DataSourceSimboli())
        SetDataSourceSimb(nullptr);
    if (AComponent == DataSourceSfondi()) {
        FTreatments->Clear();
        FZones->ClearZones();
        SetDataSourceSfondi(nullptr);
    }
    if (AComponent == FSettings->DefaultLabel)
        FTreatments->Clear();
    Forget(AComponent);
}

/// Nothing is rebuilt or freed: an owner that goes frees chart and view in its own order.
void TVornIEDBTerList::Forget(const TComponent* component)
{
    if (component == FSpace->View()) {
        FDiagnosis->TakeOff();
        FVeils->Forget();
        LetGoOfView();
        FSpace->SetView(nullptr);
    }
    FSettings->Forget(component);
    FLabelProp->Forget(component);
}

void TVornIEDBTerList::SetDiagPazVisible(bool Value)
{
    if (!FSpace->View() || FDiagnosis->Visible() == Value)
        return;
    if (Value) {
        FDiagnosis->Ask();
        FLayout->MakeRoomForDiagnosis();
    } else {
        FDiagnosis->Hide();
    }
    FDiagnosis->Save();
}

void TVornIEDBTerList::SetEnabledDib(bool value)
{
    if (value == FSettings->EnabledDib)
        return;
    FSettings->EnabledDib = value;
    if (!FSpace->View())
        return;
    for (int i = FSpace->View()->GetLayersCount() - 1; i > 0; --i)
        if (IsSymbol(FSpace->View()->GetLayer(i)))
            FSpace->View()->GetLayer(i).SetVisible(value);
    ResetSimbPanel();
    FSpace->View()->Update();
}

void TVornIEDBTerList::SetEnabledImg(bool value)
{
    if (value == FSettings->EnabledImg)
        return;
    FTreatments->Clear();
    const TVisit visit(FTreatments->Drawing());
    FSelection->Clear();
    if (!visit.Alive()) // a handler of a label that shares the timer has freed the chart
        return;
    FLayout->SetOffset({});
    // The rebuild looks at the switch, and it is to bring the labels back.
    FSettings->EnabledImg = value;
    if (value)
        CreaCollection();
}

} // namespace vorn
