#pragma once

// What the SQL classes share; the only header of this folder that knows Qt.

#include "platform/data/dataset.h"
#include "platform/data/sql_connection.h"
#include "platform/system/qt_convert.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

namespace vorn::sql {

/// The name as a quoted identifier.
QString Quote(StringView identifier);

/// Raises EDatabaseError: where, what was done, what the database says. Locks and read-only files are told plainly.
[[noreturn]] void RaiseSql(const TSqlConnection& connection, const QSqlError& error, StringView what);
/// Runs a prepared query; raises as RaiseSql does.
void Exec(QSqlQuery& query, const TSqlConnection& connection, StringView what);
/// A forward-only query on the connection, prepared; raises as RaiseSql does.
QSqlQuery Prepare(const TSqlConnection& connection, const QString& statement, StringView what);

bool IsServer(const TSqlConnection& connection);

/// The type that a column declared with these words has.
TFieldType TypeOfDeclaration(StringView declared);

/// Puts a cell into a value. Text in a date column becomes a date if it is one in ISO form; when the date alone doesn't
/// tell how it was written, the text goes to `raw`.
TValue FromText(String text, TFieldType type, String* raw);
TValue FromVariant(const QVariant& cell, TFieldType type, String* raw);
QVariant ToVariant(const TValue& value, StringView declared);

} // namespace vorn::sql
