#include "tests/support/chart_fixture.h"

#include "platform/controls/application.h"

namespace vorn {
namespace {

using namespace test;

class Lifecycle : public ChartFixture {
protected:
    Lifecycle()
    {
        ShowTreatments({{.Id = 1}, {.Id = 2, .Padre = 1}, {.Id = 3, .Dente = u"12"}});
        ClickLabel(3);
    }
    template <typename T>
    void Free(T*& component)
    {
        delete std::exchange(component, nullptr);
    }
};

TEST(BareChart, HasNothingToActOn)
{
    TVornIEDBTerList chart(nullptr);
    chart.CreaCollection();
    chart.ActiveChanged();
    chart.ActiveChangedSfondi();
    chart.AdjustBounds();
    chart.ZoomIn();
    chart.ResetSelection();
    chart.SetSelectionFatto();
    chart.AddToSelection(1);
    chart.Reload();
    chart.ScrollByBegin(0);
    chart.SetEnabledImg(false);
    chart.SetEnabledDib(false);
    chart.Loaded();
    EXPECT_EQ(chart.ListVornRec().Count(), 0);
    EXPECT_FALSE(chart.FindRecord(u"", u""));
}

TEST_F(Lifecycle, TheChartGoesFirst)
{
    const TLifeWatch label(Label(1));
    Free(chart);
    EXPECT_FALSE(label.Alive());
    EXPECT_EQ(view->ControlCount(), 0) << "nothing of the chart's stays on the view";
    EXPECT_EQ(Selected(), std::vector<int>());
    treatments->Last();
    backgrounds->Refresh();
    ClickView({20, 20});
    treatments->Close();
}

TEST_F(Lifecycle, TheViewGoesFirst)
{
    Free(view);
    EXPECT_EQ(chart->Container(), nullptr);
    EXPECT_EQ(chart->ListVornRec().Count(), 0);
    EXPECT_EQ(CurrentKey(), -1);
    treatments->First();
    treatments->Refresh();
    backgrounds->Refresh();
    chart->ZoomIn();
    chart->SetDiagnosiPoint({1, 2});
    EXPECT_EQ(chart->DiagnosiPoint(), (TPoint{1, 2}));
}

TEST_F(Lifecycle, EachSourceMayGoWhileTheChartRuns)
{
    Free(treatmentsSource);
    EXPECT_EQ(chart->DataSource(), nullptr);
    EXPECT_EQ(chart->ListVornRec().Count(), 0);
    EXPECT_EQ(CurrentKey(), -1);
    chart->CreaCollection();
    Free(backgroundsSource);
    EXPECT_EQ(chart->DataSourceSfondi(), nullptr);
    EXPECT_EQ(chart->ZoneList().Count(), 0);
    Free(appearanceSource);
    EXPECT_EQ(chart->DataSourceAspetto(), nullptr);
    Free(operatorsSource);
    EXPECT_EQ(chart->LabelProp().DSOperatori(), nullptr);
    Free(typesSource);
    EXPECT_EQ(chart->LabelProp().DSTipologie(), nullptr);
    chart->CreaCollection();
}

TEST_F(Lifecycle, ADatasetMayGoWhileTheChartRuns)
{
    Free(treatments);
    EXPECT_EQ(chart->ListVornRec().Count(), 0);
    Free(backgrounds);
    EXPECT_EQ(chart->ZoneList().Count(), 0);
    Free(appearance);
    chart->CreaCollection();
}

TEST_F(Lifecycle, WithoutADatasetNothingIsRebuilt)
{
    appearance->Close();
    view->LayersAdd(3, 3, 0, 0);
    Free(treatments); // what a rebuild raised would end the process here
    EXPECT_EQ(chart->ListVornRec().Count(), 0);
    EXPECT_EQ(CurrentKey(), -1);
    EXPECT_FALSE(appearance->Active());
    EXPECT_EQ(view->GetLayersCount(), 2);
}

TEST_F(Lifecycle, RemovingTheTemplateTakesTheLabelsAndTheNextOnesHaveNone)
{
    Free(look);
    EXPECT_EQ(chart->DefaultLabel(), nullptr);
    EXPECT_EQ(chart->ListVornRec().Count(), 0);
    EXPECT_EQ(CurrentKey(), -1);
    chart->CreaCollection();
    EXPECT_EQ(Labels(), (std::vector<int>{1, 3}));
    EXPECT_EQ(Label(1)->BTimer(), nullptr);
    ClickLabel(1);
    treatments->First();
    chart->SetSelectionFatto();
}

TEST_F(Lifecycle, TheTimerMayGoWithLabelsSelected)
{
    Free(timer);
    ClickLabel(1);
    treatments->First();
    chart->ResetSelection();
    chart->SetSelectionFatto();
    chart->CreaCollection();
    EXPECT_EQ(Labels(), (std::vector<int>{1, 3}));
}

/// What the application has on the view's events.
class ViewEvents : public Lifecycle {
protected:
    void HookApplication()
    {
        chart->SetContainer(nullptr);
        Free(chart);
        chart = new TVornIEDBTerList(root.get());
        view->OnLayerNotify = [this](TObject*, int, TIELayerEvent) { ++layers; };
        view->Events().OnMouseUp = [this](TObject*, TMouseButton, TShiftState, int, int) { ++ups; };
        chart->SetContainer(view);
        chart->SetDataSourceSfondi(backgroundsSource);
    }
    void ExpectChainedOnce()
    {
        ups = layers = 0;
        ClickView({20, 20});
        EXPECT_EQ(ups, 0) << "a zone keeps the click";
        ClickView({100, 100});
        EXPECT_EQ(ups, 1);
        layers = 0; // clicks tell of the layer below them
        view->OnLayerNotify(view, 0, TIELayerEvent::ielResized);
        EXPECT_EQ(layers, 1);
    }
    int layers = 0;
    int ups = 0;
};

TEST_F(ViewEvents, AreChainedOnceHoweverOftenTheViewIsGiven)
{
    HookApplication();
    ExpectChainedOnce();
    chart->SetContainer(view);
    ExpectChainedOnce();
    chart->SetContainer(nullptr);
    ClickView({20, 20});
    view->Events().OnMouseMove(view, 0, 20, 20);
    view->OnLayerNotify(view, 0, TIELayerEvent::ielResized);
    chart->SetContainer(view);
    chart->ActiveChangedSfondi();
    ExpectChainedOnce();
    view->LayersAdd(3, 3, 0, 0);
    view->SetLayersCurrent(1);
    view->Events().OnMouseUp(view, TMouseButton::mbLeft, 0, 100, 100);
    EXPECT_EQ(ups, 1) << "another layer is current";
}

TEST_F(ViewEvents, AChartThatGoesGivesThemBack)
{
    HookApplication();
    Free(chart);
    ClickView({20, 20});
    EXPECT_EQ(ups, 1);
    layers = 0;
    view->OnLayerNotify(view, 0, TIELayerEvent::ielResized);
    EXPECT_EQ(layers, 1);
}

/// The application's handler, or none, in each of the six events of a view.
struct SixEvents {
    explicit SixEvents(TImageEnView& on) : view(on)
    {
        auto& events = on.Events();
        on.OnLayerNotify = [this](auto&&...) { log += 'l'; };
        events.OnDragOver = [this](auto&&...) { log += 'o'; };
        events.OnDragDrop = [this](auto&&...) { log += 'd'; };
        events.OnMouseMove = [this](auto&&...) { log += 'm'; };
        on.OnViewChange = [this](auto&&...) { log += 'v'; };
        events.OnMouseUp = [this](auto&&...) { log += 'u'; };
    }
    /// Which of them are reached when all events are raised.
    std::string Raised()
    {
        log.clear();
        bool accept = false;
        auto& events = view.Events();
        Raise(view.OnLayerNotify, &view, 0, TIELayerEvent::ielResized);
        Raise(events.OnDragOver, &view, nullptr, 100, 100, TDragState::dsDragMove, accept);
        Raise(events.OnDragDrop, &view, nullptr, 100, 100);
        Raise(events.OnMouseMove, &view, 0, 100, 100);
        Raise(view.OnViewChange, &view, 0);
        Raise(events.OnMouseUp, &view, TMouseButton::mbLeft, 0, 100, 100);
        return log;
    }
    /// Puts a handler around the one that stands in an event.
    template <typename Event>
    void Wrap(Event& event)
    {
        event = [this, before = event](auto&&... args) {
            log += 'w';
            before(args...);
        };
    }
    TImageEnView& view;
    std::string log;
};

TEST(BareChart, HooksThatNoLongerCountCallWhatWasThereBefore)
{
    TImageEnView first(nullptr);
    TImageEnView second(nullptr);
    SixEvents onFirst(first);
    SixEvents onSecond(second);
    auto* lent = new TVornIEDBTerList(nullptr);
    lent->SetContainer(&first);
    EXPECT_EQ(onFirst.Raised(), "lu");
    onFirst.Wrap(first.Events().OnMouseUp);
    onFirst.Wrap(first.OnLayerNotify);
    for (int i = 0; i < 3; ++i) {
        lent->SetContainer(&first); // the chart's own hook is inside the application's handler now
        EXPECT_EQ(onFirst.Raised(), "wlwu");
    }
    lent->SetContainer(&second);
    EXPECT_EQ(onFirst.Raised(), "wlodmvwu");
    EXPECT_EQ(onSecond.Raised(), "lu");
    lent->SetContainer(nullptr);
    EXPECT_EQ(onSecond.Raised(), "lodmvu");
    lent->SetContainer(&first);
    EXPECT_EQ(onFirst.Raised(), "wlwu");
    TVornIEDBTerList other(nullptr);
    other.SetContainer(&second);
    onSecond.Wrap(second.Events().OnMouseMove);
    lent->SetContainer(&second); // two charts on one view: the later one comes first
    EXPECT_EQ(onSecond.Raised(), "lu");
    delete lent;
    EXPECT_EQ(onFirst.Raised(), "wlodmvwu");
    EXPECT_EQ(onSecond.Raised(), "lwu");
    other.SetContainer(nullptr);
    EXPECT_EQ(onSecond.Raised(), "lodwmvu");
}

TEST_F(ViewEvents, AtDesignTimeTheViewIsLeftAlone)
{
    TVornIEDBTerList designed(nullptr);
    TImageEnView bare(nullptr);
    designed.SetDesigning(true);
    designed.SetContainer(&bare);
    EXPECT_EQ(designed.Container(), &bare);
    EXPECT_FALSE(bare.OnLayerNotify || bare.OnViewChange || bare.Events().OnMouseUp || bare.Events().OnMouseMove);
    EXPECT_EQ(bare.MouseInteract(), 0u);
    EXPECT_EQ(bare.ControlCount(), 0);
}

TEST_F(Lifecycle, AChartFromAFormBuildsItsFirstPictureWhenTheFormIsComplete)
{
    ShowTreatments({{.Id = 1}});
    delete chart;
    chart = new TVornIEDBTerList(root.get());
    chart->SetLoading(true);
    chart->SetKeyField(u"ID");
    chart->SetParentField(u"PADRE");
    chart->SetDataSource(treatmentsSource);
    chart->SetDataSourceSfondi(backgroundsSource);
    chart->SetContainer(view);
    ASSERT_EQ(Labels(), std::vector<int>());
    chart->Loaded();
    EXPECT_EQ(chart->ZoneList().Count(), 5);
    EXPECT_EQ(Labels(), std::vector<int>{1});
    EXPECT_EQ(CurrentKey(), 1);
    const TLifeWatch label(Label(1));
    treatments->Refresh();
    EXPECT_TRUE(label.Alive()) << "the window holds the rows already";
}

} // namespace
} // namespace vorn
