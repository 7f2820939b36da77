#pragma once

#include "chart/zone.h"

#include <memory>
#include <vector>

namespace vorn {

/// Reads one line of a background's zone text: left, top, right, bottom, direction, anchor x, anchor y and name, with
/// one blank between them. None for a line with ";" in it. Nothing is refused: a number that is none, or none of 32
/// bits, is 0; with too few fields what stands behind the last blank is the name. The zone has no offset yet.
std::unique_ptr<TZone> ParseZoneLine(StringView line);

/// Cuts one line of the zone-name table at its blanks. Two blanks in a row, or one in front, give an empty name; one
/// behind the last name gives none. The names refer to the line.
std::vector<StringView> ParseZoneNames(StringView line);

} // namespace vorn
