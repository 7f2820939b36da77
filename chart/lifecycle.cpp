#include "chart/conventions.h"
#include "chart/vorndblabelIE.h"

namespace vorn {

/// What the chart puts into a view's events. Knows its chart, so that the chart can tell its own handlers from the
/// application's, and what was there before. Does nothing once the chart is gone.
struct TVornIEDBTerList::ViewHook {
    std::shared_ptr<TVornIEDBTerList*> Chart;
    TIELayerNotify LayerNotify;
    TMouseEvent MouseUp;
    TCursor Cursor;

    void operator()(TObject* Sender, int layer, TIELayerEvent event) const
    {
        if (auto* chart = *Chart)
            chart->ImageLayerNotify(Sender, layer, event);
    }
    void operator()(TObject* Sender, TShiftState Shift, int X, int Y) const
    {
        if (auto* chart = *Chart)
            chart->ImageEnMouseMove(Sender, Shift, X, Y);
    }
    void operator()(TObject* Sender, TMouseButton Button, TShiftState Shift, int X, int Y) const
    {
        if (auto* chart = *Chart)
            chart->ImageEnMouseUp(Sender, Button, Shift, X, Y);
    }
    void operator()(TObject* Sender, int change) const
    {
        if (auto* chart = *Chart)
            chart->ImageEnViewChange(Sender, change);
    }
    void operator()(TObject* Sender, TObject* Source, int X, int Y, TDragState State, bool& Accept) const
    {
        if (auto* chart = *Chart)
            chart->ImageEnDragOver(Sender, Source, X, Y, State, Accept);
    }
    void operator()(TObject* Sender, TObject* Source, int X, int Y) const
    {
        if (auto* chart = *Chart)
            chart->ImageEnDragDrop(Sender, Source, X, Y);
    }

