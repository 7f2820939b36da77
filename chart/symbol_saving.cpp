#include "chart/conventions.h"
#include "chart/vorndblabelIE.h"

#include "platform/data/row_write.h"
#include "platform/system/extended.h"

namespace vorn {

namespace {

constexpr int NaturalScale = 100;
constexpr int FullOpacity = 255;

/// What a save takes from the layer, before any handler of the dataset runs.
struct LayerState {
    LayerState(const TIELayer& layer, const TPoint& place)
        : Place(place), Width(layer.GetWidth()), Opacity(layer.Opacity()),
          Angle(WrapSub(0, RoundHalfEven(layer.GetRotate())))
    {
    }
    TPoint Place; // in the image
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

/// Writes the placement's row; nothing if it is gone. Gives whether it was posted while the chart lives.
bool TVornIEDBTerList::WriteSymbolRow(const TDibRec& record, const std::function<void(TDataSet&)>& write)
{
    const TVisit visit(FSymbolDrawing);
    TDataSet* placements = GoToPlacement(record);
    if (!placements || !WriteRow(*placements, write) || !visit.Alive())
        return false;
    if (!visit.SameDrawing())
        ActiveChangedSimboli(); // a handler has had the layers made from the row as it was before
    return true;
}

void TVornIEDBTerList::SalvaCurrentLayerDib(TIELayerEvent event, bool fordelete)
{
    if (!FSpace->View())
        return;
    const auto record = RecordOf(FSpace->View()->GetCurrentLayer());
    if (!record)
        return;
    if (fordelete) {
        if (TDataSet* placements = GoToPlacement(*record))
            placements->Delete();
        return;
    }
    const TIELayer& current = FSpace->View()->GetCurrentLayer();
    const LayerState layer(current, FSpace->LayerToImage({current.GetPosX(), current.GetPosY()}));
    WriteSymbolRow(*record, [&](TDataSet& row) {
        if (event == TIELayerEvent::ielMoved || event == TIELayerEvent::ielResized) {
            row.FieldByName(u"X").SetAsInteger(layer.Place.X);
            row.FieldByName(u"Y").SetAsInteger(layer.Place.Y);
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
    if (!FSpace->View())
        return;
    const auto record = RecordOf(FSpace->View()->GetCurrentLayer());
    if (!record)
        return;
    const TVisit visit(FSymbolDrawing);
    const bool written = WriteSymbolRow(*record, [&](TDataSet& row) {
        record->Scale = NaturalScale;
        row.FieldByName(u"Scale").SetAsFloat(NaturalScale);
        row.FieldByName(u"Angle").SetAsFloat(0);
        row.FieldByName(u"Opacity").SetAsInteger(FullOpacity);
    });
    // A rebuild that the post has caused made the layer anew from the row.
    if (!written || !visit.Alive() || !FSpace->View() || RecordOf(FSpace->View()->GetCurrentLayer()) != record)
        return;
    TIELayer& layer = FSpace->View()->GetCurrentLayer();
    layer.SetWidth(record->bmpwidth);
    layer.SetHeight(record->bmpheight);
    layer.SetRotate(0);
    layer.SetOpacity(FullOpacity);
    FSpace->View()->Update();
}

} // namespace vorn
