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
    byLabel_.clear();
    stacks_.clear();
}

void TRecordIndex::Add(TVornRec& record)
{
    byRow_.push_back(&record);
    if (!record.FLabel)
        return;
    byKey_.emplace(record.FLabel->Tag(), &record);
    byLabel_.clear();
    stacks_[FoldCase(FirstZoneName(record.Zona))].push_back(&record);
}

void TRecordIndex::ZoneChanged(TVornRec& record, StringView before)
{
    if (record.Index < 0)
        return; // still being built: Add puts it in its place
    Stack& old = stacks_[FoldCase(FirstZoneName(before))];
    const auto place = std::lower_bound(old.begin(), old.end(), &record, EarlierInList);
    if (place != old.end() && *place == &record)
        old.erase(place);
    Stack& now = stacks_[FoldCase(FirstZoneName(record.Zona))];
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
    const auto bears
        = [key](const TVornRec* record) { return record && record->FLabel && record->FLabel->Tag() == key; };
    const auto known = byKey_.find(key);
    if (known == byKey_.end() || bears(known->second))
        return known == byKey_.end() ? nullptr : known->second;
    // That label has gone, or the application has changed its Tag.
    const auto other = std::find_if(byRow_.begin(), byRow_.end(), bears);
    return other == byRow_.end() ? nullptr : *other;
}

TVornRec* TRecordIndex::OfLabel(const TDRLabel* label) const
{
    const auto known = byKey_.find(label->Tag());
    if (known != byKey_.end() && known->second->FLabel == label)
        return known->second;
    if (byLabel_.empty())
        for (TVornRec* record : byRow_)
            if (record && record->FLabel)
                byLabel_.emplace(record->FLabel, record);
    const auto found = byLabel_.find(label);
    return found != byLabel_.end() && found->second->FLabel == label ? found->second : nullptr;
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
