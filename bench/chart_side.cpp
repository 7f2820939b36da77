#include "bench/chart_side.h"

#include "bench/picture_part.h"

#include <QPainter>

namespace vorn::bench {

ChartSide::ChartSide(Database& database, demo::ChartSession::Setting setting)
    : session_(database.File(), setting), appearance_(session_.Chart().DataSourceAspetto())
{
    for (const char16_t* pragma : WithoutDisk)
        session_.Treatments().Connection()->Execute(pragma);
}

void ChartSide::Show(int treatments)
{
    session_.ShowZoom(100);
    if (treatments == shown_ && session_.Treatments().Active())
        return;
    session_.ShowPatient(Database::PatientWith(treatments));
    shown_ = treatments;
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
    const QRect part
        = PictureOf({0, 0, view.Width(), view.Height()}, {box.Left, box.Top, box.Width(), box.Height()});
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
