#include "chart/symbol_images.h"

#include "platform/data/rows_watch.h"
#include "platform/imaging/image_io.h"

namespace vorn {

namespace {

/// Looks once more where a handler has opened the catalogue anew meanwhile.
bool GoTo(TDataSet& catalogue, int id)
{
    const TRowsWatch rows(&catalogue);
    try {
        if (catalogue.Locate(u"SIMB_ID", std::int64_t{id}))
            return true;
    } catch (const ERowsGone&) {
    }
    return rows.Alive() && !rows.Open() && catalogue.Active() && catalogue.Locate(u"SIMB_ID", std::int64_t{id});
}

} // namespace

void TSymbolImages::End()
{
    std::erase_if(byId_, [this](const auto& item) { return item.second.Round != round_; });
}

const TIEBitmap* TSymbolImages::Of(const TDataSet& placements, TDataSet* catalogue)
{
    const int id = placements.FieldByName(u"id").AsInteger();
    if (catalogue && catalogue->Active()) {
        const TLifeWatch watch(catalogue); // its handlers may close or free either dataset
        const TLifeWatch rows(&placements);
        const bool found = GoTo(*catalogue, id);
        if (found && watch.Alive() && catalogue->Active())
            return FromCatalogue(*catalogue, id);
        if (!rows.Alive() || !placements.Active())
            return nullptr;
    }
    const TField& own = placements.FieldByName(u"IMMAGINE");
    if (own.IsNull())
        return nullptr;
    Fetch(own);
    return LoadBitmap(stream_, own_) && !own_.IsEmpty() ? &own_ : nullptr;
}

const TIEBitmap* TSymbolImages::FromCatalogue(const TDataSet& catalogue, int id)
{
    const auto [found, fresh] = byId_.try_emplace(id);
    Entry& entry = found->second;
    if (entry.Round != round_) {
        Fetch(catalogue.FieldByName(u"Grafico_ie"));
        if (fresh || entry.Encoded != stream_.Memory()) {
            entry.Encoded = stream_.Memory();
            entry.Picture.FreeImage();
            LoadBitmap(stream_, entry.Picture);
        }
        entry.Round = round_;
    }
    return entry.Picture.IsEmpty() ? nullptr : &entry.Picture;
}

void TSymbolImages::Fetch(const TField& blob)
{
    stream_.Clear();
    blob.SaveToStream(stream_);
    stream_.SetPosition(0);
}

} // namespace vorn
