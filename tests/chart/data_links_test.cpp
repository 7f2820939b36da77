#include "tests/support/chart_fixture.h"

namespace vorn {
namespace {

using namespace test;

const std::vector<Treatment> Rows = {
    {.Id = 1, .Dente = u"11"},
    {.Id = 2, .Dente = u"12"},
    {.Id = 3, .Padre = 2, .Progressivo = 2},
    {.Id = 4, .Dente = u"21"},
};

class DataLinks : public ChartFixture {
protected:
    DataLinks() { ShowTreatments(Rows); }
};

class TreatmentNotices;

struct Notice {
    const char* Name;
    void (*Act)(TreatmentNotices& t);
    bool Rebuilds;
    int Current;
    std::vector<int> Selected;
};

void PrintTo(const Notice& notice, std::ostream* out)
{
    *out << notice.Name;
}

class TreatmentNotices : public DataLinks, public testing::WithParamInterface<Notice> {
public:
    using ChartFixture::Change;
    using ChartFixture::chart;
    using ChartFixture::Post;
    using ChartFixture::treatments;
};

const Notice Notices[] = {
    {"Scrolled", [](TreatmentNotices& t) { t.treatments->Next(); }, false, 2, {2}},
    {"ScrolledBack", [](TreatmentNotices& t) { t.treatments->Last(); t.treatments->First(); }, false, 1, {1}},
    {"ScrolledToARowWithoutALabel", [](TreatmentNotices& t) { t.treatments->MoveBy(1); t.treatments->MoveBy(1); }, false, -1, {}},
    {"PostedInTheSameRow", [](TreatmentNotices& t) { t.Post(u"Terapia", String(u"Nuova")); }, false, 1, {}},
    {"PostedWithALabelSelected",
        [](TreatmentNotices& t) { t.Change(4, u"Terapia", String(u"Nuova")); }, false, 4, {4}},
    {"Cancelled", [](TreatmentNotices& t) { t.treatments->Edit(); t.treatments->Cancel(); }, false, 1, {}},
    {"Refreshed", [](TreatmentNotices& t) { t.treatments->Refresh(); }, false, 1, {}},
    {"EditInProgressThenScrolled",
        [](TreatmentNotices& t) {
            t.treatments->Edit();
            t.treatments->FieldByName(u"Terapia").SetAsString(u"Nuova");
            t.treatments->Next();
        },
        false, 2, {2}},
    {"AppendedAndCancelled",
        [](TreatmentNotices& t) { t.treatments->Append(); t.treatments->Cancel(); }, false, 1, {}},
    {"Inserted",
        [](TreatmentNotices& t) {
            t.treatments->Append();
            t.treatments->FieldByName(u"ID").SetAsInteger(5);
            t.treatments->FieldByName(u"PADRE").SetAsInteger(0);
            t.treatments->Post();
        },
        true, 5, {5}},
    {"Deleted", [](TreatmentNotices& t) { t.treatments->Delete(); }, true, 2, {}},
    {"ChangedUnderDisabledControls",
        [](TreatmentNotices& t) {
            const TControlsDisabled disabled(*t.treatments);
            t.Post(u"Terapia", String(u"Nuova"));
        },
        true, 1, {}},
    {"MovedUnderDisabledControls",
        [](TreatmentNotices& t) {
            const TControlsDisabled disabled(*t.treatments);
            t.treatments->Last();
        },
        true, 4, {4}},
    {"DisabledTwiceAndEnabledOnce",
        [](TreatmentNotices& t) {
            t.treatments->DisableControls();
            { const TControlsDisabled disabled(*t.treatments); t.treatments->Last(); }
        },
        false, 1, {}},
    {"PostedOnADisabledChart",
        [](TreatmentNotices& t) {
            t.chart->SetEnabled(false);
            t.Post(u"Dente", String(u"22"));
        },
        false, 1, {}},
    {"DeletedOnADisabledChart",
        [](TreatmentNotices& t) { t.chart->SetEnabled(false); t.treatments->Delete(); }, false, 1, {}},
    {"ScrolledOnADisabledChart",
        [](TreatmentNotices& t) { t.chart->SetEnabled(false); t.treatments->Last(); }, false, 4, {4}},
    {"ScrolledToNowhere",
        [](TreatmentNotices& t) { t.chart->ScrollByBegin(-1); t.chart->ScrollByBegin(4); }, false, 1, {}},
};

TEST_P(TreatmentNotices, AreServed)
{
    ASSERT_EQ(CurrentKey(), 1);
    ASSERT_EQ(Selected(), std::vector<int>());
    const TLifeWatch label(Label(4));
    GetParam().Act(*this);
    EXPECT_EQ(label.Alive(), !GetParam().Rebuilds);
    EXPECT_EQ(CurrentKey(), GetParam().Current);
    EXPECT_EQ(Selected(), GetParam().Selected);
}

INSTANTIATE_TEST_SUITE_P(Table, TreatmentNotices, testing::ValuesIn(Notices),
    [](const auto& given) { return std::string(given.param.Name); });

TEST_F(DataLinks, APostReadsOneLabelAnewAndAnEditInProgressNone)
{
    const int left = Label(1)->Left();
    treatments->Edit();
    treatments->FieldByName(u"Terapia").SetAsString(u"Nuova");
    treatments->FieldByName(u"Dente").SetAsString(u"21");
    EXPECT_EQ(Label(1)->Caption(), u"Ter");
    treatments->Post();
    EXPECT_EQ(Label(1)->Caption(), u"Nuova");
    EXPECT_NE(Label(1)->Left(), left);
    EXPECT_EQ(Label(2)->Caption(), u"Ter");
}

TEST_F(DataLinks, ADisabledChartMissesOpeningsAndCatchesUpAtTheNextCountChange)
{
    chart->SetEnabled(false);
    treatments->Close();
    EXPECT_EQ(Labels(), (std::vector<int> {1, 2, 4})) << "a disabled chart leaves its labels";
    treatments->Open();
    Change(1, u"Terapia", String(u"Nuova"));
    EXPECT_EQ(Label(1)->Caption(), u"Ter");

    chart->SetEnabled(true);
    GoTo(2);
    treatments->Delete();
    EXPECT_EQ(Labels(), (std::vector<int> {1, 4}));
    EXPECT_EQ(Label(1)->Caption(), u"Nuova");
}

TEST_F(DataLinks, ClosingTakesTheLabelsAwayAndOpeningBringsThemBack)
{
    treatments->Close();
    EXPECT_EQ(chart->ListVornRec().Count(), 0);
    EXPECT_EQ(CurrentKey(), -1);
    treatments->Open();
    EXPECT_EQ(Labels(), (std::vector<int> {1, 2, 4}));
    EXPECT_EQ(CurrentKey(), 1);
}

TEST_F(DataLinks, AnEmptyDatasetRebuildsAtEachChange)
{
    while (!treatments->IsEmpty())
        treatments->Delete();
    EXPECT_EQ(chart->ListVornRec().Count(), 0);
    EXPECT_EQ(CurrentKey(), -1);
    view->Bitmap().Fill(clRed); // a rebuild puts the picture back
    treatments->Refresh();
    EXPECT_EQ(TRGB2TColor(view->Bitmap().GetPixels_ie24RGB(3, 3)), clWhite);
}

TEST_F(DataLinks, RebuildsKeepTheWindowSoThatScrollsGoOnBeingServed)
{
    // Each starts at the chart itself, not at a notification.
    chart->CreaCollection();
    treatments->Last();
    EXPECT_EQ(Selected(), std::vector<int> {4});
    chart->SetEnabledImg(false);
    chart->SetEnabledImg(true);
    EXPECT_EQ(CurrentKey(), 4);
    GoTo(2);
    EXPECT_EQ(CurrentKey(), 2);
    EXPECT_EQ(Selected(), std::vector<int> {2});
    const TLifeWatch label(Label(2));
    Change(2, u"Terapia", String(u"Nuova"));
    EXPECT_TRUE(label.Alive());
}

TEST_F(DataLinks, TheSymbolPlacementsLeaveTheLabelsAlone)
{
    TDataSource source;
    auto* placements = NewTable(u"simboli", {{u"simb_id", TFieldType::ftInteger}});
    placements->AddRow({std::int64_t {1}});
    placements->AddRow({std::int64_t {2}});
    source.SetDataSet(placements);
    chart->SetDataSourceSimb(&source);
    const TLifeWatch label(Label(1));
    placements->Open();
    placements->Next();
    placements->Delete();
    placements->Close();
    EXPECT_TRUE(label.Alive());
    EXPECT_EQ(chart->DataSourceSimboli(), &source);
}

TEST_F(DataLinks, ABackgroundScrollIsToldInAMessage)
{
    chart->ScrollByBeginSfondi(3);
    EXPECT_EQ(TakeMessages(), std::vector<std::string> {"Scroll 3"});
}

} // namespace
} // namespace vorn
