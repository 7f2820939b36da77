#include "tests/support/chart_fixture.h"
#include "tests/support/database_file.h"

namespace vorn {
namespace {

using namespace test;

class DataLinks : public ChartFixture {
protected:
    DataLinks() { ShowTreatments(FourRows); }
};

TEST_F(DataLinks, NotificationsAreServed)
{
    struct Case {
        const char* Name;
        std::function<void()> Act;
        bool Rebuilds;
        int Current;
        std::vector<int> Selected;
    };
    const auto to = [this](void (TDataSet::*notice)()) {
        TDataSet** const rows = &treatments;
        return [rows, notice] { std::invoke(notice, **rows); };
    };
    const auto switchedOff = [this](std::function<void()> act) {
        return [this, act] {
            chart->SetEnabled(false);
            act();
        };
    };
    const auto silently = [this](std::function<void()> act) {
        return [this, act] {
            const TControlsDisabled disabled(*treatments);
            act();
        };
    };
    const auto change = [this] { Post(u"Terapia", String(u"Nuova")); };
    const auto next = to(&TDataSet::Next), last = to(&TDataSet::Last), remove = to(&TDataSet::Delete);
    const auto insert = [this] {
        treatments->Append();
        treatments->FieldByName(u"ID").SetAsInteger(5);
        Post(u"PADRE", std::int64_t{0});
    };
    const auto editAndScroll = [this] {
        treatments->Edit();
        treatments->FieldByName(u"Terapia").SetAsString(u"Nuova");
        treatments->Next();
    };
    const Case cases[] = {
        {"scrolled", next, false, 2, {2}},
        {"scrolled to a row without a label", [&] { next(), next(); }, false, -1, {}},
        {"posted in the same row", change, false, 1, {}},
        {"posted with a label selected", [&] { last(), change(); }, false, 4, {4}},
        {"cancelled", [this] { treatments->Edit(), treatments->Cancel(); }, false, 1, {}},
        {"refreshed", to(&TDataSet::Refresh), false, 1, {}},
        {"scrolled in an edit", editAndScroll, false, 2, {2}},
        {"appended and cancelled", [this] { treatments->Append(), treatments->Cancel(); }, false, 1, {}},
        {"inserted", insert, true, 5, {5}},
        {"deleted", remove, true, 2, {}},
        {"changed under disabled controls", silently(change), true, 1, {}},
        {"moved under disabled controls", silently(last), true, 4, {4}},
        {"disabled twice and enabled once", [&] { treatments->DisableControls(), silently(last)(); }, false, 1, {}},
        {"posted on a disabled chart", switchedOff([this] { Post(u"Dente", String(u"22")); }), false, 1, {}},
        {"deleted on a disabled chart", switchedOff(remove), false, 1, {}},
        {"scrolled on a disabled chart", switchedOff(last), false, 4, {4}},
        {"scrolled to nowhere", [this] { chart->ScrollByBegin(-1), chart->ScrollByBegin(4); }, false, 1, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        chart->SetEnabled(true);
        ShowTreatments(FourRows);
        ASSERT_EQ(CurrentKey(), 1);
        ASSERT_EQ(Selected(), std::vector<int>());
        const TLifeWatch label(Label(4));
        c.Act();
        EXPECT_EQ(label.Alive(), !c.Rebuilds);
        EXPECT_EQ(CurrentKey(), c.Current);
        EXPECT_EQ(Selected(), c.Selected);
    }
}

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

TEST_F(DataLinks, RowsThatWereOpenAlreadyAreFollowedFromTheCurrentOne)
{
    GoTo(4);
    treatmentsSource->SetDataSet(nullptr);
    treatmentsSource->SetDataSet(treatments);
    const TLifeWatch label(Label(4));
    Post(u"Terapia", String(u"Nuova"));
    EXPECT_TRUE(label.Alive());
    EXPECT_EQ(Label(4)->Caption(), u"Nuova");
    EXPECT_EQ(Selected(), std::vector<int>());

    Post(u"stato", std::int64_t{4});
    chart->SetDataSource(nullptr);
    chart->SetDataSource(treatmentsSource);
    ASSERT_EQ(Labels(), (std::vector<int>{1, 2}));
    Post(u"stato", std::int64_t{0});
    EXPECT_EQ(Labels(), (std::vector<int>{1, 2, 4}));
}

TEST_F(DataLinks, ARefreshThatFindsOtherRowsRebuilds)
{
    ShowSqlTreatments(FourRows);
    const auto behind = [this](StringView statement, const std::vector<int>& labels) {
        SCOPED_TRACE(Utf8(statement));
        ExecuteOnFile(DatabaseFile(), {statement});
        treatments->Refresh();
        EXPECT_EQ(Labels(), labels);
        ClickLabel(labels.back());
        EXPECT_EQ(RowKey(), labels.back());
        EXPECT_EQ(CurrentKey(), labels.back());
    };
    GoTo(2);
    behind(u"UPDATE prestazioni SET ID = 9 WHERE ID = 1", {2, 4, 9});
    auto* const query = static_cast<TSqlDataSet*>(treatments);
    query->SetUpdateTable({}, {}); // and with it the key
    query->Open();
    behind(u"UPDATE prestazioni SET ID = 8 WHERE ID = 2", {4, 8, 9});
}

TEST_F(DataLinks, ADisabledChartMissesOpeningsAndCatchesUpAtTheNextCountChange)
{
    chart->SetEnabled(false);
    treatments->Close();
    EXPECT_EQ(Labels(), (std::vector<int>{1, 2, 4})) << "a disabled chart leaves its labels";
    treatments->Open();
    Change(1, u"Terapia", String(u"Nuova"));
    EXPECT_EQ(Label(1)->Caption(), u"Ter");

    chart->SetEnabled(true);
    GoTo(2);
    treatments->Delete();
    EXPECT_EQ(Labels(), (std::vector<int>{1, 4}));
    EXPECT_EQ(Label(1)->Caption(), u"Nuova");
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
    EXPECT_EQ(Selected(), std::vector<int>{4});
    chart->SetEnabledImg(false);
    chart->SetEnabledImg(true);
    EXPECT_EQ(CurrentKey(), 4);
    GoTo(2);
    EXPECT_EQ(CurrentKey(), 2);
    EXPECT_EQ(Selected(), std::vector<int>{2});
    const TLifeWatch label(Label(2));
    Change(2, u"Terapia", String(u"Nuova"));
    EXPECT_TRUE(label.Alive());
}

} // namespace
} // namespace vorn
