#include "tests/support/database_file.h"
#include "tests/support/mouse.h"
#include "tests/support/patient_fixture.h"

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
    const Case cases[] = {{{}, usual, true}, {u"", usual, true}, {u"0 0 1", usual, true}, {u"0 0 0", usual, false},
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

    ShowTreatments({{.Id = 1}});
    chart->SetDiagPazVisible(true);
    EXPECT_FALSE(chart->DiagPazVisible()) << "there is nothing to show";
    EXPECT_EQ(Utf8(StoredPlace()).back(), '0');
    EXPECT_EQ(posts, 3);
}

TEST_F(Diagnosis, ARefusedSaveGivesUpTheEdit)
{
    ShowRecord({}, u"30 40 1");
    ShowTreatments(OneRow);
    record->BeforePost = [](TDataSet*) { throw EDatabaseError(u"rifiutato"); };
    EXPECT_EQ(MessageOf<EDatabaseError>([this] { chart->SetDiagPazVisible(false); }), "rifiutato");
    EXPECT_EQ(record->State(), TDataSetState::dsBrowse);
    EXPECT_EQ(record->Tag(), 0);
    EXPECT_EQ(Utf8(StoredPlace()), "30 40 1");
    record->Close();
    chart->SetDiagPazVisible(true); // nowhere to save
    EXPECT_TRUE(chart->DiagPazVisible());
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

TEST_F(DiagnosisDragging, BoxAndLabelsAreSavedWhicheverOfThemIsDragged)
{
    for (const bool byBox : {true, false}) {
        SCOPED_TRACE(byBox);
        ShowRecord({}, u"100 50 1");
        ShowTreatments({{.Id = 1, .X = 20, .Y = 90, .Diagnosi = u"C"}, {.Id = 2, .X = 60, .Y = 90}});
        ClickLabel(1);
        Mouse(Qt::ShiftModifier).Click(Box(), {15, 5});
        ASSERT_EQ(Selected().size(), 2u);
        Mouse().Drag(byBox ? Box() : *Label(1), {3, 3}, {8, 10});
        EXPECT_EQ(Utf8(StoredPlace()), "105 57 1");
        EXPECT_EQ(Stored(1, u"X"), TValue(std::int64_t{25}));
        EXPECT_EQ(Stored(1, u"Y"), TValue(std::int64_t{97}));
        EXPECT_EQ(Stored(2, u"X"), TValue(std::int64_t{60}));
    }
}

} // namespace
} // namespace vorn
