#include "tests/imaging/picture_bytes.h"
#include "tests/support/symbol_fixture.h"

namespace vorn {
namespace {

using namespace test;

class SymbolLayers : public SymbolFixture {
protected:
    static BlobValue FromQt(const QByteArray& bytes)
    {
        const auto* data = reinterpret_cast<const std::byte*>(bytes.constData());
        return Blob(Bytes(data, data + bytes.size()));
    }
    /// The chart without its controls, so that every layer is drawn.
    void Draw()
    {
        TIEBitmap paper;
        paper.Allocate(200, 150);
        view->DrawLayersTo(paper);
    }
};

TEST_F(SymbolLayers, ALayerLooksAsItsRowTells)
{
    const struct {
        double Scale;
        int Angle;
        TValue Opacity;
        TPoint Size;
        double Rotate;
        int Shown;
    } cases[] = {
        {0, 0, std::int64_t{255}, {20, 10}, 0, 255},
        {100, 30, std::int64_t{254}, {20, 10}, -30, 254},
        {150, -315, std::int64_t{0}, {30, 15}, 315, 0},
        {149, 7200003, TValue(), {29, 14}, -7200003, 0},
        {33, -45, std::int64_t{-5}, {6, 3}, 45, -5},
        {-50, 0, std::int64_t{999}, {0, 0}, 0, 999},
        {100000, 1, std::int64_t{128}, {20000, 10000}, -1, 128},
        {2147483647, 45, std::int64_t{255}, {429496729, 214748364}, -45, 255},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Scale);
        ShowPlacements({{.Angle = c.Angle, .Scale = c.Scale, .Opacity = c.Opacity}});
        ASSERT_EQ(Symbols(), 1);
        EXPECT_EQ((TPoint{Layer(0).GetWidth(), Layer(0).GetHeight()}), c.Size);
        EXPECT_EQ(Layer(0).GetRotate(), c.Rotate);
        EXPECT_EQ(Layer(0).Opacity(), c.Shown);
        EXPECT_TRUE(Layer(0).Selectable());
        EXPECT_EQ(Layer(0).Bitmap().Width(), 20) << "the natural picture stays";
        Draw();
        chart->AdjustBounds();
        ExpectNothingHalfDone();
    }
}

TEST_F(SymbolLayers, ALayerHoldsTheRecordOfItsRow)
{
    const String longName = String(59, u'n') + u"\u00E0\u20AC" + String(9, u'x');
    ShowPlacements({{.Key = 7, .Id = 2, .X = 100, .Y = 50, .Angle = -30, .Scale = 150, .Nome = longName},
        {.Key = 9, .Id = 1, .Nome = u"a\u20AC"}});
    ASSERT_EQ(Symbols(), 2);
    const TDibRec& rec = Rec(0);
    EXPECT_EQ(Layer(0).UserDataLen, 96);
    EXPECT_EQ(rec.Id, 2);
    EXPECT_EQ(rec.key, 7);
    EXPECT_EQ(rec.bmpwidth, 40);
    EXPECT_EQ(rec.bmpheight, 40);
    EXPECT_EQ(rec.Angle, -30);
    EXPECT_EQ(rec.Scale, 150);
    EXPECT_EQ(Utf8(rec.Nome.Text()), Utf8(longName.substr(0, 60)));
    EXPECT_EQ(Utf8(Rec(1).Nome.Text()), "a?");
    EXPECT_EQ(placements->FieldByName(u"Nome").AsString(), longName) << "the row keeps all of it, and stays current";

    chart->SetOffsetX(25);
    chart->SetOffsetY(-5);
    chart->ActiveChangedSimboli();
    EXPECT_EQ((TPoint{Layer(0).GetPosX(), Layer(0).GetPosY()}), (TPoint{75, 55}));
    chart->SetOffsetX(0);
    EXPECT_EQ(Layer(0).GetPosX(), 100);
}

TEST_F(SymbolLayers, TheCatalogueComesBeforeTheRowsOwnPicture)
{
    const BlobValue own = Blob(Picture(7, 7, clBlue));
    ShowCatalogue({{.Id = 1, .Picture = Blob(Picture(20, 10, clRed))}, {.Id = 1, .Picture = Blob(Picture(9, 9, clRed))},
        {.Id = 3, .Picture = Blob(u"nessuna immagine")}, {.Id = 4}});
    const struct {
        int Symbol;
        BlobValue Own;
        int Width; ///< 0: no layer
    } cases[] = {{1, own, 20}, {1, {}, 20}, {3, own, 0}, {4, own, 0}, {5, own, 7}, {5, {}, 0}, {5, Blob(u""), 0}};
    std::vector<Placement> rows;
    std::vector<int> widths;
    for (const auto& c : cases) {
        rows.push_back({.Key = static_cast<int>(rows.size()) + 1, .Id = c.Symbol, .Image = c.Own});
        if (c.Width > 0)
            widths.push_back(c.Width);
    }
    const auto shown = [this] {
        std::vector<int> all;
        for (int i = 0; i < Symbols(); ++i)
            all.push_back(Layer(i).Bitmap().Width());
        return all;
    };
    ShowPlacements(rows);
    EXPECT_EQ(shown(), widths) << "in the order of the rows";
    EXPECT_EQ(placements->RecordCount(), static_cast<int>(rows.size()));

    for (const bool closed : {false, true}) {
        SCOPED_TRACE(closed ? "closed" : "empty");
        ShowCatalogue({});
        catalogue->SetActive(!closed);
        chart->ActiveChangedSimboli();
        EXPECT_EQ(shown(), std::vector<int>(4, 7)) << "only their own";
    }
    ShowCatalogue({{.Id = 1, .Picture = Blob(Picture(33, 3, clRed))}});
    chart->ActiveChangedSimboli();
    EXPECT_EQ(shown()[0], 33) << "no picture of the last rebuild";
}

TEST_F(SymbolLayers, APictureThatCannotBeReadCostsOnlyItsLayer)
{
    const Bytes png = Picture(20, 10, clRed);
    const QByteArray file(reinterpret_cast<const char*>(png.data()), static_cast<qsizetype>(png.size()));
    const BlobValue bad[] = {Blob(u""), Blob(u"<html>"), FromQt(file.left(file.size() / 2)), FromQt(file.left(8)),
        FromQt(WithPngSize(file, 0, 0)), FromQt(WithPngSize(file, 60000, 60000)),
        FromQt(WithPngSize(file, 0x7FFFFFFF, 0x7FFFFFFF)), FromQt(TwoFrameGif().left(20))};
    std::vector<Symbol> symbols;
    std::vector<Placement> rows;
    for (const BlobValue& picture : bad)
        symbols.push_back({.Id = static_cast<int>(symbols.size()) + 1, .Picture = picture});
    symbols.push_back({.Id = 100, .Picture = FromQt(TwoFrameGif())});
    for (const Symbol& symbol : symbols)
        rows.push_back({.Key = static_cast<int>(rows.size()) + 1, .Id = symbol.Id});
    ShowCatalogue(symbols);
    ShowPlacements(rows);
    ASSERT_EQ(Symbols(), 1);
    EXPECT_EQ(Rec(0).Id, 100);
    EXPECT_EQ(Layer(0).Bitmap().Width(), 2) << "the animation's first frame";
    EXPECT_EQ(placements->RecordCount(), 9);
    ExpectNothingHalfDone();
}

TEST_F(SymbolLayers, AMissingColumnIsNamedAndNothingStaysHalfDone)
{
    const std::vector<Placement> rows{{.Key = 1}, {.Key = 2, .Id = 5, .Image = Blob(Picture(7, 7, clBlue))}};
    for (const StringView column : {u"id", u"Angle", u"Scale", u"X", u"Y", u"Opacity", u"IMMAGINE"}) {
        SCOPED_TRACE(Utf8(column));
        EXPECT_NE(
            MessageOf<EDatabaseError>([&] { ShowPlacements(rows, column); }).find(Utf8(column)), std::string::npos);
        EXPECT_EQ(view->LayersCurrent(), 0);
        ExpectNothingHalfDone();
        ShowPlacements(rows);
        EXPECT_EQ(Symbols(), 2) << "and the link isn't deaf";
    }
    for (const StringView column : {u"simb_id", u"Nome"}) {
        ShowPlacements(rows, column);
        EXPECT_EQ(Symbols(), 2) << Utf8(column);
    }
    for (const StringView column : {u"SIMB_ID", u"Grafico_ie"}) {
        ShowCatalogue({{.Picture = Blob(Picture(3, 3, clRed))}}, column);
        EXPECT_THROW(chart->ActiveChangedSimboli(), EDatabaseError) << Utf8(column);
        EXPECT_EQ(Symbols(), 0);
        ExpectNothingHalfDone();
    }
}

TEST_F(SymbolLayers, ARebuildReplacesSymbolLayersOnly)
{
    view->SetMouseInteract(0);
    ShowPlacements({});
    EXPECT_EQ(view->MouseInteract(), 0u) << "without rows nothing is set";
    view->LayersAdd(5, 5, 1, 1);
    view->GetCurrentLayer().UserDataLen = 95;
    ShowPlacements({{.Key = 1}, {.Key = 2}});
    EXPECT_EQ(view->MouseInteract(), miMoveLayers);
    EXPECT_EQ(view->GetLayersCount(), 4);
    EXPECT_EQ(view->GetLayer(1).UserDataLen, 95);
    EXPECT_EQ(view->LayersCurrent(), 0);

    ASSERT_TRUE(placements->Locate(u"simb_id", std::int64_t{1}));
    placements->Delete();
    EXPECT_EQ(Symbols(), 1);
    EXPECT_EQ(Rec(0).key, 2);
    chart->SetMViewDibDS(nullptr);
    placements->Close();
    EXPECT_EQ(Symbols(), 1) << "without a catalogue nothing is touched";
    chart->SetMViewDibDS(catalogueSource);
    chart->ActiveChangedSimboli();
    EXPECT_EQ(view->GetLayersCount(), 2);
}

TEST_F(SymbolLayers, TheSwitchHidesAtOnceAndARebuildUnderItLeavesNothing)
{
    ShowPlacements({{.Key = 1}, {.Key = 2}});
    view->SetLayersCurrent(2);
    chart->SetEnabledDib(false);
    EXPECT_EQ(view->LayersCurrent(), 0);
    EXPECT_FALSE(Layer(0).Visible() || Layer(1).Visible());
    EXPECT_TRUE(view->GetLayer(0).Visible());
    chart->SetEnabledDib(true);
    EXPECT_TRUE(Layer(0).Visible() && Layer(1).Visible());

    chart->SetEnabledDib(false);
    chart->ActiveChangedSimboli();
    chart->SetEnabledDib(true);
    EXPECT_EQ(Symbols(), 0);
    chart->ActiveChangedSimboli();
    EXPECT_EQ(Symbols(), 2);
}

/// What handlers of the datasets do in the middle of a rebuild.
TEST_F(SymbolLayers, ARebuildSurvivesItsHandlers)
{
    const struct {
        const char* Name;
        std::function<void()> Do;
        int Left; ///< symbols afterwards; -1: no chart or view to ask
    } cases[] = {
        {"rebuilds", [this] { chart->ActiveChangedSimboli(); }, 3},
        {"switches symbols off",
            [this] {
                chart->SetEnabledDib(false);
                chart->ActiveChangedSimboli();
            },
            0},
        {"takes the placements away", [this] { chart->SetDataSourceSimb(nullptr); }, 0},
        {"closes the placements", [this] { placements->Close(); }, 0},
        {"reopens the placements", [this] { placements->Close(), placements->Open(); }, 3},
        {"reopens the catalogue", [this] { catalogue->Close(), catalogue->Open(); }, 3},
        {"takes the catalogue away", [this] { chart->SetMViewDibDS(nullptr); }, 3},
        {"takes the view away", [this] { chart->SetContainer(nullptr); }, -1},
        {"frees the view", [this] { delete std::exchange(view, nullptr); }, -1},
        {"frees the chart", [this] { delete std::exchange(chart, nullptr); }, -1},
    };
    for (const int when : {0, 1, 2, 3})
        for (const auto& c : cases) {
            const bool ofCatalogue = when % 2 != 0;
            const auto event = when < 2 ? &TDataSet::AfterScroll : &TDataSet::BeforeScroll;
            SCOPED_TRACE(std::string(c.Name) + (ofCatalogue ? " (catalogue)" : " (placements)"));
            Renew();
            ShowPlacements({{.Key = 1}, {.Key = 2}, {.Key = 3}});
            catalogue->First();
            int scrolls = 0;
            const auto handler = [&](TDataSet*) {
                if (++scrolls == 2)
                    c.Do();
            };
            (ofCatalogue ? catalogue : placements)->*event = handler;
            chart->ActiveChangedSimboli();
            catalogue->*event = placements->*event = nullptr;
            EXPECT_GE(scrolls, 2);
            EXPECT_FALSE(placements->ControlsDisabled());
            EXPECT_TRUE(!view || !view->UpdateLocked());
            if (c.Left >= 0 && chart && view) {
                EXPECT_EQ(Symbols(), c.Left);
                EXPECT_EQ(view->LayersCurrent(), 0);
                EXPECT_EQ(view->GetLayersCount(), c.Left + 1);
            }
        }
}

TEST_F(SymbolLayers, ARebuildInTheMiddleOfASaveLeavesTheLayerAsItsRow)
{
    using Hook = TDataSetNotifyEvent TDataSet::*;
    const std::pair<const char*, Hook> hooks[]
        = {{"AfterScroll", &TDataSet::AfterScroll}, {"BeforeEdit", &TDataSet::BeforeEdit},
            {"AfterEdit", &TDataSet::AfterEdit}, {"BeforePost", &TDataSet::BeforePost}};
    for (const auto& [where, hook] : hooks)
        for (const bool reset : {false, true}) {
            SCOPED_TRACE(std::string(where) + (reset ? " of a reset" : " of a drag"));
            ShowPlacements({{.Key = 1, .X = 30, .Y = 20, .Scale = 150, .Opacity = std::int64_t{9}}, {.Key = 2}});
            Pick(0);
            placements->Last();
            bool done = false;
            placements->*hook = [&](TDataSet*) {
                if (!std::exchange(done, true))
                    chart->ActiveChangedSimboli();
            };
            if (reset)
                chart->SalvaCurrentDibReset();
            else
                DragSymbol(0, 10, 10);
            placements->*hook = nullptr;
            EXPECT_TRUE(done);
            EXPECT_EQ((TPoint{Layer(0).GetPosX(), Layer(0).GetPosY()}), (TPoint{Int(1, u"X"), Int(1, u"Y")}));
            EXPECT_EQ(Layer(0).Opacity(), Int(1, u"Opacity"));
            EXPECT_EQ(Layer(0).GetWidth(), 20 * Int(1, u"Scale") / 100);
            ExpectNothingHalfDone();
        }
}

} // namespace
} // namespace vorn
