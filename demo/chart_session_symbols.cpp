#include "demo/chart_session.h"

#include "demo/qt_strings.h"
#include "symbol_tools/vornSimbModify.h"

#include <QDate>

#include <algorithm>

namespace vorn::demo {

/// For a database from before there were symbols.
void ChartSession::LeaveOutSymbols()
{
    chart_->SetMViewDibDS(nullptr);
    chart_->SetDataSourceSimb(nullptr);
    catalogue_ = nullptr;
    placements_ = nullptr;
}

void ChartSession::SetSymbolsShown(bool shown)
{
    chart_->SetEnabledDib(shown);
    // A rebuild that came while they were off has left no layers to show.
    if (shown)
        Rebuild();
}

const TVornRec* ChartSession::LastSelected() const
{
    const TComponentList& selected = blinkTimer_->ComponentList();
    if (selected.Count() == 0)
        return nullptr;
    const TComponent* label = selected.Items(selected.Count() - 1);
    for (const TVornRec* record : chart_->ListVornRec())
        if (record->FLabel == label)
            return record;
    return nullptr;
}

bool ChartSession::AddSymbolBesideSelection(int symbol)
{
    const TVornRec* record = LastSelected();
    if (!record)
        return false;
    // A label that the user has put somewhere has no zone; its symbol goes to the same place.
    const TDRLabel& label = *record->FLabel;
    const TPoint place = record->Zona.empty() ? TPoint{label.Left() + label.Width(), label.Top()} : TPoint{};
    const int before = placements_->RecordCount();
    chart_->AddSimbolo(symbol, record->Zona, label.Caption(), 0, place);
    if (placements_->RecordCount() > before && chart_->EnabledDib())
        MoveOffLabel(label);
    Rebuild(); // measures the chart anew, which the symbol may have made larger
    return true;
}

/// At the left and above, the chart leaves room for a small symbol beside a label. Moves the one just placed on if it
/// is larger and would lie under the label.
void ChartSession::MoveOffLabel(const TDRLabel& label)
{
    constexpr int gap = 3;
    constexpr int aside = 10; // less is what rounding does at a zoom
    const TRect text = label.BoundsRect();
    const TRect symbol = view_->GetLayer(view_->GetLayersCount() - 1).Box();
    if (IntersectRect(text, symbol).IsEmpty())
        return;
    const auto move = [&](StringView column, int viewPixels) {
        TField& place = placements_->FieldByName(column);
        placements_->Edit();
        place.SetAsInteger(place.AsInteger() + viewPixels * 100 / chart_->CurrentZoom());
        placements_->Post();
    };
    if (symbol.Left < text.Left - aside)
        move(u"X", text.Left - gap - symbol.Right);
    else if (symbol.Top < text.Top - aside)
        move(u"Y", text.Top - gap - symbol.Bottom);
}

/// The chart places the palette as if there were neither zoom nor scroll bars.
void ChartSession::KeepPaletteInSight()
{
    if (!vornSimbModifyFrm || !vornSimbModifyFrm->Visible() || vornSimbModifyFrm->Parent() != view_)
        return;
    constexpr int gap = 10;
    TControl& palette = *vornSimbModifyFrm;
    const TRect symbol = view_->GetCurrentLayer().Box();
    TRect sight = view_->ClientRect();
    if (box_) {
        const TPoint scrolled = box_->ScrollPosition();
        sight = Bounds(scrolled.X, scrolled.Y, box_->ClientRect().Width(), box_->ClientRect().Height());
    }
    const bool roomRight = symbol.Right + gap + palette.Width() <= sight.Right;
    const int x = roomRight ? symbol.Right + gap : symbol.Left - gap - palette.Width();
    const int y = std::min(symbol.Top, sight.Bottom - palette.Height());
    palette.SetBounds(std::max(x, sight.Left), std::max(y, sight.Top), palette.Width(), palette.Height());
}

void ChartSession::AddTreatmentOfSymbol(const TZone& zone, StringView doctor)
{
    const String code = catalogue_->FieldByName(u"Terapia").AsString();
    const bool listed = priceList_->Locate(u"Codice", code);
    const auto fromList
        = [&](StringView column) { return listed ? priceList_->FieldByName(column).AsString() : String(); };
    TSqlDataSet& row = *treatments_;
    row.Append();
    try {
        row.FieldByName(u"Terapia").SetAsString(code);
        row.FieldByName(u"Descrizione").SetAsString(fromList(u"Descrizione"));
        row.FieldByName(u"Tipo").SetAsString(fromList(u"Tipo"));
        row.FieldByName(u"Diagnosi").SetAsString(fromList(u"Diagnosi"));
        row.FieldByName(u"Dottore").SetAsString(doctor);
        row.FieldByName(u"Dente").SetAsString(zone.numZona);
        row.FieldByName(u"Data").SetAsString(FromQt(QDate::currentDate().toString(Qt::ISODate)));
        for (const StringView column : {u"PADRE", u"Progressivo", u"stato", u"Colore", u"Fatto", u"X", u"Y"})
            row.FieldByName(column).SetAsInteger(0);
        row.Post();
    } catch (...) {
        row.Cancel();
        throw;
    }
    ZoomLabelsAgain();
}

std::vector<DoctorEntry> ChartSession::Doctors()
{
    std::vector<DoctorEntry> entries;
    for (doctors_->First(); !doctors_->Eof(); doctors_->Next())
        entries.push_back(
            {doctors_->FieldByName(u"Sigla").AsString(), ToQt(doctors_->FieldByName(u"Nome").AsString())});
    return entries;
}

} // namespace vorn::demo
