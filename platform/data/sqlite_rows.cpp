#include "platform/data/sqlite_rows.h"

#include "platform/system/strings.h"

#include <QSqlResult>

#include <algorithm>
#include <sqlite3.h>

namespace vorn::sql {

namespace {

/// Whether Qt's driver uses the very library that this program is linked with: only then are its handles ours to use.
bool SameEngine(const TSqlConnection& connection)
{
    static const bool same = [&connection] {
        QSqlQuery query(connection.Handle());
        return query.exec(QStringLiteral("SELECT sqlite_source_id()")) && query.next()
            && query.value(0).toString() == QLatin1String(sqlite3_sourceid());
    }();
    return same;
}

String TextOf(sqlite3_stmt* statement, int column)
{
    const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    const std::string_view utf8(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
    const auto isAscii = [](char c) { return static_cast<signed char>(c) >= 0; };
    if (std::all_of(utf8.begin(), utf8.end(), isAscii))
        return String(utf8.begin(), utf8.end());
    return FromUtf8(utf8);
}

} // namespace

std::optional<SqliteRows> SqliteRows::Of(const TSqlConnection& connection, QSqlQuery& query)
{
    const QVariant handle = query.result()->handle();
    if (qstrcmp(handle.typeName(), "sqlite3_stmt*") != 0 || !SameEngine(connection))
        return std::nullopt;
    return SqliteRows(connection, query, *static_cast<sqlite3_stmt* const*>(handle.constData()));
}

bool SqliteRows::Next()
{
    // Running the query has fetched the first row.
    if (!std::exchange(started_, true))
        return query_.next();
    const int result = sqlite3_step(statement_);
    if (result == SQLITE_ROW)
        return true;
    if (result == SQLITE_DONE)
        return false;
    sqlite3* const engine = sqlite3_db_handle(statement_);
    const QString text = QString::fromUtf8(sqlite3_errmsg(engine));
    RaiseSql(connection_,
        QSqlError(text, text, QSqlError::StatementError, QString::number(sqlite3_extended_errcode(engine))),
        u"reading rows");
}

TValue SqliteRows::Cell(int column, TFieldType type, String* raw) const
{
    switch (sqlite3_column_type(statement_, column)) {
    case SQLITE_INTEGER:
        return std::int64_t{sqlite3_column_int64(statement_, column)};
    case SQLITE_FLOAT:
        return sqlite3_column_double(statement_, column);
    case SQLITE_TEXT:
        return FromText(TextOf(statement_, column), type, raw);
    case SQLITE_BLOB: {
        const auto* const bytes = static_cast<const std::byte*>(sqlite3_column_blob(statement_, column));
        return std::make_shared<const Bytes>(bytes, bytes + sqlite3_column_bytes(statement_, column));
    }
    default:
        return {};
    }
}

} // namespace vorn::sql
