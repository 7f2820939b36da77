#include "chart/chart_painting.h"
#include "chart/treatments.h"
#include "platform/system/strings.h"

namespace vorn {

namespace {

constexpr int GapLeft = 8;
constexpr int GapRight = 4;
/// Limit of a label's width in a vertical stack on a tooth.
constexpr int MaxStackWidth = 39;

void SetFrame(TDRLabel& label, const std::optional<String>& done)
{
    if (done == u"1")
        label.SetBorder(TDRBorder::boSingle);
    else if (done == u"2")
        label.SetBorder(TDRBorder::boDotted);
    else if (!done || label.Border() != TDRBorder::boDotted) // a done child row may have set that
        label.SetBorder(TDRBorder::boNone);
}

/// The corner of a label that follows the last one on its zone, if there is one.
TPoint NextPlace(const TZone& zone, const TVornRec* last)
{
    if (!last)
        return zone.pt;
    const TRect bounds = last->FLabel->BoundsRect();
    switch (zone.dir) {
    case dirLeft:
        return {WrapSub(bounds.Left, GapLeft), bounds.Top};
    case dirRight:
        return {WrapAdd(bounds.Left, bounds.Width() + GapRight), bounds.Top};
    case dirDown:
        return {bounds.Left, WrapAdd(bounds.Top, bounds.Height())};
    default:
        return {bounds.Left, bounds.Top};
    }
}

} // namespace

TTreatments::TPlace TTreatments::Show(TVornRec& record, const TRowReading& reading, bool refresh)
{
    TDRLabel& label = *record.FLabel;
    const int left = label.Left();
    Dress(label, reading);
    record.Evidenzia = reading.Look.Description;
    record.X = reading.Stored.X;
    record.Y = reading.Stored.Y;
    // A text that isn't left-justified moves the left edge as it grows.
    record.boundRect.Left = WrapAdd(record.boundRect.Left, WrapSub(label.Left(), left));

    const TPlace place = Place(record, reading);
    if (place == TPlace::NoZone)
        return place;
    SetFrame(label, reading.Done);
    // Under a zoom labels stand in the view's coordinates. A rebuild places them at natural size.
    if (refresh && !space_.AtNaturalSize())
        record.boundRect = Bounds(record.boundRect.Left, record.boundRect.Top, label.Width(), label.Height());
    else
        StoreBounds(record);
    return place;
}

void TTreatments::Dress(TDRLabel& label, const TRowReading& reading) const
{
    label.SetCaption(reading.Caption);
    reading.Look.Apply(label, settings_.DefaultLabel);
    if (reading.Color != clBlack) {
        label.Font().SetColor(reading.Color);
        label.SetFontColor(reading.Color);
    }
    if (reading.Hint)
        label.SetHint(*reading.Hint);
    if (reading.Drag)
        label.ShowDrag = *reading.Drag;
}

TTreatments::TPlace TTreatments::Place(TVornRec& record, const TRowReading& reading)
{
    TDRLabel& label = *record.FLabel;
    if (record.X != 0 && record.Y != 0) {
        const TPoint corner = space_.ImageToChart(reading.Stored);
        label.SetBounds(corner.X, corner.Y, label.Width(), label.Height());
        if (space_.View())
            label.SetParent(space_.View());
        StoreBounds(record);
        SetZona(record, {});
        return TPlace::Kept;
    }
    if (SameText(reading.Zones, record.Zona))
        return TPlace::Kept;
    SetZona(record, reading.Zones);
    const TZone* zone = zones_.Named(FirstZoneName(reading.Zones));
    if (!zone && zones_.Empty())
        return TPlace::NoZone;
    if (!zone) {
        zone = zones_.First();
        SetZona(record, zone->numZona);
    }
    PlaceOnZone(record, *zone);
    return TPlace::OnZone;
}

void TTreatments::PlaceOnZone(TVornRec& record, const TZone& zone) const
{
    TDRLabel& label = *record.FLabel;
    const TVornRec* const neighbour = index_.LastOnZone(zone.numZona, &record);
    TPoint place = NextPlace(zone, neighbour);
    // The point is the right end of a label that runs left, and the bottom of one that runs up.
    if (zone.dir == dirLeft)
        place.X = WrapSub(place.X, label.Width());
    else if (zone.dir == dirUp)
        place.Y = WrapSub(place.Y, label.Height());
    label.SetBounds(place.X, place.Y, label.Width(), label.Height());
    if (!label.Parent() && space_.View()) // at its place by now: the view takes it in only once
        label.SetParent(space_.View());
    StoreBounds(record);
    if (neighbour) { // beside it on the chart too, where it may stand elsewhere than on the screen
        const TRect& last = neighbour->boundRect;
        OffsetRect(record.boundRect, WrapSub(last.Left, neighbour->FLabel->Left()),
            WrapSub(last.Top, neighbour->FLabel->Top()));
        record.boundOffset = neighbour->boundOffset;
    }

    const bool vertical = zone.dir == dirUp || zone.dir == dirDown;
    if (vertical && zone.numZona != GeneralZone && label.Width() > MaxStackWidth) {
        label.SetAutoSize(false);
        label.SetWidth(MaxStackWidth);
    }
}

/// For a label that stands in chart coordinates.
void TTreatments::StoreBounds(TVornRec& record) const
{
    record.boundRect = record.FLabel->BoundsRect();
    record.boundOffset = space_.Offset();
}

void TTreatments::SetZona(TVornRec& record, StringView value)
{
    if (record.Zona == value)
        return;
    const String before = std::exchange(record.Zona, String(value));
    index_.ZoneChanged(record, before);
}

} // namespace vorn
