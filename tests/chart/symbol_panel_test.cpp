#include "platform/controls/application.h"
#include "symbol_tools/vornSimbModify.h"
#include "symbol_tools/vornSimbSelect.h"
#include "tests/chart/symbol_panel_fixture.h"
#include "tests/support/database_file.h"
#include "tests/support/keyboard.h"
#include "tests/support/pixels.h"
#include "tests/support/reported_exceptions.h"

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

namespace vorn {
namespace {

using namespace test;

class SymbolPanel : public SymbolPanelFixture {};

TEST_F(SymbolPanel, ThumbnailsShowTheSymbolsAsTheyWillLie)
{
    catalogue->Close(); // filling opens it
    chart->CreaMViewPanel(panel);
    const struct {
        int Id;
        const char* Text;
        TPoint Size;
    } expected[] = {{1, "Simbolo", {41, 11}}, {2, "Simbolo\r\nCorona", {60, 60}}, {3, "Simbolo", {10, 20}}};
    ASSERT_EQ(panel->GetImageCount(), 3);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(panel->GetImageID(i), expected[i].Id);
        EXPECT_EQ(Utf8(panel->GetImageBottomText(i)), expected[i].Text);
        EXPECT_EQ((TPoint{panel->GetImageWidth(i), panel->GetImageHeight(i)}), expected[i].Size);
    }
    EXPECT_FALSE(panel->ShowText());
    EXPECT_EQ(panel->SelectedImage(), 0);
    EXPECT_EQ(catalogue->FieldByName(u"SIMB_ID").AsInteger(), 1) << "stands on its first row";

    // A dropped symbol is turned as its thumbnail is.
    panel->ScrollInView(2);
    Drop(2, {100, 80});
    TIEBitmap paper;
    paper.Allocate(200, 150);
    view->DrawLayersTo(paper);
    const TRect box = Layer(0).ChartBox();
    const QImage placed = paper.Image().copy(box.Left, box.Top, 10, 20);
    const TPoint corner{Thumbnail(2).X - 5, Thumbnail(2).Y - 10};
    EXPECT_EQ(Rows(panel->Widget()->grab({corner.X, corner.Y, 10, 20}).toImage()), Rows(placed));
    EXPECT_EQ(placed.pixel(8, 2), Rgb(clBlue)) << "clockwise";

