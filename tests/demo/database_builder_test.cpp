#include "demo/dentition/dentition.h"
#include "demo/sample_placements.h"
#include "demo/sql_script.h"
#include "demo/symbols/symbol_art.h"
#include "tests/demo/sample_copy.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QVariant>

#include <stdexcept>

namespace vorn::demo {
namespace {

/// A freshly built database in a folder of its own, opened for reading and writing.
class SampleDatabase : public testing::Test {
protected:
    void SetUp() override
    {
        file = folder.filePath(FileName);
        CopySample(file);
        database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), Connection);
        database.setDatabaseName(file);
        ASSERT_TRUE(database.open());
    }
    void TearDown() override
    {
        database = QSqlDatabase();
        QSqlDatabase::removeDatabase(Connection);
    }
    QVariant Value(const QString& sql)
    {
        QSqlQuery query(database);
        return query.exec(sql) && query.next() ? query.value(0) : QVariant();
    }
    int Count(const QString& condition)
    {
        return Value(QStringLiteral("SELECT count(*) FROM prestazioni WHERE ") + condition).toInt();
    }

    static inline const QString FileName = QStringLiteral("studio.sqlite");
    static inline const QString Connection = QStringLiteral("sample");
    QTemporaryDir folder;
    QString file;
    QSqlDatabase database;
};

TEST(BuildDatabase, NothingHalfMadeStaysBeside)
{
    EXPECT_EQ(SampleFolder().entryList(QDir::Files), QStringList{QStringLiteral("studio.db")});
}

TEST_F(SampleDatabase, HoldsThePatientsAndTheirTreatments)
{
    EXPECT_EQ(Count(QStringLiteral("PAZIENTE = 1")), 31);
    EXPECT_EQ(Count(QStringLiteral("PAZIENTE = 2")), 16);
    EXPECT_EQ(Count(QStringLiteral("PAZIENTE = 3")), 300);
    EXPECT_EQ(Value(QStringLiteral("SELECT count(DISTINCT Dente) FROM prestazioni WHERE PAZIENTE = 3")).toInt(), 55);
    EXPECT_EQ(Value(QStringLiteral("SELECT min(length(Mancanti)) FROM cartella WHERE PAZIENTE < 3")).toInt(), 52);
    EXPECT_EQ(Value(QStringLiteral("SELECT Descrizione FROM listino WHERE Codice = 'DEV'")).toString(),
        QStringLiteral(u"Prova di vitalit\u00e0 della polpa"));
}

TEST_F(SampleDatabase, CodesPointAtRowsThatExist)
{
    const QString unknownZone
        = QStringLiteral("Dente NOT LIKE '% %' AND instr(' ' || (SELECT replace(replace(CAST(Dialoghi AS "
                         "TEXT), char(13), ' '), "
                         "char(10), ' ') FROM sfondi) || ' ', ' ' || Dente || ' ') = 0");
    EXPECT_EQ(Count(unknownZone), 0);
    EXPECT_EQ(Count(QStringLiteral("Dottore NOT IN (SELECT Sigla FROM operatori)")), 0);
    EXPECT_EQ(Count(QStringLiteral("Tipo NOT IN (SELECT Sigla FROM tipologie)")), 0);
    EXPECT_EQ(Count(QStringLiteral("ASPETTO NOT IN (SELECT ID FROM aspetto)")), 0);
    EXPECT_EQ(Count(QStringLiteral("Diagnosi NOT IN (SELECT Codice FROM diagnosi)")), 0);
    EXPECT_EQ(Count(QStringLiteral("Fatto = 1 AND DataFatto IS NULL")), 0);
}

TEST_F(SampleDatabase, ChildRowsFollowTheirParentAndCountUp)
{
    EXPECT_GT(Count(QStringLiteral("PADRE <> 0")), 0);
    EXPECT_EQ(Count(QStringLiteral("(PADRE = 0) <> (Progressivo = 0)")), 0);
    EXPECT_EQ(Count(QStringLiteral("PADRE <> 0 AND ID <> PADRE + Progressivo")), 0);
}

TEST_F(SampleDatabase, BackgroundRowHoldsTheDrawingAndItsZones)
{
    QImage stored;
    ASSERT_TRUE(stored.loadFromData(Value(QStringLiteral("SELECT grafico_ie FROM sfondi")).toByteArray(), "PNG"));
    EXPECT_EQ(stored.convertToFormat(QImage::Format_RGB32), RenderDentition());
    EXPECT_EQ(QString::fromLatin1(Value(QStringLiteral("SELECT Zone FROM sfondi")).toByteArray()), ZoneText());
    EXPECT_EQ(QString::fromLatin1(Value(QStringLiteral("SELECT Dialoghi FROM sfondi")).toByteArray()), ZoneNameText());
}

TEST_F(SampleDatabase, CatalogueHoldsEveryDrawingAndKnownTreatments)
{
    QSqlQuery query(database);
    ASSERT_TRUE(query.exec(QStringLiteral("SELECT Nome, Grafico_ie FROM simboli ORDER BY SIMB_ID")));
    std::size_t symbols = 0;
    while (query.next()) {
        const QString name = query.value(0).toString();
        const SymbolArt* art = FindSymbol(name);
        ASSERT_NE(art, nullptr) << name.toStdString();
        QImage stored;
        ASSERT_TRUE(stored.loadFromData(query.value(1).toByteArray(), "PNG")) << name.toStdString();
        EXPECT_EQ(stored.convertToFormat(QImage::Format_ARGB32), RenderSymbol(*art)) << name.toStdString();
        ++symbols;
    }
    EXPECT_EQ(symbols, AllSymbols().size());
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM simboli WHERE Terapia <> '' AND Terapia NOT IN "
                                   "(SELECT Codice FROM listino)")),
        0);
    EXPECT_GT(Value(QStringLiteral("SELECT count(*) FROM simboli WHERE Terapia = ''")).toInt(), 0);
}

