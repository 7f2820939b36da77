#include "tests/data/dataset_fixture.h"

#include <QSqlDatabase>
#include <QStringList>

namespace vorn::test {
namespace {

constexpr StringView createVisits
    = u"CREATE TABLE visite (id INTEGER PRIMARY KEY, nome TEXT NOT NULL DEFAULT 'nuovo', prezzo REAL, fatto "
      u"BOOLEAN,"
      u" giorno DATE, ora TIMESTAMP, foto BLOB, doppio INTEGER AS (id * 2), \"strano nome\" TEXT, nulla)";

class SqlDataSet : public testing::Test {
protected:
    void SetUp() override
    {
        ExecuteOnFile(file,
            {createVisits,
                u"INSERT INTO visite VALUES (1, 'O''Neil; DROP', 0.1, 1, '2024-02-29',"
                u" '2024-02-29T06:00:00.250', x'00ff', 'q', 7.5)",
                u"INSERT INTO visite (id, giorno) VALUES (2, 'domani')", u"CREATE TABLE log (n INTEGER)",
                u"CREATE TRIGGER scritto AFTER UPDATE ON visite BEGIN INSERT INTO log VALUES (1); END"});
        connection.OpenFile(file);
        other.OpenFile(file);
        other.SetBusyTimeout(50);
        connection.SetBusyTimeout(50);
        Prepare(ds, connection);
    }
    static void Prepare(TSqlDataSet& dataset, TSqlConnection& on)
    {
        dataset.SetConnection(&on);
        dataset.SetCommandText(u"SELECT * FROM visite ORDER BY id");
        dataset.SetUpdateTable(u"visite", u"id");
    }
    int Count(StringView query)
    {
        TSqlDataSet counter;
        counter.SetConnection(&connection);
        counter.SetCommandText(query);
        counter.Open();
        return counter.Fields(0).AsInteger();
    }
    void Set(StringView column, TValue value)
    {
        ds.Edit();
        ds.FieldByName(column).SetValue(std::move(value));
        ds.Post();
    }

