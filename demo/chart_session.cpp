#include "demo/chart_session.h"

#include "demo/qt_strings.h"

#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

#include <set>
#include <stdexcept>

namespace vorn::demo {

namespace {

constexpr int GlyphSize = 9;

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
    connection_ = new TSqlConnection(&root_);
    connection_->OpenFile(FromQt(databaseFile));
    patients_ = AddDataSet(u"pazienti", u"SELECT * FROM pazienti ORDER BY id");
    backgrounds_ = AddDataSet(u"sfondi", u"SELECT * FROM sfondi ORDER BY ID");
    treatments_
        = AddDataSet(u"prestazioni", u"SELECT * FROM prestazioni WHERE PAZIENTE = :paziente ORDER BY ID");
    treatments_->SetUpdateTable(u"prestazioni", u"ID");
    treatments_->OnNewRecord = [this](TDataSet* row) { row->FieldByName(u"PAZIENTE").SetAsInteger(patient_); };
    record_ = AddDataSet(u"cartella", u"SELECT * FROM cartella WHERE PAZIENTE = :paziente");
    record_->SetUpdateTable(u"cartella", u"PAZIENTE");
    treatmentsSource_ = AddSource(treatments_);
    MakeView(setting);
    MakeTemplate();
    MakeChart();
    MakeSymbols();
    MakeRecord();
    patients_->Open();
    backgrounds_->Open();
}

ChartSession::~ChartSession() = default;

TSqlDataSet* ChartSession::AddDataSet(StringView name, StringView select)
{
    auto* dataset = new TSqlDataSet(&root_);
    dataset->SetName(name);
    dataset->SetConnection(connection_);
    dataset->SetCommandText(select);
    return dataset;
}

TSqlDataSet* ChartSession::OpenTable(StringView name, StringView order)
{
    TSqlDataSet* table = AddDataSet(name, u"SELECT * FROM " + String(name) + u" ORDER BY " + String(order));
    table->Open();
    return table;
}

TDataSource* ChartSession::AddSource(TDataSet* dataset)
{
    auto* source = new TDataSource(&root_);
    source->SetDataSet(dataset);
    return source;
}

void ChartSession::MakeView(Setting setting)
{
    if (setting == Setting::Window)
        box_ = new TScrollBox(&root_);
    view_ = new TImageEnView(&root_);
    view_->OnLayerNotify = [this](TObject*, int, TIELayerEvent) { KeepPaletteInSight(); };
    if (box_)
        view_->SetParent(box_);
}

void ChartSession::MakeTemplate()
{
    blinkTimer_ = new TDRLabelTimer(&root_);
    auto* glyphs = new TImageList(&root_, GlyphSize, GlyphSize);
    glyphs->AddImage(StepsGlyph());
    template_ = new TDRLabel(&root_);
    template_->SetBlinkTimer(blinkTimer_);
    template_->SetTransparent(true);
    template_->SetShowAccelChar(false);
    template_->SetImages(glyphs);
    template_->SetGliphVisible(true);
}

void ChartSession::MakeChart()
{
    chart_ = new TVornIEDBTerList(&root_);
    chart_->SetKeyField(u"ID");
    chart_->SetParentField(u"PADRE");
    chart_->SetFieldFatto(u"Fatto");
    chart_->SetIDFatto(u"FAT");
    chart_->SetIDEsclusa(u"ESC");
    chart_->SetIDNONAccettata(u"NON");
    chart_->SetDefaultLabel(template_);
    chart_->SetRiposizionaPrestazioni(true);
    chart_->SetShowDragPrestazioni(true);
    chart_->SetContainer(view_);
    view_->SetZoomFilter(TResampleFilter::rfFastLinear);
    chart_->SetDataSourceAspetto(AddSource(AddDataSet(u"aspetto", u"SELECT * FROM aspetto ORDER BY ID")));
    doctors_ = OpenTable(u"operatori", u"Sigla");
    priceList_ = OpenTable(u"listino", u"Codice");
    chart_->LabelProp().SetDSOperatori(AddSource(doctors_));
    chart_->LabelProp().SetDSTipologie(AddSource(OpenTable(u"tipologie", u"Sigla")));
    chart_->SetDataSourceSfondi(AddSource(backgrounds_));
    chart_->SetDataSource(treatmentsSource_);
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
    if (percent == chart_->CurrentZoom() || percent < MinZoom || percent > MaxZoom)
        return;
    KeepingSelection([&] {
        chart_->CreaCollection();
        Zoom(percent);
    });
}

/// Only right behind a rebuild: every label then has the place that it was built at.
void ChartSession::Zoom(int percent)
{
    chart_->ZoomReset();
    while (chart_->CurrentZoom() < percent)
        chart_->ZoomIn();
    KeepLabelsOnPicture();
}

/// The chart's zoom places labels as if the picture had not been shifted to make room at its left and top; the labels
/// follow it here. A label's place is stored as it stands on the screen, so it can be dragged at 100 percent only.
void ChartSession::KeepLabelsOnPicture()
{
    const int zoom = chart_->CurrentZoom();
    const int dx = -chart_->OffsetX() * zoom / 100;
    const int dy = -chart_->OffsetY() * zoom / 100;
    for (TVornRec* record : chart_->ListVornRec()) {
        if (!record->FLabel)
            continue;
        TDRLabel& label = *record->FLabel;
        label.SetBounds(label.Left() + dx, label.Top() + dy, label.Width(), label.Height());
        label.ShowDrag = zoom == MinZoom && chart_->ShowDragPrestazioni();
    }
}

void ChartSession::Rebuild()
{
    KeepingSelection([&] {
        chart_->CreaCollection();
        ZoomLabelsAgain();
    });
}

/// A rebuild leaves the view's zoom as it is and places the labels as if there were none.
void ChartSession::ZoomLabelsAgain()
{
    if (const int zoom = chart_->CurrentZoom(); zoom != MinZoom)
        Zoom(zoom);
}

void ChartSession::ToggleDone()
{
    chart_->SetSelectionFatto();
    // The rows have been read anew, and their labels stand as if there were no zoom.
    if (chart_->CurrentZoom() != MinZoom)
        Rebuild();
}

void ChartSession::KeepingSelection(const std::function<void()>& rebuild)
{
    std::set<std::intptr_t> selected;
    for (int i = 0; i < blinkTimer_->ComponentList().Count(); ++i)
        selected.insert(blinkTimer_->ComponentList().Items(i)->Tag());
    rebuild();
    for (const TVornRec* record : chart_->ListVornRec())
        if (record->FLabel && selected.contains(record->FLabel->Tag()))
            record->FLabel->Add();
}

void ChartSession::SetDraggable(bool draggable)
{
    chart_->SetShowDragPrestazioni(draggable);
    Rebuild();
}

} // namespace vorn::demo
