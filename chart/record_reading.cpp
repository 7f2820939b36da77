#include "chart/chart_painting.h"
#include "chart/conventions.h"
#include "chart/vorndblabelIE.h"

#include "platform/controls/application.h"
#include "platform/system/strings.h"

namespace vorn {

namespace {

constexpr int GapLeft = 8;
constexpr int GapRight = 4;
/// Limit of a label's width in a vertical stack on a tooth.
constexpr int MaxStackWidth = 39;

} // namespace

void TVornIEDBTerList::ReadRecord(TVornRec& rec, bool refresh)
{
    const TLifeWatch chart(this);
    const bool box = FLabelDiagnosi->Visible();
    TTreatmentColumns row = Columns();
    ReadRecord(rec, row, refresh);
    if (chart.Alive())
        MakeRoomForDiagnosi(box); // not in the middle of the read: it may shift the labels
}

void TVornIEDBTerList::ReadRecord(TVornRec& rec, TTreatmentColumns& row, bool refresh)
{
    if (row[TTreatmentColumn::Stato].AsInteger() == StatoNotOnChart) {
        CreaCollection(); // takes the record of such a row away
        return;
    }
    const TVisit visit = VisitRows();
    ComponiRecDiagnosi(row, refresh);
    if (!visit.Current())
        return; // a handler has rebuilt the chart: this record is no more
    TDRLabel& label = *rec.FLabel;
    const int left = label.Left();
    label.SetCaption(row[TTreatmentColumn::Terapia].AsString());
    String evidenzia = AssegnaProprieta(label, row);
    if (!visit.Current())
        return;
    rec.Evidenzia = std::move(evidenzia);
    if (const int colore = row[TTreatmentColumn::Colore].AsInteger(); colore != 0) {
        label.Font().SetColor(static_cast<TColor>(colore));
        label.SetFontColor(static_cast<TColor>(colore));
    }
    SetLabelHint(rec, row);
    ReadStoredPosition(rec, row);
    // A text that isn't left-justified moves the left edge as it grows.
    rec.boundRect.Left = WrapAdd(rec.boundRect.Left, WrapSub(label.Left(), left));

    if (!PlaceLabel(rec, row))
        return;
    SetFrame(label, row);
    // Under a zoom labels stand in the view's coordinates. A rebuild places them at natural size.
    if (refresh && !FSpace->AtNaturalSize())
        rec.boundRect = vorn::Bounds(rec.boundRect.Left, rec.boundRect.Top, label.Width(), label.Height());
    else
        StoreBounds(rec);
}

/// For a label that stands in chart coordinates.
void TVornIEDBTerList::StoreBounds(TVornRec& rec)
{
    rec.boundRect = rec.FLabel->BoundsRect();
    rec.boundOffset = {FSpace->Offset().X, FSpace->Offset().Y};
}

void TVornIEDBTerList::SetLabelHint(TVornRec& rec, TTreatmentColumns& row)
{
    if (FSettings->FieldFatto.empty())
        return;
    const bool done = row[TTreatmentColumn::Done].AsString() == u"1";
    String hint = row[TTreatmentColumn::Descrizione].AsString();
    hint += u' ';
    hint += row[done ? TTreatmentColumn::DataFatto : TTreatmentColumn::Data].AsString();
    hint += u' ';
    hint += row[TTreatmentColumn::Dottore].AsString();
    if (!rec.Evidenzia.empty())
        hint += u"\r\n" + rec.Evidenzia;
    rec.FLabel->SetHint(hint);
}

void TVornIEDBTerList::ReadStoredPosition(TVornRec& rec, TTreatmentColumns& row)
{
    // With repositioning on, a stored position counts only where the user can drag labels.
    const bool counts = !FSettings->RiposizionaPrestazioni || FShowPictureContainer || FSettings->ShowDragPrestazioni;
    rec.X = counts ? row[TTreatmentColumn::X].AsInteger() : 0;
    rec.Y = counts ? row[TTreatmentColumn::Y].AsInteger() : 0;
    if (FSettings->RiposizionaPrestazioni)
        rec.FLabel->ShowDrag = counts;
}

/// False if there is no zone to stand on: the record has no label any more then.
bool TVornIEDBTerList::PlaceLabel(TVornRec& rec, TTreatmentColumns& row)
{
    TDRLabel& label = *rec.FLabel;
    if (rec.X != 0 && rec.Y != 0) {
        label.SetBounds(
            WrapSub(rec.X, FSpace->Offset().X), WrapSub(rec.Y, FSpace->Offset().Y), label.Width(), label.Height());
        if (FSpace->View())
            label.SetParent(FSpace->View());
        StoreBounds(rec);
        SetZona(rec, {});
        return true;
    }
    const String dente = row[TTreatmentColumn::Dente].AsString();
    if (SameText(dente, rec.Zona))
        return true;

    SetZona(rec, dente);
    const StringView name = FirstZoneName(dente);
    if (name.size() < dente.size() && FSpace->View()) {
        FSpace->View()->SetLayersCurrent(0);
        DrawLeaderLine(*FZones, dente, FSpace->View()->Bitmap().GetCanvas(), {});
        FSpace->View()->Invalidate();
    }
    const TZone* zone = FZones->Named(name);
    if (!zone && FZones->First()) {
        zone = FZones->First();
        SetZona(rec, zone->numZona);
    }
    if (!zone) {
        const TVisit visit = VisitRows();
        ShowMessage(Format(_SNotSingolaZona, {StringView(label.Caption()), StringView(rec.Zona)}));
        // The message waits for the user, and much may happen meanwhile.
        if (visit.SameDrawing())
            delete rec.FLabel; // its holder is the record's pointer, which reads as none from here on
        return false;
    }
    PlaceOnZone(rec, *zone);
    return true;
}

void TVornIEDBTerList::PlaceOnZone(TVornRec& rec, const TZone& zone)
{
    TDRLabel& label = *rec.FLabel;
    TPoint place = zone.pt;
    const TVornRec* const neighbour = FIndex.LastOnZone(zone.numZona, &rec);
    if (neighbour) {
        const TRect last = neighbour->FLabel->BoundsRect();
        place = {last.Left, last.Top};
        if (zone.dir == dirLeft)
            place.X = WrapSub(place.X, GapLeft);
        else if (zone.dir == dirRight)
            place.X = WrapAdd(place.X, last.Width() + GapRight);
        else if (zone.dir == dirDown)
            place.Y = WrapAdd(place.Y, last.Height());
    }
    // The point is the right end of a label that runs left, and the bottom of one that runs up.
    if (zone.dir == dirLeft)
        place.X = WrapSub(place.X, label.Width());
    else if (zone.dir == dirUp)
        place.Y = WrapSub(place.Y, label.Height());
    label.SetBounds(place.X, place.Y, label.Width(), label.Height());
    if (!label.Parent() && FSpace->View()) // at its place by now: the view takes it in only once
        label.SetParent(FSpace->View());
    StoreBounds(rec);
    if (neighbour) { // beside it on the chart too, where it may stand elsewhere than on the screen
        const TRect& last = neighbour->boundRect;
        OffsetRect(
            rec.boundRect, WrapSub(last.Left, neighbour->FLabel->Left()), WrapSub(last.Top, neighbour->FLabel->Top()));
        rec.boundOffset = neighbour->boundOffset;
    }

    const bool vertical = zone.dir == dirUp || zone.dir == dirDown;
    if (vertical && zone.numZona != GeneralZone && label.Width() > MaxStackWidth) {
        label.SetAutoSize(false);
        label.SetWidth(MaxStackWidth);
    }
}

void TVornIEDBTerList::SetZona(TVornRec& rec, StringView value)
{
    if (rec.Zona == value)
        return;
    const String before = std::exchange(rec.Zona, String(value));
    FIndex.ZoneChanged(rec, before);
}

void TVornIEDBTerList::SetFrame(TDRLabel& label, TTreatmentColumns& row)
{
    if (FSettings->FieldFatto.empty()) {
        label.SetBorder(TDRBorder::boNone);
        return;
    }
    const String fatto = row[TTreatmentColumn::Done].AsString();
    if (fatto == u"1")
        label.SetBorder(TDRBorder::boSingle);
    else if (fatto == u"2")
        label.SetBorder(TDRBorder::boDotted);
    else if (label.Border() != TDRBorder::boDotted) // a done child row may have set that
        label.SetBorder(TDRBorder::boNone);
}

} // namespace vorn
