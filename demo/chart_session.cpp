#include "demo/chart_session.h"

#include "chart/published_properties.h"
#include "demo/forms/embedded_forms.h"
#include "demo/qt_strings.h"
#include "platform/forms/form_file.h"
#include "platform/system/strings.h"

#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

#include <set>
#include <stdexcept>
#include <utility>

namespace vorn::demo {

namespace {

constexpr int GlyphSize = 9; // as the form has it

/// Marks a treatment that has steps of its own: three short lines, as of a list.
QImage StepsGlyph()
{
    QImage glyph(GlyphSize, GlyphSize, QImage::Format_ARGB32_Premultiplied);
    glyph.fill(Qt::transparent);
    QPainter painter(&glyph);
    const QColor ink(0x2F, 0x5D, 0x8C);
    for (const int y : {1, 4, 7}) {
        painter.fillRect(1, y, 1, 1, ink);
        painter.fillRect(3, y, 5, 1, ink);
    }
    return glyph;
}

} // namespace

ChartSession::ChartSession(const QString& databaseFile, Setting setting)
{
    ReadChartForm();
    if (setting == Setting::Export) {
        view_->SetParent(nullptr);
        delete std::exchange(box_, nullptr);
    }
    view_->SetZoomFilter(TResampleFilter::rfFastLinear); // the chart has put in its own, plain one
    connection_->OpenFile(FromQt(databaseFile));
    if (connection_->Columns(u"simboli").empty() || connection_->Columns(u"disegni").empty())
        LeaveOutSymbols();
    // What the chart looks things up in comes before what it draws.
    for (TSqlDataSet* table : {doctors_, priceList_, Part<TSqlDataSet>(u"tipologie"), Part<TSqlDataSet>(u"diagnosi"),
             catalogue_, patients_, backgrounds_})
        if (table)
            table->Open();
}

ChartSession::~ChartSession() = default;

void ChartSession::ReadChartForm()
{
    RegisterChartClasses();
    TFormOffers offers;
    offers.Offer<TDataSetNotifyEvent>(
        u"NewRow", [this](TDataSet* row) { row->FieldByName(u"PAZIENTE").SetAsInteger(patient_); });
    offers.Offer<TIELayerNotify>(u"LayerNotify", [this](TObject*, int, TIELayerEvent) { KeepPaletteInSight(); });
    ReadForm(FromUtf8(chart_form), root_, offers);
    connection_ = Part<TSqlConnection>(u"archivio");
    patients_ = Part<TSqlDataSet>(u"pazienti");
    backgrounds_ = Part<TSqlDataSet>(u"sfondi");
    treatments_ = Part<TSqlDataSet>(u"prestazioni");
    record_ = Part<TSqlDataSet>(u"cartella");
    doctors_ = Part<TSqlDataSet>(u"operatori");
    priceList_ = Part<TSqlDataSet>(u"listino");
    catalogue_ = Part<TSqlDataSet>(u"simboli");
    placements_ = Part<TSqlDataSet>(u"disegni");
    treatmentsSource_ = Part<TDataSource>(u"fontePrestazioni");
    box_ = Part<TScrollBox>(u"riquadro");
    view_ = Part<TImageEnView>(u"vista");
    blinkTimer_ = Part<TDRLabelTimer>(u"lampeggio");
    chart_ = Part<TVornIEDBTerList>(u"carta");
    Part<TImageList>(u"glifi")->AddImage(StepsGlyph()); // a form holds no pictures
}

/// A component of the form; raises EInvalidOperation that names it if there is none, or one of another class.
template <typename T>
T* ChartSession::Part(StringView name) const
{
    if (auto* part = dynamic_cast<T*>(root_.FindComponent(name)))
        return part;
    throw EInvalidOperation(u"chart.form has no " + String(name) + u" of the right class");
}

std::vector<PatientEntry> ChartSession::Patients()
{
    std::vector<PatientEntry> entries;
    for (patients_->First(); !patients_->Eof(); patients_->Next()) {
        const QString name = ToQt(patients_->FieldByName(u"cognome").AsString()) + u' '
            + ToQt(patients_->FieldByName(u"nome").AsString());
        entries.push_back({patients_->FieldByName(u"id").AsInteger(), name});
    }
    return entries;
}

void ChartSession::ShowPatient(int number)
{
    if (!patients_->Locate(u"id", static_cast<std::int64_t>(number)))
        throw std::runtime_error(QStringLiteral("Il paziente %1 non c'è nell'archivio.").arg(number).toStdString());
    if (patient_ != number)
        ClosePicture(); // it was the other patient's
    patient_ = number;
    // The treatments last: their rebuild draws all the rest.
    for (TSqlDataSet* dataset : {record_, placements_, treatments_}) {
        if (!dataset)
            continue;
        dataset->Close();
        dataset->SetParam(u"paziente", static_cast<std::int64_t>(number));
        dataset->Open();
    }
    ZoomLabelsAgain();
}

void ChartSession::ShowZoom(int percent)
{
    if (percent != chart_->CurrentZoom() && percent >= MinZoom && percent <= MaxZoom)
        Zoom(percent);
}

void ChartSession::Zoom(int percent)
{
    const TUpdateLock lock(*view_);
    chart_->ResetSimbPanel(); // no symbol is measured in the middle of a drag
    chart_->ZoomReset();
    KeepLabelsOnPicture();
    // Measured anew, as for a label that was dragged beyond an edge. In a scroll box a chart only makes its view grow.
    const TIEBitmap& picture = view_->GetLayer(0).Bitmap();
    view_->SetBounds(view_->Left(), view_->Top(), picture.Width(), picture.Height());
    chart_->AdjustBounds();
    while (chart_->CurrentZoom() < percent)
        chart_->ZoomIn();
    KeepLabelsOnPicture();
}

/// The chart's zoom places labels as if the picture had not been shifted to make room at its left and top; the labels
/// follow it here. A label's place is stored as it stands on the screen, so it can be dragged at 100 percent only.
void ChartSession::KeepLabelsOnPicture()
{
    const int zoom = chart_->CurrentZoom();
    for (TVornRec* record : chart_->ListVornRec()) {
        if (!record->FLabel)
            continue;
        TDRLabel& label = *record->FLabel;
        const int x = record->boundRect.Left + record->boundOffset.X - chart_->OffsetX();
        const int y = record->boundRect.Top + record->boundOffset.Y - chart_->OffsetY();
        label.SetBounds(x * zoom / 100, y * zoom / 100, label.Width(), label.Height());
        label.ShowDrag = zoom == MinZoom && chart_->ShowDragPrestazioni();
    }
}

/// A rebuild and a zoom scroll to the picture's corner.
void ChartSession::KeepingSight(const std::function<void()>& change)
{
    const TPoint seen = box_ ? box_->ScrollPosition() : TPoint{};
    change();
    if (box_)
        box_->SetScrollPosition(seen);
}

void ChartSession::Rebuild()
{
    std::set<std::intptr_t> selected;
    for (int i = 0; i < blinkTimer_->ComponentList().Count(); ++i)
        selected.insert(blinkTimer_->ComponentList().Items(i)->Tag());
    KeepingSight([&] {
        chart_->CreaCollection();
        ZoomLabelsAgain();
    });
    for (const TVornRec* record : chart_->ListVornRec())
        if (record->FLabel && selected.contains(record->FLabel->Tag()))
            record->FLabel->Add();
}

/// A rebuild leaves the view's zoom as it is and places the labels as if there were none. So does a row that is read
/// anew with its label.
void ChartSession::ZoomLabelsAgain()
{
    if (const int zoom = chart_->CurrentZoom(); zoom != MinZoom)
        Zoom(zoom);
}

void ChartSession::ToggleDone()
{
    chart_->SetSelectionFatto();
    KeepingSight([&] { ZoomLabelsAgain(); });
}

void ChartSession::SetDraggable(bool draggable)
{
    chart_->SetShowDragPrestazioni(draggable);
    Rebuild();
}

} // namespace vorn::demo
