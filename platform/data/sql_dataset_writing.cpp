#include "platform/data/sql_dataset.h"

#include "platform/data/sql_internal.h"
#include "platform/system/strings.h"

#include <QSqlError>
#include <QStringList>

namespace vorn {

using sql::Quote;

struct TSqlDataSet::Condition {
    QString Text;
    std::vector<QVariant> Values; // for its placeholders
};

String TSqlDataSet::KeyText(const TValue& value)
{
    if (const auto* number = std::get_if<std::int64_t>(&value))
        return IntToStr(*number);
    const auto* text = std::get_if<String>(&value);
    return text ? *text : String();
}

/// A placeholder that the server takes as a value of the column's own type.
QString TSqlDataSet::Placeholder(const Column& column) const
{
    return sql::IsServer(*connection_) && !column.Declared.empty()
        ? QStringLiteral("CAST(? AS ") + ToQt(column.Declared) + u')'
        : QStringLiteral("?");
}

/// A condition that the column, which isn't null, still holds what was read, with one placeholder; empty if that can't
/// be asked.
QString TSqlDataSet::Unchanged(const Column& column) const
{
    const QString name = Quote(column.Name);
    if (!sql::IsServer(*connection_))
        return name + QStringLiteral(" IS ?");
    const String& type = column.Declared;
    // Read in the time zone of the reader: nothing to compare with.
    if (type.starts_with(u"timestamp") && type.ends_with(u"with time zone"))
        return {};
    if (type.starts_with(u"timestamp")) // written to the second
        return QStringLiteral("abs(extract(epoch FROM ") + name + QStringLiteral(" - CAST(? AS timestamp))) <= 1");
    if (type.starts_with(u"numeric")) // read as a float
        return QStringLiteral("CAST(") + name
            + QStringLiteral(" AS double precision) IS NOT DISTINCT FROM CAST(? AS double precision)");
    if (type == u"json" || type == u"xml") // have no equality
        return QStringLiteral("CAST(") + name + QStringLiteral(" AS text) IS NOT DISTINCT FROM CAST(? AS text)");
    return name + QStringLiteral(" IS NOT DISTINCT FROM ") + Placeholder(column);
}

/// The row's condition: its key, and every column read from the table unchanged but for bytes not touched here.
/// `changed` is the row about to be written, or none.
TSqlDataSet::Condition TSqlDataSet::RowCondition(const Row& old, const Row* changed) const
{
    const auto key = static_cast<std::size_t>(keyColumn_);
    const String keyText = KeyText(old[key]);
    Condition where;
    where.Text
        = QStringLiteral(" WHERE ") + Quote(columns_[key].Name) + QStringLiteral(" = ") + Placeholder(columns_[key]);
    where.Values.push_back(sql::ToVariant(old[key], columns_[key].Declared));
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const Column& column = columns_[i];
        if (!column.Known || i == key)
            continue;
        const bool bytes = column.Type == TFieldType::ftBlob || std::holds_alternative<BlobValue>(old[i]);
        if (bytes && !(changed && !SameCell(old[i], (*changed)[i])))
            continue;
        if (IsNull(old[i])) {
            where.Text += QStringLiteral(" AND ") + Quote(column.Name) + QStringLiteral(" IS NULL");
            continue;
        }
        const QString unchanged = Unchanged(column);
        if (unchanged.isEmpty())
            continue;
        where.Text += QStringLiteral(" AND ") + unchanged;
        const auto raw = raw_.find({keyText, static_cast<int>(i)});
        where.Values.push_back(
            raw != raw_.end() ? QVariant(ToQt(raw->second)) : sql::ToVariant(old[i], column.Declared));
    }
    return where;
}

bool TSqlDataSet::SameCell(const TValue& a, const TValue& b)
{
    return a.index() == b.index() && SameValue(a, b);
}

QString TSqlDataSet::Returning() const
{
    QStringList names;
    for (const Column& column : columns_)
        if (column.Known)
            names += Quote(column.Name);
    return QStringLiteral(" RETURNING ") + names.join(QStringLiteral(", "));
}

