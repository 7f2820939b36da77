#include "chart/chart_painting.h"

#include "chart/zone_map.h"
#include "labels/DrLabel.h"

#include <vector>

namespace vorn {

namespace {

/// Below the anchor of its zone.
constexpr int LineDrop = 3;
/// Flags of the two calls that measure and draw a label's text; they break it alike.
constexpr unsigned DrawFlags = DT_NOPREFIX | DT_WORDBREAK;

TPoint LinePoint(const TZone& zone, const TPoint& shift)
{
    const bool sideways = zone.dir == dirLeft || zone.dir == dirRight;
    const int middle = sideways ? 0 : WrapSub(zone.rect.Right, zone.rect.Left) / 2;
    return {WrapAdd(WrapAdd(zone.pt.X, shift.X), middle), WrapAdd(WrapAdd(zone.pt.Y, shift.Y), LineDrop)};
}

std::vector<TPoint> LinePoints(const TZoneMap& zones, StringView names, const TPoint& shift)
{
    std::vector<TPoint> points;
    for (StringView rest = names;;) {
        const auto blank = rest.find(u' ');
        if (const TZone* zone = zones.NamedExactly(rest.substr(0, blank)))
            points.push_back(LinePoint(*zone, shift));
        if (blank == StringView::npos)
            return points;
        rest.remove_prefix(blank + 1);
    }
}

} // namespace

StringView FirstZoneName(StringView zones)
{
    return zones.substr(0, zones.find(u' '));
}

bool NamesSeveralZones(StringView zones)
{
    return zones.find(u' ') != StringView::npos;
}

void DrawLeaderLine(const TZoneMap& zones, StringView names, TCanvas& canvas, const TPoint& shift)
{
    const std::vector<TPoint> points = LinePoints(zones, names, shift);
    if (points.size() < 2)
        return;
    canvas.Pen.Color = clBlue;
    canvas.Brush.Color = clBlue;
    canvas.Polyline(points);
    for (const TPoint& p : points)
        canvas.Rectangle({WrapSub(p.X, 2), WrapSub(p.Y, 2), WrapAdd(p.X, 3), WrapAdd(p.Y, 3)});
}

void PaintLabel(const TDRLabel& label, TCanvas& canvas, const TPoint& origin)
{
    TRect area = Bounds(WrapAdd(origin.X, label.Left()), WrapAdd(origin.Y, label.Top()), label.Width(), label.Height());
    canvas.Font.Assign(label.Font());
    canvas.Brush.Style = label.Transparent() ? TBrushStyle::bsClear : TBrushStyle::bsSolid;
    if (!label.Transparent())
        canvas.Brush.Color = label.Color();
    canvas.DrawText(label.Caption(), area, DrawFlags | DT_CALCRECT);
    canvas.DrawText(label.Caption(), area, DrawFlags);
    if (label.Border() == TDRBorder::boDotted) {
        canvas.Pen.Style = TPenStyle::psDot;
        canvas.Brush.Style = TBrushStyle::bsClear;
        canvas.Rectangle(area);
    } else if (label.Border() != TDRBorder::boNone) {
        canvas.Brush.Color = clBlack;
        canvas.FrameRect(area);
    }
}

} // namespace vorn
