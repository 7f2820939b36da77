#include "tests/support/chart_fixture.h"

namespace vorn {
namespace {

using namespace test;

class Selection : public ChartFixture {
protected:
    Selection()
    {
        ShowTreatments(FourRows);
        chart->OnSingleSelect = [this](TObject* sender) { Note("single ", sender); };
        chart->OnMultipleSelect = [this](TObject* sender) { Note("multiple ", sender); };
    }
    void Note(const char* event, TObject* sender)
    {
        events.push_back(event + std::to_string(static_cast<TVornRec*>(sender)->FLabel->Tag()));
    }
    std::vector<std::string> TakeEvents() { return std::exchange(events, {}); }

    std::vector<std::string> events;
    using Events = std::vector<std::string>;
    using Keys = std::vector<int>;
};

TEST_F(Selection, APlainClickSelectsAloneMovesTheRowAndRaisesTheSingleEvent)
{
    ClickLabel(4);
    EXPECT_EQ(Selected(), Keys{4});
    EXPECT_EQ(RowKey(), 4);
    EXPECT_EQ(CurrentKey(), 4);
    EXPECT_EQ(TakeEvents(), Events{"single 4"});
    ClickLabel(1);
    EXPECT_EQ(Selected(), Keys{1});
    EXPECT_EQ(RowKey(), 1);
    EXPECT_EQ(TakeEvents(), Events{"single 1"});
    chart->ResetSelection();
    EXPECT_EQ(Selected(), Keys());
    view->LayersAdd(3, 3, 0, 0);
    ClickLabel(1);
    EXPECT_EQ(TakeEvents(), Events{"single 1"}) << "the current row's label raises it too";
    EXPECT_EQ(view->LayersCurrent(), 0) << "the picture is the current layer again";
    chart->OnSingleSelect = nullptr;
    ClickLabel(2);
    EXPECT_EQ(TakeEvents(), Events{"multiple 2"}) << "without a single handler the multiple one serves";
}

TEST_F(Selection, ShiftAddsToTheSelectionAndTheRowStaysWithTheFirst)
{
    ClickLabel(2, ssShift);
    EXPECT_EQ(RowKey(), 2);
    EXPECT_EQ(TakeEvents(), Events());
    ClickLabel(4, ssShift);
    EXPECT_EQ(Selected(), (Keys{2, 4}));
    EXPECT_EQ(RowKey(), 2);
    EXPECT_EQ(TakeEvents(), Events{"multiple 4"});
    ClickLabel(2, ssShift);
    EXPECT_EQ(Selected(), Keys{4});
    EXPECT_EQ(RowKey(), 2);
    EXPECT_EQ(TakeEvents(), Events()) << "leaving raises nothing";
    ClickLabel(4);
    EXPECT_EQ(Selected(), Keys());
    EXPECT_EQ(TakeEvents(), Events());
}

TEST_F(Selection, AddToSelectionTogglesSilently)
{
    GoTo(1);
    chart->AddToSelection(4);
    EXPECT_EQ(Selected(), Keys{4}) << "without Shift it replaces";
    chart->AddToSelection(3);
    chart->AddToSelection(77);
    EXPECT_EQ(Selected(), Keys{4});
    chart->AddToSelection(4);
    EXPECT_EQ(Selected(), Keys());
    EXPECT_EQ(RowKey(), 1);
    EXPECT_EQ(TakeEvents(), Events());
}

TEST_F(Selection, AClosedDatasetTakesNoClicks)
{
    chart->SetEnabled(false); // the labels stay
    treatments->Close();
    ClickLabel(2);
    EXPECT_EQ(TakeEvents(), Events());
    EXPECT_EQ(Selected(), Keys{2});
}

/// Marking treatments as done, in memory and on a database.
class DoneMarks : public Selection, public testing::WithParamInterface<bool> {
protected:
    void Show(const std::vector<Treatment>& rows) { GetParam() ? ShowSqlTreatments(rows) : ShowTreatments(rows); }
    std::string Done()
    {
        std::string all;
        const TBookmarkGuard back(*treatments);
        for (treatments->First(); !treatments->Eof(); treatments->Next())
            all += std::to_string(treatments->FieldByName(u"Fatto").AsInteger()) + ' '
                + Utf8(treatments->FieldByName(u"DataFatto").AsString()) + '|';
        return all;
    }
    const TDate day = *EncodeDate(2001, 2, 3);
    const std::string today = Utf8(DateToStr(Date()));
};

TEST_P(DoneMarks, FlipTheSelectedRowsWithTheChildRowsDirectlyBelow)
{
    Show({{.Id = 1, .Fatto = 1, .DataFatto = day}, {.Id = 2, .Padre = 1, .Progressivo = 1, .Fatto = 0},
        {.Id = 3, .Padre = 1, .Progressivo = 1, .Fatto = 1, .DataFatto = day}, {.Id = 4, .Dente = u"12"},
        {.Id = 5, .Padre = 1, .Progressivo = 1, .Fatto = 1}, {.Id = 6, .Dente = u"21", .Fatto = 2},
        {.Id = 7, .Padre = 6, .Fatto = 0}});
    ClickLabel(1);
    ClickLabel(6, ssShift);
    const TColor ownColor = Label(4)->Font().Color();
    chart->SetSelectionFatto();
    EXPECT_EQ(RowKey(), 1);
    EXPECT_EQ(Selected(), (Keys{1, 6}));
    EXPECT_EQ(TakeEvents(), (Events{"single 1", "multiple 6"}));
    chart->ResetSelection();
    EXPECT_EQ(Label(1)->Font().Color(), ownColor);
    EXPECT_EQ(Label(6)->Font().Color(), ownColor);
    EXPECT_EQ(Done(), "0 03/02/2001|0 |0 03/02/2001|0 |1 |1 " + today + "|1 " + today + '|');

    // And back: rows that become done get today's date, the others keep theirs.
    chart->ResetSelection();
    ClickLabel(6);
    ClickLabel(1, ssShift);
    chart->SetSelectionFatto();
    EXPECT_EQ(RowKey(), 6);
    EXPECT_EQ(Selected(), (Keys{6, 1}));
    EXPECT_EQ(Done(), "1 " + today + "|1 " + today + "|1 " + today + "|0 |1 |0 " + today + "|0 " + today + '|');
}

TEST_P(DoneMarks, ShowOnTheLabelsAtOnce)
{
    Show({{.Id = 1}, {.Id = 2, .Dente = u"12"}});
    chart->SetIDFatto(u"FAT");
    ClickLabel(2);
    GoTo(2);
    chart->SetSelectionFatto();
    EXPECT_EQ(Label(2)->Color(), 0x0000F1u);
    EXPECT_EQ(Label(1)->Color(), clBtnFace);
    chart->ResetSelection();
    EXPECT_EQ(Label(2)->Font().Color(), 0x0000F2u) << "the done row's colour, not the blinking one";
}

INSTANTIATE_TEST_SUITE_P(
    Stores, DoneMarks, testing::Bool(), [](const auto& given) { return given.param ? "Sqlite" : "Memory"; });

TEST_F(Selection, AFailingPostLeavesSelectionRowAndGuardAsTheyWere)
{
    ClickLabel(2);
    ClickLabel(4, ssShift);
    treatments->BeforePost = [](TDataSet*) { throw EDatabaseError(u"rifiutato"); };
    EXPECT_EQ(MessageOf<EDatabaseError>([this] { chart->SetSelectionFatto(); }), "rifiutato");
    EXPECT_EQ(Selected(), (Keys{2, 4}));
    treatments->BeforePost = nullptr;
    treatments->Cancel();
    TakeEvents();
    ClickLabel(1);
    EXPECT_EQ(TakeEvents(), Events{"single 1"});
    EXPECT_EQ(RowKey(), 1);
}

class Dragging : public Selection {
protected:
    Dragging()
    {
        chart->SetRiposizionaPrestazioni(true);
        chart->SetShowDragPrestazioni(true);
    }
    TPoint StoredPlace(int key)
    {
        const TBookmarkGuard back(*treatments);
        GoTo(key);
        return {treatments->FieldByName(u"X").AsInteger(), treatments->FieldByName(u"Y").AsInteger()};
    }
};

TEST_F(Dragging, TakesASelectedGroupAlongInImageCoordinatesOnADatabase)
{
    ShowSqlTreatments({{.Id = 1, .X = -20, .Y = 30}, {.Id = 2, .Dente = u"12"}, {.Id = 3, .Dente = u"21"},
        {.Id = 4, .Dente = u"GL"}});
    ASSERT_EQ(chart->OffsetX(), -20);
    std::vector<std::intptr_t> tags;
    treatments->BeforePost = [&](TDataSet* dataset) { tags.push_back(dataset->Tag()); };
    ClickLabel(2);
    ClickLabel(3, ssShift);
    ClickLabel(4, ssShift);
    const TPoint two = {Label(2)->Left(), Label(2)->Top()};
    DragLabel(3, 5, 6);
    EXPECT_EQ(RowKey(), 4) << "the last saved row";
    EXPECT_EQ(Selected(), (Keys{2, 3, 4}));
    EXPECT_EQ(StoredPlace(2), (TPoint{two.X + 5 - 20, two.Y + 6}));
    EXPECT_EQ(StoredPlace(3), (TPoint{115, 66}));
    EXPECT_EQ(StoredPlace(4), (TPoint{20, 116}));
    EXPECT_EQ(StoredPlace(1), (TPoint{-20, 30}));
    EXPECT_EQ(tags, (std::vector<std::intptr_t>{-1, -1, -1}));
    EXPECT_EQ(treatments->Tag(), 0);
    treatments->Close();
    treatments->Open();
    EXPECT_EQ(StoredPlace(3), (TPoint{115, 66})) << "what the file holds";
    EXPECT_EQ(Label(3)->Left(), 135);
}

TEST_F(Dragging, ARefusedPostPutsTagAndGuardBackAndTheNextDragIsSaved)
{
    ShowTreatments(FourRows);
    ClickLabel(4);
    Label(4)->SetisMoved(true);
    treatments->BeforePost = [](TDataSet*) { throw EDatabaseError(u"rifiutato"); };
    EXPECT_EQ(MessageOf<EDatabaseError>([this] { Label(4)->OnSavePosEvent(Label(4)); }), "rifiutato");
    EXPECT_EQ(treatments->Tag(), 0);
    treatments->BeforePost = nullptr;
    treatments->Cancel();
    DragLabel(4, 4, 4);
    EXPECT_EQ(StoredPlace(4), (TPoint{114, 64}));
}

TEST_F(Dragging, ARowThatIsGoneEndsTheSaves)
{
    ShowTreatments(FourRows);
    ClickLabel(4);
    ClickLabel(1, ssShift);
    chart->SetEnabled(false);
    GoTo(4);
    treatments->Delete();
    Label(4)->Add();
    Label(1)->Add();
    ASSERT_EQ(Selected(), (Keys{4, 1}));
    DragLabel(1, 3, 3);
    EXPECT_EQ(StoredPlace(1), (TPoint{0, 0})) << "stands behind the missing one";
    EXPECT_EQ(treatments->State(), TDataSetState::dsBrowse);
}

/// Handlers that take away what has just called them.
class RudeHandlers : public Selection {};

TEST_F(RudeHandlers, MayRebuildOrFreeTheChart)
{
    chart->OnSingleSelect = [this](TObject*) { chart->CreaCollection(); };
    ClickLabel(4);
    EXPECT_EQ(Labels(), (Keys{1, 2, 4}));
    EXPECT_EQ(RowKey(), 4);
    chart->OnSingleSelect = [this](TObject*) { treatments->Delete(); };
    ClickLabel(2);
    EXPECT_EQ(Labels(), (Keys{1, 4}));
    chart->OnSingleSelect = [this](TObject*) { treatments->Close(); };
    ClickLabel(4);
    EXPECT_EQ(Labels(), Keys());
    treatments->Open();
    chart->OnSingleSelect = [this](TObject*) { delete std::exchange(chart, nullptr); };
    ClickLabel(4);
    EXPECT_EQ(chart, nullptr);
    EXPECT_EQ(Selected(), Keys());
}

TEST_F(RudeHandlers, MayFreeTheChartBetweenTwoSavedPositions)
{
    chart->SetRiposizionaPrestazioni(true);
    chart->SetShowDragPrestazioni(true);
    ShowTreatments(FourRows);
    ClickLabel(1);
    ClickLabel(4, ssShift);
    treatments->AfterPost = [this](TDataSet*) { delete std::exchange(chart, nullptr); };
    DragLabel(4, 2, 2);
    EXPECT_EQ(chart, nullptr);
    EXPECT_EQ(treatments->Tag(), 0);
    EXPECT_EQ(RowKey(), 1) << "the first row was saved, the second not";
}

TEST_F(RudeHandlers, MayThrow)
{
    chart->OnSingleSelect = [](TObject*) { throw EInvalidOperation(u"no"); };
    EXPECT_EQ(MessageOf<EInvalidOperation>([this] { Label(4)->OnSelect(Label(4), true, 0); }), "no");
    chart->OnSingleSelect = [this](TObject* sender) { Note("single ", sender); };
    ClickLabel(2);
    EXPECT_EQ(TakeEvents(), Events{"single 2"}) << "the guard is open again";
}

} // namespace
} // namespace vorn
