#include "platform/data/sql_connection.h"

#include "platform/data/sql_internal.h"
#include "platform/system/strings.h"

#include <QFile>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>

#include <atomic>

namespace vorn {

namespace {

QString UniqueName()
{
    static std::atomic<int> counter = 0;
    return QStringLiteral("vorn_sql_%1").arg(++counter);
}

/// Root may write anything; a file that nobody is meant to write is read-only for it, too.
bool IsWritable(const QFileInfo& file)
{
    constexpr auto anybody = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    return file.isWritable() && (file.permissions() & anybody) != 0;
}

} // namespace

TSqlConnection::TSqlConnection(TComponent* owner) : TComponent(owner) {}

TSqlConnection::~TSqlConnection()
{
    Destroying();
    Close();
}

void TSqlConnection::CheckFile(StringView fileName) const
{
    const String name(fileName);
    const QFileInfo info(ToQt(fileName));
    if (!info.exists())
        throw EDatabaseError(u"Database file " + name + u" does not exist");
    if (info.isDir())
        throw EDatabaseError(u"Database file " + name + u" is a directory");
    QFile file(info.filePath());
    if (!file.open(QIODevice::ReadOnly))
        throw EDatabaseError(u"Database file " + name + u" can't be read: " + FromQt(file.errorString()));
    if (file.size() == 0)
        throw EDatabaseError(u"Database file " + name + u" is empty");
    if (file.read(16) != QByteArray("SQLite format 3\0", 16))
        throw EDatabaseError(u"File " + name + u" is no database");
}

void TSqlConnection::OpenFile(StringView fileName)
{
    CheckFile(fileName);
    Close();
    const QFileInfo info(ToQt(fileName));
    const QString name = UniqueName();
    connectionName_ = FromQt(name);
    where_ = fileName;
    readOnly_ = !IsWritable(info);
    QString options = QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(busyTimeout_);
    if (readOnly_)
        options += QStringLiteral(";QSQLITE_OPEN_READONLY");
    { // no handle may be left when a failure removes the connection
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
        db.setDatabaseName(info.absoluteFilePath());
        db.setConnectOptions(options);
    }
    Connect(u"opening the file");
}

void TSqlConnection::OpenServer(const TServerParams& params)
{
    Close();
    const QString name = UniqueName();
    connectionName_ = FromQt(name);
    where_ = u"database " + params.Database + u" on " + params.Host;
    readOnly_ = false;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), name);
        db.setHostName(ToQt(params.Host));
        db.setPort(params.Port);
        db.setDatabaseName(ToQt(params.Database));
        db.setUserName(ToQt(params.User));
        db.setPassword(ToQt(params.Password));
    }
    Connect(u"connecting");
    SetBusyTimeout(busyTimeout_);
}

void TSqlConnection::Connect(StringView what)
{
    try {
        QSqlDatabase db = Handle();
        if (!db.open())
            sql::RaiseSql(*this, db.lastError(), what);
        if (!sql::IsServer(*this)) { // opening alone doesn't look into the file
            QSqlQuery query = sql::Prepare(*this, QStringLiteral("SELECT count(*) FROM sqlite_master"), what);
            sql::Exec(query, *this, what);
        }
    } catch (...) {
        Close();
        throw;
    }
}

void TSqlConnection::Close()
{
    tables_.clear();
    if (connectionName_.empty())
        return;
    Handle().close();
    QSqlDatabase::removeDatabase(ToQt(connectionName_));
    connectionName_.clear();
    readOnly_ = false;
}

bool TSqlConnection::Connected() const
{
    return !connectionName_.empty() && Handle().isOpen();
}

QSqlDatabase TSqlConnection::Handle() const
{
    return QSqlDatabase::database(ToQt(connectionName_), false);
}

void TSqlConnection::SetBusyTimeout(int milliseconds)
{
    busyTimeout_ = milliseconds;
    if (!Connected())
        return;
    const String number = IntToStr(milliseconds);
    Execute((sql::IsServer(*this) ? u"SET lock_timeout = " : u"PRAGMA busy_timeout = ") + number);
}

void TSqlConnection::Execute(StringView statement)
{
    tables_.clear(); // it may change a table's columns
    const String what = u"statement \"" + String(statement) + u"\"";
    if (!Connected())
        throw EDatabaseError(what + u": the connection is closed");
    QSqlQuery query(Handle());
    if (!query.exec(ToQt(statement)))
        sql::RaiseSql(*this, query.lastError(), what);
}

void TSqlConnection::StartTransaction()
{
    if (!Connected() || !Handle().transaction())
        sql::RaiseSql(*this, Handle().lastError(), u"starting a transaction");
}

void TSqlConnection::Commit()
{
    if (!Connected() || !Handle().commit())
        sql::RaiseSql(*this, Handle().lastError(), u"committing");
}

void TSqlConnection::Rollback()
{
    if (!Connected() || !Handle().rollback())
        sql::RaiseSql(*this, Handle().lastError(), u"rolling back");
}

const std::vector<TSqlColumn>& TSqlConnection::Columns(StringView table)
{
    const auto known = tables_.find(table);
    return known != tables_.end() ? known->second : tables_.emplace(table, ReadColumns(table)).first->second;
}

std::vector<TSqlColumn> TSqlConnection::ReadColumns(StringView table) const
{
    const bool server = sql::IsServer(*this);
    const String what = u"columns of table " + String(table);
    // Name, declared type, whether it must have a value, whether the database can give it one, whether it alone may.
    // A server's type comes without its length: a value cast to that would be cut off where it should be refused.
    QSqlQuery query = sql::Prepare(*this,
        server ? QStringLiteral("SELECT attname, format_type(atttypid, -1), attnotnull,"
                                " atthasdef OR attidentity <> '' OR attgenerated <> '',"
                                " attgenerated <> '' OR attidentity = 'a' FROM pg_attribute"
                                " WHERE attrelid = to_regclass(?) AND attnum > 0 AND NOT attisdropped"
                                " ORDER BY attnum")
               : QStringLiteral("SELECT name, type, \"notnull\", dflt_value IS NOT NULL OR pk > 0, 0"
                                " FROM pragma_table_info(?)"),
        what);
    query.addBindValue(server ? sql::Quote(table) : ToQt(table));
    sql::Exec(query, *this, what);
    std::vector<TSqlColumn> columns;
    while (query.next())
        columns.push_back({FromQt(query.value(0).toString()), FromQt(query.value(1).toString()),
            query.value(2).toBool() && !query.value(3).toBool(), !query.value(4).toBool()});
    return columns;
}

} // namespace vorn
