#include "chart/veils.h"

#include "chart/dib_rec.h"
#include "chart/zone_map.h"
#include "platform/data/dataset.h"
#include "platform/imaging/image_view.h"
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

void TVeils::Build(TImageEnView& view, const TDataSet& record)
{
    const ScopeExit selectPicture([&] { view.SetLayersCurrent(0); });
    try {
        const String missing = record.FieldByName(u"Mancanti").AsString();
        const TStrings& names = zones_.Names();
        const int positions = std::min(static_cast<int>(missing.size()), names.Count());
        for (int position = 1; position <= positions; ++position) {
            if (missing[static_cast<std::size_t>(position) - 1] != Missing)
                continue;
            const int name = position - 1 + (position > PermanentTeeth ? AreasBetween : 0);
            if (name >= names.Count())
                return;
            if (const TZone* zone = zones_.NamedExactly(names.Strings(name)))
                Veil(view, *zone);
        }
    } catch (const std::exception&) {
        // Without the column, or with one that can't be read, the chart shows all teeth; the veils made so far stay.
    }
}

void TVeils::Veil(TImageEnView& view, const TZone& zone)
{
    const TRect& area = zone.rect;
    const int width = WrapSub(area.Right, area.Left);
    const int height = WrapSub(area.Bottom, area.Top);
    const int index = view.LayersAdd(width, height, TIEPixelFormat::ie24RGB, area.Left, area.Top);
    TIELayer& veil = view.GetCurrentLayer();
    veil.UserDataLen = index == SymbolLayerMark ? VeilMark : index;
    veil.Bitmap().Fill(White);
    veil.SetOpacity(opacity_);
    veil.SetLocked(true);
    veil.SetSelectable(false);
    veil.SetSelected(false);
    layers_.push_back(&veil);
}

void TVeils::SetOpacity(int value, TImageEnView* view)
{
    opacity_ = value;
    // By way of the view: the application may have removed a veil itself.
    const std::set<const TIELayer*> veils(layers_.begin(), layers_.end());
    for (int i = 1; view && !veils.empty() && i < view->GetLayersCount(); ++i)
        if (veils.contains(&view->GetLayer(i)))
            view->GetLayer(i).SetOpacity(value);
}

} // namespace vorn
