#include "tests/support/database_file.h"
#include "tests/support/mouse.h"
#include "tests/support/patient_fixture.h"
#include "tests/support/reported_exceptions.h"

namespace vorn {
namespace {

using namespace test;
using enum TDiagnosiShow;

class Diagnosis : public PatientFixture {
protected:
    static inline const std::vector<Treatment> Rows = {
        {.Id = 1, .Dente = u"11", .Diagnosi = u"C"},
        {.Id = 2, .Dente = u"12", .Diagnosi = u"X"},
        {.Id = 3, .Padre = 2, .Dente = u"21", .Progressivo = 1, .Diagnosi = u"C"},
        {.Id = 4, .Dente = u"GL", .Diagnosi = u"C"},
        {.Id = 5, .Dente = u"11", .Diagnosi = u"c"},
        {.Id = 6, .Dente = u"11", .Diagnosi = u"C"},
        {.Id = 7, .Dente = u"22"},
        {.Id = 8, .Dente = u"22", .Stato = 4, .Diagnosi = u"C"},
    };
    static inline const std::vector<Treatment> OneRow = {{.Id = 1, .Diagnosi = u"C"}, {.Id = 2, .Dente = u"GL"}};

    std::string Text() const { return Utf8(Box().Caption()); }
};

TEST_F(Diagnosis, LinesAreWordedAsDiagnosiShowSays)
{
    struct Case {
        TDiagnosiShow Show;
        bool Table;
        std::string Text;
    };
    const std::string codes = "Diagnosi\r\n11 - C\r\n12 - X\r\nC";
    const Case cases[] = {{diagSigla, false, codes}, {diagSiglaDescr, false, codes}, {diagDescr, false, codes},
        {diagNone, false, ""}, {diagSigla, true, codes}, // "c" on 11 is listed as "C"
        {diagSiglaDescr, true, "Diagnosi\r\n11 - C Carie\r\n12 - X\r\nC Carie\r\n11 - c"},
        {diagDescr, true, "Diagnosi\r\n11 - Carie\r\n12 - X\r\nCarie\r\n11 - c"}, {diagNone, true, ""}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Text);
        chart->SetDataSourceDiagnosi(nullptr);
        if (c.Table)
            ShowDiagnoses();
        chart->SetDiagnosiShow(c.Show);
        ShowTreatments(Rows);
        EXPECT_EQ(Text(), c.Text);
        EXPECT_EQ(chart->DiagPazVisible(), c.Show != diagNone);
        EXPECT_TRUE(chart->DiagPazExists()) << "shown or not";
    }
    ShowTreatments({{.Id = 1}});
    EXPECT_FALSE(chart->DiagPazExists());
    EXPECT_FALSE(chart->DiagPazVisible());
    EXPECT_EQ(Text(), "");
}

TEST_F(Diagnosis, AChangedRowAddsItsLineAndOnlyARebuildTakesOneAway)
{
    ShowTreatments(OneRow);
    Change(1, u"Diagnosi", u"Z");
    EXPECT_EQ(Text(), "Diagnosi\r\n11 - C\r\n11 - Z");
    Change(2, u"Diagnosi", u"A");
    EXPECT_EQ(Text(), "Diagnosi\r\n11 - C\r\n11 - Z\r\nA");
    Change(1, u"Diagnosi", u"");
    EXPECT_EQ(Text(), "Diagnosi\r\n11 - C\r\n11 - Z\r\nA");
    chart->CreaCollection();
    EXPECT_EQ(Text(), "Diagnosi\r\nA");
    chart->SetEnabledImg(false);
    chart->CreaCollection();
    EXPECT_FALSE(chart->DiagPazVisible()) << "no labels, no lines";
}

TEST_F(Diagnosis, TheStoredPlaceIsReadAsFarAsItGoes)
{
    struct Case {
        TValue Stored;
        TPoint Place;
        bool Shown;
    };
    const TPoint usual = {200, 2};
    const Case cases[] = {{{}, usual, true}, {u"", usual, true}, {u"0 0 1", usual, true}, {u"0 0 0", usual, true},
        {u"0 7 1", {0, 7}, true}, {u"30 40 1", {30, 40}, true}, {u"30 40 0", {30, 40}, false},
        {u"30 40", {30, 40}, true}, {u"30", {30, 0}, true}, {u"30 x 0", {30, 0}, true}, {u"30 40 x", {30, 40}, true},
        {u"30,40,0", {30, 0}, true}, {u"-5 7 1", {-5, 7}, true}, {u"30 40 2 9", {30, 40}, true},
        {u"nessuna", usual, true}, {String(5000, u'x'), usual, true}};
    for (const Case& c : cases) {
        SCOPED_TRACE(IsNull(c.Stored) ? "null" : Utf8(std::get<String>(c.Stored).substr(0, 20)));
        ShowRecord({}, c.Stored);
        ShowTreatments(OneRow);
        EXPECT_EQ(chart->DiagnosiPoint(), c.Place);
        EXPECT_EQ(chart->DiagPazVisible(), c.Shown);
        EXPECT_TRUE(chart->DiagPazExists());
        EXPECT_EQ(Text(), "Diagnosi\r\n11 - C");
        const int right = c.Shown ? std::max(200, c.Place.X + Box().Width()) : 200;
        EXPECT_EQ(chart->MaxRect.Right + chart->OffsetX(), right) << "the chart makes room for a shown box";
    }
    chart->SetDiagnosiPoint({60, 70});
    EXPECT_EQ(chart->DiagnosiPoint(), (TPoint{60, 70}));
    EXPECT_EQ(StoredPlace().size(), 5000u) << "nothing is saved";
}

TEST_F(Diagnosis, HidingAndShowingAreSaved)
{
    ShowRecord({}, u"30 40 1");
    ShowTreatments(OneRow);
    int posts = 0;
    record->BeforePost = [&](TDataSet* dataset) {
        ++posts;
        EXPECT_EQ(dataset->Tag(), -1);
    };
    chart->SetDiagPazVisible(true);
    EXPECT_EQ(posts, 0) << "nothing changes";
    chart->SetDiagPazVisible(false);
    EXPECT_EQ(Utf8(StoredPlace()), "30 40 0");
    chart->CreaCollection();
    EXPECT_FALSE(chart->DiagPazVisible()) << "a hidden box stays hidden";
    Change(2, u"Diagnosi", u"A");
    EXPECT_FALSE(chart->DiagPazVisible());
    chart->SetDiagPazVisible(true);
    EXPECT_TRUE(chart->DiagPazVisible());
    EXPECT_EQ(Utf8(StoredPlace()), "30 40 1");
    EXPECT_EQ(record->Tag(), 0);

    chart->SetDiagnosiPoint({0, 0}); // what counts as no place
    chart->SetDiagPazVisible(false);
    chart->CreaCollection();
    EXPECT_FALSE(chart->DiagPazVisible());

    ShowTreatments({{.Id = 1}});
    chart->SetDiagnosiPoint({60, 70});
    chart->SetDiagPazVisible(true);
    EXPECT_FALSE(chart->DiagPazVisible()) << "there is nothing to show";
    EXPECT_EQ(Utf8(StoredPlace()), "0 0 0");
    EXPECT_EQ(posts, 4);
    Change(1, u"Diagnosi", u"C");
    EXPECT_TRUE(chart->DiagPazVisible()) << "nobody has hidden it";
}

TEST_F(Diagnosis, ARefusedSaveGivesUpOnlyWhatItBegan)
{
    ShowRecord({}, u"30 40 1");
    ShowTreatments(OneRow);
    record->BeforePost = [](TDataSet*) { throw EDatabaseError(u"rifiutato"); };
    for (const bool typing : {false, true}) {
        if (typing) {
            record->Edit();
            record->FieldByName(u"Mancanti").SetAsString(u"1");
        }
        EXPECT_EQ(MessageOf<EDatabaseError>([&] { chart->SetDiagPazVisible(typing); }), "rifiutato");
        EXPECT_EQ(record->State(), typing ? TDataSetState::dsEdit : TDataSetState::dsBrowse);
        EXPECT_EQ(Utf8(record->FieldByName(u"Mancanti").AsString()), typing ? "1" : "");
        EXPECT_EQ(record->Tag(), 0);
        EXPECT_EQ(Utf8(StoredPlace()), "30 40 1");
    }
    record->Cancel();
    Box().Add();
    chart->SetContainer(nullptr);
    EXPECT_FALSE(chart->DiagPazVisible()) << "there is no box without a view";
    EXPECT_EQ(Selected(), std::vector<int>());
    chart->SetDiagPazVisible(true); // and nothing to save
    chart->SetContainer(view);
    chart->CreaCollection();
    record->Delete();
    chart->SetDiagPazVisible(false); // nowhere to save
    record->Close();
    chart->SetDiagPazVisible(true);
    EXPECT_TRUE(chart->DiagPazVisible());
}

TEST_F(Diagnosis, ABoxThatAReloadBringsUpMakesRoomOnceTheRowIsRead)
{
    const std::vector<Treatment> two = {{.Id = 1, .X = 20, .Y = 60}, {.Id = 2, .X = 70, .Y = 60}};
    ShowSymbols({{5, 5}});
    ShowTreatments(two);
    view->SetLayersCurrent(1);
    Change(1, u"Diagnosi", u"C");
    EXPECT_EQ(chart->DiagnosiPoint(), (TPoint{200, 2})) << "beside the picture, whatever is selected";

    ShowRecord({}, u"-30 40 1");
    ShowTreatments(two);
    Change(1, u"Diagnosi", u"C");
    EXPECT_EQ(chart->OffsetX(), -30);
    EXPECT_EQ(Label(1)->Left(), 50);
    EXPECT_EQ(Label(2)->Left(), 100);
    chart->ZoomIn();
    EXPECT_EQ(Label(2)->Left() - Label(1)->Left(), 55);
}

TEST_F(Diagnosis, AHiddenBoxStaysHiddenInTheNextChartOnTheFile)
{
    ExecuteOnFile(DatabaseFile(),
        {u"CREATE TABLE cartella (ID INTEGER PRIMARY KEY, Mancanti TEXT, POS_DIAGNOSI TEXT)",
            u"INSERT INTO cartella VALUES (1, '', NULL)"});
    auto* connection = new TSqlConnection(root.get());
    connection->OpenFile(DatabaseFile());
    TSqlDataSet row(root.get());
    row.SetConnection(connection);
    row.SetCommandText(u"SELECT * FROM cartella");
    row.SetUpdateTable(u"cartella", u"ID");
    row.Open();
    recordSource->SetDataSet(&row);
    ShowTreatments(OneRow);
    ASSERT_TRUE(chart->DiagPazVisible());
    chart->SetDiagPazVisible(false);

    row.Close();
    row.Open();
    TImageEnView other(nullptr);
    TVornIEDBTerList next(nullptr);
    next.SetKeyField(u"ID");
    next.SetParentField(u"PADRE");
    next.SetDefaultLabel(look);
    next.SetDataSourceCartella(recordSource);
    next.SetContainer(&other);
    next.SetDataSourceSfondi(backgroundsSource);
    next.SetDataSource(treatmentsSource);
    EXPECT_FALSE(next.DiagPazVisible());
    next.SetDiagPazVisible(true);
    EXPECT_EQ(Utf8(Box(next).Caption()), "Diagnosi\r\n11 - C");
    EXPECT_EQ(Utf8(row.FieldByName(u"POS_DIAGNOSI").AsString()), "200 2 1");
}

class DiagnosisDragging : public Diagnosis {
protected:
    DiagnosisDragging()
    {
        chart->SetRiposizionaPrestazioni(true);
        chart->SetShowDragPrestazioni(true);
        ShowRecord({}, u"100 50 1");
    }
};

TEST_F(DiagnosisDragging, StoresWhereItIsLeftWithoutOffset)
{
    ShowTreatments({{.Id = 1, .X = -20, .Y = 30, .Diagnosi = u"C"}});
    ASSERT_EQ(chart->OffsetX(), -20);
    EXPECT_EQ(chart->DiagnosiPoint(), (TPoint{100, 50}));
    Mouse().Click(Box(), {15, 5});
    Mouse().Drag(Box(), {3, 3}, {13, 18});
    EXPECT_EQ(Utf8(StoredPlace()), "110 65 1");
    EXPECT_EQ(record->Tag(), 0);
    chart->CreaCollection();
    EXPECT_EQ(chart->DiagnosiPoint(), (TPoint{110, 65}));
    EXPECT_EQ(Stored(1, u"X"), TValue(std::int64_t{-20}));
}

TEST_F(DiagnosisDragging, BoxAndLabelsAreSavedWhicheverIsDraggedAndWhicheverIsRefused)
{
    for (int turn = 0; turn < 8; ++turn) {
        SCOPED_TRACE(turn);
        const bool byBox = turn & 1, boxRefused = turn & 2, rowRefused = turn & 4;
        const ReportedExceptions reported;
        const auto refuse = [](const char16_t* what) { return [what](TDataSet*) { throw EDatabaseError(what); }; };
        ShowRecord({}, u"100 50 1");
        ShowTreatments({{.Id = 1, .X = 20, .Y = 90, .Diagnosi = u"C"}, {.Id = 2, .X = 60, .Y = 90}});
        if (boxRefused)
            record->BeforePost = refuse(u"cartella");
        if (rowRefused)
            treatments->BeforePost = refuse(u"riga");
        ClickLabel(1);
        Mouse(Qt::ShiftModifier).Click(Box(), {15, 5});
        ASSERT_EQ(Selected().size(), 2u);
        Mouse().Drag(byBox ? Box() : *Label(1), {3, 3}, {8, 10});
        EXPECT_EQ(Utf8(StoredPlace()), boxRefused ? "100 50 1" : "105 57 1");
        EXPECT_EQ(Stored(1, u"X"), TValue(std::int64_t{rowRefused ? 20 : 25}));
        EXPECT_EQ(Stored(1, u"Y"), TValue(std::int64_t{rowRefused ? 90 : 97}));
        EXPECT_EQ(Stored(2, u"X"), TValue(std::int64_t{60}));
        const std::vector<String> first = {boxRefused ? u"cartella" : u"riga"};
        EXPECT_EQ(reported.Texts(), boxRefused || rowRefused ? first : std::vector<String>());
    }
}

} // namespace
} // namespace vorn
