#include "symbol_tools/vornSimbModify.h"
#include "tests/support/database_file.h"
#include "tests/support/mouse.h"
#include "tests/support/reported_exceptions.h"
#include "tests/support/symbol_fixture.h"

namespace vorn {
namespace {

using namespace test;
using enum TIELayerEvent;

class SymbolSaving : public SymbolFixture {
protected:
    SymbolSaving()
    {
        ShowPlacements({{.Key = 1, .X = 30, .Y = 20}, {.Key = 2, .Id = 2, .X = 100, .Y = 60, .Scale = 0}});
    }

    TPoint Place(int n) const { return {Layer(n).GetPosX(), Layer(n).GetPosY()}; }
    TPoint Stored(int key) { return {Int(key, u"X"), Int(key, u"Y")}; }
    bool PaletteShown() const { return vornSimbModifyFrm && vornSimbModifyFrm->Visible(); }
    TPoint PalettePlace() const { return {vornSimbModifyFrm->Left(), vornSimbModifyFrm->Top()}; }
    /// Counts what is posted from now on.
    void CountPosts()
    {
        posts = 0;
        placements->BeforePost = [this](TDataSet*) { ++posts; };
    }
    /// The application's layer events, which the chart passes on.
    void ListenToLayers()
    {
        view->OnLayerNotify = [this](TObject*, int layer, TIELayerEvent event) {
            heard += std::to_string(layer) + ":" + std::to_string(static_cast<int>(event)) + " ";
        };
        chart->SetContainer(nullptr);
        chart->SetContainer(view);
    }

