// A background's zone lines and zone-name lines.

#include "chart/zone_text.h"
#include "tests/fuzz/fuzz.h"

#include <algorithm>

namespace vorn::fuzz {
namespace {

void CheckZone(StringView line)
{
    const auto zone = ParseZoneLine(line);
    Require((zone == nullptr) == (line.find(u';') != StringView::npos), "only a \";\" gives no zone");
    if (!zone)
        return;
    Require(line.ends_with(zone->numZona), "the name is the end of the line, unchanged");
    Require(zone->rectOffeset == zone->rect, "a new zone has no offset");
    Require(line.find_first_of(u"123456789abcdefABCDEF") != StringView::npos
            || (zone->rect == TRect() && zone->pt == TPoint() && zone->dir == 0),
        "what is no number is 0");
    const auto blanks = std::count(line.begin(), line.end(), u' ');
    Require(
        blanks >= 7 || zone->numZona.find(u' ') == String::npos, "a line too short for seven numbers ends in its name");

    // Written as it is stored, the zone is read back.
    String text;
    for (int number :
        {zone->rect.Left, zone->rect.Top, zone->rect.Right, zone->rect.Bottom, zone->dir, zone->pt.X, zone->pt.Y})
        text += IntToStr(number) + u" ";
    const auto again = ParseZoneLine(text + zone->numZona);
    Require(again && again->rect == zone->rect && again->pt == zone->pt && again->dir == zone->dir
            && again->numZona == zone->numZona,
        "a zone is read as it was written");
}

void CheckNames(StringView line)
{
    const auto names = ParseZoneNames(line);
    String joined;
    for (StringView name : names) {
        Require(name.find(u' ') == StringView::npos, "a name holds no blank");
        joined += String(name) + u" ";
    }
    const bool openEnd = !line.empty() && line.back() != u' ';
    Require(joined == String(line) + (openEnd ? u" " : u""), "the names and one blank behind each are the line");
}

} // namespace
} // namespace vorn::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const vorn::String line = vorn::fuzz::Text(data, size);
    vorn::fuzz::CheckZone(line);
    vorn::fuzz::CheckNames(line);
    return 0;
}
