#pragma once

#include "platform/data/dataset.h"
#include "platform/data/sql_connection.h"

#include <map>

class QSqlRecord;
class QString;
class QVariant;

namespace vorn {

/// The rows of a query, written back to one table by their key.
///
/// Values go as bound parameters, identifiers are quoted. A row that somebody else changed or deleted meanwhile is
/// not overwritten: Post and Delete then raise EUpdateConflict. A key that the database generates, and whatever else it
/// fills in, is known when Post returns.
class TSqlDataSet : public TDataSet {
public:
    explicit TSqlDataSet(TComponent* owner = nullptr) : TDataSet(owner) {}
    ~TSqlDataSet() override;

    TSqlConnection* Connection() const { return connection_; }
    void SetConnection(TSqlConnection* connection);
    /// A select with parameters as ":name".
    void SetCommandText(StringView select);
    const String& CommandText() const { return select_; }
    /// Takes effect at the next opening or refresh.
    void SetParam(StringView name, TValue value);
    /// Table and key column that Post and Delete write to; without them the dataset is read-only.
    void SetUpdateTable(StringView table, StringView keyColumn);
    const String& UpdateTable() const { return table_; }
    const String& UpdateKey() const { return key_; }

    String DisplayName() const override;
    bool CanModify() const override { return TDataSet::CanModify() && !table_.empty(); }

protected:
    std::vector<TFieldDef> InternalOpen() override;
    void InternalInsert(Row& row) override;
    void InternalUpdate(const Row& old, Row& row) override;
    void InternalDelete(const Row& row) override;
    int KeyColumn() const override { return keyColumn_; }
    void Notification(TComponent* component, TOperation operation) override;

private:
    struct Column {
        String Name;     ///< in the table, if it has the column
        String Declared; ///< type in the database's words
        TFieldType Type;
        bool Known;    ///< a column of the update table
        bool Writable; ///< and not one that the database computes
    };
    struct Condition;
    using RawKey = std::pair<String, int>; // key of the row, column

    static String KeyText(const TValue& value);
    static bool SameCell(const TValue& a, const TValue& b);
    bool CloseToChange();
    TSqlConnection& CheckConnection() const;
    std::vector<TFieldDef> Describe(const QSqlRecord& record, std::vector<Column>& columns) const;
    int FindKey(const std::vector<Column>& columns) const;
    QString Placeholder(const Column& column) const;
    QString Unchanged(const Column& column) const;
    QString Returning() const;
    Condition RowCondition(const Row& old, const Row* changed) const;
    bool Write(const QString& statement, const std::vector<QVariant>& values, StringView what, Row& row);
    void ForgetRaw(const Row& row);
    void CheckWritten(const Row& written, const Row& old) const;
    [[noreturn]] void RaiseConflict(const Row& row) const;

    TSqlConnection* connection_ = nullptr;
    String select_;
    String table_;
    String key_;
    std::map<String, TValue> params_;
    std::vector<Column> columns_;
    std::map<RawKey, String> raw_; // dates as they were written, where that isn't the form we write
    int keyColumn_ = -1;
};

} // namespace vorn
