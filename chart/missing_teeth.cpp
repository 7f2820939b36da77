#include "chart/vorndblabelIE.h"

#include "platform/system/guards.h"

#include <algorithm>
#include <exception>
#include <set>

namespace vorn {

namespace {

constexpr char16_t Missing = u'1';
/// The table of names lists the permanent teeth, three areas that are no teeth, and the deciduous teeth.
constexpr int PermanentTeeth = 32;
constexpr int AreasBetween = 3;
constexpr TColor White = 0xFFFFFF;
/// Mark of a veil whose own index would mark it as a symbol.
constexpr int VeilMark = -1;

} // namespace

void TVornIEDBTerList::ZoneMancanti()
{
    const TDataSet* record = FDSCart ? FDSCart->DataSet() : nullptr;
    if (!FContainer || FShowPictureContainer || !record || !record->Active())
        return;
    const ScopeExit selectPicture([this] { FContainer->SetLayersCurrent(0); });
    try {
        const String missing = record->FieldByName(u"Mancanti").AsString();
        const int positions = std::min(static_cast<int>(missing.size()), FNomiZoneList->Count());
        for (int position = 1; position <= positions; ++position) {
            if (missing[static_cast<std::size_t>(position) - 1] != Missing)
                continue;
            const int name = position - 1 + (position > PermanentTeeth ? AreasBetween : 0);
            if (name >= FNomiZoneList->Count())
                return;
            // The first zone of the very name: the table's own order decides between two.
            const auto found = FZoneByExactName.find(FNomiZoneList->Strings(name));
            if (found != FZoneByExactName.end())
                VeilZone(*found->second);
        }
    } catch (const std::exception&) {
        // Without the column, or with one that can't be read, the chart shows all teeth; the veils made so far stay.
    }
}

void TVornIEDBTerList::VeilZone(const TZone& zone)
{
    const TRect& area = zone.rect;
    const int width = WrapSub(area.Right, area.Left);
    const int height = WrapSub(area.Bottom, area.Top);
    const int index = FContainer->LayersAdd(width, height, TIEPixelFormat::ie24RGB, area.Left, area.Top);
    TIELayer& veil = FContainer->GetCurrentLayer();
    veil.UserDataLen = index == SymbolLayerMark ? VeilMark : index;
    veil.Bitmap().Fill(White);
    veil.SetOpacity(FOpacity);
    veil.SetLocked(true);
    veil.SetSelectable(false);
    veil.SetSelected(false);
    FListZoneMancanti.push_back(&veil);
}

void TVornIEDBTerList::SetOpacity(int Value)
{
    FOpacity = Value;
    // By way of the view: the application may have removed a veil itself.
    const std::set<const TIELayer*> veils(FListZoneMancanti.begin(), FListZoneMancanti.end());
    for (int i = 1; FContainer && !veils.empty() && i < FContainer->GetLayersCount(); ++i)
        if (veils.contains(&FContainer->GetLayer(i)))
            FContainer->GetLayer(i).SetOpacity(Value);
}

} // namespace vorn
