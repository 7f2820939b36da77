#include "chart/vorndblabelIE.h"

#include <vector>

namespace vorn {

void TVornIEDBTerList::DisegnaLnk(StringView Zone, TCanvas& Canvas, int DX, int DY) const
{
    std::vector<TPoint> points;
    for (StringView rest = Zone;;) {
        const auto blank = rest.find(u' ');
        const StringView name = rest.substr(0, blank);
        for (const TZone* zone : *FZoneList) {
            if (zone->numZona != name)
                continue;
            const bool sideways = zone->dir == 0 || zone->dir == 2;
            const int middle = sideways ? 0 : WrapSub(zone->rect.Right, zone->rect.Left) / 2;
            points.push_back({WrapAdd(WrapAdd(zone->pt.X, DX), middle), WrapAdd(WrapAdd(zone->pt.Y, DY), 3)});
            break;
        }
        if (blank == StringView::npos)
            break;
        rest.remove_prefix(blank + 1);
    }
    // A name without a zone is passed over: the line joins the zones that exist.
    if (points.size() < 2)
        return;
    Canvas.Pen.Color = clBlue;
    Canvas.Brush.Color = clBlue;
    Canvas.Polyline(points);
    for (const TPoint& p : points)
        Canvas.Rectangle({WrapSub(p.X, 2), WrapSub(p.Y, 2), WrapAdd(p.X, 3), WrapAdd(p.Y, 3)});
}

} // namespace vorn
