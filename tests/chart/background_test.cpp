#include "tests/support/chart_fixture.h"

namespace vorn {
namespace {

using namespace test;

class Background : public ChartFixture {};

constexpr StringView OneZone = u"0 0 4 4 3 1 1 11";

TEST_F(Background, TheImageSizesTheViewAndItsSecondPixelColoursTheSurround)
{
    TScrollBox box(nullptr);
    const TColor boxBefore = box.Color();
    // Corner, (0, 1) and (1, 0) differ from (1, 1), so that only the right pixel passes.
    const Bytes image
        = Picture(6, 4, clWhite, {{{0, 0}, clRed}, {{1, 0}, clBlue}, {{0, 1}, clBlack}, {{1, 1}, 0x336699}});
    ShowBackground(Blob(image), OneZone);
    EXPECT_EQ(view->ClientWidth(), 6);
    EXPECT_EQ(view->ClientHeight(), 4);
    EXPECT_EQ(TRGB2TColor(view->Bitmap().GetPixels_ie24RGB(1, 0)), clBlue);
    EXPECT_EQ(view->Background(), 0x336699u);
    EXPECT_EQ(box.Color(), boxBefore) << "a box that isn't the parent";

    view->SetParent(&box);
    backgrounds->Refresh();
    EXPECT_EQ(box.Color(), 0x336699u);
    view->SetParent(nullptr);
}

TEST_F(Background, ARebuildWipesWhatWasDrawnIntoThePicture)
{
    ShowTreatments({{.Id = 1, .Dente = u"11 21"}});
    const auto pixel = [this] { return TRGB2TColor(view->Bitmap().GetPixels_ie24RGB(110, 63)); };
    ASSERT_EQ(pixel(), clBlue) << "the leader line ends at the anchor of zone 21";
    Change(1, u"Dente", String(u"11"));
    EXPECT_EQ(pixel(), clBlue) << "a line stays until the next rebuild";
    chart->CreaCollection();
    EXPECT_EQ(pixel(), clWhite);
}

TEST_F(Background, ScrollingShowsTheOtherPictureAndMovesTheLabelsToItsZones)
{
    ShowTreatments({{.Id = 1}});
    auto* two = NewTable(u"due",
        {{u"grafico_ie", TFieldType::ftBlob}, {u"Zone", TFieldType::ftBlob}, {u"Dialoghi", TFieldType::ftBlob}});
    two->AddRow({Blob(Picture(200, 150, clWhite)), Blob(Zones), Blob(u"11 12")});
    two->AddRow({Blob(Picture(300, 100, clBlack)), Blob(u"0 0 9 9 3 70 20 11"), Blob(u"11")});
    Replace(backgroundsSource, backgrounds, two);
    ASSERT_EQ(Label(1)->Left(), 15);

    backgrounds->Next();
    EXPECT_EQ(view->Bitmap().Width(), 300);
    EXPECT_EQ(view->Background(), clBlack);
    EXPECT_EQ(chart->NomiZoneList().Count(), 1);
    EXPECT_EQ((TPoint{Label(1)->Left(), Label(1)->Top()}), (TPoint{70, 20}));
    backgrounds->Prior();
    EXPECT_EQ((TPoint{Label(1)->Left(), Label(1)->Top()}), (TPoint{15, 60}));
}

TEST_F(Background, OpeningLoadsZonesButLeavesTheLabelsToTheTreatments)
{
    ShowTreatments({{.Id = 1}});
    const TLifeWatch label(Label(1));
    backgrounds->Close();
    EXPECT_EQ(chart->ZoneList().Count(), 0) << "no fallback without an active source";
    EXPECT_EQ(chart->NomiZoneList().Count(), 0);
    backgrounds->Open();
    EXPECT_EQ(chart->ZoneList().Count(), 5);
    EXPECT_TRUE(label.Alive());

    backgrounds->Edit();
    backgrounds->FieldByName(u"Zone").SetValue(Blob(OneZone));
    backgrounds->Post();
    EXPECT_EQ(chart->ZoneList().Count(), 1);
    EXPECT_FALSE(label.Alive()) << "a change rebuilds the labels too";
}

} // namespace
} // namespace vorn
