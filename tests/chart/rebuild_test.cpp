#include "tests/support/chart_fixture.h"

namespace vorn {
namespace {

using namespace test;

class Rebuild : public ChartFixture {
protected:
    /// Scrolls to, clicks and edits each labelled row: each time it must be that row's own record.
    void ExpectEachRowMeetsItsRecord()
    {
        int clicked = 0;
        chart->OnSingleSelect
            = [&](TObject* sender) { clicked = static_cast<int>(static_cast<TVornRec*>(sender)->FLabel->Tag()); };
        for (const int key : Labels()) {
            SCOPED_TRACE("row " + std::to_string(key));
            GoTo(key);
            EXPECT_EQ(CurrentKey(), key);
            EXPECT_EQ(Selected(), std::vector<int>{key});
            const String text = u"T" + IntToStr(key);
            Post(u"Terapia", text);
            EXPECT_EQ(Utf8(Label(key)->Caption()), Utf8(text));
        }
        for (const int key : Labels()) {
            SCOPED_TRACE("label " + std::to_string(key));
            chart->ResetSelection();
            ClickLabel(key);
            EXPECT_EQ(RowKey(), key);
            EXPECT_EQ(CurrentKey(), key);
            EXPECT_EQ(clicked, key);
            EXPECT_EQ(Utf8(Label(key)->Caption()), "T" + std::to_string(key));
        }
        chart->OnSingleSelect = nullptr;
    }
};

/// Rows 2, 4 and 5 are not on the chart; the labels stand apart from each other.
const std::vector<Treatment> WithRowsLeftOut = {
    {.Id = 1, .Dente = u"11"},
    {.Id = 2, .Dente = u"12", .Stato = 4},
    {.Id = 3, .Dente = u"21"},
    {.Id = 4, .Dente = u"22", .Stato = 4},
    {.Id = 5, .Stato = 4},
    {.Id = 6, .Dente = u"GL"},
};

TEST_F(Rebuild, RowsLeftOutShiftNobody)
{
    ShowTreatments(WithRowsLeftOut);
    EXPECT_EQ(Labels(), (std::vector<int>{1, 3, 6}));
    EXPECT_EQ(chart->ListVornRec().Count(), 3);
    ExpectEachRowMeetsItsRecord();
    GoTo(4);
    EXPECT_EQ(CurrentKey(), -1);
    EXPECT_EQ(Selected(), std::vector<int>());
    chart->CreaCollection();
    EXPECT_EQ(RowKey(), 4) << "a rebuild stays on its row";
    EXPECT_EQ(CurrentKey(), -1);
}

TEST_F(Rebuild, ARowThatTurnsVisibleGetsItsLabel)
{
    ShowTreatments(WithRowsLeftOut);
    Change(4, u"stato", std::int64_t{0});
    EXPECT_EQ(Labels(), (std::vector<int>{1, 3, 4, 6}));
    EXPECT_EQ(CurrentKey(), 4);
    EXPECT_EQ(RowKey(), 4);
    ExpectEachRowMeetsItsRecord();
}

TEST_F(Rebuild, AVisibleRowThatIsTakenOffTheChartLosesIt)
{
    ShowTreatments(WithRowsLeftOut);
    Change(3, u"stato", std::int64_t{4});
    EXPECT_EQ(Labels(), (std::vector<int>{1, 6}));
    EXPECT_EQ(CurrentKey(), -1) << "its record is gone";
    EXPECT_EQ(Selected(), std::vector<int>());
    EXPECT_EQ(RowKey(), 3);
    ExpectEachRowMeetsItsRecord();
    Change(1, u"stato", std::int64_t{4});
    EXPECT_EQ(Labels(), std::vector<int>{6});
    ExpectEachRowMeetsItsRecord();
}

TEST_F(Rebuild, ChildRowsMarkTheirParentAndHaveNoLabel)
{
    ShowTreatments({
        {.Id = 1, .Padre = 2, .Dente = u"21"}, // stands before its parent
        {.Id = 2, .Dente = u"11"},
        {.Id = 3, .Dente = u"12"},
        {.Id = 4, .Padre = 3, .Dente = u"22"},
        {.Id = 5, .Dente = u"GL"},
        {.Id = 6, .Padre = 5, .Eseguita = u"1"},
        {.Id = 7, .Padre = 99, .Eseguita = u"1"},
    });
    EXPECT_EQ(Labels(), (std::vector<int>{2, 3, 5}));
    ASSERT_EQ(chart->ListVornRec().Count(), 7);
    EXPECT_EQ(chart->ListVornRec()[0]->Zona, u"21");
    EXPECT_EQ(Label(2)->ImageIndex(), -1);
    EXPECT_EQ(Label(3)->ImageIndex(), 0);
    EXPECT_EQ(Label(3)->Border(), TDRBorder::boNone);
    EXPECT_EQ(Label(5)->ImageIndex(), 0);
    EXPECT_EQ(Label(5)->Border(), TDRBorder::boDotted);

    GoTo(4);
    EXPECT_EQ(CurrentKey(), 0) << "a record without a label";
    EXPECT_EQ(Selected(), std::vector<int>());
    Post(u"Eseguita", String(u"1"));
    EXPECT_EQ(Label(3)->Border(), TDRBorder::boNone) << "a record without a label is not read anew";

    Change(4, u"Progressivo", std::int64_t{1});
    GoTo(3);
    GoTo(4);
    Post(u"Terapia", String(u"Altra"));
    EXPECT_EQ(Label(3)->Border(), TDRBorder::boDotted) << "a row without a record marks its parent";
}

TEST_F(Rebuild, ARootValueOfItsOwnDecidesWhatStandsAlone)
{
    chart->SetRootValue(u"7");
    ShowTreatments({{.Id = 1, .Padre = 7}, {.Id = 2, .Padre = 0}});
    EXPECT_EQ(Labels(), std::vector<int>{1});
}

TEST_F(Rebuild, FindRecordRegardsCaseInTheCaptionOnly)
{
    ShowTreatments({{.Id = 1, .Dente = u"GL", .Terapia = u"Ott"}, {.Id = 2, .Dente = u"11 21", .Terapia = u"Pon"},
        {.Id = 3, .Padre = 1, .Dente = u"12", .Terapia = u"Fig"}});
    EXPECT_TRUE(chart->FindRecord(u"gl", u"Ott"));
    EXPECT_FALSE(chart->FindRecord(u"GL", u"ott"));
    EXPECT_TRUE(chart->FindRecord(u"11 21", u"Pon"));
    EXPECT_FALSE(chart->FindRecord(u"11", u"Pon"));
    EXPECT_FALSE(chart->FindRecord(u"12", u"Fig"));
}

TEST_F(Rebuild, WhatStopsLabelsLeavesThePictureAndSaysNothing)
{
    ShowTreatments({{.Id = 1}, {.Id = 2, .Stato = 4}});
    const auto rebuilt = [this] {
        view->LayersAdd(5, 5, 0, 0);
        view->SetLayersCurrent(0);
        view->Bitmap().Fill(clRed);
        chart->CreaCollection();
        EXPECT_EQ(Labels(), std::vector<int>());
        EXPECT_EQ(CurrentKey(), -1);
        return view->GetLayersCount() == 1 && TRGB2TColor(view->Bitmap().GetPixels_ie24RGB(3, 3)) == clWhite;
    };
    chart->SetEnabledImg(false);
    EXPECT_TRUE(rebuilt());
    chart->SetEnabledImg(true);
    EXPECT_EQ(Labels(), std::vector<int>{1});
    chart->SetDataSourceSfondi(nullptr);
    EXPECT_TRUE(rebuilt()) << "rows, but no zones";
    chart->SetDataSourceSfondi(backgroundsSource);
    treatments->Close();
    EXPECT_TRUE(rebuilt());
    chart->SetDataSource(nullptr);
    EXPECT_TRUE(rebuilt());
    chart->SetDataSource(treatmentsSource);
    treatments->Open();
    EXPECT_EQ(Labels(), std::vector<int>{1});
    chart->SetKeyField({});
    EXPECT_FALSE(rebuilt()) << "without a key column the old picture stays";
    EXPECT_EQ(TRGB2TColor(view->Bitmap().GetPixels_ie24RGB(3, 3)), clRed);
}

/// A failure in the middle of the rows must leave everything as usable as before.
class FailingRebuild : public Rebuild {
protected:
    void ExpectUsable(int row)
    {
        EXPECT_TRUE(Paintable());
        EXPECT_EQ(RowKey(), row);
    }
};

TEST_F(FailingRebuild, ABadValueLeavesTheLabelsMadeSoFarAndTheDatasetOnItsRow)
{
    ShowTreatments({{.Id = 1}, {.Id = 2, .Dente = u"12"}, {.Id = 3, .Dente = u"21"}});
    GoTo(2);
    {
        const TControlsDisabled disabled(*treatments);
        auto* table = static_cast<TMemoryDataSet*>(treatments);
        table->Close();
        table->AddRow({std::int64_t{4}, std::int64_t{0}, u"22", u"Ter", std::int64_t{0}, std::int64_t{0}, u"0",
            std::int64_t{0}, std::int64_t{0}, std::int64_t{0}, String(), u"blu"});
        table->Open();
        GoTo(2);
        const std::string message = MessageOf<EConvertError>([this] { chart->CreaCollection(); });
        EXPECT_NE(message.find("Colore"), std::string::npos) << message;
        EXPECT_NE(message.find("blu"), std::string::npos) << message;
        EXPECT_EQ(Labels(), (std::vector<int>{1, 2, 3}));
        EXPECT_EQ(RowKey(), 2);
        GoTo(4);
        Post(u"Colore", std::int64_t{255});
    }
    EXPECT_EQ(Labels(), (std::vector<int>{1, 2, 3, 4}));
    ExpectUsable(4);
    ExpectEachRowMeetsItsRecord();
}

TEST_F(FailingRebuild, ARaisingNotificationIsServedAgainAfterwards)
{
    ShowTreatments({{.Id = 1}, {.Id = 2, .Dente = u"12"}});
    treatments->Last();
    chart->SetRootValue(u"radice");
    treatments->Append();
    treatments->FieldByName(u"ID").SetAsInteger(3);
    const std::string message = MessageOf<EConvertError>([this] { treatments->Post(); });
    EXPECT_NE(message.find("radice"), std::string::npos) << message;
    ExpectUsable(3);
    EXPECT_EQ(CurrentKey(), -1);
    chart->SetRootValue(u"0");
    Change(3, u"Dente",
        String(u"21")); // the same number of rows: only the link's own memory of the failure asks for it
    EXPECT_EQ(Labels(), (std::vector<int>{1, 2, 3}));
    ExpectEachRowMeetsItsRecord();
}

} // namespace
} // namespace vorn