    int posts = 0;
    std::string heard;
};

TEST_F(SymbolSaving, EachEventWritesItsColumns)
{
    const struct {
        int Event;
        int X, Y, Angle;
        double Scale;
    } cases[]
        = {{0, 30, 20, 7, 90}, {1, 55, 26, 7, 90}, {2, 55, 26, 7, 250}, {3, 30, 20, 7, 90}, {6, 30, 20, -315, 90}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Event);
        ShowPlacements({{.Key = 1, .X = 30, .Y = 20, .Angle = 7, .Scale = 90}});
        chart->SetOffsetX(25);
        chart->SetOffsetY(-4);
        chart->SalvaCurrentLayerDib(static_cast<TIELayerEvent>(c.Event), false); // the picture is current
        EXPECT_EQ(Stored(1), (TPoint{30, 20}));
        view->SetLayersCurrent(1);
        TIELayer& layer = Layer(0);
        layer.SetPosX(30);
        layer.SetPosY(30);
        layer.SetWidth(50);
        layer.SetHeight(1);
        layer.SetRotate(315.2);
        layer.SetOpacity(-5);
        CountPosts();
        chart->SalvaCurrentLayerDib(static_cast<TIELayerEvent>(c.Event), false);
        EXPECT_EQ(posts, 1);
        EXPECT_EQ(Stored(1), (TPoint{c.X, c.Y}));
        EXPECT_EQ(Int(1, u"Angle"), c.Angle);
        EXPECT_EQ(Rec(0).Angle, c.Angle);
        EXPECT_EQ(Cell(1, u"Scale"), TValue(c.Scale));
        EXPECT_EQ(Rec(0).Scale, static_cast<int>(c.Scale));
        EXPECT_EQ(Int(1, u"Opacity"), -5);
        EXPECT_EQ(view->LayersCurrent(), 1) << "nothing is rebuilt";
    }
}

TEST_F(SymbolSaving, TiesGoToTheEvenInteger)
{
    view->SetLayersCurrent(2); // 40 pixels wide
    for (const auto& [width, percent] :
        {std::pair(25, 62), {35, 88}, {41, 102}, {43, 108}, {0, 0}, {4000000, 10000000}}) {
        Layer(1).SetWidth(width);
        chart->SalvaCurrentLayerDib(ielResized, false);
        EXPECT_EQ(Cell(2, u"Scale"), TValue(double(percent))) << width;
    }
    for (const auto& [rotation, angle] : {std::pair(0.5, 0), {1.5, -2}, {-2.5, 2}, {-3.5, 4}, {7200000.0, -7200000}}) {
        Layer(1).SetRotate(rotation);
        chart->SalvaCurrentLayerDib(ielRotated, false);
        EXPECT_EQ(Int(2, u"Angle"), angle) << rotation;
    }
}

TEST_F(SymbolSaving, AClickSavesNothingAndADragOnce)
{
    ListenToLayers();
    CountPosts();
    Pick(0);
    EXPECT_EQ(heard, "1:0 ") << "the move event of a click isn't passed on";
    EXPECT_EQ(posts, 0);
    DragSymbol(0, 17, 30);
    EXPECT_EQ(heard, "1:0 1:0 1:1 ");
    EXPECT_EQ(posts, 1);
    EXPECT_EQ(Stored(1), (TPoint{47, 50}));
    Pick(0);
    EXPECT_EQ(posts, 1) << "not again";

    chart->SetOffsetX(-10);
    for (int i = 0; i < 10; ++i)
        chart->ZoomIn();
    DragSymbol(0, 40, -20);
    EXPECT_EQ(Stored(1), (TPoint{67, 40})) << "half the way at double size, and the offset counts once";
    ExpectNothingHalfDone();
}

TEST_F(SymbolSaving, ThePressHitsTheTrueOutlineOfTheTopmost)
{
    ShowPlacements({{.Key = 1, .Id = 2, .X = 10, .Y = 10},
        {.Key = 2, .Id = 2, .X = 30, .Y = 30, .Opacity = std::int64_t{0}},
        {.Key = 3, .Id = 2, .X = 100, .Y = 20, .Angle = 45}, {.Key = 4, .X = 10, .Y = 100, .Angle = 90, .Scale = 300}});
    const struct {
        TPoint At;
        int Layer;
    } cases[] = {{{12, 12}, 1}, {{35, 35}, 2}, {{69, 69}, 2}, {{70, 70}, 0}, {{29, 45}, 1}, {{102, 22}, 0},
        {{120, 13}, 3}, {{94, 40}, 3}, {{120, 40}, 3}, {{12, 115}, 0}, {{40, 88}, 4}, {{40, 143}, 4}, {{24, 115}, 0},
        {{26, 115}, 4}};
    for (const auto& c : cases) {
        ClickView(c.At);
        EXPECT_EQ(view->LayersCurrent(), c.Layer) << testing::PrintToString(c.At);
    }
}

TEST_F(SymbolSaving, ThePaletteFollowsTheSelection)
{
    EXPECT_EQ(vornSimbModifyFrm, nullptr) << "made when it is first needed";
    ListenToLayers();
    ClickView({1, 1});
    EXPECT_EQ(heard, "0:0 ");
    EXPECT_EQ(vornSimbModifyFrm, nullptr);
    Pick(1);
    ASSERT_TRUE(PaletteShown());
    EXPECT_EQ(vornSimbModifyFrm->Parent(), view);
    EXPECT_EQ(vornSimbModifyFrm->VornIEDBTerList1, chart);
    EXPECT_EQ(PalettePlace(), (TPoint{150, 60}));
    Pick(0);
    EXPECT_EQ(PalettePlace(), (TPoint{60, 20}));
    DragSymbol(0, 5, 6);
    EXPECT_EQ(PalettePlace(), (TPoint{65, 26}));

    ShowTreatments({{.Id = 1}});
    TMemoryDataSet* record = NewTable(u"cartella", {{u"Mancanti", TFieldType::ftString}});
    record->AddRow({String(u"1")});
    record->Open();
    auto* source = new TDataSource(root.get());
    source->SetDataSet(record);
    chart->SetDataSourceCartella(source);
    const TvornSimbModifyFrm* palette = vornSimbModifyFrm;
    const std::pair<const char*, std::function<void()>> hiding[] = {{"a press beside",
                                                                        [this] {
                                                                            ClickView({1, 1});
                                                                        }},
        {"zoom", [this] { chart->ZoomIn(); }}, {"zoom back", [this] { chart->ZoomReset(); }},
        {"a label", [this] { ClickLabel(1); }}, {"rebuild", [this] { chart->ActiveChangedSimboli(); }},
        {"full rebuild", [this] { chart->CreaCollection(); }},
        {"another view",
            [this] { chart->SetContainer(nullptr), view->SetLayersCurrent(0), chart->SetContainer(view); }},
        {"veils", [this] { chart->ZoneMancanti(); }},
        {"backgrounds opened anew", [this] { backgrounds->Close(), backgrounds->Open(); }},
        {"symbols switched off", [this] { chart->SetEnabledDib(false); }}};
    for (const auto& [name, hide] : hiding) {
        SCOPED_TRACE(name);
        Pick(0);
        EXPECT_TRUE(PaletteShown());
        EXPECT_EQ(vornSimbModifyFrm, palette);
        hide();
        EXPECT_FALSE(PaletteShown());
        EXPECT_EQ(view->LayersCurrent(), 0);
    }
    chart->SetEnabledDib(true);
    for (int i = 0; i < 10; ++i)
        chart->ZoomIn();
    Pick(1);
    EXPECT_EQ(PalettePlace(), (TPoint{290, 120})) << "beside the symbol as it is shown";
    DragSymbol(1, 20, -10);
    EXPECT_EQ(PalettePlace(), (TPoint{310, 110}));
    Layer(1).SetRotate(45);
    DragSymbol(1, 20, 0);
    EXPECT_EQ(PalettePlace(), (TPoint{Layer(1).Box().Right + 10, Layer(1).Box().Top}));
    view->SetLayersCurrent(0);
    CountPosts();
    for (TAction* action : {vornSimbModifyFrm->Action1, vornSimbModifyFrm->Action6, vornSimbModifyFrm->Action9})
        action->OnExecute(action);
    EXPECT_EQ(posts, 0) << "no symbol is current";
    EXPECT_EQ(placements->RecordCount(), 2);
}

TEST_F(SymbolSaving, TheLastSymbolIsSelectedLikeByHand)
{
    ListenToLayers();
    chart->SelectLastDib();
    EXPECT_EQ(heard, "2:0 ");
    EXPECT_EQ(view->LayersCurrent(), 2);
    EXPECT_TRUE(PaletteShown());
    ShowPlacements({});
    chart->SelectLastDib();
    EXPECT_EQ(heard, "2:0 0:0 ");
    EXPECT_FALSE(PaletteShown());
}

TEST_F(SymbolSaving, ARowThatIsGoneIsPassedOver)
{
    Mouse mouse;
    mouse.Press(*view, Middle(0));
    mouse.MoveBy(9, 9);
    {
        const TControlsDisabled silent(*placements);
        placements->First();
        placements->Delete();
        mouse.ReleaseThere(); // the chart doesn't know yet
        EXPECT_EQ(placements->RecordCount(), 1);
        EXPECT_EQ(Stored(2), (TPoint{100, 60}));
        view->SetLayersCurrent(1);
        chart->SalvaCurrentDibReset();
        chart->SalvaCurrentLayerDib(ielSelected, true);
        EXPECT_EQ(placements->RecordCount(), 1);
    }
    EXPECT_EQ(Symbols(), 1);

    mouse.Press(*view, Middle(0));
    placements->Delete(); // the rebuild takes the layer out of the user's hand
    mouse.MoveBy(9, 9);
    mouse.ReleaseThere();
    EXPECT_EQ(Symbols(), 0);
    EXPECT_EQ((TPoint{view->GetLayer(0).GetPosX(), view->GetLayer(0).GetPosY()}), (TPoint{0, 0}));
    ExpectNothingHalfDone();
}

TEST_F(SymbolSaving, AResetTakesRowAndLayerBack)
{
    ShowPlacements({{.Key = 1, .X = 30, .Y = 20, .Angle = 45, .Scale = 150, .Opacity = std::int64_t{9}}});
    view->SetLayersCurrent(1);
    chart->SalvaCurrentDibReset();
    EXPECT_EQ(Cell(1, u"Scale"), TValue(100.0));
    EXPECT_EQ(Int(1, u"Angle"), 0);
    EXPECT_EQ(Int(1, u"Opacity"), 255);
    EXPECT_EQ(Stored(1), (TPoint{30, 20}));
    EXPECT_EQ(Layer(0).ChartBox(), (TRect{30, 20, 50, 30}));
    EXPECT_EQ(Layer(0).Opacity(), 255);
    EXPECT_EQ(Rec(0).Scale, 100);
    EXPECT_EQ(view->LayersCurrent(), 1);
}

TEST_F(SymbolSaving, ARefusedPostLeavesTheRowAndNoEdit)
{
    const std::pair<const char*, std::function<std::function<void()>()>> refusals[] = {
        {"handler",
            [this] {
                placements->BeforePost = [](TDataSet*) { throw EDatabaseError(u"refused"); };
                return [this] { placements->BeforePost = nullptr; };
            }},
        {"read-only",
            [this] {
                placements->SetReadOnly(true);
                return [this] { placements->SetReadOnly(false); };
            }},
        {"trigger",
            [this] {
                ShowSqlPlacements({{.Key = 1, .X = 30, .Y = 20, .Opacity = std::int64_t{200}}},
                    {u"CREATE TRIGGER no BEFORE UPDATE ON simboli BEGIN SELECT RAISE(ABORT, 'refused'); "
                     u"END"});
                return [this] { ExecuteOnFile(DatabaseFile(), {u"DROP TRIGGER no"}); };
            }},
    };
    for (const auto& [name, refuse] : refusals) {
        SCOPED_TRACE(name);
        const std::function<void()> allow = refuse();
        {
            const ReportedExceptions reported;
            DragSymbol(0, 10, 10);
            EXPECT_EQ(reported.Texts().size(), 1u);
        }
        EXPECT_EQ(Stored(1), (TPoint{30, 20}));
        ExpectNothingHalfDone();
        view->SetLayersCurrent(1);
        EXPECT_THROW(chart->SalvaCurrentDibReset(), EDatabaseError);
        ExpectNothingHalfDone();
        allow();
        DragSymbol(0, 1, 1);
        EXPECT_EQ(Stored(1), (TPoint{41, 31})) << "where the layer is";
        ShowPlacements({{.Key = 1, .X = 30, .Y = 20}});
    }
    ShowPlacements({{.Key = 1, .X = 30, .Y = 20}}, u"simb_id");
    const ReportedExceptions reported;
    DragSymbol(0, 10, 10);
    EXPECT_EQ(reported.Texts().size(), 1u) << "without a key there is no way back to the row";
}

TEST_F(SymbolSaving, ADeletedPlacementTakesItsLayerAlong)
{
    ShowSqlPlacements({{.Key = 3, .X = 5, .Y = 5}, {.Key = 8, .Id = 2, .X = 100, .Y = 60}});
    Pick(1);
    vornSimbModifyFrm->Action6->OnExecute(vornSimbModifyFrm->Action6);
    ASSERT_EQ(Symbols(), 1);
    EXPECT_EQ(Rec(0).key, 3);
    EXPECT_EQ(view->LayersCurrent(), 0);
    EXPECT_FALSE(PaletteShown());
}

TEST_F(SymbolSaving, TwoChartsShareThePalette)
{
    auto* otherView = new TImageEnView(root.get());
    auto* other = new TVornIEDBTerList(root.get());
    auto* source = new TDataSource(root.get());
    source->SetDataSet(placements);
    other->SetContainer(otherView);
    other->SetMViewDibDS(catalogueSource);
    other->SetDataSourceSimb(source);
    Pick(0);
    Mouse().Click(*otherView, {110, 70});
    EXPECT_EQ(otherView->LayersCurrent(), 2);
    EXPECT_EQ(vornSimbModifyFrm->Parent(), otherView);
    EXPECT_EQ(vornSimbModifyFrm->VornIEDBTerList1, other);
    delete chart;
    ASSERT_TRUE(PaletteShown()) << "it belongs to the chart that took it over";
    vornSimbModifyFrm->Action1->OnExecute(vornSimbModifyFrm->Action1);
    EXPECT_EQ(Int(2, u"Angle"), -1);
    delete other;
    EXPECT_EQ(vornSimbModifyFrm, nullptr);
    delete otherView;
}

/// A handler inside a drag, a delete and a reset frees chart or view, or changes the rows.
TEST_F(SymbolSaving, HandlersMayDoWhatTheyLike)
{
    const std::pair<const char*, std::function<void()>> deeds[] = {
        {"free chart", [this] { delete std::exchange(chart, nullptr); }},
        {"free view", [this] { delete std::exchange(view, nullptr); }},
        {"take view", [this] { chart->SetContainer(nullptr); }},
        {"rebuild", [this] { chart->CreaCollection(); }},
        {"close", [this] { placements->Close(); }},
        {"disconnect", [this] { chart->SetDataSourceSimb(nullptr); }},
        {"free palette", [] { delete vornSimbModifyFrm; }},
    };
    using Hook = TDataSetNotifyEvent TDataSet::*;
    const std::pair<const char*, Hook> hooks[] = {{"AfterEdit", &TDataSet::AfterEdit},
        {"BeforePost", &TDataSet::BeforePost}, {"AfterPost", &TDataSet::AfterPost},
        {"AfterScroll", &TDataSet::AfterScroll}, {"AfterDelete", &TDataSet::AfterDelete}};
    for (const auto& [where, hook] : hooks)
        for (const auto& [what, deed] : deeds)
            for (const int way : {0, 1, 2}) {
                SCOPED_TRACE(std::string(what) + " in " + where + " by way " + std::to_string(way));
                Renew();
                ShowPlacements({{.Key = 1, .X = 30, .Y = 20}, {.Key = 2}});
                chart->CreaCollection();
                Pick(0);
                bool done = false;
                placements->*hook = [&](TDataSet*) {
                    if (!std::exchange(done, true))
                        deed();
                };
                const ReportedExceptions reported;
                try {
                    if (way == 0)
                        DragSymbol(0, 10, 10);
                    else if (way == 1)
                        chart->SalvaCurrentDibReset();
                    else
                        chart->SalvaCurrentLayerDib(ielSelected, true);
                } catch (const Exception&) { // such as: the dataset is closed
                }
                placements->*hook = nullptr;
                EXPECT_FALSE(placements->ControlsDisabled());
                EXPECT_NE(placements->State(), TDataSetState::dsEdit);
                EXPECT_TRUE(!view || !view->UpdateLocked());
            }
}

TEST_F(SymbolSaving, TheApplicationMayFreeTheChartInItsLayerHandler)
{
    view->OnLayerNotify = [this](TObject*, int, TIELayerEvent event) {
        if (event == ielMoved)
            delete std::exchange(chart, nullptr);
    };
    chart->SetContainer(nullptr);
    chart->SetContainer(view);
    DragSymbol(0, 10, 10);
    EXPECT_EQ(chart, nullptr);
    EXPECT_EQ(vornSimbModifyFrm, nullptr);
    EXPECT_EQ(Stored(1), (TPoint{40, 30}));
}

} // namespace
} // namespace vorn
