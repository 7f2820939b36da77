#include "demo/print_chart.h"

#include "demo/export_picture.h"

#include <QDate>
#include <QLocale>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintPreviewDialog>
#include <QPrinter>

#include <algorithm>

namespace vorn::demo {

namespace {

constexpr int Resolution = 300;    // dots per inch
constexpr double Margin = 12;      // millimetres
constexpr double HeadingSize = 12; // points

QPageLayout Page()
{
    return {QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF(Margin, Margin, Margin, Margin),
        QPageLayout::Millimeter};
}

/// The part inside the margins, in pixels from its own left top corner.
QRect PaintArea(const QPagedPaintDevice& device, const QPaintDevice& metric)
{
    return {QPoint(0, 0), device.pageLayout().paintRectPixels(metric.logicalDpiX()).size()};
}

} // namespace

void PaintChartPage(QPainter& painter, const QRect& page, const QString& heading, const QImage& picture)
{
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPointSizeF(HeadingSize);
    font.setBold(true);
    painter.setFont(font);
    const int line = painter.fontMetrics().height();
    painter.drawText(QRect(page.left(), page.top(), page.width(), line), Qt::AlignLeft | Qt::AlignVCenter, heading);
    const QRect rule(page.left(), page.top() + line + line / 4, page.width(), std::max(line / 20, 1));
    painter.fillRect(rule, Qt::black);

    QRect room = page;
    room.setTop(rule.bottom() + line / 2);
    if (picture.isNull() || room.isEmpty())
        return;
    QRect place(QPoint(0, 0), picture.size().scaled(room.size(), Qt::KeepAspectRatio));
    place.moveTopLeft({room.left() + (room.width() - place.width()) / 2, room.top()});
    painter.setRenderHints(QPainter::SmoothPixmapTransform | QPainter::LosslessImageRendering);
    painter.drawImage(place, picture);
}

QString PageHeading(ChartSession& session)
{
    const QLocale italian(QLocale::Italian, QLocale::Italy);
    return QStringLiteral("%1 – %2").arg(
        session.PatientName(), italian.toString(QDate::currentDate(), QStringLiteral("d MMMM yyyy")));
}

bool WriteChartPdf(ChartSession& session, QIODevice& target)
{
    const QImage picture = FinishedChart(session);
    QPdfWriter writer(&target);
    writer.setPageLayout(Page());
    writer.setResolution(Resolution);
    writer.setTitle(QStringLiteral("Cartella grafica"));
    QPainter painter;
    if (!painter.begin(&writer))
        return false;
    PaintChartPage(painter, PaintArea(writer, writer), PageHeading(session), picture);
    return painter.end();
}

std::unique_ptr<QPrinter> MakePrinter()
{
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setPageLayout(Page());
    printer->setDocName(QStringLiteral("Cartella grafica"));
    return printer;
}

QPrintPreviewDialog* MakePreview(ChartSession& session, QPrinter& printer, QWidget* parent)
{
    auto* dialog = new QPrintPreviewDialog(&printer, parent);
    dialog->setWindowTitle(QStringLiteral("Anteprima di stampa"));
    // The page may be turned or changed in the dialog, which asks for it anew each time; the chart stays the same.
    const QImage picture = FinishedChart(session);
    const QString heading = PageHeading(session);
    QObject::connect(dialog, &QPrintPreviewDialog::paintRequested, dialog, [picture, heading](QPrinter* paper) {
        QPainter painter;
        if (painter.begin(paper))
            PaintChartPage(painter, PaintArea(*paper, *paper), heading, picture);
    });
    return dialog;
}

} // namespace vorn::demo