    TempDir dir;
    String file = dir.File("v.db");
    TSqlConnection connection;
    TSqlConnection other;
    TSqlDataSet ds;
};

TEST_F(SqlDataSet, ReadsValuesByTheirDeclaredType)
{
    ds.Open();
    EXPECT_EQ(ds.FieldByName(u"nome").AsString(), u"O'Neil; DROP");
    EXPECT_EQ(ds.FieldByName(u"prezzo").Value(), TValue(0.1));
    EXPECT_EQ(ds.FieldByName(u"fatto").DataType(), TFieldType::ftBoolean);
    EXPECT_TRUE(ds.FieldByName(u"fatto").AsBoolean());
    EXPECT_EQ(ds.FieldByName(u"giorno").Value(), TValue(TDateValue{45351}));
    EXPECT_NEAR(ds.FieldByName(u"ora").AsDateTime(), 45351.25, 1e-5);
    EXPECT_EQ(ds.FieldByName(u"foto").DataType(), TFieldType::ftBlob);
    EXPECT_EQ(std::get<BlobValue>(ds.FieldByName(u"foto").Value())->size(), 2u);
    EXPECT_EQ(ds.FieldByName(u"nulla").Value(), TValue(7.5));
    ds.Next();
    EXPECT_EQ(ds.FieldByName(u"giorno").Value(), TValue(String(u"domani")));
    EXPECT_THROW(ds.FieldByName(u"giorno").AsDateTime(), EConvertError);
    EXPECT_TRUE(ds.FieldByName(u"foto").IsNull());
}

TEST_F(SqlDataSet, WritesBackEveryKindOfValue)
{
    ds.Open();
    const auto bytes = std::make_shared<const Bytes>(Bytes{std::byte{0}, std::byte{1}});
    ds.Edit();
    ds.FieldByName(u"nome").SetAsString(u"'\"; --");
    ds.FieldByName(u"prezzo").SetAsFloat(1.0 / 3);
    ds.FieldByName(u"giorno").SetAsDateTime(45352);
    ds.FieldByName(u"ora").SetAsDateTime(45352.5);
    ds.FieldByName(u"foto").SetValue(bytes);
    ds.FieldByName(u"fatto").Clear();
    ds.FieldByName(u"strano nome").SetAsString(u"");
    ds.Post();
    ds.Refresh();
    EXPECT_EQ(ds.FieldByName(u"nome").AsString(), u"'\"; --");
    EXPECT_EQ(ds.FieldByName(u"prezzo").Value(), TValue(1.0 / 3));
    EXPECT_EQ(ds.FieldByName(u"giorno").AsDateTime(), 45352);
    EXPECT_EQ(ds.FieldByName(u"ora").AsDateTime(), 45352.5);
    EXPECT_TRUE(SameValue(ds.FieldByName(u"foto").Value(), bytes));
    EXPECT_TRUE(ds.FieldByName(u"fatto").IsNull());
    EXPECT_FALSE(ds.FieldByName(u"strano nome").IsNull());
    EXPECT_EQ(Count(u"SELECT giorno = '2024-03-01' AND ora = '2024-03-01 12:00:00' FROM visite WHERE id = 1"), 1);
}

TEST_F(SqlDataSet, InsertKnowsKeyDefaultsAndComputedColumns)
{
    ds.Open();
    ds.Append();
    ds.FieldByName(u"prezzo").SetAsFloat(2);
    ds.Post();
    EXPECT_EQ(ds.FieldByName(u"id").AsInteger(), 3);
    EXPECT_EQ(ds.FieldByName(u"nome").AsString(), u"nuovo");
    ds.Append();
    ds.Post();
    EXPECT_EQ(ds.FieldByName(u"id").AsInteger(), 4);
    Set(u"prezzo", 9.5); // the row as it came back is good for the next change
    EXPECT_EQ(Count(u"SELECT count(*) FROM visite"), 4);
}

TEST_F(SqlDataSet, PostWritesChangedColumnsOnly)
{
    ds.Open();
    Set(u"nome", String(u"O'Neil; DROP")); // the same again
    EXPECT_EQ(Count(u"SELECT count(*) FROM log"), 0);
    other.Execute(u"UPDATE visite SET foto = x'aa' WHERE id = 1"); // bytes aren't compared...
    Set(u"prezzo", 3.0);
    EXPECT_EQ(Count(u"SELECT foto = x'aa' AND prezzo = 3 FROM visite WHERE id = 1"), 1); // ... nor overwritten
}

TEST_F(SqlDataSet, ConflictsAreNeverOverwritten)
{
    for (const StringView theirs :
        {u"UPDATE visite SET nome = 'x' WHERE id = 1", u"UPDATE visite SET ora = NULL WHERE id = 1",
            u"UPDATE visite SET ora = '2024-02-29T06:00:00.251' WHERE id = 1", u"DELETE FROM visite WHERE id = 1"}) {
        ds.Open();
        other.Execute(theirs);
        ds.Edit();
        ds.FieldByName(u"prezzo").SetAsFloat(5);
        const std::string message = MessageOf<EUpdateConflict>([&] { ds.Post(); });
        EXPECT_NE(message.find("visite"), std::string::npos);
        EXPECT_NE(message.find("= 1"), std::string::npos);
        EXPECT_EQ(ds.State(), TDataSetState::dsEdit);
        EXPECT_EQ(ds.FieldByName(u"prezzo").AsFloat(), 5);
        ds.Cancel();
        EXPECT_EQ(ds.FieldByName(u"prezzo").AsFloat(), 0.1);
        EXPECT_THROW(ds.Delete(), EUpdateConflict);
        EXPECT_EQ(ds.RecordCount(), 2);
        ds.Close();
    }
    EXPECT_EQ(Count(u"SELECT count(*) FROM visite WHERE prezzo = 5"), 0);
}

TEST_F(SqlDataSet, LockedFileLeavesTheEditAndSaysSo)
{
    ds.Open();
    other.Execute(u"BEGIN IMMEDIATE");
    ds.Edit();
    ds.FieldByName(u"prezzo").SetAsFloat(5);
    const std::string message = MessageOf<EDatabaseError>([&] { ds.Post(); });
    EXPECT_NE(message.find("locked"), std::string::npos) << message;
    EXPECT_NE(message.find(ToUtf8(file)), std::string::npos) << message;
    EXPECT_EQ(ds.State(), TDataSetState::dsEdit);
    other.Rollback();
    ds.Post();
    EXPECT_EQ(Count(u"SELECT prezzo = 5 FROM visite WHERE id = 1"), 1);
}

TEST_F(SqlDataSet, DatabaseErrorsNameTableAndColumn)
{
    ds.Open();
    ds.Edit();
    ds.FieldByName(u"id").SetAsInteger(2);
    const std::string message = MessageOf<EDatabaseError>([&] { ds.Post(); });
    EXPECT_NE(message.find("visite.id"), std::string::npos) << message;
    ds.FieldByName(u"id").SetAsInteger(1);
    ds.FieldByName(u"nome").Clear();
    EXPECT_NE(MessageOf<EDatabaseError>([&] { ds.Post(); }).find("nome"), std::string::npos);
    ds.Cancel();
}

TEST_F(SqlDataSet, FailingRefreshKeepsTheRows)
{
    ds.Open();
    ds.Next();
    connection.Execute(u"ALTER TABLE visite RENAME TO via");
    EXPECT_THROW(ds.Refresh(), EDatabaseError);
    EXPECT_EQ(ds.RecordCount(), 2);
    EXPECT_EQ(ds.FieldByName(u"id").AsInteger(), 2);
    connection.Execute(u"ALTER TABLE via RENAME TO visite");
    other.Execute(u"INSERT INTO visite (id) VALUES (-5)");
    ds.Refresh();
    EXPECT_EQ(ds.RowIndex(), 2); // the same row further down
    ds.Close();
    ds.SetCommandText(u"SELECT nonsense FROM visite");
    EXPECT_THROW(ds.Open(), EDatabaseError);
    EXPECT_FALSE(ds.Active());
    EXPECT_EQ(ds.FieldCount(), 0);
}

TEST_F(SqlDataSet, ParametersAndForeignColumns)
{
    ds.SetCommandText(u"SELECT v.id, v.nome, upper(v.nome) AS grande, l.n FROM visite v LEFT JOIN log l ON l.n = 8"
                      u" WHERE v.id = :id OR :id IS NULL");
    ds.SetParam(u"id", 2);
    ds.Open();
    EXPECT_EQ(ds.RecordCount(), 1);
    ds.SetParam(u":id", TValue());
    ds.Refresh();
    EXPECT_EQ(ds.RecordCount(), 2);
    Set(u"nome", String(u"x"));
    ds.Edit();
    ds.FieldByName(u"grande").SetAsString(u"y");
    EXPECT_NE(MessageOf<EDatabaseError>([&] { ds.Post(); }).find("grande"), std::string::npos);
    ds.Cancel();
    ds.SetUpdateTable(u"", u"");
    ds.Open();
    EXPECT_THROW(ds.Edit(), EDatabaseError);
    for (const auto& [table, key] : {std::pair(u"manca", u"id"), std::pair(u"visite", u"manca")}) {
        ds.SetUpdateTable(table, key);
        EXPECT_NE(MessageOf<EDatabaseError>([&] { ds.Open(); }).find("manca"), std::string::npos);
    }
}

TEST_F(SqlDataSet, ConnectionsLeaveNothingBehind)
{
    {
        auto gone = std::make_unique<TSqlConnection>();
        gone->OpenFile(file);
        TSqlDataSet late;
        Prepare(late, *gone);
        late.Open();
        gone.reset();
        EXPECT_EQ(late.Connection(), nullptr);
        EXPECT_EQ(late.RecordCount(), 2);
        EXPECT_THROW(late.Delete(), EDatabaseError);
        EXPECT_THROW(late.Refresh(), EDatabaseError);
    }
    connection.Close();
    other.Close();
    EXPECT_TRUE(QSqlDatabase::connectionNames().isEmpty());
}

} // namespace
} // namespace vorn::test
