#include "chart/zone_text.h"

#include "platform/system/strings.h"

namespace vorn {

namespace {

/// Cuts the text up to the next blank, and the blank, off the front. Without a blank there is no token, and the text
/// stays.
StringView CutToken(StringView& line)
{
    const auto blank = line.find(u' ');
    if (blank == StringView::npos)
        return {};
    const StringView token = line.substr(0, blank);
    line.remove_prefix(blank + 1);
    return token;
}

int CutNumber(StringView& line)
{
    return TryStrToInt(CutToken(line)).value_or(0);
}

} // namespace

std::unique_ptr<TZone> ParseZoneLine(StringView line)
{
    if (line.find(u';') != StringView::npos)
        return nullptr;
    auto zone = std::make_unique<TZone>();
    zone->rect.Left = CutNumber(line);
    zone->rect.Top = CutNumber(line);
    zone->rect.Right = CutNumber(line);
    zone->rect.Bottom = CutNumber(line);
    zone->dir = CutNumber(line);
    zone->pt.X = CutNumber(line);
    zone->pt.Y = CutNumber(line);
    zone->numZona = line;
    zone->rectOffeset = zone->rect;
    return zone;
}

std::vector<StringView> ParseZoneNames(StringView line)
{
    std::vector<StringView> names;
    for (auto blank = line.find(u' '); blank != StringView::npos; blank = line.find(u' ')) {
        names.push_back(line.substr(0, blank));
        line.remove_prefix(blank + 1);
    }
    if (!line.empty())
        names.push_back(line);
    return names;
}

} // namespace vorn