    /// The chart's own hook in an event, or none.
    template <typename Event>
    static const ViewHook* In(const Event& event, const TVornIEDBTerList* chart)
    {
        const auto* hook = event.template target<ViewHook>();
        return hook && *hook->Chart == chart ? hook : nullptr;
    }
};

TVornIEDBTerList::TVornIEDBTerList(TComponent* AOwner)
    : TComponent(AOwner), FSfondiDataLink(std::make_unique<TDBSfondiDataLink>(this)),
      FDataLink(std::make_unique<TDBVornDataLink>(this)), FDBSimbDataLink(std::make_unique<TDBSimgDataLink>(this)),
      FList(std::make_unique<TObjectList<TVornRec>>()), FZoneList(std::make_unique<TObjectList<TZone>>()),
      FNomiZoneList(std::make_unique<TStringList>()), FLabelProp(std::make_unique<TDRLabelProperties>(*this)),
      FLabelDiagnosi(std::make_unique<TDRLabel>(nullptr)), wd(std::make_unique<TIEBitmap>()),
      InternalPictureContainer(std::make_unique<TIEBitmap>()), listDiagnosi(std::make_unique<TStringList>()),
      FSelf(std::make_shared<TVornIEDBTerList*>(this))
{
    FLabelDiagnosi->Font().SetColor(clRed);
    FLabelDiagnosi->Font().SetSize(12);
    FLabelDiagnosi->Font().SetName(u"Arial");
    FLabelDiagnosi->SetTransparent(true);
}

TVornIEDBTerList::~TVornIEDBTerList()
{
    Destroying();
    UnhookView();
    *FSelf = nullptr;
    wd.reset();
    InternalPictureContainer.reset();
    listDiagnosi.reset();
    FDataLink.reset();
    FSfondiDataLink.reset();
    FDBSimbDataLink.reset();
    // Whichever goes first, chart or view: a label that the view has freed reads as none by now.
    ClearRecords();
}

void TVornIEDBTerList::ClearRecords()
{
    FCurDib = nullptr;
    ++FRebuilds;
    FIndex.Clear();
    FList->Clear();
}

void TVornIEDBTerList::ClearSelection()
{
    if (!FLabel)
        return;
    if (TDRLabelTimer* timer = FLabel->BTimer())
        timer->Clear();
}

void TVornIEDBTerList::SetContainer(TImageEnView* value)
{
    if (value != FContainer) {
        HidePalette(); // it lies on the view that goes
        FListZoneMancanti.clear();
    }
    FContainer = value;
    FOnLayerNotify = nullptr;
    if (!value) {
        FLabelDiagnosi->SetParent(nullptr); // a view frees its children when it goes
        return;
    }
    value->FreeNotification(this);
    if (!InState(csDesigning))
        HookView();
}

void TVornIEDBTerList::HookView()
{
    TControl::TMouseEvents& events = FContainer->Events();
    ViewHook hook{FSelf, FContainer->OnLayerNotify, events.OnMouseUp, FContainer->Cursor()};
    // A view that carries this chart's handlers already is not chained to itself.
    if (const ViewHook* own = ViewHook::In(FContainer->OnLayerNotify, this))
        hook.LayerNotify = own->LayerNotify;
    if (const ViewHook* own = ViewHook::In(events.OnMouseUp, this)) {
        hook.MouseUp = own->MouseUp;
        hook.Cursor = own->Cursor;
    }
    FOnLayerNotify = hook.LayerNotify;
    fOldMouseUp = hook.MouseUp;
    oldCursor = hook.Cursor;

    FContainer->OnLayerNotify = hook;
    FContainer->SetMouseInteract(miMoveLayers);
    FContainer->SetZoomFilter(TResampleFilter::rfNone);
    events.OnDragOver = hook;
    events.OnDragDrop = hook;
    events.OnMouseMove = hook;
    FContainer->OnViewChange = hook;
    events.OnMouseUp = hook;
    FLabelDiagnosi->SetParent(FContainer);
    FLabelDiagnosi->SetVisible(false);
    FLabelDiagnosi->OnSavePosEvent = [this](TObject* Sender) { SaveXYDRLabel(Sender); };
}

void TVornIEDBTerList::UnhookView()
{
    if (!FContainer || FContainer->InState(csDestroying))
        return;
    TControl::TMouseEvents& events = FContainer->Events();
    if (ViewHook::In(FContainer->OnLayerNotify, this))
        FContainer->OnLayerNotify = FOnLayerNotify;
    if (ViewHook::In(events.OnDragOver, this))
        events.OnDragOver = nullptr;
    if (ViewHook::In(events.OnDragDrop, this))
        events.OnDragDrop = nullptr;
    if (ViewHook::In(events.OnMouseMove, this))
        events.OnMouseMove = nullptr;
    if (ViewHook::In(FContainer->OnViewChange, this))
        FContainer->OnViewChange = nullptr;
    if (ViewHook::In(events.OnMouseUp, this))
        events.OnMouseUp = fOldMouseUp;
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

void TVornIEDBTerList::SetDiagnosiPoint(const TPoint& value)
{
    FLabelDiagnosi->SetLeft(value.X);
    FLabelDiagnosi->SetTop(value.Y);
}

void TVornIEDBTerList::ActiveChanged()
{
    if (InState(csDestroying))
        return;
    ClearRecords();
    SetOffsetX(0);
    SetOffsetY(0);
    if (DataSource())
        CreaCollection();
}

void TVornIEDBTerList::Reload()
{
    if (!FDataLink->DataSet())
        return;
    TDataSet& dataset = *FDataLink->DataSet();
    if (FCurDib) {
        if (FCurDib->FLabel)
            ReadRecord(*FCurDib, true);
        return;
    }
    // A row that the chart left out and that has come back needs a record of its own.
    const int row = dataset.RowIndex();
    const bool leftOut = row >= 0 && row < FIndex.RowCount() && !FIndex.OfRow(row);
    if (leftOut && dataset.FieldByName(u"stato").AsInteger() != StatoNotOnChart)
        CreaCollection();
    else if (!leftOut && !FParentField.empty())
        ShowParentGliph(dataset.FieldByName(FParentField).AsInteger());
}

void TVornIEDBTerList::Loaded()
{
    TComponent::Loaded();
    const TDataSource* source = DataSourceSfondi();
    if (!source || !source->DataSet() || !source->DataSet()->Active())
        return;
    const auto self = FSelf;
    ActiveChangedSfondi();
    if (!*self)
        return;
    SetOffsetX(0);
    SetOffsetY(0);
    if (FEnabled)
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
    if (AComponent == FContainer) {
        ClearRecords();
        SetContainer(nullptr);
    }
    if (AComponent == DataSource()) {
        ClearRecords();
        SetDataSource(nullptr);
    }
    if (AComponent == DataSourceSimboli())
        SetDataSourceSimb(nullptr);
    if (AComponent == DataSourceSfondi()) {
        ClearRecords();
        ClearZones();
        SetDataSourceSfondi(nullptr);
    }
    if (AComponent == FLabel)
        ClearRecords();
    Forget(AComponent);
}

/// Nothing is rebuilt or freed: an owner that goes frees chart and view in its own order.
void TVornIEDBTerList::Forget(const TComponent* component)
{
    if (component == FContainer) {
        FLabelDiagnosi->SetParent(nullptr); // a view frees its children
        FListZoneMancanti.clear();
        FContainer = nullptr;
    }
    for (TDataSource** source : {&FMViewDibDataset, &FDSDiagnosi, &FDSCart})
        if (component == *source)
            *source = nullptr;
    if (component == FLabel)
        FLabel = nullptr;
    if (component == FDSASpetto)
        FDSASpetto = nullptr;
    FLabelProp->Forget(component);
}

void TVornIEDBTerList::SetEnabledDib(bool value)
{
    if (value == FEnabledDib)
        return;
    FEnabledDib = value;
    if (!FContainer)
        return;
    for (int i = FContainer->GetLayersCount() - 1; i > 0; --i)
        if (IsSymbol(FContainer->GetLayer(i)))
            FContainer->GetLayer(i).SetVisible(value);
    FContainer->SetLayersCurrent(0);
    FContainer->Update();
}

void TVornIEDBTerList::SetEnabledImg(bool value)
{
    if (value == FEnabledImg)
        return;
    ClearRecords();
    ClearSelection();
    SetOffsetX(0);
    SetOffsetY(0);
    // The rebuild looks at the switch, and it is to bring the labels back.
    FEnabledImg = value;
    if (value)
        CreaCollection();
}

} // namespace vorn
