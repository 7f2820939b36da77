// The SQL dataset on a server; runs where VORN_TEST_PG says which one ("host=... port=... dbname=...
// user=...").

#include "tests/data/dataset_fixture.h"

#include <cstdlib>

namespace vorn::test {
namespace {

TServerParams ParamsOf(const std::string& text)
{
    const auto value = [&](const std::string& name) {
        const std::size_t at = (' ' + text).find(' ' + name + '=');
        return at == std::string::npos
            ? String()
            : FromUtf8(text.substr(at + name.size() + 1, text.find(' ', at) - at - name.size() - 1));
    };
    return {value("host"), StrToInt(value("port")), value("dbname"), value("user"), value("password")};
}

class SqlServer : public testing::Test {
protected:
    void SetUp() override
    {
        const char* const where = std::getenv("VORN_TEST_PG");
        if (!where || !*where)
            GTEST_SKIP() << "VORN_TEST_PG names no server";
        params = ParamsOf(where);
        connection.OpenServer(params);
        other.OpenServer(params);
        connection.Execute(u"SET client_min_messages = warning");
        connection.Execute(u"DROP TABLE IF EXISTS \"Vorn Prova\"");
        connection.Execute(
            u"CREATE TABLE \"Vorn Prova\" (\"ID\" serial PRIMARY KEY, nome varchar(20) NOT NULL DEFAULT "
            u"'nuovo',"
            u" r real, prezzo numeric(10,2), fatto boolean, giorno date, ora timestamp, foto bytea, altro "
            u"json,"
            u" doppio integer GENERATED ALWAYS AS (5 * 2) STORED, f double precision, c char(4))");
        connection.Execute(u"INSERT INTO \"Vorn Prova\" (nome, r, prezzo, fatto, giorno, ora, foto, altro, f, c) VALUES"
                           u" ('è', 0.1, 12.34, true, '2024-02-29', '2024-02-29 06:00:00.123456', '\\x00ff',"
                           u" '{\"a\": 1}', 1.0/3, 'ab'), ('secondo', NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL,"
                           u" NULL)");
        ds.SetConnection(&connection);
        ds.SetCommandText(u"SELECT * FROM \"Vorn Prova\" ORDER BY \"ID\"");
        ds.SetUpdateTable(u"Vorn Prova", u"ID");
        ds.Open();
    }
    void TearDown() override
    {
        ds.Close();
        if (connection.Connected())
            connection.Execute(u"DROP TABLE \"Vorn Prova\"");
    }

    TServerParams params;
    TSqlConnection connection;
    TSqlConnection other;
    TSqlDataSet ds;
};

TEST_F(SqlServer, WritesChangesOfAnyRow)
{
    for (int row = 0; row < 2; ++row) {
        for (int round = 0; round < 2; ++round) { // twice: what came back must compare equal
            ds.Edit();
            ds.FieldByName(u"nome").SetAsString(u"giro " + IntToStr(round));
            ds.FieldByName(u"prezzo").SetAsFloat(1.25 + round);
            ds.FieldByName(u"fatto").SetAsInteger(round);
            ds.FieldByName(u"giorno").SetAsDateTime(45352 + round);
            ds.FieldByName(u"ora").SetAsDateTime(45352.5 + round);
            ds.FieldByName(u"foto").SetAsString(u"byte " + IntToStr(round));
            ds.FieldByName(u"r").SetAsFloat(0.3);
            ds.Post();
        }
        ds.Next();
    }
    ds.Refresh();
    EXPECT_EQ(ds.FieldByName(u"nome").AsString(), u"giro 1");
    EXPECT_EQ(ds.FieldByName(u"foto").AsString(), u"byte 1");
    EXPECT_EQ(ds.FieldByName(u"ora").AsDateTime(), 45353.5);
    ds.Delete();
    ds.Delete();
    ds.Refresh();
    EXPECT_TRUE(ds.IsEmpty());
}

TEST_F(SqlServer, InsertKnowsWhatTheServerFillsIn)
{
    ds.Append();
    ds.FieldByName(u"prezzo").SetAsFloat(3);
    ds.Post();
    EXPECT_EQ(ds.FieldByName(u"id").AsInteger(), 3);
    EXPECT_EQ(ds.FieldByName(u"nome").AsString(), u"nuovo");
    EXPECT_EQ(ds.FieldByName(u"doppio").AsInteger(), 10);
    ds.Edit();
    ds.FieldByName(u"nome").SetAsString(u"troppo lungo per venti caratteri");
    EXPECT_THROW(ds.Post(), EDatabaseError);
    EXPECT_EQ(ds.State(), TDataSetState::dsEdit);
}

TEST_F(SqlServer, ConflictsAreNeverOverwritten)
{
    for (const StringView theirs : {u"UPDATE \"Vorn Prova\" SET c = 'zz'", u"UPDATE \"Vorn Prova\" SET altro = '{}'",
             u"UPDATE \"Vorn Prova\" SET ora = NULL", u"DELETE FROM \"Vorn Prova\""}) {
        ds.Refresh();
        other.Execute(theirs);
        ds.Edit();
        ds.FieldByName(u"prezzo").SetAsFloat(99);
        EXPECT_THROW(ds.Post(), EUpdateConflict) << Utf8(theirs);
        ds.Cancel();
        EXPECT_THROW(ds.Delete(), EUpdateConflict);
    }
}

} // namespace
} // namespace vorn::test
