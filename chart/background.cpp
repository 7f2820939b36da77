#include "chart/vorndblabelIE.h"
#include "chart/zone_text.h"
#include "platform/controls/application.h"
#include "platform/controls/scroll_box.h"
#include "platform/system/guards.h"
#include "platform/system/strings.h"

namespace vorn {

namespace {

constexpr StringView FallbackZone = u"2 10 41 32 3 3 34 GL";

/// Tooth numbers by jaw, with the areas that are no teeth between: what a background without a table of its own uses.
constexpr StringView DefaultNameRows[] = {
    u"18 17 16 15 14 13 12 11 21 22 23 24 25 26 27 28",
    u"48 47 46 45 44 43 42 41 31 32 33 34 35 36 37 38",
    u"GL AS AI",
    u"55 54 53 52 51 61 62 63 64 65",
    u"85 84 83 82 81 71 72 73 74 75",
};

} // namespace

void TVornIEDBTerList::ActiveChangedSfondi()
{
    if (InState(csDestroying))
        return;
    ClearZones();
    FNomiZoneList->Clear();
    SetOffsetX(0);
    SetOffsetY(0);
    if (!FContainer)
        return;

    ReadBackground();
    LoadPendingPicture();
}

/// Takes picture and zones from the current row. An active dataset gives at least the zone of the whole mouth.
void TVornIEDBTerList::ReadBackground()
{
    if (!FSfondiDataLink->Active())
        return;
    const ScopeExit fallback([this] {
        if (FZoneList->Count() > 0)
            return;
        ProcessaLineaZone(FallbackZone);
        FNomiZoneList->Clear();
        FNomiZoneList->Add(GeneralZone);
    });
    TDataSet& dataset = *FSfondiDataLink->DataSet();
    LoadBackground(dataset);
    LoadZones(dataset);
}

void TVornIEDBTerList::LoadBackground(TDataSet& dataset)
{
    TMemoryStream stream;
    dataset.FieldByName(u"grafico_ie").SaveToStream(stream);
    stream.SetPosition(0);
    FContainer->SetLayersCurrent(0);
    const bool loaded = FContainer->GetImageEnIO().LoadFromStream(stream, 0);
    FContainer->SetClientWidth(FContainer->Bitmap().Width());
    FContainer->SetClientHeight(FContainer->Bitmap().Height());
    // What can't be read isn't reported: the chart goes on with the last picture, without what was drawn into it.
    if (loaded || wd->IsEmpty())
        wd->Assign(FContainer->Bitmap());

    // The second pixel of the second row: an image's very edge may be a frame. One that is too small to have it leaves
    // the colour as it was.
    if (wd->Width() < 2 || wd->Height() < 2)
        return;
    const TColor surround = TRGB2TColor(wd->GetPixels_ie24RGB(1, 1));
    FContainer->SetBackground(surround);
    if (auto* box = dynamic_cast<TScrollBox*>(FContainer->Parent()))
        box->SetColor(surround);
}

void TVornIEDBTerList::LoadZones(TDataSet& dataset)
{
    TMemoryStream stream;
    TStringList lines;
    dataset.FieldByName(u"Zone").SaveToStream(stream);
    stream.SetPosition(0);
    lines.LoadFromStream(stream);
    for (int i = 0; i < lines.Count(); ++i)
        ProcessaLineaZone(lines[i]);

    stream.Clear();
    dataset.FieldByName(u"Dialoghi").SaveToStream(stream);
    stream.SetPosition(0);
    lines.LoadFromStream(stream);
    if (lines.Count() == 0)
        for (const StringView row : DefaultNameRows)
            lines.Add(row);
    for (int i = 0; i < lines.Count(); ++i)
        ProcessaNomiZone(lines[i]);
}

void TVornIEDBTerList::ProcessaLineaZone(StringView line)
{
    auto zone = ParseZoneLine(line);
    if (!zone)
        return;
    OffsetRect(zone->rectOffeset, WrapSub(0, FOffsetX), WrapSub(0, FOffsetY));
    FZoneByName.try_emplace(FoldCase(zone->numZona), zone.get());
    FZoneByExactName.try_emplace(zone->numZona, zone.get());
    FZoneList->Add(zone.release());
}

void TVornIEDBTerList::ClearZones()
{
    FZoneByName.clear();
    FZoneByExactName.clear();
    FZoneList->Clear();
}

void TVornIEDBTerList::ProcessaNomiZone(StringView line)
{
    for (const StringView name : ParseZoneNames(line))
        FNomiZoneList->Add(name);
}

TZone* TVornIEDBTerList::FindZonaSensibile(int X, int Y) const
{
    for (int i = FZoneList->Count() - 1; i >= 0; --i)
        if (PtInRect(FZoneList->Items(i)->rectOffeset, {X, Y}))
            return FZoneList->Items(i);
    return nullptr;
}

void TVornIEDBTerList::ScrollByBeginSfondi(int Distance)
{
    ShowMessage(u"Scroll " + IntToStr(Distance));
}

} // namespace vorn
