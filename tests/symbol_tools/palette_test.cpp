#include "platform/system/exceptions.h"
#include "tests/support/reported_exceptions.h"
#include "tests/symbol_tools/palette_fixture.h"

namespace vorn::test {

TEST_F(PaletteFixture, OneDegreeButtonsTurnAgainstTheStoredAngle)
{
    Select(30);
    EXPECT_EQ(Layer().GetRotate(), -30);
    Press(vornSimbModifyFrm->PngSpeedButton1);
    EXPECT_EQ(Layer().GetRotate(), -29);
    EXPECT_EQ(InFile(u"Angle"), 29);
    Press(vornSimbModifyFrm->PngSpeedButton2, 3);
    EXPECT_EQ(Layer().GetRotate(), -32);
    EXPECT_EQ(InFile(u"Angle"), 32);
    Layer().SetRotate(360.0);
    Press(vornSimbModifyFrm->PngSpeedButton1);
    EXPECT_EQ(InFile(u"Angle"), -361) << "it isn't brought into a range";
}

TEST_F(PaletteFixture, TheGridStepFallsOnTheNextMultipleOf45)
{
    Select();
    struct Case {
        double from, to;
    };
    for (const auto& [from, to] : std::initializer_list<Case>{{0, 315}, {10, 315}, {44, 315}, {45, 0}, {50, 0},
             {89.9, 0}, {90, 45}, {134, 45}, {135, 90}, {180, 135}, {225, 180}, {270, 225}, {315, 270}, {359, 270},
             {360, 315}, {404.9, 315}, {405, 0}, {900, 0}, {-1, 270}, {-315, 0}, {-400, 0}}) {
        Layer().SetRotate(from);
        Press(vornSimbModifyFrm->PngSpeedButton3);
        EXPECT_EQ(Layer().GetRotate(), to) << from;
        EXPECT_EQ(InFile(u"Angle"), -to) << from;
    }
}

TEST_F(PaletteFixture, ScaleStepsCompoundOnTheDisplaySize)
{
    Select();
    Press(vornSimbModifyFrm->PngSpeedButton4);
    EXPECT_EQ((TPoint{Layer().GetWidth(), Layer().GetHeight()}), (TPoint{110, 55}));
    Press(vornSimbModifyFrm->PngSpeedButton4);
    EXPECT_EQ((TPoint{Layer().GetWidth(), Layer().GetHeight()}), (TPoint{121, 60}));
    EXPECT_EQ(InFile(u"Scale"), 121);
    Press(vornSimbModifyFrm->PngSpeedButton9);
    Press(vornSimbModifyFrm->PngSpeedButton5);
    EXPECT_EQ((TPoint{Layer().GetWidth(), Layer().GetHeight()}), (TPoint{90, 45}));
    EXPECT_EQ(InFile(u"Scale"), 90);
}

TEST_F(PaletteFixture, OpacityStepsByTenWithoutLimits)
{
    Select();
    Press(vornSimbModifyFrm->PngSpeedButton7, 2);
    EXPECT_EQ(InFile(u"Opacity"), 235);
    EXPECT_EQ(InFile(u"X"), 30);
    EXPECT_EQ(InFile(u"Y"), 40);
    Press(vornSimbModifyFrm->PngSpeedButton7, 24);
    EXPECT_EQ(InFile(u"Opacity"), -5);
    Press(vornSimbModifyFrm->PngSpeedButton8, 27);
    EXPECT_EQ(Layer().Opacity(), 265);
    EXPECT_EQ(InFile(u"Opacity"), 265);
}

TEST_F(PaletteFixture, ResetGivesNaturalSizeNoRotationAndFullOpacity)
{
    Select(-40, 150, 90);
    EXPECT_EQ(Layer().GetWidth(), 150);
    Press(vornSimbModifyFrm->PngSpeedButton9);
    EXPECT_EQ((TPoint{Layer().GetWidth(), Layer().GetHeight()}), (TPoint{100, 50}));
    EXPECT_EQ(Layer().GetRotate(), 0);
    EXPECT_EQ(Layer().Opacity(), 255);
    EXPECT_EQ(InFile(u"Scale"), 100);
    EXPECT_EQ(InFile(u"Angle"), 0);
    EXPECT_EQ(InFile(u"Opacity"), 255);
}

TEST_F(PaletteFixture, DeleteTakesRowLayerAndPaletteAway)
{
    AddPlacement();
    Select();
    const int layers = view->GetLayersCount();
    EXPECT_TRUE(vornSimbModifyFrm->Visible());
    Press(vornSimbModifyFrm->PngSpeedButton6);
    EXPECT_EQ(placements->RecordCount(), 1);
    EXPECT_EQ(view->GetLayersCount(), layers - 1);
    EXPECT_FALSE(vornSimbModifyFrm->Visible());
    EXPECT_EQ(view->LayersCurrent(), 0);
}

TEST_F(PaletteFixture, NothingHappensWithoutASymbolOrWithoutItsRow)
{
    Select();
    auto& palette = *vornSimbModifyFrm;
    const std::vector buttons{palette.PngSpeedButton1, palette.PngSpeedButton2, palette.PngSpeedButton3,
        palette.PngSpeedButton4, palette.PngSpeedButton5, palette.PngSpeedButton6, palette.PngSpeedButton7,
        palette.PngSpeedButton8, palette.PngSpeedButton9};
    view->SetLayersCurrent(0);
    int posts = 0;
    placements->BeforePost = [&](TDataSet*) { ++posts; };
    placements->BeforeDelete = [&](TDataSet*) { ++posts; };
    for (TPngSpeedButton* button : buttons)
        Press(button);
    EXPECT_EQ(posts, 0);
    EXPECT_EQ(Layer().GetRotate(), 0);
    EXPECT_EQ(Layer().Opacity(), 255);
    EXPECT_EQ(Layer().GetWidth(), 200) << "the picture keeps its size";
    view->SetLayersCurrent(view->GetLayersCount() - 1);
    std::static_pointer_cast<TDibRec>(Layer().UserData)->key = 999;
    for (TPngSpeedButton* button : buttons)
        Press(button);
    EXPECT_EQ(posts, 0);
    EXPECT_EQ(placements->RecordCount(), 1);
    EXPECT_EQ(Layer().Opacity(), 255) << "one step down, one up; the layer stays";
    palette.VornIEDBTerList1 = nullptr;
    for (TPngSpeedButton* button : buttons)
        Press(button);
    palette.VornIEDBTerList1 = chart;
}

TEST_F(PaletteFixture, ARefusedPostIsReported)
{
    Select();
    const ReportedExceptions reported;
    placements->BeforePost = [](TDataSet*) { throw EDatabaseError(u"rifiutato"); };
    Press(vornSimbModifyFrm->PngSpeedButton1);
    EXPECT_EQ(reported.Texts(), std::vector<String>{u"rifiutato"});
    EXPECT_EQ(InFile(u"Angle"), 0);
}

TEST_F(PaletteFixture, AHandlerOfTheRowsMayFreeTheChartOrTheView)
{
    using Buttons = TPngSpeedButton* TvornSimbModifyFrm::*;
    for (const Buttons button : {&TvornSimbModifyFrm::PngSpeedButton1, &TvornSimbModifyFrm::PngSpeedButton3,
             &TvornSimbModifyFrm::PngSpeedButton4, &TvornSimbModifyFrm::PngSpeedButton7,
             &TvornSimbModifyFrm::PngSpeedButton9}) {
        for (const bool freesChart : {true, false}) {
            auto* ownChart = new TVornIEDBTerList(root.get());
            auto* ownView = new TImageEnView(root.get());
            ownChart->SetContainer(ownView);
            ownChart->SetMViewDibDS(chart->MViewDibDS());
            ownView->SetBounds(0, 0, 300, 200);
            if (placements->RecordCount() == 0)
                AddPlacement();
            ownChart->SetDataSourceSimb(Source(placements));
            ownChart->ActiveChangedSimboli();
            ownChart->SelectLastDib();
            ASSERT_EQ(vornSimbModifyFrm->VornIEDBTerList1, ownChart);
            bool freed = false;
            placements->AfterPost = [&](TDataSet*) {
                if (std::exchange(freed, true))
                    return;
                delete (freesChart ? static_cast<TComponent*>(ownChart) : ownView);
            };
            Press(vornSimbModifyFrm->*button);
            EXPECT_TRUE(freed);
            EXPECT_EQ(vornSimbModifyFrm, nullptr) << "it goes with the chart, and with the view it lies on";
            placements->AfterPost = nullptr;
            if (!freesChart)
                delete ownChart;
            else
                delete ownView;
        }
    }
}

} // namespace vorn::test