    ShowCatalogue({{.Id = 4, .Picture = Blob(u"nessuna immagine"), .Scale = 50, .Angle = 45},
        {.Id = 5, .Picture = Blob(Picture(21, 9, clRed)), .Scale = 55},
        {.Id = 6, .Picture = Blob(Picture(21, 9, clRed)), .Scale = 2147483647},
        {.Id = 7, .Picture = Blob(Picture(21, 9, clRed)), .Scale = -3, .Angle = 7200090}});
    chart->CreaMViewPanel(panel);
    ASSERT_EQ(panel->GetImageCount(), 7) << "the panel isn't emptied";
    EXPECT_EQ(panel->GetImageWidth(3), 0) << "no picture, but an entry";
    EXPECT_EQ(panel->GetImageWidth(4), 11) << "11.55 cut";
    EXPECT_EQ(panel->GetImageWidth(5), 21) << "what no memory holds stays natural";
    for (const StringView column : {u"SIMB_ID", u"Grafico_ie", u"Nome", u"Terapia", u"Scale", u"Angle"}) {
        ShowCatalogue({{.Id = 1}}, column);
        EXPECT_THROW(chart->CreaMViewPanel(panel), EDatabaseError) << Utf8(column);
        EXPECT_FALSE(catalogue->ControlsDisabled());
        EXPECT_EQ(panel->GetImageCount(), 7);
    }
}

TEST_F(SymbolPanel, AHoverAndAClickStartNoDrag)
{
    chart->CreaMViewPanel(panel);
    Mouse mouse;
    mouse.Move(*panel, Thumbnail(0));
    mouse.Click(*panel, Thumbnail(1));
    EXPECT_EQ(panel->SelectedImage(), 1);
    EXPECT_EQ(Utf8(panel->Hint()), "Simbolo\r\nCorona");
    EXPECT_EQ(Utf8(Application().ShownHint()), "Simbolo\r\nCorona");
    EXPECT_EQ(panel->MouseInteract(), mmiSelect);
    EXPECT_EQ(placements->RecordCount(), 0);
}

TEST_F(SymbolPanel, ADropMakesARowUnderThePointer)
{
    chart->CreaMViewPanel(panel);
    EXPECT_TRUE(Drop(0, {100, 80}).Taken);
    ASSERT_EQ(placements->RecordCount(), 1);
    EXPECT_EQ(LastPlace(), (TPoint{80, 75})) << "half of 41 and of 11, cut";
    EXPECT_EQ(asked, std::vector<std::string>{}) << "it stands for no treatment";
    EXPECT_EQ(panel->MouseInteract(), mmiSelect);
    ASSERT_EQ(Symbols(), 1);
    EXPECT_NE(Rec(0).key, 0) << "the key is known in time";
    EXPECT_EQ(view->LayersCurrent(), 1);
    EXPECT_TRUE(vornSimbModifyFrm->Visible());
    EXPECT_EQ(vornSimbModifyFrm->Left(), 80 + 41 + 10);

    // The second lies in zone 12, the third outside all zones.
    Drop(1, {75, 20});
    Drop(1, {199, 149});
    EXPECT_EQ(asked, (std::vector<std::string>{"12 Corona 2", "11 Corona 3"}));
    EXPECT_EQ(LastPlace(), (TPoint{169, 119}));
    EXPECT_EQ(placements->FieldByName(u"id").AsInteger(), 2);
    EXPECT_EQ(Utf8(placements->FieldByName(u"Nome").AsString()), "Simbolo");
    EXPECT_EQ(placements->FieldByName(u"Scale").AsFloat(), 150);
    EXPECT_EQ(placements->FieldByName(u"Angle").AsInteger(), 0);
    EXPECT_EQ(placements->FieldByName(u"Opacity").AsInteger(), 99);
    EXPECT_TRUE(placements->FieldByName(u"ID_VORNAL").IsNull());
    EXPECT_EQ(view->LayersCurrent(), 3);
    EXPECT_EQ(Layer(2).ChartBox(), (TRect{169, 119, 229, 179}));
    ExpectNothingHalfDone();
}

TEST_F(SymbolPanel, WhatCannotBeDroppedLeavesNoRow)
{
    chart->CreaMViewPanel(panel);
    chart->SetEnabled(false);
    EXPECT_FALSE(Drop(0, {100, 80}).Taken);
    chart->SetEnabled(true);
    EXPECT_FALSE(DropForeignText(*view, {100, 80}));
    const BlobValue picture = Blob(Picture(9, 9, clRed));
    ShowCatalogue({{.Id = 77, .Picture = picture}}); // the panel shows what isn't there any more
    Drop(0, {100, 80});
    catalogue->Close();
    Drop(0, {100, 80});
    chart->AddSimbolo(77, u"", u"", 0, {5, 5});
    EXPECT_EQ(placements->RecordCount(), 0);
    EXPECT_EQ(vornSimbModifyFrm, nullptr);
    EXPECT_EQ(asked, std::vector<std::string>{});
}

TEST_F(SymbolPanel, ADropWithoutALayerSelectsNoOther)
{
    ShowCatalogue({{.Id = 1, .Picture = Blob(Picture(9, 9, clRed))}, {.Id = 2, .Picture = Blob(u"nessuna immagine")}});
    ShowPlacements({{.Key = 1}});
    chart->CreaMViewPanel(panel);
    Drop(1, {100, 80});
    EXPECT_EQ(placements->RecordCount(), 2);
    EXPECT_EQ(view->LayersCurrent(), 0);
    EXPECT_FALSE(vornSimbModifyFrm && vornSimbModifyFrm->Visible());
}

TEST_F(SymbolPanel, WithoutTreatmentsTheDropLaysTheChartOut)
{
    ShowTreatments({});
    chart->CreaMViewPanel(panel);
    Drop(1, {5, 70});
    EXPECT_EQ(chart->OffsetX(), -25) << "what sticks out at the left shifts the chart";
    EXPECT_EQ(LastPlace(), (TPoint{-25, 40}));
    EXPECT_EQ(Layer(0).GetPosX(), 0);
    EXPECT_EQ(asked.size(), 1u);
    ShowBackground(Blob(Picture(200, 150, clWhite)), u"");
    Drop(1, {100, 70});
    EXPECT_EQ(placements->RecordCount(), 2);
    EXPECT_EQ(view->LayersCurrent(), 2);
}

TEST_F(SymbolPanel, ARefusedRowIsGivenUp)
{
    chart->CreaMViewPanel(panel);
    ShowSqlPlacements({}, {u"CREATE TRIGGER no BEFORE INSERT ON simboli BEGIN SELECT RAISE(ABORT, 'refused'); END"});
    const ReportedExceptions reported;
    Drop(1, {100, 80});
    EXPECT_EQ(reported.Texts().size(), 1u);
    EXPECT_THROW(chart->AddSimbolo(1, u"", u"", 0, {5, 5}), EDatabaseError);
    EXPECT_EQ(placements->RecordCount(), 0);
    EXPECT_EQ(asked, std::vector<std::string>{});
    EXPECT_EQ(panel->MouseInteract(), mmiSelect);
    ExpectNothingHalfDone();
    placements->Append(); // by the user, whose row isn't ready yet
    placements->FieldByName(u"Nome").SetAsString(u"scritto");
    Drop(1, {100, 80});
    EXPECT_THROW(chart->AddSimbolo(1, u"", u"", 0, {5, 5}), EDatabaseError);
    EXPECT_EQ(placements->State(), TDataSetState::dsInsert);
    EXPECT_EQ(Utf8(placements->FieldByName(u"Nome").AsString()), "scritto");
    placements->Cancel();
    ExecuteOnFile(DatabaseFile(), {u"DROP TRIGGER no"});
    Drop(1, {100, 80});
    EXPECT_EQ(placements->RecordCount(), 1);
    EXPECT_EQ(Rec(0).key, 1) << "the database's own key";
    ShowPlacements({}, u"Opacity");
    EXPECT_THROW(chart->AddSimbolo(1, u"", u"", 0, {5, 5}), EDatabaseError);
    ExpectNothingHalfDone();
    EXPECT_EQ(placements->RecordCount(), 0);
}

TEST_F(SymbolPanel, ADropIsTakenAsAddedThoughAnotherRowGoes)
{
    ShowSqlPlacements({{.Key = 1}});
    chart->CreaMViewPanel(panel);
    placements->AfterPost = [this](TDataSet*) {
        ExecuteOnFile(DatabaseFile(), {u"DELETE FROM simboli WHERE simb_id = 1"});
        placements->Refresh();
    };
    Drop(1, {100, 80});
    EXPECT_EQ(asked.size(), 1u);
    EXPECT_EQ(Symbols(), 1);
    EXPECT_EQ(view->LayersCurrent(), 1);
}

TEST_F(SymbolPanel, AnAddedSymbolStandsBesideItsLabel)
{
    constexpr auto prest = u"Otturazione";
    const int width = Label(1)->Width();
    const int height = Label(1)->Height();
    const struct {
        int Dir;
        TPoint Label;
        StringView Zone, Prest;
        TPoint Given, Place, Offset;
    } cases[] = {
        {0, {60, 50}, u"11", prest, {}, {40, 50}, {}},
        {0, {10, 50}, u"11", prest, {}, {-10, 50}, {-10, 0}}, // the corner is at 0 of the shifted chart
        {1, {60, 50}, u"11", prest, {}, {60, 30}, {}},
        {1, {60, 5}, u"11", prest, {}, {60, -15}, {0, -15}},
        {2, {60, 50}, u"11", prest, {}, {60 + width + 4, 50}, {}},
        {3, {60, 50}, u"11", prest, {}, {60, 50 + height}, {}},
        {7, {60, 50}, u"11", prest, {}, {60, 50}, {}},
        {0, {60, 50}, u"11", u"OTTURAZIONE", {}, {15, 60}, {}}, // the zone's anchor
        {0, {60, 50}, u"XY", prest, {}, {0, 0}, {}},
        {0, {60, 50}, u"11", prest, {0, 50}, {40, 50}, {}}, // only X tells of a point
        {0, {60, 50}, u"11", prest, {1, 50}, {1, 50}, {}},
        {0, {60, 50}, u"", prest, {0, 50}, {0, 50}, {}},
        {0, {60, 50}, u"", prest, {-7, -8}, {-7, -8}, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.Place) + " dir " + std::to_string(c.Dir));
        ShowBackground(u"10 10 40 40 " + IntToStr(c.Dir) + u" 15 60 11\r\n");
        ShowTreatments({{.Id = 1, .Terapia = prest}});
        chart->SetOffsetX(0);
        chart->SetOffsetY(0);
        Label(1)->SetBounds(c.Label.X, c.Label.Y, width, height); // a label with a place of its own has no zone
        ShowPlacements({});
        placements->AfterPost = [&](TDataSet*) { EXPECT_EQ((TPoint{chart->OffsetX(), chart->OffsetY()}), c.Offset); };
        chart->AddSimbolo(2, c.Zone, c.Prest, c.Dir, c.Given);
        ASSERT_EQ(placements->RecordCount(), 1);
        EXPECT_EQ(LastPlace(), c.Place);
        EXPECT_EQ(placements->FieldByName(u"ID_VORNAL").IsNull(), c.Dir == 0);
        EXPECT_EQ(placements->FieldByName(u"Scale").AsFloat(), 150);
        EXPECT_EQ(Symbols(), 1);
        EXPECT_EQ(view->LayersCurrent(), 0) << "not selected";
    }
    EXPECT_EQ(asked, std::vector<std::string>{});
}

