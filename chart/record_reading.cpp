#include "chart/coordinates.h"
#include "chart/vorndblabelIE.h"

#include "platform/controls/application.h"
#include "platform/system/strings.h"

namespace vorn {

namespace {

constexpr int StatoNotOnChart = 4;
constexpr int GapLeft = 8;
constexpr int GapRight = 4;
/// Limit of a label's width in a vertical stack on a tooth.
constexpr int MaxStackWidth = 39;
constexpr StringView GeneralZone = u"GL";

} // namespace

void TVornIEDBTerList::ReadRecord(TVornRec& rec, bool refresh)
{
    TDataSet& dataset = *FDataLink->DataSet();
    if (dataset.FieldByName(u"stato").AsInteger() == StatoNotOnChart) {
        CreaCollection(); // takes the record of such a row away
        return;
    }
    TDRLabel& label = *rec.FLabel;
    const String terapia = dataset.FieldByName(u"Terapia").AsString();
    label.SetCaption(terapia);
    rec.Evidenzia = AssegnaProprieta(label);
    if (const int colore = dataset.FieldByName(u"Colore").AsInteger(); colore != 0) {
        label.Font().SetColor(static_cast<TColor>(colore));
        label.SetFontColor(static_cast<TColor>(colore));
    }
    SetLabelHint(rec, dataset);
    ReadStoredPosition(rec, dataset);

    // A zoomed label stands in view coordinates; it is placed in chart coordinates like any other.
    const bool zoomed = refresh && FCurrentZoom != NaturalZoom;
    const TRect shown = label.BoundsRect();
    const TRect before = ChartBounds(rec);
    if (zoomed)
        label.SetBounds(before.Left, before.Top, shown.Width(), shown.Height());
    if (!PlaceLabel(rec, dataset.FieldByName(u"Dente").AsString(), terapia))
        return;
    SetFrame(label, dataset);
    rec.boundRect = label.BoundsRect();
    OffsetRect(rec.boundRect, FOffsetX, FOffsetY);
    if (!zoomed)
        return;
    const bool stayed = label.Left() == before.Left && label.Top() == before.Top;
    label.SetBounds(stayed ? shown.Left : Percent(FCurrentZoom, label.Left()),
        stayed ? shown.Top : Percent(FCurrentZoom, label.Top()), label.Width(), label.Height());
}

TRect TVornIEDBTerList::ChartBounds(const TVornRec& rec) const
{
    if (FCurrentZoom == NaturalZoom)
        return rec.FLabel->BoundsRect();
    TRect bounds = rec.boundRect;
    OffsetRect(bounds, WrapSub(0, FOffsetX), WrapSub(0, FOffsetY));
    return bounds;
}

void TVornIEDBTerList::SetLabelHint(TVornRec& rec, TDataSet& dataset)
{
    if (FFieldFatto.empty())
        return;
    const bool done = dataset.FieldByName(FFieldFatto).AsString() == u"1";
    String hint = dataset.FieldByName(u"Descrizione").AsString();
    hint += u' ';
    hint += dataset.FieldByName(done ? u"DataFatto" : u"Data").AsString();
    hint += u' ';
    hint += dataset.FieldByName(u"Dottore").AsString();
    if (!rec.Evidenzia.empty())
        hint += u"\r\n" + rec.Evidenzia;
    rec.FLabel->SetHint(hint);
}

void TVornIEDBTerList::ReadStoredPosition(TVornRec& rec, TDataSet& dataset)
{
    // With repositioning on, a stored position counts only where the user can drag labels.
    const bool counts = !FRiposizionaPrestazioni || FShowPictureContainer || FShowDragPrestazioni;
    rec.X = counts ? dataset.FieldByName(u"X").AsInteger() : 0;
    rec.Y = counts ? dataset.FieldByName(u"Y").AsInteger() : 0;
    if (FRiposizionaPrestazioni)
        rec.FLabel->ShowDrag = counts;
}

/// False if there is no zone to stand on: the record has no label any more then.
bool TVornIEDBTerList::PlaceLabel(TVornRec& rec, StringView dente, StringView terapia)
{
    TDRLabel& label = *rec.FLabel;
    if (rec.X != 0 && rec.Y != 0) {
        label.SetParent(FContainer);
        label.SetLeft(WrapSub(rec.X, FOffsetX));
        label.SetTop(WrapSub(rec.Y, FOffsetY));
        SetZona(rec, {});
        return true;
    }
    if (SameText(dente, rec.Zona))
        return true;

    SetZona(rec, dente);
    const StringView name = FirstZoneName(dente);
    if (name.size() < dente.size()) {
        FContainer->SetLayersCurrent(0);
        DisegnaLnk(dente, FContainer->Bitmap().GetCanvas(), 0, 0);
    }
    const TZone* zone = ZoneByName(name);
    if (!zone && FZoneList->Count() > 0) {
        zone = FZoneList->Items(0);
        SetZona(rec, zone->numZona);
    }
    if (!zone) {
        const unsigned rebuilds = FRebuilds;
        ShowMessage(Format(_SNotSingolaZona, {terapia, StringView(rec.Zona)}));
        if (rebuilds == FRebuilds) // the message waits for the user, and much may happen meanwhile
            delete rec.FLabel;     // its holder is the record's pointer, which reads as none from here on
        return false;
    }
    PlaceOnZone(rec, *zone);
    return true;
}

void TVornIEDBTerList::PlaceOnZone(TVornRec& rec, const TZone& zone)
{
    TDRLabel& label = *rec.FLabel;
    TPoint place = zone.pt;
    if (const TVornRec* neighbour = FIndex.LastOnZone(zone.numZona, &rec)) {
        const TRect last = rec.Index < 0 ? neighbour->FLabel->BoundsRect() : ChartBounds(*neighbour);
        place = {last.Left, last.Top};
        if (zone.dir == 0)
            place.X = WrapSub(place.X, GapLeft);
        else if (zone.dir == 2)
            place.X = WrapAdd(place.X, last.Width() + GapRight);
        else if (zone.dir == 3)
            place.Y = WrapAdd(place.Y, last.Height());
    }
    if (!label.Parent())
        label.SetParent(FContainer);
    // The point is the right end of a label that runs left, and the bottom of one that runs up.
    if (zone.dir == 0)
        place.X = WrapSub(place.X, label.Width());
    else if (zone.dir == 1)
        place.Y = WrapSub(place.Y, label.Height());
    label.SetBounds(place.X, place.Y, label.Width(), label.Height());

    const bool vertical = zone.dir == 1 || zone.dir == 3;
    if (vertical && zone.numZona != GeneralZone && label.Width() > MaxStackWidth) {
        label.SetAutoSize(false);
        label.SetWidth(MaxStackWidth);
    }
}

const TZone* TVornIEDBTerList::ZoneByName(StringView name) const
{
    for (const TZone* zone : *FZoneList)
        if (SameText(zone->numZona, name))
            return zone;
    return nullptr;
}

void TVornIEDBTerList::SetZona(TVornRec& rec, StringView value)
{
    if (rec.Zona == value)
        return;
    const String before = std::exchange(rec.Zona, String(value));
    FIndex.ZoneChanged(rec, before);
}

void TVornIEDBTerList::SetFrame(TDRLabel& label, TDataSet& dataset)
{
    if (FFieldFatto.empty()) {
        label.SetBorder(TDRBorder::boNone);
        return;
    }
    const String fatto = dataset.FieldByName(FFieldFatto).AsString();
    if (fatto == u"1")
        label.SetBorder(TDRBorder::boSingle);
    else if (fatto == u"2")
        label.SetBorder(TDRBorder::boDotted);
    else if (label.Border() != TDRBorder::boDotted) // a done child row may have set that
        label.SetBorder(TDRBorder::boNone);
}

} // namespace vorn
