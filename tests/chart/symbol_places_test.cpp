#include "symbol_tools/vornSimbModify.h"
#include "tests/chart/symbol_panel_fixture.h"

#include <QFile>

namespace vorn {
namespace {

using namespace test;

/// A chart that one label shifts, with a symbol inside and one beyond the edge; an external picture lies ready.
class SymbolPlaces : public SymbolPanelFixture {
protected:
    SymbolPlaces()
    {
        QFile file(QString::fromStdU16String(picture));
        const Bytes png = Picture(60, 40, clRed);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(reinterpret_cast<const char*>(png.data()), static_cast<qint64>(png.size()));
        file.close();
        chart->CreaMViewPanel(panel);
        chart->SetRiposizionaPrestazioni(true);
        ShowTreatments({{.Id = 1, .X = -30, .Y = 50}});
        ShowPlacements({{.Key = 1, .X = 100, .Y = 20}, {.Key = 2, .X = -10, .Y = -8}});
        chart->CreaCollection();
    }

    std::vector<TPoint> Shown() const
    {
        std::vector<TPoint> places;
        for (int i = 0; i < Symbols(); ++i)
            places.push_back({Layer(i).GetPosX(), Layer(i).GetPosY()});
        return places;
    }
    TPoint Stored(int key) { return {Int(key, u"X"), Int(key, u"Y")}; }
    void ExpectStored()
    {
        EXPECT_EQ(Stored(1), (TPoint{100, 20}));
        EXPECT_EQ(Stored(2), (TPoint{-10, -8}));
        EXPECT_EQ(placements->RecordCount(), 2);
    }
    static void PressOn(TPngSpeedButton* button) { Mouse().Click(*button, {5, 5}); }
    /// Saves that change nothing, and a drop that is deleted again.
    void Use()
    {
        const std::vector<TPoint> before = Shown();
        for (const bool last : {false, true}) {
            if (last)
                chart->SelectLastDib();
            else
                Pick(0);
            for (int i = 0; i < 3; ++i)
                PressOn(vornSimbModifyFrm->PngSpeedButton7);
        }
        ExpectStored();
        const TPoint at{70, 90};
        EXPECT_TRUE(Drop(0, at).Taken);
        EXPECT_EQ(view->LayersCurrent(), view->GetLayersCount() - 1);
        EXPECT_TRUE(view->GetCurrentLayer().Contains({view->XScr2Bmp(at.X), view->YScr2Bmp(at.Y)}));
        PressOn(vornSimbModifyFrm->PngSpeedButton6);
        ExpectStored();
        EXPECT_EQ(Shown(), before);
    }

    const String picture = DatabaseFile() + u".png";
};

TEST_F(SymbolPlaces, NothingCreepsThroughAnySwitch)
{
    const auto shift = [this](int x, int y) {
        chart->SetOffsetX(chart->OffsetX() + x);
        chart->SetOffsetY(chart->OffsetY() + y);
    };
    const std::pair<const char*, std::function<void()>> switches[] = {
        {"picture on", [this] { chart->SetPictureContainer(picture), chart->SetShowPictureContainer(true); }},
        {"picture off", [this] { chart->SetShowPictureContainer(false); }},
        {"picture switched without a rebuild",
            [this] {
                chart->SetPictureContainer(picture);
                chart->SetKeyField(u"");
                chart->SetShowPictureContainer(!chart->ShowPictureContainer());
                chart->SetKeyField(u"ID");
            }},
        {"picture larger", [this] { chart->ResizePictureContainer(true); }},
        {"picture forgotten", [this] { chart->ResetPictureContainer(); }},
        {"shifted left", [&] { shift(-30, -7); }},
        {"shifted right", [&] { shift(11, 3); }},
        {"bounds", [this] { chart->AdjustBounds(); }},
        {"symbols off, shifted, on",
            [&] {
                chart->SetEnabledDib(false);
                shift(-4, 4);
                chart->SetEnabledDib(true);
            }},
        {"symbols made anew", [this] { chart->ActiveChangedSimboli(); }},
        {"rebuilt", [this] { chart->CreaCollection(); }},
        {"zoomed", [this] { chart->ZoomIn(); }},
        {"zoom reset", [this] { chart->ZoomReset(); }},
    };
    for (const auto& [first, one] : switches)
        for (const auto& [second, other] : switches) {
            SCOPED_TRACE(std::string(first) + ", then " + second);
            for (const auto& change : {one, other}) {
                chart->SelectLastDib();
                change();
                EXPECT_EQ(vornSimbModifyFrm->Visible(), view->LayersCurrent() > 0) << "no palette without a symbol";
                Use();
            }
            if (HasFailure())
                return;
        }
}

TEST_F(SymbolPlaces, AQuickSecondPressDragsAndADragCutShortGoesBack)
{
    Mouse mouse;
    mouse.Click(*view, Middle(0));
    view->SetLayersCurrent(0);
    mouse.PressAgain();
    mouse.MoveBy(5, 6);
    mouse.ReleaseThere();
    EXPECT_EQ(Stored(1), (TPoint{105, 26}));
    const std::vector<TPoint> shown = Shown();
    mouse.Press(*view, Middle(0));
    mouse.MoveBy(9, 9);
    chart->ZoomIn();
    mouse.MoveBy(9, 9);
    mouse.ReleaseThere();
    EXPECT_EQ(Stored(1), (TPoint{105, 26}));
    EXPECT_EQ(Shown(), shown);
}

} // namespace
} // namespace vorn
