#include "chart/vorndblabelIE.h"

#include <vector>

namespace vorn {

void TVornIEDBTerList::DisegnaLnk(StringView Zone, TCanvas& Canvas, int DX, int DY) const
{
    std::vector<TPoint> points;
    for (StringView rest = Zone;;) {
        const auto blank = rest.find(u' ');
        const auto found = FZoneByExactName.find(String(rest.substr(0, blank)));
        if (found != FZoneByExactName.end()) {
            const TZone& zone = *found->second;
            const bool sideways = zone.dir == 0 || zone.dir == 2;
            const int middle = sideways ? 0 : WrapSub(zone.rect.Right, zone.rect.Left) / 2;
            points.push_back({WrapAdd(WrapAdd(zone.pt.X, DX), middle), WrapAdd(WrapAdd(zone.pt.Y, DY), 3)});
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

/// The lines of all labels that stand on their zones, onto layer 0.
void TVornIEDBTerList::DrawLinesOnPicture()
{
    FContainer->SetLayersCurrent(0);
    for (const TVornRec* record : *FList)
        if (record->FLabel && record->Zona.find(u' ') != String::npos)
            DisegnaLnk(record->Zona, FContainer->Bitmap().GetCanvas(), 0, 0);
}

namespace {

/// Flags of the two calls that measure and draw a label's text; they break it alike.
constexpr unsigned DrawFlags = DT_NOPREFIX | DT_WORDBREAK;

/// The label's text and frame, as large as the text needs; its glyph, shadow and 3-D effects stay on the screen.
void PaintLabel(const TDRLabel& label, TCanvas& canvas, int x, int y)
{
    TRect area = Bounds(WrapAdd(x, label.Left()), WrapAdd(y, label.Top()), label.Width(), label.Height());
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

} // namespace

void TVornIEDBTerList::FListPaintTo(TCanvas& Canvas, int X, int Y) const
{
    const auto drawLine = [&](StringView zones) {
        Canvas.Brush.Style = TBrushStyle::bsSolid; // a transparent label before it leaves it clear
        DisegnaLnk(zones, Canvas, WrapSub(0, FOffsetX), WrapSub(0, FOffsetY));
    };
    for (const TVornRec* record : *FList) {
        if (!FEnabledImg || !record->FLabel)
            continue;
        if (record->Zona.find(u' ') != String::npos)
            drawLine(record->Zona);
        PaintLabel(*record->FLabel, Canvas, X, Y);
    }
    if (FDiagnosiShow != TDiagnosiShow::diagNone && FLabelDiagnosi->Visible())
        PaintLabel(*FLabelDiagnosi, Canvas, X, Y);
}

} // namespace vorn
