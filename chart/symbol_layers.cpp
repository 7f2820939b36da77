#include "chart/conventions.h"
#include "chart/vorndblabelIE.h"

#include "platform/data/rows_watch.h"
#include "platform/system/guards.h"

#include <algorithm>
#include <limits>

namespace vorn {

namespace {

/// Percent of a natural size, truncated; the ends of the 32-bit range stop it.
int Scaled(int size, int percent)
{
    const double exact = static_cast<double>(size) * percent / 100.0;
    return static_cast<int>(
        std::clamp<double>(exact, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
}

} // namespace

void TDibName::Set(StringView text)
{
    constexpr char16_t lastSingle = 0xFF;
    Length = static_cast<std::uint8_t>(std::min(text.size(), Chars.size()));
    std::transform(text.begin(), text.begin() + Length, Chars.begin(),
        [](char16_t c) { return c > lastSingle ? '?' : static_cast<char>(c); });
}

String TDibName::Text() const
{
    String text;
    for (std::uint8_t i = 0; i < Length; ++i)
        text += static_cast<unsigned char>(Chars[i]);
    return text;
}

void TVornIEDBTerList::ActiveChangedSimboli()
{
    if (!FSpace->View() || !FSettings->Catalogue || InState(csDestroying))
        return;
    ResetSimbPanel();
    RemoveSymbolLayers();
    if (!CanBuildSymbols())
        return;
    FSpace->View()->SetMouseInteract(miMoveLayers);
    const TVisit visit(FSymbolDrawing);
    // Once more if a handler has closed and reopened the rows meanwhile. One that does so each time is left without.
    if (!BuildSymbolLayers(*FDBSimbDataLink->DataSet()) && visit.Alive() && CanBuildSymbols())
        BuildSymbolLayers(*FDBSimbDataLink->DataSet());
}

bool TVornIEDBTerList::CanBuildSymbols() const
{
    const TDataSet* placements = FDBSimbDataLink->DataSet();
    return FSpace->View() && FSettings->Catalogue && FSettings->EnabledDib && placements && placements->Active()
        && placements->RecordCount() > 0;
}

void TVornIEDBTerList::RemoveSymbolLayers()
{
    FSymbolDrawing.Next();
    const TUpdateLock lock(*FSpace->View());
    for (int i = FSpace->View()->GetLayersCount() - 1; i > 0; --i)
        if (IsSymbol(FSpace->View()->GetLayer(i)))
            FSpace->View()->LayersRemove(i);
}

/// False if a handler has taken the rows away or opened them anew: nothing is drawn of them then.
bool TVornIEDBTerList::BuildSymbolLayers(TDataSet& placements)
{
    const TVisit visit(FSymbolDrawing, &placements);
    TDBSimgDataLink::RebuildScope scope(*FDBSimbDataLink);
    const TUpdateLock lock(*FSpace->View());
    const ScopeExit selectPicture([&] {
        if (visit.Alive() && FSpace->View())
            FSpace->View()->SetLayersCurrent(0);
    });
    try {
        const TControlsDisabled disabled(placements);
        WalkPlacements(placements, visit);
    } catch (const ERowsGone&) {
        if (visit.RowsOpen()) // of another dataset
            throw;
    }
    if (visit.SameDrawing() && FSpace->View() && (!visit.RowsOpen() || FDBSimbDataLink->DataSet() != &placements)) {
        RemoveSymbolLayers();
        return false;
    }
    scope.Finish();
    return true;
}

/// The placements end where they were. Their own scroll events go on; a handler that has the layers rebuilt has done
/// this walk's work.
void TVornIEDBTerList::WalkPlacements(TDataSet& placements, const TVisit& visit)
{
    const auto following
        = [&] { return visit.Current() && FSpace->View() && FDBSimbDataLink->DataSet() == &placements; };
    if (!following())
        return;
    const TBookmarkGuard bookmark(placements);
    const auto images = FSymbolImages; // outlives a chart that a handler frees
    // The rebuild goes on with the catalogue that it has begun with, while that lives.
    TDataSet* const catalogue = FSettings->Catalogue->DataSet();
    const TLifeWatch catalogueWatch(catalogue);
    images->Begin();
    placements.First();
    while (following() && !placements.Eof()) {
        const TIEBitmap* picture = images->Of(placements, catalogueWatch.Alive() ? catalogue : nullptr);
        if (!following()) // a handler of the catalogue has run
            return;
        if (picture)
            AddSymbolLayer(*picture);
        placements.Next();
    }
    if (visit.SameDrawing())
        images->End();
}

void TVornIEDBTerList::AddSymbolLayer(const TIEBitmap& picture)
{
    const int index = FSpace->View()->LayersAdd(picture);
    try {
        CreaDib();
    } catch (...) {
        FSpace->View()->LayersRemove(index); // no layer without its row
        throw;
    }
}

/// Gives the layer just added the record and the look that the placement's current row tells.
void TVornIEDBTerList::CreaDib()
{
    const TDataSet& row = *FDBSimbDataLink->DataSet();
    TIELayer& layer = FSpace->View()->GetCurrentLayer();
    const auto record = std::make_shared<TDibRec>();
    record->bmpwidth = layer.Bitmap().Width();
    record->bmpheight = layer.Bitmap().Height();
    record->Id = row.FieldByName(u"id").AsInteger();
    record->Angle = row.FieldByName(u"Angle").AsInteger();
    if (const TField* key = row.FindField(u"simb_id"))
        record->key = key->AsInteger();
    if (const TField* name = row.FindField(u"Nome"))
        record->Nome.Set(name->AsString());
    record->Scale = row.FieldByName(u"Scale").AsInteger();
    layer.UserData = record;
    layer.UserDataLen = SymbolLayerMark;

    const TPoint place = FSpace->ImageToLayer({row.FieldByName(u"X").AsInteger(), row.FieldByName(u"Y").AsInteger()});
    layer.SetPosX(place.X);
    layer.SetPosY(place.Y);
    if (record->Scale != 0 && record->Scale != 100) {
        layer.SetWidth(Scaled(record->bmpwidth, record->Scale));
        layer.SetHeight(Scaled(record->bmpheight, record->Scale));
    }
    if (record->Angle != 0)
        layer.SetRotate(-record->Angle);
    layer.SetOpacity(row.FieldByName(u"Opacity").AsInteger());
    layer.SetSelectable(true);
}

void TVornIEDBTerList::SelectLastDib()
{
    if (!FSpace->View())
        return;
    // With no symbol on the chart the topmost layer may be a veil, which isn't for the user's hands.
    const int top = FSpace->View()->GetLayersCount() - 1;
    SelectLayer(FSpace->View()->GetLayer(top).Selectable() ? top : 0);
}

/// As if the user had pressed on it.
void TVornIEDBTerList::SelectLayer(int index)
{
    FSpace->View()->SetLayersCurrent(index);
    ImageLayerNotify(this, index, TIELayerEvent::ielSelected);
}

} // namespace vorn
