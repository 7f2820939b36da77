#include "tests/support/patient_fixture.h"
#include "tests/support/pixels.h"

#include "platform/imaging/image_control.h"

#include <QFile>
#include <QTemporaryDir>

#include <unistd.h>

namespace vorn {
namespace {

using namespace test;

constexpr TColor Green = 0x00FF00;

class PictureContainer : public PatientFixture {
protected:
    PictureContainer() { ShowTreatments({{.Id = 1}}); }

    String Path(StringView name) const { return folder.path().toStdU16String() + u'/' + String(name); }
    String Save(StringView name, const Bytes& content) const
    {
        QFile file(QString::fromStdU16String(Path(name)));
        if (!file.open(QIODevice::WriteOnly))
            throw EStreamError(u"no such folder");
        file.write(reinterpret_cast<const char*>(content.data()), static_cast<qint64>(content.size()));
        return Path(name);
    }
    String SavePicture(StringView name, int width, int height, TColor color = clRed) const
    {
        return Save(name, Picture(width, height, color));
    }
    /// Nothing of a picture is left from the case before.
    void Forget()
    {
        chart->SetPictureContainer(u"");
        chart->CreaCollection();
    }
    void Show(const String& file)
    {
        chart->SetPictureContainer(file);
        chart->SetShowPictureContainer(true);
    }
    TPoint Size() const { return chart->GetSizePictureContainer(); }
    TColor Pixel() const { return TRGB2TColor(view->GetLayer(0).Bitmap().GetPixels_ie24RGB(5, 5)); }

