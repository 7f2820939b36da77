#include "demo/symbol_panel_dock.h"
#include "symbol_tools/vornSimbModify.h"
#include "tests/demo/application_fixture.h"
#include "tests/support/drag.h"

#include <QComboBox>
#include <QDate>
#include <QDockWidget>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QStatusBar>

namespace vorn::demo {
namespace {

using test::Mouse;

constexpr int Caries = 1;
constexpr int Filling = 2;
constexpr int Crown = 13;
constexpr int CrownWithSteps = 104; // on 16
constexpr int RadiographOnLowerMilkTooth = 131;
constexpr int AdultSymbols = 14;
const TPoint On24{757, 216}; // image pixels

class Symbols : public ApplicationFixture {
protected:
    TImageEnMView& Panel()
    {
        auto* dock = window_->findChild<QDockWidget*>(QStringLiteral("pannelloSimboli"));
        return static_cast<SymbolPanelDock*>(dock)->Panel();
    }

    /// The client point of the view at which an image point is shown.
    TPoint ViewPoint(const TPoint& image)
    {
        const TVornIEDBTerList& chart = session_->Chart();
        const int zoom = chart.CurrentZoom();
        return {(image.X - chart.OffsetX()) * zoom / 100, (image.Y - chart.OffsetY()) * zoom / 100};
    }

    /// Drags a symbol of the panel onto an image point.
    void DropSymbol(int id, const TPoint& image)
    {
        const int index = id - 1;
        const TPoint target = ViewPoint(image);
        window_->resize(1600, 900); // larger than the tests' screen, on which the chart would hardly be seen
        test::ProcessEvents();
        session_->Box()->SetScrollPosition({target.X - 200, target.Y - 200});
        ASSERT_EQ(Panel().GetImageID(index), id);
        Panel().ScrollInView(index);
        const TRect cell = Panel().ImageCell(index);
        const test::DragResult drag = test::DragFromTo(
            Panel(), {(cell.Left + cell.Right) / 2, (cell.Top + cell.Bottom) / 2}, session_->View(), target);
        ASSERT_TRUE(drag.Began);
        ASSERT_TRUE(drag.Taken);
    }

    int Value(StringView column) { return session_->Placements().FieldByName(column).AsInteger(); }

    TIELayer& LayerOfPlacement(int key)
    {
        TImageEnView& view = session_->View();
        for (int i = 1; i < view.GetLayersCount(); ++i)
            if (view.GetLayer(i).UserDataLen == SymbolLayerMark
                && static_cast<const TDibRec*>(view.GetLayer(i).UserData.get())->key == key)
                return view.GetLayer(i);
        throw std::runtime_error("no layer of placement " + std::to_string(key));
    }

    int VisibleSymbols()
    {
        TImageEnView& view = session_->View();
        int count = 0;
        for (int i = 1; i < view.GetLayersCount(); ++i)
            count += view.GetLayer(i).UserDataLen == SymbolLayerMark && view.GetLayer(i).Visible() ? 1 : 0;
        return count;
    }

    bool PaletteShown() { return vornSimbModifyFrm && vornSimbModifyFrm->Visible(); }