/// Runs a statement with RETURNING and takes over what is now stored. Gives false if it touched no row.
bool TSqlDataSet::Write(const QString& statement, const std::vector<QVariant>& values, StringView what, Row& row)
{
    TSqlConnection& connection = CheckConnection();
    QSqlQuery query = sql::Prepare(connection, statement, what);
    for (const QVariant& value : values)
        query.addBindValue(value);
    sql::Exec(query, connection, what);
    std::vector<std::pair<int, String>> texts;
    Row stored = row;
    const bool found = query.next();
    int cell = 0;
    for (std::size_t i = 0; found && i < columns_.size(); ++i) {
        if (!columns_[i].Known)
            continue;
        String raw;
        stored[i] = sql::FromVariant(query.value(cell++), columns_[i].Type, &raw);
        if (!raw.empty())
            texts.emplace_back(static_cast<int>(i), std::move(raw));
    }
    while (query.next()) { // the statement is only done at its end
    }
    if (query.lastError().isValid())
        sql::RaiseSql(connection, query.lastError(), what);
    if (!found)
        return false;
    row = std::move(stored);
    ForgetRaw(row);
    for (auto& [column, text] : texts)
        raw_[{KeyText(row[static_cast<std::size_t>(keyColumn_)]), column}] = std::move(text);
    return true;
}

void TSqlDataSet::ForgetRaw(const Row& row)
{
    const String key = KeyText(row[static_cast<std::size_t>(keyColumn_)]);
    auto first = raw_.lower_bound({key, 0});
    while (first != raw_.end() && first->first.first == key)
        first = raw_.erase(first);
}

void TSqlDataSet::CheckWritten(const Row& written, const Row& old) const
{
    for (std::size_t i = 0; i < columns_.size(); ++i)
        if (!columns_[i].Writable && !SameCell(written[i], i < old.size() ? old[i] : TValue()))
            throw EDatabaseError(
                DisplayName() + u": column \"" + columns_[i].Name + u"\" can't be written to table " + table_);
}

void TSqlDataSet::InternalInsert(Row& row)
{
    CheckConnection();
    CheckWritten(row, {});
    QStringList names;
    QStringList places;
    std::vector<QVariant> values;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (!columns_[i].Writable || IsNull(row[i])) // what is left out gets the table's default
            continue;
        names += Quote(columns_[i].Name);
        places += Placeholder(columns_[i]);
        values.push_back(sql::ToVariant(row[i], columns_[i].Declared));
    }
    const QString comma = QStringLiteral(", ");
    const QString what = names.isEmpty()
        ? QStringLiteral(" DEFAULT VALUES")
        : QStringLiteral(" (") + names.join(comma) + QStringLiteral(") VALUES (") + places.join(comma) + u')';
    if (!Write(QStringLiteral("INSERT INTO ") + Quote(table_) + what + Returning(), values,
            u"inserting into table " + table_, row))
        throw EDatabaseError(connection_->Location() + u": table " + table_ + u" didn't take the new row");
}

void TSqlDataSet::InternalUpdate(const Row& old, Row& row)
{
    CheckConnection();
    CheckWritten(row, old);
    QStringList sets;
    std::vector<QVariant> values;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (!columns_[i].Writable || SameCell(old[i], row[i]))
            continue;
        sets += Quote(columns_[i].Name) + QStringLiteral(" = ") + Placeholder(columns_[i]);
        values.push_back(sql::ToVariant(row[i], columns_[i].Declared));
    }
    if (sets.isEmpty())
        return;
    Condition where = RowCondition(old, &row);
    values.insert(values.end(), where.Values.begin(), where.Values.end());
    if (!Write(QStringLiteral("UPDATE ") + Quote(table_) + QStringLiteral(" SET ") + sets.join(QStringLiteral(", "))
                + where.Text + Returning(),
            values, u"updating table " + table_, row))
        RaiseConflict(old);
    if (KeyText(old[static_cast<std::size_t>(keyColumn_)]) != KeyText(row[static_cast<std::size_t>(keyColumn_)]))
        ForgetRaw(old);
}

void TSqlDataSet::InternalDelete(const Row& row)
{
    CheckConnection();
    const Condition where = RowCondition(row, nullptr);
    Row gone = row;
    if (!Write(QStringLiteral("DELETE FROM ") + Quote(table_) + where.Text + Returning(), where.Values,
            u"deleting from table " + table_, gone))
        RaiseConflict(row);
    ForgetRaw(row);
}

void TSqlDataSet::RaiseConflict(const Row& row) const
{
    throw EUpdateConflict(u"The row of table " + table_ + u" with \"" + key_ + u"\" = "
        + KeyText(row[static_cast<std::size_t>(keyColumn_)])
        + u" was changed or deleted by somebody else; nothing was written");
}

} // namespace vorn
