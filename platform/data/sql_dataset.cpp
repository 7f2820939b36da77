#include "platform/data/sql_dataset.h"

#include "platform/data/sql_internal.h"
#include "platform/data/sqlite_rows.h"
#include "platform/system/strings.h"

#include <QSqlError>
#include <QSqlField>
#include <QSqlRecord>

#include <algorithm>

namespace vorn {

TSqlDataSet::~TSqlDataSet()
{
    Destroying();
}

void TSqlDataSet::SetConnection(TSqlConnection* connection)
{
    if (connection == connection_)
        return;
    const TLifeWatch next(connection);
    if (!CloseToChange())
        return;
    if (connection_)
        connection_->RemoveFreeNotification(this);
    connection_ = next.Alive() ? connection : nullptr;
    if (connection_)
        connection_->FreeNotification(this);
}

void TSqlDataSet::Notification(TComponent* component, TOperation operation)
{
    TDataSet::Notification(component, operation);
    if (operation == TOperation::opRemove && component == connection_)
        connection_ = nullptr; // the rows stay, but can't be written any more
}

void TSqlDataSet::SetCommandText(StringView select)
{
    if (select == select_)
        return;
    if (CloseToChange())
        select_ = select;
}

void TSqlDataSet::SetParam(StringView name, TValue value)
{
    params_[name.starts_with(u':') ? String(name) : u":" + String(name)] = std::move(value);
}

void TSqlDataSet::SetUpdateTable(StringView table, StringView keyColumn)
{
    String newKey(keyColumn); // it may be the present one
    if (!CloseToChange())
        return;
    table_ = table;
    key_ = std::move(newKey);
}

/// Closes before what it reads is changed. False if that has freed the dataset; raises EDatabaseError if a handler has
/// opened it again.
bool TSqlDataSet::CloseToChange()
{
    const TLifeWatch watch(this);
    Close();
    if (watch.Alive() && Active())
        throw EDatabaseError(DisplayName() + u" must be closed for this");
    return watch.Alive();
}

String TSqlDataSet::DisplayName() const
{
    if (!Name().empty())
        return Name();
    return table_.empty() ? u"query \"" + select_ + u"\"" : table_;
}

TSqlConnection& TSqlDataSet::CheckConnection() const
{
    if (!connection_ || !connection_->Connected())
        throw EDatabaseError(DisplayName() + u" has no open connection");
    return *connection_;
}

std::vector<TFieldDef> TSqlDataSet::InternalOpen()
{
    TSqlConnection& connection = CheckConnection();
    const String what = u"reading " + DisplayName();
    if (!table_.empty())
        connection.Columns(table_); // asked now: the server takes no second query while rows are coming
    QSqlQuery query = sql::Prepare(connection, ToQt(select_), what);
    for (const auto& [name, value] : params_)
        query.bindValue(ToQt(name), sql::ToVariant(value, {}));
    sql::Exec(query, connection, what);

    std::vector<Column> columns;
    std::vector<TFieldDef> defs = Describe(query.record(), columns);
    const int key = FindKey(columns);
    std::map<RawKey, String> raw;
    const auto count = static_cast<int>(columns.size());
    String text;
    auto rows = sql::SqliteRows::Of(connection, query);
    while (rows ? rows->Next() : query.next()) {
        Row row;
        row.reserve(columns.size());
        std::vector<std::pair<int, String>> texts; // hardly ever any
        for (int i = 0; i < count; ++i) {
            const TFieldType type = columns[static_cast<std::size_t>(i)].Type;
            row.push_back(rows ? rows->Cell(i, type, &text) : sql::FromVariant(query.value(i), type, &text));
            if (!text.empty())
                texts.emplace_back(i, std::exchange(text, {}));
        }
        if (key >= 0)
            for (auto& [column, written] : texts)
                raw[{KeyText(row[static_cast<std::size_t>(key)]), column}] = std::move(written);
        AddLoadedRow(std::move(row));
    }
    if (query.lastError().isValid())
        sql::RaiseSql(connection, query.lastError(), what);
    columns_ = std::move(columns);
    raw_ = std::move(raw);
    keyColumn_ = key;
    return defs;
}

namespace {

TFieldType TypeOfField(const QSqlField& field)
{
    switch (field.metaType().id()) {
    case QMetaType::Bool:
        return TFieldType::ftBoolean;
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::UInt:
    case QMetaType::ULongLong:
        return TFieldType::ftInteger;
    case QMetaType::Double:
    case QMetaType::Float:
        return TFieldType::ftFloat;
    case QMetaType::QDate:
        return TFieldType::ftDate;
    case QMetaType::QDateTime:
        return TFieldType::ftDateTime;
    case QMetaType::QByteArray:
        return TFieldType::ftBlob;
    default:
        return TFieldType::ftString;
    }
}

const TSqlColumn* FindColumn(const std::vector<TSqlColumn>& columns, StringView name)
{
    const auto found
        = std::find_if(columns.begin(), columns.end(), [&](const auto& column) { return SameText(column.Name, name); });
    return found == columns.end() ? nullptr : &*found;
}

} // namespace

/// The columns of a result. Those of the update table are taken once each; what comes from elsewhere is read-only.
std::vector<TFieldDef> TSqlDataSet::Describe(const QSqlRecord& record, std::vector<Column>& columns) const
{
    std::vector<TFieldDef> defs;
    std::vector<String> taken;
    for (int i = 0; i < record.count(); ++i) {
        const QSqlField field = record.field(i);
        TFieldDef def{FromQt(field.name()), TypeOfField(field), false, 0};
        Column column{def.Name, {}, def.Type, false, false};
        const String from = FromQt(field.tableName());
        const String table = from.empty() ? table_ : from;
        const TSqlColumn* const known = table.empty() ? nullptr : FindColumn(connection_->Columns(table), def.Name);
        if (known) {
            column.Name = known->Name;
            column.Declared = known->Declared;
            if (!known->Declared.empty())
                column.Type = def.Type = sql::TypeOfDeclaration(known->Declared);
            column.Known = !table_.empty() && SameText(table, table_)
                && std::find(taken.begin(), taken.end(), known->Name) == taken.end();
            column.Writable = column.Known && known->Writable;
            def.Required = column.Writable && known->Required;
            if (column.Known)
                taken.push_back(known->Name);
        }
        columns.push_back(std::move(column));
        defs.push_back(std::move(def));
    }
    return defs;
}

int TSqlDataSet::FindKey(const std::vector<Column>& columns) const
{
    if (table_.empty())
        return -1;
    if (connection_->Columns(table_).empty())
        throw EDatabaseError(connection_->Location() + u": there is no table " + table_);
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (columns[i].Known && SameText(columns[i].Name, key_))
            return static_cast<int>(i);
    throw EDatabaseError(
        DisplayName() + u": the key column \"" + key_ + u"\" of table " + table_ + u" is not among the columns read");
}

} // namespace vorn