    QTemporaryDir folder;
};

TEST_F(PictureContainer, WhatGoesWrongIsToldAndLeavesTheBackground)
{
    const String picture = SavePicture(u"foto.png", 40, 30);
    const String text = Save(u"testo.png", *Blob(u"nessuna immagine"));
    const String empty = Save(u"vuoto.png", {});
    const Bytes whole = Picture(40, 30, clRed);
    const String cut = Save(u"taglio.png", Bytes(whole.begin(), whole.begin() + 40));
    struct Case {
        String Container;
        std::string Message;
        bool Shown; // the mode afterwards
    };
    const auto missing = [](const String& file) { return "File " + Utf8(file) + " non trovato"; };
    const auto unread = [](const String& file) { return "Errore nel caricamento del file " + Utf8(file); };
    const Case cases[] = {{Path(u"x.png"), missing(Path(u"x.png")), false},
        {Path(u"x.png") + u",50", missing(Path(u"x.png")), false}, {Path(u""), missing(Path(u"")), false},
        {text, unread(text), true}, {empty, unread(empty), true}, {cut, unread(cut), true}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Message);
        Show(c.Container);
        EXPECT_EQ(TakeMessages(), std::vector{c.Message});
        EXPECT_EQ(chart->ShowPictureContainer(), c.Shown);
        EXPECT_EQ(Utf8(chart->PictureContainer()), Utf8(c.Container.substr(0, c.Container.find(u','))));
        EXPECT_EQ(Size(), (TPoint{200, 150}));
        EXPECT_EQ(Labels(), std::vector{1});
        Forget();
    }
    for (const StringView list : {u"a.png;b.png", u";", u"a;b;c,x"}) {
        chart->SetPictureContainer(list);
        EXPECT_EQ(
            MessageOf<Exception>([this] { chart->SetShowPictureContainer(true); }), "Puo essere gestito un solo file");
        EXPECT_FALSE(chart->ShowPictureContainer());
        EXPECT_EQ(Utf8(chart->PictureContainer()), Utf8(list));
    }
    for (const StringView width : {u",x", u",", u",30 px", u",30,40"}) {
        Forget();
        chart->SetPictureContainer(picture + String(width));
        MessageOf<EConvertError>([this] { chart->SetShowPictureContainer(true); });
        EXPECT_EQ(Utf8(chart->PictureContainer()), Utf8(picture)) << "cut off already";
        EXPECT_TRUE(chart->ShowPictureContainer());
    }
}

TEST_F(PictureContainer, AFileThatMayNotBeReadCountsAsNothingLoaded)
{
    if (geteuid() == 0)
        GTEST_SKIP() << "the superuser may read everything";
    const String file = SavePicture(u"foto.png", 40, 30);
    QFile::setPermissions(QString::fromStdU16String(file), {});
    Show(file);
    EXPECT_EQ(TakeMessages(), std::vector{"Errore nel caricamento del file " + Utf8(file)});
    EXPECT_TRUE(chart->ShowPictureContainer());
}

TEST_F(PictureContainer, AMissingFileHasTheChartRebuiltTwice)
{
    int scrolls = 0;
    treatments->AfterScroll = [&](TDataSet*) { ++scrolls; };
    chart->CreaCollection();
    const int once = std::exchange(scrolls, 0);
    ASSERT_GT(once, 0);
    Show(Path(u"x.png"));
    EXPECT_EQ(scrolls, 2 * once);
    EXPECT_EQ(TakeMessages().size(), 1u);
}

TEST_F(PictureContainer, FitsIntoTheSizeThatIsAskedFor)
{
    ShowBackground(Blob(Picture(600, 400, clWhite)), Zones);
    const String square = SavePicture(u"quadro.png", 100, 100);
    const String wide = SavePicture(u"largo.png", 100, 50);
    struct Case {
        TPoint Init;
        String File;
        TPoint Size;
    };
    const Case cases[] = {{{}, square, {400, 400}}, {{}, square + u",300", {300, 300}},
        {{}, wide + u",300", {300, 150}}, {{0, 20}, square, {400, 400}}, {{50, 80}, square, {50, 50}},
        {{50, 80}, wide, {50, 25}}, {{50, 80}, wide + u",90", {90, 45}}};
    for (const Case& c : cases) {
        SCOPED_TRACE(Utf8(c.File));
        Forget();
        chart->InitPictureSize = c.Init;
        Show(c.File);
        EXPECT_EQ(Size(), c.Size);
        EXPECT_EQ(Pixel(), clRed);
        EXPECT_EQ(chart->MaxRect.Right, std::max(c.Size.X, Label(1)->BoundsRect().Right));
    }
    Forget();
    Show(square + u",300");
    chart->SetPictureContainer(wide);
    chart->SetPictureContainer(square);
    chart->CreaCollection();
    EXPECT_EQ(Size(), (TPoint{400, 400})) << "the width was for the first load alone";
}

TEST_F(PictureContainer, StepsTheSizeByTenths)
{
    const std::tuple<TPoint, bool, TPoint> cases[] = {{{600, 400}, true, {660, 440}}, {{600, 400}, false, {540, 360}},
        {{25, 25}, false, {22, 22}}, {{25, 25}, true, {28, 28}}, {{5, 5}, true, {6, 6}}, {{1, 1}, false, {1, 1}}};
    for (const auto& [size, larger, stepped] : cases) {
        SCOPED_TRACE(size.X);
        Forget();
        chart->InitPictureSize = size;
        Show(SavePicture(u"foto.png", size.X, size.Y));
        ASSERT_EQ(Size(), size);
        const TPoint label = {Label(1)->Left(), Label(1)->Top()};
        chart->ResizePictureContainer(larger);
        EXPECT_EQ(Size(), stepped);
        EXPECT_EQ((TPoint{Label(1)->Left(), Label(1)->Top()}), label);
        EXPECT_EQ(view->GetLayer(0).Opacity(), chart->InitPictureOpacity());
    }
    chart->SetShowPictureContainer(false);
    chart->ResizePictureContainer(true);
    EXPECT_EQ(Size(), (TPoint{165, 165})) << "fits into the stepped background";
    EXPECT_EQ(Pixel(), clRed);
}

TEST_F(PictureContainer, AStepKeepsTheLeaderLines)
{
    ShowTreatments({{.Id = 1, .Dente = u"11 21"}});
    Show(SavePicture(u"foto.png", 400, 300, clWhite));
    const auto blue = [this] { return CountPixels(PictureOf(*view), qRgb(0, 0, 255)); };
    chart->SetInitPictureOpacity(255);
    const int before = blue();
    EXPECT_GT(before, 50);
    chart->ResizePictureContainer(true);
    EXPECT_EQ(blue(), before);
}

TEST_F(PictureContainer, AStepWithoutAPictureChangesNothing)
{
    chart->ResizePictureContainer(true);
    EXPECT_EQ(Size(), (TPoint{200, 150}));
    const String file = SavePicture(u"foto.png", 40, 30);
    Show(file + u",40");
    const TPoint shown = Size();
    QFile::rename(QString::fromStdU16String(file), QString::fromStdU16String(Path(u"altra.png")));
    chart->ResizePictureContainer(true);
    EXPECT_EQ(Size(), shown);
    Save(u"foto.png", *Blob(u"nessuna immagine"));
    chart->ResizePictureContainer(false);
    EXPECT_EQ(Size(), shown);
    chart->CreaCollection();
    EXPECT_EQ(Pixel(), clRed) << "the picture is still held";
}

TEST_F(PictureContainer, IsReadOnceAndHeldUntilItsNameChanges)
{
    const String red = SavePicture(u"rossa.png", 200, 150, clRed);
    const String green = SavePicture(u"verde.png", 200, 150, Green);
    Show(red);
    EXPECT_EQ(Pixel(), clRed);
    SavePicture(u"rossa.png", 200, 150, clBlue);
    chart->SetShowPictureContainer(false);
    EXPECT_EQ(Pixel(), clWhite);
    chart->SetPictureContainer(red);
    chart->SetShowPictureContainer(true);
    EXPECT_EQ(Pixel(), clRed);
    chart->SetPictureContainer(green);
    EXPECT_EQ(Pixel(), clRed) << "shown by the next rebuild";
    chart->CreaCollection();
    EXPECT_EQ(Pixel(), Green);
    chart->SetShowPictureContainer(false);
    chart->SetPictureContainer(red); // off: read when the mode comes on
    QFile::remove(QString::fromStdU16String(green));
    chart->SetShowPictureContainer(true);
    EXPECT_EQ(Pixel(), clBlue);
    chart->InitPictureSize = {9, 9};
    chart->SetPictureContainer(u"");
    EXPECT_FALSE(chart->ShowPictureContainer());
    EXPECT_EQ(chart->InitPictureSize, TPoint());
    EXPECT_EQ(Pixel(), clWhite);
}

TEST_F(PictureContainer, FromAFormIsLoadedOnceThereIsABackground)
{
    const String file = SavePicture(u"foto.png", 40, 30);
    for (const bool backgroundFirst : {true, false}) {
        Forget();
        if (!backgroundFirst)
            backgrounds->Close();
        chart->SetLoading(true);
        chart->SetShowPictureContainer(true);
        chart->SetPictureContainer(file);
        EXPECT_NE(Pixel(), clRed) << "the form isn't read to its end";
        chart->SetLoading(false);
        chart->Loaded();
        backgrounds->Open();
        chart->CreaCollection();
        EXPECT_EQ(Pixel(), clRed) << backgroundFirst;
        EXPECT_EQ(Size(), (TPoint{200, 150}));
    }
}

/// Named in code before there is a background to size it by, it waits for one; a size of its own makes it wait for
/// none.
TEST_F(PictureContainer, NamedBeforeTheBackgroundIsOpenWaitsForIt)
{
    const String file = SavePicture(u"foto.png", 100, 50);
    const std::function<void()> steps[] = {
        [&] { chart->SetPictureContainer(file + u",60"); },
        [&] { chart->SetShowPictureContainer(true); },
        [&] {
            chart->InitPictureSize = {30, 90};
        },
        [&] { chart->SetContainer(view); },
        [&] { backgrounds->Open(); },
    };
    std::vector<int> order = {0, 1, 2, 3, 4};
    do {
        const auto at = [&](int step) { return std::find(order.begin(), order.end(), step); };
        if (at(1) < at(0))
            continue; // a mode without a file is refused
        for (const bool sized : {true, false}) {
            SCOPED_TRACE(testing::PrintToString(order));
            delete std::exchange(chart, nullptr);
            backgrounds->Close();
            chart = new TVornIEDBTerList(root.get());
            chart->SetKeyField(u"ID");
            chart->SetParentField(u"PADRE");
            chart->SetDataSourceSfondi(backgroundsSource);
            for (const int step : order)
                if (step != 2 || sized)
                    steps[step]();
            backgrounds->Refresh();
            // The width behind the name counts before the size; with neither loaded twice.
            EXPECT_EQ(Size(), (TPoint{60, 30}));
            EXPECT_EQ(Pixel(), clRed);
            EXPECT_EQ(chart->PictureContainer(), file);
        }
    } while (std::next_permutation(order.begin(), order.end()));
    EXPECT_EQ(TakeMessages(), std::vector<std::string>());
}

/// What can be told at once doesn't wait.
TEST_F(PictureContainer, WithoutABackgroundErrorsAreToldAtOnce)
{
    backgrounds->Close();
    delete chart;
    chart = new TVornIEDBTerList(root.get());
    chart->SetContainer(view);
    Show(Path(u"x.png") + u",50");
    EXPECT_EQ(TakeMessages(), std::vector{"File " + Utf8(Path(u"x.png")) + " non trovato"});
    EXPECT_FALSE(chart->ShowPictureContainer());
    chart->SetPictureContainer(u"a;b");
    EXPECT_THROW(chart->SetShowPictureContainer(true), Exception);
    chart->SetPictureContainer(SavePicture(u"foto.png", 40, 30) + u",x");
    EXPECT_THROW(chart->SetShowPictureContainer(true), EConvertError);
    view->Blank();
    chart->ResizePictureContainer(true);
    EXPECT_EQ(Size(), TPoint()) << "no size to step from";
}

TEST_F(PictureContainer, PutsTheVeilsAwayAndLetsLabelsBeDragged)
{
    ShowRecord(String(52, u'1'));
    chart->SetRiposizionaPrestazioni(true);
    ShowTreatments({{.Id = 1, .X = 60, .Y = 70}});
    EXPECT_EQ(view->GetLayersCount(), 5);
    EXPECT_EQ(Label(1)->Left(), 15);
    Show(SavePicture(u"foto.png", 200, 150));
    EXPECT_EQ(view->GetLayersCount(), 1);
    EXPECT_EQ(Label(1)->Left(), 60);
    EXPECT_TRUE(Label(1)->ShowDrag);
    chart->SetShowPictureContainer(false);
    EXPECT_EQ(view->GetLayersCount(), 5);
    EXPECT_EQ(Label(1)->Left(), 15);
}

TEST_F(PictureContainer, OpacityReachesTheShownPictureAndTheNextRebuild)
{
    EXPECT_EQ(chart->InitPictureOpacity(), 250);
    EXPECT_EQ(view->GetLayer(0).Opacity(), 255);
    Show(SavePicture(u"foto.png", 200, 150));
    EXPECT_EQ(view->GetLayer(0).Opacity(), 250);
    chart->SetInitPictureOpacity(100);
    EXPECT_EQ(view->GetLayer(0).Opacity(), 100);
    chart->CreaCollection();
    EXPECT_EQ(view->GetLayer(0).Opacity(), 100);
    chart->SetShowPictureContainer(false);
    chart->SetInitPictureOpacity(90);
    EXPECT_EQ(view->GetLayer(0).Opacity(), 90) << "of a plain background too";
}

TEST_F(PictureContainer, ResetForgetsAPictureThatIsHeldAndNothingElse)
{
    chart->SetPictureContainer(u"nome");
    chart->SetInitPictureOpacity(90);
    chart->InitPictureId = 3;
    chart->ResetPictureContainer();
    EXPECT_EQ(Utf8(chart->PictureContainer()), "nome");
    EXPECT_EQ(chart->InitPictureOpacity(), 90);
    EXPECT_EQ(chart->InitPictureId, 3);

    chart->InitPictureSize = {20, 20};
    Show(SavePicture(u"foto.png", 20, 20));
    chart->ResetPictureContainer();
    EXPECT_FALSE(chart->ShowPictureContainer());
    EXPECT_EQ(Utf8(chart->PictureContainer()), "");
    EXPECT_EQ(chart->InitPictureSize, TPoint());
    EXPECT_EQ(chart->InitPictureOpacity(), 255);
    EXPECT_EQ(chart->InitPictureId, 0);
    EXPECT_EQ(Size(), (TPoint{200, 150}));
}

TEST_F(PictureContainer, TheExportIsWhatTheScreenShows)
{
    ShowRecord(String(52, u'1'), u"210 20 1");
    ShowSymbols({{20, 20}, {100, -6}});
    ShowTreatments({{.Id = 1, .X = -25, .Y = 30, .Diagnosi = u"C"}, {.Id = 2, .Dente = u"12 21"},
        {.Id = 3, .Dente = u"GL", .Aspetto = u"VER"}});
    TImage image(nullptr);
    chart->CreaPicture(&image);
    ASSERT_EQ(image.Picture().Width(), chart->MaxRect.Right);
    ASSERT_EQ(image.Picture().Height(), chart->MaxRect.Bottom);
    view->SetBackground(clWhite); // the export's paper
    const QImage screen = PictureOf(*view);
    const QImage& picture = image.Picture().Image();
    ExpectPixels(picture.convertToFormat(QImage::Format_RGB32), [&](int x, int y) { return screen.pixel(x, y); });

    TVornIEDBTerList unused(nullptr);
    unused.SetContainer(view);
    unused.CreaPicture(&image); // nothing has been measured yet
    EXPECT_TRUE(image.Picture().IsEmpty());
}

} // namespace
} // namespace vorn
