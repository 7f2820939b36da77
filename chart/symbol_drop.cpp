#include "chart/conventions.h"
#include "chart/vorndblabelIE.h"

#include "platform/data/row_write.h"
#include "platform/imaging/thumbnail_view.h"
#include "platform/system/strings.h"

#include <algorithm>

namespace vorn {

namespace {

constexpr int GapLeft = 20;
constexpr int GapUp = 20;
constexpr int GapRight = 4;

/// A symbol's defaults as the catalogue's current row tells them.
struct SymbolDefaults {
    explicit SymbolDefaults(const TDataSet& catalogue)
        : Id(catalogue.FieldByName(u"SIMB_ID").AsInteger()), Name(catalogue.FieldByName(u"NOME").AsString()),
          Angle(catalogue.FieldByName(u"Angle").AsInteger()), Opacity(catalogue.FieldByName(u"Opacity").AsInteger()),
          Scale(catalogue.FieldByName(u"Scale").AsFloat())
    {
    }
    void WriteTo(TDataSet& placement) const
    {
        placement.FieldByName(u"ID").SetAsInteger(Id);
        placement.FieldByName(u"NOME").SetAsString(Name);
        placement.FieldByName(u"Angle").SetAsInteger(Angle);
        placement.FieldByName(u"Opacity").SetAsInteger(Opacity);
        placement.FieldByName(u"Scale").SetAsFloat(Scale);
    }
    int Id;
    String Name;
    int Angle;
    int Opacity;
    double Scale;
};

bool Ready(const TDataSet* dataset)
{
    return dataset && dataset->Active();
}

/// The catalogue on the symbol's row; none if there is no such symbol. Handlers of the catalogue run.
const TDataSet* GoToSymbol(TDataSource* catalogue, int id)
{
    TDataSet* dataset = catalogue ? catalogue->DataSet() : nullptr;
    if (!Ready(dataset))
        return nullptr;
    const TLifeWatch watch(dataset);
    const bool found = dataset->Locate(u"SIMB_ID", static_cast<std::int64_t>(id));
    return found && watch.Alive() && dataset->Active() ? dataset : nullptr;
}

} // namespace

/// Appends a placement of a symbol with its corner at a place in the image. False if there is no such symbol, no
/// dataset to write to, or a handler has given the row up.
bool TVornIEDBTerList::AppendSymbol(int id, const TPoint& place, int idvornal)
{
    const TLifeWatch chart(this);
    TDataSet* placements = FDBSimbDataLink->DataSet();
    if (!placements)
        return false;
    const TLifeWatch watch(placements);
    const TDataSet* catalogue = GoToSymbol(FSettings->Catalogue, id);
    if (!catalogue || !chart.Alive() || !watch.Alive())
        return false;
    const SymbolDefaults symbol(*catalogue);
    return AppendRow(*placements, [&](TDataSet& row) {
        if (!chart.Alive()) { // nobody is left to show it
            row.Cancel();
            return;
        }
        symbol.WriteTo(row);
        row.FieldByName(u"X").SetAsInteger(place.X);
        row.FieldByName(u"Y").SetAsInteger(place.Y);
        if (idvornal != 0)
            row.FieldByName(u"ID_VORNAL").SetAsInteger(idvornal);
    });
}

/// Whether a layer shows the symbol: one whose picture can't be read has none.
bool TVornIEDBTerList::ShowsSymbol(int id) const
{
    for (int i = FSpace->View()->GetLayersCount() - 1; i > 0; --i)
        if (const auto record = RecordOf(FSpace->View()->GetLayer(i)); record && record->Id == id)
            return true;
    return false;
}

void TVornIEDBTerList::ImageEnDragDrop(TObject*, TObject* Source, int X, int Y)
{
    const auto* panel = dynamic_cast<TImageEnMView*>(Source);
    if (!panel || !FSpace->View() || panel->SelectedImage() < 0)
        return;
    const TLifeWatch chart(this);
    const int idx = panel->SelectedImage();
    const int id = panel->GetImageID(idx);
    const TPoint point{FSpace->View()->XScr2Bmp(X), FSpace->View()->YScr2Bmp(Y)};
    // The thumbnail shows the symbol as it will lie on the chart: its middle goes under the pointer.
    const TPoint half{panel->GetImageWidth(idx) / 2, panel->GetImageHeight(idx) / 2};
    if (!AppendSymbol(id, FSpace->LayerToImage({WrapSub(point.X, half.X), WrapSub(point.Y, half.Y)})) || !chart.Alive())
        return;
    const TDataSet* treatments = FDataLink->DataSet();
    if (!Ready(treatments) || treatments->RecordCount() == 0) {
        ActiveChangedSimboli();
        if (chart.Alive() && !InState(csDestroying) && FSpace->AtNaturalSize())
            AdjustBounds(); // measures at natural size
    }
    if (chart.Alive())
        RaiseAddTerFromSimb(id, point);
    if (!chart.Alive() || !FSpace->View())
        return;
    if (ShowsSymbol(id))
        SelectLastDib();
    else
        SelectLayer(0); // the topmost layer is another symbol
}

/// Lets the application add the treatment that a dropped symbol stands for. Without any zone there is no place for one.
void TVornIEDBTerList::RaiseAddTerFromSimb(int id, const TPoint& chartPoint)
{
    // The rebuild behind the post has moved the catalogue.
    const TLifeWatch chart(this);
    const TDataSet* catalogue = OnAddTerFromSimb ? GoToSymbol(FSettings->Catalogue, id) : nullptr;
    if (!catalogue || !chart.Alive() || catalogue->FieldByName(u"Terapia").AsString().empty())
        return;
    TZone* zone = FZones->At(chartPoint);
    if (!zone)
        zone = FZones->First();
    if (zone)
        Raise(OnAddTerFromSimb, zone);
}

void TVornIEDBTerList::AddSimbolo(
    int simb_id, StringView nomeZona, StringView nomePrest, int idvornal, const TPoint& ptinsert)
{
    const TLifeWatch chart(this);
    const String zone(nomeZona), caption(nomePrest); // maybe of a label that a handler frees
    if (!GoToSymbol(FSettings->Catalogue, simb_id) || !chart.Alive() || !FSpace->View())
        return;
    const bool pointGiven = zone.empty() || ptinsert.X != 0;
    const TPoint pos = pointGiven ? ptinsert : PlaceBeside(zone, caption);
    AppendSymbol(
        simb_id, FSpace->LayerToImage({FSpace->View()->XScr2Bmp(pos.X), FSpace->View()->YScr2Bmp(pos.Y)}), idvornal);
}

/// A symbol's corner beside the label of a treatment, in view coordinates; without the label the zone's anchor. Where
/// there is no room at the left or the top, the chart is shifted to make some.
TPoint TVornIEDBTerList::PlaceBeside(StringView nomeZona, StringView nomePrest)
{
    const TVornRec* record = FTreatments->FindLast(nomeZona, nomePrest);
    const TDRLabel* label = record ? record->FLabel : nullptr;
    const TZone* zone = FZones->Named(nomeZona);
    if (!label)
        return zone ? zone->pt : TPoint{};
    TPoint pos{label->Left(), label->Top()};
    if (!zone)
        zone = FZones->First();
    if (!zone)
        return pos;
    switch (zone->dir) {
    case dirLeft:
        pos.X = WrapSub(pos.X, GapLeft);
        if (pos.X < 0)
            SetOffsetX(WrapAdd(FSpace->Offset().X, pos.X));
        break;
    case dirUp:
        pos.Y = WrapSub(pos.Y, GapUp);
        if (pos.Y < 0)
            SetOffsetY(WrapAdd(FSpace->Offset().Y, pos.Y));
        break;
    case dirRight:
        pos.X = WrapAdd(WrapAdd(pos.X, label->Width()), GapRight);
        break;
    case dirDown:
        pos.Y = WrapAdd(pos.Y, label->Height());
        break;
    default:
        break;
    }
    return {std::max(pos.X, 0), std::max(pos.Y, 0)};
}

} // namespace vorn
