#pragma once

#include "platform/data/sql_internal.h"

#include <optional>

struct sqlite3_stmt;

namespace vorn::sql {

/// Reads the rows of a query that has been run straight from the SQLite engine. Qt's way makes a variant of each cell
/// and a row of them, which takes several times as long as the engine itself.
class SqliteRows {
public:
    /// None where the query isn't SQLite's, or where Qt's driver brings an engine of its own.
    static std::optional<SqliteRows> Of(const TSqlConnection& connection, QSqlQuery& query);

    /// Goes to the next row; false behind the last. Raises as RaiseSql does.
    bool Next();
    /// A cell of the current row, as FromVariant gives it.
    TValue Cell(int column, TFieldType type, String* raw) const;

private:
    SqliteRows(const TSqlConnection& connection, QSqlQuery& query, sqlite3_stmt* statement)
        : connection_(connection), query_(query), statement_(statement)
    {
    }

    const TSqlConnection& connection_;
    QSqlQuery& query_;
    sqlite3_stmt* statement_;
    bool started_ = false;
};

} // namespace vorn::sql
