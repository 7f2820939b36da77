#include "tests/data/dataset_fixture.h"

#include <filesystem>
#include <fstream>

namespace vorn::test {
namespace {

namespace fs = std::filesystem;

class SqlConnection : public testing::Test {
protected:
    static void Write(const String& name, const std::string& content)
    {
        std::ofstream(ToUtf8(name), std::ios::binary) << content;
    }
    /// The message of a refused opening, which always names the file.
    static std::string Refusal(const String& name)
    {
        TSqlConnection connection;
        connection.SetBusyTimeout(50);
        const std::string message = MessageOf<EDatabaseError>([&] { connection.OpenFile(name); });
        EXPECT_FALSE(connection.Connected());
        EXPECT_NE(message.find(ToUtf8(name)), std::string::npos) << message;
        return message;
    }

    TempDir dir;
    String file = dir.File("studio è.db");
};

TEST_F(SqlConnection, TellsWhatIsWrongWithAFile)
{
    EXPECT_NE(Refusal(file).find("does not exist"), std::string::npos);
    EXPECT_FALSE(fs::exists(ToUtf8(file))); // and makes none
    EXPECT_NE(Refusal(dir.File("")).find("directory"), std::string::npos);
    Write(file, "");
    EXPECT_NE(Refusal(file).find("empty"), std::string::npos);
    Write(file, "this is a letter to a patient, and no database at all");
    EXPECT_NE(Refusal(file).find("no database"), std::string::npos);
    Write(file, std::string("SQLite format 3\0", 16) + std::string(5000, 'x'));
    Refusal(file);
}

TEST_F(SqlConnection, ReadOnlyFileIsReadButNotWritten)
{
    ExecuteOnFile(file, {u"CREATE TABLE t (id INTEGER PRIMARY KEY, x)", u"INSERT INTO t VALUES (1, 2)"});
    fs::permissions(ToUtf8(file), fs::perms::owner_read);
    TSqlConnection connection;
    connection.OpenFile(file);
    EXPECT_TRUE(connection.ReadOnly());
    TSqlDataSet ds;
    ds.SetConnection(&connection);
    ds.SetCommandText(u"SELECT * FROM t");
    ds.SetUpdateTable(u"t", u"id");
    ds.Open();
    ds.Edit();
    ds.FieldByName(u"x").SetAsInteger(3);
    const std::string message = MessageOf<EDatabaseError>([&] { ds.Post(); });
    EXPECT_NE(message.find(ToUtf8(file)), std::string::npos) << message;
    EXPECT_NE(message.find("read-only"), std::string::npos) << message;
    EXPECT_EQ(ds.State(), TDataSetState::dsEdit);
}

TEST_F(SqlConnection, ExecuteQuotesWhatFailedAndObeysTransactions)
{
    ExecuteOnFile(file, {u"CREATE TABLE t (id INTEGER PRIMARY KEY)"});
    TSqlConnection connection;
    EXPECT_THROW(connection.Execute(u"SELECT 1"), EDatabaseError);
    connection.OpenFile(file);
    const std::string message = MessageOf<EDatabaseError>([&] { connection.Execute(u"DROP TABLE manca"); });
    EXPECT_NE(message.find("DROP TABLE manca"), std::string::npos);
    connection.StartTransaction();
    connection.Execute(u"INSERT INTO t VALUES (1)");
    connection.Rollback();
    EXPECT_THROW(connection.Commit(), EDatabaseError);
    connection.Execute(u"INSERT INTO t VALUES (1)");
}

} // namespace
} // namespace vorn::test
