#pragma once

#include "platform/data/dataset.h"

namespace vorn {

/// A dataset whose rows live in this object alone. They survive closing and opening.
class TMemoryDataSet : public TDataSet {
public:
    explicit TMemoryDataSet(TComponent* owner = nullptr) : TDataSet(owner) {}
    ~TMemoryDataSet() override;

    /// Only while closed.
    void AddFieldDef(StringView name, TFieldType type, bool required = false);
    /// Makes Post give a new row the next number in this integer column if it is null. Only while closed; the column
    /// is the one by which Refresh finds a row again.
    void SetAutoIncField(StringView name);
    /// Adds a stored row, values in column order; missing ones are null. Only while closed.
    void AddRow(std::vector<TValue> values);

protected:
    std::vector<TFieldDef> InternalOpen() override;
    void InternalInsert(Row& row) override;
    void InternalUpdate(const Row& old, Row& row) override;
    void InternalDelete(const Row& row) override;

    int KeyColumn() const override { return autoIncColumn_; }

private:
    void CheckClosed() const;
    void NoteNumber(const Row& row);

    std::vector<TFieldDef> defs_;
    std::vector<Row> stored_; // in the order of the rows that are seen
    int autoIncColumn_ = -1;
    std::int64_t lastNumber_ = 0; // highest number seen in that column
};

} // namespace vorn
