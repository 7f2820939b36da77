#include "chart/conventions.h"
#include "chart/vorndblabelIE.h"

#include "platform/system/extended.h"

namespace vorn {

namespace {

constexpr int NaturalScale = 100;
constexpr int FullOpacity = 255;

/// The record of a symbol layer, kept alive while its row is written: a rebuild in between frees the layer. None for
/// any other layer, whatever the application has attached to it.
std::shared_ptr<TDibRec> RecordOf(const TIELayer& layer)
{
    return IsSymbol(layer) ? std::static_pointer_cast<TDibRec>(layer.UserData) : nullptr;
}

/// What a save takes from the layer, before any handler of the dataset runs.
struct LayerState {
    explicit LayerState(const TIELayer& layer)
        : X(layer.GetPosX()), Y(layer.GetPosY()), Width(layer.GetWidth()), Opacity(layer.Opacity()),
          Angle(WrapSub(0, RoundHalfEven(layer.GetRotate())))
    {
    }
    int X;
    int Y;
    int Width;
    int Opacity;
    int Angle;
};

bool IsOnRow(const TDataSet& placements, const TDibRec& record)
{
    return placements.Active() && placements.FieldByName(u"simb_id").AsInteger() == record.key;
}

int PercentOf(int width, const TDibRec& record)
{
    if (record.bmpwidth == 0)
        return record.Scale;
    return RoundHalfEven(width * 100.0 / record.bmpwidth);
}

} // namespace

/// The placements on the record's row; none if there are none, or if the row is gone or a handler has moved on from it.
TDataSet* TVornIEDBTerList::GoToPlacement(const TDibRec& record) const
{
    TDataSet* placements = FDBSimbDataLink->DataSet();
    if (!placements || !placements->Active())
        return nullptr;
    const TLifeWatch watch(placements);
    const bool found = placements->Locate(u"simb_id", static_cast<std::int64_t>(record.key));
    return found && watch.Alive() && IsOnRow(*placements, record) ? placements : nullptr;
}

/// Runs `write` on the placement's row in an edit and posts it; nothing if the row is gone. A refused post gives the
/// edit up, so that the next move of the dataset doesn't try it again.
void TVornIEDBTerList::WriteSymbolRow(const TDibRec& record, const std::function<void(TDataSet&)>& write)
{
    TDataSet* placements = GoToPlacement(record);
    if (!placements)
        return;
    const TLifeWatch watch(placements);
    const auto alive = [&] { return watch.Alive() && placements->Active(); };
    try {
        placements->Edit();
        if (!alive())
            return;
        if (!IsOnRow(*placements, record)) { // another row is not to get this one's values
            placements->Cancel();
            return;
        }
        write(*placements);
        placements->Post();
    } catch (...) {
        if (alive())
            placements->Cancel();
        throw;
    }
}

void TVornIEDBTerList::SalvaCurrentLayerDib(TIELayerEvent event, bool fordelete)
{
    if (!FContainer)
        return;
    const auto record = RecordOf(FContainer->GetCurrentLayer());
    if (!record)
        return;
    if (fordelete) {
        if (TDataSet* placements = GoToPlacement(*record))
            placements->Delete();
        return;
    }
    const LayerState layer(FContainer->GetCurrentLayer());
    const TPoint place{WrapAdd(layer.X, FOffsetX), WrapAdd(layer.Y, FOffsetY)};
    WriteSymbolRow(*record, [&](TDataSet& row) {
        if (event == TIELayerEvent::ielMoved || event == TIELayerEvent::ielResized) {
            row.FieldByName(u"X").SetAsInteger(place.X);
            row.FieldByName(u"Y").SetAsInteger(place.Y);
        }
        if (event == TIELayerEvent::ielResized) {
            record->Scale = PercentOf(layer.Width, *record);
            row.FieldByName(u"Scale").SetAsFloat(record->Scale);
        }
        if (event == TIELayerEvent::ielRotated) {
            record->Angle = layer.Angle;
            row.FieldByName(u"Angle").SetAsInteger(layer.Angle);
        }
        row.FieldByName(u"Opacity").SetAsInteger(layer.Opacity);
    });
}

void TVornIEDBTerList::SalvaCurrentDibReset()
{
    if (!FContainer)
        return;
    const auto record = RecordOf(FContainer->GetCurrentLayer());
    if (!record)
        return;
    const auto self = FSelf;
    bool written = false;
    WriteSymbolRow(*record, [&](TDataSet& row) {
        record->Scale = NaturalScale;
        row.FieldByName(u"Scale").SetAsFloat(NaturalScale);
        row.FieldByName(u"Angle").SetAsFloat(0);
        row.FieldByName(u"Opacity").SetAsInteger(FullOpacity);
        written = true;
    });
    // A rebuild that the post has caused made the layer anew from the row.
    if (!written || !*self || !FContainer || RecordOf(FContainer->GetCurrentLayer()) != record)
        return;
    TIELayer& layer = FContainer->GetCurrentLayer();
    layer.SetWidth(record->bmpwidth);
    layer.SetHeight(record->bmpheight);
    layer.SetRotate(0);
    layer.SetOpacity(FullOpacity);
    FContainer->Update();
}

} // namespace vorn
