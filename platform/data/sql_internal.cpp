#include "platform/data/sql_internal.h"

#include "platform/system/strings.h"

#include <QDateTime>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>

namespace vorn::sql {

namespace {

// Primary result codes of SQLite; the driver reports extended ones, whose low byte this is.
constexpr int sqliteBusy = 5;
constexpr int sqliteLocked = 6;
constexpr int sqliteReadOnly = 8;

TDateTime FromQDate(const QDate& date)
{
    const auto days = EncodeDate(date.year(), date.month(), date.day());
    return days.value_or(0);
}

TDateTime FromQDateTime(const QDateTime& stamp)
{
    const double day = FromQDate(stamp.date());
    const double time = stamp.time().msecsSinceStartOfDay() / 86'400'000.0;
    return day < 0 ? day - time : day + time;
}

BlobValue FromQByteArray(const QByteArray& bytes)
{
    const auto* const data = reinterpret_cast<const std::byte*>(bytes.constData());
    return std::make_shared<const Bytes>(data, data + bytes.size());
}

bool Has(StringView text, StringView part)
{
    return text.find(part) != StringView::npos;
}

} // namespace

QString Quote(StringView identifier)
{
    QString name = ToQt(identifier);
    return u'"' + name.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

bool IsServer(const TSqlConnection& connection)
{
    return connection.Handle().driver()->dbmsType() == QSqlDriver::PostgreSQL;
}

void RaiseSql(const TSqlConnection& connection, const QSqlError& error, StringView what)
{
    String message = connection.Location() + u": " + String(what) + u": ";
    const int code = connection.Connected() && !IsServer(connection) ? error.nativeErrorCode().toInt() & 0xff : 0;
    if (code == sqliteBusy || code == sqliteLocked)
        message += u"the file is locked by another process (";
    else if (code == sqliteReadOnly)
        message += u"the file is read-only (";
    else
        message += u"(";
    const String text = FromQt(error.databaseText().isEmpty() ? error.driverText() : error.databaseText());
    throw EDatabaseError(message + text + u")");
}

QSqlQuery Prepare(const TSqlConnection& connection, const QString& statement, StringView what)
{
    if (!connection.Connected())
        throw EDatabaseError(String(what) + u": the connection is closed");
    QSqlQuery query(connection.Handle());
    query.setForwardOnly(true);
    if (!query.prepare(statement))
        RaiseSql(connection, query.lastError(), what);
    return query;
}

void Exec(QSqlQuery& query, const TSqlConnection& connection, StringView what)
{
    if (!query.exec())
        RaiseSql(connection, query.lastError(), what);
}

TFieldType TypeOfDeclaration(StringView declared)
{
    const String upper = AnsiUpperCase(declared);
    if (Has(upper, u"BOOL"))
        return TFieldType::ftBoolean;
    if (Has(upper, u"TIMESTAMP") || Has(upper, u"DATETIME"))
        return TFieldType::ftDateTime;
    if (Has(upper, u"DATE"))
        return TFieldType::ftDate;
    if (Has(upper, u"INTERVAL") || Has(upper, u"POINT"))
        return TFieldType::ftString;
    if (Has(upper, u"INT") || Has(upper, u"SERIAL"))
        return TFieldType::ftInteger;
    if (Has(upper, u"BLOB") || Has(upper, u"BYTEA"))
        return TFieldType::ftBlob;
    for (const StringView number : {u"REAL", u"FLOA", u"DOUB", u"NUMERIC", u"DECIMAL"})
        if (Has(upper, number))
            return TFieldType::ftFloat;
    return TFieldType::ftString;
}

TValue FromText(String text, TFieldType type, String* raw)
{
    if (type != TFieldType::ftDate && type != TFieldType::ftDateTime)
        return text;
    const auto date = IsoToDate(text);
    if (!date)
        return text;
    constexpr std::size_t plainDate = 10; // "yyyy-mm-dd" can't be written in another way
    if (raw && text.size() != plainDate && DateToIso(*date) != text)
        *raw = std::move(text);
    return TDateValue{*date};
}

TValue FromVariant(const QVariant& cell, TFieldType type, String* raw)
{
    if (cell.isNull())
        return {};
    switch (cell.metaType().id()) {
    case QMetaType::LongLong:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::ULongLong:
    case QMetaType::Bool:
        return std::int64_t{cell.toLongLong()};
    case QMetaType::Double:
    case QMetaType::Float:
        return cell.toDouble();
    case QMetaType::QByteArray:
        return FromQByteArray(cell.toByteArray());
    case QMetaType::QDate:
        return TDateValue{FromQDate(cell.toDate())};
    case QMetaType::QDateTime:
        return TDateValue{FromQDateTime(cell.toDateTime())};
    default:
        return FromText(FromQt(cell.toString()), type, raw);
    }
}

QVariant ToVariant(const TValue& value, StringView declared)
{
    struct Visitor {
        StringView declared;
        QVariant operator()(std::monostate) const { return {}; }
        QVariant operator()(std::int64_t v) const
        {
            if (declared == u"boolean") // the server's own word: it takes no number
                return QString(v != 0 ? QStringLiteral("true") : QStringLiteral("false"));
            return QVariant(static_cast<qlonglong>(v));
        }
        QVariant operator()(double v) const { return v; }
        QVariant operator()(const TDateValue& v) const { return ToQt(DateToIso(v.Value)); }
        QVariant operator()(const String& v) const
        {
            // An empty text is not null.
            return v.empty() ? QVariant(QStringLiteral("")) : QVariant(ToQt(v));
        }
        QVariant operator()(const BlobValue& v) const
        {
            if (!v || v->empty())
                return QByteArray("");
            return QByteArray(reinterpret_cast<const char*>(v->data()), static_cast<qsizetype>(v->size()));
        }
    };
    return std::visit(Visitor{declared}, value);
}

} // namespace vorn::sql
