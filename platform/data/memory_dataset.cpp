#include "platform/data/memory_dataset.h"

#include "platform/system/strings.h"

#include <algorithm>

namespace vorn {

TMemoryDataSet::~TMemoryDataSet()
{
    Destroying();
}

void TMemoryDataSet::CheckClosed() const
{
    if (Active())
        throw EDatabaseError(DisplayName() + u" must be closed for this");
}

void TMemoryDataSet::AddFieldDef(StringView name, TFieldType type, bool required)
{
    CheckClosed();
    for (const TFieldDef& def : defs_)
        if (SameText(def.Name, name))
            throw EDatabaseError(u"Column \"" + String(name) + u"\" of " + DisplayName() + u" already exists");
    defs_.push_back({String(name), type, required, 0});
    for (Row& row : stored_)
        row.resize(defs_.size());
}

void TMemoryDataSet::SetAutoIncField(StringView name)
{
    CheckClosed();
    const auto def = std::find_if(defs_.begin(), defs_.end(), [&](const auto& d) { return SameText(d.Name, name); });
    if (def == defs_.end() || def->Type != TFieldType::ftInteger)
        throw EDatabaseError(DisplayName() + u" has no integer column \"" + String(name) + u"\"");
    autoIncColumn_ = static_cast<int>(def - defs_.begin());
}

void TMemoryDataSet::AddRow(std::vector<TValue> values)
{
    CheckClosed();
    if (values.size() > defs_.size())
        throw EDatabaseError(u"A row of " + DisplayName() + u" has more values than there are columns");
    values.resize(defs_.size());
    stored_.push_back(std::move(values));
}

std::vector<TFieldDef> TMemoryDataSet::InternalOpen()
{
    if (defs_.empty())
        throw EDatabaseError(DisplayName() + u" has no columns");
    ReserveRows(static_cast<int>(stored_.size()));
    for (const Row& row : stored_) {
        NoteNumber(row);
        AddLoadedRow(row);
    }
    std::vector<TFieldDef> defs = defs_;
    if (autoIncColumn_ >= 0)
        defs[static_cast<std::size_t>(autoIncColumn_)].Required = false; // Post fills it
    return defs;
}

void TMemoryDataSet::InternalInsert(Row& row)
{
    if (autoIncColumn_ >= 0 && IsNull(row[static_cast<std::size_t>(autoIncColumn_)]))
        row[static_cast<std::size_t>(autoIncColumn_)] = lastNumber_ + 1;
    NoteNumber(row);
    stored_.push_back(row);
}

void TMemoryDataSet::NoteNumber(const Row& row)
{
    if (autoIncColumn_ < 0)
        return;
    if (const auto* number = std::get_if<std::int64_t>(&row[static_cast<std::size_t>(autoIncColumn_)]))
        lastNumber_ = std::max(lastNumber_, *number);
}

void TMemoryDataSet::InternalUpdate(const Row&, Row& row)
{
    NoteNumber(row);
    stored_[static_cast<std::size_t>(RowIndex())] = row;
}

void TMemoryDataSet::InternalDelete(const Row&)
{
    stored_.erase(stored_.begin() + RowIndex());
}

} // namespace vorn
