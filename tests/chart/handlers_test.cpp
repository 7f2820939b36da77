#include "tests/support/chart_fixture.h"

namespace vorn {
namespace {

using namespace test;

/// What applications do inside the events of chart and datasets.
class Handlers : public ChartFixture {
protected:
    Handlers()
    {
        ShowTreatments({{.Id = 1, .Aspetto = u"VER"}, {.Id = 2, .Dente = u"12"}, {.Id = 3, .Dente = u"21"}});
        chart->SetRiposizionaPrestazioni(true);
        chart->SetShowDragPrestazioni(true);
        chart->CreaCollection();
    }
    using Keys = std::vector<int>;
};

TEST_F(Handlers, AnOwnerFreesTheViewBeforeTheChart)
{
    // The chart is older than the view, and its owner frees the youngest first.
    TComponent form;
    auto* older = new TVornIEDBTerList(&form);
    auto* younger = new TImageEnView(&form);
    auto* pattern = new TDRLabel(&form);
    older->SetKeyField(u"ID");
    older->SetParentField(u"PADRE");
    older->SetDefaultLabel(pattern);
    older->SetContainer(younger);
    older->SetDataSourceSfondi(backgroundsSource);
    older->SetDataSource(treatmentsSource);
    ASSERT_EQ(older->ListVornRec().Count(), 3);
}

TEST_F(Handlers, DoneMarksDontStartInsideASelection)
{
    chart->OnSingleSelect = [this](TObject*) { chart->SetSelectionFatto(); };
    ClickLabel(2);
    EXPECT_EQ(Stored(2, u"Fatto"), TValue(std::int64_t{0}));
    chart->OnSingleSelect = nullptr;
    chart->SetSelectionFatto();
    EXPECT_EQ(Stored(2, u"Fatto"), TValue(std::int64_t{1})) << "and start again afterwards";
}

TEST_F(Handlers, AClickDuringAnInsertMeetsItsRow)
{
    chart->OnSingleSelect
        = [this](TObject* sender) { EXPECT_EQ(static_cast<TVornRec*>(sender)->FLabel->Tag(), RowKey()); };
    GoTo(1);
    treatments->Append();
    ClickLabel(3);
    EXPECT_EQ(RowKey(), 3);
    EXPECT_EQ(Selected(), Keys{3});

    treatments->Append();
    treatments->FieldByName(u"ID").SetAsInteger(9);
    treatments->FieldByName(u"Dente").SetAsString(u"GL");
    ClickLabel(2); // posts the new row, which has the chart rebuilt
    EXPECT_EQ(RowKey(), 2);
    EXPECT_EQ(Selected(), Keys{2});
    EXPECT_EQ(Labels(), (Keys{1, 2, 3, 9}));
}

TEST_F(Handlers, ARefusedMarkLeavesNothingHalfDone)
{
    ClickLabel(2);
    ClickLabel(3, ssShift);
    GoTo(1);
    chart->AddToSelection(2);
    int posts = 0;
    treatments->BeforePost = [&](TDataSet*) {
        ++posts;
        throw EDatabaseError(u"refused");
    };
    EXPECT_THROW(chart->SetSelectionFatto(), EDatabaseError);
    EXPECT_EQ(posts, 1) << "going back doesn't try again";
    EXPECT_EQ(treatments->State(), TDataSetState::dsBrowse);
    EXPECT_EQ(RowKey(), 1);
    EXPECT_EQ(Selected(), Keys{2});
    treatments->BeforePost = nullptr;
}

TEST_F(Handlers, ARefusedPlaceIsGivenUpAndTheTagPutBack)
{
    ClickLabel(2);
    treatments->BeforePost = [&](TDataSet*) { throw EDatabaseError(u"refused"); };
    Label(2)->SetisMoved(true);
    EXPECT_THROW(Label(2)->OnSavePosEvent(Label(2)), EDatabaseError);
    EXPECT_EQ(treatments->Tag(), 0);
    EXPECT_EQ(treatments->State(), TDataSetState::dsBrowse);
    treatments->BeforePost = nullptr;
    ClickLabel(3);
    EXPECT_EQ(RowKey(), 3) << "the chart goes on";
}

TEST_F(Handlers, ARebuildInTheMiddleOfTheSavesLosesNoPlace)
{
    ClickLabel(2);
    ClickLabel(3, ssShift);
    const TPoint two{Label(2)->Left(), Label(2)->Top()};
    treatments->AfterPost = [this](TDataSet*) { chart->CreaCollection(); };
    DragLabel(3, 7, 9);
    EXPECT_EQ(Stored(2, u"X"), TValue(std::int64_t{two.X + 7}));
    EXPECT_EQ(Stored(2, u"Y"), TValue(std::int64_t{two.Y + 9}));
    EXPECT_NE(Stored(3, u"X"), TValue(std::int64_t{0}));
    treatments->AfterPost = nullptr;
}

TEST_F(Handlers, AMarkLeavesWhatIsTypedElsewhere)
{
    ClickLabel(2);
    GoTo(1);
    chart->AddToSelection(2);
    treatments->Edit();
    treatments->FieldByName(u"Terapia").SetAsString(u"typed");
    int posts = 0;
    treatments->BeforePost = [&](TDataSet*) {
        ++posts;
        throw EDatabaseError(u"refused");
    };
    EXPECT_THROW(chart->SetSelectionFatto(), EDatabaseError);
    EXPECT_EQ(posts, 1) << "going back doesn't try again";
    EXPECT_EQ(treatments->State(), TDataSetState::dsEdit);
    EXPECT_EQ(RowKey(), 1);
    EXPECT_EQ(treatments->FieldByName(u"Terapia").AsString(), u"typed");
    treatments->BeforePost = nullptr;
    treatments->Cancel();
}

TEST_F(Handlers, ChildRowsTakeTheStateThatThePostHasLeft)
{
    ShowTreatments({{.Id = 1}, {.Id = 2, .Padre = 1}});
    ClickLabel(1);
    treatments->BeforePost = [](TDataSet* rows) {
        if (rows->FieldByName(u"ID").AsInteger() == 1)
            rows->FieldByName(u"Fatto").SetAsInteger(2);
    };
    chart->SetSelectionFatto();
    EXPECT_EQ(Stored(2, u"Fatto"), TValue(std::int64_t{2}));
    treatments->BeforePost = nullptr;
}

/// What a handler does once, on the scroll of a dataset while the chart reads the rows.
struct DeedInRead {
    const char* name;
    bool inLookup; ///< in the scroll of the look table instead of the rows' own
    void (*deed)(TVornIEDBTerList& chart, TDataSet& rows);
    std::vector<int> labels; ///< that the chart shows afterwards
};

void PrintTo(const DeedInRead& deed, std::ostream* out)
{
    *out << deed.name;
}

class ReadHandlers : public Handlers, public testing::WithParamInterface<DeedInRead> {};

TEST_P(ReadHandlers, LeaveAWholeChart)
{
    TDataSet& source = GetParam().inLookup ? *appearance : *treatments;
    bool done = false;
    source.AfterScroll = [&](TDataSet*) {
        if (!std::exchange(done, true))
            GetParam().deed(*chart, *treatments);
    };
    chart->CreaCollection();
    EXPECT_TRUE(done);
    source.AfterScroll = nullptr;
    EXPECT_EQ(Labels(), GetParam().labels);
    EXPECT_EQ(view->ControlCount(), static_cast<int>(GetParam().labels.size()) + 1) << "and the diagnosis box";
    EXPECT_TRUE(Paintable());
    if (treatments->Active() && !GetParam().labels.empty()) {
        ClickLabel(2);
        EXPECT_EQ(RowKey(), 2) << "and follows its rows";
    }
}

void Reopen(TVornIEDBTerList&, TDataSet& rows)
{
    rows.Close();
    rows.Open();
}

INSTANTIATE_TEST_SUITE_P(Deeds, ReadHandlers,
    testing::Values(DeedInRead{"reopens in a scroll", false, Reopen, {1, 2, 3}},
        DeedInRead{"reopens in a lookup", true, Reopen, {1, 2, 3}},
        DeedInRead{"closes in a lookup", true, [](TVornIEDBTerList&, TDataSet& rows) { rows.Close(); }, {}},
        DeedInRead{"renames the key column", false,
            [](TVornIEDBTerList& chart, TDataSet&) { chart.SetKeyField(u"a name longer than the one before"); },
            {1, 2, 3}}));

TEST_F(Handlers, OtherRowsComeAheadOfAMove)
{
    ShowTreatments({{.Id = 1, .Diagnosi = u"Vecchia"}, {.Id = 2, .Dente = u"12"}});
    int moves = 0;
    treatments->BeforeScroll = [&](TDataSet* rows) {
        if (++moves != 2)
            return;
        rows->Close();
        rows->Open();
        rows->Edit();
        rows->FieldByName(u"Diagnosi").SetAsString(u"");
        rows->Post();
    };
    chart->CreaCollection();
    treatments->BeforeScroll = nullptr;
    EXPECT_EQ(Labels(), (Keys{1, 2}));
    EXPECT_FALSE(chart->DiagPazExists()) << "nothing of rows that are gone";
}

TEST_F(Handlers, ALookupThatFreesTheChartFails)
{
    appearance->AfterScroll = [this](TDataSet*) {
        delete std::exchange(chart, nullptr);
        throw EDatabaseError(u"refused");
    };
    chart->CreaCollection();
    EXPECT_EQ(chart, nullptr);
    appearance->AfterScroll = nullptr;
}

TEST_F(Handlers, TheChartGoesInARebuildsFirstSteps)
{
    for (const bool byLookTable : {true, false}) {
        auto* other = new TVornIEDBTerList(root.get());
        other->SetContainer(new TImageEnView(root.get()));
        other->SetDefaultLabel(look);
        other->SetDataSourceAspetto(appearanceSource);
        if (byLookTable) {
            appearance->Close();
            appearance->AfterOpen = [&](TDataSet*) { delete std::exchange(other, nullptr); };
            other->CreaCollection();
        } else {
            ClickLabel(1);
            Label(1)->OnSelect = [&](TObject*, bool, TShiftState) { delete std::exchange(other, nullptr); };
            other->SetEnabledImg(false);
        }
        EXPECT_EQ(other, nullptr);
        appearance->AfterOpen = nullptr;
    }
}

TEST_F(Handlers, AClicksPostFreesTheChart)
{
    GoTo(1);
    treatments->Edit();
    treatments->FieldByName(u"Terapia").SetAsString(u"typed");
    treatments->AfterPost = [this](TDataSet*) { delete std::exchange(chart, nullptr); };
    ClickLabel(2);
    EXPECT_EQ(chart, nullptr);
    treatments->AfterPost = nullptr;
}

TEST_F(Handlers, ALookedUpTablesScrollRebuildsTheChart)
{
    // Each label's own appearance is looked up while it is built: the inner rebuild is the one that counts.
    int depth = 0;
    appearance->AfterScroll = [&](TDataSet*) {
        if (++depth == 1)
            chart->CreaCollection();
    };
    chart->CreaCollection();
    EXPECT_GE(depth, 1);
    EXPECT_EQ(Labels(), (Keys{1, 2, 3})) << "no row twice";
    depth = 0;
    GoTo(1);
    Post(u"Terapia", String(u"Neu"));
    EXPECT_EQ(Labels(), (Keys{1, 2, 3}));
    appearance->AfterScroll = nullptr;
}

TEST_F(Handlers, TheChartGoesInsideItsOwnEvent)
{
    chart->OnSingleSelect = [this](TObject*) { delete std::exchange(chart, nullptr); };
    ClickLabel(2);
    EXPECT_EQ(chart, nullptr);
    EXPECT_EQ(view->ControlCount(), 0);
}

TEST_F(Handlers, ALabelDroppedUnderZoomStaysWhereItIs)
{
    for (int i = 0; i < 5; ++i)
        chart->ZoomIn();
    ClickLabel(2);
    const TPoint before{Label(2)->Left(), Label(2)->Top()};
    DragLabel(2, 20, 10);
    EXPECT_EQ(Label(2)->Left(), before.X + 20);
    EXPECT_EQ(Label(2)->Top(), before.Y + 10);
}

} // namespace
} // namespace vorn