/// A handler inside a drop and an AddSimbolo frees chart, view or panel, or changes the rows.
TEST_F(SymbolPanel, HandlersMayDoWhatTheyLike)
{
    const std::pair<const char*, std::function<void()>> deeds[] = {
        {"free chart", [this] { delete std::exchange(chart, nullptr); }},
        {"free view", [this] { delete std::exchange(view, nullptr); }},
        {"free panel", [this] { delete std::exchange(panel, nullptr); }},
        {"take view", [this] { chart->SetContainer(nullptr); }},
        {"rebuild", [this] { chart->CreaCollection(); }},
        {"close", [this] { placements->Close(); }},
        {"no catalogue", [this] { chart->SetMViewDibDS(nullptr); }},
        {"disconnect", [this] { chart->SetDataSourceSimb(nullptr); }},
    };
    using Hook = TDataSetNotifyEvent TDataSet::*;
    const std::tuple<const char*, TDataSet*, Hook> hooks[] = {{"AfterInsert", placements, &TDataSet::AfterInsert},
        {"BeforePost", placements, &TDataSet::BeforePost}, {"AfterPost", placements, &TDataSet::AfterPost},
        {"AfterScroll", placements, &TDataSet::AfterScroll},
        {"AfterScroll of the catalogue", catalogue, &TDataSet::AfterScroll}, {"OnAddTerFromSimb", nullptr, nullptr}};
    for (const auto& [where, dataset, hook] : hooks)
        for (const auto& [what, deed] : deeds)
            for (const int nth : {0, 1, 2}) // of the handler's calls
                for (const bool drop : {true, false}) {
                    SCOPED_TRACE(std::string(what) + " in " + where + " call " + std::to_string(nth)
                        + (drop ? " drop" : " add"));
                    Renew();
                    placements->Open();
                    if (!panel)
                        panel = new TImageEnMView(root.get());
                    panel->Clear();
                    panel->SetBounds(0, 0, 300, 120);
                    chart->CreaMViewPanel(panel);
                    panel->SetSelectedItem(1);
                    view->Widget()->show();
                    panel->Widget()->show();
                    int calls = 0;
                    const auto act = [&] {
                        if (calls++ == nth)
                            deed();
                    };
                    chart->OnAddTerFromSimb = nullptr;
                    if (hook)
                        dataset->*hook = [&](TDataSet*) { act(); };
                    else
                        chart->OnAddTerFromSimb = [&](TObject*) { act(); };
                    const ReportedExceptions reported;
                    try {
                        if (drop)
                            Drop(1, {60, 60});
                        else
                            chart->AddSimbolo(2, u"11", u"Otturazione", 5, {});
                    } catch (const Exception&) { // such as: the dataset is closed
                    }
                    if (hook)
                        dataset->*hook = nullptr;
                    EXPECT_FALSE(placements->ControlsDisabled() || catalogue->ControlsDisabled());
                    EXPECT_NE(placements->State(), TDataSetState::dsInsert);
                    EXPECT_TRUE(!view || !view->UpdateLocked());
                }
}

