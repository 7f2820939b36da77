#pragma once

#include "chart/zone.h"
#include "platform/system/lists.h"
#include "platform/system/string_list.h"

#include <unordered_map>

namespace vorn {

/// The sensitive zones of the current background and its table of zone names.
class TZoneMap {
public:
    const TObjectList<TZone>& Zones() const { return zones_; }
    bool Empty() const { return zones_.Count() == 0; }
    /// The first zone, which stands in for one that isn't found; none if there are no zones.
    TZone* First() const { return Empty() ? nullptr : zones_[0]; }
    /// Names of teeth and areas, in the order in which the patient's row tells the missing ones.
    TStrings& Names() { return names_; }
    const TStrings& Names() const { return names_; }

    /// The zone defined last among those whose area holds a point; chart coordinates.
    TZone* At(const TPoint& chartPoint) const;
    /// The first zone of that name, case aside.
    const TZone* Named(StringView name) const;
    /// The first zone of exactly that name.
    const TZone* NamedExactly(StringView name) const;

    void ClearZones();
    void Clear();
    /// Adds the zones of a text, a line each.
    void ReadZones(const TStrings& lines);
    /// Adds the names of a text; one without a line stands for the default table.
    void ReadNames(const TStrings& lines);
    /// A background without zones has one, for the whole mouth.
    void UseFallback();
    /// Where the chart's origin lies in image coordinates: areas follow, and those read later stand right at once.
    void SetOffset(const TPoint& offset);

private:
    using ByName = std::unordered_map<String, TZone*>;

    void AddZone(StringView line);
    void AddNames(StringView line);

    TObjectList<TZone> zones_;
    TStringList names_;
    ByName folded_; // the first zone of each name
    ByName exact_;
    TPoint offset_;
};

} // namespace vorn
