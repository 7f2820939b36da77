#include "platform/data/dataset.h"

#include "platform/system/strings.h"

#include <algorithm>
#include <string_view>
#include <type_traits>

namespace vorn {

namespace {

constexpr int searchesBeforeIndex = 4; // an index costs as much as some plain searches

std::size_t HashOfNumber(double value)
{
    return std::hash<double>()(value);
}

std::size_t HashOfText(const String& text)
{
    // Most text is no number, and most of that begins with a letter.
    const bool maybeNumber = !text.empty() && text.front() <= u'9';
    const auto number = maybeNumber ? TryStrToFloat(text) : std::nullopt;
    return number ? HashOfNumber(*number) : std::hash<StringView>()(text);
}

std::size_t HashOfBytes(const Bytes& bytes)
{
    return std::hash<std::string_view>()({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

/// Alike for any two values that SameValue calls the same: what can equal a number goes by that number.
std::size_t HashOf(const TValue& value)
{
    return std::visit(
        [](const auto& held) -> std::size_t {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::int64_t> || std::is_same_v<Held, double>)
                return HashOfNumber(static_cast<double>(held));
            else if constexpr (std::is_same_v<Held, TDateValue>)
                return HashOfText(DateToIso(held.Value));
            else if constexpr (std::is_same_v<Held, String>)
                return HashOfText(held);
            else if constexpr (std::is_same_v<Held, BlobValue>)
                return held ? HashOfBytes(*held) : 0;
            else
                return 0;
        },
        value);
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
    if (++index_.Searches == searchesBeforeIndex)
        BuildLocateIndex();
    if (index_.Built)
        return FindIndexed(value);
    for (std::size_t i = 0; i < rows_.size(); ++i)
        if (SameValue(rows_[i].Values[static_cast<std::size_t>(column)], value))
            return static_cast<int>(i);
    return -1;
}

int TDataSet::FindIndexed(const TValue& value) const
{
    int first = -1;
    const auto [begin, end] = index_.Rows.equal_range(HashOf(value));
    for (auto it = begin; it != end; ++it) {
        const int row = it->second;
        if ((first < 0 || row < first) && SameValue(StoredValue(row, index_.Column), value))
            first = row;
    }
    return first;
}

void TDataSet::BuildLocateIndex()
{
    index_.Rows.reserve(rows_.size());
    for (int row = 0; row < RecordCount(); ++row)
        AddToIndex(row);
    index_.Built = true;
}

/// The row comes after all that are in the index: one with the very value of an earlier row is never the first.
void TDataSet::AddToIndex(int row)
{
    const TValue& value = StoredValue(row, index_.Column);
    const std::size_t hash = HashOf(value);
    const auto [begin, end] = index_.Rows.equal_range(hash);
    const bool known = std::any_of(begin, end, [&](const auto& earlier) {
        const TValue& other = StoredValue(earlier.second, index_.Column);
        return other.index() == value.index() && SameValue(other, value);
    });
    if (!known)
        index_.Rows.emplace(hash, row);
}

/// Keeps the index good after row `current_` was stored as `row`; `old` is empty for a new row, which is the last one.
void TDataSet::NoteStored(const Row& old, const Row& row)
{
    if (index_.Column < 0)
        return;
    const auto column = static_cast<std::size_t>(index_.Column);
    if (!old.empty() && SameValue(old[column], row[column]) && old[column].index() == row[column].index())
        return;
    if (index_.Built && old.empty())
        AddToIndex(current_);
    else
        index_ = {};
}

} // namespace vorn
