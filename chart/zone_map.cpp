#include "chart/zone_map.h"

#include "chart/zone_text.h"
#include "platform/system/strings.h"

namespace vorn {

namespace {

constexpr StringView FallbackZone = u"2 10 41 32 3 3 34 GL";

/// Tooth numbers by jaw, with the areas that are no teeth between: what a background without a table of its own uses.
constexpr StringView DefaultNameRows[] = {
    u"18 17 16 15 14 13 12 11 21 22 23 24 25 26 27 28",
    u"48 47 46 45 44 43 42 41 31 32 33 34 35 36 37 38",
    u"GL AS AI",
    u"55 54 53 52 51 61 62 63 64 65",
    u"85 84 83 82 81 71 72 73 74 75",
};

} // namespace

TZone* TZoneMap::At(const TPoint& chartPoint) const
{
    for (int i = zones_.Count() - 1; i >= 0; --i)
        if (PtInRect(zones_[i]->rectOffeset, chartPoint))
            return zones_[i];
    return nullptr;
}

const TZone* TZoneMap::Named(StringView name) const
{
    const auto found = folded_.find(FoldCase(name));
    return found == folded_.end() ? nullptr : found->second;
}

const TZone* TZoneMap::NamedExactly(StringView name) const
{
    const auto found = exact_.find(String(name));
    return found == exact_.end() ? nullptr : found->second;
}

void TZoneMap::ClearZones()
{
    folded_.clear();
    exact_.clear();
    zones_.Clear();
}

void TZoneMap::Clear()
{
    ClearZones();
    names_.Clear();
}

void TZoneMap::ReadZones(const TStrings& lines)
{
    for (int i = 0; i < lines.Count(); ++i)
        AddZone(lines.Strings(i));
}

void TZoneMap::ReadNames(const TStrings& lines)
{
    for (int i = 0; i < lines.Count(); ++i)
        AddNames(lines.Strings(i));
    if (lines.Count() == 0)
        for (const StringView row : DefaultNameRows)
            AddNames(row);
}

void TZoneMap::UseFallback()
{
    AddZone(FallbackZone);
    names_.Clear();
    names_.Add(GeneralZone);
}

void TZoneMap::AddZone(StringView line)
{
    auto zone = ParseZoneLine(line);
    if (!zone)
        return;
    OffsetRect(zone->rectOffeset, WrapSub(0, offset_.X), WrapSub(0, offset_.Y));
    folded_.try_emplace(FoldCase(zone->numZona), zone.get());
    exact_.try_emplace(zone->numZona, zone.get());
    zones_.Add(zone.release());
}

void TZoneMap::AddNames(StringView line)
{
    for (const StringView name : ParseZoneNames(line))
        names_.Add(name);
}

void TZoneMap::SetOffset(const TPoint& offset)
{
    for (TZone* zone : zones_)
        OffsetRect(zone->rectOffeset, WrapSub(offset_.X, offset.X), WrapSub(offset_.Y, offset.Y));
    offset_ = offset;
}

} // namespace vorn