TEST_F(SampleDatabase, PlacementsPointAtTheCatalogue)
{
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM disegni AS d JOIN simboli AS s "
                                   "ON s.SIMB_ID = d.id AND s.Nome = d.Nome JOIN pazienti AS p ON p.id = d.PAZIENTE")),
        static_cast<int>(SamplePlacements().size()));
}

TEST_F(SampleDatabase, AnUpgradeAddsOnlyWhatIsMissing)
{
    for (const char* statement : {"DROP TABLE simboli", "DROP TABLE disegni", "DELETE FROM prestazioni WHERE ID = 101"})
        ASSERT_TRUE(QSqlQuery(database).exec(QString::fromLatin1(statement)));
    UpgradeDatabase(file);
    EXPECT_EQ(Count(QStringLiteral("PAZIENTE = 1")), 30) << "what the user did stays";
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM disegni WHERE PAZIENTE = 1")), 14);
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM simboli WHERE Grafico_ie IS NULL")), 0);

    ASSERT_TRUE(QSqlQuery(database).exec(QStringLiteral("DELETE FROM disegni")));
    UpgradeDatabase(file);
    EXPECT_EQ(Value(QStringLiteral("SELECT count(*) FROM disegni")), 0) << "a second time changes nothing";
}

TEST_F(SampleDatabase, AnUpgradeThatFailsNamesTheFileAndUndoesItself)
{
    // The placements are there already, so the second table can't be made.
    ASSERT_TRUE(QSqlQuery(database).exec(QStringLiteral("DROP TABLE simboli")));
    try {
        UpgradeDatabase(file);
        ADD_FAILURE() << "upgraded";
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string(error.what()).find(file.toStdString()), std::string::npos) << error.what();
    }
    EXPECT_FALSE(database.tables().contains(QStringLiteral("simboli")));
    EXPECT_NO_THROW(UpgradeDatabase(folder.filePath(QStringLiteral("manca.sqlite"))));
    EXPECT_FALSE(QFile::exists(folder.filePath(QStringLiteral("manca.sqlite"))));
}

TEST_F(SampleDatabase, BenchmarkPatientsGetTheirRowsSpreadOverTheZones)
{
    int patient = 100;
    for (const int treatments : {0, 30, 300, 3000}) {
        AddBenchmarkPatient(database, ++patient, treatments);
        const QString condition = QStringLiteral("PAZIENTE = %1").arg(patient);
        EXPECT_EQ(Count(condition), treatments);
        if (treatments % 100 != 0)
            continue;
        // Whole rounds: three rows per round on the first molars, one on each milk tooth.
        EXPECT_EQ(Count(condition + QStringLiteral(" AND Dente = '46'")), treatments / 100 * 3);
        EXPECT_EQ(Count(condition + QStringLiteral(" AND Dente = '65'")), treatments / 100);
    }
    const int before = Count(QStringLiteral("1 = 1"));
    EXPECT_THROW(AddBenchmarkPatient(database, 101, 30), std::runtime_error) << "the patient is there already";
    EXPECT_EQ(Count(QStringLiteral("1 = 1")), before);
}

TEST_F(SampleDatabase, BuildingAgainReplacesTheFile)
{
    ASSERT_TRUE(QSqlQuery(database).exec(QStringLiteral("DELETE FROM prestazioni")));
    database.close();
    BuildDatabase(file);
    ASSERT_TRUE(database.open());
    EXPECT_EQ(Count(QStringLiteral("PAZIENTE = 3")), 300);
}

TEST(BuildDatabase, FailureNamesTheFileAndLeavesNothingBehind)
{
    QTemporaryDir folder;
    // A folder stands where the file should go, so the last step fails; and a folder that isn't there.
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("taken/inside")));
    for (const QString& name : {QStringLiteral("taken"), QStringLiteral("missing/studio.sqlite")}) {
        const QString file = folder.filePath(name);
        try {
            BuildDatabase(file);
            ADD_FAILURE() << file.toStdString() << " was built";
        } catch (const std::runtime_error& error) {
            EXPECT_NE(std::string(error.what()).find(file.toStdString()), std::string::npos) << error.what();
        }
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList());
}

TEST(AddBenchmarkPatient, FailureNamesTheStatement)
{
    {
        QSqlDatabase empty = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("empty"));
        empty.setDatabaseName(QStringLiteral(":memory:"));
        ASSERT_TRUE(empty.open());
        try {
            AddBenchmarkPatient(empty, 1, 1);
            ADD_FAILURE() << "a database without tables took a patient";
        } catch (const std::runtime_error& error) {
            EXPECT_NE(std::string(error.what()).find("INSERT INTO pazienti"), std::string::npos) << error.what();
        }
    }
    QSqlDatabase::removeDatabase(QStringLiteral("empty"));
}

TEST(SplitSql, CutsAtSemicolonsOutsideQuotesAndComments)
{
    const struct {
        const char* text;
        QStringList statements;
    } cases[] = {
        {"", {}},
        {" ; \n;", {}},
        {"a; b", {"a", "b"}},
        {"'x;y'; \"c;--d\"", {"'x;y'", "\"c;--d\""}},
        {"'it''s; fine'; b", {"'it''s; fine'", "b"}},
        {"a -- don't; cut\nb; c -- end", {"a \nb", "c"}},
        {"1 - 1; --", {"1 - 1"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(SplitSql(QString::fromUtf8(c.text)), c.statements) << c.text;
}

} // namespace
} // namespace vorn::demo
