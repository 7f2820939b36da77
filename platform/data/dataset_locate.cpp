#include "platform/data/dataset.h"

#include "platform/system/strings.h"

namespace vorn {

namespace {

constexpr int searchesBeforeIndex = 4; // an index costs as much as some plain searches

/// The integer that `value` is equal to in the sense of SameValue, if there is one.
std::optional<std::int64_t> AsExactInteger(const TValue& value)
{
    if (const auto* number = std::get_if<std::int64_t>(&value))
        return *number;
    std::optional<std::int64_t> candidate;
    if (const auto* text = std::get_if<String>(&value))
        candidate = TryStrToInt64(*text);
    else if (const auto* real = std::get_if<double>(&value); real && *real > -9e18 && *real < 9e18)
        candidate = static_cast<std::int64_t>(*real);
    return candidate && SameValue(*candidate, value) ? candidate : std::nullopt;
}

} // namespace

bool TDataSet::Locate(StringView fieldName, TValue value)
{
    CheckActive();
    const int column = FieldByName(fieldName).Index();
    if (!CheckBrowseMode())
        return false;
    const int row = FindValue(column, value);
    return row >= 0 && MoveTo(row, false, false);
}

int TDataSet::FindValue(int column, const TValue& value)
{
    if (index_.Column != column) {
        index_ = {};
        index_.Column = column;
    }
    if (fields_[static_cast<std::size_t>(column)]->DataType() == TFieldType::ftInteger && !IsNull(value)
        && ++index_.Searches == searchesBeforeIndex)
        BuildLocateIndex();
    if (index_.Built && !IsNull(value))
        return FindIndexed(value);
    for (std::size_t i = 0; i < rows_.size(); ++i)
        if (SameValue(rows_[i].Values[static_cast<std::size_t>(column)], value))
            return static_cast<int>(i);
    return -1;
}

int TDataSet::FindIndexed(const TValue& value) const
{
    const auto number = AsExactInteger(value);
    if (!number)
        return -1;
    const auto found = index_.Rows.find(*number);
    return found == index_.Rows.end() ? -1 : found->second;
}

void TDataSet::BuildLocateIndex()
{
    index_.Rows.reserve(rows_.size());
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const TValue& value = rows_[i].Values[static_cast<std::size_t>(index_.Column)];
        if (const auto* number = std::get_if<std::int64_t>(&value)) {
            index_.Rows.emplace(*number, static_cast<int>(i));
        } else if (!IsNull(value)) { // a column that isn't what it says: search it plainly
            index_.Rows.clear();
            return;
        }
    }
    index_.Built = true;
}

/// Keeps the index good after row `current_` was stored as `row`; `old` is empty for a new row.
void TDataSet::NoteStored(const Row& old, const Row& row)
{
    if (index_.Column < 0)
        return;
    const auto column = static_cast<std::size_t>(index_.Column);
    if (!old.empty() && SameValue(old[column], row[column]) && old[column].index() == row[column].index())
        return;
    const auto* const number = std::get_if<std::int64_t>(&row[column]);
    if (index_.Built && old.empty() && number)
        index_.Rows.emplace(*number, current_); // a new row is the last one
    else
        index_ = {};
}

} // namespace vorn