TEST_F(SymbolPanel, TheDialogGivesTheChosenSymbol)
{
    const struct {
        int Before;
        std::vector<Qt::Key> Keys;
        int Click; ///< a thumbnail to click on, or -1
        int After;
    } cases[] = {{0, {Qt::Key_Return}, -1, 1}, {3, {Qt::Key_Return}, -1, 3}, {99, {Qt::Key_Return}, -1, 1},
        {3, {Qt::Key_Return}, 1, 2}, {3, {Qt::Key_Escape}, 1, 3}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.Before) + " -> " + std::to_string(c.After));
        catalogue->Last();
        int chosen = c.Before;
        bool acted = false;
        QTimer ticker;
        ticker.callOnTimeout([&] {
            const QWidget* window = QApplication::activeModalWidget();
            if (!window || QApplication::activeWindow() != window || std::exchange(acted, true))
                return;
            TImageEnMView& list = *vornSimbSelectDlg->ImageEnMView1;
            if (c.Click >= 0)
                Mouse().Click(list, {list.ImageCell(c.Click).Left + 3, list.ImageCell(c.Click).Top + 3});
            for (const Qt::Key key : c.Keys)
                Type(key);
        });
        ticker.start(0);
        QTimer::singleShot(10'000, &ticker, [] { vornSimbSelectDlg->SetModalResult(99); });
        const bool accepted = TVornIEDBTerList::SelezionaSimbolo(chosen, catalogue, view);
        EXPECT_EQ(accepted, c.Keys.empty() || c.Keys.back() != Qt::Key_Escape);
        EXPECT_TRUE(acted);
        EXPECT_EQ(chosen, c.After);
        EXPECT_EQ(catalogue->FieldByName(u"SIMB_ID").AsInteger(), 1);
    }
    ShowCatalogue({{.Id = 1}}, u"Terapia");
    int chosen = 5;
    EXPECT_THROW(TVornIEDBTerList::SelezionaSimbolo(chosen, catalogue, view), EDatabaseError);
    EXPECT_EQ(chosen, 5);
}

} // namespace
} // namespace vorn
