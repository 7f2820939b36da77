#include "bench/chart_side.h"

#include "bench/picture_part.h"

#include <QPainter>

namespace vorn::bench {

ChartSide::ChartSide(Database& database, demo::ChartSession::Setting setting)
    : session_(database.File(), setting), appearance_(session_.Chart().DataSourceAspetto())
{
    TSqlConnection* connection = session_.Treatments().Connection();
    for (const char16_t* pragma : WithoutDisk)
        connection->Execute(pragma);
    record_ = new TSqlDataSet(&root_);
    record_->SetConnection(connection);
    record_->SetCommandText(u"SELECT :mancanti AS Mancanti, '' AS POS_DIAGNOSI");
    record_->SetParam(u"mancanti", String());
    record_->Open();
    auto* source = new TDataSource(&root_);
    source->SetDataSet(record_);
    session_.Chart().SetDataSourceCartella(source);
    session_.Chart().SetDiagnosiShow(TDiagnosiShow::diagNone); // the peer has no such box
}

void ChartSide::Show(int treatments)
{
    ShowPatient(Database::PatientWith(treatments));
}

void ChartSide::ShowPatient(int patient)
{
    session_.ShowZoom(100);
    if (patient == patient_ && session_.Treatments().Active()) {
        ShowSymbolsOf(patient);
        return;
    }
    session_.ShowPatient(patient);
    patient_ = patient;
    symbolsOf_ = patient;
}

void ChartSide::ShowSymbols(int placements)
{
    ShowSymbolsOf(Database::PatientWithSymbols(placements));
}

void ChartSide::ShowSymbolsOf(int patient)
{
    if (patient == symbolsOf_)
        return;
    TSqlDataSet& rows = session_.Placements();
    rows.Close();
    rows.SetParam(u"paziente", static_cast<std::int64_t>(patient));
    rows.Open();
    symbolsOf_ = patient;
}

void ChartSide::ForgetSymbolPictures()
{
    TSqlDataSet& catalogue = session_.Catalogue();
    catalogue.Close(); // a rebuild keeps only pictures that it has asked for
    RebuildSymbols();
    catalogue.Open();
}

void ChartSide::SetMissing(StringView missing)
{
    record_->Close();
    record_->SetParam(u"mancanti", String(missing));
    record_->Open();
}

QImage ChartSide::PaintPart(const TRect& part)
{
    QImage image(part.Width(), part.Height(), QImage::Format_RGB32);
    QPainter painter(&image);
    painter.translate(-part.Left, -part.Top);
    TCanvas canvas(painter);
    session_.View().PaintPartTo(canvas, part);
    return image;
}

QImage ChartSide::Paint()
{
    TImageEnView& view = session_.View();
    const TRect box = view.GetLayer(0).Box();
    const QRect part = PictureOf({0, 0, view.Width(), view.Height()}, {box.Left, box.Top, box.Width(), box.Height()});
    return PaintPart({part.left(), part.top(), part.left() + part.width(), part.top() + part.height()});
}

void ChartSide::GoToRow(int ordinal)
{
    TSqlDataSet& rows = session_.Treatments();
    rows.MoveBy(ordinal - rows.RowIndex());
}

void ChartSide::PostText(StringView text)
{
    TSqlDataSet& rows = session_.Treatments();
    rows.Edit();
    rows.FieldByName(u"Terapia").SetAsString(text);
    rows.Post();
}

QImage ChartSide::PaintLabel()
{
    return PaintPart(session_.Chart().CurDib()->FLabel->BoundsRect());
}

void ChartSide::UseRules(bool use)
{
    TVornIEDBTerList& chart = session_.Chart();
    chart.SetDataSourceAspetto(use ? appearance_ : nullptr);
    chart.LabelProp().SetSetColorProp(use ? TXSetProp::etOp : TXSetProp::etUnassigned);
    chart.LabelProp().SetSetFontProp(use ? TXSetProp::etTip : TXSetProp::etUnassigned);
}

} // namespace vorn::bench