    /// Presses one of the palette's buttons, which is named by its action.
    void PressPalette(TAction* TvornSimbModifyFrm::*which)
    {
        ASSERT_TRUE(PaletteShown());
        const TAction* action = vornSimbModifyFrm->*which;
        for (TPngSpeedButton* button :
            {vornSimbModifyFrm->PngSpeedButton1, vornSimbModifyFrm->PngSpeedButton2, vornSimbModifyFrm->PngSpeedButton3,
                vornSimbModifyFrm->PngSpeedButton4, vornSimbModifyFrm->PngSpeedButton5,
                vornSimbModifyFrm->PngSpeedButton6, vornSimbModifyFrm->PngSpeedButton7,
                vornSimbModifyFrm->PngSpeedButton8, vornSimbModifyFrm->PngSpeedButton9})
            if (button->Action() == action)
                return Mouse().Click(*button, {4, 4});
        FAIL() << "no button for the action";
    }
};

TEST_F(Symbols, ThePanelShowsTheCatalogueAndTheChartThePlacements)
{
    EXPECT_EQ(Panel().GetImageCount(), session_->Catalogue().RecordCount());
    EXPECT_EQ(VisibleSymbols(), AdultSymbols);
    EXPECT_EQ(session_->Placements().RecordCount(), AdultSymbols);
    session_->ShowPatient(LargePatient);
    EXPECT_EQ(VisibleSymbols(), 50);
}

TEST_F(Symbols, ADroppedSymbolBecomesAPlacementAndATreatment)
{
    window_->findChild<QComboBox*>(QStringLiteral("dottori"))->setCurrentIndex(2);
    DropSymbol(Filling, On24);

    EXPECT_EQ(session_->Placements().RecordCount(), AdultSymbols + 1);
    const int placement = Value(u"simb_id");
    EXPECT_GT(placement, 0);
    EXPECT_EQ(Value(u"PAZIENTE"), AdultPatient);
    EXPECT_EQ(Value(u"id"), Filling);
    const TIELayer& layer = LayerOfPlacement(placement);
    EXPECT_NEAR(Value(u"X") + layer.GetWidth() / 2, On24.X, 1);
    EXPECT_NEAR(Value(u"Y") + layer.GetHeight() / 2, On24.Y, 1);
    EXPECT_EQ(&session_->View().GetCurrentLayer(), &layer);
    EXPECT_TRUE(PaletteShown());

    const int treatment = CurrentKey();
    Start();
    EXPECT_EQ(VisibleSymbols(), AdultSymbols + 1);
    TSqlDataSet& rows = session_->Treatments();
    ASSERT_TRUE(rows.Locate(u"ID", std::int64_t{treatment}));
    const std::pair<StringView, StringView> wanted[] = {{u"Terapia", u"OTT"}, {u"Dente", u"24"}, {u"Dottore", u"CV"},
        {u"Tipo", u"CON"}, {u"Diagnosi", u"CAR2"}, {u"Descrizione", u"Otturazione in composito, una superficie"},
        {u"Fatto", u"0"}, {u"PADRE", u"0"}, {u"PAZIENTE", u"1"}};
    for (const auto& [column, text] : wanted)
        EXPECT_EQ(rows.FieldByName(column).AsString(), text);
    EXPECT_EQ(rows.FieldByName(u"Data").AsString(),
        QDate::currentDate().toString(QStringLiteral("dd/MM/yyyy")).toStdU16String());
    EXPECT_EQ(LabelOfKey(treatment).Caption(), u"OTT");
}

TEST_F(Symbols, AFindingAddsNoTreatment)
{
    const int treatments = session_->Treatments().RecordCount();
    DropSymbol(Caries, On24);
    EXPECT_EQ(session_->Placements().RecordCount(), AdultSymbols + 1);
    EXPECT_EQ(session_->Treatments().RecordCount(), treatments);
}

TEST_F(Symbols, SymbolsAndLabelsKeepTheirPlacesAtEveryZoom)
{
    ASSERT_TRUE(session_->Placements().Locate(u"Nome", String(u"Impianto")));
    const TPoint stored{Value(u"X"), Value(u"Y")};
    const int key = Value(u"simb_id");
    for (const int zoom : {100, 150, 200}) {
        session_->ShowZoom(zoom);
        const TRect box = LayerOfPlacement(key).Box();
        const TRect picture = session_->View().GetLayer(0).Box();
        EXPECT_NEAR(box.Left - picture.Left, stored.X * zoom / 100, 1) << zoom;
        EXPECT_NEAR(box.Top - picture.Top, stored.Y * zoom / 100, 1) << zoom;
    }
    DropSymbol(Filling, On24);
    const int placement = Value(u"simb_id");
    EXPECT_NEAR(Value(u"X") + LayerOfPlacement(placement).GetWidth() / 2, On24.X, 1);
    const int left = LabelOfKey(CurrentKey()).Left();
    session_->ShowZoom(100);
    EXPECT_NEAR(LabelOfKey(CurrentKey()).Left() * 2, left, 1) << "the new label followed the zoom";
}

TEST_F(Symbols, ThePaletteStandsBesideTheSymbolWithinSight)
{
    for (const int zoom : {100, 200}) {
        session_->ShowZoom(zoom);
        DropSymbol(Caries, {150, 200});
        ASSERT_TRUE(PaletteShown());
        const TRect symbol = session_->View().GetCurrentLayer().Box();
        const TRect palette = vornSimbModifyFrm->BoundsRect();
        EXPECT_TRUE(IntersectRect(symbol, palette).IsEmpty()) << zoom;
        EXPECT_EQ(palette.Left, symbol.Right + 10) << zoom;
        const TPoint scrolled = session_->Box()->ScrollPosition();
        EXPECT_LE(palette.Bottom, scrolled.Y + session_->Box()->ClientRect().Height()) << zoom;
    }
}

TEST_F(Symbols, ThePaletteTurnsAndDeletesForGood)
{
    DropSymbol(Caries, On24);
    const int placement = Value(u"simb_id");
    PressPalette(&TvornSimbModifyFrm::Action3);
    Start();
    ASSERT_TRUE(session_->Placements().Locate(u"simb_id", std::int64_t{placement}));
    EXPECT_EQ(Value(u"Angle") % 45, 0);
    EXPECT_NE(Value(u"Angle"), 0);

    const TRect box = LayerOfPlacement(placement).Box();
    Mouse().Click(session_->View(), {(box.Left + box.Right) / 2, (box.Top + box.Bottom) / 2});
    ASSERT_TRUE(PaletteShown());
    PressPalette(&TvornSimbModifyFrm::Action6);
    EXPECT_EQ(VisibleSymbols(), AdultSymbols);
    Start();
    EXPECT_FALSE(session_->Placements().Locate(u"simb_id", std::int64_t{placement}));
}

TEST_F(Symbols, ASymbolAddedToATreatmentStandsBesideItsLabel)
{
    EXPECT_FALSE(session_->AddSymbolBesideSelection(Crown));
    Trigger(QStringLiteral("Aggiungi simbolo…"));
    EXPECT_TRUE(window_->statusBar()->currentMessage().contains(QStringLiteral("Selezionare prima")));

    for (const int zoom : {100, 150}) {
        session_->ShowZoom(zoom);
        for (const int treatment : {CrownWithSteps, RadiographOnLowerMilkTooth}) {
            session_->Chart().ResetSelection();
            Mouse().Click(LabelOfKey(treatment), {3, 3});
            ASSERT_TRUE(session_->AddSymbolBesideSelection(Crown));
            const TRect label = LabelOfKey(treatment).BoundsRect();
            const TRect symbol = session_->View().GetLayer(session_->View().GetLayersCount() - 1).Box();
            EXPECT_TRUE(IntersectRect(label, symbol).IsEmpty()) << treatment << " at " << zoom;
            EXPECT_LT(std::abs(label.Left - symbol.Left), 4) << treatment << " at " << zoom;
            EXPECT_LT(label.Top - symbol.Bottom, 8) << treatment << " at " << zoom;
            EXPECT_TRUE(LabelOfKey(treatment).InList()) << "the selection stays";
        }
    }
}

TEST_F(Symbols, TheSwitchHidesThemAndShowsWhatCameMeanwhile)
{
    Trigger(QStringLiteral("Mostra simboli"));
    EXPECT_EQ(VisibleSymbols(), 0);
    session_->Rebuild();
    EXPECT_EQ(VisibleSymbols(), 0);
    Trigger(QStringLiteral("Mostra simboli"));
    EXPECT_EQ(VisibleSymbols(), AdultSymbols);
}

TEST_F(Symbols, AnOlderDatabaseOpensWithoutThem)
{
    window_.reset();
    session_.reset();
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("older"));
        database.setDatabaseName(File());
        ASSERT_TRUE(database.open());
        ASSERT_TRUE(QSqlQuery(database).exec(QStringLiteral("DROP TABLE disegni")));
        ASSERT_TRUE(QSqlQuery(database).exec(QStringLiteral("DROP TABLE simboli")));
    }
    QSqlDatabase::removeDatabase(QStringLiteral("older"));
    Start();
    EXPECT_FALSE(session_->HasSymbols());
    EXPECT_EQ(VisibleSymbols(), 0);
    EXPECT_EQ(window_->findChild<QDockWidget*>(QStringLiteral("pannelloSimboli")), nullptr);
    EXPECT_EQ(session_->Treatments().RecordCount(), 31);

    UpgradeDatabase(File());
    Start();
    EXPECT_EQ(VisibleSymbols(), AdultSymbols);
}

} // namespace
} // namespace vorn::demo
