#include "chart/record_index.h"

#include "chart/chart_painting.h"
#include "chart/vorn_record.h"
#include "platform/system/strings.h"

#include <algorithm>

namespace vorn {

namespace {

bool EarlierInList(const TVornRec* a, const TVornRec* b)
{
    return a->Index < b->Index;
}

} // namespace

void TRecordIndex::Clear()
{
    byRow_.clear();
    byKey_.clear();
    stacks_.clear();
}

void TRecordIndex::Add(TVornRec& record)
{
    byRow_.push_back(&record);
    if (!record.FLabel)
        return;
    byKey_.emplace(record.FLabel->Tag(), &record);
    stacks_[FoldCase(FirstZoneName(record.Zona))].push_back(&record);
}

void TRecordIndex::ZoneChanged(TVornRec& record, StringView before)
{
    if (record.Index < 0)
        return; // still being built: Add puts it in its place
    auto& old = stacks_[FoldCase(FirstZoneName(before))];
    old.erase(std::remove(old.begin(), old.end(), &record), old.end());
    auto& now = stacks_[FoldCase(FirstZoneName(record.Zona))];
    now.insert(std::lower_bound(now.begin(), now.end(), &record, EarlierInList), &record);
}

TVornRec* TRecordIndex::OfRow(int ordinal) const
{
    if (ordinal < 0 || ordinal >= RowCount())
        return nullptr;
    return byRow_[static_cast<std::size_t>(ordinal)];
}

TVornRec* TRecordIndex::OfKey(std::intptr_t key) const
{
    TVornRec* first = nullptr;
    const auto [begin, end] = byKey_.equal_range(key);
    for (auto it = begin; it != end; ++it)
        if (it->second->FLabel && it->second->FLabel->Tag() == key && (!first || EarlierInList(it->second, first)))
            first = it->second;
    return first;
}

TVornRec* TRecordIndex::OfLabel(const TDRLabel* label) const
{
    const auto [begin, end] = byKey_.equal_range(label->Tag());
    for (auto it = begin; it != end; ++it)
        if (it->second->FLabel == label)
            return it->second;
    // The application has changed the label's Tag.
    for (TVornRec* record : byRow_)
        if (record && record->FLabel == label)
            return record;
    return nullptr;
}

TVornRec* TRecordIndex::LastOnZone(StringView zone, const TVornRec* except) const
{
    const auto stack = stacks_.find(FoldCase(zone));
    if (stack == stacks_.end())
        return nullptr;
    for (auto record = stack->second.rbegin(); record != stack->second.rend(); ++record)
        if ((*record)->FLabel && *record != except)
            return *record;
    return nullptr;
}

} // namespace vorn
